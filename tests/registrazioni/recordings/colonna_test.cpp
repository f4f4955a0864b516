// Which columns a channel set has, what they are called, and what their numbers are in.
#include "recordings/colonna.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "fatti.h"
#include "kelregistrazioni.h"
#include "recordings/tabella_record.h"

namespace {

using namespace kel_registrazioni;
using fatti::canale;
using Byte = fatti::Byte;
using Righe = std::vector<std::string>;

constexpr kel_funpos RUOTA = kelFidComponi(FID_PHI_SPEED, 0, FID_POS_WHEEL);
constexpr kel_funpos NAVSOL = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, FID_SPEC_GPS_UBXNAVSOL);
constexpr kel_funpos LAP_2G = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_LAPTIME, FID_SPEC_LAPTIME_KEL2G);
constexpr kel_funpos LAP_1G = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_LAPTIME, FID_SPEC_LAPTIME_KEL1G);

// "channel name [unit] decimals, kind": f for a number of the library, then what else there is to say.
Righe colonne_di(const Byte& canali, const s_kel_apertura& apertura = {}) {
    TabellaRecord tabella(canali, std::nullopt, apertura);
    Righe righe;
    for (const VoceColonna& voce : tabella.voci())
        righe.push_back(std::to_string(voce.canale) + " " + voce.nome + " [" + voce.udm + "] " +
                        std::to_string(voce.decimali) + ", " + "fdui-"[voce.valori] +
                        (voce.campo != KEL_CAMPO_NESSUNO ? " field " + std::to_string(voce.campo) : "") +
                        (voce.con_unita ? " units" : "") + (voce.interna ? " inner" : "") +
                        (voce.pacchetto ? " packet" : "") + (voce.proprio != voce.nome ? " of " + voce.proprio : ""));
    return righe;
}

// A GPS packet of the logger, and the receiver's own payload.
Byte con_gps() {
    Byte canali = canale(RUOTA, KEL_TIPO_MEZZO_FLOAT, "Wheel");
    canale(canali, KEL_FID_GPS_PACCHETTO, KEL_TIPO_GPS_KEL, "GPS");
    canale(canali, NAVSOL, KEL_TIPO_GPS_NAVSOL, "Receiver");
    return canali;
}

TEST(Columns, OfGpsPacketsAreFieldsInWgs84) {
    const Righe attese = {"0 Wheel [km/h] 1, f units",
                          "1 Time Master Clock [ms] 0, f units inner",
                          "1 GPS UTC [] 0, i field 1 inner",
                          "1 GPS GPS Fix [] 0, u field 2 inner",
                          "1 GPS Sats Number [] 0, u field 3 inner",
                          "1 GPS Latitude [deg] 8, d field 4 inner",
                          "1 GPS Longitude [deg] 8, d field 5 inner",
                          "1 GPS Altitude [m] 3, d field 6 inner",
                          "1 GPS GPS Speed [km/h] 1, d field 7 units inner",
                          "1 GPS Heading [deg] 2, d field 8 inner",
                          "1 GPS Climb [m/s] 3, d field 9 inner",
                          "1 GPS Position Accuracy [m] 3, d field 10 inner",
                          "1 GPS Speed Accuracy [m/s] 3, d field 11 inner",
                          "2 Receiver UTC [] 0, i field 1 inner",
                          "2 Receiver GPS Fix [] 0, u field 2 inner",
                          "2 Receiver Sats Number [] 0, u field 3 inner",
                          "2 Receiver Latitude [deg] 8, d field 4 inner",
                          "2 Receiver Longitude [deg] 8, d field 5 inner",
                          "2 Receiver Altitude [m] 3, d field 6 inner",
                          "2 Receiver GPS Speed [km/h] 1, d field 7 units inner",
                          "2 Receiver Heading [deg] 2, d field 8 inner",
                          "2 Receiver Climb [m/s] 3, d field 9 inner",
                          "2 Receiver Position Accuracy [m] 3, d field 10 inner",
                          "2 Receiver Speed Accuracy [m/s] 3, d field 11 inner"};
    EXPECT_EQ(colonne_di(con_gps()), attese);
}

