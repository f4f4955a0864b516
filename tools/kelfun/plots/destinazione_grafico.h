// Where a plot goes: a picture that gnuplot draws, or the terminal.
#ifndef KELFUN_PLOTS_DESTINAZIONE_GRAFICO_H
#define KELFUN_PLOTS_DESTINAZIONE_GRAFICO_H

#include <optional>
#include <string>

#include "cli/opzioni.h"
#include "plots/grafico.h"

namespace kel::strumento {

/// Adds --plot, in whose place no form of a table can be asked for.
Opzione aggiungiGrafico(Comando& comando, std::optional<std::string>& file);

/// What a plot of a file is called: its name without its folder, nothing for standard input.
std::string titoloGrafico(const std::string& file);

class DestinazioneGrafico {
public:
    /// @param file  a name that ends with .svg or .png, or "-".
    /// @throws ErroreUso   for another name.
    /// @throws NonTrovato  when it takes gnuplot and there is none: before anything has been read.
    explicit DestinazioneGrafico(const std::string& file);

    /// @throws NonTrovato  when there is nothing to draw, gnuplot fails, or the file cannot be written.
    void disegna(const Grafico& grafico) const;

private:
    std::string file_;
    std::string gnuplot_;  // its path; "" for the terminal
    bool svg_ = false;
};

}  // namespace kel::strumento

#endif
