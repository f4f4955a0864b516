// Legacy identifiers, which are texts, of the functions that are not rows of the camera tables. The spellings are those
// of old configuration files.
#include "tables/funz_kel.h"
#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/invarianti.h"

using kel::alto_basso;
using kel::davanti_dietro;
using kel::destra_sinistra;
using kel::fid;
using kel::FINE_TABELLA;

// clang-format off
extern "C" {

// "FG_RUNNING_LAP_TIME" is also a row of the extended camera table, which the catalogue searches first; both rows have
// the same function. "DSG" is the number of the gear with instance number 0, which tells it from the lever position.
//   short   name                legacy identifier          function
constexpr t_SFunzioneVecchia funz_Kel[] = {
    {"GBxT", "Gear Box Temp",    "FG_GEAR_BOX_TEMP",        fid(FID_PHI_TEMPERATURE, FID_OBJ_GEAR, FID_POS_GEARBOX)},
    {"APPS", "Admission Pedal",  "FG_ADMISSION_PPS",        fid(FID_PHI_PERCENT, FID_OBJ_PEDAL_LOAD, FID_POS_ADMISSION)},
    {"AirT", "Admission AirTmp", "FG_ADMISSION_AIR_TEMP",   fid(FID_PHI_TEMPERATURE, FID_OBJ_AIR, FID_POS_ADMISSION)},
    {"TurP", "Turbo Pressure",   "FG_EXHAUST_TURBO_PRESS",  fid(FID_PHI_PRESSURE, FID_OBJ_AIR, FID_POS_ADMISSION)},  // boost pressure, in spite of "EXHAUST"
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
    {"DfMp", "Diff Map",         "DIFFERENTIAL_MAP",        fid(FID_PHI_NUMBER, FID_OBJ_UNDEFINED, FID_POS_TRANSMISSION)},  // not FID_POS_DIFFERENTIAL
    {"GeaP", "Gear Lever Pos",   "GEAR_LEVER_POS",          fid(FID_PHI_NUMBER, FID_OBJ_GEAR)},
    {"RolT", "Rolling Time",     "FG_RUNNING_LAP_TIME",     fid(FID_PHI_TIME, FID_OBJ_RUNNING_LAP)},
    {"DSG",  "DSG",              "DSG",                     fid(FID_PHI_NUMBER, FID_OBJ_GEAR) | kelFidIstanza(0)},
    {"",     "",                 "",                        FINE_TABELLA},
};

}  // extern "C"
// clang-format on

namespace kel {

static_assert(chiavi_in_regola(funz_Kel, &t_SFunzioneVecchia::fid),
              "end row last; each function once, of fields with descriptors");
static_assert(valori_unici(funz_Kel, &t_SFunzioneVecchia::id), "a legacy identifier stands for one function");
static_assert(testi_entro(funz_Kel, &t_SFunzioneVecchia::breve, 4) &&
                  testi_entro(funz_Kel, &t_SFunzioneVecchia::testo, 16) &&
                  testi_entro(funz_Kel, &t_SFunzioneVecchia::id, 24),
              "texts are ASCII and fit their fields");

// --- The indexes ---------------------------------------------------------------------------------------------------

namespace {

constexpr auto FID_DELLE_RIGHE = raccogli<RIGHE_KEL>([](std::size_t i) { return funz_Kel[i].fid; });
constexpr auto ID_DELLE_RIGHE = raccogli<RIGHE_KEL>([](std::size_t i) { return std::string_view(funz_Kel[i].id); });

}  // namespace

constexpr IndicePerfetto<64> INDICE_KEL_FID = indice_perfetto<64>(FID_DELLE_RIGHE);
constexpr IndiceTesti<64, RIGHE_KEL> INDICE_KEL_ID = indice_testi<64>(ID_DELLE_RIGHE);
static_assert(come_la_scansione(INDICE_KEL_FID, FID_DELLE_RIGHE), "every row is found by its function");
static_assert(come_la_scansione(INDICE_KEL_ID, ID_DELLE_RIGHE), "every row is found by its legacy identifier");

}  // namespace kel
