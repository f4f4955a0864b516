#include "captures/vista_gps.h"

#include <cmath>

#include "text/numeri.h"

namespace kel::strumento {

namespace {

constexpr int DECIMALI_PROGRAMMI = 6;  // of a speed: far below what a receiver resolves
constexpr double GIRO = 360;

struct Testata {
    const char* testo;
    std::size_t larghezza;
};

const Testata& testata(CampoGps campo) {
    static constexpr Testata TESTATE[] = {
        {"UTC", 24},   {"FIX", 3},      {"SATS", 4},  {"LATITUDE", 12}, {"LONGITUDE", 13}, {"ALTITUDE", 10},
        {"SPEED", 10}, {"HEADING", 11}, {"CLIMB", 9}, {"POS.ACC", 10},  {"SPD.ACC", 11},
    };
    return TESTATE[static_cast<std::size_t>(campo)];
}

// To so many decimals: no "-0.000", and no heading of "360.00".
double arrotondato(double valore, CampoGps campo) {
    const double scala = std::pow(10, aspetto(campo).decimali);
    const double tondo = std::round(valore * scala) / scala + 0.0;
    return campo == CampoGps::rotta && tondo >= GIRO ? 0 : tondo;
}

}  // namespace

const char* testata_gps(CampoGps campo) {
    return testata(campo).testo;
}

std::size_t larghezza_gps(CampoGps campo) {
    return testata(campo).larghezza;
}

Cella cella_gps(const Soluzione& soluzione, CampoGps campo, double fattore, int decimali_velocita) {
    if (campo == CampoGps::utc)
        return soluzione.utc ? Cella::testo(soluzione.utc->testo()) : Cella();
    const auto valore = valore_gps(soluzione, campo);
    if (!valore)
        return {};
    if (campo == CampoGps::fix || campo == CampoGps::satelliti)
        return Cella::intero(static_cast<std::int64_t>(*valore));
    if (campo == CampoGps::velocita)
        return Cella::reale(*valore * fattore, DECIMALI_PROGRAMMI, con_decimali(*valore * fattore, decimali_velocita));
    return Cella::reale(arrotondato(*valore, campo), aspetto(campo).decimali);
}

}  // namespace kel::strumento
