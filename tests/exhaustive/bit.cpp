// Every bit position with every bit count: the mask of all pairs, and samples through the pairs that reach 32 bits.
#include <array>

#include "exhaustive/lettore.h"
#include "exhaustive/spazi.h"

namespace esaustivo {

namespace {

s_kel_canale canale_del_tipo(unsigned tipo) {
    s_kel_canale canale{};
    canale.fid = 0x0B;
    canale.tipo_campione = tipo;
    return canale;
}

// 256 bit positions, each with all 65536 bit counts.
void maschere(unsigned parte, Conta& conta) {
    const s_kel_canale canale = canale_del_tipo(3);
    const s_converter_data dati = dati_di(unita_identita());
    s_kel_converter conv = registro_qualunque();
    for (unsigned posizione = parte * 256; posizione < (parte + 1) * 256; posizione++)
        for (unsigned quanti = 0; quanti < 65536; quanti++) {
            kelConvInit(&conv, &canale, 0x0B, &dati, static_cast<unsigned short>(posizione),
                        static_cast<unsigned short>(quanti), 1);
            const std::uint32_t attesa = posizione + quanti > 64 ? 0 : modello::maschera_bit(posizione, quanti);
            conta.caso(conv.maschera == attesa && conv.pos_bit == posizione && conv.num_bit == quanti, conv.maschera,
                       [&] {
                           return "position " + std::to_string(posizione) + " count " + std::to_string(quanti) +
                                  ": library " + esadecimale(conv.maschera) + ", model " + esadecimale(attesa);
                       });
        }
}

// Position and count 0 to 34 each, all types that have bit fields: all bytes and words, and 32-bit samples of one set
// bit, of one clear bit and without system.
void campioni(unsigned parte, Conta& conta) {
    constexpr std::array<unsigned, 4> tipi = {3, 4, 5, 13};
    for (const unsigned tipo : tipi)
        for (unsigned quanti = 0; quanti < 35; quanti++)
            for (const bool reciproco : {false, true}) {
                modello::RigaUdm unita = modello::tabelle().udm.at("C_udm_associate").at(1);
                unita.reciproco = reciproco ? 1 : 0;
                modello::Canale canale;
                canale.fid = 0x0B;
                canale.tipo = tipo;
                const Lettore lettore(canale, 0x0B, unita, {parte, quanti, 0});
                const unsigned byte = modello::dimensione_campione(tipo);
                std::uint32_t caso = 99;
                for (std::uint32_t i = 0; i < (byte == 1 ? 256U : 65536U); i++) {
                    caso = caso * 1664525U + 1013904223U;
                    const std::uint32_t bit = 1U << (i % 32);
                    const std::uint32_t grezzo = byte < 4 ? i : i < 32 ? bit : i < 64 ? ~bit : caso;
                    std::array<modello::Byte, 4> campione = {
                        static_cast<modello::Byte>(grezzo), static_cast<modello::Byte>(grezzo >> 8),
                        static_cast<modello::Byte>(grezzo >> 16), static_cast<modello::Byte>(grezzo >> 24)};
                    float valore = -77;
                    kelConvGetValFloat(&lettore.libreria, campione.data(), &valore);
                    conta.reali(valore, lettore.modello.valore(campione.data()).valore, [&] {
                        return "sample type " + std::to_string(tipo) + " position " + std::to_string(parte) +
                               " count " + std::to_string(quanti) + (reciproco ? " reciprocal" : "") + " raw " +
                               esadecimale(grezzo);
                    });
                }
            }
}

}  // namespace

std::vector<Spazio> spazi_bit() {
    return {
        {"bit-masks", "the mask of every bit position and bit count", 256, 16, maschere, {0, 255}},
        {"bit-fields", "samples through bit fields of every position and count that reach 32 bits", 35, 1, campioni}};
}

}  // namespace esaustivo
