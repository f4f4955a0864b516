// A plot in characters, for the terminal.
#ifndef KELFUN_PLOTS_GRAFICO_TERMINALE_H
#define KELFUN_PLOTS_GRAFICO_TERMINALE_H

#include <cstdio>
#include <string>

#include "plots/grafico.h"

namespace kel::strumento {

/// What characters are drawn on.
struct Terminale {
    int colonne = 80;
    int righe = 20;
    bool utf8 = false;  ///< braille patterns and box lines; else ASCII alone
};

/// The terminal behind a file, 80 by 20 where there is none; its characters are those of the locale of the environment.
Terminale terminaleDi(std::FILE* file);

/// As wide and as high as the terminal; higher when there are so many panels that they would not be legible.
std::string disegnoTerminale(const Grafico& grafico, const Terminale& terminale);

}  // namespace kel::strumento

#endif
