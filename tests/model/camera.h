// Functions of the on-board camera, and legacy identifiers.
#ifndef KEL_MODELLO_CAMERA_H
#define KEL_MODELLO_CAMERA_H

#include <optional>
#include <string>
#include <vector>

#include "model/tabelle.h"

namespace modello {

// A row of one of the two camera tables, by its place.
struct RigaDiCamera {
    bool estesa;
    std::size_t riga;
    const RigaCamera& dati() const {
        return estesa ? tabelle().camera_estese.at(riga) : tabelle().camera_base.at(riga);
    }
    bool operator==(const RigaDiCamera&) const = default;
};

// Row of an identifier, or of a legacy identifier; the end rows take part.
std::optional<RigaDiCamera> camera_da_fid(Fid fid);
std::optional<RigaDiCamera> camera_da_id(const std::string& id);

// Identifier of a legacy identifier: in the legacy table alone, and in all tables. 0 when there is none.
Fid fid_da_id_vecchio(const std::string& id);
Fid fid_da_id(const std::string& id);

bool visibile_estesa(int codice);

// The two walks of one catalogue.
class Passeggiata {
public:
    std::optional<RigaDiCamera> prima_base();
    std::optional<RigaDiCamera> prossima_base();
    std::optional<RigaDiCamera> prima_estesa();
    std::optional<RigaDiCamera> prossima_estesa();

private:
    std::optional<RigaDiCamera> attuale_base() const;
    std::optional<RigaDiCamera> attuale_estesa();
    std::size_t base_ = 0;
    std::size_t estesa_ = 0;
};

// All rows before the end row, visible or not.
std::vector<RigaDiCamera> tutte_base();
std::vector<RigaDiCamera> tutte_estese();

}  // namespace modello

#endif
