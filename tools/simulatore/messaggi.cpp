#include "messaggi.h"

#include <cmath>
#include <cstdio>

namespace kel::simulatore {

namespace {

constexpr unsigned SETTIMANA = 2372;  // GPS week of the made-up day

void aggiungi(std::string& byte, std::uint32_t valore, int quanti) {
    for (int i = 0; i < quanti; ++i, valore >>= 8)
        byte += static_cast<char>(valore & 0xFF);
}

std::uint32_t intero(double valore) {
    return static_cast<std::uint32_t>(static_cast<std::int32_t>(std::lround(valore)));
}

// Sync, class, id, length, payload, 8-bit Fletcher checksum over class to payload.
std::string messaggio(unsigned classe, unsigned id, const std::string& dati) {
    std::string corpo;
    aggiungi(corpo, classe, 1);
    aggiungi(corpo, id, 1);
    aggiungi(corpo, static_cast<std::uint32_t>(dati.size()), 2);
    corpo += dati;
    unsigned a = 0;
    unsigned b = 0;
    for (const char c : corpo) {
        a = (a + static_cast<unsigned char>(c)) & 0xFF;
        b = (b + a) & 0xFF;
    }
    std::string tutto = "\xB5\x62" + corpo;
    aggiungi(tutto, a, 1);
    aggiungi(tutto, b, 1);
    return tutto;
}

// Degrees as NMEA writes them: degrees and minutes without a sign, "4449.38600".
std::string gradiMinuti(double gradi, int cifre) {
    const auto centomillesimi = static_cast<unsigned long>(std::lround(std::fabs(gradi) * 6000000.0));
    char testo[32];
    std::snprintf(testo, sizeof testo, "%0*lu%02lu.%05lu", cifre, centomillesimi / 6000000,
                  centomillesimi / 100000 % 60, centomillesimi % 100000);
    return testo;
}

}  // namespace

std::string payloadNavSol(const Istante& i, const PianoLocale& piano) {
    const Vettore r = piano.posizione(i.posizione);
    const Vettore v = piano.velocita(i.velocita);
    std::string dati;
    aggiungi(dati, i.settimana_ms, 4);
    aggiungi(dati, 0, 4);  // its fraction, ns
    aggiungi(dati, SETTIMANA, 2);
    aggiungi(dati, i.fix, 1);
    aggiungi(dati, i.fix >= 2 ? 0x0D : 0x0C, 1);  // fix good, week and time of week known
    for (const double metri : {r.x, r.y, r.z})
        aggiungi(dati, intero(metri * 100), 4);
    aggiungi(dati, i.accuratezza_posizione, 4);
    for (const double metri_al_secondo : {v.x, v.y, v.z})
        aggiungi(dati, intero(metri_al_secondo * 100), 4);
    aggiungi(dati, i.accuratezza_velocita, 4);
    aggiungi(dati, i.satelliti > 3 ? 1300 / i.satelliti : 9999, 2);  // position DOP, hundredths
    aggiungi(dati, 0, 1);
    aggiungi(dati, i.satelliti, 1);
    aggiungi(dati, 0, 4);
    return dati;
}

std::string navSol(const Istante& istante, const PianoLocale& piano) {
    return messaggio(0x01, 0x06, payloadNavSol(istante, piano));
}

std::string navPosLlh(const Istante& i, const PianoLocale& piano) {
    const Geodetiche luogo = piano.geodetiche(i.posizione);
    std::string dati;
    aggiungi(dati, i.settimana_ms, 4);
    aggiungi(dati, intero(luogo.longitudine * 1e7), 4);
    aggiungi(dati, intero(luogo.latitudine * 1e7), 4);
    aggiungi(dati, intero(luogo.altezza * 1000), 4);           // above the ellipsoid, mm
    aggiungi(dati, intero((luogo.altezza - 42.0) * 1000), 4);  // above the sea
    aggiungi(dati, i.accuratezza_posizione * 10, 4);
    aggiungi(dati, i.accuratezza_posizione * 15, 4);
    return messaggio(0x01, 0x02, dati);
}

std::string navVelNed(const Istante& i) {
    const double al_suolo = std::sqrt(i.velocita.x * i.velocita.x + i.velocita.y * i.velocita.y);
    const double rotta = std::atan2(i.velocita.x, i.velocita.y) * 180.0 / 3.14159265358979323846;
    std::string dati;
    aggiungi(dati, i.settimana_ms, 4);
    for (const double metri_al_secondo : {i.velocita.y, i.velocita.x, -i.velocita.z})
        aggiungi(dati, intero(metri_al_secondo * 100), 4);
    aggiungi(dati, intero(al_suolo * 100), 4);  // in space and over ground: the circuit is flat
    aggiungi(dati, intero(al_suolo * 100), 4);
    aggiungi(dati, intero((rotta < 0 ? rotta + 360 : rotta) * 1e5), 4);
    aggiungi(dati, i.accuratezza_velocita, 4);
    aggiungi(dati, 120000, 4);
    return messaggio(0x01, 0x12, dati);
}

std::string navStatus(const Istante& i) {
    std::string dati;
    aggiungi(dati, i.settimana_ms, 4);
    aggiungi(dati, i.fix, 1);
    aggiungi(dati, i.fix >= 2 ? 0x0D : 0x0C, 1);
    aggiungi(dati, 0, 2);
    aggiungi(dati, 26800, 4);           // time to first fix, ms
    aggiungi(dati, i.settimana_ms, 4);  // since start-up
    return messaggio(0x01, 0x03, dati);
}

std::string gga(const Istante& i, const PianoLocale& piano) {
    const Geodetiche luogo = piano.geodetiche(i.posizione);
    const std::uint32_t utc = (i.settimana_ms - 18000) % 86400000;  // GPS time is 18 s ahead
    char testo[128];
    const auto decimetri = std::lround((luogo.altezza - 42.0) * 10);
    std::snprintf(testo, sizeof testo, "GPGGA,%02u%02u%02u.%02u,%s,N,%s,E,%u,%02u,1.0,%ld.%ld,M,42.0,M,,",
                  utc / 3600000, utc / 60000 % 60, utc / 1000 % 60, utc / 10 % 100,
                  gradiMinuti(luogo.latitudine, 2).c_str(), gradiMinuti(luogo.longitudine, 3).c_str(),
                  i.fix >= 2 ? 1u : 0u, i.satelliti, decimetri / 10, decimetri % 10);
    unsigned somma = 0;
    for (const char* c = testo; *c != '\0'; ++c)
        somma ^= static_cast<unsigned char>(*c);
    char fine[8];
    std::snprintf(fine, sizeof fine, "*%02X\r\n", somma);
    return '$' + std::string(testo) + fine;
}

void registrazione(unsigned giri, unsigned frequenza, std::uint64_t seme,
                   const std::function<void(const std::string&)>& uscita) {
    const PianoLocale piano(LUOGO);
    Kart kart(giri, frequenza, seme);
    Istante istante;
    while (kart.prossimo(istante)) {
        if (istante.settimana_ms % 1000 == 0)
            uscita(gga(istante, piano) + navStatus(istante));
        uscita(navPosLlh(istante, piano) + navSol(istante, piano) + navVelNed(istante));
    }
}

}  // namespace kel::simulatore
