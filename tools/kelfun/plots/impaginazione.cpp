#include "plots/impaginazione.h"

#include <algorithm>
#include <cmath>

#include "text/errori.h"

namespace kel::strumento {

namespace {

constexpr double LARGHEZZA = 1280;
constexpr double ALTEZZA_MINIMA = 600;
constexpr double ALTEZZA_PANNELLO = 130;       // of one of height 1, its title included
constexpr double ALTEZZA_PANNELLO_TANTI = 96;  // where there are more than TANTI
constexpr std::size_t TANTI = 10;

constexpr double TITOLO = 36;
constexpr double SEGNI = 18;     // the numbers of the laps, or those of the sessions
constexpr double SOTTO = 56;     // texts of the axis and its name
constexpr double SINISTRA = 70;  // labels of a panel
constexpr double DESTRA = 26;
constexpr double NOME = 26;          // of a panel, above its curves
constexpr double CURVE_MINIME = 24;  // height in which something is still to be seen
constexpr double PANNELLO_STRETTO = 240;

constexpr double FRA_COLONNE = 84;   // between the panels and the track: its labels
constexpr double SCALA_COLORI = 66;  // right of the track
constexpr double TRACCIA_MINIMA = 160;
constexpr double TRACCIA_MASSIMA = 0.36;  // of the page's width
constexpr double COLONNA_ALTA = 1.8;      // a track's column is at most so much higher than wide
constexpr double FASCIA = 420;            // height of a track above the panels
constexpr double ASSE_TRACCIA = 50;       // below it

double pesi(const Grafico& grafico) {
    double somma = 0;
    for (const Pannello& pannello : grafico.pannelli)
        somma += pannello.altezza;
    return somma;
}

double altezza_voluta(const Grafico& grafico, double cima) {
    const double a_pannello = grafico.pannelli.size() > TANTI ? ALTEZZA_PANNELLO_TANTI : ALTEZZA_PANNELLO;
    return std::max(ALTEZZA_MINIMA, cima + SOTTO + std::ceil(pesi(grafico) * a_pannello));
}

// What the track is wide to its height.
double proporzione(const Traccia& traccia) {
    const Estensione terreno = traccia.estensione();
    return std::max(terreno.est - terreno.ovest, 1.0) / std::max(terreno.nord - terreno.sud, 1.0);
}

void metti_pannelli(const Grafico& grafico, double sopra, double destra, Impaginazione& pagina) {
    const double alto = pagina.altezza - SOTTO - sopra;
    const double unita = alto / std::max(pesi(grafico), 1e-9);
    double riga = sopra;
    for (const Pannello& pannello : grafico.pannelli) {
        const double fine = riga + pannello.altezza * unita;
        if (fine - riga < NOME + CURVE_MINIME) {
            const auto almeno = static_cast<int>(
                std::ceil((NOME + CURVE_MINIME) / pannello.altezza * pesi(grafico) + pagina.altezza - alto));
            throw ErroreUso("--size: " + std::to_string(static_cast<int>(pagina.altezza)) + " dots are too low for " +
                            std::to_string(grafico.pannelli.size()) + " panels; accepted: a height of " +
                            std::to_string(almeno) + " and more");
        }
        pagina.pannelli.push_back({SINISTRA, destra, riga + NOME, fine});
        riga = fine;
    }
}

// Beside the panels, as wide as the track takes where it is as high as all of them.
std::optional<Riquadro> affianco(const Grafico& grafico, double sopra, const Impaginazione& pagina) {
    const double alto = pagina.altezza - SOTTO - sopra - NOME;
    const double massima = std::min(pagina.larghezza * TRACCIA_MASSIMA, pagina.larghezza - SINISTRA - PANNELLO_STRETTO -
                                                                            FRA_COLONNE - SCALA_COLORI - DESTRA);
    if (massima < TRACCIA_MINIMA || alto < TRACCIA_MINIMA)
        return std::nullopt;
    const double larga = std::clamp(alto * proporzione(grafico.traccia), TRACCIA_MINIMA, massima);
    const double destra = pagina.larghezza - SCALA_COLORI;
    return Riquadro{destra - larga, destra, sopra + NOME, pagina.altezza - SOTTO};
}

void solo_traccia(double sopra, Impaginazione& pagina) {
    pagina.traccia = Riquadro{SINISTRA, pagina.larghezza - SCALA_COLORI, sopra + NOME, pagina.altezza - SOTTO};
}

}  // namespace

Impaginazione impagina(const Grafico& grafico, std::optional<Misura> misura) {
    const bool traccia = !grafico.traccia.vuota();
    const double cima = TITOLO + (grafico.giri.empty() ? 0 : SEGNI) + (grafico.sessioni.empty() ? 0 : SEGNI);
    Impaginazione pagina;
    pagina.larghezza = misura ? misura->larghezza : LARGHEZZA;
    pagina.altezza = misura ? misura->altezza : altezza_voluta(grafico, cima);
    if (pagina.larghezza < SINISTRA + PANNELLO_STRETTO + DESTRA)
        throw ErroreUso("--size: " + std::to_string(static_cast<int>(pagina.larghezza)) +
                        " dots are too narrow; accepted: a width of " +
                        std::to_string(static_cast<int>(SINISTRA + PANNELLO_STRETTO + DESTRA)) + " and more");
    double sopra = cima;
    double destra = pagina.larghezza - DESTRA;
    if (grafico.pannelli.empty()) {
        solo_traccia(sopra, pagina);
        return pagina;
    }
    if (traccia) {
        auto posto = affianco(grafico, sopra, pagina);
        // A column that is much higher than the track would stand half empty: then the track goes above the panels.
        if (posto && posto->altezza() > COLONNA_ALTA * posto->larghezza() &&
            posto->altezza() > COLONNA_ALTA * posto->larghezza() / proporzione(grafico.traccia)) {
            if (!misura)
                pagina.altezza += FASCIA + ASSE_TRACCIA + NOME;
            const double fascia = misura ? std::max(TRACCIA_MINIMA, pagina.altezza / 4) : FASCIA;
            posto = Riquadro{SINISTRA, pagina.larghezza - SCALA_COLORI, TITOLO + NOME, TITOLO + NOME + fascia};
            sopra += NOME + fascia + ASSE_TRACCIA;
        } else if (posto) {
            destra = posto->sinistra - FRA_COLONNE;
        } else {
            pagina.nota = "no room for the track: a larger --size shows it";
        }
        pagina.traccia = posto;
    }
    metti_pannelli(grafico, sopra, destra, pagina);
    return pagina;
}

}  // namespace kel::strumento
