#include "plots/grafico_terminale.h"

#include <sys/ioctl.h>
#include <unistd.h>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <string_view>

#include "plots/raster.h"
#include "text/chiavi.h"

namespace kel::strumento {

namespace {

constexpr int COLONNE_MINIME = 40;
constexpr int RIGHE_PANNELLO_MINIME = 3;
constexpr int ETICHETTA = 9;  // characters of a value beside the axis
constexpr int RIGHE_ASSE = 2;
constexpr int FRA_COLONNE = 3;
constexpr int RIGHE_TRACCIA_MINIME = 8;

struct Segni {
    const char* verticale;
    const char* orizzontale;
    const char* angolo;
};
constexpr Segni SEGNI_UTF8 = {"\u2502", "\u2500", "\u2514"};
constexpr Segni SEGNI_ASCII = {"|", "-", "+"};

// Short, as much as an eye takes in: "89.85", "1200", "1.2e+06".
std::string etichetta(double valore) {
    char testo[32];
    const auto fine = std::to_chars(std::begin(testo), std::end(testo), valore, std::chars_format::general, 5);
    return {testo, fine.ptr};
}

std::string aDestra(const std::string& testo, int larghezza) {
    return std::string(static_cast<std::size_t>(std::max(0, larghezza - static_cast<int>(testo.size()))), ' ') + testo;
}

// What the terminal shows is what the environment says, installed or not: the first of the three that is set, as for any
// program. "it_IT.UTF-8", "C.utf8", "de_DE.UTF-8@euro".
bool ambienteUtf8() {
    for (const char* variabile : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const char* valore = std::getenv(variabile);
        if (valore == nullptr || *valore == '\0')
            continue;
        std::string codifica = valore;
        codifica.erase(0, std::min(codifica.find('.'), codifica.size()));
        codifica.erase(std::min(codifica.find('@'), codifica.size()));
        for (char& c : codifica)
            c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        return codifica == ".utf-8" || codifica == ".utf8";
    }
    return false;
}

// From a value to a dot: both ends of the range are drawn.
struct Scala {
    double da;
    double dot_per_unita;

    Scala(double minimo, double massimo, int punti)
        : da(minimo), dot_per_unita(massimo > minimo ? (punti - 1) / (massimo - minimo) : 0) {}
    int punto(double valore) const { return static_cast<int>(std::lround((valore - da) * dot_per_unita)); }
};

// Where everything stands on the sheet.
struct Disposizione {
    int colonne;
    int righe;
    int colonne_pannelli;  // with the labels of their axis
    int righe_pannello;    // without its title
    int colonna_traccia;

