#include "plots/tacche.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>

#include "text/durata.h"

namespace kel::strumento {

namespace {

constexpr double ORE_DA = 6000;  // s from which on hours are written: below, "99:59" is read easily
constexpr double FRA_TESTI = 3;  // characters between two texts, at least
constexpr double TROPPE = 1000;  // ticks: neighbouring numbers of the axis are no longer different

// Steps of time above a second, s.
constexpr double PASSI_TEMPO[] = {1, 2, 5, 10, 15, 30, 60, 120, 300, 600, 900, 1800, 3600, 7200, 18000, 36000, 86400};

// Tells whether hours are written anywhere on the axis.
bool con_ore(const Grafico& grafico) {
    const auto [inizio, fine] = grafico.estremi();
    double ultimo = grafico.sessioni.empty() ? fine : 0;
    for (const Sessione& una : grafico.sessioni)
        ultimo = std::max(ultimo, una.a - una.scarto);
    return grafico.ascissa == Ascissa::tempo && ultimo >= ORE_DA;
}

// Decimals that tell two steps apart.
int decimali(double passo) {
    return passo >= 1 ? 0 : std::min(9, static_cast<int>(std::ceil(-std::log10(passo) - 1e-9)));
}

std::string numero(double valore) {
    char testo[64];
    const auto fine = std::to_chars(std::begin(testo), std::end(testo), valore, std::chars_format::general, 10);
    return {testo, fine.ptr};
}

double passo(const Grafico& grafico, double minimo) {
    if (grafico.ascissa == Ascissa::tempo)
        for (const double uno : PASSI_TEMPO)
            if (uno >= minimo && minimo > 0.5)
                return uno;
    const double decimale = passo_tacche(minimo, 1);
    return grafico.ascissa == Ascissa::numero ? std::max(1.0, decimale) : decimale;
}

std::string testo(const Grafico& grafico, double proprio, double passo) {
    return grafico.ascissa == Ascissa::tempo ? testo_durata(proprio, decimali(passo), con_ore(grafico))
                                             : numero(std::round(proprio / passo) * passo);
}

std::vector<Tacca> con_passo(const Grafico& grafico, double uno) {
    const auto [inizio, fine] = grafico.estremi();
    std::vector<Sessione> sessioni = grafico.sessioni;
    if (sessioni.empty())
        sessioni.push_back({inizio, fine, 0});
    std::vector<Tacca> tutte;
    for (const auto& [da, a, scarto] : sessioni) {
        const double primo = std::ceil((da - scarto) / uno - 1e-9);
        const double ultimo = std::floor((a - scarto) / uno + 1e-9);
        if (!(ultimo - primo < TROPPE))
            return {};
        for (double n = primo; n <= ultimo; ++n) {
            const double proprio = n * uno + 0.0;  // no minus zero
            tutte.push_back({proprio + scarto, testo(grafico, proprio, uno)});
        }
    }
    return tutte;
}

bool entrano(const std::vector<Tacca>& tutte, double unita_a_carattere) {
    for (std::size_t i = 1; i < tutte.size(); ++i) {
        const double caratteri = static_cast<double>(tutte[i - 1].testo.size() + tutte[i].testo.size()) / 2 + FRA_TESTI;
        if (tutte[i].x - tutte[i - 1].x < caratteri * unita_a_carattere)
            return false;
    }
    return true;
}

// If not even two ticks at round steps have room: one or both ends of the axis.
std::vector<Tacca> agli_estremi(const Grafico& grafico, double unita_a_carattere) {
    const auto [inizio, fine] = grafico.estremi();
    const double scarto = grafico.sessioni.empty() ? 0 : grafico.sessioni.back().scarto;
    const double arrotondato = std::min(1.0, passo_tacche(fine - inizio, 100));
    const std::vector<Tacca> tutte = {{inizio, testo(grafico, inizio, arrotondato)},
                                      {fine, testo(grafico, fine - scarto, arrotondato)}};
    return entrano(tutte, unita_a_carattere / 2) ? tutte : std::vector<Tacca>{tutte.front()};
}

// Where one session ends and the next begins, two ticks may be too close. Then the earlier one is removed.
std::vector<Tacca> diradate(const std::vector<Tacca>& tutte, double unita_a_carattere) {
    std::vector<Tacca> tenute;
    for (const Tacca& una : tutte) {
        if (!tenute.empty() && !entrano({tenute.back(), una}, unita_a_carattere))
            tenute.pop_back();
        tenute.push_back(una);
    }
    return tenute;
}

}  // namespace

double passo_tacche(double ampiezza, double parti) {
    const double minimo = ampiezza / parti;
    if (!(minimo > 0) || !std::isfinite(minimo))
        return 1;
    const double potenza = std::pow(10.0, std::floor(std::log10(minimo)));
    for (const double volte : {1.0, 2.0, 5.0})
        if (volte * potenza >= minimo * (1 - 1e-9))
            return volte * potenza;
    return 10 * potenza;
}

std::vector<Tacca> tacche(const Grafico& grafico, double larghezza, double carattere) {
    const auto [inizio, fine] = grafico.estremi();
    const double unita_a_carattere = (fine - inizio) / std::max(larghezza / carattere, 1.0);
    double minimo = unita_a_carattere * (1 + FRA_TESTI);  // no text is shorter than a character
    for (int giro = 0; giro < 40; ++giro) {
        const double uno = passo(grafico, minimo);
        const std::vector<Tacca> tutte = con_passo(grafico, uno);
        const bool piu_sessioni = grafico.sessioni.size() > 1;
        std::vector<Tacca> tenute = piu_sessioni ? diradate(tutte, unita_a_carattere) : tutte;
        // Between sessions a tick may have to go; within them the steps stay even.
        if (tutte.size() < 2)
            break;
        if (piu_sessioni ? tenute.size() + grafico.sessioni.size() > tutte.size() : entrano(tutte, unita_a_carattere))
            return tenute;
        minimo = uno * 1.0001;
    }
    return agli_estremi(grafico, unita_a_carattere);
}

std::string nome_ascissa(const Grafico& grafico) {
    switch (grafico.ascissa) {
        case Ascissa::tempo:
            return "time, " + unita_ascissa(grafico);
        case Ascissa::distanza:
            return "distance, m";
        case Ascissa::numero:
            break;
    }
    return "record";
}

std::string unita_ascissa(const Grafico& grafico) {
    switch (grafico.ascissa) {
        case Ascissa::tempo:
            return con_ore(grafico) ? "h:mm:ss" : "m:ss";
        case Ascissa::distanza:
            return "m";
        case Ascissa::numero:
            break;
    }
    return "record";
}

}  // namespace kel::strumento
