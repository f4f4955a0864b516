#include "plots/grafico_gnuplot.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

#include "plots/impaginazione.h"
#include "plots/tacche.h"
#include "text/chiavi.h"
#include "text/larghezza.h"
#include "text/mostrabile.h"

namespace kel::strumento {

namespace {

constexpr double CARATTERE = 8;      // dots that a figure of the axes takes
constexpr double FRA_TACCHE_Y = 18;  // dots, at least
constexpr double TACCHE_Y_MASSIME = 8;
constexpr double FRA_GIRI = 8;  // dots between two laps: closer ones hide what they mark
const std::string GIRO = "lap ";
const std::string SESSIONE = "session ";
constexpr double FRA_SCRITTA_E_TRACCIA = 58;
constexpr double GRADAZIONI = 64;  // shades of the speed along the track
constexpr double DOT_IN_POLLICE = 96;

// The colours of Okabe and Ito, which people with any colour vision can tell apart; without yellow, too light for a
// line.
constexpr const char* COLORI[] = {"#0072B2", "#D55E00", "#009E73", "#CC79A7", "#E69F00", "#56B4E9", "#000000"};

// With a point in every locale, as few digits as the value takes.
std::string n(double valore) {
    char testo[32];
    const auto fine = std::to_chars(std::begin(testo), std::end(testo), valore);
    return {testo, fine.ptr};
}

// Texts of others, as the lines of a data block: gnuplot reads them as they are, whatever quotes, backslashes, macros
// or commands they hold. Every line begins with a bar, so that none ends the block.
class Testi {
public:
    /// The expression that gives a text.
    std::string operator()(const std::string& testo) {
        righe_ += "|" + per_xml(mostrabile(testo)) + "\n";
        return "$N[" + std::to_string(++quanti_) + "][2:*]";
    }
    std::string blocco() const { return "$N << EOD\n" + righe_ + "EOD\n"; }

private:
    // The two codes that UTF-8 can write and XML cannot, U+FFFE and U+FFFF.
    static std::string per_xml(std::string testo) {
        for (const char* nessuno : {"\xEF\xBF\xBE", "\xEF\xBF\xBF"})
            for (std::size_t dove = 0; (dove = testo.find(nessuno, dove)) != std::string::npos;)
                testo.replace(dove, 3, "?");
        return testo;
    }

    std::string righe_;
    int quanti_ = 0;
};

class Copione {
public:
    Copione(const Grafico& grafico, Formato formato, std::optional<Misura> misura)
        : grafico_(grafico), formato_(formato), pagina_(impagina(grafico, misura)) {}

    Immagine tutto() {
        std::string testo = aspetto();
        for (std::size_t i = 0; i < grafico_.pannelli.size(); ++i)
            testo += pannello(i);
        if (pagina_.traccia)
            testo += traccia(*pagina_.traccia);
        return {"set encoding utf8\n" + testi_.blocco() + dati_ + testo + "unset multiplot\n", pagina_.nota};
    }

private:
    std::string x(double dove) const { return n(dove / pagina_.larghezza); }
    std::string y(double dove) const { return n(1 - dove / pagina_.altezza); }

    std::string aspetto() {
        const std::string dimensioni = n(pagina_.larghezza) + "," + n(pagina_.altezza);
        std::string testo;
        switch (formato_) {
            case Formato::svg:
                testo = "set terminal svg noenhanced rounded size " + dimensioni +
                        " dynamic font 'DejaVu Sans,Arial,sans-serif,13' background '#ffffff'\n";
                break;
            case Formato::png:
                testo = "set terminal pngcairo noenhanced rounded size " + dimensioni +
                        " font 'DejaVu Sans,10' background '#ffffff'\n";
                break;
            case Formato::pdf:
                testo = "set terminal pdfcairo noenhanced rounded size " + n(pagina_.larghezza / DOT_IN_POLLICE) +
                        "in," + n(pagina_.altezza / DOT_IN_POLLICE) + "in font 'DejaVu Sans,10' background '#ffffff'\n";
                break;
        }
        // A long name is written in smaller letters, so that it is not cut off.
        const double colonne = std::max(1, larghezza_testo(mostrabile(grafico_.titolo)));
        const double punti = std::clamp(1.2 * pagina_.larghezza / colonne, 5.0, 14.0);
        return testo + "set multiplot\nunset key\n" + "set label 1 " + testi_(grafico_.titolo) + " at screen " + x(16) +
               ",screen " + y(18) + " left noenhanced font '," + n(std::floor(punti)) + "' front\n" +
               "set border 3 lc rgb '#6b7280' lw 0.8\n"
               "set tics nomirror out scale 0.5 textcolor rgb '#374151'\n"
               "set grid xtics ytics lt 1 lw 0.6 lc rgb '#e5e7eb'\n";
    }

