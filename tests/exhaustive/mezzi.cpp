// All floats to halves, and all halves to floats.
#include "model/mezzi.h"
#include "exhaustive/spazi.h"
#include "kelfunzioni.h"

namespace esaustivo {

namespace {

// Where subnormal halves begin and end, where infinity begins, NaNs; both signs.
const std::vector<unsigned> NOTEVOLI = {0x00, 0x33, 0x38, 0x47, 0x7F, 0x80, 0xB3, 0xB8, 0xC7, 0xFF};

void comprimi(unsigned parte, Conta& conta) {
    for (std::uint32_t i = 0; i < 1U << 24; i++) {
        const std::uint32_t bit = parte << 24 | i;
        conta.numeri(kelF16compress(bit), modello::comprimi(bit), [&] { return esadecimale(bit); });
    }
}

// Bits above the sixteenth must not count.
void espandi(unsigned parte, Conta& conta) {
    const std::uint32_t alti = parte == 0 ? 0 : 0xFFFFFFFFU << (15 + parte);
    for (std::uint32_t i = 0; i < 1U << 16; i++)
        conta.numeri(kelF16decompress(alti | i), modello::espandi(i), [&] { return esadecimale(alti | i); });
}

}  // namespace

std::vector<Spazio> spazi_mezzi() {
    return {{"to-halves", "all floats as 16-bit floats", 256, 16, comprimi, NOTEVOLI},
            {"from-halves", "all 16-bit floats as floats, with and without bits above them", 17, 1, espandi}};
}

}  // namespace esaustivo
