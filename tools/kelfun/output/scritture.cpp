#include "output/scritture.h"

#include <nlohmann/json.hpp>

#include "text/mostrabile.h"

namespace kel::strumento {

std::string testo_json(std::string_view testo) {
    return nlohmann::json(testo).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string campo_csv(std::string_view testo) {
    return citato_csv(mostrabile(testo));
}

std::string citato_csv(std::string_view testo) {
    if (testo.find_first_of(",\"") == std::string_view::npos)
        return std::string(testo);
    std::string citato = "\"";
    for (const char c : testo)
        citato += c == '"' ? std::string("\"\"") : std::string(1, c);
    return citato + '"';
}

}  // namespace kel::strumento