    std::string margini(const Riquadro& r) const {
        return "set lmargin at screen " + x(r.sinistra) + "\nset rmargin at screen " + x(r.destra) +
               "\nset tmargin at screen " + y(r.sopra) + "\nset bmargin at screen " + y(r.sotto) + "\n";
    }

    std::string nome_riquadro(const std::string& nome) {
        return "set label 2 " + testi_(nome) +
               " at graph 0,graph 1 left offset 0,0.6 noenhanced front textcolor rgb '#111827'\n";
    }

    // The lines of a series, and the points that belong to none.
    void aggiungi_dati(const std::string& nome, const Serie& serie) {
        std::string linee;
        std::string soli;
        const auto& punti = serie.punti();
        for (std::size_t i = 0; i < punti.size(); ++i) {
            const std::string riga = n(punti[i].x) + " " + n(punti[i].valore) + "\n";
            linee += (punti[i].staccato && i > 0 ? "\n" : "") + riga;
            if (punti[i].staccato && (i + 1 == punti.size() || punti[i + 1].staccato))
                soli += riga;
        }
        dati_ += "$l" + nome + " << EOD\n" + linee + "EOD\n$p" + nome + " << EOD\n" +
                 (soli.empty() ? "NaN NaN\n" : soli) + "EOD\n";
    }

    // A little room above and below, so that no line lies on the border.
    std::string asse_y(const Pannello& pannello, double altezza) const {
        if (pannello.vuoto())
            return "set yrange [0:1]\nset ytics ()\n";
        constexpr double MINIMA = 1e-12;  // gnuplot takes a smaller range for an empty one
        const double ampiezza = pannello.massimo() - pannello.minimo();
        const double grandezza = std::max(std::fabs(pannello.massimo()), std::fabs(pannello.minimo()));
        const bool ferma = ampiezza <= MINIMA * std::max(1.0, grandezza);
        const double margine = ferma ? std::max(1.0, grandezza * 0.1) : ampiezza * 0.08;
        const double passo =
            passo_tacche(ampiezza + 2 * margine, std::clamp(altezza / FRA_TACCHE_Y, 1.0, TACCHE_Y_MASSIME));
        return "set yrange [" + n(pannello.minimo() - margine) + ":" + n(pannello.massimo() + margine) +
               "]\nset format y '%g'\nset ytics " + n(pannello.udm.empty() && passo < 1 ? 1.0 : passo) + "\n";
    }

    std::string asse_x(double larghezza, bool ultimo) {
        const auto [inizio, fine] = grafico_.estremi();
        std::string posti;
        for (const Tacca& tacca : tacche(grafico_, larghezza, CARATTERE))
            posti += (posti.empty() ? "'" : ",'") + (ultimo ? tacca.testo : "") + "' " + n(tacca.x);
        return "set xrange [" + n(inizio) + ":" + n(fine) + "]\nset xtics (" + posti + ")\n" +
               (ultimo ? "set xlabel '" + nome_ascissa(grafico_) + "'\n" : "unset xlabel\n");
    }

