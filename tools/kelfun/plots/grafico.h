// What is drawn: curves in panels over one axis, marks on it, and a track.
#ifndef KELFUN_PLOTS_GRAFICO_H
#define KELFUN_PLOTS_GRAFICO_H

#include <string>
#include <utility>
#include <vector>

#include "plots/serie.h"
#include "plots/traccia.h"

namespace kel::strumento {

/// What the horizontal axis shows.
enum class Ascissa {
    tempo,     ///< seconds, shown as minutes and seconds
    distanza,  ///< metres
    numero     ///< records, counted from 0
};

/// A named series.
struct Curva {
    std::string nome;
    Serie serie;
};

/// Curves that share one axis of values.
struct Pannello {
    std::string nome;
    std::string udm;  ///< "" where the values are numbers or codes, which jump from one to the next
    std::vector<Curva> curve;
    double altezza = 1;  ///< of the picture, in proportion to the other panels

    bool vuoto() const;     ///< no curve has a value
    double minimo() const;  ///< of all curves; 0 without values
    double massimo() const;
};

/// A place on the axis where something begins, such as a lap.
struct Segno {
    double x = 0;
    std::string testo;  ///< short: "3"
};

/// One of several recordings that were joined: its part of the axis. Its own time, or distance, starts again at 0.
struct Sessione {
    double da = 0;      ///< where it begins on the axis
    double a = 0;       ///< and where it ends
    double scarto = 0;  ///< position on the axis minus this is its own time or distance
};

struct Grafico {
    std::string titolo;
    Ascissa ascissa = Ascissa::tempo;
    std::vector<Pannello> pannelli;
    Traccia traccia;
    std::string udm_velocita;        ///< of the track
    std::vector<Segno> giri;         ///< where laps begin, from left to right
    std::vector<Sessione> sessioni;  ///< from left to right; none where there is only one

    bool vuoto() const { return pannelli.empty() && traccia.vuota(); }
    /// Where the axis begins and ends: at the first and the last value of all curves. 0 and 1 when there is none.
    std::pair<double, double> estremi() const;
};

/// A panel of one curve, which has the panel's name.
Pannello pannello_singolo(const std::string& nome, const std::string& udm);

}  // namespace kel::strumento

#endif
