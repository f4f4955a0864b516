// Functions and camera rows of legacy textual identifiers.
#include "CFunzioni.h"

const t_SFunzioneZumikoCam* CFunzioni::getFunVecchiaZumikoDaFID(kel_funpos fid) {
    return kelFunGetFunVecchiaZumikoDaFID(fid);
}

const t_SFunzioneZumikoCam* CFunzioni::getFunVecchiaZumikoDaID(const std::string& id) {
    return kelFunGetFunVecchiaZumikoDaID(ConvertiIn8(id).c_str());
}

// The camera rows come first, and through the virtual operation: a derived catalogue may have rows of its own.
kel_funpos CFunzioni::getFidDaID(const std::string& id) {
    if (const t_SFunzioneZumikoCam* riga = getFunVecchiaZumikoDaID(id))
        return riga->fid;
    return kelFunGetFidDaID(ConvertiIn8(id).c_str());
}
