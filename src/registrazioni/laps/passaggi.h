// When a line was passed.
#ifndef KEL_REGISTRAZIONI_PASSAGGI_H
#define KEL_REGISTRAZIONI_PASSAGGI_H

#include <cstddef>
#include <vector>

#include "laps/guida.h"
#include "laps/linea.h"

namespace kel_registrazioni {

struct Passaggio {
    double tempo = 0;        ///< s, between two fixes to a fraction of their distance in time
    std::size_t dopo = 0;    ///< the fix behind the line
    double velocita = 0;     ///< m/s
    bool lento = false;      ///< at walking pace or after standing on the line: its time means little
    bool senza_fix = false;  ///< there was no fix at the line: its time is a guess
};

struct Passaggi {
    std::vector<Passaggio> avanti;
    std::vector<Passaggio> indietro;  ///< the wrong way
    std::size_t scartati = 0;         ///< too soon after another
};

/// The passages of a line in its direction, give or take 45 degrees.
///
/// A passage counts once the line lies ten metres behind, however often noise goes to and fro over it before.
/// @param minimo  s; a passage sooner after the one before it is left out.
Passaggi passaggi(const Guida& guida, const Linea& linea, double minimo);

}  // namespace kel_registrazioni

#endif
