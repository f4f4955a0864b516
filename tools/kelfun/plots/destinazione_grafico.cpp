#include "plots/destinazione_grafico.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "cli/forma.h"
#include "io/uscita.h"
#include "plots/gnuplot.h"
#include "plots/grafico_gnuplot.h"
#include "plots/grafico_terminale.h"
#include "text/errori.h"

namespace kel::strumento {

namespace {

bool finisce(std::string file, std::string_view estensione) {
    std::transform(file.begin(), file.end(), file.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return file.ends_with(estensione);
}

void scrivi(const std::string& file, const std::string& byte) {
    std::FILE* uscita = std::fopen(file.c_str(), "wb");
    const bool aperto = uscita != nullptr;
    const bool scritto =
        aperto && std::fwrite(byte.data(), 1, byte.size(), uscita) == byte.size() && std::fflush(uscita) == 0;
    const int errore = errno;
    const bool chiuso = !aperto || std::fclose(uscita) == 0;
    if (!scritto || !chiuso)
        throw NonTrovato("cannot write '" + file + "': " + std::strerror(scritto ? errno : errore));
}

}  // namespace

Opzione aggiungiGrafico(Comando& comando, std::optional<std::string>& file) {
    const char* aiuto = "Draw a plot, no table: FILE.svg or FILE.png by gnuplot, - in the terminal";
    Opzione opzione = comando.opzione("--plot", file, aiuto).valore("FILE");
    escludiForma(comando, opzione);
    return opzione;
}

std::string titoloGrafico(const std::string& file) {
    return file == "-" ? "" : std::filesystem::path(file).filename().string();
}

DestinazioneGrafico::DestinazioneGrafico(const std::string& file) : file_(file), svg_(finisce(file, ".svg")) {
    if (file == "-")
        return;
    if (!svg_ && !finisce(file, ".png"))
        throw ErroreUso("--plot '" + file +
                        "' is no kind of picture; accepted: a name that ends with .svg or .png, - for the terminal");
    gnuplot_ = cercaGnuplot();
}

void DestinazioneGrafico::disegna(const Grafico& grafico) const {
    if (grafico.pannelli.empty() && grafico.traccia.vuota())
        throw NonTrovato("there is nothing to draw");
    if (gnuplot_.empty())
        scriviUscita(disegnoTerminale(grafico, terminaleDi(stdout)));
    else
        scrivi(file_, eseguiGnuplot(gnuplot_, istruzioniGnuplot(grafico, svg_)));
}

}  // namespace kel::strumento
