#include "recordings/tabella.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace kel_registrazioni {

std::string nome_lungo(const IFunzioni& catalogo, kel_funpos fid) {
    return fid == 0 ? "" : catalogo.getNomeFunzione(fid, false);
}

std::string misura(const std::string& udm) {
    static constexpr std::string_view SENZA_MISURA[] = {"#", "gear", "Pckt", "Date", "Coord"};
    if (std::ranges::find(SENZA_MISURA, udm) != std::end(SENZA_MISURA))
        return "";
    return udm == "time" ? "ms" : udm;
}

}  // namespace kel_registrazioni
