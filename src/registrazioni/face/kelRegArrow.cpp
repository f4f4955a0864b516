// A recording as an Arrow stream.
#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

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
    std::vector<std::string> unita;  // of the columns, as the schema tells them
    s_kel_errore errore{};
};

std::vector<std::string> unita(const Tabella& tabella) {
    std::vector<std::string> tutte;
    for (const VoceColonna& voce : tabella.voci())
        tutte.push_back(voce.udm);
    return tutte;
}

// A program asks for the schema once: batches in another unit would be taken for the first one.
bool cambiata(Flusso& flusso) {
    const auto& voci = flusso.tabella->voci();
    for (std::size_t i = 0; i < voci.size(); ++i)
        if (voci[i].udm != flusso.unita[i]) {
            di(&flusso.errore, "the unit of '" + voci[i].nome + "' was changed after the stream was made");
            return true;
        }
    return false;
}

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
        if (cambiata(dietro(flusso)))
            return EINVAL;
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
        if (cambiata(suo))
            return EINVAL;
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
        auto suo = std::make_unique<Flusso>(Flusso{reg->tabella, da, quante, testi != 0, unita(*reg->tabella)});
        *flusso = {prendi_schema, prossimo, ultimo_errore, rilascia, suo.release()};
        return 1;
    });
}
