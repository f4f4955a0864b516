#include "nav_pvt.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "messaggi.h"
#include "orologio.h"
#include "ubx.h"

namespace kel::simulatore {

namespace {

constexpr unsigned ORA_VALIDA = 0x07;      // date valid, time valid, both fully resolved
constexpr unsigned ORA_CONFERMATA = 0xE0;  // both confirmed
constexpr std::uint32_t TEMPO_NS = 25;     // accuracy of the time

// Of the direction: the angle below which the velocity's error shows, degrees.
double accuratezza_rotta(double velocita_errore, double al_suolo) {
    return std::min(180.0, std::atan2(velocita_errore, al_suolo) * 180.0 / 3.14159265358979323846);
}

void aggiungi_ora(std::string& dati, const Istante& i) {
    const Utc ora = utc(i.settimana, i.settimana_ms);
    aggiungi(dati, i.settimana_ms, 4);
    aggiungi(dati, ora.anno, 2);
    for (const unsigned pezzo : {ora.mese, ora.giorno, ora.ore, ora.minuti, ora.secondi, ORA_VALIDA})
        aggiungi(dati, pezzo, 1);
    aggiungi(dati, TEMPO_NS, 4);
    aggiungi(dati, ora.millesimi * 1000000, 4);  // fraction of the second, ns
}

void aggiungi_velocita(std::string& dati, const Istante& i, const PianoLocale& piano) {
    const Vettore v = velocita_locale(i, piano);
    const double al_suolo = std::hypot(v.x, v.y);
    for (const double metri_al_secondo : {v.y, v.x, -v.z, al_suolo})
        aggiungi(dati, intero(metri_al_secondo * 1000), 4);
    aggiungi(dati, intero(rotta(v) * 1e5), 4);
    aggiungi(dati, i.accuratezza_velocita * 10, 4);  // mm/s
    aggiungi(dati, intero(accuratezza_rotta(i.accuratezza_velocita / 100.0, al_suolo) * 1e5), 4);
}

}  // namespace

std::string nav_pvt(const Istante& istante, const PianoLocale& piano) {
    std::string dati;
    aggiungi_ora(dati, istante);
    aggiungi(dati, istante.fix, 1);
    aggiungi(dati, istante.fix >= 2 ? 0x01 : 0x00, 1);  // the fix is good
    aggiungi(dati, ORA_CONFERMATA, 1);
    aggiungi(dati, istante.satelliti, 1);
    aggiungi_posizione(dati, istante, piano);
    aggiungi_velocita(dati, istante, piano);
    aggiungi(dati, dop(istante), 2);
    dati.append(14, '\0');  // no vehicle heading, no magnetic declination
    return messaggio_ubx(0x01, 0x07, dati);
}

}  // namespace kel::simulatore
