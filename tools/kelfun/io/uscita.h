// The output of a command. A write that fails is an error.
#ifndef KELFUN_IO_USCITA_H
#define KELFUN_IO_USCITA_H

#include <cstdio>
#include <string_view>

namespace kel::strumento {

/// Flushes what has been written so far.
/// @throws NonTrovato  when any of it could not be written, now or before.
void manda_uscita(std::FILE* file = stdout);

/// Writes a text to standard output and flushes it.
/// @throws NonTrovato  when it could not be written.
void scrivi_uscita(std::string_view testo);

}  // namespace kel::strumento

#endif
