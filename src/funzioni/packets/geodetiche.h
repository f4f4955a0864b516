// Latitude and longitude of an ECEF position.
#ifndef KEL_PACKETS_GEODETICHE_H
#define KEL_PACKETS_GEODETICHE_H

#include <cstdint>

namespace kel {

// Degrees. The packet's centimetres enter as they are.
float latitudine(int32_t x, int32_t y, int32_t z) noexcept;
float longitudine(int32_t x, int32_t y) noexcept;

}  // namespace kel

#endif
