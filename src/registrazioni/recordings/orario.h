// The time stamp in front of every record of samples.
#ifndef KEL_REGISTRAZIONI_ORARIO_H
#define KEL_REGISTRAZIONI_ORARIO_H

#include <cstddef>

namespace kel_registrazioni {

/// None, milliseconds of 32 bits, microseconds of 64.
enum class Orario { nessuno, u32ms, u64us };

/// Bytes of a time stamp.
constexpr std::size_t byte_orario(Orario orario) {
    return orario == Orario::u32ms ? 4 : orario == Orario::u64us ? 8 : 0;
}

}  // namespace kel_registrazioni

#endif
