// Packet channels: which sample type their function asks for, and which of their texts sum up a packet.
#ifndef KEL_REGISTRAZIONI_PACCHETTI_H
#define KEL_REGISTRAZIONI_PACCHETTI_H

#include <cstdint>
#include <optional>

#include "kelfunzioni.h"

namespace kel_registrazioni {

/// The sample type of a packet channel, known from its function; nothing for other functions.
constexpr std::optional<std::uint32_t> tipo_pacchetto(kel_funpos fid) {
    if (kelFidGrandezza(fid) != FID_PHI_PACKAGE)
        return std::nullopt;
    switch (kelFidOggetto(fid)) {
        case FID_DETTAGLI_LAPTIME:
            return kelFidPosizione(fid) == FID_SPEC_LAPTIME_KEL1G ? KEL_TIPO_LAP_1G : KEL_TIPO_LAP_2G;
        case FID_DETTAGLI_DATETIME:
            return KEL_TIPO_DATA_ORA;
        case FID_DETTAGLI_GPS:
            return kelFidPosizione(fid) == FID_SPEC_GPS_UBXNAVSOL ? KEL_TIPO_GPS_NAVSOL : KEL_TIPO_GPS_KEL;
        default:
            return std::nullopt;
    }
}

/// The formats whose text sums up a packet; their value is always 0.
constexpr bool di_pacchetto(std::uint32_t tipo) {
    switch (tipo) {
        case KEL_TIPO_LAP_2G:
        case KEL_TIPO_GPS_KEL:
        case KEL_TIPO_GPS_NAVSOL:
        case KEL_TIPO_DATA_ORA:
        case KEL_TIPO_LAP_1G:
        case KEL_TIPO_GPS_SATELLITI:
        case KEL_TIPO_TEMPO_PACCHETTO:
            return true;
        default:
            return false;
    }
}

}  // namespace kel_registrazioni

#endif
