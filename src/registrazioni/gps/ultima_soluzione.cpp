#include "gps/ultima_soluzione.h"

#include <algorithm>

namespace kel_registrazioni {

const Soluzione& UltimaSoluzione::di(std::span<const std::uint8_t, NAV_SOL_BYTE> payload) {
    if (!soluzione_ || !std::ranges::equal(payload, payload_)) {
        std::ranges::copy(payload, payload_.begin());
        soluzione_ = da_nav_sol(payload);
    }
    return *soluzione_;
}

}  // namespace kel_registrazioni
