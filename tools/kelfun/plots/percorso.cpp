#include "plots/percorso.h"

#include <algorithm>

#include "text/durata.h"
#include "text/errori.h"

namespace kel::strumento {

namespace {

constexpr std::size_t RITORNI_MASSIMI = 1000;  // nobody joins more recordings
constexpr std::size_t RITORNI_DETTI = 5;
constexpr double SPAZIO = 0.02;  // between two sessions, of what has been drawn
// Between two records further apart than this, and than this many steps, nothing was recorded.
constexpr double PAUSA_S = 1;
constexpr double PAUSA_PASSI = 10;
constexpr double ORA = 3600;

}  // namespace

// Tells whether a record begins a session.
bool Percorso::comincia(double tempo) {
    const bool ritorno = ultimo_ && tempo < *ultimo_;
    if (ritorno) {
        if (ritorni_.size() == RITORNI_MASSIMI)
            throw NonTrovato("time runs backwards more than " + std::to_string(RITORNI_MASSIMI) + " times by record " +
                             std::to_string(record_) + ": these are no times of a recording");
        ritorni_.push_back(record_);
    }
    return ritorno || !ultimo_;
}

std::optional<double> Percorso::colloca(double tempo, std::optional<double> velocita) {
    const double passo = ultimo_ ? tempo - *ultimo_ : 0;
    const bool pausa = passo_ > 0 && passo > PAUSA_S && passo > PAUSA_PASSI * passo_;
    interrotto_ = pausa;
    nuova_ = false;
    if (comincia(tempo)) {
        metri_ = 0;
        velocita_.reset();
        da_disegnare_ = true;
    } else if (velocita_ && !pausa) {
        metri_ += std::max(0.0, (*velocita_ + velocita.value_or(*velocita_)) / 2 * passo);
    }
    if (velocita)
        velocita_ = velocita;
    if (passo > 0)
        passo_ = passo;
    minimo_ = ultimo_ ? std::min(minimo_, tempo) : tempo;
    massimo_ = ultimo_ ? std::max(massimo_, tempo) : tempo;
    ultimo_ = tempo;
    ++record_;
    if ((tratto_.da && tempo < *tratto_.da) || (tratto_.a && tempo > *tratto_.a))
        return std::nullopt;
    const double proprio = tratto_.ascissa == Ascissa::distanza ? metri_ : tempo;
    if (da_disegnare_) {
        da_disegnare_ = false;
        nuova_ = interrotto_ = !sessioni_.empty();
        if (!nuova_) {
            sessioni_.push_back({proprio, proprio, 0});
        } else {
            const double da = fine_ + std::max(1.0, SPAZIO * (fine_ - sessioni_.front().da));
            sessioni_.push_back({da, da, da - proprio});
        }
    }
    fine_ = proprio + sessioni_.back().scarto;
    sessioni_.back().a = fine_;
    return fine_;
}

std::vector<Sessione> Percorso::sessioni() const {
    return sessioni_.size() > 1 ? sessioni_ : std::vector<Sessione>();
}

void Percorso::verifica() const {
    if (record_ == 0 || !sessioni_.empty())
        return;
    const bool ore = massimo_ >= ORA;
    throw NonTrovato("nothing lies between --from and --to; the times go from " + testo_durata(minimo_, 0, ore) +
                     " to " + testo_durata(massimo_, 0, ore));
}

std::string Percorso::nota() const {
    if (ritorni_.empty())
        return "";
    std::string dove;
    for (std::size_t i = 0; i < std::min(ritorni_.size(), RITORNI_DETTI); ++i)
        dove += (i == 0 ? "" : ", ") + std::to_string(ritorni_[i]);
    if (ritorni_.size() > RITORNI_DETTI)
        dove += " and " + std::to_string(ritorni_.size() - RITORNI_DETTI) + " more";
    return "time runs backwards at record " + dove + ": " + std::to_string(ritorni_.size() + 1) +
           " sessions, drawn one after the other";
}

}  // namespace kel::strumento
