#include "plots/gnuplot.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "plots/programma_esterno.h"
#include "text/errori.h"

namespace kel::strumento {

namespace {

std::string prima_riga(std::string_view testo) {
    while (!testo.empty()) {
        const std::string_view riga = testo.substr(0, testo.find('\n'));
        const std::size_t inizio = riga.find_first_not_of(" \t^");
        if (inizio != std::string_view::npos)
            return std::string(riga.substr(inizio));
        testo.remove_prefix(std::min(testo.size(), riga.size() + 1));
    }
    return "it says nothing";
}

}  // namespace

std::string cerca_gnuplot() {
    if (auto programma = cerca_programma("gnuplot"))
        return *programma;
    throw NonTrovato(
        "a picture takes gnuplot, which is not installed: install the package gnuplot-nox, or use --plot -");
}

std::string esegui_gnuplot(const std::string& programma, const std::string& istruzioni) {
    EsitoProgramma esito = esegui_programma(programma, {"gnuplot", "-d", "-"}, istruzioni);
    if (esito.stato != 0 || esito.uscita.empty())
        throw NonTrovato("gnuplot fails: " + prima_riga(esito.errori));
    return std::move(esito.uscita);
}

}  // namespace kel::strumento
