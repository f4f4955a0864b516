// How a command ends when it cannot do what was asked.
#ifndef KELFUN_TEXT_ERRORI_H
#define KELFUN_TEXT_ERRORI_H

#include <stdexcept>
#include <string>

namespace kel::strumento {

/// Exit statuses; scripts rely on them.
enum StatoUscita {
    USCITA_BENE = 0,
    USCITA_NON_TROVATO = 1,  ///< well asked, but there is no such thing, or it cannot be read or written
    USCITA_USO = 2           ///< a wrong argument
};

/// A wrong argument. The text is one line: what was wrong and what is accepted.
struct ErroreUso : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// A good question without an answer, or a file that cannot be read. The text is one line.
struct NonTrovato : std::runtime_error {
    using std::runtime_error::runtime_error;
};

}  // namespace kel::strumento

#endif
