// A plot in characters, for the terminal.
#ifndef KELFUN_PLOTS_GRAFICO_TERMINALE_H
#define KELFUN_PLOTS_GRAFICO_TERMINALE_H

#include <cstdio>
#include <string>
#include <vector>

#include "plots/grafico.h"
#include "plots/nota.h"

namespace kel::strumento {

/// What characters are drawn on.
struct Terminale {
    int colonne = 80;
    int righe = 24;
    bool utf8 = false;    ///< braille patterns and box lines; else ASCII alone
    bool cresce = false;  ///< more panels than fit make the plot higher; else the last ones are left out
};

/// The terminal behind a file, 80 by 24 where there is none; its characters are those of the locale of the environment.
Terminale terminale_di(std::FILE* file);

struct DisegnoTerminale {
    std::string testo;
    std::vector<Nota> note;  ///< what had no room
};

/// As wide as the terminal, and as high where there is room for it. No text is cut: what is too long goes on in the
/// next line. A terminal too narrow for panels and a track side by side shows the panels.
DisegnoTerminale disegno_terminale(const Grafico& grafico, const Terminale& terminale);

}  // namespace kel::strumento

#endif
