#include "captures/registrazione.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <utility>

#include "IFunzioni.h"
#include "domain/tipi_campione.h"
#include "text/errori.h"

namespace kel::strumento {

namespace {

constexpr std::size_t BUFFER = 65536;
constexpr std::uint32_t ORA_MS = 3600000;

static_assert(sizeof(s_kel_canale) == CANALE_BYTE, "the record of memory is the record of files");

template <typename Intero>
Intero leggi(const std::uint8_t* byte) {
    Intero valore = 0;
    for (std::size_t i = sizeof valore; i-- > 0;)
        valore = static_cast<Intero>(valore << 8 | byte[i]);
    return valore;
}

// Numbers are put together from their bytes, so that a file of the device reads the same everywhere.
s_kel_canale leggiCanale(const std::uint8_t* byte) {
    s_kel_canale canale;
    std::memcpy(&canale, byte, sizeof canale);
    canale.indice = leggi<std::uint16_t>(byte + offsetof(s_kel_canale, indice));
    canale.fid = leggi<std::uint32_t>(byte + offsetof(s_kel_canale, fid));
    canale.tipo_campione = leggi<std::uint32_t>(byte + offsetof(s_kel_canale, tipo_campione));
    canale.offset_campione = leggi<std::uint32_t>(byte + offsetof(s_kel_canale, offset_campione));
    canale.dim_buffer = leggi<std::uint32_t>(byte + offsetof(s_kel_canale, dim_buffer));
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
    return "channel " + std::to_string(&canale - canali.data() + 1) + " ('" + nomeCanale(canale) + "')";
}

void verifica(std::span<const s_kel_canale> canali) {
    std::uint64_t dimensione = 0;
    for (const s_kel_canale& canale : canali)
        dimensione += canale.dim_buffer;
    if (dimensione == 0)
        throw NonTrovato("the channels ask for no bytes of samples; --packed goes by their sample types instead");
    if (dimensione > RECORD_MASSIMO)
        throw NonTrovato("the channels ask for records of " + std::to_string(dimensione) + " bytes, more than " +
                         std::to_string(RECORD_MASSIMO) + "; --packed goes by their sample types instead");
    for (const s_kel_canale& canale : canali) {
        const std::uint64_t fine = std::uint64_t{canale.offset_campione} + kelFunGetSamplSize(canale.tipo_campione);
        if (fine > dimensione)
            throw NonTrovato(chiamato(canali, canale) + " has its sample at bytes " +
                             std::to_string(canale.offset_campione) + " to " + std::to_string(fine) +
                             " of a record of " + std::to_string(dimensione) +
                             "; --packed goes by the sample types instead");
    }
}

}  // namespace

std::vector<s_kel_canale> leggiCanali(std::span<const std::uint8_t> byte, Disposizione disposizione) {
    if (byte.empty())
        throw NonTrovato("there are no channels in it");
    if (byte.size() % CANALE_BYTE != 0)
        throw NonTrovato(std::to_string(byte.size()) + " bytes are no channel records, which have " +
                         std::to_string(CANALE_BYTE) + " bytes each");
    std::vector<s_kel_canale> canali;
    canali.reserve(byte.size() / CANALE_BYTE);
    for (std::size_t i = 0; i < byte.size(); i += CANALE_BYTE)
        canali.push_back(leggiCanale(byte.data() + i));
    for (const s_kel_canale& canale : canali)
        if (canale.tipo_campione >= NUM_TIPI_CAMPIONE)
            throw NonTrovato(chiamato(canali, canale) + " has sample type " + std::to_string(canale.tipo_campione) +
                             "; known are 0 to " + std::to_string(NUM_TIPI_CAMPIONE - 1));
    if (disposizione == Disposizione::compatta)
        disponi(canali);
    verifica(canali);
    return canali;
}

std::size_t dimensioneRecord(std::span<const s_kel_canale> canali) {
    std::size_t dimensione = 0;
    for (const s_kel_canale& canale : canali)
        dimensione += canale.dim_buffer;
    return dimensione;
}

std::string nomeCanale(const s_kel_canale& canale) {
    for (const std::span<const char> testo : {std::span<const char>(canale.nome), std::span<const char>(canale.breve)})
        if (testo.front() != '\0')
            return {testo.begin(), std::find(testo.begin(), testo.end(), '\0')};
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    return catalogo->getNomeFunzione(canale.fid, false);
}

std::size_t dimensione(Orario orario) {
    return orario == Orario::u32ms ? 4 : orario == Orario::u64us ? 8 : 0;
}

LettoreRecord::LettoreRecord(Fonte fonte, std::size_t dimensione, Orario orario)
    : fonte_(std::move(fonte)),
      orario_(orario),
      passo_(dimensione + kel::strumento::dimensione(orario)),
      buffer_(std::max(BUFFER, passo_)) {}

bool LettoreRecord::prossimo() {
    while (fine_ - inizio_ < passo_) {
        // What is left goes to the front: less than a record, once in a buffer's length.
        std::copy(buffer_.begin() + static_cast<std::ptrdiff_t>(inizio_),
                  buffer_.begin() + static_cast<std::ptrdiff_t>(fine_), buffer_.begin());
        fine_ -= std::exchange(inizio_, 0);
        const std::size_t letti = fonte_(buffer_.data() + fine_, buffer_.size() - fine_);
        if (letti == 0)
            return false;
        fine_ += letti;
        byte_ += letti;
    }
    corrente_ = inizio_;
    inizio_ += passo_;
    ++record_;
    leggiOrario();
    return true;
}

const std::uint8_t* LettoreRecord::campioni() const {
    return buffer_.data() + corrente_ + dimensione(orario_);
}

void LettoreRecord::leggiOrario() {
    const std::uint8_t* byte = buffer_.data() + corrente_;
    if (orario_ == Orario::u64us)
        orario_letto_ = leggi<std::uint64_t>(byte);
    if (orario_ != Orario::u32ms)
        return;
    const auto nuovo = leggi<std::uint32_t>(byte);
    const auto prima = static_cast<std::uint32_t>(orario_letto_);
    const std::uint64_t giri = record_ > 1 ? orario_letto_ >> 32 : 0;
    // Within an hour over the end: the counter began anew, no other session.
    const bool oltre = record_ > 1 && nuovo < prima && nuovo - prima <= ORA_MS;
    orario_letto_ = (giri + (oltre ? 1 : 0)) << 32 | nuovo;
}

}  // namespace kel::strumento
