// The channels of a recording behind the C face.
#include "face/chiamata.h"
#include "recordings/pacchetti.h"
#include "recordings/tabella_record.h"

namespace {

// Nothing for a u-blox stream.
const kel_registrazioni::TabellaRecord* record(const s_kel_registrazione* reg) {
    return dynamic_cast<const kel_registrazioni::TabellaRecord*>(reg->tabella.get());
}

}  // namespace

unsigned kelRegNumCanali(const s_kel_registrazione* reg) noexcept {
    const auto* tabella = record(reg);
    return tabella != nullptr ? static_cast<unsigned>(tabella->canali().size()) : 0;
}

const char* kelRegCanale(const s_kel_registrazione* reg, unsigned canale, s_kel_canale* record_canale) noexcept {
    if (canale >= kelRegNumCanali(reg))
        return nullptr;
    const auto* tabella = record(reg);
    if (record_canale != nullptr)
        *record_canale = tabella->canali()[canale];
    return tabella->nome(canale).c_str();
}

size_t kelRegPasso(const s_kel_registrazione* reg) noexcept {
    const auto* tabella = record(reg);
    return tabella != nullptr ? tabella->passo() : 0;
}

int kelRegTipoPacchetto(kel_funpos fid) noexcept {
    const auto tipo = kel_registrazioni::tipo_pacchetto(fid);
    return tipo ? static_cast<int>(*tipo) : -1;
}
