#include "plots/grafico_record.h"

#include <algorithm>
#include <cmath>

#include "registrazioni/gps/fid_gps.h"
#include "text/errori.h"

namespace kel::strumento {

namespace {

constexpr kel_funpos NUMERO_GIRO = kelFidComponi(FID_PHI_NUMBER, FID_OBJ_LAP, 0);
constexpr kel_funpos TEMPO_GIRO = kelFidComponi(FID_PHI_TIME, FID_OBJ_LAP, 0);
constexpr std::size_t GIRI_MASSIMI = 1000;  // a channel that changes more often does not count laps
constexpr double KMH = 3.6;                 // km/h in a m/s

bool del_fix(kel_funpos fid) {
    return fid == GPS_VELOCITA || fid == GPS_LATITUDINE || fid == GPS_LONGITUDINE;
}

bool posizione(kel_funpos fid) {
    return fid == GPS_LATITUDINE || fid == GPS_LONGITUDINE;
}

}  // namespace

GraficoRecord::GraficoRecord(const IFunzioni& catalogo, std::span<const s_kel_canale> canali,
                             std::span<const ColonnaRecord> tutte, std::span<const ColonnaRecord> colonne,
                             PannelliRecord pannelli, const Tratto& tratto)
    : pannelli_(std::move(pannelli)), percorso_(tratto) {
    grafico_.ascissa = tratto.ascissa;
    const bool tempi =
        std::ranges::any_of(tutte, [](const ColonnaRecord& colonna) { return colonna.fid == TEMPO_GIRO; });
    for (const ColonnaRecord& colonna : tutte) {
        const s_kel_canale& canale = canali[colonna.indice];
        const bool interna = canale.fid != colonna.fid;
        const auto sua = [&colonna](const Ricezione& una) { return una.canale == colonna.indice; };
        if (interna && del_fix(colonna.fid) && std::none_of(ricezioni_.begin(), ricezioni_.end(), sua))
            ricezioni_.push_back({colonna.indice, ColonnaRecord(catalogo, canale, colonna.indice, GPS_FIX),
                                  ColonnaRecord(catalogo, canale, colonna.indice, GPS_SATELLITI)});
        if (!giro_ && colonna.fid == NUMERO_GIRO && colonna.ha_valore()) {
            giro_ = colonna;
            prossimo_giro_ = interna || tempi ? 1 : 0;  // beside its time stands the number of the lap driven last
        }
    }
    trova_traccia(canali, colonne);
    if (tratto.ascissa == Ascissa::distanza)
        trova_velocita(tutte);
    for (const PannelloRecord& uno : pannelli_.pannelli) {
        Pannello pannello{uno.nome, uno.udm, {}, uno.altezza};
        for (const ColonnaRecord& colonna : uno.colonne)
            pannello.curve.push_back({colonna.nome_misurato(), {}});
        grafico_.pannelli.push_back(std::move(pannello));
    }
}

void GraficoRecord::trova_traccia(std::span<const s_kel_canale> canali, std::span<const ColonnaRecord> colonne) {
    for (std::size_t i = 0; i < canali.size() && !longitudine_; ++i) {
        const auto sottocampo = [&](kel_funpos fid) -> std::optional<ColonnaRecord> {
            for (const ColonnaRecord& colonna : colonne)
                if (colonna.indice == i && colonna.fid == fid && canali[i].fid != fid)
                    return colonna;
            return std::nullopt;
        };
        const auto longitudine = sottocampo(GPS_LONGITUDINE);
        const auto latitudine = sottocampo(GPS_LATITUDINE);
        const auto velocita = sottocampo(GPS_VELOCITA);
        if (!longitudine || !latitudine || !velocita)
            continue;
        longitudine_ = longitudine;
        latitudine_ = latitudine;
        velocita_ = velocita;
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
void GraficoRecord::trova_velocita(std::span<const ColonnaRecord> tutte) {
    for (const bool gps : {true, false})
        for (const ColonnaRecord& colonna : tutte) {
            if (andatura_ || (gps ? colonna.fid != GPS_VELOCITA : kelFidGrandezza(colonna.fid) != FID_PHI_SPEED))
                continue;
            if (colonna.ha_valore() && colonna.udm == "km/h")
                andatura_ = colonna;
        }
    if (!andatura_)
        throw NonTrovato("--x distance takes a speed, and none of the channels is one");
}

// The fix of a column that shows the device's values, which exist without a fix too. Columns in WGS 84 have no value
// then.
const GraficoRecord::Ricezione* GraficoRecord::ricezione(const ColonnaRecord& colonna) const {
    for (const Ricezione& una : ricezioni_)
        if (una.canale == colonna.indice && !colonna.wgs84())
            return &una;
    return nullptr;
}

std::optional<double> GraficoRecord::valore(const ColonnaRecord& colonna, const std::uint8_t* campioni) const {
    const Ricezione* sua = del_fix(colonna.fid) ? ricezione(colonna) : nullptr;
    if (sua != nullptr && !sua->buona)
        return std::nullopt;
    const auto letto = colonna.valore(campioni);
    return letto && std::isfinite(*letto) ? std::optional<double>(*letto) : std::nullopt;
}

void GraficoRecord::aggiungi(double tempo, const std::uint8_t* campioni) {
    for (Ricezione& una : ricezioni_)
        una.buona = una.fix.valore(campioni).value_or(0) >= GPS_FIX_MINIMO &&
                    una.satelliti.valore(campioni).value_or(0) >= GPS_SATELLITI_MINIMI;
    std::optional<double> velocita = andatura_ ? valore(*andatura_, campioni) : std::nullopt;
    if (velocita)
        *velocita /= KMH;
    const auto x = percorso_.colloca(tempo, velocita);
    if (!x)
        return;
    if (percorso_.interrotto())
        interrompi(*x);
    if (percorso_.nuova())
        ultimo_giro_.reset();
    for (std::size_t i = 0; i < pannelli_.pannelli.size(); ++i)
        for (std::size_t j = 0; j < pannelli_.pannelli[i].colonne.size(); ++j)
            grafico_.pannelli[i].curve[j].serie.aggiungi(*x, valore(pannelli_.pannelli[i].colonne[j], campioni));
    if (longitudine_)
        aggiungi_traccia(campioni);
    if (giro_)
        segna_giro(*x, campioni);
}

void GraficoRecord::interrompi(double x) {
    for (Pannello& pannello : grafico_.pannelli)
        for (Curva& curva : pannello.curve)
            curva.serie.aggiungi(x, std::nullopt);
    grafico_.traccia.interrompi();
}

void GraficoRecord::aggiungi_traccia(const std::uint8_t* campioni) {
    const auto longitudine = valore(*longitudine_, campioni);
    const auto latitudine = valore(*latitudine_, campioni);
    const auto velocita = valore(*velocita_, campioni);
    if (longitudine && latitudine && velocita)
        grafico_.traccia.aggiungi(*longitudine, *latitudine, *velocita);
    else
        grafico_.traccia.interrompi();
}

void GraficoRecord::segna_giro(double x, const std::uint8_t* campioni) {
    const auto giro = valore(*giro_, campioni);
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
