// Columns of Python as a stream of Arrow with one batch: rows that Python holds in memory.
#include <cerrno>
#include <cstdlib>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "kelregistrazioni.h"
#include "risposta.h"

namespace {

template <typename Struttura>
void libera_figlio(Struttura* figlio) {
    if (figlio != nullptr && figlio->release != nullptr)
        figlio->release(figlio);
    std::free(figlio);
}

// A struct's children, which may be taken one by one.
template <typename Struttura>
struct Figli {
    std::vector<Struttura*> tutti;
    const void* senza_validi[1] = {nullptr};

    ~Figli() {
        for (Struttura* figlio : tutti)
            libera_figlio(figlio);
    }
};

template <typename Struttura>
void libera(Struttura* struttura) {
    delete static_cast<Figli<Struttura>*>(struttura->private_data);
    struttura->release = nullptr;
}

struct Righe {
    std::int64_t numero = 0;
    Figli<ArrowSchema> schemi;
    std::unique_ptr<Figli<ArrowArray>> colonne;  // none once they were handed out
};

Righe& di(ArrowArrayStream* flusso) {
    return *static_cast<Righe*>(flusso->private_data);
}

std::size_t lunghezza(const char* dati) {
    std::int32_t numero = 0;
    const char* fine = dati + sizeof numero;
    std::memcpy(&numero, dati, sizeof numero);
    for (std::int32_t i = 0; i < 2 * numero; ++i) {
        std::int32_t byte = 0;
        std::memcpy(&byte, fine, sizeof byte);
        fine += sizeof byte + static_cast<std::size_t>(byte);
    }
    return static_cast<std::size_t>(fine - dati);
}

}  // namespace

extern "C" void* kelpy_schema(const char* formato, const char* nome, const char* dati, std::size_t quanti) noexcept;

namespace {

int dai_schema(ArrowArrayStream* flusso, ArrowSchema* uscita) noexcept {
    try {
        auto figli = std::make_unique<Figli<ArrowSchema>>();
        for (const ArrowSchema* uno : di(flusso).schemi.tutti) {
            figli->tutti.push_back(nullptr);
            figli->tutti.back() = static_cast<ArrowSchema*>(
                kelpy_schema(uno->format, uno->name, uno->metadata, lunghezza(uno->metadata)));
            if (figli->tutti.back() == nullptr)
                return ENOMEM;
        }
        *uscita = {
            "+s",    "",      nullptr, 0, static_cast<std::int64_t>(figli->tutti.size()), figli->tutti.data(),
            nullptr, &libera, nullptr,
        };
        uscita->private_data = figli.release();
        return 0;
    } catch (const std::bad_alloc&) {
        return ENOMEM;
    }
}

int dai_righe(ArrowArrayStream* flusso, ArrowArray* uscita) noexcept {
    Righe& righe = di(flusso);
    *uscita = {};
    if (!righe.colonne)
        return 0;
    Figli<ArrowArray>* figli = righe.colonne.release();
    *uscita = {righe.numero,
               0,
               0,
               1,
               static_cast<std::int64_t>(figli->tutti.size()),
               figli->senza_validi,
               figli->tutti.data(),
               nullptr,
               &libera,
               figli};
    return 0;
}

}  // namespace

/// The stream of `quante` columns with `numero` rows each: what kelpy_schema and kelpy_array gave, which it owns from now on.
/// Null when memory runs out; then they are released.
KELPYTHON_API void* kelpy_righe(std::int64_t numero, void* const* schemi, void* const* colonne,
                                std::size_t quante) noexcept {
    auto* flusso = static_cast<ArrowArrayStream*>(std::calloc(1, sizeof(ArrowArrayStream)));
    std::unique_ptr<Righe> righe(new (std::nothrow) Righe);
    try {
        if (righe && flusso != nullptr) {
            righe->numero = numero;
            righe->colonne = std::make_unique<Figli<ArrowArray>>();
            righe->schemi.tutti.reserve(quante);
            righe->colonne->tutti.reserve(quante);
            for (std::size_t i = 0; i < quante; ++i) {
                righe->schemi.tutti.push_back(static_cast<ArrowSchema*>(schemi[i]));
                righe->colonne->tutti.push_back(static_cast<ArrowArray*>(colonne[i]));
            }
            *flusso = {&dai_schema, &dai_righe, [](ArrowArrayStream*) -> const char* { return nullptr; },
                       [](ArrowArrayStream* f) {
                           delete &di(f);
                           f->release = nullptr;
                       },
                       righe.release()};
            return flusso;
        }
    } catch (const std::bad_alloc&) {  // handled as if there had been none at the start
    }
    for (std::size_t i = 0; i < quante; ++i) {
        libera_figlio(static_cast<ArrowSchema*>(schemi[i]));
        libera_figlio(static_cast<ArrowArray*>(colonne[i]));
    }
    std::free(flusso);
    return nullptr;
}
