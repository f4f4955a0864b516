#include "output/documento.h"
#include "text/numeri.h"
#include "text/parole.h"

namespace kel::strumento {

Cella Cella::mancante(std::string_view testo) {
    return {std::string(testo), {}};
}

Cella Cella::testo(std::string_view testo) {
    return {testo.find_first_not_of(' ') == std::string_view::npos ? "-" : std::string(testo), std::string(testo)};
}

Cella Cella::citata(std::string_view testo) {
    return {'"' + std::string(testo) + '"', std::string(testo)};
}

Cella Cella::intero(std::int64_t valore) {
    return {std::to_string(valore), valore};
}

Cella Cella::codice(std::int64_t valore, int cifre) {
    return {esadecimale(static_cast<std::uint32_t>(valore), cifre), valore};
}

Cella Cella::fid(kel_funpos fid) {
    Cella cella = testo(esadecimale(fid, 8));
    cella.identificatore_ = true;
    return cella;
}

Cella Cella::numero(float valore) {
    return {breve(valore), come_scritto(valore)};
}

Cella Cella::numero(float valore, int decimali) {
    std::string testo = con_decimali(valore, decimali);
    const double scritto = come_scritto(testo);
    return {std::move(testo), scritto};
}

Cella Cella::reale(double valore, int decimali) {
    std::string testo = con_decimali(valore, decimali);
    const double scritto = come_scritto(testo);
    return {std::move(testo), scritto};
}

Cella Cella::reale(double valore, int decimali, std::string_view testo) {
    return {std::string(testo), come_scritto(con_decimali(valore, decimali))};
}

Cella Cella::numero(float valore, std::string_view testo) {
    return {std::string(testo), come_scritto(valore)};
}

Cella Cella::lista(std::vector<std::string> testi) {
    std::string tutti = elenco(testi);
    return {tutti.empty() ? "-" : std::move(tutti), std::move(testi)};
}

Cella Cella::logico(bool valore) {
    return {valore ? "yes" : "no", valore};
}

}  // namespace kel::strumento
