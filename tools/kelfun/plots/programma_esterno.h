// Running other programs.
#ifndef KELFUN_PLOTS_PROGRAMMA_ESTERNO_H
#define KELFUN_PLOTS_PROGRAMMA_ESTERNO_H

#include <optional>
#include <string>
#include <vector>

namespace kel::strumento {

/// The path of the first program of a name on PATH.
std::optional<std::string> cerca_programma(const std::string& nome);

struct EsitoProgramma {
    int stato = 0;
    std::string uscita;
    std::string errori;
};

/// Runs a program to its end; no shell takes part.
/// @param argomenti  its name among them, as the first.
/// @throws NonTrovato  when it cannot be run.
EsitoProgramma esegui_programma(const std::string& programma, std::vector<std::string> argomenti,
                                const std::string& entrata);

}  // namespace kel::strumento

#endif
