#include "captures/flusso.h"

#include "text/errori.h"

namespace kel::strumento {

Flusso::Flusso(const std::string& nome, const Registrazione& reg, std::size_t pezzo)
    : ingresso_(nome), reg_(reg.reg()), pezzo_(pezzo) {}

bool Flusso::spingi() {
    if (finito_)
        return false;
    const std::size_t letti = ingresso_.leggi(pezzo_.data(), pezzo_.size());
    byte_ += letti;
    finito_ = letti == 0;
    s_kel_errore errore{};
    if (kelRegSpingi(reg_, pezzo_.data(), letti, &errore) == 0)
        throw NonTrovato("cannot use '" + ingresso_.nome() + "' as samples: " + errore.testo);
    return true;
}

bool Flusso::prossimo() {
    while (spingi())
        if (kelRegRighe(reg_) != 0)
            return true;
    return false;
}

}  // namespace kel::strumento
