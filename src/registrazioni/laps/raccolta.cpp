#include "laps/raccolta.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "common/interi.h"
#include "recordings/canali.h"

namespace kel_registrazioni {

namespace {

constexpr std::size_t PACCHETTO_2G = 28;
constexpr std::size_t PACCHETTO_1G = 8;
constexpr double KMH = 3.6;

bool di(kel_funpos fid, unsigned grandezza, unsigned oggetto) {
    return kelFidGrandezza(fid) == grandezza && kelFidOggetto(fid) == oggetto;
}

Giro aperto(const Giro& vicino, int numero, double inizio, double fine, StatoGiro stato) {
    Giro giro;
    giro.numero = numero;
    giro.sessione = vicino.sessione;
    giro.inizio = inizio;
    giro.fine = fine;
    giro.stato = stato;
    return giro;
}

// Around the laps of each session what was driven out and in.
std::vector<Giro> con_aperti(const std::vector<Giro>& chiusi, const Guida& guida) {
    const auto& sessioni = guida.sessioni();
    std::vector<Giro> tutti;
    for (std::size_t i = 0; i < chiusi.size(); ++i) {
        const Giro& giro = chiusi[i];
        const std::size_t oltre =
            giro.sessione + 1 < sessioni.size() ? sessioni[giro.sessione + 1] : guida.fix().size();
        const double primo = guida.fix()[sessioni[giro.sessione]].tempo;
        const double ultimo = guida.fix()[oltre - 1].tempo;
        if ((i == 0 || chiusi[i - 1].sessione != giro.sessione) && *giro.inizio > primo)
            tutti.push_back(aperto(giro, giro.numero - 1, primo, *giro.inizio, StatoGiro::uscita));
        tutti.push_back(giro);
        if ((i + 1 == chiusi.size() || chiusi[i + 1].sessione != giro.sessione) && *giro.fine < ultimo)
            tutti.push_back(aperto(giro, giro.numero + 1, *giro.fine, ultimo, StatoGiro::rientro));
    }
    return tutti;
}

}  // namespace

Fix fix_di(const Soluzione& soluzione, OrologioGps& orologio) {
    Fix fix;
    fix.tempo = orologio.secondi(soluzione.settimana_ms);
    if (!soluzione.luogo || !con_altezza(soluzione.fix))
        return fix;
    fix.valido = true;
    fix.latitudine = soluzione.luogo->latitudine;
    fix.longitudine = soluzione.luogo->longitudine;
    fix.velocita = soluzione.velocita->orizzontale();  // whoever has a place has a velocity
    fix.rotta = soluzione.velocita->rotta();
    return fix;
}

RaccoltaRecord::RaccoltaRecord(const IFunzioni& catalogo, std::span<const s_kel_canale> canali) {
    cerca_giri(catalogo, canali);
    cerca_velocita(catalogo, canali);
    for (const s_kel_canale& canale : canali) {
        const bool registratore = canale.tipo_campione == KEL_TIPO_GPS_KEL;
        if (!gps_ && kelFidGrandezza(canale.fid) == FID_PHI_PACKAGE && kelFidOggetto(canale.fid) == FID_DETTAGLI_GPS &&
            (registratore || canale.tipo_campione == KEL_TIPO_GPS_NAVSOL))
            gps_ = Gps{canale.offset_campione + (registratore ? 4u : 0u), {}, {}};
    }
}

// Packets before channels: in a packet number and time change together.
void RaccoltaRecord::cerca_giri(const IFunzioni& catalogo, std::span<const s_kel_canale> canali) {
    for (const s_kel_canale& canale : canali) {
        const bool prima_generazione = canale.tipo_campione == KEL_TIPO_LAP_1G;
        if (!canale_giri_.empty() || kelFidGrandezza(canale.fid) != FID_PHI_PACKAGE ||
            kelFidOggetto(canale.fid) != FID_DETTAGLI_LAPTIME ||
            (!prima_generazione && canale.tipo_campione != KEL_TIPO_LAP_2G &&
             canale.tipo_campione != KEL_TIPO_TEMPO_PACCHETTO))
            continue;
        formato_ = prima_generazione ? Formato::pacchetto_1g : Formato::pacchetto_2g;
        offset_giri_ = canale.offset_campione;
        canale_giri_ = "'" + nome_canale(canale) + "'";
    }
    if (!canale_giri_.empty())
        return;
    for (std::size_t i = 0; i < canali.size(); ++i) {
        const s_kel_canale& canale = canali[i];
        std::optional<ColonnaDati>* dove = di(canale.fid, FID_PHI_NUMBER, FID_OBJ_LAP)         ? &numero_
                                           : di(canale.fid, FID_PHI_TIME, FID_OBJ_LAP)         ? &tempo_
                                           : di(canale.fid, FID_PHI_TIME, FID_OBJ_RUNNING_LAP) ? &corrente_
                                                                                               : nullptr;
        if (dove == nullptr || *dove)
            continue;
        ColonnaDati colonna(catalogo, canale, i, canale.fid);
        if (!colonna.ha_valore())
            continue;
        if (dove != &corrente_)
            canale_giri_ += (canale_giri_.empty() ? "'" : ", '") + nome_canale(canale) + "'";
        *dove = std::move(colonna);
    }
}

void RaccoltaRecord::cerca_velocita(const IFunzioni& catalogo, std::span<const s_kel_canale> canali) {
    for (std::size_t i = 0; i < canali.size() && !velocita_; ++i)
        if (kelFidGrandezza(canali[i].fid) == FID_PHI_SPEED)
            if (ColonnaDati colonna(catalogo, canali[i], i, canali[i].fid); colonna.ha_valore())
                velocita_ = std::move(colonna);
}

StatoCronometro RaccoltaRecord::cronometro(const std::uint8_t* campioni) {
    const auto valore = [campioni](const std::optional<ColonnaDati>& colonna) -> std::optional<int> {
        const auto letto = colonna ? colonna->valore(campioni) : std::nullopt;
        constexpr double LIMITE = std::numeric_limits<int>::max();
        return letto && *letto >= -LIMITE && *letto <= LIMITE ? std::optional(static_cast<int>(*letto)) : std::nullopt;
    };
    if (formato_ == Formato::canali)
        return {valore(numero_), valore(tempo_), valore(corrente_)};
    if (formato_ == Formato::pacchetto_2g) {
        const std::span<const std::uint8_t> p(campioni + offset_giri_, PACCHETTO_2G);
        return {intero<std::uint16_t>(p, 2), intero<std::int32_t>(p, 4), intero<std::int32_t>(p, 16)};
    }
    // Lap and split share one word of time: it is a lap's when the lap number, four bits that begin anew, has changed.
    const std::span<const std::uint8_t> p(campioni + offset_giri_, PACCHETTO_1G);
    const int numero = intero<std::uint16_t>(p, 4) >> 12;
    giri_1g_ += (numero - ultimo_1g_) & 15;
    if (numero != ultimo_1g_ || righe_.empty())
        tempo_1g_ = intero<std::int32_t>(p, 0);
    ultimo_1g_ = numero;
    return {giri_1g_, tempo_1g_, std::nullopt};
}

// Takes a record's row and fix out again, unless all of it was put in.
struct RaccoltaRecord::Ritorno {
    std::deque<Riga>& righe;
    std::deque<Fix>& soluzioni;
    std::size_t soluzioni_prima;
    bool tutto_fatto = false;

