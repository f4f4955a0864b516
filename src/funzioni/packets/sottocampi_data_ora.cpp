// Subfields of date and time packets: there are none.
#include "packets/tabella_sottocampi.h"

constexpr s_sottocampo kel::sottocampi_data_ora[] = {kel::fine_sottocampi};

static_assert(kel::sottocampi_in_regola(kel::sottocampi_data_ora, KEL_TIPO_DATA_ORA),
              "the end row is last and only last");