TEST(Columns, OfGpsPacketsAreTheirSubfieldsAsTheDeviceShowsThem) {
    const Righe attese = {"0 Wheel [km/h] 1, f units",
                          "1 Time Master Clock [ms] 0, f units inner",
                          "1 GPS Code Accuracy [] 0, f units inner",
                          "1 GPS Position Accuracy low byte [cm] 0, f inner of GPS Position Accuracy",
                          "1 GPS Velocity Accuracy low byte [cm/s] 0, f inner of GPS Velocity Accuracy",
                          "1 Sats Number [] 0, f units inner",
                          "1 GPS Speed [km/h] 1, f units inner",
                          "1 Latitude library rule [deg] 6, f units inner",
                          "1 Longitude [deg] 6, f units inner",
                          "2 Receiver Code Accuracy [] 0, f units inner",
                          "2 Receiver Position Accuracy low byte [cm] 0, f inner of Receiver Position Accuracy",
                          "2 Receiver Velocity Accuracy low byte [cm/s] 0, f inner of Receiver Velocity Accuracy",
                          "2 Number Satellite [] 0, f units inner",
                          "2 Speed [km/h] 1, f units inner"};
    s_kel_apertura apertura{};
    apertura.dispositivo = 1;
    EXPECT_EQ(colonne_di(con_gps(), apertura), attese);
}

TEST(Columns, OfPacketsAlsoHaveTheirTextsOnRequest) {
    Byte canali = canale(NAVSOL, KEL_TIPO_GPS_NAVSOL, "Receiver");
    canale(canali, LAP_1G, KEL_TIPO_LAP_1G, "Lap");
    canale(canali, kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_DATETIME, 0), KEL_TIPO_DATA_ORA, "Date");
    s_kel_apertura apertura{};
    apertura.pacchetti = 1;
    const Righe attese = {"0 Receiver [] 0, - units packet",
                          "0 UTC [] 0, i field 1 inner",
                          "0 GPS Fix [] 0, u field 2 inner",
                          "0 Sats Number [] 0, u field 3 inner",
                          "0 Latitude [deg] 8, d field 4 inner",
                          "0 Longitude [deg] 8, d field 5 inner",
                          "0 Altitude [m] 3, d field 6 inner",
                          "0 GPS Speed [km/h] 1, d field 7 units inner",
                          "0 Heading [deg] 2, d field 8 inner",
                          "0 Climb [m/s] 3, d field 9 inner",
                          "0 Position Accuracy [m] 3, d field 10 inner",
                          "0 Speed Accuracy [m/s] 3, d field 11 inner",
                          "1 Lap [] 0, - units packet",
                          "1 Time Lap [ms] 0, f units inner",
                          "1 Time Split [ms] 0, f units inner",
                          "1 Number Split [] 0, f units inner",
                          "1 Number Lap [] 0, f units inner",
                          "1 Number Session [] 0, f units inner",
                          "1 Code Lap [] 0, f units inner",
                          "1 Code Split [] 0, f units inner",
                          "2 Date [] 0, - units packet"};
    EXPECT_EQ(colonne_di(canali, apertura), attese);
}

TEST(Columns, OfLapPacketsAreCalledAsTheirTableCallsThem) {
    Byte canali = canale(LAP_2G, KEL_TIPO_LAP_2G, "Lap");
    canale(canali, LAP_1G, KEL_TIPO_LAP_1G, "Old Lap");
    const Righe attese = {"0 Run Number [] 0, f units inner",       "0 Split Number [] 0, f units inner",
                          "0 Lap Number [] 0, f units inner",       "0 Lap Time [ms] 0, f units inner",
                          "0 Split Time [ms] 0, f units inner",     "0 Time Best Lap [ms] 0, f units inner",
                          "0 Rolling Time [ms] 0, f units inner",   "0 Lap Code Lap [] 0, f units inner",
                          "0 Lap Code Split [] 0, f units inner",   "0 Code Best Lap [] 0, f units inner",
                          "0 Code Best Split [] 0, f units inner",  "1 Time Lap [ms] 0, f units inner",
                          "1 Time Split [ms] 0, f units inner",     "1 Number Split [] 0, f units inner",
                          "1 Number Lap [] 0, f units inner",       "1 Number Session [] 0, f units inner",
                          "1 Old Lap Code Lap [] 0, f units inner", "1 Old Lap Code Split [] 0, f units inner"};
    EXPECT_EQ(colonne_di(canali), attese);
}

