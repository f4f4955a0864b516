#include "laps/ricerca_linea.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "laps/passaggi.h"

namespace kel_registrazioni {

namespace {

constexpr double VELOCITA_MINIMA = 5;  // m/s: walking is no driving
constexpr double PARTE_VELOCE = 0.3;   // of a high speed
constexpr double CELLA = 20;           // m
constexpr double DISTANZA = 10;        // m from candidate to candidate
constexpr std::size_t CANDIDATI = 3000;
constexpr std::size_t FINALISTI = 40;
constexpr double COSENO_MINIMO = 0.70;

struct Candidato {
    std::size_t fix = 0;
    std::size_t volte = 0;
    double velocita = 0;  // on average of the times
};

// Of equals the first one driven over.
bool meglio(const Candidato& a, const Candidato& b) {
    return std::tuple(a.volte, a.velocita, b.fix) > std::tuple(b.volte, b.velocita, a.fix);
}

// A speed that one moving fix in ten is above: the greatest may be a receiver's slip, and then nothing else were fast.
double velocita_alta(const Guida& guida) {
    std::vector<double> velocita;
    for (const std::size_t i : guida.validi())
        if (const double una = guida.velocita(i).value_or(0); una >= VELOCITA_MINIMA)
            velocita.push_back(una);
    if (velocita.empty())
        return 0;
    const auto alta = velocita.begin() + static_cast<std::ptrdiff_t>(velocita.size() * 9 / 10);
    std::nth_element(velocita.begin(), alta, velocita.end());
    return *alta;
}

// The fixes at speed, by the square that they lie in.
class Quadri {
public:
    explicit Quadri(const Guida& guida) : guida_(guida) {
        const double alta = velocita_alta(guida);
        const double minima = std::max(VELOCITA_MINIMA, PARTE_VELOCE * alta);
        for (const std::size_t i : guida.validi())
            if (guida.velocita(i).value_or(0) >= minima && guida.direzione(i)) {
                celle_[cella(guida.punto(i), 0, 0)].push_back(i);
                veloci_.push_back(i);
            }
        // Slow receivers are tens of metres on from one solution to the next.
        raggio_ = std::max(CELLA, alta * guida.buco() / 4);
        intorno_ = static_cast<int>(std::min(std::ceil(raggio_ / CELLA), 10.0));
    }

    const std::vector<std::size_t>& veloci() const { return veloci_; }

    // How often, and how fast, the place of a fix is passed in its direction.
    Candidato conta(std::size_t fix, double minimo) const {
        const PuntoPiano qui = guida_.punto(fix);
        const PuntoPiano verso = *guida_.direzione(fix);
        std::vector<std::size_t> vicini;
        for (int x = -intorno_; x <= intorno_; ++x)
            for (int y = -intorno_; y <= intorno_; ++y)
                if (const auto cella_vicina = celle_.find(cella(qui, x, y)); cella_vicina != celle_.end())
                    vicini.insert(vicini.end(), cella_vicina->second.begin(), cella_vicina->second.end());
        std::sort(vicini.begin(), vicini.end());
        Candidato candidato{fix, 0, 0};
        std::optional<std::size_t> ultimo;
        for (const std::size_t i : vicini) {
            const PuntoPiano direzione = *guida_.direzione(i);
            if (distanza(qui, guida_.punto(i)) > raggio_ ||
                direzione.est * verso.est + direzione.nord * verso.nord < COSENO_MINIMO)
                continue;
            if (!ultimo || std::fabs(guida_.fix()[i].tempo - guida_.fix()[*ultimo].tempo) >= minimo) {
                ++candidato.volte;
                candidato.velocita += *guida_.velocita(i);
            }
            ultimo = i;
        }
        candidato.velocita /= static_cast<double>(std::max<std::size_t>(1, candidato.volte));
        return candidato;
    }

private:
    static std::uint64_t cella(const PuntoPiano& punto, int x, int y) {
        const auto indice = [](double metri, int passi) {
            const double quale = std::clamp(std::floor(metri / CELLA) + passi, -2e9, 2e9);
            return static_cast<std::uint32_t>(static_cast<std::int64_t>(quale));
        };
        return std::uint64_t{indice(punto.est, x)} << 32 | indice(punto.nord, y);
    }

