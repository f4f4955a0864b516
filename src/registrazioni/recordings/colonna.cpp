#include "recordings/colonna.h"

#include <algorithm>
#include <list>
#include <map>
#include <utility>

#include "common/nomi.h"
#include "recordings/canali.h"
#include "recordings/pacchetti.h"

namespace kel_registrazioni {

namespace {

constexpr unsigned LARGHEZZA_NUMERO = 8;
constexpr int DECIMALI_GRADI = 6;  // a float near 100 degrees is worth 0.000008

// A packet channel whose samples are as long as its packet: only then are there subfields to read.
bool con_sottocampi(const s_kel_canale& canale) {
    const auto tipo = tipo_pacchetto(canale.fid);
    return tipo && kelFunGetSamplSize(*tipo) == kelFunGetSamplSize(canale.tipo_campione) &&
           search_sottocampi_struct(kelFidOggetto(canale.fid), kelFidPosizione(canale.fid)) != nullptr;
}

// A subfield's own name, or the words of its fields: "Code Best Lap".
std::string nome_sottocampo(kel_funpos pacchetto, kel_funpos fid) {
    if (fid == KEL_FID_GPS_LATITUDINE)
        return "Latitude library rule";
    const s_sottocampo* riga =
        getDettagliSottocampo(search_sottocampi_struct(kelFidOggetto(pacchetto), kelFidPosizione(pacchetto)), fid);
    if (*riga->testo != '\0')  // the row is there: the packet has told of the function
        return riga->testo;
    const std::string grandezza = grandezza_fisica_FunzKel[kelFidGrandezza(fid)].testo;
    const std::span<const s_campo_fid> oggetti(oggetto_misurato_FunzKel);
    const unsigned oggetto = kelFidOggetto(fid);
    return oggetto == 0 || oggetto >= oggetti.size() ? grandezza : grandezza + " " + oggetti[oggetto].testo;
}

// The time that the logger stamps on its GPS packet; the other packet has none of its own.
constexpr kel_funpos GPS_TEMPO = kelFidComponi(FID_PHI_TIME, FID_OBJ_MASTER_CLOCK, FID_POS_GPS);

bool di_gps(const s_kel_canale& canale) {
    return canale.tipo_campione == KEL_TIPO_GPS_KEL || canale.tipo_campione == KEL_TIPO_GPS_NAVSOL;
}

std::string nome_campo(CampoGps campo) {
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

// Names that occur twice get the channel's before them, and a number if need be.
void distingui(std::vector<ColonnaDati>& colonne, std::span<const s_kel_canale> canali) {
    std::map<std::string, int> quante;
    for (const ColonnaDati& colonna : colonne)
        ++quante[chiave(colonna.nome)];
    std::map<std::string, int> viste;
    for (ColonnaDati& colonna : colonne) {
        if (quante[chiave(colonna.nome)] > 1 && colonna.fid != canali[colonna.indice].fid)
            colonna.nome = nome_canale(canali[colonna.indice]) + " " + colonna.nome;
        const std::string nome = colonna.nome;
        for (int n = 2; viste[chiave(colonna.nome)]++ > 0; ++n)
            colonna.nome = nome + " " + std::to_string(n);
    }
}

}  // namespace

ColonnaDati::ColonnaDati(const IFunzioni& catalogo, const s_kel_canale& canale, std::size_t indice_canale,
                         kel_funpos funzione)
    : nome(funzione == canale.fid ? nome_canale(canale) : nome_sottocampo(canale.fid, funzione)),
      indice(indice_canale),
      fid(funzione),
      pacchetto_intero_(funzione == canale.fid && di_pacchetto(canale.tipo_campione)),
      misura_(canale.tipo_campione == KEL_TIPO_COORDINATA ? Misura::decimilionesimi : Misura::funzione) {
    conv_.larghezza = LARGHEZZA_NUMERO;
    if (fid != canale.fid && (fid == KEL_FID_GPS_ACCURATEZZA_POSIZIONE || fid == KEL_FID_GPS_ACCURATEZZA_VELOCITA))
        misura_ = Misura::byte_basso;
    if (misura_ == Misura::funzione) {
        mostra_in(catalogo, canale, catalogo.getUnitaBase(fid));
    } else {
        udm = misura_ == Misura::decimilionesimi         ? "1e-7 deg"
              : fid == KEL_FID_GPS_ACCURATEZZA_POSIZIONE ? "cm"
                                                         : "cm/s";
        kelConvInit(&conv_, &canale, fid, kelFunGetConvData(fid, nullptr), 0, 0, 0);
    }
}

ColonnaDati::ColonnaDati(const IFunzioni& catalogo, const s_kel_canale& canale, std::size_t indice_canale,
                         CampoGps campo, std::shared_ptr<UltimaSoluzione> soluzione)
    : nome(nome_campo(campo)),
      indice(indice_canale),
      fid(fid_di(campo)),
      udm(aspetto(campo).udm),
      campo_(campo),
      soluzione_(std::move(soluzione)) {
    decimali_ = aspetto(campo).decimali;
    // The logger's packet is a time, then the receiver's payload.
    conv_.offset_campione =
        canale.offset_campione + kelFunGetSamplSize(canale.tipo_campione) - static_cast<std::uint32_t>(NAV_SOL_BYTE);
    if (campo == CampoGps::velocita)
        mostra_in(catalogo, canale, catalogo.getUnitaBase(fid));
}

bool ColonnaDati::mostra_in(const IFunzioni& catalogo, const s_kel_canale& canale, const std::string& nuova) {
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
        fattore_ = da_metri_al_secondo(catalogo, udm);
        decimali_ = std::clamp(catalogo.getNumDecimaliDefault(fid, udm), 0, 3);
        return true;
    }
    decimali_ = kelFidGrandezza(fid) == FID_PHI_COORDINATE ? DECIMALI_GRADI
                                                           : std::clamp(catalogo.getNumDecimaliDefault(fid, udm), 0, 3);
    conv_.decimali = static_cast<unsigned>(decimali_);
    kelConvInit(&conv_, &canale, fid, catalogo.getParamConv(fid, udm), 0, 0, 0);
    return true;
}

const Soluzione& ColonnaDati::soluzione(const std::uint8_t* campioni) const {
    return soluzione_->di(std::span<const std::uint8_t, NAV_SOL_BYTE>(campioni + conv_.offset_campione, NAV_SOL_BYTE));
}

bool ColonnaDati::ha_valore() const {
    if (campo_)
        return campo_ != CampoGps::utc;
    return conv_.valore != nullptr && !pacchetto_intero_;
}

std::optional<double> ColonnaDati::valore(const std::uint8_t* campioni) const {
    std::uint32_t stato = 0;
    const float valore = conv_.valore(&conv_, campioni + conv_.offset_campione, &stato);
    if (stato != 0)
        return std::nullopt;
    return valore;
}

std::string ColonnaDati::nome_misurato() const {
    return misura_ == Misura::byte_basso ? nome + " low byte" : nome;
}

std::vector<ColonnaDati> colonne(IFunzioni& catalogo, std::span<const s_kel_canale> canali,
                                 const SceltaTabella& scelta) {
    std::vector<ColonnaDati> tutte;
    for (std::size_t i = 0; i < canali.size(); ++i) {
        const bool pacchetto = con_sottocampi(canali[i]);
        if (!pacchetto || scelta.testi)
            tutte.emplace_back(catalogo, canali[i], i, canali[i].fid);
        std::list<kel_funpos> interni;
        if (pacchetto)
            catalogo.getAllInnerFunpos(canali[i].fid, interni);
        const bool wgs84 = pacchetto && di_gps(canali[i]) && !scelta.dispositivo;
        for (const kel_funpos fid : interni)
            if (fid != 0 && (!wgs84 || fid == GPS_TEMPO))  // 0 is a reserved word
                tutte.emplace_back(catalogo, canali[i], i, fid);
        if (wgs84)
            for (const auto soluzione = std::make_shared<UltimaSoluzione>(); const CampoGps campo : CAMPI_GPS)
                tutte.emplace_back(catalogo, canali[i], i, campo, soluzione);
    }
    distingui(tutte, canali);
    return tutte;
}

}  // namespace kel_registrazioni
