// Numbers out of a sample: little-endian, at any address.
#ifndef KEL_BASE_LETTURA_H
#define KEL_BASE_LETTURA_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace kel {

static_assert(std::endian::native == std::endian::little, "samples are copied as they lie");

template <typename T>
T leggi(const void* campione, std::size_t offset = 0) noexcept {
    T valore;
    std::memcpy(&valore, static_cast<const unsigned char*>(campione) + offset, sizeof valore);
    return valore;
}

}  // namespace kel

#endif
