// Subfields of date and time packets: there are none.
#include "packets/tabella_sottocampi.h"

constexpr s_sottocampo kel::SOTTOCAMPI_DATA_ORA[] = {kel::FINE_SOTTOCAMPI};

static_assert(kel::sottocampi_in_regola(kel::SOTTOCAMPI_DATA_ORA, KEL_TIPO_DATA_ORA),
              "the end row is last and only last");
