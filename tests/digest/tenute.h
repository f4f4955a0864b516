// The digests that are kept in a file: how they are written there, and how a run differs from them.
#ifndef KEL_DIGEST_TENUTE_H
#define KEL_DIGEST_TENUTE_H

#include <cstdint>
#include <vector>

#include "corsa.h"

namespace digest {

/// So many rounds are kept: for the tests under an emulator, for the tests, and for every compiler and target.
constexpr std::uint32_t GIRI_TENUTI[] = {2000, 20000, 200000};

/// Prints the file's contents.
void scrivi_tenute();

/// The results of one operation as a line of the file keeps them.
struct Tenuta {
    char nome[48];
    char impronta[40];  ///< of the calls of so many rounds
    std::vector<std::uint16_t> blocchi;
};

/// What the file keeps for so many rounds; nothing when it cannot be read or keeps no such number.
std::vector<Tenuta> leggi_tenute(const char* file, std::uint32_t giri);

/// 32 digits.
struct Cifre {
    char testo[40];
};
Cifre cifre(const Impronta& impronta);

}  // namespace digest

#endif
