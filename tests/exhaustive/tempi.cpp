// All lap times through every text, and the texts back.
//
// A part holds the lap times of one value of the top bits. The model is asked again only when one of the parts of a
// time changes that the text shows.
#include <array>
#include <cstdint>
#include <stdexcept>

#include "CLaptimeAndStrings.h"
#include "exhaustive/lettore.h"
#include "exhaustive/spazi.h"
#include "model/tempi.h"

namespace esaustivo {

namespace {

constexpr unsigned PARTI = 1024;
constexpr std::uint32_t PER_PARTE = 1U << 22;

// What the text of a time shows: from one hour on its hours, and the rest (without a sign) to the second; below, all.
std::int64_t mostrato(std::int32_t t) {
    const std::int64_t ore = t / 3600000;
    const auto resto = static_cast<std::uint32_t>(t - ore * 3600000);
    return ore * (std::int64_t{1} << 32) + (ore == 0 ? resto : resto / 1000);
}

// Around no time, an hour, ten and a hundred hours, the longest and the shortest time.
const std::vector<unsigned> NOTEVOLI = {0, 8, 85, 511, 512, 1023};

template <typename Prova>
void per_ogni_tempo(unsigned parte, Prova prova) {
    for (std::uint32_t i = 0; i < PER_PARTE; i++)
        prova(static_cast<std::int32_t>(parte * PER_PARTE + i));
}

void testi(unsigned parte, Conta& conta) {
    std::int64_t chiave = INT64_MIN;
    std::string atteso;
    std::int32_t riletto = 0;
    per_ogni_tempo(parte, [&](std::int32_t t) {
        if (mostrato(t) != chiave) {
            chiave = mostrato(t);
            atteso = modello::tempo(t);
            riletto = modello::leggi_tempo(atteso);
        }
        const std::string testo = CLaptimeAndStrings::LapTimeToStringa(t);
        conta.testi(testo, atteso, [&] { return std::to_string(t); });
        conta.numeri(CLaptimeAndStrings::StringaToLapTime(testo), riletto,
                     [&]() -> const std::string& { return testo; });
    });
}

// Lap numbers of every length go round with the times.
void righe(unsigned parte, Conta& conta) {
    constexpr std::array<std::int32_t, 8> numeri = {7, 0, 42, 999, 1000, -1, 2147483647, -2147483647 - 1};
    struct Attesa {
        std::int64_t chiave = INT64_MIN;
        std::string testo;
        modello::Giro giro{0, 0};
    };
    std::array<Attesa, numeri.size()> attese;
    per_ogni_tempo(parte, [&](std::int32_t t) {
        const std::size_t quale = static_cast<std::uint32_t>(t) % numeri.size();
        Attesa& attesa = attese[quale];
        if (mostrato(t) != attesa.chiave) {
            attesa.chiave = mostrato(t);
            attesa.testo = modello::riga_giro(numeri[quale], t);
            attesa.giro = modello::leggi_giro(attesa.testo);
        }
        const std::string testo = CLaptimeAndStrings::LapNumAndTimeToStringa(numeri[quale], t);
        conta.testi(testo, attesa.testo, [&] { return std::to_string(numeri[quale]) + ", " + std::to_string(t); });
        int numero = -77;
        int tempo = -78;
        CLaptimeAndStrings::StringaToLapNumAndTime(testo, numero, tempo);
        conta.caso(numero == attesa.giro.numero && tempo == attesa.giro.tempo.value_or(-78),
                   static_cast<std::uint32_t>(numero) + (static_cast<std::uint64_t>(tempo) << 32),
                   [&] { return testo + ": library " + std::to_string(numero) + ", " + std::to_string(tempo); });
    });
}

// Texts of one sample type in one look. Hundredths are the finest that they show, seconds from one hour on; the sign of
// a difference counts as well.
void campioni(unsigned parte, Conta& conta, unsigned tipo, unsigned decimali, unsigned larghezza) {
    modello::Canale canale;
    canale.fid = tipo == 7 ? 0x9A : 0x992;
    canale.tipo = tipo;
    Lettore lettore(canale, canale.fid, unita_identita());
    lettore.aspetto({larghezza, decimali, 0, 0});
    const std::uint32_t posto = tipo == 7 ? 4 : 0;
    std::array<modello::Byte, 28> campione{};
    std::int64_t chiave = INT64_MIN;
    std::string atteso;
    per_ogni_tempo(parte, [&](std::int32_t t) {
        const auto grezzo = static_cast<std::uint32_t>(t);
        for (std::uint32_t i = 0; i < 4; i++)
            campione[posto + i] = static_cast<modello::Byte>(grezzo >> (8 * i));
        const std::int64_t questa = (static_cast<std::int64_t>(t) / 10) * 2 + (t < 0 ? 1 : 0);
        if (questa != chiave) {
            chiave = questa;
            atteso = lettore.modello.testo(campione.data());
        }
        conta.testi(lettore.testo_libreria(campione.data()), atteso, [&] {
            return "sample type " + std::to_string(tipo) + " decimals " + std::to_string(decimali) + " width " +
                   std::to_string(larghezza) + ", " + std::to_string(t) + " ms";
        });
    });
}

Spazio campioni_di(const std::string& nome, const std::string& descrizione, unsigned tipo, unsigned decimali,
                   unsigned larghezza) {
    return {nome,
            descrizione,
            PARTI,
            128,
            [=](unsigned parte, Conta& conta) { campioni(parte, conta, tipo, decimali, larghezza); },
            NOTEVOLI};
}

}  // namespace

std::vector<Spazio> spazi_tempi() {
    return {{"lap-texts", "all lap times as texts and back", PARTI, 64, testi, NOTEVOLI},
            {"lap-lines", "all lap times in lines with lap numbers, and back", PARTI, 64, righe, NOTEVOLI},
            campioni_di("lap-normal", "all lap time samples", 12, 2, 8),
            campioni_di("lap-tenths", "all lap time samples in tenths", 12, 1, 8),
            campioni_di("lap-compact", "all lap time samples in the compact form", 12, 2, 5),
            campioni_di("lap-compact-1", "all lap time samples in the compact form in tenths", 12, 1, 5),
            campioni_di("lap-packet", "all times of lap packets", 7, 2, 8),
            campioni_di("diff-normal", "all time difference samples", 24, 2, 8),
            campioni_di("diff-compact", "all time difference samples in the compact form", 24, 2, 5)};
}

}  // namespace esaustivo
