#include "captures/canali_record.h"

#include <algorithm>
#include <iterator>
#include <list>
#include <optional>
#include <span>

#include "captures/vista_gps.h"
#include "domain/lettura_fid.h"
#include "domain/sinonimi.h"
#include "domain/unita.h"
#include "text/chiavi.h"
#include "text/errori.h"
#include "text/numeri.h"

namespace kel::strumento {

namespace {

constexpr unsigned LARGHEZZA_NUMERO = 8;
constexpr unsigned LARGHEZZA_TESTO = 16;  // "GPS Fix=3 SVs=12"

std::string nome_breve(const CanaleRecord& canale) {
    const auto& breve = canale.record.breve;
    return {breve, std::find(breve, std::end(breve), '\0')};
}

// Whether the texts of a sample are numbers: then they say by a text of its own that there is none.
bool testi_numerici(const s_kel_canale& canale, kel_funpos fid) {
    s_kel_converter conv{};
    kelConvInit(&conv, &canale, fid, kelFunGetConvData(fid, nullptr), 0, 0, 0);
    return conv.testo_stato != nullptr;
}

// What a user calls a column, or all columns of a channel: by name, short name, identifier, or the column's name in CSV.
class Richiamo {
public:
    Richiamo(IFunzioni& catalogo, const std::string& testo, std::span<const ColonnaRecord> colonne,
             std::span<const CanaleRecord> canali)
        : catalogo_(&catalogo), chiave_(chiave(testo)), fid_(fid_da_numero_o_vecchio(catalogo, testo)) {
        // The catalogue's name of a function counts where the recording has no such name of its own.
        const bool vale_gia = std::ranges::any_of(
            colonne, [&](const ColonnaRecord& colonna) { return vale(colonna, canali[colonna.indice]); });
        if (!vale_gia && !fid_)
            fid_ = nome_del_catalogo(testo);
    }

    bool vale(const ColonnaRecord& colonna, const CanaleRecord& canale) const {
        if (fid_ && ((colonna.fid == *fid_ && *fid_ != 0) || canale.record.fid == *fid_))
            return true;
        return !chiave_.empty() && (chiave(colonna.nome) == chiave_ || chiave(canale.nome) == chiave_ ||
                                    chiave(nome_breve(canale)) == chiave_ || di_colonna(colonna));
    }

private:
    // "gps_speed_km_h", whatever the unit that it is shown in.
    bool di_colonna(const ColonnaRecord& colonna) const {
        return colonna.chiave() == chiave_ ||
               std::ranges::any_of(colonna.unita_possibili(*catalogo_), [&](const std::string& udm) {
                   return chiave_con_udm(colonna.nome_misurato(), udm) == chiave_;
               });
    }

    std::optional<kel_funpos> nome_del_catalogo(const std::string& testo) const {
        try {
            return leggi_fid(*catalogo_, testo);
        } catch (const std::runtime_error&) {  // none, or one that several functions have
            return std::nullopt;
        }
    }

