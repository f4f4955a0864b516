// A u-blox receiver on a round track, whose laps, distances and speeds are known: for what the C face says of laps by GPS.
#ifndef KEL_TEST_REGISTRAZIONI_PISTA_H
#define KEL_TEST_REGISTRAZIONI_PISTA_H

#include <cmath>
#include <cstdint>
#include <functional>
#include <numbers>

#include "gps/wgs84.h"
#include "prova.h"

namespace prova {

/// A whole message with its checksum, behind what is there already.
inline void messaggio(Byte& flusso, std::uint8_t classe, std::uint8_t id, const Byte& dati) {
    Byte corpo = {classe, id};
    aggiungi(corpo, static_cast<std::uint16_t>(dati.size()));
    corpo.insert(corpo.end(), dati.begin(), dati.end());
    unsigned a = 0;
    unsigned b = 0;
    for (const std::uint8_t uno : corpo)
        b += a += uno;
    flusso.insert(flusso.end(), {0xB5, 0x62});
    flusso.insert(flusso.end(), corpo.begin(), corpo.end());
    flusso.insert(flusso.end(), {static_cast<std::uint8_t>(a), static_cast<std::uint8_t>(b)});
}

/// A circle of 100 m, driven anticlockwise from its west side on, ten fixes a second. It passes the place (LAT, LON) towards the
/// north when a lap is over; the way there takes 15.04 s, each lap half a second less than the one before.
struct Pista {
    static constexpr double LAT = 44.8231;
    static constexpr double LON = 10.4107;
    static constexpr double RAGGIO = 100;
    static constexpr double GIRO = 2 * std::numbers::pi * RAGGIO;
    static constexpr double USCITA = 15.04;
    static constexpr double FREQUENZA = 10;

    static double durata(int giro) { return 30 - 0.5 * giro; }

    /// The angle of the car on the circle, and its speed.
    static double angolo(double tempo, double& velocita) {
        velocita = GIRO / 2 / USCITA;
        if (tempo < USCITA)
            return std::numbers::pi * (tempo / USCITA - 1);
        double resto = tempo - USCITA;
        int giro = 0;
        for (; resto >= durata(giro); ++giro)
            resto -= durata(giro);
        velocita = GIRO / durata(giro);
        return 2 * std::numbers::pi * resto / durata(giro);
    }

    /// NAV-SOL of that moment; `fix` 3 is one in space.
    static Byte nav_sol(double tempo, std::uint8_t fix = 3) {
        using namespace kel_registrazioni;
        double andatura = 0;
        const double dove = angolo(tempo, andatura);
        const Geodetica origine{LAT, LON, 100};
        const Ecef o = ecef(origine);
        const Ecef d = velocita_ecef(origine, {RAGGIO * (std::cos(dove) - 1), RAGGIO * std::sin(dove), 0});
        const Ecef v = velocita_ecef(origine, {-andatura * std::sin(dove), andatura * std::cos(dove), 0});
        Byte dati;
        aggiungi(dati, static_cast<std::uint32_t>(std::lround(345600000 + tempo * 1000)));
        aggiungi(dati, std::int32_t{0});
        aggiungi(dati, std::uint16_t{2370});
        dati.push_back(fix);
        dati.push_back(0x0C);
        for (const double metri : {o.x + d.x, o.y + d.y, o.z + d.z})
            aggiungi(dati, static_cast<std::int32_t>(std::lround(metri * 100)));
        aggiungi(dati, std::uint32_t{162});
        for (const double uno : {v.x, v.y, v.z})
            aggiungi(dati, static_cast<std::int32_t>(std::lround(uno * 100)));
        aggiungi(dati, std::uint32_t{28});
        aggiungi(dati, std::uint16_t{100});
        dati.push_back(0);
        dati.push_back(9);
        aggiungi(dati, std::uint32_t{0});
        return dati;
    }

    /// The way out, so many laps, and some seconds of the next. At the times (s) of `perso` there is no fix.
    static Byte flusso(int giri, double frequenza = FREQUENZA, const std::function<bool(double)>& perso = {}) {
        double fine = USCITA + 5;
        for (int i = 0; i < giri; ++i)
            fine += durata(i);
        Byte byte;
        for (int i = 0; i / frequenza < fine; ++i)
            messaggio(byte, 1, 6, nav_sol(i / frequenza, perso && perso(i / frequenza) ? 0 : 3));
        return byte;
    }
};

}  // namespace prova

#endif
