#include "recordings/canali.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>

#include "IFunzioni.h"
#include "common/errore.h"
#include "common/interi.h"

namespace kel_registrazioni {

namespace {

static_assert(sizeof(s_kel_canale) == CANALE_BYTE, "the record of memory is the record of files");

// Numbers are put together from their bytes, so that a file of the device reads the same everywhere.
s_kel_canale leggi_canale(std::span<const std::uint8_t> byte) {
    s_kel_canale canale;
    std::memcpy(&canale, byte.data(), sizeof canale);
    canale.indice = intero<std::uint16_t>(byte, offsetof(s_kel_canale, indice));
    canale.fid = intero<std::uint32_t>(byte, offsetof(s_kel_canale, fid));
    canale.tipo_campione = intero<std::uint32_t>(byte, offsetof(s_kel_canale, tipo_campione));
    canale.offset_campione = intero<std::uint32_t>(byte, offsetof(s_kel_canale, offset_campione));
    canale.dim_buffer = intero<std::uint32_t>(byte, offsetof(s_kel_canale, dim_buffer));
    return canale;
}

void disponi(std::span<s_kel_canale> canali) {
    std::uint32_t offset = 0;
    for (s_kel_canale& canale : canali) {
        canale.offset_campione = offset;
        canale.dim_buffer = kelFunGetSamplSize(canale.tipo_campione);
        offset += canale.dim_buffer;  // at most 65536 times 64 bytes
    }
}

std::string chiamato(std::span<const s_kel_canale> canali, const s_kel_canale& canale) {
    return "channel " + std::to_string(&canale - canali.data() + 1) + " ('" + nome_canale(canale) + "')";
}

void verifica(std::span<const s_kel_canale> canali, const Parole& parole) {
    const std::string altrimenti = std::string("; ") + parole.compatta + " goes by ";
    std::uint64_t dimensione = 0;
    for (const s_kel_canale& canale : canali)
        dimensione += canale.dim_buffer;
    if (dimensione == 0)
        throw Errore("the channels ask for no bytes of samples" + altrimenti + "their sample types instead");
    if (dimensione > RECORD_MASSIMO)
        throw Errore("the channels ask for records of " + std::to_string(dimensione) + " bytes, more than " +
                     std::to_string(RECORD_MASSIMO) + altrimenti + "their sample types instead");
    for (const s_kel_canale& canale : canali) {
        const std::uint64_t fine = std::uint64_t{canale.offset_campione} + kelFunGetSamplSize(canale.tipo_campione);
        if (fine > dimensione)
            throw Errore(chiamato(canali, canale) + " has its sample at bytes " +
                         std::to_string(canale.offset_campione) + " to " + std::to_string(fine) + " of a record of " +
                         std::to_string(dimensione) + altrimenti + "the sample types instead");
    }
}

}  // namespace

std::vector<s_kel_canale> leggi_canali(std::span<const std::uint8_t> byte, Disposizione disposizione,
                                       const Parole& parole) {
    if (byte.empty())
        throw Errore("there are no channels in it");
    if (byte.size() % CANALE_BYTE != 0)
        throw Errore(std::to_string(byte.size()) + " bytes are no channel records, which have " +
                     std::to_string(CANALE_BYTE) + " bytes each");
    std::vector<s_kel_canale> canali;
    canali.reserve(byte.size() / CANALE_BYTE);
    for (std::size_t i = 0; i < byte.size(); i += CANALE_BYTE)
        canali.push_back(leggi_canale(byte.subspan(i, CANALE_BYTE)));
    for (const s_kel_canale& canale : canali)
        if (canale.tipo_campione >= NUM_TIPI_CAMPIONE)
            throw Errore(chiamato(canali, canale) + " has sample type " + std::to_string(canale.tipo_campione) +
                         "; known are 0 to " + std::to_string(NUM_TIPI_CAMPIONE - 1));
    if (disposizione == Disposizione::compatta)
        disponi(canali);
    verifica(canali, parole);
    return canali;
}

std::size_t dimensione_record(std::span<const s_kel_canale> canali) {
    std::size_t dimensione = 0;
    for (const s_kel_canale& canale : canali)
        dimensione += canale.dim_buffer;
    return dimensione;
}

std::string nome_canale(const s_kel_canale& canale) {
    for (const std::span<const char> testo : {std::span<const char>(canale.nome), std::span<const char>(canale.breve)})
        if (testo.front() != '\0')
            return {testo.begin(), std::find(testo.begin(), testo.end(), '\0')};
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    return catalogo->getNomeFunzione(canale.fid, false);
}

}  // namespace kel_registrazioni
