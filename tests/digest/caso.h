// Arguments by chance, the same on every machine: integers only, from a generator that is written out here.
//
// No statement draws two numbers whose order C++ leaves open, as that of a call's arguments.
#ifndef KEL_DIGEST_CASO_H
#define KEL_DIGEST_CASO_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>

#include "kelfunzioni.h"
#include "racconto.h"

namespace digest {

class Caso {
public:
    explicit Caso(std::uint64_t seme, Racconto* racconto = nullptr) : stato_(seme), racconto_(racconto) {}

    // SplitMix64 (Steele, Lea, Flood 2014).
    std::uint64_t u64() {
        stato_ += 0x9E3779B97F4A7C15U;
        std::uint64_t z = stato_;
        z = (z ^ z >> 30) * 0xBF58476D1CE4E5B9U;
        z = (z ^ z >> 27) * 0x94D049BB133111EBU;
        return z ^ z >> 31;
    }
    std::uint32_t u32() { return numero(static_cast<std::uint32_t>(u64() >> 32)); }
    std::int32_t i32() { return static_cast<std::int32_t>(u32()); }
    std::uint16_t u16() { return numero(static_cast<std::uint16_t>(u64() >> 48)); }
    std::uint8_t u8() { return numero(static_cast<std::uint8_t>(u64() >> 56)); }
    std::uint32_t sotto(std::uint32_t limite) {
        return numero(static_cast<std::uint32_t>((u64() >> 32) * limite >> 32));
    }
    bool uno_su(std::uint32_t quanti) {
        const bool si = (u64() >> 32) * quanti >> 32 == 0;
        if (racconto_ != nullptr)
            racconto_->voce(si ? "yes" : "no");
        return si;
    }

    // Small and large numbers alike: any number of bits.
    std::uint32_t grandezze();

    // The bits of a float: any, or one of a size that shows in a text. A float itself would not come back unchanged: a
    // 32-bit x86 returns it through a register that alters some NaNs.
    std::uint32_t bit_reale();

    // An identifier of a table, whole or with another position and other sides, or any number.
    kel_funpos fid();
    // An identifier of a packet.
    kel_funpos pacchetto();
    // The identifier of a field of some packet.
    kel_funpos sottocampo();

    // A sample or packet: any bytes, or a few that repeat, or a number of some size.
    void campione(std::span<unsigned char> byte);

    // A text of at most `spazio` - 1 characters: one of the tables, such a one with a character changed, or any.
    void testo(char* dove, std::size_t spazio);
    // A unit's text: one of the function's, of another one's, or any text.
    void unita(kel_funpos fid, char* dove, std::size_t spazio);
    // What a lap time may look like.
    void tempo(char* dove, std::size_t spazio);

private:
    // The parts of which the arguments above are made. Those tell their result once, not the draws that led to it.
    std::uint32_t scegli_grandezze();
    std::uint32_t scegli_bit_reale();
    kel_funpos scegli_fid();
    kel_funpos scegli_pacchetto();
    kel_funpos scegli_sottocampo();
    void scegli_campione(std::span<unsigned char> byte);
    void scegli_testo(char* dove, std::size_t spazio);
    void scegli_unita(kel_funpos fid, char* dove, std::size_t spazio);
    void scegli_tempo(char* dove, std::size_t spazio);
    const char* testo_di_tabella();

    template <typename Numero>
    Numero numero(Numero valore) {
        if (racconto_ != nullptr)
            racconto_->numero(valore);
        return valore;
    }

    std::uint64_t stato_;
    Racconto* racconto_;
};

}  // namespace digest

#endif
