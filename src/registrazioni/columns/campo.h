// The field of a numeric text of at most eight characters: what is told from the converter alone, once for all samples.
#ifndef KEL_COLUMNS_CAMPO_H
#define KEL_COLUMNS_CAMPO_H

#include <cstdint>

#include "kelregistrazioni.h"

namespace kel_colonne {

inline constexpr std::uint32_t CARATTERI_PAROLA = 8;

struct Campo {
    float scala;           // 10 to the power of the decimals
    float sotto_positivo;  // magnitudes below which a number fits, scaled; 0 where none does
    float sotto_negativo;
    std::uint32_t interi;     // bits of the places before the point
    std::uint32_t oltre;      // bits of the digits that the field has no place for
    std::uint32_t lunghezza;  // bits of the text
    bool punto;
    eFormatoConv formato;
};

static constexpr Campo campo_di(std::uint32_t larghezza, std::uint32_t decimali_chiesti,
                                eFormatoConv formato) noexcept {
    constexpr float scale[] = {1.0f, 10.0f, 100.0f, 1000.0f};
    constexpr float potenze_10[] = {0.0f, 1e1f, 1e2f, 1e3f, 1e4f, 1e5f, 1e6f, 1e7f, 1e8f};
    const std::uint32_t decimali = decimali_chiesti < 3 ? decimali_chiesti : 3;
    const std::uint32_t punto = decimali != 0 ? 1 : 0;
    const bool in_parola = larghezza <= CARATTERI_PAROLA - punto && larghezza > decimali_chiesti;
    if (!in_parola)
        return {1.0f, 0.0f, 0.0f, 8, 0, 8, false, formato};
    return {scale[decimali],
            potenze_10[larghezza],
            larghezza - 1 > decimali_chiesti ? potenze_10[larghezza - 1] : 0.0f,
            8 * (larghezza - decimali),
            8 * (CARATTERI_PAROLA - larghezza),
            8 * (larghezza + punto),
            punto != 0,
            formato};
}

}  // namespace kel_colonne

#endif
