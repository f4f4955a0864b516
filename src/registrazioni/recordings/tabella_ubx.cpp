#include "recordings/tabella_ubx.h"

#include <algorithm>
#include <cmath>
#include <list>
#include <utility>

#include "common/errore.h"
#include "recordings/righe_gps.h"

namespace kel_registrazioni {

namespace {

constexpr std::size_t SETTIMANA = 0;  // the first column is the time of week, then come the fields

CampoGps campo_di(std::size_t colonna) {
    return CAMPI_GPS[colonna - 1];
}

}  // namespace

TabellaUbx::TabellaUbx(std::optional<Byte> flusso)
    : catalogo_(IFunzioni::CreateMe()),
      spinta_(!flusso),
      finita_(!spinta_),
      byte_(flusso.value_or(Byte{})),
      attesi_(byte_),
      lettore_([this](std::uint8_t* dove, std::size_t quanti) {
          if (attesi_.empty())
              return finita_ ? std::size_t{0} : LettoreUbx::ANCORA;
          const Byte dati = attesi_.first(std::min(quanti, attesi_.size()));
          std::ranges::copy(dati, dove);
          attesi_ = attesi_.subspan(dati.size());
          return dati.size();
      }) {
    voci_.push_back({"Time of Week", "", "ms", 0, 0, KEL_VALORI_UINT32, 0, "Time of Week"});
    for (const CampoGps campo : CAMPI_GPS) {
        const AspettoGps& suo = aspetto(campo);
        voci_.push_back({suo.nome, nome_lungo(*catalogo_, fid_di(campo)), suo.udm, fid_di(campo), 0, valori_di(campo),
                         suo.decimali, suo.nome, campo_di_faccia(campo), campo == CampoGps::velocita});
        if (campo == CampoGps::velocita)
            mostra_in(voci_.size() - 1, catalogo_->getUnitaBase(KEL_FID_GPS_VELOCITA));
    }
    raccogli();
}

Byte TabellaUbx::payload(const Riga& riga) const {
    return byte_.subspan(static_cast<std::size_t>(riga.posto), riga.pvt ? NAV_PVT_BYTE : NAV_SOL_BYTE);
}

// The rows of what the reader has been given.
void TabellaUbx::raccogli() {
    while (lettore_.prossima()) {
        std::uint64_t posto = lettore_.posto();
        if (spinta_) {
            posto = raccolti_.size();
            raccolti_.insert(raccolti_.end(), lettore_.payload().begin(), lettore_.payload().end());
        }
        messaggi_.push_back({posto, orologio_.secondi(lettore_.soluzione().settimana_ms), lettore_.da_pvt()});
    }
    if (spinta_)
        byte_ = raccolti_;
    righe_ = messaggi_.size();
}

void TabellaUbx::spingi(Byte pezzo) {
    if (!spinta_)
        throw Errore("the stream was given when it was opened");
    if (finita_)
        throw Errore("the stream has ended");
    attesi_ = pezzo;
    prosegui();
}

void TabellaUbx::fine() {
    if (!spinta_ || finita_)
        throw Errore("the stream has ended");
    finita_ = true;
    prosegui();
}

// The rows at hand give way to those of the next bytes. Where these cannot all be kept, the reader does not stand at their
// beginning any more: the stream is over.
void TabellaUbx::prosegui() {
    if (interrotta_)
        throw Errore("the stream was broken off when memory ran out");
    interrotta_ = true;
    prima_ += righe_;
    righe_ = 0;
    messaggi_.clear();
    raccolti_.clear();
    raccogli();
    interrotta_ = false;
}

Soluzione TabellaUbx::soluzione(std::uint64_t quale) const {
    const Riga& sua = riga(quale);
    const Byte dati = payload(sua);
    return sua.pvt ? da_nav_pvt(dati.first<NAV_PVT_BYTE>()) : da_nav_sol(dati.first<NAV_SOL_BYTE>());
}

std::array<std::uint8_t, NAV_SOL_BYTE> TabellaUbx::nav_sol(std::uint64_t quale) const {
    const Riga& sua = riga(quale);
    const Byte dati = payload(sua);
    if (sua.pvt)
        return nav_sol_da_pvt(dati.first<NAV_PVT_BYTE>());
    std::array<std::uint8_t, NAV_SOL_BYTE> sol{};
    std::ranges::copy(dati, sol.begin());
    return sol;
}

double TabellaUbx::secondi(std::uint64_t quale) {
    return riga(quale).tempo;
}

std::optional<std::int64_t> TabellaUbx::microsecondi(std::uint64_t quale) {
    constexpr double MILLE = 1000;
    return std::llround(riga(quale).tempo * MILLE) * 1000;  // whole milliseconds
}

bool TabellaUbx::mostra_in(std::size_t colonna, const std::string& udm) {
    if (colonna == SETTIMANA || campo_di(colonna) != CampoGps::velocita)
        return false;
    std::list<std::string> unita;
    catalogo_->getFunzUIVs(KEL_FID_GPS_VELOCITA, unita);
    if (std::ranges::find(unita, udm) == unita.end())
        return false;
    std::string nuova = udm;
    fattore_ = da_metri_al_secondo(*catalogo_, nuova);
    voci_[colonna].udm = std::move(nuova);
    return true;
}

void TabellaUbx::leggi(std::uint64_t da, std::size_t quante, std::span<const s_kel_lettura> letture) {
    for (const s_kel_lettura& una : letture)
        azzera(una, voci_[una.colonna].valori, quante);
    for (std::size_t i = 0; i < quante; ++i) {
        const Soluzione sua = soluzione(da + i);
        for (const s_kel_lettura& una : letture) {
            if (una.colonna == SETTIMANA) {
                scrivi_settimana(una, i, sua);
                continue;
            }
            const CampoGps campo = campo_di(una.colonna);
            scrivi_campo(una, i, sua, campo, campo == CampoGps::velocita ? fattore_ : 1, voci_[una.colonna].decimali);
        }
    }
}

}  // namespace kel_registrazioni
