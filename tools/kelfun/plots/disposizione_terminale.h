// Where the parts of a plot in characters are placed.
#ifndef KELFUN_PLOTS_DISPOSIZIONE_TERMINALE_H
#define KELFUN_PLOTS_DISPOSIZIONE_TERMINALE_H

#include <string>
#include <vector>

#include "plots/grafico.h"
#include "plots/grafico_terminale.h"

namespace kel::strumento {

/// Short, as much as an eye takes in: "89.85", "1200", "1.2e+06".
std::string etichetta(double valore);

struct PostoPannello {
    const Pannello* pannello = nullptr;
    std::vector<std::string> titolo;  ///< its lines
    int colonna_titolo = 0;
    int riga = 0;   ///< the first of the title
    int righe = 0;  ///< of the curves, below the title
};

struct Disposizione {
    int colonne = 0;
    int righe = 0;
    std::vector<std::string> titolo;
    std::vector<PostoPannello> pannelli;
    int asse = 0;              ///< column of the axis of values; its labels are on the left
    int colonne_pannelli = 0;  ///< with the labels of their axis
    int riga_segni = -1;       ///< of laps and sessions; -1: none
    int riga_asse = 0;
    int colonna_traccia = -1;  ///< -1: none
    std::vector<Nota> note;    ///< what has no room

    int larghezza_curve() const { return colonne_pannelli - asse - 1; }
};

Disposizione disponi(const Grafico& grafico, const Terminale& terminale);

}  // namespace kel::strumento

#endif
