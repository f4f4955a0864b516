// What the ten field descriptor tables hold, cell by cell.
#ifndef KEL_TEST_ATTESI_CAMPI_H
#define KEL_TEST_ATTESI_CAMPI_H

#include <kelfunzioni.h>

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace attesi {

struct Campo {
    int valore;
    const char* xml;
    const char* breve;
    const char* testo;
};

// clang-format off

inline constexpr Campo grandezza_fisica[] = {
    {0,  "FID_PHI_UNDEFINED",          "---",   ""},
    {1,  "FID_PHI_PERCENT",            "%",     "Percent"},
    {2,  "FID_PHI_PERCENT_SEC_RATIO",  "%/s",   "Percent/sec"},
    {3,  "FID_PHI_ACCELERATION",       "Acc",   "Acceleration"},
    {4,  "FID_PHI_ANGLE",              "Ang",   "Angle"},
    {5,  "FID_PHI_ANGLE_SEC_RATIO",    "An/s",  "Ang Velocity"},
    {6,  "FID_PHI_CODE",               "Code",  "Code"},
    {7,  "FID_PHI_COORDINATE",         "Cord",  "Coordinate"},
    {8,  "FID_PHI_DISTANCE",           "Dist",  "Distance"},
    {9,  "FID_PHI_FREQUENCY",          "Freq",  "Frequency"},
    {10, "FID_PHI_MASS_SEC_RATIO",     "Ma/s",  "Mass Flow"},
    {11, "FID_PHI_NUMBER",             "#",     "Number"},
    {12, "FID_PHI_POSITION",           "Pos",   "Position"},
    {13, "FID_PHI_POWER",              "Pwr",   "Power"},
    {14, "FID_PHI_PRESSURE",           "Pres",  "Pressure"},
    {15, "FID_PHI_RPM",                "rpm",   "RPM"},
    {16, "FID_PHI_SPEED",              "Spd",   "Speed"},
    {17, "FID_PHI_TEMPERATURE",        "Tmp",   "Temperature"},
    {18, "FID_PHI_TIME",               "Time",  "Time"},
    {19, "FID_PHI_TORQUE",             "Trq",   "Torque"},
    {20, "FID_PHI_VELOCITY",           "Vel",   "Velocity"},
    {21, "FID_PHI_VOLTAGE",            "V",     "Voltage"},
    {22, "FID_PHI_VOLUME",             "Vol",   "Volume"},
    {23, "FID_PHI_VOLUME_LAP_PRODUCT", "Vo*L",  "Volume on lap"},
    {24, "FID_PHI_VOLUME_SEC_RATIO",   "Vo/s",  "Volume Flow"},
    {25, "FID_PHI_DATE",               "Date",  "Date"},
    {26, "FID_PHI_PACKAGE",            "Pckt",  "Packet"},
    {27, "FID_PHI_CURRENT",            "Curr",  "Current"},
    {28, "FID_PHI_CUSTOM",             "Cust",  "Custom"},
    {29, "FID_PHI_RPM_SEC",            "rpm/s", "RPM/s"},
    {30, "FID_PHI_LAMBDA",             "lbda",  "lambda"},
    {31, "FID_PHI_GEAR",               "gear",  "gear"},
};

inline constexpr Campo oggetto_misurato[] = {
    {0,  "FID_OBJ_UNDEFINED",                "---",    ""},
    {1,  "FID_OBJ_AIR",                      "Air",    "Air"},
    {2,  "FID_OBJ_ALTITUDE",                 "Alt",    "Altitude"},
    {3,  "FID_OBJ_BATTERY",                  "Bat",    "Battery"},
    {4,  "FID_OBJ_BRAKE_FLUID",              "BrkFl",  "Brake Fluid"},
    {5,  "FID_OBJ_BRAKE_LOAD",               "BrkLd",  "Brake Load"},
    {6,  "FID_OBJ_CLUTCH_ENGAGEMENT",        "CltEg",  "Clutch Use"},
    {7,  "FID_OBJ_DETONATION",               "Deto",   "Detonation"},
    {8,  "FID_OBJ_ENGINE_LOAD",              "EnLd",   "Engine Load"},
    {9,  "FID_OBJ_ENGINE_OUTPUT",            "EnOut",  "Engine Output"},
    {10, "FID_OBJ_ERROR",                    "Err",    "Error"},
    {11, "FID_OBJ_FUEL",                     "Fuel",   "Fuel"},
    {12, "FID_OBJ_GEAR",                     "Gear",   "Gear"},
    {13, "FID_OBJ_HEADING",                  "Head",   "Heading"},
    {14, "FID_OBJ_IGNITION_ADVANCE",         "IgAdv",  "Ignition Adv"},
    {15, "FID_OBJ_INJECTION",                "Inj",    "Injection"},
    {16, "FID_OBJ_INJECTION_ADVANCE",        "IjAdv",  "Injection Adv"},
    {17, "FID_OBJ_INJECTION_LOAD",           "IjLd",   "Injection Load"},
    {18, "FID_OBJ_LAMBDA",                   "Lambda", "Lambda"},
    {19, "FID_OBJ_LAP",                      "Lap",    "Lap"},
    {20, "FID_OBJ_LATITUDE",                 "Lati",   "Latitude"},
    {21, "FID_OBJ_LONGITUDE",                "Long",   "Longitude"},
    {22, "FID_OBJ_LOGGING_ODOMETER",         "LgOdo",  "Logg. Odometer"},
    {23, "FID_OBJ_OIL",                      "Oil",    "Oil"},
    {24, "FID_OBJ_PEDAL_LOAD",               "PdlLd",  "Pedal Load"},
    {25, "FID_OBJ_RATIO",                    "Ratio",  "Ratio"},
    {26, "FID_OBJ_SLIPPAGE",                 "Slip",   "Slip"},
    {27, "FID_OBJ_STEERING",                 "Steer",  "Steer"},
    {28, "FID_OBJ_SWITCH",                   "Swtch",  "Switch"},
    {29, "FID_OBJ_THROTTLE_LOAD",            "ThLd",   "Throttle Load"},
    {30, "FID_OBJ_THROTTLE_LOAD_DERIVATIVE", "ThLdD",  "Throttle Rate"},
    {31, "FID_OBJ_UNDERSTEER",               "Undst",  "Understeer"},
    {32, "FID_OBJ_VIDEORECORDING",           "VRec",   "Videorecording"},
    {33, "FID_OBJ_WATER",                    "Wat",    "Water"},
    {34, "FID_OBJ_X",                        "X",      "X axis"},
    {35, "FID_OBJ_Y",                        "Y",      "Y axis"},
    {36, "FID_OBJ_Z",                        "Z",      "Z axis"},
    {37, "FID_OBJ_HORIZONTAL_PLANE",         "HzPla",  "Horz Plane"},
    {38, "FID_OBJ_BEST_LAP",                 "BLap",   "Best Lap"},
    {39, "FID_OBJ_PREDICTIVE",               "Pred",   "Predictive"},
    {40, "FID_OBJ_SATELLITE",                "Sat",    "Satellite"},
    {41, "FID_OBJ_SLOPE",                    "Slp",    "Slope"},
    {42, "FID_OBJ_MASTER_CLOCK",             "MClk",   "Master Clock"},
    {43, "FID_OBJ_STATUS",                   "Stat",   "Status"},
    {44, "FID_OBJ_TOTAL_ODOMETER",           "TtOdo",  "Total Odometer"},
    {45, "FID_OBJ_RESETTABLE_ODOMETER",      "RsOdo",  "Trip Odometer"},
    {46, "FID_OBJ_RUNNING_LAP",              "RLap",   "Running Lap"},
    {47, "FID_OBJ_SPLIT",                    "Split",  "Split"},
    {48, "FID_OBJ_BEST_SPLIT",               "BSplt",  "Best Split"},
    {49, "FID_OBJ_SHAFT",                    "Shaft",  "Shaft"},
    {50, "FID_OBJ_SESSION",                  "Sess",   "Session"},
    {51, "FID_OBJ_ACCURACY",                 "Accur",  "Accuracy"},
    {52, "FID_OBJ_CUSTOM",                   "Cust",   "Custom"},
    {53, "FID_OBJ_STATUS_ON",                "ON",     "ON Status"},
    {54, "FID_OBJ_STATUS_OFF",               "OF",     "OFF Status"},
    {55, "FID_OBJ_PREDICTIVE_VS_BEST_DIFF",  "PT+-",   "Predict +- BestT"},
    {56, "FID_OBJ_PREDICTIVE_VS_PREC_DIFF",  "PTDp",   "Predict +- PrevT"},
    {57, "FID_OBJ_PREDICTIVE_VS_REF_DIFF",   "PTDr",   "Predict +- RefT"},
};

inline constexpr Campo posizione[] = {
    {0,  "FID_POS_UNDEFINED",      "---",   ""},
    {1,  "FID_POS_ADMISSION",      "Adm",   "Admission"},
    {2,  "FID_POS_KELDEVICE",      "KelDv", "Kel Device"},
    {3,  "FID_POS_BRAKE",          "Brk",   "Brake"},
    {4,  "FID_POS_CLUTCH",         "Clt",   "Clutch"},
    {5,  "FID_POS_ECU",            "ECU",   "ECU"},
    {6,  "FID_POS_ENGINE",         "Eng",   "Engine"},
    {7,  "FID_POS_ENVIRONMENT",    "Env",   "Environment"},
    {8,  "FID_POS_EXHAUST",        "Exh",   "Exhaust"},
    {9,  "FID_POS_GEARBOX",        "GBox",  "Gear Box"},
    {10, "FID_POS_STEERING",       "Steer", "Steer"},
    {11, "FID_POS_SUSPENSION",     "Susp",  "Suspension"},
    {12, "FID_POS_TRANSMISSION",   "Trans", "Transmission"},
    {13, "FID_POS_VEHICLE",        "Veh",   "Vehicle"},
    {14, "FID_POS_WHEEL",          "Wheel", "Wheel"},
    {15, "FID_POS_COOLING_SYSTEM", "ColSy", "Cooling System"},
    {16, "FID_POS_EVENT_RUN",      "EvtRu", "Event/Run"},
    {17, "FID_POS_AERODYNAMICS",   "Aero",  "Aerodynamics"},
    {18, "FID_POS_RACER",          "Racer", "Racer"},
    {19, "FID_POS_TRACK",          "Track", "Track"},
    {20, "FID_POS_CUSTOM",         "Cust",  "Custom"},
    {21, "FID_POS_GPS",            "GPS",   "GPS"},
    {22, "FID_POS_DIFFERENTIAL",   "Diff",  "Differential"},
};

inline constexpr Campo inout[] = {
    {0, "FID_INOUT_UNDEF",  "",  ""},
    {1, "FID_INOUT_OUT",    "O", "Out"},
    {2, "FID_INOUT_IN",     "I", "In"},
    {3, "FID_INOUT_CENTER", "M", "Middle"},
};

inline constexpr Campo leftright[] = {
    {0, "FID_LEFTRIGHT_UNDEF",  "",  ""},
    {1, "FID_LEFTRIGHT_RIGHT",  "R", "Right"},
    {2, "FID_LEFTRIGHT_LEFT",   "L", "Left"},
    {3, "FID_LEFTRIGHT_CENTER", "C", "Center"},
};

inline constexpr Campo frontrear[] = {
    {0, "FID_FRONTREAR_UNDEF",  "",  ""},
    {1, "FID_FRONTREAR_REAR",   "R", "Rear"},
    {2, "FID_FRONTREAR_FRONT",  "F", "Front"},
    {3, "FID_FRONTREAR_CENTER", "C", "xCenter"},
};

inline constexpr Campo updown[] = {
    {0, "FID_UPDOWN_UNDEF",  "",  ""},
    {1, "FID_UPDOWN_DOWN",   "D", "Down"},
    {2, "FID_UPDOWN_UP",     "U", "Up"},
    {3, "FID_UPDOWN_CENTER", "C", "zCenter"},
};

inline constexpr Campo dettagli[] = {
    {0, "FID_DETTAGLI_UNDEF",    "---",   ""},
    {1, "FID_DETTAGLI_LAPTIME",  "Lap",   "Lap"},
    {2, "FID_DETTAGLI_DATETIME", "DtTme", "Date Time"},
    {3, "FID_DETTAGLI_GPS",      "GPS",   "GPS"},
};

inline constexpr Campo specializzazione_gps[] = {
    {0, "FID_SPEC_GPS_KELNAVSOL", "Kel", "Kel"},
    {1, "FID_SPEC_GPS_UBXNAVSOL", "UBX", "UBX"},
};

inline constexpr Campo specializzazione_laptime[] = {
    {0, "FID_SPEC_LAPTIME_KEL2G",   "2G",  "2G"},
    {1, "FID_SPEC_LAPTIME_KEL1G",   "1G",  "1G"},
    {2, "FID_SPEC_LAPTIME_KEL2Gv2", "2G2", "2G2"},
};

struct TabellaCampi {
    const char* nome;
    const s_campo_fid* tabella;
    std::size_t righe;
    const Campo* attese;
    std::size_t righe_attese;
};

inline const TabellaCampi tabelle_campi[] = {
    {"grandezza_fisica_FunzKel",         grandezza_fisica_FunzKel,         std::size(grandezza_fisica_FunzKel),         grandezza_fisica,         std::size(grandezza_fisica)},
    {"oggetto_misurato_FunzKel",         oggetto_misurato_FunzKel,         std::size(oggetto_misurato_FunzKel),         oggetto_misurato,         std::size(oggetto_misurato)},
    {"posizione_FunzKel",                posizione_FunzKel,                std::size(posizione_FunzKel),                posizione,                std::size(posizione)},
    {"inout_FunzKel",                    inout_FunzKel,                    std::size(inout_FunzKel),                    inout,                    std::size(inout)},
    {"leftright_FunzKel",                leftright_FunzKel,                std::size(leftright_FunzKel),                leftright,                std::size(leftright)},
    {"frontrear_FunzKel",                frontrear_FunzKel,                std::size(frontrear_FunzKel),                frontrear,                std::size(frontrear)},
    {"updown_FunzKel",                   updown_FunzKel,                   std::size(updown_FunzKel),                   updown,                   std::size(updown)},
    {"dettagli_FunzKel",                 dettagli_FunzKel,                 std::size(dettagli_FunzKel),                 dettagli,                 std::size(dettagli)},
    {"specializzazione_gps_FunzKel",     specializzazione_gps_FunzKel,     std::size(specializzazione_gps_FunzKel),     specializzazione_gps,     std::size(specializzazione_gps)},
    {"specializzazione_laptime_FunzKel", specializzazione_laptime_FunzKel, std::size(specializzazione_laptime_FunzKel), specializzazione_laptime, std::size(specializzazione_laptime)},
};
// clang-format on

}  // namespace attesi

#endif
