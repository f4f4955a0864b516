#include "domain/avvisi_campioni.h"

#include <algorithm>
#include <vector>

#include "kelregistrazioni.h"
#include "text/parole.h"

namespace kel::strumento {

std::optional<std::string> avviso_bit(const std::string& campo, unsigned sopra) {
    if (campo.empty())
        return std::nullopt;
    return "--bits " + campo + " shows the single bit above the field, bit " + std::to_string(sopra) +
           ", as the device does, and none of the field's own bits";
}

std::optional<std::string> avviso_gps(std::span<const kel_funpos> mostrati, unsigned tipo) {
    const auto mostra = [&](kel_funpos fid) { return std::ranges::find(mostrati, fid) != mostrati.end(); };
    if (tipo != KEL_TIPO_GPS_KEL && tipo != KEL_TIPO_GPS_NAVSOL)
        return std::nullopt;
    std::vector<std::string> fatti;
    if (mostra(KEL_FID_GPS_LATITUDINE))
        fatti.emplace_back("its latitude lies up to 0.19 degrees from WGS 84");
    if (mostra(KEL_FID_GPS_ACCURATEZZA_POSIZIONE) || mostra(KEL_FID_GPS_ACCURATEZZA_VELOCITA))
        fatti.emplace_back("its accuracies are the low bytes of cm and cm/s");
    if (tipo == KEL_TIPO_GPS_NAVSOL && mostra(KEL_FID_GPS_VELOCITA))
        fatti.emplace_back("its speed is in cm/s, whatever the unit");
    if (fatti.empty())
        return std::nullopt;
    return "the packet is shown as the device shows it: " + elenco(fatti);
}

}  // namespace kel::strumento
