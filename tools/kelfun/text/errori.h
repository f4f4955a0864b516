// How a command ends when it cannot do what was asked.
#ifndef KELFUN_TEXT_ERRORI_H
#define KELFUN_TEXT_ERRORI_H

#include <stdexcept>
#include <string>

namespace kel::strumento {

/// Exit statuses; scripts rely on them.
enum StatoUscita {
    USCITA_BENE = 0,
    USCITA_NON_TROVATO = 1,  ///< there is no such thing, bad data, or it cannot be read or written
    USCITA_USO = 2           ///< a wrong argument
};

/// A wrong argument. The text is one line: what was wrong and what is accepted.
struct ErroreUso : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// There is no such thing, or a file cannot be read. The text is one line.
struct NonTrovato : std::runtime_error {
    using std::runtime_error::runtime_error;
};

}  // namespace kel::strumento

#endif
