// Little-endian integers of a message.
#ifndef KEL_REGISTRAZIONI_INTERI_H
#define KEL_REGISTRAZIONI_INTERI_H

#include <cstddef>
#include <cstdint>
#include <span>
#include <type_traits>

namespace kel_registrazioni {

/// The integer that begins at a byte; all of its bytes must be there.
template <typename Intero>
Intero intero(std::span<const std::uint8_t> byte, std::size_t da) {
    std::uint64_t valore = 0;
    for (std::size_t i = sizeof(Intero); i-- > 0;)
        valore = valore << 8 | byte[da + i];
    return static_cast<Intero>(static_cast<std::make_unsigned_t<Intero>>(valore));
}

/// Writes it there.
template <typename Intero>
void scrivi_intero(std::span<std::uint8_t> byte, std::size_t da, Intero valore) {
    const auto cifre = static_cast<std::uint64_t>(static_cast<std::make_unsigned_t<Intero>>(valore));
    for (std::size_t i = 0; i < sizeof(Intero); ++i)
        byte[da + i] = static_cast<std::uint8_t>(cifre >> 8 * i);
}

}  // namespace kel_registrazioni

#endif