    // Upright lines where laps and sessions begin; their numbers stand above the first panel.
    std::string segni(const Riquadro& r, bool primo) {
        const auto [inizio, fine] = grafico_.estremi();
        const double dot = r.larghezza() / (fine - inizio);
        std::string testo = "unset arrow\n";
        const auto linea = [&, da = inizio](double dove, const char* aspetto) {
            if (dove > da)  // else the axis is there
                testo += "set arrow from first " + n(dove) + ",graph 0 to first " + n(dove) +
                         ",graph 1 nohead back lw 1 " + aspetto + "\n";
        };
        const auto nome = [&](double dove, const std::string& quale, double sopra, const char* colore) {
            if (primo)
                testo += "set label " + testi_(quale) + " at first " + n(dove) + ",graph 1 left offset 0.3," +
                         n(sopra) + " noenhanced front textcolor rgb '" + colore + "' font ',9'\n";
        };
        const std::vector<Segno>& giri = grafico_.giri;
        const std::size_t ogni = ogni_quanti(giri, dot);
        const bool fitti =
            giri.size() > 1 && (giri.back().x - giri.front().x) * dot < FRA_GIRI * static_cast<double>(giri.size());
        for (std::size_t i = 0; i < giri.size(); ++i) {
            if (!fitti || i % ogni == 0)
                linea(giri[i].x, "dt (6,4) lc rgb '#9ca3af'");
            if (i % ogni == 0)
                nome(giri[i].x, GIRO + giri[i].testo, 1.7, "#6b7280");
        }
        for (std::size_t i = 1; i < grafico_.sessioni.size(); ++i) {
            linea(grafico_.sessioni[i].da, "dt 1 lc rgb '#D55E00'");
            if (grafico_.sessioni[i].da * dot < fine * dot - larghezza_testo(SESSIONE) * CARATTERE)
                nome(grafico_.sessioni[i].da, SESSIONE + std::to_string(i + 1), giri.empty() ? 1.7 : 2.8, "#D55E00");
        }
        return testo;
    }

    // Every first, second, fifth, tenth... lap is named, so that the names have room.
    static std::size_t ogni_quanti(const std::vector<Segno>& giri, double dot) {
        for (std::size_t potenza = 1; potenza < giri.size(); potenza *= 10)
            for (const std::size_t volte : {std::size_t{1}, std::size_t{2}, std::size_t{5}}) {
                const std::size_t ogni = volte * potenza;
                bool entrano = true;
                for (std::size_t i = ogni; i < giri.size() && entrano; i += ogni)
                    entrano = (giri[i].x - giri[i - ogni].x) * dot >
                              (larghezza_testo(GIRO + giri[i - ogni].testo) + 1) * CARATTERE;
                if (entrano)
                    return ogni;
            }
        return std::max<std::size_t>(1, giri.size());
    }

    std::string pannello(std::size_t i) {
        const Pannello& uno = grafico_.pannelli[i];
        const Riquadro& r = pagina_.pannelli[i];
        std::string testo =
            margini(r) + asse_y(uno, r.altezza()) + asse_x(r.larghezza(), i + 1 == grafico_.pannelli.size());
        testo += nome_riquadro(titolo_con_udm(uno.nome, uno.udm) + (uno.vuoto() ? ": no values" : ""));
        testo += segni(r, i == 0);
        testo += uno.curve.size() > 1
                     ? "set key at graph 1,graph 1 right bottom horizontal samplen 1.5 noenhanced width 1\n"
                     : "unset key\n";
        testo += "plot " + curve(i) + "\n";
        return testo + (i == 0 ? "unset label\n" : "");
    }

    // Curves that are drawn first are wider, so that they are seen below others that coincide with them.
    static double spessore(const Pannello& pannello, std::size_t curva) {
        const auto altre = static_cast<double>(pannello.curve.size() - 1);
        return altre > 0 ? 2.2 - 0.8 * static_cast<double>(curva) / altre : 1.4;
    }

    // What has no unit is a number or a code: it jumps from one value to the next.
    std::string curve(std::size_t i) {
        const Pannello& pannello = grafico_.pannelli[i];
        std::string testo;
        for (std::size_t j = 0; j < pannello.curve.size(); ++j) {
            const Curva& curva = pannello.curve[j];
            if (curva.serie.vuota())
                continue;
            const std::string nome = std::to_string(i) + "_" + std::to_string(j);
            const std::string colore = std::string(" lc rgb '") + COLORI[j % std::size(COLORI)] + "'";
            aggiungi_dati(nome, curva.serie);
            testo += testo.empty() ? "$l" : ", $l";
            testo += nome;
            testo += pannello.udm.empty() ? " using 1:2 with steps lw " : " using 1:2 with lines lw ";
            testo += n(spessore(pannello, j));
            testo += colore;
            testo += pannello.curve.size() > 1 ? " title " + testi_(curva.nome) : " notitle";
            testo += ", $p";
            testo += nome;
            testo += " using 1:2 with points pt 7 ps 0.3";
            testo += colore;
            testo += " notitle";
        }
        return testo.empty() ? "NaN notitle" : testo;
    }

