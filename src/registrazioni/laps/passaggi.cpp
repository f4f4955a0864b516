#include "laps/passaggi.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace kel_registrazioni {

namespace {

constexpr double CONFERMA = 10;         // m behind the line
constexpr double AL_PASSO = 2;          // m/s
constexpr double TREMOLIO = 2;          // s between the first and the last time that noise crosses the line
constexpr double COSENO_MINIMO = 0.70;  // of the angle to the line's direction

// A polynomial of third degree through two positions with their speeds tells when the line was met: between fixes a
// second apart a kart that brakes is some metres from where even motion would have it.
double incontro(double da, double a, double v_da, double v_a, double dt) {
    const double media = (a - da) / dt;
    const auto credibile = [media](double v) { return v > media / 2 && v < media * 2; };
    const double lineare = -da / (a - da);
    if (!credibile(v_da) || !credibile(v_a))
        return lineare;
    const double c1 = v_da * dt;
    const double c2 = 3 * (a - da) - (2 * v_da + v_a) * dt;
    const double c3 = 2 * (da - a) + (v_da + v_a) * dt;
    double prima = 0;
    double dopo = 1;
    for (int passo = 0; passo < 40; ++passo) {
        const double mezzo = (prima + dopo) / 2;
        (da + mezzo * (c1 + mezzo * (c2 + mezzo * c3)) < 0 ? prima : dopo) = mezzo;
    }
    return (prima + dopo) / 2;
}

class Cercatore {
public:
    Cercatore(const Guida& guida, const Linea& linea, double minimo)
        : guida_(guida), linea_(guida.linea(linea)), minimo_(minimo) {}

    Passaggi cerca() && {
        const std::vector<std::size_t>& validi = guida_.validi();
        for (std::size_t i = 0; i < validi.size(); ++i) {
            const bool nuova = i == 0 || guida_.sessione(validi[i - 1]) != guida_.sessione(validi[i]);
            if (nuova)
                fine_sessione();
            else
                tratto(validi[i - 1], validi[i]);
        }
        fine_sessione();
        return std::move(trovati_);
    }

private:
    // The line has been met and is not left behind yet.
    struct Attesa {
        Passaggio passaggio;
        double primo = 0;  // when it was met for the first time
        PuntoPiano dove;
        bool avanti = true;
    };

    void tratto(std::size_t prima, std::size_t dopo) {
        const double da = linea_.oltre(guida_.punto(prima));
        const double a = linea_.oltre(guida_.punto(dopo));
        if ((da < 0) != (a < 0))
            incontra(prima, dopo, da, a);
        if (attesa_)
            conferma(dopo, a);
    }

    void incontra(std::size_t prima, std::size_t dopo, double da, double a) {
        const Fix& f_prima = guida_.fix()[prima];
        const Fix& f_dopo = guida_.fix()[dopo];
        const double dt = f_dopo.tempo - f_prima.tempo;
        const bool avanti = a >= 0;
        const double verso = avanti ? 1 : -1;
        const double v_prima = verso * lungo_la_linea(prima).value_or(0);
        const double v_dopo = verso * lungo_la_linea(dopo).value_or(0);
        const double parte = dt > 0 ? incontro(verso * da, verso * a, v_prima, v_dopo, dt) : 1;
        const PuntoPiano& p = guida_.punto(prima);
        const PuntoPiano& q = guida_.punto(dopo);
        const PuntoPiano dove{p.est + parte * (q.est - p.est), p.nord + parte * (q.nord - p.nord)};
        if (std::fabs(linea_.a_destra(dove)) > linea_.larghezza / 2 || !nella_direzione(prima, dopo, verso))
            return;
        const double v = guida_.velocita(prima).value_or(0);
        const double velocita = v + parte * (guida_.velocita(dopo).value_or(0) - v);  // v itself where both are v
        const double tempo = f_prima.tempo + parte * dt;
        const bool lento = velocita < AL_PASSO;
        const bool senza_fix = dt > guida_.buco();
        Attesa nuova{{tempo, dopo, velocita, lento, senza_fix}, tempo, dove, avanti};
        if (attesa_)  // to and fro
            nuova.primo = attesa_->primo;
        attesa_ = nuova;
    }

    // Speed across the line; nothing where no direction is known.
    std::optional<double> lungo_la_linea(std::size_t fix) const {
        const auto direzione = guida_.direzione(fix);
        const auto velocita = guida_.velocita(fix);
        if (!direzione || !velocita)
            return std::nullopt;
        return *velocita * (direzione->est * linea_.dir_est + direzione->nord * linea_.dir_nord);
    }

    bool nella_direzione(std::size_t prima, std::size_t dopo, double verso) const {
        double coseno = 0;
        double quante = 0;
        for (const std::size_t i : {prima, dopo})
            if (const auto direzione = guida_.direzione(i)) {
                coseno += direzione->est * linea_.dir_est + direzione->nord * linea_.dir_nord;
                ++quante;
            }
        return quante == 0 || verso * coseno / quante >= COSENO_MINIMO;  // standing has no direction
    }

    void conferma(std::size_t dopo, double oltre) {
        if (distanza(attesa_->dove, guida_.punto(dopo)) < CONFERMA)
            return;
        if ((oltre >= 0) == attesa_->avanti)
            accetta();
        attesa_.reset();
    }

    void accetta() {
        Passaggio uno = attesa_->passaggio;
        // Noise may cross the line several times; the middle of the first and the last crossing is taken.
        const double tremolio = uno.tempo - attesa_->primo;
        if (tremolio <= TREMOLIO)
            uno.tempo -= tremolio / 2;
        uno.lento = uno.lento || tremolio > TREMOLIO;
        if (!attesa_->avanti) {
            trovati_.indietro.push_back(uno);
        } else if (ultimo_ && uno.tempo - *ultimo_ < minimo_) {
            ++trovati_.scartati;
        } else {
            ultimo_ = uno.tempo;
            trovati_.avanti.push_back(uno);
        }
    }

    // A recording may end right behind the line.
    void fine_sessione() {
        if (attesa_ && attesa_->avanti && !attesa_->passaggio.lento)
            accetta();
        attesa_.reset();
        ultimo_.reset();
    }

    const Guida& guida_;
    LineaPiana linea_;
    double minimo_;
    std::optional<Attesa> attesa_;
    std::optional<double> ultimo_;
    Passaggi trovati_;
};

}  // namespace

Passaggi passaggi(const Guida& guida, const Linea& linea, double minimo) {
    return Cercatore(guida, linea, minimo).cerca();
}

}  // namespace kel_registrazioni
