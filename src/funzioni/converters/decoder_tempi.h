// Texts of lap times and time differences, in milliseconds.
#ifndef KEL_CONVERTERS_DECODER_TEMPI_H
#define KEL_CONVERTERS_DECODER_TEMPI_H

#include "kelfunzioni.h"

namespace kel {

void testo_tempo_giro(s_kel_converter* conv, const void* campione, char* testo) noexcept;
void testo_differenza_tempo(s_kel_converter* conv, const void* campione, char* testo) noexcept;

// The time of a lap packet: its second 32-bit word.
void testo_tempo_pacchetto(s_kel_converter* conv, const void* campione, char* testo) noexcept;

}  // namespace kel

#endif
