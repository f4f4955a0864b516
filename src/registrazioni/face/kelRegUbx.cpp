// What a u-blox stream holds, beside its solutions, behind the C face.
#include <algorithm>
#include <list>
#include <memory>
#include <string>

#include "face/chiamata.h"
#include "gps/campi_gps.h"
#include "recordings/tabella_ubx.h"

namespace {

// Nothing for a recording of records.
const kel_registrazioni::TabellaUbx* flusso(const s_kel_registrazione* reg) {
    return dynamic_cast<const kel_registrazioni::TabellaUbx*>(reg->tabella.get());
}

}  // namespace

static_assert(KEL_NAV_SOL_BYTE == kel_registrazioni::NAV_SOL_BYTE, "the payload has one length");

int kelRegNavSol(const s_kel_registrazione* reg, uint64_t riga, unsigned char* payload) noexcept {
    const auto* tabella = flusso(reg);
    if (tabella == nullptr || !tabella->a_portata(riga, 1))
        return 0;
    std::ranges::copy(tabella->nav_sol(riga), payload);
    return 1;
}

int kelRegConteggi(const s_kel_registrazione* reg, s_kel_conteggi* conteggi) noexcept {
    const auto* tabella = flusso(reg);
    if (tabella == nullptr)
        return 0;
    const kel_registrazioni::ConteggiUbx& byte = tabella->lettore().byte();
    const kel_registrazioni::ConteggiSoluzioni& soluzioni = tabella->lettore().conteggi();
    *conteggi = {byte.byte,
                 byte.byte_fuori,
                 byte.byte_troncati,
                 soluzioni.soluzioni,
                 soluzioni.stessa_epoca,
                 soluzioni.altri,
                 soluzioni.lunghezza_errata,
                 byte.checksum_errati};
    return 1;
}

unsigned kelRegMessaggi(const s_kel_registrazione* reg, s_kel_messaggi* messaggi, unsigned capienza) noexcept {
    const auto* tabella = flusso(reg);
    if (tabella == nullptr)
        return 0;
    const auto& tipi = tabella->lettore().conteggi().per_tipo;
    unsigned quale = 0;
    for (const auto& [tipo, quanti] : tipi) {
        if (messaggi == nullptr || quale == capienza)
            break;
        messaggi[quale++] = {tipo.first, tipo.second, quanti};
    }
    return static_cast<unsigned>(tipi.size());
}

double kelRegFattoreVelocita(const char* udm) noexcept {
    return kel_registrazioni::chiama(nullptr, 0.0, [&] {
        const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
        std::list<std::string> unita;
        catalogo->getFunzUIVs(KEL_FID_GPS_VELOCITA, unita);
        const bool sua = udm != nullptr && std::ranges::find(unita, udm) != unita.end();
        return sua ? kel_registrazioni::da_metri_al_secondo(*catalogo, udm) : 0;
    });
}
