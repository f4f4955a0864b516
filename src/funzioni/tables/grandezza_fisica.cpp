// Values of the physical quantity.
#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/invarianti.h"

// clang-format off
extern "C" {

// Some abbreviations are as long as the text, or differ from it only in capitals ("rpm", "RPM"). Users know all of
// them, so they stay.
//   value                       XML name                      short    text
constexpr s_campo_fid grandezza_fisica_FunzKel[] = {
    {FID_PHI_UNDEFINED,          "FID_PHI_UNDEFINED",          "---",   ""},
    {FID_PHI_PERCENT,            "FID_PHI_PERCENT",            "%",     "Percent"},
    {FID_PHI_PERCENT_SEC_RATIO,  "FID_PHI_PERCENT_SEC_RATIO",  "%/s",   "Percent/sec"},
    {FID_PHI_ACCELERATION,       "FID_PHI_ACCELERATION",       "Acc",   "Acceleration"},
    {FID_PHI_ANGLE,              "FID_PHI_ANGLE",              "Ang",   "Angle"},
    {FID_PHI_ANGLE_SEC_RATIO,    "FID_PHI_ANGLE_SEC_RATIO",    "An/s",  "Ang Velocity"},
    {FID_PHI_CODE,               "FID_PHI_CODE",               "Code",  "Code"},
    {FID_PHI_COORDINATE,         "FID_PHI_COORDINATE",         "Cord",  "Coordinate"},
    {FID_PHI_DISTANCE,           "FID_PHI_DISTANCE",           "Dist",  "Distance"},
    {FID_PHI_FREQUENCY,          "FID_PHI_FREQUENCY",          "Freq",  "Frequency"},
    {FID_PHI_MASS_SEC_RATIO,     "FID_PHI_MASS_SEC_RATIO",     "Ma/s",  "Mass Flow"},
    {FID_PHI_NUMBER,             "FID_PHI_NUMBER",             "#",     "Number"},
    {FID_PHI_POSITION,           "FID_PHI_POSITION",           "Pos",   "Position"},
    {FID_PHI_POWER,              "FID_PHI_POWER",              "Pwr",   "Power"},
    {FID_PHI_PRESSURE,           "FID_PHI_PRESSURE",           "Pres",  "Pressure"},
    {FID_PHI_RPM,                "FID_PHI_RPM",                "rpm",   "RPM"},
    {FID_PHI_SPEED,              "FID_PHI_SPEED",              "Spd",   "Speed"},
    {FID_PHI_TEMPERATURE,        "FID_PHI_TEMPERATURE",        "Tmp",   "Temperature"},
    {FID_PHI_TIME,               "FID_PHI_TIME",               "Time",  "Time"},
    {FID_PHI_TORQUE,             "FID_PHI_TORQUE",             "Trq",   "Torque"},
    {FID_PHI_VELOCITY,           "FID_PHI_VELOCITY",           "Vel",   "Velocity"},
    {FID_PHI_VOLTAGE,            "FID_PHI_VOLTAGE",            "V",     "Voltage"},
    {FID_PHI_VOLUME,             "FID_PHI_VOLUME",             "Vol",   "Volume"},
    {FID_PHI_VOLUME_LAP_PRODUCT, "FID_PHI_VOLUME_LAP_PRODUCT", "Vo*L",  "Volume on lap"},
    {FID_PHI_VOLUME_SEC_RATIO,   "FID_PHI_VOLUME_SEC_RATIO",   "Vo/s",  "Volume Flow"},
    {FID_PHI_DATE,               "FID_PHI_DATE",               "Date",  "Date"},
    {FID_PHI_PACKAGE,            "FID_PHI_PACKAGE",            "Pckt",  "Packet"},
    {FID_PHI_CURRENT,            "FID_PHI_CURRENT",            "Curr",  "Current"},
    {FID_PHI_CUSTOM,             "FID_PHI_CUSTOM",             "Cust",  "Custom"},
    {FID_PHI_RPM_SEC,            "FID_PHI_RPM_SEC",            "rpm/s", "RPM/s"},
    {FID_PHI_LAMBDA,             "FID_PHI_LAMBDA",             "lbda",  "lambda"},
    {FID_PHI_GEAR,               "FID_PHI_GEAR",               "gear",  "gear"},
};

}  // extern "C"
// clang-format on

namespace kel {

static_assert(campo_in_regola(grandezza_fisica_FunzKel, "FID_PHI_"),
              "row i describes value i; XML names unique; texts ASCII and in measure");

}  // namespace kel
