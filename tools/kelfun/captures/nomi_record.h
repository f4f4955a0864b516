// What the columns of a recording may be called on a command line, for the completion of shells.
#ifndef KELFUN_CAPTURES_NOMI_RECORD_H
#define KELFUN_CAPTURES_NOMI_RECORD_H

#include <string>
#include <vector>

#include "IFunzioni.h"

namespace kel::strumento {

/// A name, what it stands for, and the units that all of it together can be shown in.
struct NomeRecord {
    std::string nome;
    std::string spiegazione;
    std::vector<std::string> unita;
};

/// The names of a file's channels and subfields in their order, then short names. Nothing where there is no such file, or
/// where it cannot be read twice, as standard input: half a command line is no place for errors.
std::vector<NomeRecord> nomi_record(IFunzioni& catalogo, const std::string& file, bool compatta);

}  // namespace kel::strumento

#endif
