#include "plots/grafico_record.h"

#include <algorithm>
#include <cmath>

#include "text/errori.h"

namespace kel::strumento {

namespace {

constexpr kel_funpos NUMERO_GIRO = kelFidComponi(FID_PHI_NUMBER, FID_OBJ_LAP, 0);
constexpr kel_funpos TEMPO_GIRO = kelFidComponi(FID_PHI_TIME, FID_OBJ_LAP, 0);
constexpr std::size_t GIRI_MASSIMI = 1000;  // a channel that changes more often does not count laps
constexpr double KMH = 3.6;                 // km/h in a m/s

bool del_fix(kel_funpos fid) {
    return fid == KEL_FID_GPS_VELOCITA || fid == KEL_FID_GPS_LATITUDINE || fid == KEL_FID_GPS_LONGITUDINE;
}

bool posizione(kel_funpos fid) {
    return fid == KEL_FID_GPS_LATITUDINE || fid == KEL_FID_GPS_LONGITUDINE;
}

}  // namespace

GraficoRecord::GraficoRecord(const Registrazione& reg, std::span<const ColonnaRecord> tutte,
                             std::span<const ColonnaRecord> colonne, PannelliRecord pannelli, const Tratto& tratto)
    : reg_(&reg), pannelli_(std::move(pannelli)), percorso_(tratto) {
    grafico_.ascissa = tratto.ascissa;
    const bool tempi =
        std::ranges::any_of(tutte, [](const ColonnaRecord& colonna) { return colonna.fid == TEMPO_GIRO; });
    trova_ricezioni(tutte);
    for (const ColonnaRecord& colonna : tutte)
        if (!giro_ && colonna.fid == NUMERO_GIRO && colonna.ha_valore()) {
            giro_ = leggi(colonna);
            // Beside its time stands the number of the lap driven last.
            prossimo_giro_ = colonna.interna || tempi ? 1 : 0;
        }
    trova_traccia(colonne);
    if (tratto.ascissa == Ascissa::distanza)
        trova_velocita(tutte, colonne);
    for (const PannelloRecord& uno : pannelli_.pannelli) {
        Pannello pannello{uno.nome, uno.udm, {}, uno.altezza};
        std::vector<Letta>& lette = curve_.emplace_back();
        for (const ColonnaRecord& colonna : uno.colonne) {
            pannello.curve.push_back({colonna.nome_misurato(), {}});
            lette.push_back(leggi(colonna));
        }
        grafico_.pannelli.push_back(std::move(pannello));
    }
    blocco_.emplace(reg, voci_);
}

GraficoRecord::Letta GraficoRecord::leggi(const ColonnaRecord& colonna) {
    voci_.push_back({colonna.quale, colonna.valori, false});
    return {voci_.size() - 1, colonna.indice, !colonna.wgs84() && del_fix(colonna.fid)};
}

// Of packets that are shown as the device does: its values exist without a fix too. Columns in WGS 84 have no value then.
void GraficoRecord::trova_ricezioni(std::span<const ColonnaRecord> tutte) {
    for (const ColonnaRecord& colonna : tutte) {
        const auto sua = [&colonna](const Ricezione& una) { return una.canale == colonna.indice; };
        if (!colonna.interna || colonna.wgs84() || !del_fix(colonna.fid) || std::ranges::any_of(ricezioni_, sua))
            continue;
        Ricezione& una = ricezioni_.emplace_back();
        una.canale = colonna.indice;
        for (const ColonnaRecord& altra : tutte) {
            if (altra.indice == colonna.indice && altra.fid == KEL_FID_GPS_FIX)
                una.fix = leggi(altra).voce;
            if (altra.indice == colonna.indice && altra.fid == KEL_FID_GPS_SATELLITI)
                una.satelliti = leggi(altra).voce;
        }
    }
}

void GraficoRecord::trova_traccia(std::span<const ColonnaRecord> colonne) {
    for (std::size_t i = 0; i < reg_->canali().size() && !longitudine_; ++i) {
        const auto sottocampo = [&](kel_funpos fid) -> const ColonnaRecord* {
            for (const ColonnaRecord& colonna : colonne)
                if (colonna.indice == i && colonna.fid == fid && colonna.interna)
                    return &colonna;
            return nullptr;
        };
        const ColonnaRecord* longitudine = sottocampo(KEL_FID_GPS_LONGITUDINE);
        const ColonnaRecord* latitudine = sottocampo(KEL_FID_GPS_LATITUDINE);
        const ColonnaRecord* velocita = sottocampo(KEL_FID_GPS_VELOCITA);
        if (longitudine == nullptr || latitudine == nullptr || velocita == nullptr)
            continue;
        longitudine_ = leggi(*longitudine);
        latitudine_ = leggi(*latitudine);
        velocita_ = leggi(*velocita);
        grafico_.udm_velocita = velocita->udm;
        // The track shows the position better than two curves over time.
        const auto sulla_traccia = [i](const ColonnaRecord& colonna) {
            return colonna.indice == i && posizione(colonna.fid);
        };
        for (PannelloRecord& pannello : pannelli_.pannelli)
            std::erase_if(pannello.colonne, sulla_traccia);
        std::erase_if(pannelli_.pannelli, [](const PannelloRecord& pannello) { return pannello.colonne.empty(); });
        std::erase_if(pannelli_.tolte, [&](const std::string& nome) {
            return nome == longitudine->nome_misurato() || nome == latitudine->nome_misurato();
        });
    }
}

// The speed over ground where there is GPS, else the first speed there is.
void GraficoRecord::trova_velocita(std::span<const ColonnaRecord> tutte, std::span<const ColonnaRecord> colonne) {
    for (const bool gps : {true, false})
        for (const ColonnaRecord& colonna : tutte) {
            if (andatura_ ||
                (gps ? colonna.fid != KEL_FID_GPS_VELOCITA : kelFidGrandezza(colonna.fid) != FID_PHI_SPEED))
                continue;
            if (colonna.ha_valore() && colonna.udm == "km/h")
                andatura_ = colonna;
        }
    if (!andatura_)
        throw NonTrovato("--x distance takes a speed, and none of the channels is one");
    andatura_scelta_ = andatura_->udm_scelta;
    for (const ColonnaRecord& colonna : colonne)
        if (colonna.quale == andatura_->quale)
            andatura_scelta_ = colonna.udm_scelta;
    andature_.emplace(*reg_, std::vector<VoceBlocco>{{andatura_->quale, andatura_->valori, false}});
}

// The rows of the block, in km/h whatever they are shown in.
void GraficoRecord::leggi_andature() {
    const bool altra = andatura_scelta_ != andatura_->udm_scelta;
    if (altra)
        kelRegUnita(reg_->reg(), andatura_->quale, andatura_->udm_scelta.c_str());
    andature_->leggi(blocco_->prima(), blocco_->righe());
    if (altra)
        kelRegUnita(reg_->reg(), andatura_->quale, andatura_scelta_.c_str());
}

std::optional<double> GraficoRecord::valore(const Letta& letta, std::size_t riga) const {
    if (letta.del_fix)
        for (const Ricezione& una : ricezioni_)
            if (una.canale == letta.indice && !una.buona)
                return std::nullopt;
    const auto letto = blocco_->valore(letta.voce, riga);
    return letto && std::isfinite(*letto) ? letto : std::nullopt;
}

void GraficoRecord::aggiungi() {
    if (andature_)
        leggi_andature();
    for (std::size_t riga = 0; riga < blocco_->righe(); ++riga)
        aggiungi_riga(riga);
}

void GraficoRecord::aggiungi_riga(std::size_t riga) {
    const auto almeno = [&](std::optional<std::size_t> voce, unsigned minimo) {
        return voce && blocco_->valore(*voce, riga).value_or(0) >= minimo;
    };
    for (Ricezione& una : ricezioni_)
        una.buona = almeno(una.fix, KEL_GPS_FIX_MINIMO) && almeno(una.satelliti, KEL_GPS_SATELLITI_MINIMI);
    std::optional<double> velocita;
    if (andature_) {
        const bool senza_fix = !andatura_->wgs84() && del_fix(andatura_->fid) &&
                               std::ranges::any_of(ricezioni_, [this](const Ricezione& una) {
                                   return una.canale == andatura_->indice && !una.buona;
                               });
        velocita = senza_fix ? std::nullopt : andature_->valore(0, riga);
        if (velocita && !std::isfinite(*velocita))
            velocita.reset();
    }
    if (velocita)
        *velocita /= KMH;
    const auto x = percorso_.colloca(
        blocco_->con_tempi() ? blocco_->tempo(riga) : static_cast<double>(blocco_->prima() + riga), velocita);
    if (!x)
        return;
    if (percorso_.interrotto())
        interrompi(*x);
    if (percorso_.nuova())
        ultimo_giro_.reset();
    for (std::size_t i = 0; i < curve_.size(); ++i)
        for (std::size_t j = 0; j < curve_[i].size(); ++j)
            grafico_.pannelli[i].curve[j].serie.aggiungi(*x, valore(curve_[i][j], riga));
    if (longitudine_)
        aggiungi_traccia(riga);
    if (giro_)
        segna_giro(*x, riga);
}

void GraficoRecord::interrompi(double x) {
    for (Pannello& pannello : grafico_.pannelli)
        for (Curva& curva : pannello.curve)
            curva.serie.aggiungi(x, std::nullopt);
    grafico_.traccia.interrompi();
}

void GraficoRecord::aggiungi_traccia(std::size_t riga) {
    const auto longitudine = valore(*longitudine_, riga);
    const auto latitudine = valore(*latitudine_, riga);
    const auto velocita = valore(*velocita_, riga);
    if (longitudine && latitudine && velocita)
        grafico_.traccia.aggiungi(*longitudine, *latitudine, *velocita);
    else
        grafico_.traccia.interrompi();
}

void GraficoRecord::segna_giro(double x, std::size_t riga) {
    const auto giro = valore(*giro_, riga);
    if (!giro || giro == ultimo_giro_ || troppi_giri_)
        return;
    ultimo_giro_ = giro;
    grafico_.giri.push_back({x, std::to_string(static_cast<long long>(*giro) + prossimo_giro_)});
    troppi_giri_ = grafico_.giri.size() > GIRI_MASSIMI;
}

// Takes out the curves that never change, where others do; gives their names.
std::vector<std::string> GraficoRecord::togli_fermi() {
    const auto ferma = [](const Curva& curva) {
        return curva.serie.vuota() || curva.serie.minimo() >= curva.serie.massimo();
    };
    const auto tutti_fermi = [&](const Pannello& pannello) {
        return std::all_of(pannello.curve.begin(), pannello.curve.end(), ferma);
    };
    std::vector<std::string> tolti;
    if (std::all_of(grafico_.pannelli.begin(), grafico_.pannelli.end(), tutti_fermi))
        return tolti;
    for (Pannello& pannello : grafico_.pannelli) {
        for (const Curva& curva : pannello.curve)
            if (ferma(curva))
                tolti.push_back(curva.nome);
        std::erase_if(pannello.curve, ferma);
    }
    std::erase_if(grafico_.pannelli, [](const Pannello& pannello) { return pannello.curve.empty(); });
    return tolti;
}

std::vector<Nota> GraficoRecord::chiudi() {
    std::vector<Nota> note;
    percorso_.verifica();
    grafico_.sessioni = percorso_.sessioni();
    if (const std::string nota = percorso_.nota(); !nota.empty())
        note.push_back({nota, {}, ""});
    const std::vector<std::string> fermi = togli_fermi();
    for (Pannello& pannello : grafico_.pannelli)
        if (pannello.curve.size() == 1)
            pannello.nome = pannello.curve.front().nome;
    if (troppi_giri_) {
        grafico_.giri.clear();
        note.push_back(
            {"the lap number changes more than " + std::to_string(GIRI_MASSIMI) + " times: no laps are marked",
             {},
             ""});
    } else if (grafico_.giri.size() == 1) {
        grafico_.giri.clear();  // it never changes
    }
    if (!fermi.empty())
        note.push_back({"not drawn, as they never change: ", fermi, ""});
    if (!pannelli_.tolte.empty())
        note.push_back({"not drawn: ", pannelli_.tolte, "; --all draws all, --only NAME one"});
    return note;
}

}  // namespace kel::strumento
