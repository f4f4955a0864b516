// A recording's file of channels.
#ifndef KELFUN_CAPTURES_FILE_CANALI_H
#define KELFUN_CAPTURES_FILE_CANALI_H

#include <string>
#include <vector>

#include "domain/registrazioni.h"
#include "registrazioni/recordings/canali.h"

namespace kel::strumento {

/// The channel set of a file, or of standard input for "-".
/// @throws NonTrovato  when it cannot be read, or holds no channel records: one line that names the file.
std::vector<s_kel_canale> leggi_file_canali(const std::string& nome, Disposizione disposizione);

}  // namespace kel::strumento

#endif
