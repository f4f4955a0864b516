// The quantity table: for each quantity, and for the objects that differ from the rest of it, the names, the units and
// the position variants.
//
// A look-up takes the first row that has the identifier's quantity, and its object or no object. So the rows for
// objects stand before the row of the quantity that has no object. The rows of a quantity need not be neighbours:
// FID_PHI_NUMBER has one among the codes, for the diagnosis of lambda.
#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/invarianti.h"
#include "tables/posti_udm.h"
#include "tables/righe_grandezze.h"
#include "tables/udm_accelerazione.h"
#include "tables/udm_adimensionali.h"
#include "tables/udm_coordinate.h"
#include "tables/udm_distanza.h"
#include "tables/udm_elettriche.h"
#include "tables/udm_fluidi.h"
#include "tables/udm_frequenza.h"
#include "tables/udm_miscela.h"
#include "tables/udm_potenza.h"
#include "tables/udm_pressione.h"
#include "tables/udm_rotazione.h"
#include "tables/udm_temperatura.h"
#include "tables/udm_tempo.h"
#include "tables/udm_velocita.h"

namespace kel {
namespace {

// The compiler counts the units and the variants.
template <std::size_t NumUdm>
constexpr s_grandezza_fisica_uiv riga(kel_funpos chiave, const char* breve, const char* testo,
                                      const s_udm_associata (&udm)[NumUdm]) {
    return {chiave, breve, testo, static_cast<int>(NumUdm), udm, 0, nullptr};
}

template <std::size_t NumUdm, std::size_t NumVarianti>
constexpr s_grandezza_fisica_uiv riga(kel_funpos chiave, const char* breve, const char* testo,
                                      const s_udm_associata (&udm)[NumUdm],
                                      const s_variante_posizione (&varianti)[NumVarianti]) {
    return {chiave, breve, testo, static_cast<int>(NumUdm), udm, static_cast<int>(NumVarianti), varianti};
}

}  // namespace
}  // namespace kel

using kel::fid;
using kel::riga;

