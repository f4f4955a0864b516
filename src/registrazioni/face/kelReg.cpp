// Recordings and u-blox streams behind the C face.
#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>

#include "common/errore.h"
#include "face/chiamata.h"
#include "recordings/tabella_record.h"
#include "recordings/tabella_ubx.h"

using kel_registrazioni::Byte;
using kel_registrazioni::chiama;
using kel_registrazioni::VoceColonna;

namespace {

// Bytes that a caller holds; nothing where he gave none, because he will push them.
std::optional<Byte> tenuti(const void* byte, std::size_t quanti) {
    return byte != nullptr ? std::optional(Byte(static_cast<const std::uint8_t*>(byte), quanti)) : std::nullopt;
}

template <typename Riga, typename... Argomenti>
s_kel_registrazione* apri(s_kel_errore* errore, const Argomenti&... argomenti) {
    return chiama(errore, static_cast<s_kel_registrazione*>(nullptr),
                  [&] { return new s_kel_registrazione{std::make_shared<Riga>(argomenti...)}; });
}

}  // namespace

s_kel_registrazione* kelRegApri(const void* canali, size_t byte_canali, const void* campioni, size_t byte_campioni,
                                const s_kel_apertura* apertura, s_kel_errore* errore) noexcept {
    const s_kel_apertura scelta = apertura != nullptr ? *apertura : s_kel_apertura{};
    return apri<kel_registrazioni::TabellaRecord>(errore, tenuti(canali, byte_canali).value_or(Byte{}),
                                                  tenuti(campioni, byte_campioni), scelta);
}

s_kel_registrazione* kelRegApriUbx(const void* byte, size_t quanti, s_kel_errore* errore) noexcept {
    return apri<kel_registrazioni::TabellaUbx>(errore, tenuti(byte, quanti));
}

void kelRegChiudi(s_kel_registrazione* reg) noexcept {
    delete reg;
}

int kelRegSpingi(s_kel_registrazione* reg, const void* byte, size_t quanti, s_kel_errore* errore) noexcept {
    return chiama(errore, 0, [&] {
        if (byte == nullptr && quanti != 0)
            throw kel_registrazioni::Errore("there are no bytes where " + std::to_string(quanti) + " are announced");
        if (quanti == 0)
            reg->tabella->fine();
        else
            reg->tabella->spingi(Byte(static_cast<const std::uint8_t*>(byte), quanti));
        return 1;
    });
}

const char* kelRegDetto(const s_kel_registrazione* reg) noexcept {
    return reg->tabella->detto().c_str();
}

eKelOrario kelRegOrario(const s_kel_registrazione* reg) noexcept {
    return reg->tabella->orario();
}

uint64_t kelRegPrima(const s_kel_registrazione* reg) noexcept {
    return reg->tabella->prima();
}

uint64_t kelRegRighe(const s_kel_registrazione* reg) noexcept {
    return reg->tabella->righe();
}

uint64_t kelRegAvanzo(const s_kel_registrazione* reg) noexcept {
    return reg->tabella->avanzo();
}

unsigned kelRegNumColonne(const s_kel_registrazione* reg) noexcept {
    return static_cast<unsigned>(reg->tabella->voci().size());
}

int kelRegDescrivi(const s_kel_registrazione* reg, unsigned colonna, s_kel_descrizione* descrizione) noexcept {
    if (colonna >= reg->tabella->voci().size())
        return 0;
    const VoceColonna& voce = reg->tabella->voci()[colonna];
    *descrizione = {voce.nome.c_str(), voce.lungo.c_str(), voce.udm.c_str(), voce.fid,
                    voce.canale,       voce.valori,        voce.decimali,    voce.proprio.c_str(),
                    voce.campo,        voce.con_unita,     voce.interna,     voce.pacchetto};
    return 1;
}

const char* kelRegAvanzoDetto(const s_kel_registrazione* reg) noexcept {
    return chiama(nullptr, "", [&] { return reg->tabella->avanzo_detto(); });
}

int kelRegUnita(s_kel_registrazione* reg, unsigned colonna, const char* udm) noexcept {
    return chiama(nullptr, 0, [&] {
        return udm != nullptr && colonna < reg->tabella->voci().size() && reg->tabella->mostra_in(colonna, udm) ? 1 : 0;
    });
}

int kelRegTempi(s_kel_registrazione* reg, uint64_t da, size_t quante, double* secondi) noexcept {
    return chiama(nullptr, 0, [&] {
        kel_registrazioni::Tabella& tabella = *reg->tabella;
        if (!tabella.con_tempo() || !tabella.a_portata(da, quante))
            return 0;
        for (size_t i = 0; i < quante; ++i)
            secondi[i] = tabella.secondi(da + i);
        return 1;
    });
}

int kelRegTratto(s_kel_registrazione* reg, double da_s, double a_s, uint64_t* prima, uint64_t* quante) noexcept {
    return chiama(nullptr, 0, [&] {
        kel_registrazioni::Tabella& tabella = *reg->tabella;
        if (!tabella.con_tempo())
            return 0;
        std::optional<std::uint64_t> primo;
        std::uint64_t ultimo = 0;
        for (std::uint64_t i = tabella.prima(); i < tabella.prima() + tabella.righe(); ++i)
            if (const double tempo = tabella.secondi(i); tempo >= da_s && tempo < a_s) {
                primo = primo.value_or(i);
                ultimo = i;
            }
        if (!primo)
            return 0;
        *prima = *primo;
        *quante = ultimo - *primo + 1;
        return 1;
    });
}

int kelRegLeggi(s_kel_registrazione* reg, uint64_t da, size_t quante, const s_kel_lettura* letture,
                unsigned num_letture) noexcept {
    return chiama(nullptr, 0, [&] {
        const std::span<const s_kel_lettura> tutte(letture, num_letture);
        if (!leggibili(*reg->tabella, da, quante, tutte))
            return 0;
        reg->tabella->leggi(da, quante, tutte);
        return 1;
    });
}
