// What a packet shows as a whole: no value, and a text.
#ifndef KEL_PACKETS_DECODER_PACCHETTI_H
#define KEL_PACKETS_DECODER_PACCHETTI_H

#include <cstdint>

#include "kelfunzioni.h"

namespace kel {

// A packet has no value of its own. Gives 0 with status 0.
float pacchetto_senza_valore(const s_kel_converter* conv, const void* campione, uint32_t* stato) noexcept;

void testo_gps_kel(s_kel_converter* conv, const void* campione, char* testo) noexcept;
void testo_gps_navsol(s_kel_converter* conv, const void* campione, char* testo) noexcept;
void testo_data_ora(s_kel_converter* conv, const void* campione, char* testo) noexcept;
void testo_lap_1g(s_kel_converter* conv, const void* campione, char* testo) noexcept;
void testo_gps_satelliti(s_kel_converter* conv, const void* campione, char* testo) noexcept;

}  // namespace kel

#endif
