// Every raw value of every sample type up to 32 bits, in every unit row, linear and reciprocal.
#include <array>
#include <set>
#include <vector>

#include "exhaustive/lettore.h"
#include "exhaustive/spazi.h"

namespace esaustivo {

namespace {

constexpr unsigned PARTI = 4096;
constexpr std::uint32_t PER_PARTE = 1U << 20;

// Around 0 and the longest numbers of both signs, with the reserved samples; floats of 0, 1, infinity and NaN.
const std::vector<unsigned> INTERI_NOTEVOLI = {0, 0x7FF, 0x800, 0xFFF};
const std::vector<unsigned> REALI_NOTEVOLI = {0, 0x3F8, 0x7F8, 0x800, 0xBF8, 0xFF8};

// Rows of the unit tables with different numbers, each linear and reciprocal.
std::vector<modello::RigaUdm> righe() {
    std::vector<modello::RigaUdm> tutte;
    std::set<std::pair<float, float>> viste;
    for (const auto& [nome, tabella] : modello::tabelle().udm)
        for (modello::RigaUdm riga : tabella)
            if (viste.insert({riga.offset, riga.gain}).second)
                for (const int reciproco : {0, 1}) {
                    riga.reciproco = reciproco;
                    tutte.push_back(riga);
                }
    return tutte;
}

std::string dove(unsigned tipo, const modello::RigaUdm& riga, std::uint32_t grezzo) {
    return "sample type " + std::to_string(tipo) + " unit " + riga.testo + (riga.reciproco != 0 ? " reciprocal" : "") +
           " raw " + esadecimale(grezzo);
}

std::array<modello::Byte, 4> byte_di(std::uint32_t grezzo) {
    return {static_cast<modello::Byte>(grezzo), static_cast<modello::Byte>(grezzo >> 8),
            static_cast<modello::Byte>(grezzo >> 16), static_cast<modello::Byte>(grezzo >> 24)};
}

void confronta(Conta& conta, const s_kel_converter& conv, const void* campione, const modello::Letto& atteso,
               unsigned tipo, const modello::RigaUdm& riga, std::uint32_t grezzo) {
    std::uint32_t stato = 0xFFFFFFFF;
    const float valore = conv.valore(&conv, campione, &stato);
    const auto bit = std::bit_cast<std::uint32_t>(valore);
    conta.caso(bit == std::bit_cast<std::uint32_t>(atteso.valore) && stato == atteso.stato,
               bit + (static_cast<std::uint64_t>(stato) << 32), [&] {
                   return dove(tipo, riga, grezzo) + ": library " + Conta::esatto(valore) + " status " +
                          std::to_string(stato) + ", model " + Conta::esatto(atteso.valore) + " status " +
                          std::to_string(atteso.stato);
               });
}

modello::Canale canale(unsigned tipo) {
    modello::Canale uno;
    uno.fid = 0x10;
    uno.tipo = tipo;
    return uno;
}

// The value of an integer depends only on the float that it becomes, reserved samples aside: the model is asked again
// only when that changes.
template <typename Intero>
void interi(unsigned parte, Conta& conta, unsigned tipo) {
    for (const modello::RigaUdm& riga : righe()) {
        const Lettore lettore(canale(tipo), 0x10, riga);
        modello::Letto atteso = lettore.modello.valore(byte_di(parte * PER_PARTE).data());
        auto reale = static_cast<float>(static_cast<Intero>(parte * PER_PARTE));
        for (std::uint32_t i = 0; i < PER_PARTE; i++) {
            const std::uint32_t grezzo = parte * PER_PARTE + i;
            const auto questo = static_cast<float>(static_cast<Intero>(grezzo));
            if (questo != reale || grezzo >= 0xFFFFCFFC) {
                reale = questo;
                atteso = lettore.modello.valore(byte_di(grezzo).data());
            }
            confronta(conta, lettore.libreria, &grezzo, atteso, tipo, riga, grezzo);
        }
    }
}

void reali(unsigned parte, Conta& conta) {
    for (const modello::RigaUdm& riga : righe()) {
        const Lettore lettore(canale(6), 0x10, riga);
        for (std::uint32_t i = 0; i < PER_PARTE; i++) {
            const std::uint32_t grezzo = parte * PER_PARTE + i;
            confronta(conta, lettore.libreria, &grezzo, lettore.modello.valore(byte_di(grezzo).data()), 6, riga,
                      grezzo);
        }
    }
}

// Lap times, coordinates and time differences are read by the same functions as signed 32-bit integers; a function of
// their own would be walked like that of the integers.
void altri(unsigned parte, Conta& conta) {
    for (const modello::RigaUdm& riga : righe())
        for (const unsigned tipo : {12U, 21U, 24U}) {
            modello::RigaUdm comune = riga;
            if (tipo != 21)
                comune.reciproco = 0;
            const Lettore interi(canale(0), 0x10, comune);
            const Lettore lettore(canale(tipo), 0x10, riga);
            const bool stessa = lettore.libreria.valore == interi.libreria.valore;
            for (std::uint32_t i = 0; i < PER_PARTE; i += stessa ? PER_PARTE - 1 : 1) {
                const std::uint32_t grezzo = parte * PER_PARTE + i;
                confronta(conta, lettore.libreria, &grezzo, lettore.modello.valore(byte_di(grezzo).data()), tipo, riga,
                          grezzo);
            }
        }
}

// Types of one and two bytes: values, and texts in several looks.
void piccoli(unsigned parte, Conta& conta) {
    constexpr std::array<unsigned, 7> tipi = {1, 2, 4, 5, 11, 13, 20};
    const unsigned tipo = tipi[parte];
    const std::uint32_t valori = modello::dimensione_campione(tipo) == 1 ? 256 : 65536;
    for (const modello::RigaUdm& riga : righe()) {
        Lettore lettore(canale(tipo), 0x10, riga);
        for (std::uint32_t grezzo = 0; grezzo < valori; grezzo++)
            confronta(conta, lettore.libreria, &grezzo, lettore.modello.valore(byte_di(grezzo).data()), tipo, riga,
                      grezzo);
        for (const modello::Aspetto& come : {modello::Aspetto{5, 1, 0, 0}, modello::Aspetto{6, 0, 0, 1},
                                             modello::Aspetto{4, 2, 0, 2}, modello::Aspetto{4, 0, 1, 0}}) {
            lettore.aspetto(come);
            for (std::uint32_t grezzo = 0; grezzo < valori; grezzo++)
                conta.testi(lettore.testo_libreria(&grezzo), lettore.modello.testo(byte_di(grezzo).data()),
                            [&] { return dove(tipo, riga, grezzo) + " " + descrivi(come); });
        }
    }
}

// Texts of 32-bit samples, through every step: reserved samples, status texts, numbers.
void coordinate(unsigned parte, Conta& conta) {
    Lettore lettore(canale(21), 0x10, unita_identita());
    for (std::uint32_t i = 0; i < PER_PARTE; i++) {
        const std::uint32_t grezzo = parte * PER_PARTE + i;
        conta.testi(lettore.testo_libreria(&grezzo), lettore.modello.testo(byte_di(grezzo).data()),
                    [&] { return "coordinate " + esadecimale(grezzo); });
    }
}

// Numbers with a text: every number, every first character, with and without a gear's function.
void numeri_e_testi(unsigned /*parte*/, Conta& conta) {
    for (const unsigned tipo : {15U, 16U})
        for (const modello::Fid fid : {0x10U, 0x1FU, 0x61FU, 0x4860FU + 0x10U, 0x606U, 0x506U, 0x6U, 0x40606U}) {
            modello::Canale uno = canale(tipo);
            uno.fid = fid;
            Lettore lettore(uno, fid, unita_identita());
            std::array<modello::Byte, 32> campione{};
            for (unsigned i = 2; i < campione.size(); i++)
                campione[i] = static_cast<modello::Byte>('a' + i % 26);
            for (std::uint32_t grezzo = 0; grezzo < 65536; grezzo++) {
                campione[0] = static_cast<modello::Byte>(grezzo);
                campione[1] = static_cast<modello::Byte>(grezzo >> 8);
                campione[2] = static_cast<modello::Byte>(grezzo * 7 + grezzo / 256);
                confronta(conta, lettore.libreria, campione.data(), lettore.modello.valore(campione.data()), tipo,
                          unita_identita(), grezzo);
                const std::size_t fine = 2 + grezzo % 30;  // where the text ends
                const modello::Byte tolto = campione[fine];
                campione[fine] = 0;
                conta.testi(lettore.testo_libreria(campione.data()), lettore.modello.testo(campione.data()),
                            [&] { return dove(tipo, unita_identita(), grezzo); });
                campione[fine] = tolto;
            }
        }
}

// The text of every status word of 16 bits; without a bit that has a text the output stays as it was.
void stati(Conta& conta) {
    for (const unsigned tipo : {0U, 1U, 2U, 3U, 4U, 5U, 6U, 20U, 21U}) {
        const Lettore lettore(canale(tipo), 0x10, unita_identita());
        if (lettore.libreria.testo_stato == nullptr) {
            conta.numeri(0, 1, [&] { return "status text of sample type " + std::to_string(tipo); });
            continue;
        }
        for (std::uint32_t stato = 0; stato < 65536; stato++) {
            std::array<char, 32> testo = {'b', 'e', 'f', 'o', 'r', 'e'};
            lettore.libreria.testo_stato(stato, testo.data());
            const std::string atteso = stato % 16 == 0 ? "before" : modello::testo_stato(stato);
            conta.testi(testo.data(), atteso, [&] { return "status " + std::to_string(stato); });
        }
    }
}

// Every code of a sample type, known or not: size, whether there is a value, text of an arbitrary packet.
void codici(unsigned /*parte*/, Conta& conta) {
    stati(conta);
    std::array<modello::Byte, 64> campione{};
    for (unsigned i = 0; i < campione.size(); i++)
        campione[i] = static_cast<modello::Byte>(i * 37 + 11);
    for (unsigned codice = 0; codice < 100000; codice++) {
        const unsigned tipo = codice < 99990 ? codice : 0xFFFFFFFFU - (99999 - codice);
        conta.numeri(kelFunGetSamplSize(tipo), modello::dimensione_campione(tipo),
                     [&] { return std::to_string(tipo); });
        Lettore lettore(canale(tipo), 0x10, unita_identita());
        lettore.aspetto({5, 1, 0, 0});
        float valore = -77;
        const int riuscito = kelConvGetValFloat(&lettore.libreria, campione.data(), &valore);
        const float atteso = lettore.modello.ha_valore() ? lettore.modello.valore(campione.data()).valore : 0.0F;
        conta.numeri(riuscito, lettore.modello.ha_valore() ? 1 : 0, [&] { return "value of " + std::to_string(tipo); });
        conta.reali(valore, atteso, [&] { return "value of " + std::to_string(tipo); });
        const std::string testo(lettore.testo_libreria(campione.data()));
        conta.testi(testo, lettore.modello.testo(campione.data()), [&] { return "text of " + std::to_string(tipo); });
        conta.numeri(lettore.riuscito ? 1 : 0, 1, [&] { return "text of " + std::to_string(tipo) + " given"; });
    }
}

}  // namespace

std::vector<Spazio> spazi_campioni() {
    const auto conSegno = [](unsigned p, Conta& c) { interi<std::int32_t>(p, c, 0); };
    const auto senza_segno = [](unsigned p, Conta& c) { interi<std::uint32_t>(p, c, 3); };
    return {
        {"sample-codes", "sizes, values and texts of all sample type codes; texts of all status words", 1, 1, codici},
        {"samples-small", "all samples of one and two bytes in every unit row, values and texts", 7, 1, piccoli},
        {"samples-text", "all numbers with a text", 1, 1, numeri_e_testi},
        {"samples-other", "lap times, coordinates and differences in every unit row", PARTI, 16, altri,
         INTERI_NOTEVOLI},
        {"coordinates", "all coordinates as texts", PARTI, 128, coordinate, INTERI_NOTEVOLI},
        {"samples-int32", "all signed 32-bit samples in every unit row", PARTI, 512, conSegno, INTERI_NOTEVOLI},
        {"samples-uint32", "all unsigned 32-bit samples in every unit row", PARTI, 512, senza_segno, INTERI_NOTEVOLI},
        {"samples-float", "all floats in every unit row", PARTI, 512, reali, REALI_NOTEVOLI}};
}

}  // namespace esaustivo
