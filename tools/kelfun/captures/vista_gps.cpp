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

const Testata& testata(eKelCampo campo) {
    static constexpr Testata TESTATE[] = {
        {"", 0},          {"UTC", 24},   {"FIX", 3},      {"SATS", 4},  {"LATITUDE", 12}, {"LONGITUDE", 13},
        {"ALTITUDE", 10}, {"SPEED", 10}, {"HEADING", 11}, {"CLIMB", 9}, {"POS.ACC", 10},  {"SPD.ACC", 11},
    };
    return TESTATE[campo];
}

double scala(int decimali) {
    static constexpr double POTENZE[] = {1, 10, 100, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8};
    return POTENZE[decimali];
}

}  // namespace

const char* testata_gps(eKelCampo campo) {
    return testata(campo).testo;
}

std::size_t larghezza_gps(eKelCampo campo) {
    return testata(campo).larghezza;
}

NumeroGps numero_gps(double valore, eKelCampo campo, int decimali) {
    if (campo == KEL_CAMPO_VELOCITA)
        return {valore, DECIMALI_PROGRAMMI};
    const double tondo = std::round(valore * scala(decimali)) / scala(decimali) + 0.0;
    return {campo == KEL_CAMPO_ROTTA && tondo >= GIRO ? 0 : tondo, decimali};
}

Cella cella_gps(std::optional<double> valore, std::string_view testo, eKelCampo campo, int decimali) {
    if (campo == KEL_CAMPO_UTC)
        return testo.empty() ? Cella() : Cella::testo(testo);
    if (!valore)
        return {};
    if (intero_gps(campo))
        return Cella::intero(static_cast<std::int64_t>(*valore));
    if (campo == KEL_CAMPO_VELOCITA)
        return Cella::reale(*valore, DECIMALI_PROGRAMMI, con_decimali(*valore, decimali));
    const NumeroGps numero = numero_gps(*valore, campo, decimali);
    return Cella::reale(numero.valore, numero.decimali);
}

}  // namespace kel::strumento
