#include "plots/destinazione_grafico.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>

#include "io/uscita.h"
#include "plots/caratteri.h"
#include "plots/gnuplot.h"
#include "plots/grafico_terminale.h"
#include "text/errori.h"
#include "text/larghezza.h"
#include "text/mostrabile.h"

namespace kel::strumento {

namespace {

constexpr int CARATTERI_MASSIMI = 1000;  // columns, or lines
constexpr std::size_t RIGHE_NOTA = 2;    // of a note below a plot in the terminal, at most

constexpr std::pair<const char*, Formato> FORMATI[] = {
    {".svg", Formato::svg}, {".png", Formato::png}, {".pdf", Formato::pdf}};

std::optional<Formato> formato_di(std::string file) {
    std::transform(file.begin(), file.end(), file.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    for (const auto& [fine, formato] : FORMATI)
        if (file.ends_with(fine))
            return formato;
    return std::nullopt;
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

// gnuplot writes "]]>" into an SVG as it is, but XML does not allow it in a text. gnuplot writes no CDATA, which ends
// so.
std::string svg_ben_formato(std::string svg) {
    for (std::size_t dove = 0; (dove = svg.find("]]>", dove)) != std::string::npos;)
        svg.replace(dove, 3, "]]&gt;");
    return svg;
}

void di(const std::string& nota) {
    std::fputs((mostrabile(nota) + "\n").c_str(), stderr);
}

// Lines of a terminal that a text takes.
int righe(const std::string& testo, int colonne) {
    return std::max(1, (larghezza_testo(mostrabile(testo)) + colonne - 1) / colonne);
}

}  // namespace

std::string titolo_grafico(const std::string& file) {
    return file == "-" ? "" : std::filesystem::path(file).filename().string();
}

DestinazioneGrafico::DestinazioneGrafico(const SceltaGrafico& scelta) : file_(scelta.file.value_or("-")) {
    if (scelta.misura) {
        misura_ = leggi_misura(*scelta.misura);
        if (!misura_)
            throw ErroreUso("--size '" + *scelta.misura + "' is no size; accepted: WIDTHxHEIGHT, each 1 to 10000");
    }
    if (file_ == "-")
        return;
    const auto formato = formato_di(file_);
    if (!formato)
        throw ErroreUso(
            "--plot '" + file_ +
            "' is no kind of picture; accepted: a name that ends with .svg, .png or .pdf, - for the terminal");
    formato_ = *formato;
    gnuplot_ = cerca_gnuplot();
}

void DestinazioneGrafico::disegna(const Grafico& grafico, std::vector<Nota> note, bool tutto) const {
    if (grafico.vuoto())
        throw NonTrovato("there is nothing to draw");
    if (gnuplot_.empty()) {
        nel_terminale(grafico, std::move(note), tutto);
        return;
    }
    Grafico mostrato = grafico;
    if (formato_ != Formato::svg)  // an SVG is shown with the fonts of the machine that shows it
        if (auto senza_font = togli_senza_font(mostrato); !senza_font.empty())
            note.push_back({"no font of this machine has ", std::move(senza_font), ": ? stands for them"});
    const Immagine immagine = istruzioni_gnuplot(mostrato, formato_, misura_);
    std::string byte = esegui_gnuplot(gnuplot_, immagine.istruzioni);
    if (formato_ == Formato::svg)
        byte = svg_ben_formato(std::move(byte));
    scrivi(file_, byte);
    for (const Nota& nota : note)
        di(nota.testo());
    if (!immagine.nota.empty())
        di(immagine.nota);
}

void DestinazioneGrafico::nel_terminale(const Grafico& grafico, std::vector<Nota> note, bool tutto) const {
    Terminale terminale = terminale_di(stdout);
    if (misura_) {
        if (std::max(misura_->larghezza, misura_->altezza) > CARATTERI_MASSIMI)
            throw ErroreUso("--size: no terminal is so large; accepted: up to " + std::to_string(CARATTERI_MASSIMI) +
                            " columns and lines");
        terminale.colonne = misura_->larghezza;
        terminale.righe = misura_->altezza;
    }
    terminale.cresce = tutto;
    const int intere = terminale.righe;
    const auto massimo = RIGHE_NOTA * static_cast<std::size_t>(terminale.colonne);
    const auto restano = [&] {
        int sotto = 1;  // for the next prompt
        for (const Nota& nota : note)
            sotto += righe(nota.testo(massimo), terminale.colonne);
        return intere - sotto;
    };
    terminale.righe = restano();
    DisegnoTerminale disegno = disegno_terminale(grafico, terminale);
    // Notes below the plot name what has no room. They take lines from the plot, so that even less may have room.
    const std::vector<Nota> altre = note;
    for (int giro = 0; giro < 3 && !disegno.note.empty(); ++giro) {
        note = altre;
        note.insert(note.end(), disegno.note.begin(), disegno.note.end());
        terminale.righe = restano();
        disegno = disegno_terminale(grafico, terminale);
    }
    note = altre;
    note.insert(note.end(), disegno.note.begin(), disegno.note.end());
    scrivi_uscita(disegno.testo);
    for (const Nota& nota : note)
        di(nota.testo(massimo));
}

}  // namespace kel::strumento