// clang-format off
extern "C" {

//       quantity, object                                       short   name                 units                     variants
constexpr s_grandezza_fisica_uiv uib_grandezza_fisica_uiv[] = {
    riga(fid(FID_PHI_PERCENT, FID_OBJ_BRAKE_LOAD),              "X",    "Pct Brake Load",    pct_udm_associate),
    riga(fid(FID_PHI_PERCENT, FID_OBJ_ENGINE_LOAD),             "X",    "Pct Engine Load",   pct_udm_associate),
    riga(fid(FID_PHI_PERCENT, FID_OBJ_THROTTLE_LOAD),           "X",    "Pct Throttle Load", pct_udm_associate),
    riga(fid(FID_PHI_PERCENT),                                  "X",    "Percent",           pct_udm_associate),
    riga(fid(FID_PHI_PERCENT_SEC_RATIO, FID_OBJ_BRAKE_LOAD),    "Xs",   "Rate Brake Load",   pct_sec_udm_associate),
    riga(fid(FID_PHI_PERCENT_SEC_RATIO, FID_OBJ_ENGINE_LOAD),   "Xs",   "Rate Engine Load",  pct_sec_udm_associate),
    riga(fid(FID_PHI_PERCENT_SEC_RATIO, FID_OBJ_THROTTLE_LOAD), "Xs",   "Rate Thrtle Load",  pct_sec_udm_associate),
    riga(fid(FID_PHI_PERCENT_SEC_RATIO),                        "Xs",   "Rate",              pct_sec_udm_associate),
    riga(fid(FID_PHI_ACCELERATION, FID_OBJ_X),                  "G",    "Inline Accel",      g_udm_associate),
    riga(fid(FID_PHI_ACCELERATION, FID_OBJ_Y),                  "G",    "Lateral Accel",     g_udm_associate),
    riga(fid(FID_PHI_ACCELERATION, FID_OBJ_Z),                  "G",    "Vertical Accel",    g_udm_associate),
    riga(fid(FID_PHI_ACCELERATION, FID_OBJ_HORIZONTAL_PLANE),   "G",    "GSum",              g_udm_associate),
    riga(fid(FID_PHI_ACCELERATION),                             "G",    "Acceleration",      g_udm_associate),
    riga(fid(FID_PHI_ANGLE),                                    "A",    "Angle",             deg_udm_associate),
    riga(fid(FID_PHI_ANGLE_SEC_RATIO, FID_OBJ_X),               "As",   "Roll Rate",         gyro_udm_associate),
    riga(fid(FID_PHI_ANGLE_SEC_RATIO, FID_OBJ_Y),               "As",   "Pitch Rate",        gyro_udm_associate),
    riga(fid(FID_PHI_ANGLE_SEC_RATIO, FID_OBJ_Z),               "As",   "Yaw Rate",          gyro_udm_associate),
    riga(fid(FID_PHI_ANGLE_SEC_RATIO),                          "As",   "Ang Velocity",      deg_sec_udm_associate),
    riga(fid(FID_PHI_CODE, FID_OBJ_GEAR),                       "GeaN", "Gear",              code_udm_associate),
    riga(fid(FID_PHI_CODE, FID_OBJ_ERROR),                      "ErrN", "Error Code",        code_udm_associate),
    riga(fid(FID_PHI_CODE),                                     "N",    "Code",              code_udm_associate),
    riga(fid(FID_PHI_NUMBER, FID_OBJ_LAMBDA),                   "LDgn", "Lambda Diagn",      code_udm_associate),
    riga(fid(FID_PHI_COORDINATE, FID_OBJ_LATITUDE),             "La",   "Latitude",          coord_lat_udm_associate),
    riga(fid(FID_PHI_COORDINATE, FID_OBJ_LONGITUDE),            "Lo",   "Longitude",         coord_lon_udm_associate),
    riga(fid(FID_PHI_COORDINATE, FID_OBJ_ALTITUDE),             "Al",   "Altitude",          coord_alt_udm_associate),
    riga(fid(FID_PHI_COORDINATE),                               "C",    "Coordinate",        coord_udm_associate),
    riga(fid(FID_PHI_DISTANCE),                                 "D",    "Distance",          m_udm_associate),
    riga(fid(FID_PHI_FREQUENCY),                                "F",    "Frequency",         Hz_udm_associate),
    riga(fid(FID_PHI_MASS_SEC_RATIO, FID_OBJ_AIR),              "Ms",   "Air Mass Flow",     kg_sec_udm_associate),
    riga(fid(FID_PHI_MASS_SEC_RATIO),                           "Ms",   "Mass Flow",         kg_sec_udm_associate),
    riga(fid(FID_PHI_NUMBER),                                   "N",    "Number",            hash_udm_associate),
    riga(fid(FID_PHI_POSITION),                                 "P",    "Position",          pos_udm_associate),
    riga(fid(FID_PHI_POWER),                                    "Pw",   "Power",             kW_sec_udm_associate),
    riga(fid(FID_PHI_PRESSURE, FID_OBJ_OIL),                    "OP",   "Oil Pressure",      bar_oil_udm_associate),
    riga(fid(FID_PHI_PRESSURE, FID_OBJ_BRAKE_FLUID),            "BP",   "Brake Press",       bar_brake_udm_associate,  z4_pres_brk),
    riga(fid(FID_PHI_PRESSURE),                                 "P",    "Pressure",          bar_udm_associate),
    riga(fid(FID_PHI_RPM),                                      "R",    "RPM",               rpm_udm_associate),
    riga(fid(FID_PHI_SPEED),                                    "S",    "Speed",             kmh_udm_associate,        z4_speed),
    riga(fid(FID_PHI_TEMPERATURE),                              "T",    "Temperature",       C_udm_associate),
    riga(fid(FID_PHI_TIME, FID_OBJ_LAP),                        "lt",   "Lap Time",          time_udm_associate),
    riga(fid(FID_PHI_TIME, FID_OBJ_STATUS_OFF),                 "of",   "Time",              s_udm_associate,          z4_time_off),
    riga(fid(FID_PHI_TIME, FID_OBJ_RUNNING_LAP),                "lt",   "Time",              time_udm_associate),
    riga(fid(FID_PHI_TIME, FID_OBJ_PREDICTIVE),                 "lt",   "Time",              time_udm_associate),
    riga(fid(FID_PHI_TIME, FID_OBJ_PREDICTIVE_VS_BEST_DIFF),    "lt",   "Time",              time_udm_associate),
    riga(fid(FID_PHI_TIME, FID_OBJ_PREDICTIVE_VS_PREC_DIFF),    "lt",   "Time",              time_udm_associate),
    riga(fid(FID_PHI_TIME, FID_OBJ_PREDICTIVE_VS_REF_DIFF),     "lt",   "Time",              time_udm_associate),
    riga(fid(FID_PHI_TIME),                                     "t",    "Time",              ms_udm_associate),
    riga(fid(FID_PHI_TORQUE),                                   "Tr",   "Torque",            Nm_udm_associate),
    riga(fid(FID_PHI_VELOCITY),                                 "Ve",   "Velocity",          kmh_vel_udm_associate,    z4_velocity),
    riga(fid(FID_PHI_VOLTAGE, FID_OBJ_BATTERY),                 "BV",   "Battery Voltage",   battery_udm_associate),
    riga(fid(FID_PHI_VOLTAGE),                                  "V",    "Voltage",           mV_udm_associate),
    riga(fid(FID_PHI_VOLUME, FID_OBJ_FUEL),                     "FL",   "Fuel Level",        l_udm_associate),
    riga(fid(FID_PHI_VOLUME),                                   "v",    "Volume",            l_udm_associate),
    riga(fid(FID_PHI_VOLUME_LAP_PRODUCT),                       "vl",   "Volume in lap",     l_lap_udm_associate),
    riga(fid(FID_PHI_VOLUME_SEC_RATIO),                         "vs",   "Volume Flow",       l_sec_udm_associate),
    riga(fid(FID_PHI_DATE),                                     "dt",   "Date",              date_udm_associate),
    riga(fid(FID_PHI_PACKAGE),                                  "pc",   "Pckg",              pckt_udm_associate),
    riga(fid(FID_PHI_CURRENT),                                  "C",    "Current",           A_udm_associate),
    riga(fid(FID_PHI_RPM_SEC),                                  "Rs",   "RPM on sec",        rpm_s_udm_associate),
    riga(fid(FID_PHI_LAMBDA, FID_OBJ_ENGINE_OUTPUT),            "Lb",   "Lambda",            lambda_udm_associate),
    riga(fid(FID_PHI_LAMBDA, FID_OBJ_LAMBDA),                   "Lb",   "Lambda",            lambda_udm_associate),
    riga(fid(FID_PHI_LAMBDA, FID_OBJ_RATIO),                    "AFR",  "AFR",               afr_udm_associate,        z4_num_lambda),
    riga(fid(FID_PHI_LAMBDA),                                   "Lb",   "Lambda",            lambda_tot_udm_associate),
    riga(fid(FID_PHI_GEAR, FID_OBJ_GEAR),                       "GeaN", "Gear",              gear_udm_associate),
    riga(fid(FID_PHI_GEAR),                                     "GeaN", "Generic Gear",      gear_udm_associate),
    {kel::FINE_GRANDEZZE, "", "", 0, nullptr, 0, nullptr},
};

}  // extern "C"
// clang-format on

