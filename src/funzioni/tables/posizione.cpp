// Values of the position on the vehicle.
#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/invarianti.h"

// clang-format off
extern "C" {

// The undefined position has the abbreviation "---" and an empty text.
//   value                   XML name                  short    text
constexpr s_campo_fid posizione_FunzKel[] = {
    {FID_POS_UNDEFINED,      "FID_POS_UNDEFINED",      "---",   ""},
    {FID_POS_ADMISSION,      "FID_POS_ADMISSION",      "Adm",   "Admission"},
    {FID_POS_KELDEVICE,      "FID_POS_KELDEVICE",      "KelDv", "Kel Device"},
    {FID_POS_BRAKE,          "FID_POS_BRAKE",          "Brk",   "Brake"},
    {FID_POS_CLUTCH,         "FID_POS_CLUTCH",         "Clt",   "Clutch"},
    {FID_POS_ECU,            "FID_POS_ECU",            "ECU",   "ECU"},
    {FID_POS_ENGINE,         "FID_POS_ENGINE",         "Eng",   "Engine"},
    {FID_POS_ENVIRONMENT,    "FID_POS_ENVIRONMENT",    "Env",   "Environment"},
    {FID_POS_EXHAUST,        "FID_POS_EXHAUST",        "Exh",   "Exhaust"},
    {FID_POS_GEARBOX,        "FID_POS_GEARBOX",        "GBox",  "Gear Box"},
    {FID_POS_STEERING,       "FID_POS_STEERING",       "Steer", "Steer"},
    {FID_POS_SUSPENSION,     "FID_POS_SUSPENSION",     "Susp",  "Suspension"},
    {FID_POS_TRANSMISSION,   "FID_POS_TRANSMISSION",   "Trans", "Transmission"},
    {FID_POS_VEHICLE,        "FID_POS_VEHICLE",        "Veh",   "Vehicle"},
    {FID_POS_WHEEL,          "FID_POS_WHEEL",          "Wheel", "Wheel"},
    {FID_POS_COOLING_SYSTEM, "FID_POS_COOLING_SYSTEM", "ColSy", "Cooling System"},
    {FID_POS_EVENT_RUN,      "FID_POS_EVENT_RUN",      "EvtRu", "Event/Run"},
    {FID_POS_AERODYNAMICS,   "FID_POS_AERODYNAMICS",   "Aero",  "Aerodynamics"},
    {FID_POS_RACER,          "FID_POS_RACER",          "Racer", "Racer"},
    {FID_POS_TRACK,          "FID_POS_TRACK",          "Track", "Track"},
    {FID_POS_CUSTOM,         "FID_POS_CUSTOM",         "Cust",  "Custom"},
    {FID_POS_GPS,            "FID_POS_GPS",            "GPS",   "GPS"},
    {FID_POS_DIFFERENTIAL,   "FID_POS_DIFFERENTIAL",   "Diff",  "Differential"},
};

}  // extern "C"
// clang-format on

namespace kel {

static_assert(campo_in_regola(posizione_FunzKel, "FID_POS_"),
              "row i describes value i; XML names unique; texts ASCII and in measure");

}  // namespace kel
