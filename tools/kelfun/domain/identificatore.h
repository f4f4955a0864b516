// Reading a function identifier from the command line.
#ifndef KELFUN_DOMAIN_IDENTIFICATORE_H
#define KELFUN_DOMAIN_IDENTIFICATORE_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "IFunzioni.h"
#include "cli/opzioni.h"
#include "domain/lettura_fid.h"

namespace kel::strumento {

/// Fields of an identifier given by name.
struct CampiDati {
    std::string grandezza;
    std::string oggetto;
    std::string posizione;
    std::string inout;
    std::optional<unsigned> numero;
    std::string dettagli;
    std::string specializzazione;
    std::vector<std::string> lati;

    /// Whether any of them was given.
    bool dati() const;
};

/// Adds --quantity, --object, --position, --inout, --side, --number, --details and --specialisation to a command.
void aggiungi_campi(Comando& comando, CampiDati& campi);

/// The names of the sides: "left", "front". A side may combine one of each direction.
const std::vector<std::string>& nomi_lati();

/// The identifier of fields given by name. Fields that were not given are 0.
/// @throws ErroreUso  for an unknown name and for fields that exclude each other.
kel_funpos componi(const CampiDati& campi);

/// The identifier of a command that takes it either as an argument or by its fields.
/// @throws ErroreUso  when both or neither are given; else as `leggi_fid` and `componi`.
kel_funpos risolvi(IFunzioni& catalogo, const std::string& argomento, const CampiDati& campi);

/// The legacy identifier of a function, "" when it has none.
std::string id_vecchio(kel_funpos fid);

/// A unit of a function: `udm` itself, or the base unit for "".
/// @throws ErroreUso  when it is not one of the function's units, with the nearest and all those that are.
std::string leggi_udm(const IFunzioni& catalogo, kel_funpos fid, const std::string& udm);

}  // namespace kel::strumento

#endif
