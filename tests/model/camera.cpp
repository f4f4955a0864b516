#include "model/camera.h"

#include "model/campi.h"

namespace modello {

namespace {

template <typename Prova>
std::optional<RigaDiCamera> cerca(Prova prova) {
    for (const bool estesa : {false, true}) {
        const std::vector<RigaCamera>& tabella = estesa ? tabelle().camera_estese : tabelle().camera_base;
        for (std::size_t i = 0; i < tabella.size(); i++)
            if (prova(tabella[i]))
                return RigaDiCamera{estesa, i};
    }
    return std::nullopt;
}

}  // namespace

std::optional<RigaDiCamera> camera_da_fid(Fid fid) {
    return cerca([&](const RigaCamera& riga) { return riga.fid == fid; });
}

std::optional<RigaDiCamera> camera_da_id(const std::string& id) {
    return cerca([&](const RigaCamera& riga) { return riga.id == id; });
}

Fid fid_da_id_vecchio(const std::string& id) {
    for (const RigaVecchia& riga : tabelle().funz_kel) {
        if (fine_tabella(riga.fid))
            break;
        if (riga.id == id)
            return riga.fid;
    }
    return 0;
}

Fid fid_da_id(const std::string& id) {
    if (const auto riga = camera_da_id(id))
        return riga->dati().fid;
    return fid_da_id_vecchio(id);
}

bool visibile_estesa(int codice) {
    const unsigned bit = static_cast<unsigned>(codice);
    const unsigned famiglia = bit / 256 % 256 * 256;
    const unsigned n = bit % 256;
    if (famiglia != 0xB000 && famiglia != 0xE000)
        return false;
    for (const unsigned nascosto : {7U, 8U, 9U, 10U, 11U, 17U, 18U, 19U})
        if (n == nascosto)
            return false;
    return true;
}

std::optional<RigaDiCamera> Passeggiata::attuale_base() const {
    if (grandezza(tabelle().camera_base.at(base_).fid) == 32)
        return std::nullopt;
    return RigaDiCamera{false, base_};
}

std::optional<RigaDiCamera> Passeggiata::prima_base() {
    base_ = 0;
    return attuale_base();
}

std::optional<RigaDiCamera> Passeggiata::prossima_base() {
    if (base_ >= tabelle().camera_base.size() - 1)
        return std::nullopt;
    base_ += 1;
    return attuale_base();
}

std::optional<RigaDiCamera> Passeggiata::attuale_estesa() {
    const std::vector<RigaCamera>& tabella = tabelle().camera_estese;
    while (grandezza(tabella.at(estesa_).fid) != 32) {
        if (visibile_estesa(tabella[estesa_].codice))
            return RigaDiCamera{true, estesa_};
        estesa_ += 1;
    }
    return std::nullopt;
}

std::optional<RigaDiCamera> Passeggiata::prima_estesa() {
    estesa_ = 0;
    return attuale_estesa();
}

std::optional<RigaDiCamera> Passeggiata::prossima_estesa() {
    if (estesa_ >= tabelle().camera_estese.size() - 1)
        return std::nullopt;
    estesa_ += 1;
    return attuale_estesa();
}

namespace {

std::vector<RigaDiCamera> tutte(bool estesa) {
    std::vector<RigaDiCamera> righe;
    const std::vector<RigaCamera>& tabella = estesa ? tabelle().camera_estese : tabelle().camera_base;
    for (std::size_t i = 0; i < tabella.size(); i++) {
        const Fid fid = tabella[i].fid;
        if (fine_tabella(fid) && posizione(fid) == 23)
            break;
        righe.push_back({estesa, i});
    }
    return righe;
}

}  // namespace

std::vector<RigaDiCamera> tutte_base() {
    return tutte(false);
}

std::vector<RigaDiCamera> tutte_estese() {
    return tutte(true);
}

}  // namespace modello
