// Every identifier that the library knows by a name of its own, and all the texts by which it may be known.
#ifndef KELFUN_DOMAIN_NOTI_H
#define KELFUN_DOMAIN_NOTI_H

#include <string>
#include <vector>

#include "IFunzioni.h"

namespace kel::strumento {

/// What a text is to its identifier. The order is that of the weight of a text found.
enum class Specie { nome, breve, vecchio, unita, campo, identificatore };

/// What people call it: "legacy identifier".
const char* nome_specie(Specie specie);

/// One text of an identifier.
struct Testo {
    Specie specie;
    std::string testo;
};

/// An identifier and its texts, none twice: names, short names, legacy identifiers, units, the XML names, abbreviations
/// and texts of its fields, and its own digits.
struct Noto {
    kel_funpos fid;
    std::vector<Testo> testi;
};

/// The functions to offer and each of their choices, the rows of the quantity table, legacy identifiers, camera rows,
/// packets and their subfields: in the order of quantity, object, position and the other fields.
std::vector<Noto> identificatori_noti(IFunzioni& catalogo);

}  // namespace kel::strumento

#endif
