// Channel sets and the channels that carry a function. Records are known by their place in the array.
#ifndef KEL_MODELLO_CANALI_H
#define KEL_MODELLO_CANALI_H

#include <optional>
#include <string>
#include <vector>

#include "model/tabelle.h"

namespace modello {

// A channel record, as far as the library looks at it; `altro` stands for the bytes that belong to the caller.
struct Canale {
    unsigned indice = 0;
    Fid fid = 0;
    unsigned tipo = 0;
    std::string breve, nome;
    unsigned offset = 0;
    std::uint32_t dim_buffer = 0;
    int altro = 0;
    bool operator==(const Canale&) const = default;
};

struct SetCanali {
    std::vector<Canale>* canali = nullptr;  // the whole array; null: no array yet
    unsigned totale = 0, usati = 0;

    std::optional<unsigned> libero();  // place of the record handed out, cleared
    bool rendi_ultimo();
    std::optional<unsigned> canale(unsigned indice) const;
    std::optional<unsigned> nome(unsigned indice) const;  // place of the record whose name is given
    std::uint32_t dimensione_buffer() const;

    std::optional<unsigned> corrispondente(Fid fid) const;
    std::optional<unsigned> corrispondente_pieno(Fid fid) const;
    // Places of the matching records, no more than the capacity when that is above 0; without value: the answer is 0.
    std::optional<std::vector<unsigned>> corrispondenti(Fid fid, unsigned capacita) const;
};

}  // namespace modello

#endif
