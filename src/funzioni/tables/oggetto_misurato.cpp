// Values of the measured object.
#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/invarianti.h"

// clang-format off
extern "C" {

// The abbreviations have five characters at most, except "Lambda" with six.
//   value                             XML name                            short     text
constexpr s_campo_fid oggetto_misurato_FunzKel[] = {
    {FID_OBJ_UNDEFINED,                "FID_OBJ_UNDEFINED",                "---",    ""},
    {FID_OBJ_AIR,                      "FID_OBJ_AIR",                      "Air",    "Air"},
    {FID_OBJ_ALTITUDE,                 "FID_OBJ_ALTITUDE",                 "Alt",    "Altitude"},
    {FID_OBJ_BATTERY,                  "FID_OBJ_BATTERY",                  "Bat",    "Battery"},
    {FID_OBJ_BRAKE_FLUID,              "FID_OBJ_BRAKE_FLUID",              "BrkFl",  "Brake Fluid"},
    {FID_OBJ_BRAKE_LOAD,               "FID_OBJ_BRAKE_LOAD",               "BrkLd",  "Brake Load"},
    {FID_OBJ_CLUTCH_ENGAGEMENT,        "FID_OBJ_CLUTCH_ENGAGEMENT",        "CltEg",  "Clutch Use"},
    {FID_OBJ_DETONATION,               "FID_OBJ_DETONATION",               "Deto",   "Detonation"},
    {FID_OBJ_ENGINE_LOAD,              "FID_OBJ_ENGINE_LOAD",              "EnLd",   "Engine Load"},
    {FID_OBJ_ENGINE_OUTPUT,            "FID_OBJ_ENGINE_OUTPUT",            "EnOut",  "Engine Output"},
    {FID_OBJ_ERROR,                    "FID_OBJ_ERROR",                    "Err",    "Error"},
    {FID_OBJ_FUEL,                     "FID_OBJ_FUEL",                     "Fuel",   "Fuel"},
    {FID_OBJ_GEAR,                     "FID_OBJ_GEAR",                     "Gear",   "Gear"},
    {FID_OBJ_HEADING,                  "FID_OBJ_HEADING",                  "Head",   "Heading"},
    {FID_OBJ_IGNITION_ADVANCE,         "FID_OBJ_IGNITION_ADVANCE",         "IgAdv",  "Ignition Adv"},
    {FID_OBJ_INJECTION,                "FID_OBJ_INJECTION",                "Inj",    "Injection"},
    {FID_OBJ_INJECTION_ADVANCE,        "FID_OBJ_INJECTION_ADVANCE",        "IjAdv",  "Injection Adv"},
    {FID_OBJ_INJECTION_LOAD,           "FID_OBJ_INJECTION_LOAD",           "IjLd",   "Injection Load"},
    {FID_OBJ_LAMBDA,                   "FID_OBJ_LAMBDA",                   "Lambda", "Lambda"},
    {FID_OBJ_LAP,                      "FID_OBJ_LAP",                      "Lap",    "Lap"},
    {FID_OBJ_LATITUDE,                 "FID_OBJ_LATITUDE",                 "Lati",   "Latitude"},
    {FID_OBJ_LONGITUDE,                "FID_OBJ_LONGITUDE",                "Long",   "Longitude"},
    {FID_OBJ_LOGGING_ODOMETER,         "FID_OBJ_LOGGING_ODOMETER",         "LgOdo",  "Logg. Odometer"},
    {FID_OBJ_OIL,                      "FID_OBJ_OIL",                      "Oil",    "Oil"},
    {FID_OBJ_PEDAL_LOAD,               "FID_OBJ_PEDAL_LOAD",               "PdlLd",  "Pedal Load"},
    {FID_OBJ_RATIO,                    "FID_OBJ_RATIO",                    "Ratio",  "Ratio"},
    {FID_OBJ_SLIPPAGE,                 "FID_OBJ_SLIPPAGE",                 "Slip",   "Slip"},
    {FID_OBJ_STEERING,                 "FID_OBJ_STEERING",                 "Steer",  "Steer"},
    {FID_OBJ_SWITCH,                   "FID_OBJ_SWITCH",                   "Swtch",  "Switch"},
    {FID_OBJ_THROTTLE_LOAD,            "FID_OBJ_THROTTLE_LOAD",            "ThLd",   "Throttle Load"},
    {FID_OBJ_THROTTLE_LOAD_DERIVATIVE, "FID_OBJ_THROTTLE_LOAD_DERIVATIVE", "ThLdD",  "Throttle Rate"},
    {FID_OBJ_UNDERSTEER,               "FID_OBJ_UNDERSTEER",               "Undst",  "Understeer"},
    {FID_OBJ_VIDEORECORDING,           "FID_OBJ_VIDEORECORDING",           "VRec",   "Videorecording"},
    {FID_OBJ_WATER,                    "FID_OBJ_WATER",                    "Wat",    "Water"},
    {FID_OBJ_X,                        "FID_OBJ_X",                        "X",      "X axis"},
    {FID_OBJ_Y,                        "FID_OBJ_Y",                        "Y",      "Y axis"},
    {FID_OBJ_Z,                        "FID_OBJ_Z",                        "Z",      "Z axis"},
    {FID_OBJ_HORIZONTAL_PLANE,         "FID_OBJ_HORIZONTAL_PLANE",         "HzPla",  "Horz Plane"},
    {FID_OBJ_BEST_LAP,                 "FID_OBJ_BEST_LAP",                 "BLap",   "Best Lap"},
    {FID_OBJ_PREDICTIVE,               "FID_OBJ_PREDICTIVE",               "Pred",   "Predictive"},
    {FID_OBJ_SATELLITE,                "FID_OBJ_SATELLITE",                "Sat",    "Satellite"},
    {FID_OBJ_SLOPE,                    "FID_OBJ_SLOPE",                    "Slp",    "Slope"},
    {FID_OBJ_MASTER_CLOCK,             "FID_OBJ_MASTER_CLOCK",             "MClk",   "Master Clock"},
    {FID_OBJ_STATUS,                   "FID_OBJ_STATUS",                   "Stat",   "Status"},
    {FID_OBJ_TOTAL_ODOMETER,           "FID_OBJ_TOTAL_ODOMETER",           "TtOdo",  "Total Odometer"},
    {FID_OBJ_RESETTABLE_ODOMETER,      "FID_OBJ_RESETTABLE_ODOMETER",      "RsOdo",  "Trip Odometer"},
    {FID_OBJ_RUNNING_LAP,              "FID_OBJ_RUNNING_LAP",              "RLap",   "Running Lap"},
    {FID_OBJ_SPLIT,                    "FID_OBJ_SPLIT",                    "Split",  "Split"},
    {FID_OBJ_BEST_SPLIT,               "FID_OBJ_BEST_SPLIT",               "BSplt",  "Best Split"},
    {FID_OBJ_SHAFT,                    "FID_OBJ_SHAFT",                    "Shaft",  "Shaft"},
    {FID_OBJ_SESSION,                  "FID_OBJ_SESSION",                  "Sess",   "Session"},
    {FID_OBJ_ACCURACY,                 "FID_OBJ_ACCURACY",                 "Accur",  "Accuracy"},
    {FID_OBJ_CUSTOM,                   "FID_OBJ_CUSTOM",                   "Cust",   "Custom"},
    {FID_OBJ_STATUS_ON,                "FID_OBJ_STATUS_ON",                "ON",     "ON Status"},
    {FID_OBJ_STATUS_OFF,               "FID_OBJ_STATUS_OFF",               "OF",     "OFF Status"},
    {FID_OBJ_PREDICTIVE_VS_BEST_DIFF,  "FID_OBJ_PREDICTIVE_VS_BEST_DIFF",  "PT+-",   "Predict +- BestT"},
    {FID_OBJ_PREDICTIVE_VS_PREC_DIFF,  "FID_OBJ_PREDICTIVE_VS_PREC_DIFF",  "PTDp",   "Predict +- PrevT"},
    {FID_OBJ_PREDICTIVE_VS_REF_DIFF,   "FID_OBJ_PREDICTIVE_VS_REF_DIFF",   "PTDr",   "Predict +- RefT"},
};

}  // extern "C"
// clang-format on

namespace kel {

static_assert(campo_in_regola(oggetto_misurato_FunzKel, "FID_OBJ_"),
              "row i describes value i; XML names unique; texts ASCII and in measure");

}  // namespace kel
