// Legacy textual identifiers that are not rows of the camera tables. The spellings are those of old configuration files.
#include "tables/funz_kel.h"
#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/invarianti.h"

using kel::alto_basso;
using kel::davanti_dietro;
using kel::destra_sinistra;
using kel::fid;
using kel::fine_tabella;

// clang-format off
extern "C" {

// "FG_RUNNING_LAP_TIME" is an extended camera function as well, which is found first; both stand for the same function.
//   short   name                legacy identifier          function
constexpr t_SFunzioneVecchia funz_Kel[] = {
    {"GBxT", "Gear Box Temp",    "FG_GEAR_BOX_TEMP",        fid(FID_PHI_TEMPERATURE, FID_OBJ_GEAR, FID_POS_GEARBOX)},
    {"APPS", "Admission Pedal",  "FG_ADMISSION_PPS",        fid(FID_PHI_PERCENT, FID_OBJ_PEDAL_LOAD, FID_POS_ADMISSION)},
    {"AirT", "Admission AirTmp", "FG_ADMISSION_AIR_TEMP",   fid(FID_PHI_TEMPERATURE, FID_OBJ_AIR, FID_POS_ADMISSION)},
    {"TurP", "Turbo Pressure",   "FG_EXHAUST_TURBO_PRESS",  fid(FID_PHI_PRESSURE, FID_OBJ_AIR, FID_POS_ADMISSION)},
    {"FEnP", "Fuel Eng Pres",    "FG_ENGINE_FUEL_PRESS",    fid(FID_PHI_PRESSURE, FID_OBJ_FUEL, FID_POS_ENGINE)},
    {"FAdP", "Fuel Adm Pres",    "FG_ADMISSION_FUEL_PRESS", fid(FID_PHI_PRESSURE, FID_OBJ_FUEL, FID_POS_ADMISSION)},
    {"SpRL", "Speed Wheel RL",   "REF_SPEED_RL",            fid(FID_PHI_SPEED, FID_OBJ_UNDEFINED, FID_POS_WHEEL) | destra_sinistra(FID_LEFTRIGHT_LEFT) | davanti_dietro(FID_FRONTREAR_REAR)},
    {"SpRR", "Speed Wheel RR",   "REF_SPEED_RR",            fid(FID_PHI_SPEED, FID_OBJ_UNDEFINED, FID_POS_WHEEL) | destra_sinistra(FID_LEFTRIGHT_RIGHT) | davanti_dietro(FID_FRONTREAR_REAR)},
    {"SpFL", "Speed Wheel FL",   "REF_SPEED_FL",            fid(FID_PHI_SPEED, FID_OBJ_UNDEFINED, FID_POS_WHEEL) | destra_sinistra(FID_LEFTRIGHT_LEFT) | davanti_dietro(FID_FRONTREAR_FRONT)},
    {"SpFR", "Speed Wheel FR",   "REF_SPEED_FR",            fid(FID_PHI_SPEED, FID_OBJ_UNDEFINED, FID_POS_WHEEL) | destra_sinistra(FID_LEFTRIGHT_RIGHT) | davanti_dietro(FID_FRONTREAR_FRONT)},
    {"BkBl", "Brake Balance",    "BRAKE_BALANCE",           fid(FID_PHI_PERCENT, FID_OBJ_BRAKE_LOAD, FID_POS_BRAKE) | kelFidBitInOut(FID_INOUT_CENTER)},
    {"BkPF", "Brake Pres Front", "BRAKE_PRESS_FRONT",       fid(FID_PHI_PRESSURE, FID_OBJ_BRAKE_FLUID) | davanti_dietro(FID_FRONTREAR_FRONT)},
    {"BkPR", "Brake Pres Rear",  "BRAKE_PRESS_REAR",        fid(FID_PHI_PRESSURE, FID_OBJ_BRAKE_FLUID) | davanti_dietro(FID_FRONTREAR_REAR)},
    {"TipU", "Gear Tip Up",      "GEAR_PEDAL_SHIFT_UP",     fid(FID_PHI_NUMBER, FID_OBJ_GEAR, FID_POS_GEARBOX) | alto_basso(FID_UPDOWN_UP)},
    {"TipD", "Gear Tip Down",    "GEAR_PEDAL_SHIFT_DOWN",   fid(FID_PHI_NUMBER, FID_OBJ_GEAR, FID_POS_GEARBOX) | alto_basso(FID_UPDOWN_DOWN)},
    {"DfMp", "Diff Map",         "DIFFERENTIAL_MAP",        fid(FID_PHI_NUMBER, FID_OBJ_UNDEFINED, FID_POS_TRANSMISSION)},
    {"GeaP", "Gear Lever Pos",   "GEAR_LEVER_POS",          fid(FID_PHI_NUMBER, FID_OBJ_GEAR)},
    {"RolT", "Rolling Time",     "FG_RUNNING_LAP_TIME",     fid(FID_PHI_TIME, FID_OBJ_RUNNING_LAP)},
    {"DSG",  "DSG",              "DSG",                     fid(FID_PHI_NUMBER, FID_OBJ_GEAR) | kelFidIstanza(0)},
    {"",     "",                 "",                        fine_tabella},
};

}  // extern "C"
// clang-format on

namespace kel {

static_assert(fine_solo_in_fondo(funz_Kel, &t_SFunzioneVecchia::fid), "the end row is last and only last");
static_assert(chiavi_uniche(funz_Kel, &t_SFunzioneVecchia::fid), "a function stands once");
static_assert(chiavi_note(funz_Kel, &t_SFunzioneVecchia::fid), "functions have fields with descriptors");

constexpr bool identificatori_unici() {
    for (const t_SFunzioneVecchia& riga : funz_Kel)
        for (const t_SFunzioneVecchia* altra = funz_Kel; altra != &riga; ++altra)
            if (std::string_view(riga.id) == altra->id)
                return false;
    return true;
}
static_assert(identificatori_unici(), "a legacy identifier stands for one function");

constexpr bool testi_in_misura() {
    for (const t_SFunzioneVecchia& riga : funz_Kel)
        if (!ascii(riga.breve, 4) || !ascii(riga.testo, 16) || !ascii(riga.id, 24))
            return false;
    return true;
}
static_assert(testi_in_misura(), "texts are ASCII and fit their fields");

// --- Indexes -------------------------------------------------------------------------------------------------------

namespace {

constexpr std::array<std::uint32_t, righe_kel> chiavi_fid() {
    std::array<std::uint32_t, righe_kel> chiavi = {};
    for (std::size_t i = 0; i < righe_kel; ++i)
        chiavi[i] = funz_Kel[i].fid;
    return chiavi;
}

constexpr std::array<std::string_view, righe_kel> testi_id() {
    std::array<std::string_view, righe_kel> testi = {};
    for (std::size_t i = 0; i < righe_kel; ++i)
        testi[i] = funz_Kel[i].id;
    return testi;
}

}  // namespace

constexpr IndicePerfetto<64> indice_kel_fid = indice_perfetto<64>(chiavi_fid());
constexpr IndiceTesti<64, righe_kel> indice_kel_id = indice_testi<64>(testi_id());

constexpr bool indici_completi() {
    for (std::size_t i = 0; i < righe_kel; ++i)
        if (indice_kel_fid.riga(funz_Kel[i].fid) != i || indice_kel_id.riga(funz_Kel[i].id) != i)
            return false;
    return true;
}
static_assert(indici_completi(), "every row is found by its keys, which are unique");

}  // namespace kel
