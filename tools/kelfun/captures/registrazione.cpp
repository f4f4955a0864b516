#include "captures/registrazione.h"

#include <cstddef>
#include <cstdint>

#include "io/ingresso.h"
#include "text/errori.h"

namespace kel::strumento {

namespace {

constexpr std::size_t BYTE_CANALI_MASSIMI = std::size_t{65536} * sizeof(s_kel_canale);  // an index has 16 bits

std::vector<std::uint8_t> letti(Ingresso& ingresso) {
    std::vector<std::uint8_t> byte(BYTE_CANALI_MASSIMI + 1);
    byte.resize(ingresso.leggi_tutti(byte.data(), byte.size()));
    return byte;
}

Registrazione di_file(const std::string& file, const s_kel_apertura& apertura) {
    Ingresso ingresso(file);
    return {letti(ingresso), ingresso.nome(), apertura};
}

}  // namespace

Registrazione::Registrazione(const std::string& file_canali, const s_kel_apertura& apertura)
    : Registrazione(di_file(file_canali, apertura)) {}

Registrazione::Registrazione(std::span<const std::uint8_t> canali, const std::string& nome,
                             const s_kel_apertura& apertura) {
    s_kel_errore errore{};
    reg_.reset(kelRegApri(canali.data(), canali.size(), nullptr, 0, &apertura, &errore));
    if (!reg_)
        throw NonTrovato("cannot use '" + nome + "' as channels: " + errore.testo);
    for (unsigned i = 0; i < kelRegNumCanali(reg_.get()); ++i) {
        CanaleRecord& canale = canali_.emplace_back();
        canale.nome = kelRegCanale(reg_.get(), i, &canale.record);
    }
}

Registrazione::Registrazione() {
    s_kel_errore errore{};
    reg_.reset(kelRegApriUbx(nullptr, 0, &errore));
    if (!reg_)
        throw NonTrovato(errore.testo);
}

}  // namespace kel::strumento
