#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "CConverter.h"
#include "CFunzioni.h"
#include "CLaptimeAndStrings.h"
#include "comune/tipi_campione.h"
#include "famiglie.h"

namespace digest {

namespace {

// The catalogue of every case, without channels.
IFunzioni& catalogo() {
    static const std::unique_ptr<IFunzioni> uno(IFunzioni::CreateMe());
    return *uno;
}

std::string testo(Caso& caso) {
    char testo[40];
    caso.testo(testo, sizeof testo);
    return testo;
}

std::string unita(Caso& caso, kel_funpos fid) {
    char testo[24];
    caso.unita(fid, testo, sizeof testo);
    return testo;
}

std::string tempo(Caso& caso) {
    char testo[20];
    caso.tempo(testo, sizeof testo);
    return testo;
}

template <typename Enum>
Enum valore(Caso& caso) {
    return static_cast<Enum>(caso.uno_su(4) ? caso.u32() : caso.sotto(70));
}

void metti(Impronta& impronta, std::uint32_t valore) {
    impronta.numero(valore);
}
void metti(Impronta& impronta, const std::string& valore) {
    impronta.testo(std::string_view(valore));
}
void metti(Impronta& impronta, const SFunzionePerGF& valore) {
    impronta.numero(valore.funpos);
    impronta.testo(std::string_view(valore.nome));
}
void metti(Impronta& impronta, const IFunzioni::NomiDefaultCanale& valore) {
    impronta.testo(std::string_view(valore.breve));
    impronta.testo(std::string_view(valore.nome));
}
void metti(Impronta& impronta, const t_SFunzioneZumikoCam* valore) {
    impronta.riga(valore);
}
template <typename Elemento>
void metti(Impronta& impronta, const std::list<Elemento>& valori) {
    impronta.numero(valori.size());
    for (const Elemento& valore : valori)
        metti(impronta, valore);
}
template <typename Elemento>
void metti(Impronta& impronta, const std::vector<Elemento>& valori) {
    impronta.numero(valori.size());
    for (const Elemento& valore : valori)
        metti(impronta, valore);
}
template <typename Chiave, typename Elemento>
void metti(Impronta& impronta, const std::map<Chiave, Elemento>& valori) {
    impronta.numero(valori.size());
    for (const auto& [chiave, valore] : valori) {
        impronta.numero(static_cast<std::uint32_t>(chiave));
        metti(impronta, valore);
    }
}

// A catalogue over channels by chance, through a few operations.
void canali(Caso& caso, Impronta& impronta) {
    constexpr unsigned quanti = 4;
    s_kel_canale record[quanti] = {};
    for (s_kel_canale& canale : record) {
        canale.fid = caso.fid();
        canale.dim_buffer = caso.u32();
        canale.nome[0] = static_cast<char>('A' + caso.sotto(26));
        canale.breve[0] = static_cast<char>('A' + caso.sotto(26));
    }
    const std::unique_ptr<IFunzioni> uno(IFunzioni::CreateMe(record, quanti));
    const unsigned indice = caso.sotto(quanti);
    metti(impronta, uno->getNomeCanale(indice));
    metti(impronta, uno->getNomeCanaleShort(indice));
    impronta.numero(uno->getSizeBufferValori());
    impronta.numero(uno->getNumChUsed());
    impronta.numero(uno->getFreeCh() == nullptr ? 0 : 1);
    const unsigned altro = caso.sotto(quanti + 2);
    const s_kel_canale* canale = uno->getCanale(altro);
    impronta.segno(canale == nullptr ? -1 : canale - record);
    canale = uno->getMatchCh(caso.uno_su(2) ? caso.sottocampo() : caso.fid());
    impronta.segno(canale == nullptr ? -1 : canale - record);
}

// The two walks over the camera's functions, in any order, of one catalogue that remembers where it is.
void telecamera(Caso& caso, Impronta& impronta) {
    const std::unique_ptr<IFunzioni> uno(IFunzioni::CreateMe());
    for (int i = 0; i < 12; i++)
        switch (caso.sotto(6)) {
            case 0:
                impronta.riga(uno->getFirstFunzVisZumikoCam());
                break;
            case 1:
                impronta.riga(uno->getFirstFunzVisZumikoCamEstese());
                break;
            case 2:
            case 3:
                impronta.riga(uno->getNextFunzVisZumikoCam());
                break;
            default:
                impronta.riga(uno->getNextFunzVisZumikoCamEstese());
                break;
        }
}

void convertitore(Caso& caso, Impronta& impronta) {
    s_kel_canale canale = {};
    canale.fid = caso.uno_su(2) ? caso.pacchetto() : caso.fid();
    canale.tipo_campione = caso.sotto(kel_test::TIPI_CAMPIONE + 1);
    const kel_funpos fid = caso.uno_su(2) ? canale.fid : caso.sottocampo();
    const std::string udm = unita(caso, fid);
    const unsigned decimali = caso.sotto(5);
    const unsigned larghezza = caso.sotto(12);
    const std::unique_ptr<IConverter> uno(catalogo().CreateConverter(
        &canale, fid, udm, true, decimali, static_cast<eFormatoConv>(caso.sotto(3)), larghezza));
    unsigned char buffer[64];
    for (int i = 0; i < 2; i++) {
        caso.campione(buffer);
        float valore = -1;
        std::string testo = "before";
        impronta.numero(uno->GetVal(buffer, &valore) ? 1 : 0);
        impronta.reale(valore);
        impronta.numero(uno->GetString(buffer, testo) ? 1 : 0);
        metti(impronta, testo);
        uno->SetNumDec(static_cast<int>(caso.sotto(5)) - 1);
    }
}

void elenco_funzioni(Caso& caso, Impronta& impronta) {
    std::map<GRANDEZZA_FISICA_FUNZKEL, std::list<SFunzionePerGF>> funzioni;
    std::vector<unsigned> filtro;
    for (unsigned quante = caso.sotto(3); quante > 0; quante--)
        filtro.push_back(caso.fid());
    catalogo().getFunzioni(funzioni, filtro);
    metti(impronta, funzioni);
}

void dettagli(Caso& caso, Impronta& impronta) {
    std::map<unsigned, std::string> lati;
    std::map<unsigned, std::string> inout;
    int primo = -5;
    int ultimo = -6;
    catalogo().getFunzDettagli(caso.fid(), lati, inout, primo, ultimo);
    metti(impronta, lati);
    metti(impronta, inout);
    impronta.segno(primo);
    impronta.segno(ultimo);
}

void parametri(Caso& caso, Impronta& impronta) {
    int codice = -5;
    float scala = -6;
    std::string udm = "before";
    impronta.numero(catalogo().FunGetParamZumikoCam(static_cast<int>(caso.fid()), codice, scala, udm) ? 1 : 0);
    impronta.segno(codice);
    impronta.reale(scala);
    metti(impronta, udm);
}

void valori_campi(Caso& /*caso*/, Impronta& impronta) {
    std::vector<std::list<std::string>> liste(12);
    catalogo().GetValoriCampiFID(liste[0], liste[1], liste[2], liste[3], liste[4], liste[5], liste[6], liste[7],
                                 liste[8], liste[9], liste[10], liste[11]);
    metti(impronta, liste);
}

void formati(Caso& caso, Impronta& impronta) {
    unsigned formati[32] = {};
    impronta.segno(catalogo().getFormati(caso.fid(), formati));
    for (const unsigned formato : formati)
        impronta.numero(formato);
}

template <typename Contenitore, void (IFunzioni::*Riempi)(Contenitore&) const>
void riempi(Caso& /*caso*/, Impronta& impronta) {
    Contenitore contenitore;
    (catalogo().*Riempi)(contenitore);
    metti(impronta, contenitore);
}

template <void (IFunzioni::*Riempi)(std::vector<const t_SFunzioneZumikoCam*>&)>
void righe(Caso& /*caso*/, Impronta& impronta) {
    std::vector<const t_SFunzioneZumikoCam*> trovate;
    (catalogo().*Riempi)(trovate);
    metti(impronta, trovate);
}

using NomiCanali = std::map<unsigned, IFunzioni::NomiDefaultCanale>;
using Grandezze = std::map<GRANDEZZA_FISICA_FUNZKEL, std::string>;

void leggi_giro(Caso& caso, Impronta& impronta) {
    // Long enough: a line of fewer than 6 characters throws.
    const std::string riga = "      ";
    int numero = -5;
    int millisecondi = -6;
    const std::string testo = tempo(caso);
    CLaptimeAndStrings::StringaToLapNumAndTime(testo.size() < 6 ? testo + riga : testo, numero, millisecondi);
    impronta.segno(numero);
    impronta.segno(millisecondi);
}

void scrivi_giro(Caso& caso, Impronta& impronta) {
    const std::int32_t numero = caso.i32();
    const auto millisecondi = static_cast<std::int32_t>(caso.grandezze());
    metti(impronta, CLaptimeAndStrings::LapNumAndTimeToStringa(numero, millisecondi));
}

// clang-format off
constexpr Famiglia FAMIGLIE[] = {
    {"LapTimeToStringa",       1, [](Caso& c, Impronta& i) { metti(i, CLaptimeAndStrings::LapTimeToStringa(static_cast<std::int32_t>(c.grandezze()))); }},
    {"LapNumAndTimeToStringa", 1, scrivi_giro},
    {"StringaToLapTime",       1, [](Caso& c, Impronta& i) { i.segno(CLaptimeAndStrings::StringaToLapTime(tempo(c))); }},
    {"StringaToLapNumAndTime", 1, leggi_giro},

    {"IConverter",             2, convertitore},
    {"IFunzioni channels",     8, canali},
    {"IFunzioni camera walks", 8, telecamera},

    {"getNomeFunzione",        2, [](Caso& c, Impronta& i) { const kel_funpos f = c.fid(); metti(i, catalogo().getNomeFunzione(f, c.uno_su(2))); }},
    {"getNomeFunzioneShort",   4, [](Caso& c, Impronta& i) { metti(i, catalogo().getNomeFunzioneShort(c.fid())); }},
    {"getFidEquivalente",      4, [](Caso& c, Impronta& i) { i.numero(catalogo().getFidEquivalente(c.fid())); }},
    {"getUnitaBase",           4, [](Caso& c, Impronta& i) { metti(i, catalogo().getUnitaBase(c.fid())); }},
    {"getFidDaID",             4, [](Caso& c, Impronta& i) { i.numero(catalogo().getFidDaID(testo(c))); }},
    {"getFunVecchiaZumikoDaFID", 4, [](Caso& c, Impronta& i) { i.riga(catalogo().getFunVecchiaZumikoDaFID(c.fid())); }},
    {"getFunVecchiaZumikoDaID", 4, [](Caso& c, Impronta& i) { i.riga(catalogo().getFunVecchiaZumikoDaID(testo(c))); }},
    {"getParamZumikoCam",      4, [](Caso& c, Impronta& i) { i.riga(catalogo().getParamZumikoCam(c.fid())); }},
    {"FunGetParamZumikoCam",   4, parametri},
    {"getNumDecimaliDefault",  4, [](Caso& c, Impronta& i) { const kel_funpos f = c.fid(); i.segno(catalogo().getNumDecimaliDefault(f, unita(c, f))); }},
    {"getNumDecimaliMax",      4, [](Caso& c, Impronta& i) { const kel_funpos f = c.fid(); i.segno(catalogo().getNumDecimaliMax(f, unita(c, f))); }},
    {"getNumDecimaliMin",      4, [](Caso& c, Impronta& i) { const kel_funpos f = c.fid(); i.segno(catalogo().getNumDecimaliMin(f, unita(c, f))); }},
    {"getParamConv",           4, [](Caso& c, Impronta& i) { const kel_funpos f = c.fid(); i.riga(catalogo().getParamConv(f, unita(c, f))); }},
    {"getParamConv of two",    4, [](Caso& c, Impronta& i) { const kel_funpos f = c.fid(); const std::string da = unita(c, f); const s_converter_data d = catalogo().getParamConv(f, da, unita(c, f)); i.riga(&d); }},
    {"getFunzUIVs",            4, [](Caso& c, Impronta& i) { std::list<std::string> l; catalogo().getFunzUIVs(c.fid(), l); metti(i, l); }},
    {"getFunzDettagli",        4, dettagli},
    {"getFormati",             4, formati},
    {"getAllInnerFunpos",      4, [](Caso& c, Impronta& i) { std::list<kel_funpos> l; catalogo().getAllInnerFunpos(c.pacchetto(), l); metti(i, l); }},
    {"getStrPhi",              4, [](Caso& c, Impronta& i) { metti(i, catalogo().getStrPhi(valore<GRANDEZZA_FISICA_FUNZKEL>(c))); }},
    {"getStrObj",              4, [](Caso& c, Impronta& i) { metti(i, catalogo().getStrObj(valore<OGGETTO_MISURATO_FUNZKEL>(c))); }},
    {"getStrPos",              4, [](Caso& c, Impronta& i) { metti(i, catalogo().getStrPos(valore<POSIZIONE_FUNZKEL>(c))); }},
    {"getXmlStrPhi",           4, [](Caso& c, Impronta& i) { metti(i, catalogo().getXmlStrPhi(valore<GRANDEZZA_FISICA_FUNZKEL>(c))); }},
    {"getXmlStrObj",           4, [](Caso& c, Impronta& i) { metti(i, catalogo().getXmlStrObj(valore<OGGETTO_MISURATO_FUNZKEL>(c))); }},
    {"getIdxPhi",              4, [](Caso& c, Impronta& i) { i.segno(catalogo().getIdxPhi(testo(c))); }},
    {"getIdxObj",              4, [](Caso& c, Impronta& i) { i.segno(catalogo().getIdxObj(testo(c))); }},
    {"getIdxPos",              4, [](Caso& c, Impronta& i) { i.segno(catalogo().getIdxPos(testo(c))); }},
    {"getIdxFrontRear",        4, [](Caso& c, Impronta& i) { i.segno(catalogo().getIdxFrontRear(testo(c))); }},

    {"getFunzioni",            2048, elenco_funzioni},
    {"GetValoriCampiFID",      2048, valori_campi},
    {"RiempiMapGrandezzaFisica", 512, riempi<Grandezze, &IFunzioni::RiempiMapGrandezzaFisica>},
    {"getCanaliGPS",           512, riempi<NomiCanali, &IFunzioni::getCanaliGPS>},
    {"getCanaliLapTime",       512, riempi<NomiCanali, &IFunzioni::getCanaliLapTime>},
    {"getCanaliLapNum",        512, riempi<NomiCanali, &IFunzioni::getCanaliLapNum>},
    {"getAllFunzZumikoCamBasePerSw", 512, righe<&IFunzioni::getAllFunzZumikoCamBasePerSw>},
    {"getAllFunzZumikoCamEstesePerSw", 512, righe<&IFunzioni::getAllFunzZumikoCamEstesePerSw>},
};
// clang-format on

}  // namespace

std::span<const Famiglia> famiglie_oggetti() {
    return FAMIGLIE;
}

}  // namespace digest
