#include "captures/vista_gps.h"

#include <cmath>

#include "domain/fid_gps.h"
#include "text/numeri.h"

namespace kel::strumento {

namespace {

constexpr int DECIMALI_PROGRAMMI = 6;  // of a speed: far below what a receiver resolves
constexpr double KMH = 3.6;            // km/h, the library's first unit of speed, in a m/s
constexpr double GIRO = 360;

// To so many decimals: no "-0.000", and no heading of "360.00".
double arrotondato(double valore, CampoGps campo) {
    const double scala = std::pow(10, aspetto(campo).decimali);
    const double tondo = std::round(valore * scala) / scala + 0.0;
    return campo == CampoGps::rotta && tondo >= GIRO ? 0 : tondo;
}

}  // namespace

const AspettoGps& aspetto(CampoGps campo) {
    // A degree's 8th decimal is a millimetre: finer than the messages, which have 10 mm.
    static constexpr AspettoGps ASPETTI[] = {
        {"UTC", "UTC", "", 0, 24},
        {"Fix", "FIX", "", 0, 3},
        {"Satellites", "SATS", "", 0, 4},
        {"Latitude", "LATITUDE", "deg", 8, 12},
        {"Longitude", "LONGITUDE", "deg", 8, 13},
        {"Altitude", "ALTITUDE", "m", 3, 10},
        {"Speed", "SPEED", "", 3, 10},
        {"Heading", "HEADING", "deg", 2, 11},
        {"Climb", "CLIMB", "m/s", 3, 9},
        {"Position Accuracy", "POS.ACC", "m", 3, 10},
        {"Speed Accuracy", "SPD.ACC", "m/s", 3, 11},
    };
    return ASPETTI[static_cast<std::size_t>(campo)];
}

kel_funpos fidDi(CampoGps campo) {
    switch (campo) {
        case CampoGps::fix:
            return GPS_FIX;
        case CampoGps::satelliti:
            return GPS_SATELLITI;
        case CampoGps::latitudine:
            return GPS_LATITUDINE;
        case CampoGps::longitudine:
            return GPS_LONGITUDINE;
        case CampoGps::altezza:
            return GPS_ALTEZZA;
        case CampoGps::velocita:
            return GPS_VELOCITA;
        case CampoGps::accuratezza_posizione:
            return GPS_ACCURATEZZA_POSIZIONE;
        case CampoGps::accuratezza_velocita:
            return GPS_ACCURATEZZA_VELOCITA;
        case CampoGps::utc:
        case CampoGps::rotta:
        case CampoGps::salita:
            break;
    }
    return 0;
}

std::optional<double> valoreGps(const Soluzione& s, CampoGps campo) {
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

double daMetriAlSecondo(const IFunzioni& catalogo, const std::string& udm) {
    return KMH * static_cast<double>(catalogo.getParamConv(GPS_VELOCITA, udm)->gain);
}

Cella cellaGps(const Soluzione& soluzione, CampoGps campo, double fattore, int decimali_velocita) {
    if (campo == CampoGps::utc)
        return soluzione.utc ? Cella::testo(soluzione.utc->testo()) : Cella();
    const auto valore = valoreGps(soluzione, campo);
    if (!valore)
        return {};
    if (campo == CampoGps::fix || campo == CampoGps::satelliti)
        return Cella::intero(static_cast<std::int64_t>(*valore));
    if (campo == CampoGps::velocita)
        return Cella::reale(*valore * fattore, DECIMALI_PROGRAMMI, conDecimali(*valore * fattore, decimali_velocita));
    return Cella::reale(arrotondato(*valore, campo), aspetto(campo).decimali);
}

}  // namespace kel::strumento