    // A piece of the ground as large as the box, the track in its middle, as long to the east as to the north.
    static std::string intervalli_traccia(const Traccia& traccia, const Riquadro& r) {
        constexpr double INTORNO = 1.08;
        const Estensione terreno = traccia.estensione();
        const double metri_per_dot = INTORNO * std::max({(terreno.est - terreno.ovest) / r.larghezza(),
                                                         (terreno.nord - terreno.sud) / r.altezza(), 0.01});
        const auto intervallo = [&](double da, double a, double dot) {
            const double mezzo = metri_per_dot * dot / 2;
            return "[" + n((da + a) / 2 - mezzo) + ":" + n((da + a) / 2 + mezzo) + "]\n";
        };
        const double passo = passo_tacche(metri_per_dot * r.larghezza(), std::max(2.0, r.larghezza() / 90));
        return "set xrange " + intervallo(terreno.ovest, terreno.est, r.larghezza()) + "set yrange " +
               intervallo(terreno.sud, terreno.nord, r.altezza()) + "set xtics " + n(passo) + "\nset ytics " +
               n(passo) + "\n";
    }

    // A line has one colour from point to point: where the speed changes more than a shade between two, there are
    // points between.
    // @return  the range of the colours.
    std::string aggiungi_traccia() {
        const auto& punti = grafico_.traccia.punti();
        const auto minore = [](const PuntoTraccia& a, const PuntoTraccia& b) { return a.velocita < b.velocita; };
        const auto [minimo, massimo] = std::minmax_element(punti.begin(), punti.end(), minore);
        const double gradazione = std::max((massimo->velocita - minimo->velocita) / GRADAZIONI, 1e-9);
        dati_ += "$t << EOD\n";
        for (std::size_t i = 0; i < punti.size(); ++i) {
            const PuntoTraccia& a = punti[i];
            const PuntoTraccia& da = a.staccato || i == 0 ? a : punti[i - 1];
            if (a.staccato && i > 0)
                dati_ += '\n';
            const double parti = std::max(1.0, std::ceil(std::fabs(a.velocita - da.velocita) / gradazione));
            for (double parte = &da == &a ? parti : 1; parte <= parti; ++parte) {
                const double t = parte / parti;
                dati_ += n(da.est + t * (a.est - da.est)) + " " + n(da.nord + t * (a.nord - da.nord)) + " " +
                         n(da.velocita + t * (a.velocita - da.velocita)) + "\n";
            }
        }
        dati_ += "EOD\n";
        const double massima = std::max(massimo->velocita, minimo->velocita + 1e-6 * std::max(1.0, minimo->velocita));
        return "set cbrange [" + n(minimo->velocita) + ":" + n(massima) + "]\n";
    }

    std::string traccia(const Riquadro& r) {
        return aggiungi_traccia() + margini(r) + intervalli_traccia(grafico_.traccia, r) +
               nome_riquadro("Track by " + titolo_con_udm("speed", grafico_.udm_velocita)) +
               "unset arrow\nunset key\nset format x '%g'\nset format y '%g'\nset xlabel 'east, m'\n"
               "set label 3 'north, m' at screen " +
               x(r.sinistra - FRA_SCRITTA_E_TRACCIA) + ",screen " + y((r.sopra + r.sotto) / 2) +
               " center rotate by 90 noenhanced\nset border 15\n"
               "set palette defined (0 '#440154', 1 '#3b528b', 2 '#21918c', 3 '#5ec962', 4 '#fde725')\n"
               "set colorbox vertical user origin screen " +
               x(r.destra + 12) + ",screen " + y(r.sotto) + " size screen " + n(12 / pagina_.larghezza) + ",screen " +
               n(r.altezza() / pagina_.altezza) +
               "\nplot $t using 1:2:3 with lines lw 3 palette, "
               "$t using 1:2 every ::0:0:0:0 with points pt 6 ps 1.4 lw 2 lc rgb '#D55E00'\n";
    }

    const Grafico& grafico_;
    Formato formato_;
    Impaginazione pagina_;
    Testi testi_;
    std::string dati_;
};

}  // namespace

Immagine istruzioni_gnuplot(const Grafico& grafico, Formato formato, std::optional<Misura> misura) {
    return Copione(grafico, formato, misura).tutto();
}

}  // namespace kel::strumento
