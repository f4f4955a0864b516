#include "gps/campi_gps.h"

namespace kel_registrazioni {

namespace {

constexpr double KMH = 3.6;  // km/h, the library's first unit of speed, in a m/s

}  // namespace

const AspettoGps& aspetto(CampoGps campo) {
    // A degree's 8th decimal is a millimetre: finer than the messages, which have 10 mm.
    static constexpr AspettoGps ASPETTI[] = {
        {"UTC", "", 0},
        {"Fix", "", 0},
        {"Satellites", "", 0},
        {"Latitude", "deg", 8},
        {"Longitude", "deg", 8},
        {"Altitude", "m", 3},
        {"Speed", "", 3},
        {"Heading", "deg", 2},
        {"Climb", "m/s", 3},
        {"Position Accuracy", "m", 3},
        {"Speed Accuracy", "m/s", 3},
    };
    return ASPETTI[static_cast<std::size_t>(campo)];
}

kel_funpos fid_di(CampoGps campo) {
    switch (campo) {
        case CampoGps::fix:
            return KEL_FID_GPS_FIX;
        case CampoGps::satelliti:
            return KEL_FID_GPS_SATELLITI;
        case CampoGps::latitudine:
            return KEL_FID_GPS_LATITUDINE;
        case CampoGps::longitudine:
            return KEL_FID_GPS_LONGITUDINE;
        case CampoGps::altezza:
            return KEL_FID_GPS_ALTEZZA;
        case CampoGps::velocita:
            return KEL_FID_GPS_VELOCITA;
        case CampoGps::accuratezza_posizione:
            return KEL_FID_GPS_ACCURATEZZA_POSIZIONE;
        case CampoGps::accuratezza_velocita:
            return KEL_FID_GPS_ACCURATEZZA_VELOCITA;
        case CampoGps::utc:
        case CampoGps::rotta:
        case CampoGps::salita:
            break;
    }
    return 0;
}

std::optional<double> valore_gps(const Soluzione& s, CampoGps campo) {
    switch (campo) {
        case CampoGps::utc:
            break;
        case CampoGps::fix:
            return s.fix;
        case CampoGps::satelliti:
            return s.satelliti;
        case CampoGps::latitudine:
            return s.luogo ? std::optional(s.luogo->latitudine) : std::nullopt;
        case CampoGps::longitudine:
            return s.luogo ? std::optional(s.luogo->longitudine) : std::nullopt;
        case CampoGps::altezza:
            return s.altezza();
        case CampoGps::velocita:
            return s.andatura();
        case CampoGps::rotta:
            return s.rotta();
        case CampoGps::salita:
            return s.salita();
        case CampoGps::accuratezza_posizione:
            return s.accuratezza_posizione;
        case CampoGps::accuratezza_velocita:
            return s.accuratezza_velocita;
    }
    return std::nullopt;
}

double da_metri_al_secondo(const IFunzioni& catalogo, const std::string& udm) {
    return KMH * static_cast<double>(catalogo.getParamConv(KEL_FID_GPS_VELOCITA, udm)->gain);
}

}  // namespace kel_registrazioni
