#include "plots/disposizione_terminale.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "plots/tacche.h"
#include "text/chiavi.h"
#include "text/larghezza.h"
#include "text/mostrabile.h"

namespace kel::strumento {

namespace {

constexpr int COLONNE_MINIME = 16;        // below them nothing can be read
constexpr int COLONNE_CON_TRACCIA = 60;   // panels and track side by side
constexpr int RIGHE_PANNELLO_MINIME = 2;  // its greatest and its least value
constexpr int RIGHE_PANNELLO_COMODE = 3;  // where the plot may be as high as it needs
constexpr int RIGHE_ASSE = 2;
constexpr int FRA_COLONNE = 3;
constexpr int RIGHE_TRACCIA_MINIME = 8;
constexpr int CURVA_MINIMA = 6;  // columns

// Several curves are told apart by letters.
std::string titolo_di(const Pannello& pannello) {
    std::string testo = titolo_con_udm(pannello.nome, pannello.udm);
    if (pannello.curve.size() > 1)
        for (std::size_t i = 0; i < pannello.curve.size(); ++i)
            testo += std::string(i == 0 ? ": " : ", ") + static_cast<char>('a' + i % 26) + " " + pannello.curve[i].nome;
    return pannello.vuoto() ? testo + ": no values" : testo;
}

int larghezza_etichette(const Grafico& grafico) {
    int larghezza = larghezza_testo(unita_ascissa(grafico));
    for (const Pannello& pannello : grafico.pannelli)
        if (!pannello.vuoto())
            for (const double valore : {pannello.minimo(), pannello.massimo()})
                larghezza = std::max(larghezza, larghezza_testo(etichetta(valore)));
    return larghezza;
}

std::vector<PostoPannello> posti(const Grafico& grafico, const Disposizione& d) {
    std::vector<PostoPannello> tutti;
    for (const Pannello& pannello : grafico.pannelli) {
        const std::string titolo = mostrabile(titolo_di(pannello));
        const bool dietro_asse = larghezza_testo(titolo) <= d.larghezza_curve();
        PostoPannello posto;
        posto.pannello = &pannello;
        posto.colonna_titolo = dietro_asse ? d.asse + 1 : 0;
        posto.titolo = a_capo(titolo, d.colonne_pannelli - posto.colonna_titolo);
        tutti.push_back(std::move(posto));
    }
    return tutti;
}

// Lines that the titles of the panels take, and their curves at the least.
int righe_minime(const std::vector<PostoPannello>& pannelli, int a_pannello) {
    int righe = 0;
    for (const PostoPannello& uno : pannelli)
        righe += static_cast<int>(uno.titolo.size()) + a_pannello;
    return righe;
}

// The panels that have room in so many lines.
void tieni_quanti_entrano(Disposizione& d, int libere) {
    Nota nota{"no room for ", {}, ": a higher terminal, --only NAME, or a picture shows them"};
    while (d.pannelli.size() > 1 && righe_minime(d.pannelli, RIGHE_PANNELLO_MINIME) > libere) {
        nota.nomi.insert(nota.nomi.begin(), d.pannelli.back().pannello->nome);
        d.pannelli.pop_back();
    }
    if (!nota.nomi.empty())
        d.note.push_back(nota);
}

// Shares out the lines; what does not divide goes to the panels above.
void metti_pannelli(Disposizione& d, int libere, int minime) {
    int riga = static_cast<int>(d.titolo.size()) + (d.riga_segni >= 0 ? 1 : 0);
    const int quanti = static_cast<int>(d.pannelli.size());
    const int di_curve = std::max(libere - righe_minime(d.pannelli, 0), quanti * minime);
    for (int i = 0; i < quanti; ++i) {
        PostoPannello& posto = d.pannelli[static_cast<std::size_t>(i)];
        posto.riga = riga;
        posto.righe = di_curve / quanti + (i < di_curve % quanti ? 1 : 0);
        riga += static_cast<int>(posto.titolo.size()) + posto.righe;
    }
    d.riga_asse = riga;
    d.righe = riga + RIGHE_ASSE;
}

void disponi_pannelli(const Grafico& grafico, const Terminale& terminale, Disposizione& d) {
    const bool traccia = !grafico.traccia.vuota();
    const bool affianco = traccia && d.colonne >= COLONNE_CON_TRACCIA;
    d.colonne_pannelli = affianco ? d.colonne * 5 / 8 : d.colonne;
    d.asse = std::min(larghezza_etichette(grafico) + 1, d.colonne_pannelli - 1 - CURVA_MINIMA);
    if (affianco)
        d.colonna_traccia = d.colonne_pannelli + FRA_COLONNE;
    else if (traccia)
        d.note.push_back(
            {"no room for the track: it takes " + std::to_string(COLONNE_CON_TRACCIA) + " columns", {}, ""});
    d.pannelli = posti(grafico, d);
    int libere = terminale.righe - static_cast<int>(d.titolo.size()) - RIGHE_ASSE;
    const bool segni = !grafico.giri.empty() || !grafico.sessioni.empty();
    if (segni && (terminale.cresce || libere - 1 >= righe_minime({d.pannelli.front()}, RIGHE_PANNELLO_MINIME))) {
        d.riga_segni = static_cast<int>(d.titolo.size());
        --libere;
    } else if (segni) {
        d.note.push_back({"no room to mark the laps", {}, ""});
    }
    if (!terminale.cresce)
        tieni_quanti_entrano(d, libere);
    metti_pannelli(d, libere, terminale.cresce ? RIGHE_PANNELLO_COMODE : RIGHE_PANNELLO_MINIME);
}

}  // namespace

std::string etichetta(double valore) {
    char testo[32];
    const auto fine = std::to_chars(std::begin(testo), std::end(testo), valore, std::chars_format::general, 5);
    return {testo, fine.ptr};
}

Disposizione disponi(const Grafico& grafico, const Terminale& terminale) {
    Disposizione d;
    d.colonne = std::max(COLONNE_MINIME, terminale.colonne);
    if (!grafico.titolo.empty())
        d.titolo = a_capo(mostrabile(grafico.titolo), d.colonne);
    if (grafico.pannelli.empty()) {
        d.colonna_traccia = grafico.traccia.vuota() ? -1 : 0;
        d.righe = std::max(terminale.righe, static_cast<int>(d.titolo.size()) + RIGHE_TRACCIA_MINIME);
        return d;
    }
    disponi_pannelli(grafico, terminale, d);
    if (d.colonna_traccia >= 0)
        d.righe = std::max(d.righe, static_cast<int>(d.titolo.size()) + RIGHE_TRACCIA_MINIME);
    return d;
}

}  // namespace kel::strumento
