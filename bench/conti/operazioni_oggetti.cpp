// The operations of the object face.
#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "CLaptimeAndStrings.h"
#include "IFunzioni.h"
#include "conti/operazioni.h"

namespace conti {
namespace {

constexpr kel_funpos ACQUA = 0x1091;
constexpr kel_funpos COMPOSTA = 0x0123459C;
constexpr kel_funpos PACCHETTO_GPS = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, FID_SPEC_GPS_KELNAVSOL);
constexpr kel_funpos LAMBDA = kelFidComponi(FID_PHI_LAMBDA, FID_OBJ_RATIO, FID_POS_EXHAUST);

s_kel_canale canale = [] {
    s_kel_canale fatto = {};
    fatto.fid = ACQUA;
    fatto.tipo_campione = KEL_TIPO_INT16;
    return fatto;
}();

IFunzioni& catalogo() {
    static const std::unique_ptr<IFunzioni> unico(IFunzioni::CreateMe(&canale, 1));
    return *unico;
}

IConverter& convertitore() {
    static const std::unique_ptr<IConverter> unico(
        catalogo().CreateConverter(&canale, ACQUA, "F", true, 1, FORMATO_DESTRA, 5));
    return *unico;
}

const std::string F = "F";
const std::string C = "C";
const std::string VECCHIO = "GEAR_LEVER_POS";
const std::string DELLA_CAMERA = "BATTERY";
const std::string XML_GRANDEZZA = "FID_PHI_SPEED";
const std::string XML_OGGETTO = "FID_OBJ_OIL";
const std::string XML_POSIZIONE = "FID_POS_WHEEL";
const std::string XML_FRONTREAR = "FID_FRONTREAR_REAR";
const std::string TEMPO = "1:23.456";
const std::string RIGA_GIRO = "  7 - 1:23.456";
constexpr std::int16_t CAMPIONE = 87;

// clang-format off
const Operazione OPERAZIONI[] = {
    {"IFunzioni::CreateMe",                1, [] { delete IFunzioni::CreateMe(&canale, 1); }},
    {"CFunzioni::getNomeCanale",           1, [] { usa(catalogo().getNomeCanale(0)); }},
    {"CFunzioni::getNomeCanaleShort",      1, [] { usa(catalogo().getNomeCanaleShort(0)); }},
    {"CFunzioni::getCanale",               1, [] { usa(catalogo().getCanale(0)); }},
    {"CFunzioni::getMatchCh",              1, [] { usa(catalogo().getMatchCh(ACQUA)); }},
    {"CFunzioni::getNomeFunzioneShort",    1, [] { usa(catalogo().getNomeFunzioneShort(ACQUA)); }},
    {"CFunzioni::getNomeFunzione camera",  1, [] { usa(catalogo().getNomeFunzione(ACQUA, false)); }},
    {"CFunzioni::getNomeFunzione quantity", 1, [] { usa(catalogo().getNomeFunzione(0x05070010, false)); }},
    {"CFunzioni::getNomeFunzione composed", 1, [] { usa(catalogo().getNomeFunzione(COMPOSTA, false)); }},
    {"CFunzioni::getFidEquivalente",       1, [] { usa(catalogo().getFidEquivalente(ACQUA)); }},
    {"CFunzioni::getUnitaBase",            1, [] { usa(catalogo().getUnitaBase(ACQUA)); }},
    {"CFunzioni::getFidDaID legacy",       1, [] { usa(catalogo().getFidDaID(VECCHIO)); }},
    {"CFunzioni::getFidDaID camera",       1, [] { usa(catalogo().getFidDaID(DELLA_CAMERA)); }},
    {"CFunzioni::getFunVecchiaZumikoDaFID", 1, [] { usa(catalogo().getFunVecchiaZumikoDaFID(ACQUA)); }},
    {"CFunzioni::getFunVecchiaZumikoDaID", 1, [] { usa(catalogo().getFunVecchiaZumikoDaID(DELLA_CAMERA)); }},
    {"CFunzioni::getParamZumikoCam",       1, [] { usa(catalogo().getParamZumikoCam(ACQUA)); }},
    {"CFunzioni::getFirstFunzVisZumikoCam", 1, [] { usa(catalogo().getFirstFunzVisZumikoCam()); }},
    {"CFunzioni::getNextFunzVisZumikoCam", 1, [] { usa(catalogo().getNextFunzVisZumikoCam()); }},
    {"CFunzioni::getFirstFunzVisZumikoCamEstese", 1, [] { usa(catalogo().getFirstFunzVisZumikoCamEstese()); }},
    {"CFunzioni::getNextFunzVisZumikoCamEstese", 1, [] { usa(catalogo().getNextFunzVisZumikoCamEstese()); }},
    {"CFunzioni::getAllFunzZumikoCamBasePerSw", 1, [] { std::vector<const t_SFunzioneZumikoCam*> v; catalogo().getAllFunzZumikoCamBasePerSw(v); }},
    {"CFunzioni::getAllFunzZumikoCamEstesePerSw", 1, [] { std::vector<const t_SFunzioneZumikoCam*> v; catalogo().getAllFunzZumikoCamEstesePerSw(v); }},
    {"CFunzioni::getNumDecimaliDefault",   1, [] { usa(catalogo().getNumDecimaliDefault(ACQUA, F)); }},
    {"CFunzioni::getNumDecimaliMax",       1, [] { usa(catalogo().getNumDecimaliMax(ACQUA, F)); }},
    {"CFunzioni::getNumDecimaliMin",       1, [] { usa(catalogo().getNumDecimaliMin(ACQUA, F)); }},
    {"CFunzioni::getFunzUIVs",             1, [] { std::list<std::string> l; catalogo().getFunzUIVs(ACQUA, l); }},
    {"CFunzioni::getFunzioni",             1, [] { std::map<GRANDEZZA_FISICA_FUNZKEL, std::list<SFunzionePerGF>> m; std::vector<unsigned> v; catalogo().getFunzioni(m, v); }},
    {"CFunzioni::getFunzDettagli",         1, [] { std::map<unsigned, std::string> l, i; int p = 0, u = 0; catalogo().getFunzDettagli(LAMBDA, l, i, p, u); }},
    {"CFunzioni::getAllInnerFunpos",       1, [] { std::list<kel_funpos> l; catalogo().getAllInnerFunpos(PACCHETTO_GPS, l); }},
    {"CFunzioni::getParamConv one unit",   1, [] { usa(catalogo().getParamConv(ACQUA, F)); }},
    {"CFunzioni::getParamConv two units",  1, [] { usa(catalogo().getParamConv(ACQUA, F, C)); }},
    {"CFunzioni::FunGetParamZumikoCam",    1, [] { int k = 0; float s = 0; std::string u; usa(catalogo().FunGetParamZumikoCam(ACQUA, k, s, u)); }},
    {"CFunzioni::getCanaliGPS",            1, [] { std::map<unsigned, IFunzioni::NomiDefaultCanale> m; catalogo().getCanaliGPS(m); }},
    {"CFunzioni::getCanaliLapTime",        1, [] { std::map<unsigned, IFunzioni::NomiDefaultCanale> m; catalogo().getCanaliLapTime(m); }},
    {"CFunzioni::getCanaliLapNum",         1, [] { std::map<unsigned, IFunzioni::NomiDefaultCanale> m; catalogo().getCanaliLapNum(m); }},
    {"CFunzioni::getStrPhi",               1, [] { usa(catalogo().getStrPhi(FID_PHI_SPEED)); }},
    {"CFunzioni::getStrObj",               1, [] { usa(catalogo().getStrObj(FID_OBJ_OIL)); }},
    {"CFunzioni::getStrPos",               1, [] { usa(catalogo().getStrPos(FID_POS_WHEEL)); }},
    {"CFunzioni::getXmlStrPhi",            1, [] { usa(catalogo().getXmlStrPhi(FID_PHI_SPEED)); }},
    {"CFunzioni::getXmlStrObj",            1, [] { usa(catalogo().getXmlStrObj(FID_OBJ_OIL)); }},
    {"CFunzioni::RiempiMapGrandezzaFisica", 1, [] { std::map<GRANDEZZA_FISICA_FUNZKEL, std::string> m; catalogo().RiempiMapGrandezzaFisica(m); }},
    {"CFunzioni::getIdxPhi",               1, [] { usa(catalogo().getIdxPhi(XML_GRANDEZZA)); }},
    {"CFunzioni::getIdxObj",               1, [] { usa(catalogo().getIdxObj(XML_OGGETTO)); }},
    {"CFunzioni::getIdxPos",               1, [] { usa(catalogo().getIdxPos(XML_POSIZIONE)); }},
    {"CFunzioni::getIdxFrontRear",         1, [] { usa(catalogo().getIdxFrontRear(XML_FRONTREAR)); }},
    {"CFunzioni::CreateConverter",         1, [] { delete catalogo().CreateConverter(&canale, ACQUA, F, true, 1, FORMATO_DESTRA, 5); }},
    {"CFunzioni::GetValoriCampiFID",       1, [] { std::list<std::string> l[12]; catalogo().GetValoriCampiFID(l[0], l[1], l[2], l[3], l[4], l[5], l[6], l[7], l[8], l[9], l[10], l[11]); }},
    {"CConverter::GetVal int16",           1, [] { float v = 0; usa(convertitore().GetVal(&CAMPIONE, &v)); }},
    {"CConverter::GetString int16 5.1",    1, [] { std::string t; usa(convertitore().GetString(&CAMPIONE, t)); }},
    {"CLaptimeAndStrings::LapTimeToStringa", 1, [] { usa(CLaptimeAndStrings::LapTimeToStringa(83456)); }},
    {"CLaptimeAndStrings::LapNumAndTimeToStringa", 1, [] { usa(CLaptimeAndStrings::LapNumAndTimeToStringa(7, 83456)); }},
    {"CLaptimeAndStrings::StringaToLapTime", 1, [] { usa(CLaptimeAndStrings::StringaToLapTime(TEMPO)); }},
    {"CLaptimeAndStrings::StringaToLapNumAndTime", 1, [] { int n = 0, t = 0; CLaptimeAndStrings::StringaToLapNumAndTime(RIGA_GIRO, n, t); }},
};
// clang-format on

}  // namespace

std::span<const Operazione> operazioni_oggetti() {
    return OPERAZIONI;
}

}  // namespace conti