    Ritorno(std::deque<Riga>& delle_righe, std::deque<Fix>& delle_soluzioni, std::size_t prima)
        : righe(delle_righe), soluzioni(delle_soluzioni), soluzioni_prima(prima) {}
    Ritorno(const Ritorno&) = delete;
    Ritorno& operator=(const Ritorno&) = delete;
    ~Ritorno() {
        if (tutto_fatto)
            return;
        if (soluzioni.size() > soluzioni_prima)
            soluzioni.pop_back();
        righe.pop_back();
    }
};

void RaccoltaRecord::aggiungi(std::optional<double> tempo, const std::uint8_t* campioni) {
    std::optional<Soluzione> nuova;
    if (gps_) {
        const Soluzione soluzione =
            da_nav_sol(std::span<const std::uint8_t, NAV_SOL_BYTE>(campioni + gps_->offset, NAV_SOL_BYTE));
        if (gps_->ultimo != soluzione.settimana_ms)  // else the logger repeats it
            nuova = soluzione;
    }
    Riga riga;
    riga.tempo = tempo.value_or(0);
    riga.velocita = velocita_ && !gps_ ? static_cast<float>(velocita_->valore(campioni).value_or(-1) / KMH) : -1;
    if (nuova)
        riga.soluzione = static_cast<std::int32_t>(soluzioni_.size());

    // Where there is no memory for it the record has not been put in, and may come again.
    std::optional<StatoCronometro> stato;
    if (!canale_giri_.empty())
        stato = cronometro(campioni);
    righe_.push_back(riga);
    Ritorno ritorno(righe_, soluzioni_, soluzioni_.size());
    if (nuova)
        soluzioni_.push_back(fix_di(*nuova, gps_->orologio));
    if (stato)
        giri_.aggiungi(tempo, *stato);
    ritorno.tutto_fatto = true;
    if (nuova)
        gps_->ultimo = nuova->settimana_ms;
    con_tempo_ = con_tempo_ && tempo.has_value();
}

std::vector<Fix> RaccoltaRecord::fix_del_ricevitore() const {
    return {soluzioni_.begin(), soluzioni_.end()};
}

double RaccoltaRecord::inizio_del_ricevitore(std::size_t soluzione) const {
    const auto sua = std::ranges::find(righe_, static_cast<std::int32_t>(soluzione), &Riga::soluzione);
    return soluzioni_[soluzione].tempo - (con_tempo_ && sua != righe_.end() ? sua->tempo : 0);
}

std::vector<Fix> RaccoltaRecord::fix_dei_record() const {
    std::vector<Fix> fix;
    if (!con_tempo_)
        return fix;
    fix.reserve(righe_.size());
    Fix ultimo;
    for (const Riga& riga : righe_) {
        if (riga.soluzione >= 0)
            ultimo = soluzioni_[static_cast<std::size_t>(riga.soluzione)];
        Fix uno = ultimo;
        uno.valido = uno.valido && riga.soluzione >= 0;
        uno.tempo = riga.tempo;
        if (riga.velocita >= 0)
            uno.velocita = static_cast<double>(riga.velocita);
        fix.push_back(uno);
    }
    return fix;
}

std::vector<Giro> RaccoltaRecord::giri_del_registratore(const Guida& guida) const {
    GiriRegistrati registrati = giri_;  // more records may follow
    std::vector<Giro> tutti;
    std::size_t prima = 0;
    for (const GiroRegistrato& uno : registrati.chiudi()) {
        Giro giro;
        giro.numero = uno.numero;
        giro.ms = uno.ms;
        giro.campioni = uno.record - std::exchange(prima, uno.record);
        if (uno.fine) {  // then records have times, and the way has a fix for each
            giro.fine = uno.fine;
            giro.inizio = *uno.fine - uno.ms / 1000.0;
            giro.sessione = guida.sessione(uno.record);
        }
        tutti.push_back(giro);
    }
    return tutti.empty() || !tutti.front().inizio ? tutti : con_aperti(tutti, guida);
}

}  // namespace kel_registrazioni
