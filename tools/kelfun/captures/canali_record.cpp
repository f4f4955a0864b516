#include "captures/canali_record.h"

#include <algorithm>
#include <iterator>
#include <list>
#include <map>

#include "captures/registrazione.h"
#include "domain/campi.h"
#include "domain/fid_gps.h"
#include "domain/lettura_fid.h"
#include "domain/sinonimi.h"
#include "domain/tipi_campione.h"
#include "domain/unita.h"
#include "output/celle.h"
#include "text/chiavi.h"
#include "text/errori.h"
#include "text/numeri.h"

namespace kel::strumento {

namespace {

constexpr unsigned LARGHEZZA_NUMERO = 8;
constexpr unsigned LARGHEZZA_TESTO = 16;  // "GPS Fix=3 SVs=12"
constexpr int DECIMALI_GRADI = 6;         // a float near 100 degrees is worth 0.000008

// A packet channel whose samples are as long as its packet: only then are there subfields to read.
bool conSottocampi(const s_kel_canale& canale) {
    const auto tipo = tipoPacchetto(canale.fid);
    return tipo && kelFunGetSamplSize(*tipo) == kelFunGetSamplSize(canale.tipo_campione) &&
           search_sottocampi_struct(kelFidOggetto(canale.fid), kelFidPosizione(canale.fid)) != nullptr;
}

// The formats whose text sums up a packet; their value is always 0.
bool diPacchetto(std::uint32_t tipo) {
    switch (tipo) {
        case KEL_TIPO_LAP_2G:
        case KEL_TIPO_GPS_KEL:
        case KEL_TIPO_GPS_NAVSOL:
        case KEL_TIPO_DATA_ORA:
        case KEL_TIPO_LAP_1G:
        case KEL_TIPO_GPS_SATELLITI:
        case KEL_TIPO_TEMPO_PACCHETTO:
            return true;
        default:
            return false;
    }
}

// A subfield's own name, or the words of its fields: "Code Best Lap".
std::string nomeSottocampo(kel_funpos pacchetto, kel_funpos fid) {
    if (fid == GPS_LATITUDINE)
        return "Latitude library rule";
    const s_sottocampo* riga =
        getDettagliSottocampo(search_sottocampi_struct(kelFidOggetto(pacchetto), kelFidPosizione(pacchetto)), fid);
    if (riga != nullptr && riga->testo != nullptr && *riga->testo != '\0')
        return riga->testo;
    const std::string grandezza = grandezze().righe[kelFidGrandezza(fid)].testo;
    const std::span<const s_campo_fid> oggetti(oggetto_misurato_FunzKel);
    const unsigned oggetto = kelFidOggetto(fid);
    return oggetto == 0 || oggetto >= oggetti.size() ? grandezza : grandezza + " " + oggetti[oggetto].testo;
}

// The time that the logger stamps on its GPS packet; the other packet has none of its own.
constexpr kel_funpos GPS_TEMPO = kelFidComponi(FID_PHI_TIME, FID_OBJ_MASTER_CLOCK, FID_POS_GPS);

bool diGps(const s_kel_canale& canale) {
    return canale.tipo_campione == KEL_TIPO_GPS_KEL || canale.tipo_campione == KEL_TIPO_GPS_NAVSOL;
}

std::string nomeCampo(CampoGps campo) {
    switch (campo) {
        case CampoGps::fix:
            return "GPS Fix";
        case CampoGps::satelliti:
            return "Sats Number";
        case CampoGps::velocita:
            return "GPS Speed";
        default:
            return aspetto(campo).nome;
    }
}

std::vector<ColonnaRecord> tutte(IFunzioni& catalogo, std::span<const s_kel_canale> canali,
                                 const SceltaColonne& scelta) {
    const bool testi = scelta.testi;
    std::vector<ColonnaRecord> colonne;
    for (std::size_t i = 0; i < canali.size(); ++i) {
        const bool pacchetto = conSottocampi(canali[i]);
        if (!pacchetto || testi)
            colonne.emplace_back(catalogo, canali[i], i, canali[i].fid);
        std::list<kel_funpos> interni;
        if (pacchetto)
            catalogo.getAllInnerFunpos(canali[i].fid, interni);
        const bool wgs84 = pacchetto && diGps(canali[i]) && !scelta.dispositivo;
        for (const kel_funpos fid : interni)
            if (fid != 0 && (!wgs84 || fid == GPS_TEMPO))  // 0 is a reserved word
                colonne.emplace_back(catalogo, canali[i], i, fid);
        if (wgs84)
            for (const auto soluzione = std::make_shared<UltimaSoluzione>(); const CampoGps campo : CAMPI_GPS)
                colonne.emplace_back(catalogo, canali[i], i, campo, soluzione);
    }
    return colonne;
}

// Names that occur twice get the channel's before them, and a number if need be.
void distingui(std::vector<ColonnaRecord>& colonne, std::span<const s_kel_canale> canali) {
    std::map<std::string, int> quante;
    for (const ColonnaRecord& colonna : colonne)
        ++quante[chiave(colonna.nome)];
    std::map<std::string, int> viste;
    for (ColonnaRecord& colonna : colonne) {
        if (quante[chiave(colonna.nome)] > 1 && colonna.fid != canali[colonna.indice].fid)
            colonna.nome = nomeCanale(canali[colonna.indice]) + " " + colonna.nome;
        const std::string nome = colonna.nome;
        for (int n = 2; viste[chiave(colonna.nome)]++ > 0; ++n)
            colonna.nome = nome + " " + std::to_string(n);
    }
}

// What a user calls a column, or all columns of a channel: by name, short name, identifier, or the column's name in CSV.
class Richiamo {
public:
    Richiamo(IFunzioni& catalogo, const std::string& testo, std::span<const ColonnaRecord> colonne,
             std::span<const s_kel_canale> canali)
        : catalogo_(&catalogo), chiave_(chiave(testo)), fid_(fidDaNumeroOVecchio(catalogo, testo)) {
        // The catalogue's name of a function counts where the recording has no such name of its own.
        const bool vale_gia = std::ranges::any_of(
            colonne, [&](const ColonnaRecord& colonna) { return vale(colonna, canali[colonna.indice]); });
        if (!vale_gia && !fid_)
            fid_ = nomeDelCatalogo(testo);
    }

