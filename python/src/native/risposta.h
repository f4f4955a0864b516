// How answers go to Python: as one JSON text, which Python frees; or as an error, which is JSON too.
#ifndef KELPYTHON_RISPOSTA_H
#define KELPYTHON_RISPOSTA_H

#include <cstdlib>
#include <cstring>
#include <nlohmann/json.hpp>
#include <string>

#include "text/errori.h"

#define KELPYTHON_API extern "C" __attribute__((visibility("default")))

namespace kel::python {

using Json = nlohmann::ordered_json;

/// Null when memory runs out.
inline char* copia(const std::string& testo) noexcept {
    auto* uscita = static_cast<char*>(std::malloc(testo.size() + 1));
    if (uscita != nullptr)
        std::memcpy(uscita, testo.c_str(), testo.size() + 1);
    return uscita;
}

inline std::string scrivi(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

/// What some work answers. "usage" is a wrong argument, "missing" a thing that does not exist. Null when memory runs out.
template <typename Lavoro>
char* rispondi(Lavoro&& lavoro) noexcept {
    try {
        try {
            return copia(scrivi(lavoro()));
        } catch (const strumento::ErroreUso& e) {
            return copia(scrivi({{"error", e.what()}, {"kind", "usage"}}));
        } catch (const strumento::NonTrovato& e) {
            return copia(scrivi({{"error", e.what()}, {"kind", "missing"}}));
        }
    } catch (...) {
        return nullptr;
    }
}

}  // namespace kel::python

#endif
