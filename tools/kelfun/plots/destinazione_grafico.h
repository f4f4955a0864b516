// Where a plot goes: a picture that gnuplot draws, or the terminal.
#ifndef KELFUN_PLOTS_DESTINAZIONE_GRAFICO_H
#define KELFUN_PLOTS_DESTINAZIONE_GRAFICO_H

#include <optional>
#include <string>
#include <vector>

#include "plots/grafico.h"
#include "plots/grafico_gnuplot.h"
#include "plots/nota.h"
#include "plots/opzioni_grafico.h"

namespace kel::strumento {

/// What a plot of a file is called: its name without its folder, nothing for standard input.
std::string titolo_grafico(const std::string& file);

class DestinazioneGrafico {
public:
    /// @param scelta  with a file: a name that ends with .svg, .png or .pdf, or "-".
    /// @throws ErroreUso   for another name, or a size that is none.
    /// @throws NonTrovato  when it takes gnuplot and there is none: before anything has been read.
    explicit DestinazioneGrafico(const SceltaGrafico& scelta);

    /// Draws, and then prints the notes on standard error. A plot in the terminal leaves lines free for them.
    /// @param tutto  every panel was asked for: a plot may be higher than the terminal.
    /// @throws NonTrovato  when there is nothing to draw, gnuplot fails, or the file cannot be written.
    /// @throws ErroreUso   when the size asked for is too small for a picture of it.
    void disegna(const Grafico& grafico, std::vector<Nota> note, bool tutto) const;

private:
    void nel_terminale(const Grafico& grafico, std::vector<Nota> note, bool tutto) const;

    std::string file_;
    std::string gnuplot_;  // its path; "" for the terminal
    Formato formato_ = Formato::svg;
    std::optional<Misura> misura_;
};

}  // namespace kel::strumento

#endif
