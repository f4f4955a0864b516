// A recording made up here, and what is asked of every answer of the C face.
#ifndef KEL_TEST_REGISTRAZIONI_PROVA_H
#define KEL_TEST_REGISTRAZIONI_PROVA_H

#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "kelregistrazioni.h"

namespace prova {

using Byte = std::vector<std::uint8_t>;

struct Chiudi {
    void operator()(s_kel_registrazione* reg) const { kelRegChiudi(reg); }
};
using Registrazione = std::unique_ptr<s_kel_registrazione, Chiudi>;

template <typename Intero>
void aggiungi(Byte& byte, Intero valore) {
    for (std::size_t i = 0; i < sizeof valore; ++i)
        byte.push_back(static_cast<std::uint8_t>(static_cast<std::uint64_t>(valore) >> 8 * i));
}

/// One record after the other of a kart: speed as half float, RPM, a text, GPS and laps.
class Kart {
public:
    Kart() {
        canale(kelFidComponi(FID_PHI_SPEED, 0, FID_POS_WHEEL), KEL_TIPO_MEZZO_FLOAT, "Wheel Speed");
        canale(kelFidComponi(FID_PHI_RPM, 0, FID_POS_ENGINE), KEL_TIPO_INT16, "RPM");
        canale(0, KEL_TIPO_NUMERO_TESTO_6, "Note \xE8");
        canale(kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, FID_SPEC_GPS_KELNAVSOL), KEL_TIPO_GPS_KEL, "GPS");
        canale(kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_LAPTIME, FID_SPEC_LAPTIME_KEL2G), KEL_TIPO_LAP_2G, "Lap");
    }

    const Byte& canali() const { return canali_; }
    std::size_t dimensione() const { return offset_; }

    /// Records with stamps of 32 bits, every 40 ms from `da_ms` on.
    Byte campioni(std::size_t record, std::uint32_t da_ms = 0) const {
        Byte byte;
        for (std::size_t i = 0; i < record; ++i) {
            const auto ms = static_cast<std::uint32_t>(da_ms + i * 40);
            aggiungi(byte, ms);
            aggiungi(byte, static_cast<std::uint16_t>(kelF16compress(numero(static_cast<float>(i) * 0.5f))));
            // Every seventh sample is one of the reserved values.
            aggiungi(byte, static_cast<std::uint16_t>(i % 7 == 3 ? 0xCFFF : 2000 + i % 1000));
            aggiungi(byte, static_cast<std::uint16_t>(i));
            for (const char c : {'l', 'a', 'p', '\xE8', '\0', '\0'})
                byte.push_back(static_cast<std::uint8_t>(c));
            gps(byte, ms, i % 5 == 4 ? 0 : 3, static_cast<std::int32_t>(i));
            lap(byte, static_cast<std::uint16_t>(i / 10), static_cast<std::int32_t>(50000 + i / 10));
        }
        return byte;
    }

private:
    static unsigned numero(float valore) {
        unsigned bit = 0;
        std::memcpy(&bit, &valore, sizeof bit);
        return bit;
    }

    void canale(kel_funpos fid, std::uint32_t tipo, const char* nome) {
        Byte uno(112);
        const auto metti = [&uno](std::size_t da, std::uint32_t valore) {
            for (std::size_t i = 0; i < 4; ++i)
                uno[da + i] = static_cast<std::uint8_t>(valore >> 8 * i);
        };
        metti(12, fid);
        metti(20, tipo);
        std::memcpy(uno.data() + 32, nome, std::strlen(nome));
        metti(68, static_cast<std::uint32_t>(offset_));
        metti(72, kelFunGetSamplSize(tipo));
        offset_ += kelFunGetSamplSize(tipo);
        canali_.insert(canali_.end(), uno.begin(), uno.end());
    }

    static void gps(Byte& byte, std::uint32_t ms, std::uint8_t fix, std::int32_t passo) {
        aggiungi(byte, ms);
        aggiungi(byte, 345600000 + ms);
        aggiungi(byte, std::int32_t{0});
        aggiungi(byte, std::uint16_t{2370});
        byte.push_back(fix);
        byte.push_back(0x0C);
        for (const std::int32_t cm : {445500000 + passo, 93000000, 444600000})
            aggiungi(byte, cm);
        aggiungi(byte, std::uint32_t{162});
        for (const std::int32_t cm_s : {300, -250, 310})
            aggiungi(byte, cm_s);
        aggiungi(byte, std::uint32_t{28});
        aggiungi(byte, std::uint16_t{100});
        byte.push_back(0);
        byte.push_back(9);
        aggiungi(byte, std::uint32_t{0});
    }

    static void lap(Byte& byte, std::uint16_t numero, std::int32_t ms) {
        byte.push_back(1);
        byte.push_back(0);
        aggiungi(byte, numero);
        for (const std::int32_t tempo : {ms, 0, ms, 0, 0, 0})
            aggiungi(byte, tempo);
    }

    Byte canali_;
    std::size_t offset_ = 0;
};

Registrazione apri(const Byte& canali, Byte&& campioni, s_kel_apertura apertura = {}) = delete;  // they must stay
inline Registrazione apri(const Byte& canali, const Byte& campioni, s_kel_apertura apertura = {}) {
    s_kel_errore errore{};
    return Registrazione(
        kelRegApri(canali.data(), canali.size(), campioni.data(), campioni.size(), &apertura, &errore));
}

/// The column of a name; the number of columns where there is none.
inline unsigned colonna(const s_kel_registrazione* reg, const std::string& nome) {
    s_kel_descrizione descrizione{};
    unsigned i = 0;
    while (kelRegDescrivi(reg, i, &descrizione) == 1 && nome != descrizione.nome)
        ++i;
    return i;
}

}  // namespace prova

#endif
