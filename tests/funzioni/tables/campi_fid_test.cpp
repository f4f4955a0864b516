// The descriptor tables of the identifier's fields and the enumerators that go with them.
#include <gtest/gtest.h>
#include <kelfunzioni.h>

#include <set>
#include <string>

#include "tables/aiuti.h"
#include "tables/attesi_campi.h"

namespace {

using attesi::riga;

TEST(FieldTables, HaveTheirRowCounts) {
    EXPECT_EQ(std::size(grandezza_fisica_FunzKel), 32u);
    EXPECT_EQ(std::size(oggetto_misurato_FunzKel), 58u);
    EXPECT_EQ(std::size(posizione_FunzKel), 23u);
    EXPECT_EQ(std::size(inout_FunzKel), 4u);
    EXPECT_EQ(std::size(leftright_FunzKel), 4u);
    EXPECT_EQ(std::size(frontrear_FunzKel), 4u);
    EXPECT_EQ(std::size(updown_FunzKel), 4u);
    EXPECT_EQ(std::size(dettagli_FunzKel), 4u);
    EXPECT_EQ(std::size(specializzazione_gps_FunzKel), 2u);
    EXPECT_EQ(std::size(specializzazione_laptime_FunzKel), 3u);
}

TEST(FieldTables, HoldEveryCell) {
    ASSERT_EQ(std::size(attesi::tabelle_campi), 10u);
    for (const attesi::TabellaCampi& tabella : attesi::tabelle_campi) {
        ASSERT_EQ(tabella.righe, tabella.righe_attese) << tabella.nome;
        for (std::size_t i = 0; i < tabella.righe; ++i) {
            SCOPED_TRACE(riga(tabella.nome, i));
            EXPECT_EQ(tabella.tabella[i].valore, tabella.attese[i].valore);
            EXPECT_STREQ(tabella.tabella[i].xml, tabella.attese[i].xml);
            EXPECT_STREQ(tabella.tabella[i].breve, tabella.attese[i].breve);
            EXPECT_STREQ(tabella.tabella[i].testo, tabella.attese[i].testo);
        }
    }
}

TEST(FieldTables, RowIndexIsTheValue) {
    for (const attesi::TabellaCampi& tabella : attesi::tabelle_campi)
        for (std::size_t i = 0; i < tabella.righe; ++i)
            EXPECT_EQ(tabella.tabella[i].valore, static_cast<int>(i)) << riga(tabella.nome, i);
}

TEST(FieldTables, XmlNamesAreUnique) {
    for (const attesi::TabellaCampi& tabella : attesi::tabelle_campi) {
        std::set<std::string> nomi;
        for (std::size_t i = 0; i < tabella.righe; ++i)
            EXPECT_TRUE(nomi.insert(tabella.tabella[i].xml).second)
                << riga(tabella.nome, i) << " repeats " << tabella.tabella[i].xml;
    }
}

TEST(FieldTables, TextsArePlainAscii) {
    for (const attesi::TabellaCampi& tabella : attesi::tabelle_campi)
        for (std::size_t i = 0; i < tabella.righe; ++i)
            for (const char* testo : {tabella.tabella[i].xml, tabella.tabella[i].breve, tabella.tabella[i].testo})
                for (const char* c = testo; *c != '\0'; ++c)
                    EXPECT_TRUE(*c >= ' ' && *c <= '~') << riga(tabella.nome, i) << ": " << testo;
}

TEST(FieldTables, UndefinedValuesHaveNoText) {
    EXPECT_STREQ(grandezza_fisica_FunzKel[0].testo, "");
    EXPECT_STREQ(oggetto_misurato_FunzKel[0].testo, "");
    EXPECT_STREQ(posizione_FunzKel[0].testo, "");
    EXPECT_STREQ(dettagli_FunzKel[0].testo, "");
    for (const s_campo_fid* lato : {inout_FunzKel, leftright_FunzKel, frontrear_FunzKel, updown_FunzKel})
        EXPECT_STREQ(lato[0].testo, "") << lato[0].xml;
}

// Each enumerator under the name that its row carries in XML, and its value.
struct Enumeratore {
    const char* nome;
    int enumeratore;
    int valore;
};

// clang-format off
constexpr Enumeratore enumeratori[] = {
    {"FID_PHI_UNDEFINED",                FID_PHI_UNDEFINED,                0},
    {"FID_PHI_PERCENT",                  FID_PHI_PERCENT,                  1},
    {"FID_PHI_PERCENT_SEC_RATIO",        FID_PHI_PERCENT_SEC_RATIO,        2},
    {"FID_PHI_ACCELERATION",             FID_PHI_ACCELERATION,             3},
    {"FID_PHI_ANGLE",                    FID_PHI_ANGLE,                    4},
    {"FID_PHI_ANGLE_SEC_RATIO",          FID_PHI_ANGLE_SEC_RATIO,          5},
    {"FID_PHI_CODE",                     FID_PHI_CODE,                     6},
    {"FID_PHI_COORDINATE",               FID_PHI_COORDINATE,               7},
    {"FID_PHI_DISTANCE",                 FID_PHI_DISTANCE,                 8},
    {"FID_PHI_FREQUENCY",                FID_PHI_FREQUENCY,                9},
    {"FID_PHI_MASS_SEC_RATIO",           FID_PHI_MASS_SEC_RATIO,           10},
    {"FID_PHI_NUMBER",                   FID_PHI_NUMBER,                   11},
    {"FID_PHI_POSITION",                 FID_PHI_POSITION,                 12},
    {"FID_PHI_POWER",                    FID_PHI_POWER,                    13},
    {"FID_PHI_PRESSURE",                 FID_PHI_PRESSURE,                 14},
    {"FID_PHI_RPM",                      FID_PHI_RPM,                      15},
    {"FID_PHI_SPEED",                    FID_PHI_SPEED,                    16},
    {"FID_PHI_TEMPERATURE",              FID_PHI_TEMPERATURE,              17},
    {"FID_PHI_TIME",                     FID_PHI_TIME,                     18},
    {"FID_PHI_TORQUE",                   FID_PHI_TORQUE,                   19},
    {"FID_PHI_VELOCITY",                 FID_PHI_VELOCITY,                 20},
    {"FID_PHI_VOLTAGE",                  FID_PHI_VOLTAGE,                  21},
    {"FID_PHI_VOLUME",                   FID_PHI_VOLUME,                   22},
    {"FID_PHI_VOLUME_LAP_PRODUCT",       FID_PHI_VOLUME_LAP_PRODUCT,       23},
    {"FID_PHI_VOLUME_SEC_RATIO",         FID_PHI_VOLUME_SEC_RATIO,         24},
    {"FID_PHI_DATE",                     FID_PHI_DATE,                     25},
    {"FID_PHI_PACKAGE",                  FID_PHI_PACKAGE,                  26},
    {"FID_PHI_CURRENT",                  FID_PHI_CURRENT,                  27},
    {"FID_PHI_CUSTOM",                   FID_PHI_CUSTOM,                   28},
    {"FID_PHI_RPM_SEC",                  FID_PHI_RPM_SEC,                  29},
    {"FID_PHI_LAMBDA",                   FID_PHI_LAMBDA,                   30},
    {"FID_PHI_GEAR",                     FID_PHI_GEAR,                     31},
    {"FID_OBJ_UNDEFINED",                FID_OBJ_UNDEFINED,                0},
    {"FID_OBJ_AIR",                      FID_OBJ_AIR,                      1},
    {"FID_OBJ_ALTITUDE",                 FID_OBJ_ALTITUDE,                 2},
    {"FID_OBJ_BATTERY",                  FID_OBJ_BATTERY,                  3},
    {"FID_OBJ_BRAKE_FLUID",              FID_OBJ_BRAKE_FLUID,              4},
    {"FID_OBJ_BRAKE_LOAD",               FID_OBJ_BRAKE_LOAD,               5},
    {"FID_OBJ_CLUTCH_ENGAGEMENT",        FID_OBJ_CLUTCH_ENGAGEMENT,        6},
    {"FID_OBJ_DETONATION",               FID_OBJ_DETONATION,               7},
    {"FID_OBJ_ENGINE_LOAD",              FID_OBJ_ENGINE_LOAD,              8},
    {"FID_OBJ_ENGINE_OUTPUT",            FID_OBJ_ENGINE_OUTPUT,            9},
    {"FID_OBJ_ERROR",                    FID_OBJ_ERROR,                    10},
    {"FID_OBJ_FUEL",                     FID_OBJ_FUEL,                     11},
    {"FID_OBJ_GEAR",                     FID_OBJ_GEAR,                     12},
    {"FID_OBJ_HEADING",                  FID_OBJ_HEADING,                  13},
    {"FID_OBJ_IGNITION_ADVANCE",         FID_OBJ_IGNITION_ADVANCE,         14},
    {"FID_OBJ_INJECTION",                FID_OBJ_INJECTION,                15},
    {"FID_OBJ_INJECTION_ADVANCE",        FID_OBJ_INJECTION_ADVANCE,        16},
    {"FID_OBJ_INJECTION_LOAD",           FID_OBJ_INJECTION_LOAD,           17},
    {"FID_OBJ_LAMBDA",                   FID_OBJ_LAMBDA,                   18},
    {"FID_OBJ_LAP",                      FID_OBJ_LAP,                      19},
    {"FID_OBJ_LATITUDE",                 FID_OBJ_LATITUDE,                 20},
    {"FID_OBJ_LONGITUDE",                FID_OBJ_LONGITUDE,                21},
    {"FID_OBJ_LOGGING_ODOMETER",         FID_OBJ_LOGGING_ODOMETER,         22},
    {"FID_OBJ_OIL",                      FID_OBJ_OIL,                      23},
    {"FID_OBJ_PEDAL_LOAD",               FID_OBJ_PEDAL_LOAD,               24},
    {"FID_OBJ_RATIO",                    FID_OBJ_RATIO,                    25},
    {"FID_OBJ_SLIPPAGE",                 FID_OBJ_SLIPPAGE,                 26},
    {"FID_OBJ_STEERING",                 FID_OBJ_STEERING,                 27},
    {"FID_OBJ_SWITCH",                   FID_OBJ_SWITCH,                   28},
    {"FID_OBJ_THROTTLE_LOAD",            FID_OBJ_THROTTLE_LOAD,            29},
    {"FID_OBJ_THROTTLE_LOAD_DERIVATIVE", FID_OBJ_THROTTLE_LOAD_DERIVATIVE, 30},
    {"FID_OBJ_UNDERSTEER",               FID_OBJ_UNDERSTEER,               31},
    {"FID_OBJ_VIDEORECORDING",           FID_OBJ_VIDEORECORDING,           32},
    {"FID_OBJ_WATER",                    FID_OBJ_WATER,                    33},
    {"FID_OBJ_X",                        FID_OBJ_X,                        34},
    {"FID_OBJ_Y",                        FID_OBJ_Y,                        35},
    {"FID_OBJ_Z",                        FID_OBJ_Z,                        36},
    {"FID_OBJ_HORIZONTAL_PLANE",         FID_OBJ_HORIZONTAL_PLANE,         37},
    {"FID_OBJ_BEST_LAP",                 FID_OBJ_BEST_LAP,                 38},
    {"FID_OBJ_PREDICTIVE",               FID_OBJ_PREDICTIVE,               39},
    {"FID_OBJ_SATELLITE",                FID_OBJ_SATELLITE,                40},
    {"FID_OBJ_SLOPE",                    FID_OBJ_SLOPE,                    41},
    {"FID_OBJ_MASTER_CLOCK",             FID_OBJ_MASTER_CLOCK,             42},
    {"FID_OBJ_STATUS",                   FID_OBJ_STATUS,                   43},
    {"FID_OBJ_TOTAL_ODOMETER",           FID_OBJ_TOTAL_ODOMETER,           44},
    {"FID_OBJ_RESETTABLE_ODOMETER",      FID_OBJ_RESETTABLE_ODOMETER,      45},
    {"FID_OBJ_RUNNING_LAP",              FID_OBJ_RUNNING_LAP,              46},
    {"FID_OBJ_SPLIT",                    FID_OBJ_SPLIT,                    47},
    {"FID_OBJ_BEST_SPLIT",               FID_OBJ_BEST_SPLIT,               48},
    {"FID_OBJ_SHAFT",                    FID_OBJ_SHAFT,                    49},
    {"FID_OBJ_SESSION",                  FID_OBJ_SESSION,                  50},
    {"FID_OBJ_ACCURACY",                 FID_OBJ_ACCURACY,                 51},
    {"FID_OBJ_CUSTOM",                   FID_OBJ_CUSTOM,                   52},
    {"FID_OBJ_STATUS_ON",                FID_OBJ_STATUS_ON,                53},
    {"FID_OBJ_STATUS_OFF",               FID_OBJ_STATUS_OFF,               54},
    {"FID_OBJ_PREDICTIVE_VS_BEST_DIFF",  FID_OBJ_PREDICTIVE_VS_BEST_DIFF,  55},
    {"FID_OBJ_PREDICTIVE_VS_PREC_DIFF",  FID_OBJ_PREDICTIVE_VS_PREC_DIFF,  56},
    {"FID_OBJ_PREDICTIVE_VS_REF_DIFF",   FID_OBJ_PREDICTIVE_VS_REF_DIFF,   57},
    {"FID_POS_UNDEFINED",                FID_POS_UNDEFINED,                0},
    {"FID_POS_ADMISSION",                FID_POS_ADMISSION,                1},
    {"FID_POS_KELDEVICE",                FID_POS_KELDEVICE,                2},
    {"FID_POS_BRAKE",                    FID_POS_BRAKE,                    3},
    {"FID_POS_CLUTCH",                   FID_POS_CLUTCH,                   4},
    {"FID_POS_ECU",                      FID_POS_ECU,                      5},
    {"FID_POS_ENGINE",                   FID_POS_ENGINE,                   6},
    {"FID_POS_ENVIRONMENT",              FID_POS_ENVIRONMENT,              7},
    {"FID_POS_EXHAUST",                  FID_POS_EXHAUST,                  8},
    {"FID_POS_GEARBOX",                  FID_POS_GEARBOX,                  9},
    {"FID_POS_STEERING",                 FID_POS_STEERING,                 10},
    {"FID_POS_SUSPENSION",               FID_POS_SUSPENSION,               11},
    {"FID_POS_TRANSMISSION",             FID_POS_TRANSMISSION,             12},
    {"FID_POS_VEHICLE",                  FID_POS_VEHICLE,                  13},
    {"FID_POS_WHEEL",                    FID_POS_WHEEL,                    14},
    {"FID_POS_COOLING_SYSTEM",           FID_POS_COOLING_SYSTEM,           15},
    {"FID_POS_EVENT_RUN",                FID_POS_EVENT_RUN,                16},
    {"FID_POS_AERODYNAMICS",             FID_POS_AERODYNAMICS,             17},
    {"FID_POS_RACER",                    FID_POS_RACER,                    18},
    {"FID_POS_TRACK",                    FID_POS_TRACK,                    19},
    {"FID_POS_CUSTOM",                   FID_POS_CUSTOM,                   20},
    {"FID_POS_GPS",                      FID_POS_GPS,                      21},
    {"FID_POS_DIFFERENTIAL",             FID_POS_DIFFERENTIAL,             22},
    {"FID_INOUT_UNDEF",                  FID_INOUT_UNDEF,                  0},
    {"FID_INOUT_OUT",                    FID_INOUT_OUT,                    1},
    {"FID_INOUT_IN",                     FID_INOUT_IN,                     2},
    {"FID_INOUT_CENTER",                 FID_INOUT_CENTER,                 3},
    {"FID_LEFTRIGHT_UNDEF",              FID_LEFTRIGHT_UNDEF,              0},
    {"FID_LEFTRIGHT_RIGHT",              FID_LEFTRIGHT_RIGHT,              1},
    {"FID_LEFTRIGHT_LEFT",               FID_LEFTRIGHT_LEFT,               2},
    {"FID_LEFTRIGHT_CENTER",             FID_LEFTRIGHT_CENTER,             3},
    {"FID_FRONTREAR_UNDEF",              FID_FRONTREAR_UNDEF,              0},
    {"FID_FRONTREAR_REAR",               FID_FRONTREAR_REAR,               1},
    {"FID_FRONTREAR_FRONT",              FID_FRONTREAR_FRONT,              2},
    {"FID_FRONTREAR_CENTER",             FID_FRONTREAR_CENTER,             3},
    {"FID_UPDOWN_UNDEF",                 FID_UPDOWN_UNDEF,                 0},
    {"FID_UPDOWN_DOWN",                  FID_UPDOWN_DOWN,                  1},
    {"FID_UPDOWN_UP",                    FID_UPDOWN_UP,                    2},
    {"FID_UPDOWN_CENTER",                FID_UPDOWN_CENTER,                3},
    {"FID_DETTAGLI_UNDEF",               FID_DETTAGLI_UNDEF,               0},
    {"FID_DETTAGLI_LAPTIME",             FID_DETTAGLI_LAPTIME,             1},
    {"FID_DETTAGLI_DATETIME",            FID_DETTAGLI_DATETIME,            2},
    {"FID_DETTAGLI_GPS",                 FID_DETTAGLI_GPS,                 3},
    {"FID_SPEC_GPS_KELNAVSOL",           FID_SPEC_GPS_KELNAVSOL,           0},
    {"FID_SPEC_GPS_UBXNAVSOL",           FID_SPEC_GPS_UBXNAVSOL,           1},
    {"FID_SPEC_LAPTIME_KEL2G",           FID_SPEC_LAPTIME_KEL2G,           0},
    {"FID_SPEC_LAPTIME_KEL1G",           FID_SPEC_LAPTIME_KEL1G,           1},
    {"FID_SPEC_LAPTIME_KEL2Gv2",         FID_SPEC_LAPTIME_KEL2Gv2,         2},
};
// clang-format on

TEST(FieldEnumerators, HaveTheValuesOfTheirRows) {
    for (const Enumeratore& e : enumeratori)
        EXPECT_EQ(e.enumeratore, e.valore) << e.nome;
}

TEST(FieldEnumerators, AreThereForEveryRow) {
    std::size_t i = 0;
    for (const attesi::TabellaCampi& tabella : attesi::tabelle_campi)
        for (std::size_t r = 0; r < tabella.righe; ++r, ++i) {
            ASSERT_LT(i, std::size(enumeratori));
            EXPECT_STREQ(enumeratori[i].nome, tabella.tabella[r].xml) << riga(tabella.nome, r);
            EXPECT_EQ(enumeratori[i].enumeratore, tabella.tabella[r].valore) << riga(tabella.nome, r);
        }
    EXPECT_EQ(i, std::size(enumeratori));
}

TEST(FieldEnumerators, AreThirtyTwoBitsWide) {
    EXPECT_EQ(sizeof(GRANDEZZA_FISICA_FUNZKEL), 4u);
    EXPECT_EQ(sizeof(OGGETTO_MISURATO_FUNZKEL), 4u);
    EXPECT_EQ(sizeof(POSIZIONE_FUNZKEL), 4u);
}

}  // namespace
