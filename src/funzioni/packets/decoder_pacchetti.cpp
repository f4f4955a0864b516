#include "packets/decoder_pacchetti.h"

#include "base/lettura.h"
#include "base/scrittura.h"
#include "packets/navsol.h"

namespace kel {
namespace {

void testo_stato_gps(const void* campione, std::size_t payload, char* testo) noexcept {
    constexpr int senza_ricevitore = 250;  // and above: a logger without a receiver fills its packets with such numbers
    const int fix = leggi<uint8_t>(campione, payload + NAVSOL_FIX);
    const int satelliti = leggi<uint8_t>(campione, payload + NAVSOL_SATELLITI);
    Scrittore scrittore(testo);
    if (fix >= senza_ricevitore && satelliti >= senza_ricevitore)
        scrittore.testo("No GPS");
    else if (fix < 2)
        scrittore.testo("GPS fix missing");
    else if (fix == 2)
        scrittore.testo("GPS low fix");
    else
        scrittore.testo("GPS Fix=").con_spazi(fix).testo(" SVs=").con_spazi(satelliti);
}

}  // namespace

float pacchetto_senza_valore(const s_kel_converter*, const void*, uint32_t* stato) noexcept {
    *stato = 0;
    return 0.0f;
}

void testo_gps_kel(s_kel_converter*, const void* campione, char* testo) noexcept {
    testo_stato_gps(campione, PAYLOAD_IN_GPS_KEL, testo);
}

void testo_gps_navsol(s_kel_converter*, const void* campione, char* testo) noexcept {
    testo_stato_gps(campione, 0, testo);
}

void testo_data_ora(s_kel_converter*, const void*, char* testo) noexcept {
    Scrittore(testo).testo("Date and Time Packet");
}

void testo_lap_1g(s_kel_converter*, const void*, char* testo) noexcept {
    Scrittore(testo).testo("LAP Packet 1G");
}

void testo_gps_satelliti(s_kel_converter*, const void*, char* testo) noexcept {
    Scrittore(testo).testo("GPS SV Info Packet");
}

}  // namespace kel
