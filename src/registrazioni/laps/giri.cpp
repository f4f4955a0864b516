#include "laps/giri.h"

#include <algorithm>
#include <cmath>

namespace kel_registrazioni {

namespace {

constexpr double FERMO = 1;              // m/s
constexpr double FERMO_A_LUNGO = 5;      // s
constexpr double MINIMO_INTERMEDIO = 1;  // s between two passages of the same split

int millisecondi(double secondi) {
    return static_cast<int>(std::lround(secondi * 1000));  // a session's pauses are bounded, and so is a lap
}

// The fixes of a lap, as places among all.
struct Intervallo {
    std::size_t da = 0, a = 0;
};

Intervallo tratto(const Giro& giro, const Guida& guida) {
    const auto& fix = guida.fix();
    const auto& sessioni = guida.sessioni();
    const auto inizio = fix.begin() + static_cast<std::ptrdiff_t>(sessioni[giro.sessione]);
    const auto fine = giro.sessione + 1 < sessioni.size()
                          ? fix.begin() + static_cast<std::ptrdiff_t>(sessioni[giro.sessione + 1])
                          : fix.end();
    const auto prima = [](const Fix& f, double t) { return f.tempo < t; };
    const auto da = std::lower_bound(inizio, fine, *giro.inizio, prima);
    // What is driven in goes to the last fix, which belongs to it.
    const auto a = giro.stato == StatoGiro::rientro && !giro.ms ? fine : std::lower_bound(da, fine, *giro.fine, prima);
    return {static_cast<std::size_t>(da - fix.begin()), static_cast<std::size_t>(a - fix.begin())};
}

bool con_buco(const Guida& guida, const Intervallo& t, double inizio, double fine) {
    double ultimo = inizio;
    for (std::size_t i = t.da; i < t.a; ++i) {
        if (!guida.fix()[i].valido)
            continue;
        if (guida.fix()[i].tempo - ultimo > guida.buco())
            return true;
        ultimo = guida.fix()[i].tempo;
    }
    return fine - ultimo > guida.buco();
}

bool con_sosta(const Guida& guida, const Intervallo& t) {
    std::optional<double> da;
    for (std::size_t i = t.da; i < t.a; ++i) {
        const Fix& fix = guida.fix()[i];
        if (!fix.velocita || *fix.velocita >= FERMO)
            da.reset();
        else if (!da)
            da = fix.tempo;
        else if (fix.tempo - *da >= FERMO_A_LUNGO)
            return true;
    }
    return false;
}

Giro chiuso(const Guida& guida, const Passaggi& passaggi, const Passaggio& prima, const Passaggio& dopo) {
    Giro giro;
    giro.inizio = prima.tempo;
    giro.fine = dopo.tempo;
    giro.ms = millisecondi(dopo.tempo - prima.tempo);
    giro.sessione = guida.sessione(dopo.dopo);
    const Intervallo t = tratto(giro, guida);
    const bool contromano = std::any_of(passaggi.indietro.begin(), passaggi.indietro.end(), [&](const Passaggio& p) {
        return guida.sessione(p.dopo) == giro.sessione && p.tempo > prima.tempo && p.tempo < dopo.tempo;
    });
    giro.stato = prima.lento                                   ? StatoGiro::uscita
                 : dopo.lento                                  ? StatoGiro::rientro
                 : prima.senza_fix || dopo.senza_fix           ? StatoGiro::senza_fix
                 : con_buco(guida, t, prima.tempo, dopo.tempo) ? StatoGiro::senza_fix
                 : contromano                                  ? StatoGiro::contromano
                 : con_sosta(guida, t)                         ? StatoGiro::fermo
                                                               : StatoGiro::buono;
    return giro;
}

Giro aperto(std::size_t sessione, double inizio, double fine, StatoGiro stato) {
    Giro giro;
    giro.sessione = sessione;
    giro.inizio = inizio;
    giro.fine = fine;
    giro.stato = stato;
    return giro;
}

}  // namespace

std::string_view nome(StatoGiro stato) {
    static constexpr std::string_view NOMI[] = {"", "out", "in", "no fix", "wrong way", "stopped"};
    return NOMI[static_cast<std::size_t>(stato)];
}

std::vector<Giro> giri(const Guida& guida, const Passaggi& passaggi) {
    std::vector<Giro> tutti;
    const auto& fix = guida.fix();
    const auto& sessioni = guida.sessioni();
    auto p = passaggi.avanti.begin();
    for (std::size_t s = 0; s < sessioni.size(); ++s) {
        const std::size_t fine = s + 1 < sessioni.size() ? sessioni[s + 1] : fix.size();
        const Passaggio* ultimo = nullptr;
        for (; p != passaggi.avanti.end() && p->dopo < fine; ++p) {
            if (ultimo == nullptr && fix[sessioni[s]].tempo < p->tempo)
                tutti.push_back(aperto(s, fix[sessioni[s]].tempo, p->tempo, StatoGiro::uscita));
            else if (ultimo != nullptr)
                tutti.push_back(chiuso(guida, passaggi, *ultimo, *p));
            ultimo = &*p;
        }
        if (ultimo != nullptr && ultimo->tempo < fix[fine - 1].tempo)
            tutti.push_back(aperto(s, ultimo->tempo, fix[fine - 1].tempo, StatoGiro::rientro));
    }
    int numero = !tutti.empty() && !tutti.front().ms ? 0 : 1;
    for (Giro& giro : tutti)
        giro.numero = numero++;
    return tutti;
}

std::pair<std::size_t, std::size_t> fix_del_giro(const Giro& giro, const Guida& guida) {
    const Intervallo t = tratto(giro, guida);
    return {t.da, t.a};
}

void misura(std::span<Giro> giri, const Guida& guida) {
    for (Giro& giro : giri) {
        if (!giro.inizio || !giro.fine)
            continue;
        const Intervallo t = tratto(giro, guida);
        giro.campioni = t.a - t.da;
        for (std::size_t i = t.da; i < t.a; ++i)
            if (const auto velocita = guida.fix()[i].velocita ? guida.fix()[i].velocita : guida.velocita(i)) {
                giro.massima = std::max(giro.massima.value_or(*velocita), *velocita);
                giro.minima = std::min(giro.minima.value_or(*velocita), *velocita);
            }
        if (giro.massima)
            giro.metri = guida.metri(giro.sessione, *giro.fine) - guida.metri(giro.sessione, *giro.inizio);
    }
}

void dividi(std::span<Giro> giri, const Guida& guida, std::span<const Linea> intermedi) {
    struct Intermedio {
        Passaggi passaggi;
        double quando = 0;  // s from the start of a lap, in the middle of the laps that pass it
    };
    std::vector<Intermedio> tutti;
    for (const Linea& linea : intermedi)
        tutti.push_back({passaggi(guida, linea, MINIMO_INTERMEDIO), 0});
    // The first passage within a lap.
    const auto in = [&guida](const Giro& giro, const Intermedio& uno) -> std::optional<double> {
        const auto trovato =
            std::find_if(uno.passaggi.avanti.begin(), uno.passaggi.avanti.end(), [&](const Passaggio& p) {
                return guida.sessione(p.dopo) == giro.sessione && p.tempo > *giro.inizio && p.tempo < *giro.fine;
            });
        return trovato == uno.passaggi.avanti.end() || trovato->senza_fix ? std::nullopt
                                                                          : std::optional(trovato->tempo);
    };
    for (Intermedio& uno : tutti) {
        std::vector<double> tempi;
        for (const Giro& giro : giri)
            if (giro.ms && giro.inizio)
                if (const auto tempo = in(giro, uno))
                    tempi.push_back((*tempo - *giro.inizio) / (*giro.fine - *giro.inizio));
        std::sort(tempi.begin(), tempi.end());
        uno.quando = tempi.empty() ? 1 : tempi[tempi.size() / 2];
    }
    std::ranges::sort(tutti, {}, &Intermedio::quando);
    for (Giro& giro : giri) {
        giro.settori.assign(intermedi.empty() ? 0 : intermedi.size() + 1, std::nullopt);
        if (!giro.ms || !giro.inizio || intermedi.empty())
            continue;
        std::optional<int> prima = 0;
        for (std::size_t i = 0; i <= tutti.size(); ++i) {
            const auto tempo = i < tutti.size() ? in(giro, tutti[i]) : giro.fine;
            std::optional<int> dopo = i < tutti.size() && tempo ? std::optional(millisecondi(*tempo - *giro.inizio))
                                      : i < tutti.size()        ? std::nullopt
                                                                : giro.ms;
            if (prima && dopo && *dopo >= *prima)
                giro.settori[i] = *dopo - *prima;
            prima = dopo;
        }
    }
}

std::optional<Linea> linea_a_distanza(const Giro& giro, const Guida& guida, double metri) {
    if (!giro.inizio || metri >= giro.metri.value_or(0))
        return std::nullopt;
    const double voluti = guida.metri(giro.sessione, *giro.inizio) + metri;
    // The fixes of the lap, and one on either side: the lines of start and finish lie between two fixes.
    const auto stessa = [&](std::size_t i) { return i < guida.fix().size() && guida.sessione(i) == giro.sessione; };
    Intervallo t = tratto(giro, guida);
    t.da -= t.da > 0 && stessa(t.da - 1) ? 1 : 0;
    t.a += stessa(t.a) ? 1 : 0;
    std::optional<std::size_t> prima;
    for (std::size_t i = t.da; i < t.a; ++i) {
        if (!guida.fix()[i].valido)
            continue;
        const auto direzione = guida.direzione(i);
        if (guida.metri(i) >= voluti && prima && direzione && guida.metri(i) > guida.metri(*prima)) {
            if (guida.fix()[i].tempo - guida.fix()[*prima].tempo > guida.buco())
                return std::nullopt;  // the straight line between them is not where the track is
            const double parte = (voluti - guida.metri(*prima)) / (guida.metri(i) - guida.metri(*prima));
            const PuntoPiano p = guida.punto(*prima);
            const PuntoPiano q = guida.punto(i);
            return guida.linea({p.est + parte * (q.est - p.est), p.nord + parte * (q.nord - p.nord)}, *direzione,
                               Linea::LARGHEZZA);
        }
        if (guida.metri(i) < voluti)
            prima = i;
    }
    return std::nullopt;
}

const Giro* migliore(std::span<const Giro> giri) {
    const Giro* primo = nullptr;
    for (const Giro& giro : giri)
        if (giro.ms && giro.stato == StatoGiro::buono && (primo == nullptr || *giro.ms < *primo->ms))
            primo = &giro;
    return primo;
}

}  // namespace kel_registrazioni
