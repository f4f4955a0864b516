// A recording's columns as an Arrow IPC stream.
#ifndef KELFUN_CAPTURES_ARROW_RECORD_H
#define KELFUN_CAPTURES_ARROW_RECORD_H

#include <cstddef>
#include <span>
#include <string>

#include "captures/canali_record.h"
#include "captures/file_campioni.h"
#include "captures/registrazione.h"

namespace kel::strumento {

/// Bytes of samples that make one batch: memory stays far below what they become.
constexpr std::size_t PEZZO_ARROW = std::size_t{1} << 22;

/// Writes columns to a file, or to standard output for "-".
/// @param testi  their texts in place of their values.
/// @throws NonTrovato  when it cannot be written.
void scrivi_arrow(const std::string& nome, const Registrazione& reg, std::span<const ColonnaRecord> colonne, bool testi,
                  FileCampioni& campioni);

}  // namespace kel::strumento

#endif
