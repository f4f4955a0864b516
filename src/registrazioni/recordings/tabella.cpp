#include "recordings/tabella.h"

namespace kel_registrazioni {

std::string nome_lungo(const IFunzioni& catalogo, kel_funpos fid) {
    return fid == 0 ? "" : catalogo.getNomeFunzione(fid, false);
}

}  // namespace kel_registrazioni
