#include "messaggi.h"

#include <cmath>
#include <cstdio>

#include "nav_pvt.h"
#include "orologio.h"
#include "ubx.h"

namespace kel::simulatore {

namespace {

// Degrees as NMEA writes them: degrees and minutes without a sign, "4449.38600".
std::string gradi_minuti(double gradi, int cifre) {
    const auto centomillesimi = static_cast<unsigned long>(std::lround(std::fabs(gradi) * 6000000.0));
    char testo[32];
    std::snprintf(testo, sizeof testo, "%0*lu%02lu.%05lu", cifre, centomillesimi / 6000000,
                  centomillesimi / 100000 % 60, centomillesimi % 100000);
    return testo;
}

}  // namespace

Vettore velocita_locale(const Istante& i, const PianoLocale& piano) {
    return PianoLocale(piano.geodetiche(i.posizione)).locale(piano.velocita(i.velocita));
}

unsigned dop(const Istante& i) {
    return i.satelliti > 3 ? 1300 / i.satelliti : 9999;
}

double rotta(const Vettore& v) {
    const double gradi = std::atan2(v.x, v.y) * 180.0 / 3.14159265358979323846;
    return gradi < 0 ? gradi + 360 : gradi;
}

std::string payload_nav_sol(const Istante& i, const PianoLocale& piano) {
    const Vettore r = piano.posizione(i.posizione);
    const Vettore v = piano.velocita(i.velocita);
    std::string dati;
    aggiungi(dati, i.settimana_ms, 4);
    aggiungi(dati, 0, 4);  // its fraction, ns
    aggiungi(dati, i.settimana, 2);
    aggiungi(dati, i.fix, 1);
    aggiungi(dati, i.fix >= 2 ? 0x0D : 0x0C, 1);  // fix good, week and time of week known
    for (const double metri : {r.x, r.y, r.z})
        aggiungi(dati, intero(metri * 100), 4);
    aggiungi(dati, i.accuratezza_posizione, 4);
    for (const double metri_al_secondo : {v.x, v.y, v.z})
        aggiungi(dati, intero(metri_al_secondo * 100), 4);
    aggiungi(dati, i.accuratezza_velocita, 4);
    aggiungi(dati, dop(i), 2);
    aggiungi(dati, 0, 1);
    aggiungi(dati, i.satelliti, 1);
    aggiungi(dati, 0, 4);
    return dati;
}

std::string nav_sol(const Istante& istante, const PianoLocale& piano) {
    return messaggio_ubx(0x01, 0x06, payload_nav_sol(istante, piano));
}

void aggiungi_posizione(std::string& dati, const Istante& i, const PianoLocale& piano) {
    const Geodetiche luogo = piano.geodetiche(i.posizione);
    aggiungi(dati, intero(luogo.longitudine * 1e7), 4);
    aggiungi(dati, intero(luogo.latitudine * 1e7), 4);
    aggiungi(dati, intero(luogo.altezza * 1000), 4);             // above the ellipsoid, mm
    aggiungi(dati, intero((luogo.altezza - GEOIDE) * 1000), 4);  // above the sea
    aggiungi(dati, i.accuratezza_posizione * PIANO_MM, 4);
    aggiungi(dati, i.accuratezza_posizione * QUOTA_MM, 4);
}

std::string nav_pos_llh(const Istante& i, const PianoLocale& piano) {
    std::string dati;
    aggiungi(dati, i.settimana_ms, 4);
    aggiungi_posizione(dati, i, piano);
    return messaggio_ubx(0x01, 0x02, dati);
}

std::string nav_vel_ned(const Istante& i, const PianoLocale& piano) {
    const Vettore v = velocita_locale(i, piano);
    std::string dati;
    aggiungi(dati, i.settimana_ms, 4);
    for (const double metri_al_secondo : {v.y, v.x, -v.z})
        aggiungi(dati, intero(metri_al_secondo * 100), 4);
    aggiungi(dati, intero(std::hypot(v.x, v.y, v.z) * 100), 4);
    aggiungi(dati, intero(std::hypot(v.x, v.y) * 100), 4);  // over ground
    aggiungi(dati, intero(rotta(v) * 1e5), 4);
    aggiungi(dati, i.accuratezza_velocita, 4);
    aggiungi(dati, 120000, 4);
    return messaggio_ubx(0x01, 0x12, dati);
}

std::string nav_status(const Istante& i) {
    std::string dati;
    aggiungi(dati, i.settimana_ms, 4);
    aggiungi(dati, i.fix, 1);
    aggiungi(dati, i.fix >= 2 ? 0x0D : 0x0C, 1);
    aggiungi(dati, 0, 2);
    aggiungi(dati, 26800, 4);           // time to first fix, ms
    aggiungi(dati, i.settimana_ms, 4);  // since start-up
    return messaggio_ubx(0x01, 0x03, dati);
}

std::string gga(const Istante& i, const PianoLocale& piano) {
    const Geodetiche luogo = piano.geodetiche(i.posizione);
    const Utc ora = utc(i.settimana, i.settimana_ms);
    char testo[128];
    const auto decimetri = std::lround((luogo.altezza - GEOIDE) * 10);
    std::snprintf(testo, sizeof testo, "GPGGA,%02u%02u%02u.%02u,%s,N,%s,E,%u,%02u,1.0,%ld.%ld,M,%.1f,M,,", ora.ore,
                  ora.minuti, ora.secondi, ora.millesimi / 10, gradi_minuti(luogo.latitudine, 2).c_str(),
                  gradi_minuti(luogo.longitudine, 3).c_str(), i.fix >= 2 ? 1u : 0u, i.satelliti, decimetri / 10,
                  decimetri % 10, GEOIDE);
    unsigned somma = 0;
    for (const char* c = testo; *c != '\0'; ++c)
        somma ^= static_cast<unsigned char>(*c);
    char fine[8];
    std::snprintf(fine, sizeof fine, "*%02X\r\n", somma);
    return '$' + std::string(testo) + fine;
}

void registrazione(unsigned giri, unsigned frequenza, std::uint64_t seme,
                   const std::function<void(const std::string&)>& uscita, Soluzioni soluzioni) {
    Kart kart(giri, frequenza, seme);
    registrazione(kart, PianoLocale(LUOGO), uscita, soluzioni);
}

void registrazione(Kart& kart, const PianoLocale& piano, const std::function<void(const std::string&)>& uscita,
                   Soluzioni soluzioni) {
    Istante istante;
    while (kart.prossimo(istante)) {
        if (istante.settimana_ms % 1000 == 0)
            uscita(gga(istante, piano) + nav_status(istante));
        uscita(nav_pos_llh(istante, piano));
        if (soluzioni != Soluzioni::pvt)
            uscita(nav_sol(istante, piano));
        if (soluzioni != Soluzioni::sol)
            uscita(nav_pvt(istante, piano));
        uscita(nav_vel_ned(istante, piano));
    }
}

}  // namespace kel::simulatore
