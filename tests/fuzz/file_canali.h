// A file of channel records, made of a fuzzer's bytes.
#ifndef KEL_FUZZ_FILE_CANALI_H
#define KEL_FUZZ_FILE_CANALI_H

#include <algorithm>
#include <cstdint>
#include <vector>

#include "comune/tipi_campione.h"
#include "ingredienti.h"
#include "kelfunzioni.h"

namespace fuzz {

/// Channel records: any bytes, but some fields more likely to be accepted.
inline std::vector<std::uint8_t> file_canali(Ingredienti& da) {
    std::vector<std::uint8_t> byte;
    for (std::size_t quanti = da.scelta(5); quanti > 0; quanti--) {
        s_kel_canale canale{};
        canale.fid = da.u32();
        canale.tipo_campione = da.u8() % (kel_test::TIPI_CAMPIONE + 1);
        canale.offset_campione = da.u8();
        canale.dim_buffer = da.u8() < 192 ? kelFunGetSamplSize(canale.tipo_campione) : da.u16();
        const auto nome = da.byte(da.u8() % (sizeof canale.nome + 1));
        std::ranges::copy(nome, canale.nome);
        const auto* primo = reinterpret_cast<const std::uint8_t*>(&canale);
        byte.insert(byte.end(), primo, primo + sizeof canale);
    }
    const auto altri = da.byte(da.u8() < 250 ? 0 : da.u16());
    byte.insert(byte.end(), altri.begin(), altri.end());
    return byte;
}

}  // namespace fuzz

#endif