    const Guida& guida_;
    std::unordered_map<std::uint64_t, std::vector<std::size_t>> celle_;
    std::vector<std::size_t> veloci_;
    double raggio_ = CELLA;
    int intorno_ = 1;
};

std::vector<std::size_t> sparsi(const Guida& guida, const std::vector<std::size_t>& veloci) {
    std::vector<std::size_t> scelti;
    for (const std::size_t i : veloci)
        if (scelti.empty() || std::fabs(guida.metri(i) - guida.metri(scelti.back())) >= DISTANZA)
            scelti.push_back(i);
    if (scelti.size() <= CANDIDATI)
        return scelti;
    std::vector<std::size_t> meno;
    for (std::size_t n = 0; n < CANDIDATI; ++n)
        meno.push_back(scelti[n * scelti.size() / CANDIDATI]);
    return meno;
}

// As it will be written: what is printed gives the same passages.
Linea scritta(const Linea& linea) {
    return leggi_linea(testo(linea)).value_or(linea);
}

// The passages at speed, exactly.
LineaTrovata passata(const Guida& guida, const Linea& linea, double minimo) {
    LineaTrovata trovata{linea, 0, 0};
    for (const Passaggio& uno : passaggi(guida, linea, minimo).avanti)
        if (!uno.lento && !uno.senza_fix) {
            ++trovata.volte;
            trovata.velocita += uno.velocita;
        }
    trovata.velocita /= static_cast<double>(std::max<std::size_t>(1, trovata.volte));
    return trovata;
}

// The same line moved to the middle of where it is passed, so that its ends lie alike on both sides.
Linea centrata(const Guida& guida, const Linea& linea, double minimo) {
    const LineaPiana piana = guida.linea(linea);
    PuntoPiano centro;
    PuntoPiano direzione;
    double quanti = 0;
    for (const Passaggio& uno : passaggi(guida, linea, minimo).avanti) {
        const auto verso = guida.direzione(uno.dopo);
        if (uno.lento || uno.senza_fix || !verso)
            continue;
        const double fianco = piana.a_destra(guida.punto(uno.dopo));
        centro.est += piana.centro.est + fianco * piana.dir_nord;
        centro.nord += piana.centro.nord - fianco * piana.dir_est;
        direzione.est += verso->est;
        direzione.nord += verso->nord;
        ++quanti;
    }
    return quanti == 0 ? linea : guida.linea({centro.est / quanti, centro.nord / quanti}, direzione, linea.larghezza);
}

}  // namespace

std::optional<LineaTrovata> cerca_linea(const Guida& guida, double minimo) {
    const Quadri quadri(guida);
    std::vector<Candidato> candidati;
    for (const std::size_t fix : sparsi(guida, quadri.veloci()))
        if (const Candidato uno = quadri.conta(fix, minimo); uno.volte > 1)
            candidati.push_back(uno);
    const auto fine = candidati.begin() + static_cast<std::ptrdiff_t>(std::min(FINALISTI, candidati.size()));
    std::partial_sort(candidati.begin(), fine, candidati.end(), meglio);
    std::optional<LineaTrovata> migliore;
    for (auto uno = candidati.begin(); uno != fine; ++uno) {
        const Linea linea = scritta(guida.linea(guida.punto(uno->fix), *guida.direzione(uno->fix), Linea::LARGHEZZA));
        const LineaTrovata trovata = passata(guida, linea, minimo);
        if (trovata.volte > 1 && (!migliore || std::tuple(trovata.volte, trovata.velocita) >
                                                   std::tuple(migliore->volte, migliore->velocita)))
            migliore = trovata;
    }
    if (!migliore)
        return std::nullopt;
    const LineaTrovata al_centro = passata(guida, scritta(centrata(guida, migliore->linea, minimo)), minimo);
    return al_centro.volte >= migliore->volte ? al_centro : migliore;
}

}  // namespace kel_registrazioni
