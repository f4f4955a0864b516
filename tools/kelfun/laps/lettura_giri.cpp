#include "laps/lettura_giri.h"

#include <algorithm>
#include <cstdio>
#include <sstream>

#include "captures/file_campioni.h"
#include "captures/flusso.h"
#include "captures/messaggi_ubx.h"
#include "text/errori.h"
#include "text/mostrabile.h"

namespace kel::strumento {

template <typename Campioni>
void Giri::raccogli(Campioni& campioni) {
    s_kel_errore errore{};
    giri_.reset(kelGiriApri(reg_.reg(), &errore));
    bool bene = giri_ != nullptr;
    while (bene && campioni.prossimo())
        bene = kelGiriAggiungi(giri_.get(), &errore) != 0;
    if (!bene)
        throw NonTrovato(errore.testo);
}

Giri::Giri(const std::string& cattura) {
    Flusso flusso(cattura, reg_);
    flusso.ingresso().mostra_avanzamento(false);
    raccogli(flusso);
    if (flusso.righe() != 0)
        return;
    const std::string messaggi = elenco_messaggi(reg_);
    throw NonTrovato("there is no NAV-SOL and no NAV-PVT message in it" +
                     (messaggi.empty() ? "" : "; messages by class and id: " + messaggi));
}

Giri::Giri(const std::string& canali, const std::string& campioni, const s_kel_apertura& apertura)
    : reg_(canali, apertura) {
    FileCampioni file(campioni, reg_);
    file.annuncia("laps");
    file.ingresso().mostra_avanzamento(false);
    raccogli(file);
    file.verifica_fine();
}

void Giri::calcola(const s_kel_scelte_giri& scelte) {
    s_kel_errore errore{};
    const bool trovati = kelGiriCalcola(giri_.get(), &scelte, &errore) != 0;
    std::istringstream righe(kelGiriDetto(giri_.get()));
    for (std::string riga; std::getline(righe, riga);)
        std::fprintf(stderr, "kelfun laps: %s\n", mostrabile(riga).c_str());
    if (!trovati)
        throw NonTrovato(errore.testo);
    tutti_.resize(kelGiriNumero(giri_.get()));
    for (unsigned i = 0; i < tutti_.size(); ++i)
        kelGiriGiro(giri_.get(), i, &tutti_[i]);
}

const s_kel_giro* Giri::migliore() const {
    const auto suo = std::ranges::find_if(tutti_, [](const s_kel_giro& giro) { return giro.migliore != 0; });
    return suo != tutti_.end() ? &*suo : nullptr;
}

std::vector<s_kel_punto_giro> Giri::andamento(const s_kel_giro& giro, double lunghezza) const {
    std::vector<s_kel_punto_giro> punti(kelGiriAndamento(giri_.get(), posto(giro), lunghezza, nullptr, 0));
    kelGiriAndamento(giri_.get(), posto(giro), lunghezza, punti.data(), punti.size());
    return punti;
}

std::vector<s_kel_fix> Giri::fix(const s_kel_giro& giro) const {
    std::vector<s_kel_fix> tutti(kelGiriFix(giri_.get(), posto(giro), nullptr, 0));
    kelGiriFix(giri_.get(), posto(giro), tutti.data(), tutti.size());
    return tutti;
}

}  // namespace kel::strumento
