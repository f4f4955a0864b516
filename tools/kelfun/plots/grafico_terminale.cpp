#include "plots/grafico_terminale.h"

#include <sys/ioctl.h>
#include <unistd.h>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string_view>

#include "plots/disposizione_terminale.h"
#include "plots/raster.h"
#include "plots/tacche.h"
#include "text/larghezza.h"

namespace kel::strumento {

namespace {

struct Segni {
    const char* verticale;
    const char* orizzontale;
    const char* angolo;
    const char* tacca;
};
constexpr Segni SEGNI_UTF8 = {"\u2502", "\u2500", "\u2514", "\u252C"};
constexpr Segni SEGNI_ASCII = {"|", "-", "+", "+"};

// Whether the terminal shows UTF-8, by the first of the three variables that is set, as for any program. The locale
// need not be installed. "it_IT.UTF-8", "C.utf8", "de_DE.UTF-8@euro".
bool ambiente_utf8() {
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

class Disegno {
public:
    Disegno(const Grafico& grafico, const Terminale& terminale)
        : grafico_(grafico),
          d_(disponi(grafico, terminale)),
          utf8_(terminale.utf8),
          segni_(terminale.utf8 ? SEGNI_UTF8 : SEGNI_ASCII),
          foglio_(d_.colonne, d_.righe) {}

    DisegnoTerminale tutto() {
        righe(0, 0, d_.titolo);
        for (const PostoPannello& posto : d_.pannelli)
            pannello(posto);
        if (!d_.pannelli.empty())
            asse();
        if (d_.riga_segni >= 0)
            giri_e_sessioni();
        if (d_.colonna_traccia >= 0)
            traccia();
        return {foglio_.testo(), d_.note};
    }

private:
    void scrivi(int colonna, int riga, std::string_view testo) { foglio_.scrivi(colonna, riga, testo, utf8_); }

    void righe(int colonna, int riga, const std::vector<std::string>& testi) {
        for (const std::string& testo : testi)
            scrivi(colonna, riga++, testo);
    }

    void a_sinistra_dell_asse(int riga, const std::string& testo) {
        scrivi(std::max(0, d_.asse - 1 - larghezza_testo(testo)), riga, testo);
    }

    // The column of a place on the axis.
    int colonna(double x) const {
        const auto [inizio, fine] = grafico_.estremi();
        return d_.asse + 1 + Scala(inizio, fine, d_.larghezza_curve()).punto(x);
    }

    void pannello(const PostoPannello& posto) {
        const Pannello& p = *posto.pannello;
        righe(posto.colonna_titolo, posto.riga, posto.titolo);
        const int sopra = posto.riga + static_cast<int>(posto.titolo.size());
        for (int i = 0; i < posto.righe; ++i)
            foglio_.metti(d_.asse, sopra + i, segni_.verticale);
        if (p.vuoto())
            return;
        // A value that never changes lies at the foot.
        a_sinistra_dell_asse(sopra + posto.righe - 1, etichetta(p.minimo()));
        if (p.minimo() < p.massimo())
            a_sinistra_dell_asse(sopra, etichetta(p.massimo()));
        for (std::size_t i = 0; i < p.curve.size(); ++i) {
            const char lettera = static_cast<char>('a' + i % 26);
            curva(p, p.curve[i].serie, posto.righe)
                .stampa(foglio_, d_.asse + 1, sopra, p.curve.size() > 1 ? std::string_view(&lettera, 1) : "");
        }
    }

    Raster curva(const Pannello& pannello, const Serie& serie, int righe) const {
        const auto [inizio, fine] = grafico_.estremi();
        Raster raster(d_.larghezza_curve(), righe, utf8_);
        const Scala x(inizio, fine, raster.larghezza());
        const Scala y(pannello.minimo(), pannello.massimo(), raster.altezza());
        const Punto* prima = nullptr;
        for (const Punto& punto : serie.punti()) {
            const Punto& da = punto.staccato || prima == nullptr ? punto : *prima;
            const int a_x = x.punto(punto.x);
            const int da_y = y.punto(da.valore);
            // What has no unit is a number or a code: it jumps from one value to the next.
            if (pannello.udm.empty()) {
                raster.linea(x.punto(da.x), da_y, a_x, da_y);
                raster.linea(a_x, da_y, a_x, y.punto(punto.valore));
            } else {
                raster.linea(x.punto(da.x), da_y, a_x, y.punto(punto.valore));
            }
            prima = &punto;
        }
        return raster;
    }

    void asse() {
        const int riga = d_.riga_asse;
        foglio_.metti(d_.asse, riga, segni_.angolo);
        for (int i = d_.asse + 1; i < d_.colonne_pannelli; ++i)
            foglio_.metti(i, riga, segni_.orizzontale);
        a_sinistra_dell_asse(riga + 1, unita_ascissa(grafico_));
        for (const Tacca& tacca : tacche(grafico_, d_.larghezza_curve(), 1)) {
            const int dove = colonna(tacca.x);
            const int lunga = static_cast<int>(tacca.testo.size());
            foglio_.metti(dove, riga, segni_.tacca);
            scrivi(std::clamp(dove - lunga / 2, d_.asse, std::max(d_.asse, d_.colonne_pannelli - lunga)), riga + 1,
                   tacca.testo);
        }
    }

    // Where there is no room for the next text, a bar alone says that something begins.
    void giri_e_sessioni() {
        struct Inizio {
            double x;
            std::string testo;
        };
        std::vector<Inizio> inizi;
        for (std::size_t i = 1; i < grafico_.sessioni.size(); ++i)
            inizi.push_back({grafico_.sessioni[i].da, "session " + std::to_string(i + 1)});
        for (const Segno& giro : grafico_.giri)
            inizi.push_back({giro.x, giro.testo});
        std::stable_sort(inizi.begin(), inizi.end(), [](const Inizio& a, const Inizio& b) { return a.x < b.x; });
        if (!grafico_.giri.empty())
            a_sinistra_dell_asse(d_.riga_segni, "lap");
        int libera = 0;
        for (std::size_t i = 0; i < inizi.size(); ++i) {
            const int dove = colonna(inizi[i].x);
            if (dove < libera)
                continue;
            const int fine = i + 1 < inizi.size() ? colonna(inizi[i + 1].x) : d_.colonne_pannelli;
            foglio_.metti(dove, d_.riga_segni, segni_.verticale);
            libera = dove + 1;
            const int larga = larghezza_testo(inizi[i].testo);
            if (libera + larga > fine || libera + larga > d_.colonne_pannelli)
                continue;
            scrivi(libera, d_.riga_segni, inizi[i].testo);
            libera += larga;
        }
    }

    void traccia() {
        const Estensione terreno = grafico_.traccia.estensione();
        const double larga = terreno.est - terreno.ovest;
        const double alta = terreno.nord - terreno.sud;
        const int sopra = static_cast<int>(d_.titolo.size());
        const auto titolo =
            a_capo("Track, " + etichetta(std::round(larga)) + " x " + etichetta(std::round(alta)) + " m",
                   d_.colonne - d_.colonna_traccia);
        righe(d_.colonna_traccia, sopra, titolo);
        const int prima = sopra + static_cast<int>(titolo.size());
        Raster raster(d_.colonne - d_.colonna_traccia, std::max(1, d_.righe - prima), utf8_);
        // One scale for both axes: a metre is as long to the east as to the north.
        const double scala =
            std::min((raster.larghezza() - 1) / std::max(1.0, larga), (raster.altezza() - 1) / std::max(1.0, alta));
        const auto x = [&](const PuntoTraccia& p) {
            return static_cast<int>(std::lround((p.est - terreno.ovest) * scala));
        };
        const auto y = [&](const PuntoTraccia& p) {
            return raster.altezza() - 1 - static_cast<int>(std::lround((terreno.nord - p.nord) * scala));
        };
        const PuntoTraccia* da = nullptr;
        for (const PuntoTraccia& punto : grafico_.traccia.punti()) {
            const PuntoTraccia& inizio = punto.staccato || da == nullptr ? punto : *da;
            raster.linea(x(inizio), y(inizio), x(punto), y(punto));
            da = &punto;
        }
        raster.stampa(foglio_, d_.colonna_traccia, prima);
    }

    const Grafico& grafico_;
    Disposizione d_;
    bool utf8_;
    const Segni& segni_;
    Foglio foglio_;
};

}  // namespace

Terminale terminale_di(std::FILE* file) {
    Terminale terminale;
    terminale.utf8 = ambiente_utf8();
    winsize misure{};
    if (::ioctl(::fileno(file), TIOCGWINSZ, &misure) == 0 && misure.ws_col > 0 && misure.ws_row > 1) {
        terminale.colonne = misure.ws_col;
        terminale.righe = misure.ws_row;
    }
    return terminale;
}

DisegnoTerminale disegno_terminale(const Grafico& grafico, const Terminale& terminale) {
    return Disegno(grafico, terminale).tutto();
}

}  // namespace kel::strumento
