#include "flotta.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <iterator>

#include "messaggi.h"
#include "orologio.h"
#include "uscita.h"

namespace kel::simulatore {

namespace {

struct Pista {
    Geodetiche luogo;
    double lunghezza = 0;  // m
};

// Made up, in the plain of the Po and south of it.
constexpr Pista PISTE[] = {
    {{44.8231, 10.4107, 62}, 1000}, {{45.1042, 9.6913, 71}, 1150},  {{44.5127, 11.2384, 41}, 900},
    {{43.9835, 12.1276, 35}, 1250}, {{45.3318, 11.0549, 38}, 1050},
};
constexpr unsigned PER_KART = 100;               // recordings of one kart in a season
constexpr unsigned AL_GIORNO = 4;                // of these on one day
constexpr unsigned GIORNI_TRA = 3;               // from one day on the track to the next
constexpr std::uint32_t PRIMA_SETTIMANA = 2356;  // GPS week of 2 March 2025
constexpr std::uint32_t GIORNO_MS = 86400000, ORA_MS = 3600000, PRIMA_ORA = 8;
constexpr std::uint32_t INTERCALARI_MS = 18000;  // by which GPS time is ahead of UTC
constexpr unsigned UNA_CATTURA_SU = 10;          // sessions of which one is the receiver's own capture

// splitmix64: the number that belongs to another.
std::uint64_t sparso(std::uint64_t numero) {
    std::uint64_t z = numero + 0x9E3779B97F4A7C15u;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    return z ^ (z >> 31);
}

// One session in twelve has a fault, each of the three as often.
Guasto guasto(std::uint64_t numero) {
    constexpr Guasto GUASTI[] = {Guasto::sonda_staccata, Guasto::surriscaldamento, Guasto::olio_basso};
    const std::uint64_t quale = numero % 36;
    return quale < std::size(GUASTI) ? GUASTI[quale] : Guasto::nessuno;
}

std::string rumore(std::size_t quanti, std::uint64_t seme) {
    std::string byte(quanti, '\0');
    for (std::size_t i = 0; i < quanti; ++i)
        byte[i] = static_cast<char>(sparso(seme + i) & 0xFF);
    return byte;
}

}  // namespace

Flotta::Flotta(unsigned quante, unsigned guaste, unsigned giri, unsigned frequenza, std::uint64_t seme)
    : quante_(quante),
      guaste_(guaste),
      giri_(giri),
      frequenza_(frequenza),
      seme_(seme),
      kart_((quante + PER_KART - 1) / PER_KART) {
    kart_ = std::max(kart_, std::min(quante, 4u));  // a small fleet has different karts, too
    for (const Pista& pista : PISTE)
        circuiti_.emplace_back(pista.lunghezza);
}

// The damaged ones lie evenly among the others, each kind as often.
Danno Flotta::danno(unsigned quale) const {
    constexpr Danno DANNI[] = {Danno::canali_mozzi, Danno::canali_corrotti, Danno::campioni_mancanti};
    const auto fino_a = [this](unsigned n) { return std::uint64_t{n} * guaste_ / quante_; };
    if (fino_a(quale + 1) == fino_a(quale))
        return Danno::nessuno;
    return DANNI[fino_a(quale) % std::size(DANNI)];
}

Sessione Flotta::sessione(unsigned quale) const {
    const unsigned kart = quale % kart_;
    const unsigned numero = quale / kart_;
    const unsigned giorno = numero / AL_GIORNO;
    const std::uint64_t caso = sparso(seme_ ^ sparso(quale));
    Sessione s;
    s.circuito = giorno % static_cast<unsigned>(std::size(PISTE));
    const std::uint64_t ms = std::uint64_t{giorno} * GIORNI_TRA * GIORNO_MS +
                             (PRIMA_ORA + std::uint64_t{2} * (numero % AL_GIORNO)) * ORA_MS + INTERCALARI_MS +
                             std::uint64_t{kart % 60} * 10000;
    s.partenza.settimana = static_cast<std::uint32_t>(PRIMA_SETTIMANA + ms / SETTIMANA_MS);
    s.partenza.settimana_ms = static_cast<std::uint32_t>(ms % SETTIMANA_MS);
    s.partenza.ritmo = 1 - 0.0001 * static_cast<double>(sparso(seme_ + kart) % 500);
    s.giri = 1 + static_cast<unsigned>(caso % giri_);
    s.frequenza = kart % 4 == 3 ? (frequenza_ + 1) / 2 : frequenza_;
    s.seme = caso;
    s.danno = danno(quale);
    s.cattura = s.danno == Danno::nessuno && sparso(~caso) % UNA_CATTURA_SU == 0;
    s.guasto = guasto(sparso(caso));
    const Utc ora = utc(s.partenza.settimana, s.partenza.settimana_ms);
    char testo[64];
    std::snprintf(testo, sizeof testo, "kart-%03u/%04u-%02u-%02u", kart + 1, ora.anno, ora.mese, ora.giorno);
    s.cartella = testo;
    std::snprintf(testo, sizeof testo, "kart-%03u-%02u%02u", kart + 1, ora.ore, ora.minuti);
    s.nome = testo;
    return s;
}

void Flotta::scrivi(const std::string& cartella) const {
    for (unsigned quale = 0; quale < quante_; ++quale) {
        const Sessione s = sessione(quale);
        const std::filesystem::path dove = std::filesystem::path(cartella) / s.cartella;
        std::filesystem::create_directories(dove);
        scrivi_sessione(s, (dove / s.nome).string());
    }
}

void Flotta::scrivi_sessione(const Sessione& s, const std::string& senza_fine) const {
    const Circuito& circuito = circuiti_[s.circuito];
    const PianoLocale piano(PISTE[s.circuito].luogo);
    Kart kart(circuito, s.partenza, s.giri, s.frequenza, s.seme);
    if (s.cattura) {
        Uscita cattura(senza_fine + ".ubx");
        registrazione(
            kart, piano, [&cattura](const std::string& byte) { cattura.scrivi(byte); }, Soluzioni::pvt);
        cattura.chiudi();
        return;
    }
    Centralina centralina(circuito.lunghezza(), s.guasto);
    std::string byte = centralina.canali();
    if (s.danno == Danno::canali_mozzi)
        byte.resize(byte.size() / 2 + 1);
    if (s.danno == Danno::canali_corrotti)
        byte = rumore(byte.size(), s.seme);
    Uscita canali(senza_fine + ".channels");
    canali.scrivi(byte);
    canali.chiudi();
    if (s.danno == Danno::campioni_mancanti)
        return;
    Uscita campioni(senza_fine + ".samples");
    for (Istante istante; kart.prossimo(istante);)
        campioni.scrivi(centralina.record(istante, piano));
    campioni.chiudi();
}

}  // namespace kel::simulatore
