// A run that differs from the kept digests, explained: which operation, which call first, and what to do.
#ifndef KEL_DIGEST_DIFFERENZE_H
#define KEL_DIGEST_DIFFERENZE_H

#include "tenute.h"

namespace digest {

/// How many operations differ; the first ones are explained on standard output. With `tutte` the run made the calls of
/// every operation, so that one that is only in the file differs too.
unsigned differenze(const Corsa& corsa, const std::vector<Tenuta>& tenute, bool tutte);

/// What to do about a difference.
void consiglia();

/// Prints calls with what they are given and what they give: from `prima` to `ultima`.
void mostra(const Famiglia& famiglia, std::uint32_t prima, std::uint32_t ultima);

}  // namespace digest

#endif
