#include "laps/giri_registrati.h"

#include <cmath>
#include <utility>

#include "common/posto.h"

namespace kel_registrazioni {

namespace {

constexpr double ATTESA_S = 1;
constexpr std::size_t ATTESA_RECORD = 8;
constexpr int CORRENTE_MASSIMO = 60000;  // ms; more, and the running time is not of the lap that has just begun

bool cresciuto(const std::optional<int>& prima, const std::optional<int>& ora) {
    return prima && ora && *ora > *prima;
}

}  // namespace

void GiriRegistrati::aggiungi(std::optional<double> tempo, const StatoCronometro& stato) {
    fai_posto(giri_);                                           // a record closes one lap at most
    const bool indietro = tempo && tempo_ && *tempo < *tempo_;  // sessions joined
    if (indietro) {
        if (attesa_)
            chiudi_giro();
        ultima_fine_.reset();
    }
    ora_ = stato;
    tempo_ = tempo;
    if (record_++ == 0 || indietro) {
        prima_ = stato;
        return;
    }
    const bool altro_numero = stato.numero && stato.numero != prima_.numero;
    const bool altro_tempo = stato.ms && stato.ms != prima_.ms;
    if (!attesa_ && (altro_numero || altro_tempo)) {
        std::optional<double> fine = tempo;
        if (tempo && stato.corrente_ms && *stato.corrente_ms >= 0 && *stato.corrente_ms <= CORRENTE_MASSIMO)
            fine = *tempo - *stato.corrente_ms / 1000.0;
        attesa_ = {record_ - 1, tempo, fine};
    }
    if (!attesa_)
        return;
    const bool tutto = (!stato.numero || altro_numero) && (!stato.ms || altro_tempo);
    const bool scaduta =
        tempo && attesa_->tempo ? *tempo - *attesa_->tempo >= ATTESA_S : record_ - 1 - attesa_->record >= ATTESA_RECORD;
    if (tutto || scaduta)
        chiudi_giro();
}

void GiriRegistrati::chiudi_giro() {
    const Attesa attesa = *std::exchange(attesa_, std::nullopt);
    const StatoCronometro prima = std::exchange(prima_, ora_);
    const auto fine_prima = std::exchange(ultima_fine_, attesa.fine);
    GiroRegistrato giro;
    giro.record = attesa.record;
    giro.fine = attesa.fine;
    giro.numero = ora_.numero.value_or(contati_ + 1);
    if (ora_.ms) {
        giro.ms = *ora_.ms;
        // A timer set to zero, or a number that begins anew, is no lap.
        if (giro.ms <= 0 || (ora_.ms == prima.ms && !cresciuto(prima.numero, ora_.numero)))
            return;
    } else {
        if (!cresciuto(prima.numero, ora_.numero) || !attesa.fine || !fine_prima)
            return;
        giro.numero = *prima.numero;
        giro.ms = static_cast<int>(std::lround((*attesa.fine - *fine_prima) * 1000));
    }
    ++contati_;
    giri_.push_back(giro);
}

std::vector<GiroRegistrato> GiriRegistrati::chiudi() {
    if (attesa_)
        chiudi_giro();
    return std::move(giri_);
}

}  // namespace kel_registrazioni