namespace kel {

static_assert(chiavi_in_regola(uib_grandezza_fisica_uiv, &s_grandezza_fisica_uiv::chiave),
              "end row last; each key once, of values with descriptors");

constexpr bool chiavi_di_grandezza_e_oggetto() {
    for (const s_grandezza_fisica_uiv& riga : uib_grandezza_fisica_uiv)
        if ((riga.chiave & ~(BIT_GRANDEZZA | BIT_OGGETTO)) != 0)
            return false;
    return true;
}
static_assert(chiavi_di_grandezza_e_oggetto(), "only quantity and object select a row");

constexpr bool particolari_prima_della_generica() {
    for (const s_grandezza_fisica_uiv& generica : uib_grandezza_fisica_uiv) {
        if (kelFidOggetto(generica.chiave) != 0)
            continue;
        for (const s_grandezza_fisica_uiv* dopo = &generica + 1; dopo != std::end(uib_grandezza_fisica_uiv); ++dopo)
            if (kelFidGrandezza(dopo->chiave) == kelFidGrandezza(generica.chiave))
                return false;
    }
    return true;
}
static_assert(particolari_prima_della_generica(), "a row behind its quantity's generic row would never be found");

constexpr bool generica_per_ogni_grandezza() {
    for (unsigned grandezza = 0; grandezza < kel::GRANDEZZE_NOTE; ++grandezza) {
        bool trovata = false;
        for (const s_grandezza_fisica_uiv& riga : uib_grandezza_fisica_uiv)
            trovata = trovata || riga.chiave == grandezza;
        if (trovata == (grandezza == FID_PHI_UNDEFINED || grandezza == FID_PHI_CUSTOM))
            return false;
    }
    return true;
}
static_assert(generica_per_ogni_grandezza(), "all quantities but the undefined and the custom one have a generic row");

static_assert(testi_entro(uib_grandezza_fisica_uiv, &s_grandezza_fisica_uiv::breve, 4) &&
                  testi_entro(uib_grandezza_fisica_uiv, &s_grandezza_fisica_uiv::testo, 17),
              "texts are ASCII and fit their fields");

// --- The rows by quantity and object -----------------------------------------------------------------------------------

// The row that a look-up takes, by searching row by row.
constexpr unsigned prima_riga(unsigned grandezza, unsigned oggetto) {
    unsigned numero = 0;
    for (; numero < RIGA_FINE_GRANDEZZE; ++numero) {
        const kel_funpos chiave = uib_grandezza_fisica_uiv[numero].chiave;
        if (kelFidGrandezza(chiave) == grandezza && (kelFidOggetto(chiave) == oggetto || kelFidOggetto(chiave) == 0))
            break;
    }
    return numero;
}

constexpr RigheGrandezze scandisci() {
    RigheGrandezze righe = {};
    for (unsigned grandezza = 0; grandezza < GRANDEZZE_CON_RIGA; ++grandezza)
        for (unsigned oggetto = 0; oggetto < OGGETTI_CON_RIGA; ++oggetto)
            righe.numeri[grandezza][oggetto] = static_cast<std::uint8_t>(prima_riga(grandezza, oggetto));
    return righe;
}

constexpr RigheGrandezze RIGHE_GRANDEZZE = scandisci();

// Of the quantities and objects beyond the table's room one of each is tried: the others take the same way.
constexpr bool come_la_scansione() {
    for (unsigned grandezza = 0; grandezza <= GRANDEZZE_CON_RIGA; ++grandezza)
        for (unsigned oggetto = 0; oggetto <= OGGETTI_CON_RIGA; ++oggetto)
            if (RIGHE_GRANDEZZE.riga(kelFidComponi(grandezza, oggetto, 0)) != prima_riga(grandezza, oggetto))
                return false;
    return true;
}
static_assert(come_la_scansione(), "the row of an identifier is the one that a search row by row finds");

constexpr bool chiavi_in_misura() {
    for (const s_grandezza_fisica_uiv* riga = uib_grandezza_fisica_uiv; riga->chiave != FINE_GRANDEZZE; ++riga)
        if (kelFidGrandezza(riga->chiave) >= GRANDEZZE_CON_RIGA || kelFidOggetto(riga->chiave) >= OGGETTI_CON_RIGA)
            return false;
    return true;
}
static_assert(chiavi_in_misura(), "there is room for the quantity and the object of every row");
static_assert(prima_riga(FID_PHI_PACKAGE, 0) != RIGA_FINE_GRANDEZZE,
              "every packet has a name in the table: none is composed");

// --- The units by text -------------------------------------------------------------------------------------------------

// The units go from the last to the first, so that the first of those with the same place stays.
constexpr PostiUdm trova_posti() {
    PostiUdm posti = {};
    for (unsigned riga = 0; riga < RIGA_FINE_GRANDEZZE; ++riga) {
        const s_grandezza_fisica_uiv& grandezza = uib_grandezza_fisica_uiv[riga];
        for (int i = grandezza.num_udm - 1; i >= 0; --i)
            posti.udm[riga][posto_udm(grandezza.udm[i].dati.udm)] = static_cast<std::uint8_t>(i);
    }
    return posti;
}

constexpr PostiUdm POSTI_UDM = trova_posti();

// The number of units at whose place stands another one; or only those where that one stands behind them, so that a
// search from there would miss them.
constexpr unsigned fuori_posto(bool solo_dietro) {
    unsigned quante = 0;
    for (unsigned riga = 0; riga < RIGA_FINE_GRANDEZZE; ++riga) {
        const s_grandezza_fisica_uiv& grandezza = uib_grandezza_fisica_uiv[riga];
        for (int i = 0; i < grandezza.num_udm; ++i) {
            const int al_posto = POSTI_UDM.udm[riga][posto_udm(grandezza.udm[i].dati.udm)];
            quante += (solo_dietro ? al_posto > i : al_posto != i) ? 1 : 0;
        }
    }
    return quante;
}
static_assert(fuori_posto(true) == 0, "a unit is found at its place or behind the one that is there");
static_assert(fuori_posto(false) == 2, "all units are at their places, but gal/h behind gal/s and rpm/100 behind rpm");

}  // namespace kel