    Disposizione(const Grafico& grafico, const Terminale& terminale) {
        const int quanti = static_cast<int>(grafico.pannelli.size());
        const bool traccia = !grafico.traccia.vuota();
        colonne = std::max(COLONNE_MINIME, terminale.colonne);
        colonne_pannelli = quanti == 0 ? 0 : traccia ? colonne * 5 / 8 : colonne;
        colonna_traccia = quanti == 0 ? 0 : colonne_pannelli + FRA_COLONNE;
        const int libere = std::max(terminale.righe, RIGHE_TRACCIA_MINIME) - 1 - RIGHE_ASSE;
        righe_pannello = quanti == 0 ? libere : std::max(RIGHE_PANNELLO_MINIME, libere / quanti - 1);
        righe = 1 + std::max(1, quanti) * (righe_pannello + (quanti == 0 ? 0 : 1)) + RIGHE_ASSE;
        if (traccia)
            righe = std::max(righe, RIGHE_TRACCIA_MINIME);
    }
};

void disegna(const Pannello& pannello, const Grafico& grafico, const Disposizione& d, int riga, bool utf8,
             Foglio& foglio) {
    const Segni& segni = utf8 ? SEGNI_UTF8 : SEGNI_ASCII;
    foglio.scrivi(ETICHETTA + 1, riga, titoloConUdm(pannello.nome, pannello.udm));
    ++riga;
    for (int i = 0; i < d.righe_pannello; ++i)
        foglio.metti(ETICHETTA, riga + i, segni.verticale);
    const Serie& serie = pannello.serie;
    if (serie.vuota()) {
        foglio.scrivi(ETICHETTA + 2, riga, "no values");
        return;
    }
    foglio.scrivi(0, riga, aDestra(etichetta(serie.massimo()), ETICHETTA - 1));
    if (serie.minimo() < serie.massimo())
        foglio.scrivi(0, riga + d.righe_pannello - 1, aDestra(etichetta(serie.minimo()), ETICHETTA - 1));
    Raster raster(d.colonne_pannelli - ETICHETTA - 1, d.righe_pannello, utf8);
    const Scala x(grafico.inizio(), grafico.fine(), raster.larghezza());
    const Scala y(serie.minimo(), serie.massimo(), raster.altezza());
    const Punto* prima = nullptr;
    for (const Punto& punto : serie.punti()) {
        if (punto.presente) {
            const Punto& da = prima != nullptr ? *prima : punto;
            raster.linea(x.punto(da.tempo), y.punto(da.valore), x.punto(punto.tempo), y.punto(punto.valore));
        }
        prima = punto.presente ? &punto : nullptr;
    }
    raster.stampa(foglio, ETICHETTA + 1, riga);
}

void asse(const Grafico& grafico, const Disposizione& d, int riga, bool utf8, Foglio& foglio) {
    const Segni& segni = utf8 ? SEGNI_UTF8 : SEGNI_ASCII;
    foglio.metti(ETICHETTA, riga, segni.angolo);
    for (int i = ETICHETTA + 1; i < d.colonne_pannelli; ++i)
        foglio.metti(i, riga, segni.orizzontale);
    const std::string fine = etichetta(grafico.fine());
    const int spazio = d.colonne_pannelli - ETICHETTA - 1;
    foglio.scrivi(ETICHETTA + 1, riga + 1, etichetta(grafico.inizio()));
    foglio.scrivi(ETICHETTA + 1 + (spazio - static_cast<int>(grafico.asse.size())) / 2, riga + 1, grafico.asse);
    foglio.scrivi(d.colonne_pannelli - static_cast<int>(fine.size()), riga + 1, fine);
}

void disegnaTraccia(const Traccia& traccia, const Disposizione& d, bool utf8, Foglio& foglio) {
    double ovest = 0;
    double est = 0;
    double sud = 0;
    double nord = 0;
    for (const PuntoTraccia& punto : traccia.punti()) {  // the first of them is the origin
        ovest = std::min(ovest, punto.est);
        est = std::max(est, punto.est);
        sud = std::min(sud, punto.nord);
        nord = std::max(nord, punto.nord);
    }
    Raster raster(d.colonne - d.colonna_traccia, d.righe - 2, utf8);
    // One scale for both axes: a metre is as long to the east as to the north.
    const double scala = std::min((raster.larghezza() - 1) / std::max(1.0, est - ovest),
                                  (raster.altezza() - 1) / std::max(1.0, nord - sud));
    const auto x = [&](const PuntoTraccia& punto) {
        return static_cast<int>(std::lround((punto.est - ovest) * scala));
    };
    const auto y = [&](const PuntoTraccia& punto) {
        return raster.altezza() - 1 - static_cast<int>(std::lround((nord - punto.nord) * scala));
    };
    const PuntoTraccia* prima = nullptr;
    for (const PuntoTraccia& punto : traccia.punti()) {
        if (punto.presente) {
            const PuntoTraccia& da = prima != nullptr ? *prima : punto;
            raster.linea(x(da), y(da), x(punto), y(punto));
        }
        prima = punto.presente ? &punto : nullptr;
    }
    foglio.scrivi(d.colonna_traccia, 1,
                  "Track, " + etichetta(std::round(est - ovest)) + " x " + etichetta(std::round(nord - sud)) + " m");
    raster.stampa(foglio, d.colonna_traccia, 2);
}

}  // namespace

Terminale terminaleDi(std::FILE* file) {
    Terminale terminale;
    terminale.utf8 = ambienteUtf8();
    winsize misure{};
    if (::ioctl(::fileno(file), TIOCGWINSZ, &misure) == 0 && misure.ws_col > 0 && misure.ws_row > 1) {
        terminale.colonne = misure.ws_col;
        terminale.righe = misure.ws_row - 1;  // one is left for the next prompt
    }
    return terminale;
}

std::string disegnoTerminale(const Grafico& grafico, const Terminale& terminale) {
    const Disposizione d(grafico, terminale);
    Foglio foglio(d.colonne, d.righe);
    foglio.scrivi(0, 0, grafico.titolo);
    int riga = 1;
    for (const Pannello& pannello : grafico.pannelli) {
        disegna(pannello, grafico, d, riga, terminale.utf8, foglio);
        riga += d.righe_pannello + 1;
    }
    if (!grafico.pannelli.empty())
        asse(grafico, d, riga, terminale.utf8, foglio);
    if (!grafico.traccia.vuota())
        disegnaTraccia(grafico.traccia, d, terminale.utf8, foglio);
    return foglio.testo();
}

}  // namespace kel::strumento
