#include "captures/canali_record.h"

#include <algorithm>
#include <iterator>
#include <list>

#include "captures/vista_gps.h"
#include "domain/lettura_fid.h"
#include "domain/sinonimi.h"
#include "domain/unita.h"
#include "output/celle.h"
#include "registrazioni/recordings/canali.h"
#include "text/chiavi.h"
#include "text/errori.h"
#include "text/numeri.h"

namespace kel::strumento {

namespace {

constexpr unsigned LARGHEZZA_NUMERO = 8;
constexpr unsigned LARGHEZZA_TESTO = 16;  // "GPS Fix=3 SVs=12"

// What a user calls a column, or all columns of a channel: by name, short name, identifier, or the column's name in CSV.
class Richiamo {
public:
    Richiamo(IFunzioni& catalogo, const std::string& testo, std::span<const ColonnaRecord> colonne,
             std::span<const s_kel_canale> canali)
        : catalogo_(&catalogo), chiave_(chiave(testo)), fid_(fid_da_numero_o_vecchio(catalogo, testo)) {
        // The catalogue's name of a function counts where the recording has no such name of its own.
        const bool vale_gia = std::ranges::any_of(
            colonne, [&](const ColonnaRecord& colonna) { return vale(colonna, canali[colonna.indice]); });
        if (!vale_gia && !fid_)
            fid_ = nome_del_catalogo(testo);
    }

    bool vale(const ColonnaRecord& colonna, const s_kel_canale& canale) const {
        if (fid_ && ((colonna.fid == *fid_ && *fid_ != 0) || canale.fid == *fid_))
            return true;
        const std::string breve(canale.breve, std::find(canale.breve, std::end(canale.breve), '\0'));
        return !chiave_.empty() && (chiave(colonna.nome) == chiave_ || chiave(nome_canale(canale)) == chiave_ ||
                                    chiave(breve) == chiave_ || di_colonna(colonna));
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
                              std::span<const s_kel_canale> canali) {
    std::vector<std::string> nomi;
    std::vector<std::string> tutti;  // subfields and short names too: too many to list
    for (const s_kel_canale& canale : canali) {
        nomi.push_back(nome_canale(canale));
        tutti.emplace_back(canale.breve, std::find(canale.breve, std::end(canale.breve), '\0'));
    }
    tutti.insert(tutti.end(), nomi.begin(), nomi.end());
    for (const ColonnaRecord& colonna : colonne)
        for (const std::string& suo : {colonna.nome, colonna.chiave()})
            tutti.push_back(suo);
    throw ErroreUso(std::string(opzione) + " '" + nome + "' is no channel of this set; " + proposta(nome, tutti) +
                    "accepted: " + elenco(nomi) + ", their subfields, identifiers, or columns as CSV names them");
}

void tieni(IFunzioni& catalogo, std::vector<ColonnaRecord>& colonne, std::span<const s_kel_canale> canali,
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

void scegli_unita(IFunzioni& catalogo, std::vector<ColonnaRecord>& colonne, std::span<const s_kel_canale> canali,
                  const std::string& richiesta) {
    const std::size_t uguale = richiesta.rfind('=');
    const std::string nome = uguale == std::string::npos ? "" : richiesta.substr(0, uguale);
    const std::string udm = uguale == std::string::npos ? richiesta : richiesta.substr(uguale + 1);
    const Richiamo richiamo(catalogo, nome, colonne, canali);
    std::vector<std::string> possibili;
    bool chiamata = false;
    bool cambiata = false;
    for (ColonnaRecord& colonna : colonne) {
        const s_kel_canale& canale = canali[colonna.indice];
        if (uguale != std::string::npos && !richiamo.vale(colonna, canale))
            continue;
        chiamata = true;
        cambiata = colonna.mostra_in(catalogo, canale, udm) || cambiata;
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

std::vector<std::string> ColonnaRecord::unita_possibili(const IFunzioni& catalogo) const {
    std::list<std::string> tutte;
    if (con_unita())
        catalogo.getFunzUIVs(fid, tutte);
    std::vector<std::string> possibili;
    std::copy_if(tutte.begin(), tutte.end(), std::back_inserter(possibili),
                 [](const std::string& una) { return !misura(una).empty(); });
    return possibili;
}

Cella ColonnaRecord::cella(const std::uint8_t* campioni, bool testi) {
    if (campo())
        return cella_gps(soluzione(campioni), *campo(), fattore(), decimali());
    if (testi || pacchetto_intero())
        return Cella::testo(testo(campioni));
    if (const auto numero = valore(campioni))
        return Cella::numero(static_cast<float>(*numero), con_decimali(*numero, decimali()));
    const std::string perche = ha_valore() ? testo(campioni) : "";  // "---", or blanks for a missing value
    return perche.find_first_not_of(' ') == std::string::npos ? Cella() : Cella::mancante(perche);
}

std::string ColonnaRecord::unita() const {
    return misura(udm);
}

std::string ColonnaRecord::titolo() const {
    return titolo_con_udm(nome_misurato(), udm);
}

std::string ColonnaRecord::chiave() const {
    const std::string una = chiave_con_udm(nome_misurato(), udm);
    return una.empty() ? "channel_" + std::to_string(indice + 1) : una;
}

std::size_t ColonnaRecord::larghezza(bool testi) const {
    if (campo())
        return larghezza_gps(*campo());
    return pacchetto_intero() || (testi && convertitore().testo_stato == nullptr) ? LARGHEZZA_TESTO
                                                                                  : LARGHEZZA_NUMERO + 1;
}

std::vector<ColonnaRecord> colonne_record(IFunzioni& catalogo, std::span<const s_kel_canale> canali,
                                          const SceltaColonne& scelta) {
    std::vector<ColonnaRecord> colonne;
    for (ColonnaDati& colonna : kel_registrazioni::colonne(catalogo, canali, {scelta.testi, scelta.dispositivo}))
        colonne.emplace_back(std::move(colonna));
    tieni(catalogo, colonne, canali, scelta.solo);
    for (const std::string& richiesta : scelta.unita)
        scegli_unita(catalogo, colonne, canali, richiesta);
    return colonne;
}

}  // namespace kel::strumento
