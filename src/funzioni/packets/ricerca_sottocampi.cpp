#include "packets/ricerca_sottocampi.h"

#include "packets/tabella_sottocampi.h"

namespace kel {
namespace {

const s_sottocampo* tabella_gps(unsigned spec) noexcept {
    switch (spec) {
        case FID_SPEC_GPS_KELNAVSOL:
            return sottocampi_gps_kel;
        case FID_SPEC_GPS_UBXNAVSOL:
            return SOTTOCAMPI_GPS_NAVSOL;
        default:
            return nullptr;
    }
}

const s_sottocampo* tabella_lap_time(unsigned spec) noexcept {
    switch (spec) {
        case FID_SPEC_LAPTIME_KEL2G:
        case FID_SPEC_LAPTIME_KEL2Gv2:
            return sottocampi_lap_time_2G;
        case FID_SPEC_LAPTIME_KEL1G:
            return SOTTOCAMPI_LAP_TIME_1G;
        default:
            return nullptr;
    }
}

// The first row with an identifier, before the end row. Null when there is none, or no table.
const s_sottocampo* riga_sottocampo(const s_sottocampo* tabella, kel_funpos fid) noexcept {
    if (tabella == nullptr)
        return nullptr;
    for (const s_sottocampo* riga = tabella; !fine_sottocampi_qui(*riga); ++riga)
        if (riga->fid == fid)
            return riga;
    return nullptr;
}

}  // namespace

const s_sottocampo* tabella_sottocampi(unsigned dettagli, unsigned spec) noexcept {
    switch (dettagli) {
        case FID_DETTAGLI_LAPTIME:
            return tabella_lap_time(spec);
        case FID_DETTAGLI_DATETIME:
            return SOTTOCAMPI_DATA_ORA;
        case FID_DETTAGLI_GPS:
            return tabella_gps(spec);
        default:
            return nullptr;
    }
}

const s_sottocampo* cerca_sottocampo(unsigned dettagli, unsigned spec, kel_funpos fid) noexcept {
    return riga_sottocampo(tabella_sottocampi(dettagli, spec), fid);
}

}  // namespace kel

const s_sottocampo* search_sottocampi_struct(unsigned dettagli, unsigned spec) noexcept {
    return kel::tabella_sottocampi(dettagli, spec);
}

const s_sottocampo* getDettagliSottocampo(const s_sottocampo* tabella, kel_funpos fid) noexcept {
    return kel::riga_sottocampo(tabella, fid);
}

int kelConvMatchSottocampo(unsigned dettagli, unsigned spec, kel_funpos fid) noexcept {
    return kel::cerca_sottocampo(dettagli, spec, fid) != nullptr ? 1 : 0;
}

const s_sottocampo* kelConvGetSottoCampiGPS(kel_funpos fid) noexcept {
    return kel::tabella_gps(kelFidPosizione(fid));
}

const s_sottocampo* kelConvGetSottoCampiLapTime(kel_funpos fid) noexcept {
    return kel::tabella_lap_time(kelFidPosizione(fid));
}

const s_sottocampo* kelConvGetSottoCampiDataOra(kel_funpos) noexcept {
    return kel::SOTTOCAMPI_DATA_ORA;
}
