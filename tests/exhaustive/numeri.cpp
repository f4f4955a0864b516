// Numbers as texts: every width, decimals and format over chosen values, automatic decimals over pairs of values, and
// all floats in the settings most in use.
#include <array>
#include <cmath>
#include <vector>

#include "exhaustive/lettore.h"
#include "exhaustive/spazi.h"

namespace esaustivo {

namespace {

modello::Canale canale_reale() {
    modello::Canale canale;
    canale.fid = 0x10;
    canale.tipo = 6;
    return canale;
}

std::array<modello::Byte, 4> byte_di(float valore) {
    const auto bit = std::bit_cast<std::uint32_t>(valore);
    return {static_cast<modello::Byte>(bit), static_cast<modello::Byte>(bit >> 8),
            static_cast<modello::Byte>(bit >> 16), static_cast<modello::Byte>(bit >> 24)};
}

void con_vicini(std::vector<float>& valori, double numero, int vicini) {
    const auto centro = static_cast<float>(numero);
    if (!std::isfinite(centro))
        return;
    const auto bit = std::bit_cast<std::uint32_t>(centro);
    for (int passo = -vicini; passo <= vicini; passo++) {
        const auto vicino = std::bit_cast<float>(bit + static_cast<std::uint32_t>(passo));
        if (!std::isfinite(vicino) || (centro > 0) != (vicino > 0))
            continue;
        valori.push_back(vicino);
        valori.push_back(-vicino);
    }
}

// Values around powers of ten, around every step of rounding, of every size, and some without any system.
std::vector<float> valori_scelti() {
    std::vector<float> valori = {0.0F, -0.0F};
    for (int esponente = -45; esponente <= 38; esponente++)
        for (const double cifre : {1.0, 0.9, 0.99, 0.995, 0.9995, 0.99995, 2.0, 5.0, 7.25})
            con_vicini(valori, cifre * std::pow(10.0, esponente), 3);
    for (const double passo : {1.0, 0.1, 0.01, 0.001})
        for (int i = 0; i <= 40; i++)
            con_vicini(valori, (i + 0.5) * passo, 2);
    for (int esponente = 0; esponente <= 40; esponente++)
        for (const double mezzo : {0.5, 0.05, 0.005, 0.0005})
            con_vicini(valori, std::ldexp(1.0, esponente) + mezzo, 1);
    std::uint32_t caso = 12345;
    for (int i = 0; i < 1500; i++) {
        caso = caso * 1664525U + 1013904223U;
        con_vicini(valori, static_cast<double>(std::bit_cast<float>(caso)), 0);
        con_vicini(valori, static_cast<double>(caso >> 16) / std::pow(10.0, i % 5), 0);
    }
    return valori;
}

std::string dove(const modello::Aspetto& come, float valore) {
    return descrivi(come) + ", value " + Conta::esatto(valore);
}

constexpr unsigned LARGHEZZE = 41;

// One width: all decimals and formats.
void griglia(unsigned larghezza, Conta& conta) {
    const std::vector<float> valori = valori_scelti();
    Lettore lettore(canale_reale(), 0x10, unita_identita());
    for (unsigned decimali = 0; decimali <= 5; decimali++)
        for (const unsigned formato : {0U, 1U, 2U, 3U, 77U}) {
            const modello::Aspetto come{larghezza, decimali, 0, formato};
            lettore.aspetto(come);
            for (const float valore : valori)
                conta.testi(lettore.testo_libreria(&valore), lettore.modello.testo(byte_di(valore).data()),
                            [&] { return dove(come, valore); });
        }
}

// Values around which the automatic decimals change, at one width.
std::vector<float> soglie(unsigned larghezza) {
    std::vector<float> valori = {0.0F, -0.0F, 1.0F, -1.0F, 1e30F, -1e30F};
    for (int meno = -1; meno <= 4; meno++) {
        const double potenza = std::pow(10.0, static_cast<double>(larghezza) - meno);
        for (const double fattore : {1.0, 0.9, 0.95, 0.89, 0.91, 1.1})
            con_vicini(valori, potenza * fattore, 1);
    }
    return valori;
}

// One width: from every number of decimals, every value after every value.
void automatici(unsigned larghezza, Conta& conta) {
    const std::vector<float> valori = soglie(larghezza);
    Lettore lettore(canale_reale(), 0x10, unita_identita());
    for (unsigned decimali = 0; decimali <= 4; decimali++)
        for (const float prima : valori)
            for (const float dopo : valori) {
                lettore.aspetto({larghezza, decimali, 1, 0});
                for (const float valore : {prima, dopo}) {
                    const modello::Aspetto come = lettore.modello.aspetto;
                    conta.testi(lettore.testo_libreria(&valore), lettore.modello.testo(byte_di(valore).data()), [&] {
                        return dove(come, valore) + (&valore == &prima ? "" : " after " + Conta::esatto(prima));
                    });
                    conta.numeri(lettore.libreria.decimali, lettore.modello.aspetto.decimali,
                                 [&] { return "decimals after " + dove(come, valore); });
                }
            }
}

constexpr std::array<modello::Aspetto, 12> COMUNI = {{{4, 0, 0, 0},
                                                      {4, 1, 0, 0},
                                                      {4, 2, 0, 0},
                                                      {4, 1, 0, 1},
                                                      {4, 1, 0, 2},
                                                      {4, 1, 1, 0},
                                                      {5, 0, 0, 0},
                                                      {5, 1, 0, 0},
                                                      {5, 2, 0, 0},
                                                      {5, 3, 0, 0},
                                                      {6, 3, 0, 1},
                                                      {8, 3, 0, 2}}};
constexpr unsigned PARTI = 4096;
constexpr std::uint32_t PER_PARTE = 1U << 20;

// Tenths, one, tens, hundreds, thousands, ten thousands, infinity; also negative.
const std::vector<unsigned> NOTEVOLI = {0x3DC, 0x3F8, 0x412, 0x42C, 0x447, 0x461,
                                        0x7F8, 0xBF8, 0xC12, 0xC2C, 0xC47, 0xFF8};

// What a number without status shows follows from its sign, its decimals and its digits, all that are too many being
// alike: the model is asked again only when one of these changes.
struct Chiave {
    bool negativo = false;
    unsigned decimali = 99;
    double cifre = -1;
    bool operator==(const Chiave&) const = default;
};

void float_in(unsigned parte, Conta& conta, const modello::Aspetto& come) {
    Lettore lettore(canale_reale(), 0x10, unita_identita());
    lettore.aspetto(come);
    const double troppe = std::pow(10.0, come.larghezza);
    Chiave ultima;
    std::string atteso;
    for (std::uint32_t i = 0; i < PER_PARTE; i++) {
        const auto valore = std::bit_cast<float>(parte * PER_PARTE + i);
        modello::Aspetto prima = lettore.modello.aspetto;
        if (std::isfinite(valore)) {
            modello::scegli_decimali(lettore.modello.aspetto, valore);
            const unsigned decimali = lettore.modello.aspetto.decimali;
            const double cifre = modello::arrotondata(std::fabs(valore), decimali);
            const Chiave chiave{valore < 0, decimali, std::fmin(cifre, troppe)};
            if (chiave != ultima) {
                ultima = chiave;
                atteso = lettore.modello.testo(byte_di(valore).data());
            }
        } else {
            ultima = {};
            atteso = lettore.modello.testo(byte_di(valore).data());
        }
        conta.testi(lettore.testo_libreria(&valore), atteso, [&] { return dove(prima, valore); });
    }
}

void tutti_i_float(unsigned parte, Conta& conta) {
    for (const modello::Aspetto& come : COMUNI)
        float_in(parte, conta, come);
}

}  // namespace

std::vector<Spazio> spazi_numeri() {
    return {{"number-looks", "chosen numbers in widths 0 to 40, decimals 0 to 5, all formats", LARGHEZZE, 1, griglia},
            {"number-auto", "automatic decimals in widths 0 to 40, over pairs of values", LARGHEZZE, 1, automatici},
            {"number-floats", "all floats in the twelve most common looks", PARTI, 256, tutti_i_float, NOTEVOLI}};
}

}  // namespace esaustivo