    bool vale(const ColonnaRecord& colonna, const s_kel_canale& canale) const {
        if (fid_ && ((colonna.fid == *fid_ && *fid_ != 0) || canale.fid == *fid_))
            return true;
        const std::string breve(canale.breve, std::find(canale.breve, std::end(canale.breve), '\0'));
        return !chiave_.empty() && (chiave(colonna.nome) == chiave_ || chiave(nomeCanale(canale)) == chiave_ ||
                                    chiave(breve) == chiave_ || diColonna(colonna));
    }

private:
    // "gps_speed_km_h", whatever the unit that it is shown in.
    bool diColonna(const ColonnaRecord& colonna) const {
        return colonna.chiave() == chiave_ ||
               std::ranges::any_of(colonna.unitaPossibili(*catalogo_), [&](const std::string& udm) {
                   return chiaveConUdm(colonna.nomeMisurato(), udm) == chiave_;
               });
    }

    std::optional<kel_funpos> nomeDelCatalogo(const std::string& testo) const {
        try {
            return leggiFid(*catalogo_, testo);
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
        nomi.push_back(nomeCanale(canale));
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

void scegliUnita(IFunzioni& catalogo, std::vector<ColonnaRecord>& colonne, std::span<const s_kel_canale> canali,
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
        cambiata = colonna.mostraIn(catalogo, canale, udm) || cambiata;
        for (const std::string& una : colonna.unitaPossibili(catalogo))
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

ColonnaRecord::ColonnaRecord(const IFunzioni& catalogo, const s_kel_canale& canale, std::size_t indice_canale,
                             kel_funpos funzione)
    : nome(funzione == canale.fid ? nomeCanale(canale) : nomeSottocampo(canale.fid, funzione)),
      indice(indice_canale),
      fid(funzione),
      pacchetto_intero_(funzione == canale.fid && diPacchetto(canale.tipo_campione)),
      misura_(canale.tipo_campione == KEL_TIPO_COORDINATA ? Misura::decimilionesimi : Misura::funzione) {
    conv_.larghezza = LARGHEZZA_NUMERO;
    if (fid != canale.fid && (fid == GPS_ACCURATEZZA_POSIZIONE || fid == GPS_ACCURATEZZA_VELOCITA))
        misura_ = Misura::byte_basso;
    if (misura_ == Misura::funzione) {
        mostraIn(catalogo, canale, catalogo.getUnitaBase(fid));
    } else {
        udm = misura_ == Misura::decimilionesimi ? "1e-7 deg" : fid == GPS_ACCURATEZZA_POSIZIONE ? "cm" : "cm/s";
        kelConvInit(&conv_, &canale, fid, kelFunGetConvData(fid, nullptr), 0, 0, 0);
    }
}

ColonnaRecord::ColonnaRecord(const IFunzioni& catalogo, const s_kel_canale& canale, std::size_t indice_canale,
                             CampoGps campo, std::shared_ptr<UltimaSoluzione> soluzione)
    : nome(nomeCampo(campo)),
      indice(indice_canale),
      fid(fidDi(campo)),
      udm(aspetto(campo).udm),
      campo_(campo),
      soluzione_(std::move(soluzione)) {
    decimali_ = aspetto(campo).decimali;
    // The logger's packet is a time, then the receiver's payload.
    conv_.offset_campione =
        canale.offset_campione + kelFunGetSamplSize(canale.tipo_campione) - static_cast<std::uint32_t>(NAV_SOL_BYTE);
    if (campo == CampoGps::velocita)
        mostraIn(catalogo, canale, catalogo.getUnitaBase(fid));
}

bool ColonnaRecord::mostraIn(const IFunzioni& catalogo, const s_kel_canale& canale, const std::string& nuova) {
    if (campo_ && campo_ != CampoGps::velocita)
        return false;
    std::list<std::string> unita;
    catalogo.getFunzUIVs(fid, unita);
    if (misura_ != Misura::funzione ||
        (!unita.empty() && std::find(unita.begin(), unita.end(), nuova) == unita.end()) ||
        (unita.empty() && !nuova.empty()))
        return false;
    udm = nuova;
    if (campo_) {
        fattore_ = daMetriAlSecondo(catalogo, udm);
        decimali_ = std::clamp(catalogo.getNumDecimaliDefault(fid, udm), 0, 3);
        return true;
    }
    decimali_ = kelFidGrandezza(fid) == FID_PHI_COORDINATE ? DECIMALI_GRADI
                                                           : std::clamp(catalogo.getNumDecimaliDefault(fid, udm), 0, 3);
    conv_.decimali = static_cast<unsigned>(decimali_);
    kelConvInit(&conv_, &canale, fid, catalogo.getParamConv(fid, udm), 0, 0, 0);
    return true;
}

std::vector<std::string> ColonnaRecord::unitaPossibili(const IFunzioni& catalogo) const {
    std::list<std::string> tutte;
    if (misura_ == Misura::funzione && (!campo_ || campo_ == CampoGps::velocita))
        catalogo.getFunzUIVs(fid, tutte);
    std::vector<std::string> possibili;
    std::copy_if(tutte.begin(), tutte.end(), std::back_inserter(possibili),
                 [](const std::string& una) { return !misura(una).empty(); });
    return possibili;
}

const Soluzione& ColonnaRecord::soluzione(const std::uint8_t* campioni) const {
    return soluzione_->di(std::span<const std::uint8_t, NAV_SOL_BYTE>(campioni + conv_.offset_campione, NAV_SOL_BYTE));
}

bool ColonnaRecord::haValore() const {
    if (campo_)
        return campo_ != CampoGps::utc;
    return conv_.valore != nullptr && !pacchetto_intero_;
}

std::optional<double> ColonnaRecord::valore(const std::uint8_t* campioni) const {
    if (!haValore())
        return std::nullopt;
    if (campo_) {
        const auto numero = valoreGps(soluzione(campioni), *campo_);
        return numero ? std::optional(*numero * fattore_) : std::nullopt;
    }
    std::uint32_t stato = 0;
    const float valore = conv_.valore(&conv_, campioni + conv_.offset_campione, &stato);
    return stato == 0 ? std::optional(static_cast<double>(valore)) : std::nullopt;
}

std::string ColonnaRecord::testo(const std::uint8_t* campioni) {
    char testo[32];
    kelConvGetString(&conv_, campioni, testo);
    return testo;
}

Cella ColonnaRecord::cella(const std::uint8_t* campioni, bool testi) {
    if (campo_)
        return cellaGps(soluzione(campioni), *campo_, fattore_, decimali_);
    if (testi || pacchetto_intero_)
        return Cella::testo(testo(campioni));
    if (const auto numero = valore(campioni))
        return Cella::numero(static_cast<float>(*numero), conDecimali(*numero, decimali_));
    const std::string perche = haValore() ? testo(campioni) : "";  // "---", or blanks for a missing value
    return perche.find_first_not_of(' ') == std::string::npos ? Cella() : Cella::mancante(perche);
}

std::string ColonnaRecord::nomeMisurato() const {
    return misura_ == Misura::byte_basso ? nome + " low byte" : nome;
}

std::string ColonnaRecord::unita() const {
    return misura(udm);
}

std::string ColonnaRecord::titolo() const {
    return titoloConUdm(nomeMisurato(), udm);
}

std::string ColonnaRecord::chiave() const {
    const std::string una = chiaveConUdm(nomeMisurato(), udm);
    return una.empty() ? "channel_" + std::to_string(indice + 1) : una;
}

std::size_t ColonnaRecord::larghezza(bool testi) const {
    if (campo_)
        return aspetto(*campo_).larghezza;
    return pacchetto_intero_ || (testi && conv_.testo_stato == nullptr) ? LARGHEZZA_TESTO : LARGHEZZA_NUMERO + 1;
}

std::vector<ColonnaRecord> colonneRecord(IFunzioni& catalogo, std::span<const s_kel_canale> canali,
                                         const SceltaColonne& scelta) {
    std::vector<ColonnaRecord> colonne = tutte(catalogo, canali, scelta);
    distingui(colonne, canali);
    tieni(catalogo, colonne, canali, scelta.solo);
    for (const std::string& richiesta : scelta.unita)
        scegliUnita(catalogo, colonne, canali, richiesta);
    return colonne;
}

}  // namespace kel::strumento
