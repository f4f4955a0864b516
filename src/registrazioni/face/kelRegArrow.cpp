// A recording as an Arrow stream.
#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <memory>
#include <string>

#include "arrow/blocco.h"
#include "arrow/schema.h"
#include "face/chiamata.h"

namespace kel_registrazioni {

namespace {

constexpr std::uint64_t BLOCCO = 65536;  // rows

struct Flusso {
    std::shared_ptr<Tabella> tabella;
    std::uint64_t da;
    std::uint64_t resto;
    bool testi;
    s_kel_errore errore{};
};

Flusso& dietro(ArrowArrayStream* flusso) {
    return *static_cast<Flusso*>(flusso->private_data);
}

// 0, or the number of an error whose text is kept.
template <typename Lavoro>
int prova(Flusso& flusso, Lavoro&& lavoro) noexcept {
    flusso.errore.testo[0] = '\0';
    try {
        return lavoro();
    } catch (const std::bad_alloc&) {
        di(&flusso.errore, "out of memory");
        return ENOMEM;
    } catch (const std::exception& e) {
        di(&flusso.errore, e.what());
        return EINVAL;
    }
}

int prendi_schema(ArrowArrayStream* flusso, ArrowSchema* uscita) {
    return prova(dietro(flusso), [&] {
        schema(*dietro(flusso).tabella, dietro(flusso).testi, *uscita);
        return 0;
    });
}

int prossimo(ArrowArrayStream* flusso, ArrowArray* uscita) {
    Flusso& suo = dietro(flusso);
    return prova(suo, [&] {
        if (suo.resto == 0) {
            uscita->release = nullptr;
            return 0;
        }
        const std::uint64_t quante = std::min(suo.resto, BLOCCO);
        if (!suo.tabella->a_portata(suo.da, quante)) {
            di(&suo.errore, "the rows are at hand no longer: another piece of the stream was pushed");
            return EINVAL;
        }
        blocco(*suo.tabella, suo.testi, suo.da, static_cast<std::size_t>(quante), *uscita);
        suo.da += quante;
        suo.resto -= quante;
        return 0;
    });
}

const char* ultimo_errore(ArrowArrayStream* flusso) {
    const char* testo = dietro(flusso).errore.testo;
    return *testo != '\0' ? testo : nullptr;
}

void rilascia(ArrowArrayStream* flusso) {
    delete &dietro(flusso);
    flusso->release = nullptr;
}

}  // namespace

}  // namespace kel_registrazioni

int kelRegArrow(s_kel_registrazione* reg, uint64_t da, uint64_t quante, int testi, struct ArrowArrayStream* flusso,
                s_kel_errore* errore) noexcept {
    using namespace kel_registrazioni;
    return chiama(errore, 0, [&] {
        if (!reg->tabella->a_portata(da, quante)) {
            kel_registrazioni::di(errore, "these rows are not at hand");
            return 0;
        }
        auto suo = std::make_unique<Flusso>(Flusso{reg->tabella, da, quante, testi != 0});
        *flusso = {prendi_schema, prossimo, ultimo_errore, rilascia, suo.release()};
        return 1;
    });
}
