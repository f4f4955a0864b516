// A character conversion that leaves its mark, in place of the library's own: texts of the caller stand between angle
// brackets, texts of the tables do not.
#ifndef KEL_TEST_CONVERSIONE_SEGNATA_H
#define KEL_TEST_CONVERSIONE_SEGNATA_H

#include <string>

/// A table text as the caller must get it: converted, and only once.
inline std::string segnato(const std::string& testo) {
    return '<' + testo + '>';
}

#endif
