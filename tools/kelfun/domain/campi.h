// The fields of an identifier with their names, and names back to field values.
#ifndef KELFUN_DOMAIN_CAMPI_H
#define KELFUN_DOMAIN_CAMPI_H

#include <bit>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "kelfunzioni.h"
#include "text/parole.h"

namespace kel::strumento {

/// A field of an identifier. `riga` is null for a value that the vocabulary does not know and for plain numbers.
struct Campo {
    const char* chiave;
    const char* titolo;
    unsigned bit;     ///< lowest bit of the field
    unsigned quanti;  ///< its width
    unsigned valore;
    const s_campo_fid* riga;
};

/// The bits from this one up belong to no field.
constexpr unsigned PRIMO_BIT_LIBERO = FID_SHIFT_NUMBER + std::bit_width<unsigned>(FID_MASK_NUMBER);

/// The fields of an identifier from bit 0 up, as they are to be read: details and specialisation for a packet, an
/// instance number in place of the sides where bit 22 says so.
std::vector<Campo> campi(kel_funpos fid);

/// The vocabulary of the specialisation of a kind of packet; empty for kinds that have none.
std::span<const s_campo_fid> specializzazioni(unsigned dettagli);

// The options that give the fields of an identifier.
constexpr const char* OPZIONE_GRANDEZZA = "--quantity";
constexpr const char* OPZIONE_OGGETTO = "--object";
constexpr const char* OPZIONE_POSIZIONE = "--position";
constexpr const char* OPZIONE_INOUT = "--inout";
constexpr const char* OPZIONE_LATO = "--side";
constexpr const char* OPZIONE_NUMERO = "--number";
constexpr const char* OPZIONE_DETTAGLI = "--details";
constexpr const char* OPZIONE_SPECIALIZZAZIONE = "--specialisation";

/// A field whose values have names.
struct Vocabolario {
    const char* opzione;   ///< the option that gives it: "--quantity"
    const char* prefisso;  ///< what its XML names begin with: "FID_PHI_"
    std::span<const s_campo_fid> righe;
    unsigned massimo;  ///< largest value of the field
};

/// The physical quantities.
const Vocabolario& grandezze();

/// The vocabulary of a field's option, of --specialisation that of a kind of packet. Null for options that have none,
/// and for packets without specialisations. The sides share one option and have none: see `nomi_lati`.
const Vocabolario* vocabolario(std::string_view opzione, unsigned dettagli = 0);

/// The row of a name: XML name, its words after the prefix ("speed", "angle-sec-ratio"), or the text. Capitals do not
/// matter, nor whether words stand apart by blanks, underscores or hyphens. Null when there is none.
const s_campo_fid* cerca_nome(const Vocabolario& vocabolario, std::string_view nome);

/// The value of a name, or of a number up to the field's largest value.
/// @throws ErroreUso  with the nearest name and all that are accepted.
unsigned leggi_campo(const Vocabolario& vocabolario, std::string_view nome);

/// Words of an XML name after the prefix, small, with hyphens: "angle-sec-ratio".
std::string parole(const Vocabolario& vocabolario, const s_campo_fid& riga);

}  // namespace kel::strumento

#endif
