#include "tipi_campione.h"

#include <iterator>

namespace kel::strumento {

namespace {

constexpr const char* CONTENUTI[] = {
    "signed 32-bit integer",
    "signed 16-bit integer",
    "unsigned 8-bit integer",
    "unsigned 32-bit integer",
    "unsigned 16-bit integer",
    "unsigned 8-bit integer, may be a bit field",
    "32-bit float",
    "lap packet, second generation",
    "GPS solution packet of the logger",
    "u-blox NAV-SOL payload",
    "date and time packet",
    "gear",
    "lap time, ms",
    "bit set",
    "no sample",
    "16-bit number and text of 6",
    "16-bit number and text of 30",
    "lap packet, first generation",
    "GPS satellite packet",
    "8 bytes without a decoder",
    "16-bit float",
    "coordinate, 1e-7 degrees",
    "packet with a time, ms",
    "no sample",
    "time difference, ms",
};
static_assert(std::size(CONTENUTI) == NUM_TIPI_CAMPIONE, "row i is code i");

}  // namespace

const char* contenutoCampione(unsigned tipo) {
    return CONTENUTI[tipo];
}

std::optional<unsigned> tipoPacchetto(kel_funpos fid) {
    if (kelFidGrandezza(fid) != FID_PHI_PACKAGE)
        return std::nullopt;
    switch (kelFidOggetto(fid)) {
        case FID_DETTAGLI_LAPTIME:
            return kelFidPosizione(fid) == FID_SPEC_LAPTIME_KEL1G ? 17 : 7;
        case FID_DETTAGLI_DATETIME:
            return 10;
        case FID_DETTAGLI_GPS:
            return kelFidPosizione(fid) == FID_SPEC_GPS_UBXNAVSOL ? 9 : 8;
        default:
            return std::nullopt;
    }
}

}  // namespace kel::strumento