TEST(Columns, OfAPacketOfAnotherLengthAreNone) {
    EXPECT_EQ(colonne_di(canale(KEL_FID_GPS_PACCHETTO, KEL_TIPO_GPS_NAVSOL, "Wrong")),
              Righe{"0 Wrong [] 0, - units packet"})
        << "its subfields would lie elsewhere";
    EXPECT_EQ(colonne_di(canale(kelFidComponi(FID_PHI_PACKAGE, 0, 0), KEL_TIPO_GPS_KEL, "Nobody's")),
              Righe{"0 Nobody's [] 0, - units packet"});
}

TEST(Columns, OfPacketsThatNoTableKnowsAreTheirTextsAlone) {
    Byte canali = canale(kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_LAPTIME, 9), KEL_TIPO_LAP_2G, "Lap");
    canale(canali, 0, KEL_TIPO_GPS_SATELLITI, "Satellites");
    canale(canali, 0, KEL_TIPO_TEMPO_PACCHETTO, "Time");
    EXPECT_EQ(colonne_di(canali), (Righe{"0 Lap [] 0, - units packet", "1 Satellites [] 0, - units packet",
                                         "2 Time [] 0, - units packet"}));
}

TEST(Columns, AreInTheUnitThatTheirNumbersHave) {
    Byte canali = canale(KEL_FID_GPS_LATITUDINE, KEL_TIPO_COORDINATA, "As it comes");
    canale(canali, KEL_FID_GPS_LATITUDINE, KEL_TIPO_FLOAT, "In degrees");
    canale(canali, KEL_FID_GPS_ACCURATEZZA_POSIZIONE, KEL_TIPO_UINT8, "A channel of its own");
    canale(canali, 0, KEL_TIPO_INT16, "No function");
    EXPECT_EQ(colonne_di(canali), (Righe{"0 As it comes [1e-7 deg] 0, f", "1 In degrees [deg] 6, f units",
                                         "2 A channel of its own [mm] 0, f units", "3 No function [] 0, f units"}));
}

TEST(Columns, HaveNoTwoNamesThatProgramsReadAlike) {
    Byte canali = canale(RUOTA, KEL_TIPO_INT16, "Wheel");
    canale(canali, RUOTA, KEL_TIPO_INT16, "wheel");
    canale(canali, RUOTA, KEL_TIPO_INT16, "WHEEL 2");
    canale(canali, RUOTA, KEL_TIPO_INT16, "Wheel");
    canale(canali, RUOTA, KEL_TIPO_INT16, "Wheels");
    EXPECT_EQ(colonne_di(canali),
              (Righe{"0 Wheel [km/h] 1, f units", "1 wheel 2 [km/h] 1, f units", "2 WHEEL 2 2 [km/h] 1, f units",
                     "3 Wheel 3 [km/h] 1, f units", "4 Wheels [km/h] 1, f units"}));
}

TEST(Columns, OfTwoPacketsAlikeAreCalledByTheirChannels) {
    Byte canali = canale(LAP_1G, KEL_TIPO_LAP_1G, "A");
    canale(canali, LAP_1G, KEL_TIPO_LAP_1G, "A");
    const Righe tutte = colonne_di(canali);
    ASSERT_EQ(tutte.size(), 14u);
    EXPECT_EQ(tutte[0], "0 A Time Lap [ms] 0, f units inner");
    EXPECT_EQ(tutte[7], "1 A Time Lap 2 [ms] 0, f units inner");
}

}  // namespace