    IFunzioni* catalogo_;
    std::string chiave_;
    std::optional<kel_funpos> fid_;
};

[[noreturn]] void sconosciuto(const char* opzione, const std::string& nome, std::span<const ColonnaRecord> colonne,
                              std::span<const CanaleRecord> canali) {
    std::vector<std::string> nomi;
    std::vector<std::string> tutti;  // subfields and short names too: too many to list
    for (const CanaleRecord& canale : canali) {
        nomi.push_back(canale.nome);
        tutti.push_back(nome_breve(canale));
    }
    tutti.insert(tutti.end(), nomi.begin(), nomi.end());
    for (const ColonnaRecord& colonna : colonne)
        for (const std::string& suo : {colonna.nome, colonna.chiave()})
            tutti.push_back(suo);
    throw ErroreUso(std::string(opzione) + " '" + nome + "' is no channel of this set; " + proposta(nome, tutti) +
                    "accepted: " + elenco(nomi) + ", their subfields, identifiers, or columns as CSV names them");
}

void tieni(IFunzioni& catalogo, std::vector<ColonnaRecord>& colonne, std::span<const CanaleRecord> canali,
           const std::vector<std::string>& solo) {
    if (solo.empty())
        return;
    std::vector<bool> tenute(colonne.size());
    for (const std::string& nome : solo) {
        const Richiamo richiamo(catalogo, nome, colonne, canali);
        bool trovato = false;
        for (std::size_t i = 0; i < colonne.size(); ++i)
            if (richiamo.vale(colonne[i], canali[colonne[i].indice]))
                tenute[i] = trovato = true;
        if (!trovato)
            sconosciuto("--only", nome, colonne, canali);
    }
    std::size_t i = 0;
    std::erase_if(colonne, [&](const ColonnaRecord&) { return !tenute[i++]; });
}

void scegli_unita(IFunzioni& catalogo, std::vector<ColonnaRecord>& colonne, const Registrazione& reg,
                  const std::string& richiesta) {
    const std::span<const CanaleRecord> canali = reg.canali();
    const std::size_t uguale = richiesta.rfind('=');
    const std::string nome = uguale == std::string::npos ? "" : richiesta.substr(0, uguale);
    const std::string udm = uguale == std::string::npos ? richiesta : richiesta.substr(uguale + 1);
    const Richiamo richiamo(catalogo, nome, colonne, canali);
    std::vector<std::string> possibili;
    bool chiamata = false;
    bool cambiata = false;
    for (ColonnaRecord& colonna : colonne) {
        if (uguale != std::string::npos && !richiamo.vale(colonna, canali[colonna.indice]))
            continue;
        chiamata = true;
        cambiata = colonna.mostra_in(reg, udm) || cambiata;
        for (const std::string& una : colonna.unita_possibili(catalogo))
            if (std::find(possibili.begin(), possibili.end(), una) == possibili.end())
                possibili.push_back(una);
    }
    if (!chiamata)
        sconosciuto("--unit", nome, colonne, canali);
    if (!cambiata)
        throw ErroreUso("'" + udm + "' is no unit of " + (nome.empty() ? "these channels" : "'" + nome + "'") + "; " +
                        proposta(udm, possibili) + "accepted: " + (possibili.empty() ? "none" : elenco(possibili)));
}

}  // namespace

ColonnaRecord::ColonnaRecord(const IFunzioni& catalogo, const Registrazione& reg, unsigned colonna) : quale(colonna) {
    s_kel_descrizione d{};
    kelRegDescrivi(reg.reg(), quale, &d);
    nome = d.proprio;
    indice = d.canale;
    fid = d.fid;
    udm = d.udm;
    udm_scelta = catalogo.getUnitaBase(fid);
    valori = d.valori;
    campo = d.campo;
    decimali = d.decimali;
    interna = d.interna != 0;
    pacchetto = d.pacchetto != 0;
    con_unita_ = d.con_unita != 0;
    numerica_ = testi_numerici(reg.canali()[indice].record, fid);
    misurato_ = d.nome;
}

bool ColonnaRecord::mostra_in(const Registrazione& reg, const std::string& nuova) {
    if (kelRegUnita(reg.reg(), quale, nuova.c_str()) == 0)
        return false;
    s_kel_descrizione d{};
    kelRegDescrivi(reg.reg(), quale, &d);
    udm = d.udm;
    udm_scelta = nuova;
    decimali = d.decimali;
    return true;
}

std::vector<std::string> ColonnaRecord::unita_possibili(const IFunzioni& catalogo) const {
    std::list<std::string> tutte;
    if (con_unita_)
        catalogo.getFunzUIVs(fid, tutte);
    std::vector<std::string> possibili;
    std::copy_if(tutte.begin(), tutte.end(), std::back_inserter(possibili),
                 [](const std::string& una) { return !misura(una).empty(); });
    return possibili;
}

std::string ColonnaRecord::titolo() const {
    return titolo_con_udm(nome_misurato(), udm);
}

std::string ColonnaRecord::chiave() const {
    const std::string una = chiave_con_udm(nome_misurato(), udm);
    return una.empty() ? "channel_" + std::to_string(indice + 1) : una;
}

std::size_t ColonnaRecord::larghezza(bool testi) const {
    if (wgs84())
        return larghezza_gps(campo);
    return pacchetto || (testi && !numerica_) ? LARGHEZZA_TESTO : LARGHEZZA_NUMERO + 1;
}

std::vector<ColonnaRecord> colonne_record(const IFunzioni& catalogo, const Registrazione& reg) {
    std::vector<ColonnaRecord> colonne;
    for (unsigned i = 0; i < kelRegNumColonne(reg.reg()); ++i)
        colonne.emplace_back(catalogo, reg, i);
    return colonne;
}

std::vector<ColonnaRecord> colonne_scelte(IFunzioni& catalogo, const Registrazione& reg, const SceltaColonne& scelta) {
    std::vector<ColonnaRecord> colonne = colonne_record(catalogo, reg);
    tieni(catalogo, colonne, reg.canali(), scelta.solo);
    for (const std::string& richiesta : scelta.unita)
        scegli_unita(catalogo, colonne, reg, richiesta);
    return colonne;
}

}  // namespace kel::strumento
