// Latitude and longitude of an ECEF position (Earth-centred, Earth-fixed).
#ifndef KEL_PACKETS_GEODETICHE_H
#define KEL_PACKETS_GEODETICHE_H

#include <cstdint>

namespace kel {

// In degrees, of coordinates in centimetres. The longitude is that of WGS 84, the latitude is not: see the definition.
float latitudine(int32_t x, int32_t y, int32_t z) noexcept;
float longitudine(int32_t x, int32_t y) noexcept;

}  // namespace kel

#endif
