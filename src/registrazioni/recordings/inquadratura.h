// The framing of a recording: whether a time stamp stands before each of its records, and which.
//
// Nothing in the samples says so, but time runs: under the right framing the stamps go forward in even steps. Under a wrong
// one the bytes taken for stamps are other bytes in each record, and do not.
#ifndef KEL_REGISTRAZIONI_INQUADRATURA_H
#define KEL_REGISTRAZIONI_INQUADRATURA_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "common/parole.h"
#include "recordings/orario.h"

namespace kel_registrazioni {

/// What the first bytes of the samples, and their length, tell of one framing.
struct EsameOrario {
    Orario orario = Orario::nessuno;
    std::size_t passo = 0;               ///< bytes of a record with its time stamp
    std::size_t record = 0;              ///< whole records that were looked at
    bool regolare = false;               ///< their time stamps run forward in even steps
    std::uint64_t intervallo = 0;        ///< the middle one of the steps, in the unit of the stamps
    std::optional<std::uint64_t> resto;  ///< bytes behind the last whole record; nothing where the length is not known

    /// Even steps over three records or more are no accident.
    bool provato() const { return regolare && record > 2; }
    /// The length is a whole number of records, as far as it is known.
    bool entra() const { return resto.value_or(0) == 0; }
};

/// A framing, and what is to be said of it.
struct Inquadratura {
    Orario orario = Orario::nessuno;
    std::string detto;  ///< one line; "" when there is nothing to say
};

/// @param testa       the first bytes of the samples.
/// @param dimensione  bytes of a record without its time stamp.
/// @param lunghezza   of all samples, where it is known.
EsameOrario esamina_orario(std::span<const std::uint8_t> testa, std::size_t dimensione, Orario orario,
                           std::optional<std::uint64_t> lunghezza);

/// The framing under which the time stamps run forward in even steps. If there is none, and the length is a whole number of
/// records without stamps, the framing without stamps. `detto` names it.
/// @throws Errore  when no framing fits, or several fit alike: one line that tells what each of them would be.
Inquadratura scegli_inquadratura(std::span<const std::uint8_t> testa, std::size_t dimensione,
                                 std::optional<std::uint64_t> lunghezza, const Parole& parole = PAROLE_DELLA_FACCIA);

/// A framing that the user has chosen. `detto` is a warning where the samples speak against it.
/// @throws Errore  when the length is no whole number of its records and the stamps do not prove it all the same.
Inquadratura verifica_inquadratura(std::span<const std::uint8_t> testa, std::size_t dimensione,
                                   std::optional<std::uint64_t> lunghezza, Orario scelto,
                                   const Parole& parole = PAROLE_DELLA_FACCIA);

/// "none", "u32ms", "u64us".
const char* nome_orario(Orario orario);

/// "10713 bytes are no whole number of records of 103 bytes: 104 records and 1 byte over".
std::string lunghezza_errata(std::uint64_t lunghezza, std::size_t passo);

}  // namespace kel_registrazioni

#endif
