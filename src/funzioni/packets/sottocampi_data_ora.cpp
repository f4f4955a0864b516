// Subfields of date and time packets: none.
#include "packets/tabella_sottocampi.h"

constexpr s_sottocampo kel::sottocampi_data_ora[] = {kel::fine_sottocampi};

static_assert(kel::sottocampi_in_regola(kel::sottocampi_data_ora, 44), "the end row is last and only last");
