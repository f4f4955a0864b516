#include "plots/grafico_gnuplot.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

namespace kel::strumento {

namespace {

// Of the picture, in dots.
constexpr int LARGHEZZA = 1280;
constexpr int ALTEZZA_PANNELLO = 160;
constexpr int ALTEZZA_MINIMA = 560;
constexpr int SOPRA = 34;
constexpr int SOTTO = 60;
constexpr int SINISTRA = 90;
constexpr int DESTRA = 30;
constexpr int TRACCIA = 420;      // side of the track's square
constexpr int FRA_PANNELLI = 30;  // for the name of the next
constexpr int FRA_COLONNE = 90;   // between the panels and the track, for its labels
constexpr int SCALA_COLORI = 80;

constexpr const char* COLORI[] = {"#1f5fa8", "#c2410c", "#15803d", "#7e22ce",
                                  "#b91c1c", "#0e7490", "#a16207", "#be185d"};

// With a point in every locale, as few digits as the value takes.
std::string n(double valore) {
    char testo[32];
    const auto fine = std::to_chars(std::begin(testo), std::end(testo), valore);
    return {testo, fine.ptr};
}

// Only a quote means anything within single quotes, and is doubled there.
std::string citato(const std::string& testo) {
    std::string uscita = "'";
    for (const char c : testo) {
        if (c == '\'')
            uscita += "''";
        else
            uscita += static_cast<unsigned char>(c) < 0x20 || static_cast<unsigned char>(c) >= 0x7F ? '?' : c;
    }
    return uscita + "'";
}

struct Misure {
    int larghezza;
    int altezza;
    int pannello;       // height of one
    int fine_pannelli;  // where their right side is
};

Misure misure(const Grafico& grafico) {
    const int quanti = std::max<int>(1, static_cast<int>(grafico.pannelli.size()));
    Misure m{};
    m.larghezza = LARGHEZZA;
    m.altezza = std::max(ALTEZZA_MINIMA, SOPRA + SOTTO + quanti * ALTEZZA_PANNELLO);
    m.pannello = (m.altezza - SOPRA - SOTTO) / quanti;
    m.fine_pannelli = LARGHEZZA - DESTRA - (grafico.traccia.vuota() ? 0 : TRACCIA + FRA_COLONNE + SCALA_COLORI);
    return m;
}

std::string margini(const Misure& m, int sinistra, int destra, int sopra, int sotto) {
    const auto x = [&m](int dove) { return n(static_cast<double>(dove) / m.larghezza); };
    const auto y = [&m](int dove) { return n(1 - static_cast<double>(dove) / m.altezza); };
    return "set lmargin at screen " + x(sinistra) + "\nset rmargin at screen " + x(destra) +
           "\nset tmargin at screen " + y(sopra) + "\nset bmargin at screen " + y(sotto) + "\n";
}

std::string dati(const Grafico& grafico) {
    std::string testo;
    for (std::size_t i = 0; i < grafico.pannelli.size(); ++i) {
        testo += "$s" + std::to_string(i) + " << EOD\n";
        for (const Punto& punto : grafico.pannelli[i].serie.punti())
            testo += punto.presente ? n(punto.tempo) + " " + n(punto.valore) + "\n" : "\n";
        testo += "EOD\n";
    }
    if (grafico.traccia.vuota())
        return testo;
    testo += "$t << EOD\n";
    for (const PuntoTraccia& punto : grafico.traccia.punti())
        testo += punto.presente ? n(punto.est) + " " + n(punto.nord) + " " + n(punto.velocita) + "\n" : "\n";
    return testo + "EOD\n";
}

std::string aspetto(const Grafico& grafico, const Misure& m, bool svg) {
    const std::string dimensioni = std::to_string(m.larghezza) + "," + std::to_string(m.altezza);
    std::string testo =
        svg ? "set terminal svg noenhanced size " + dimensioni +
                  " dynamic font 'DejaVu Sans,Arial,sans-serif,12' background '#ffffff'\n"
            : "set terminal pngcairo noenhanced size " + dimensioni + " font 'DejaVu Sans,10' background '#ffffff'\n";
    testo += "set multiplot\n";
    testo += "set label 1 " + citato(grafico.titolo) + " at screen " + n(static_cast<double>(SINISTRA) / m.larghezza) +
             ",screen " + n(1 - 26.0 / m.altezza) + " left font ',14' front\n";
    return testo +
           "set border 3 lc rgb '#6b7280' lw 0.8\n"
           "set tics nomirror out scale 0.5 textcolor rgb '#374151'\n"
           "set grid xtics ytics lt 1 lw 0.6 lc rgb '#e5e7eb'\n"
           "unset key\n";
}

// A little room above and below, so that no line lies on the border.
std::string intervallo(const Serie& serie) {
    constexpr double MINIMA = 1e-12;  // gnuplot takes less for nothing
    const double ampiezza = serie.massimo() - serie.minimo();
    const double grandezza = std::max(std::fabs(serie.massimo()), std::fabs(serie.minimo()));
    const bool ferma = ampiezza <= MINIMA * std::max(1.0, grandezza);
    const double margine = ferma ? std::max(1.0, grandezza * 0.1) : ampiezza * 0.08;
    return "set yrange [" + n(serie.minimo() - margine) + ":" + n(serie.massimo() + margine) + "]\n";
}

std::string pannello(const Grafico& grafico, const Misure& m, std::size_t i) {
    const Pannello& uno = grafico.pannelli[i];
    const int sopra = SOPRA + static_cast<int>(i) * m.pannello;
    const bool ultimo = i + 1 == grafico.pannelli.size();
    std::string testo = margini(m, SINISTRA, m.fine_pannelli, sopra + FRA_PANNELLI, sopra + m.pannello);
    testo += uno.serie.vuota() ? "set yrange [0:1]\n" : intervallo(uno.serie);
    testo +=
        ultimo ? "set format x '%g'\nset xlabel " + citato(grafico.asse) + "\n" : "set format x ''\nunset xlabel\n";
    testo += uno.udm.empty() ? "unset ylabel\n" : "set ylabel " + citato(uno.udm) + " offset 1\n";
    testo += "set label 2 " + citato(uno.nome + (uno.serie.vuota() ? ": no values" : "")) +
             " at graph 0,graph 1 left offset 0,0.7 front textcolor rgb '#111827'\n";
    // What has no unit is a number or a code: it jumps from one value to the next.
    testo += "plot ";
    testo += uno.serie.vuota() ? "NaN"
                               : "$s" + std::to_string(i) + " using 1:2 with " + (uno.udm.empty() ? "steps" : "lines");
    testo += " lw 1.4 lc rgb '" + std::string(COLORI[i % std::size(COLORI)]) + "'\n";
    return testo + (i == 0 ? "unset label 1\n" : "");
}

// A square of the ground with room around the track: its side is as long to the east as to the north.
std::string intervalliTraccia(const Traccia& traccia) {
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
    const double mezzo = std::max({est - ovest, nord - sud, 1.0}) * 0.55;
    const auto intervallo = [mezzo](double da, double a) {
        return "[" + n((da + a) / 2 - mezzo) + ":" + n((da + a) / 2 + mezzo) + "]\n";
    };
    return "set xrange " + intervallo(ovest, est) + "set yrange " + intervallo(sud, nord);
}

std::string traccia(const Grafico& grafico, const Misure& m) {
    const int sinistra = m.fine_pannelli + FRA_COLONNE;
    const int sopra = SOPRA + FRA_PANNELLI;
    std::string testo = margini(m, sinistra, sinistra + TRACCIA, sopra, sopra + TRACCIA);
    testo += intervalliTraccia(grafico.traccia);
    testo +=
        "set format x '%g'\nset xlabel 'east, m'\nset ylabel 'north, m' offset 1\nset border 15\n"
        "set label 2 'Track by speed' at graph 0,graph 1 left offset 0,0.7 front textcolor rgb '#111827'\n"
        "set palette defined (0 '#440154', 1 '#3b528b', 2 '#21918c', 3 '#5ec962', 4 '#fde725')\n"
        "set colorbox vertical user origin screen " +
        n(static_cast<double>(sinistra + TRACCIA + 20) / m.larghezza) + ",screen " +
        n(1 - static_cast<double>(sopra + TRACCIA) / m.altezza) + " size screen " + n(14.0 / m.larghezza) + ",screen " +
        n(static_cast<double>(TRACCIA) / m.altezza) + "\nset cblabel " + citato(grafico.udm_velocita) + "\n";
    return testo +
           "plot $t using 1:2:3 with lines lw 3 palette, "
           "$t using 1:2 every ::0:0:0:0 with points pt 6 ps 1.4 lw 2 lc rgb '#b91c1c'\n";
}

}  // namespace

std::string istruzioniGnuplot(const Grafico& grafico, bool svg) {
    const Misure m = misure(grafico);
    std::string testo = dati(grafico) + aspetto(grafico, m, svg);
    testo += "set xrange [" + n(grafico.inizio()) + ":" + n(grafico.fine()) + "]\n";
    for (std::size_t i = 0; i < grafico.pannelli.size(); ++i)
        testo += pannello(grafico, m, i);
    if (!grafico.traccia.vuota())
        testo += traccia(grafico, m);
    return testo + "unset multiplot\n";
}

}  // namespace kel::strumento
