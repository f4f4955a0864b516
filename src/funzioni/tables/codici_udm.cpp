// Unit codes: a number for each of the common units, for programs outside the library.
//
// The texts are not those of the unit tables. Four of them ("lambda", "m/s2", "a/f", "mA") stand in no unit table, and some
// units of the tables have no code. Programs know these texts and numbers, so they stay as they are.
#include "tables/codici_udm.h"
#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/invarianti.h"

// clang-format off
extern "C" {

//   unit       code
constexpr s_codice_udm udm_codici[] = {
    {"rpm",     0},
    {"km/h",    1},
    {"mph",     2},
    {"m/s",     3},
    {"cm/s",    4},
    {"ft/s",    5},
    {"#",       6},
    {"C",       7},
    {"F",       8},
    {"kPa",     9},
    {"bar",    10},
    {"psi",    11},
    {"%",      12},
    {"lambda", 13},  // "#" in the unit tables
    {"g",      14},
    {"m/s2",   15},  // in no unit table: accelerations are in "g"
    {"V",      16},
    {"%/s",    17},
    {"m",      18},
    {"ft",     19},
    {"deg",    20},
    {"km",     21},
    {"mi",     22},
    {"a/f",    23},  // "AFR" in the unit tables
    {"deg/s",  24},
    {"Hz",     25},
    {"kW",     26},
    {"s",      27},
    {"Nm",     28},
    {"l",      29},
    {"mA",     30},  // in no unit table: currents are in "A"
    {"A",      31},
    {"mV",     32},
};

}  // extern "C"
// clang-format on

namespace kel {

static_assert(indice_uguale_valore(udm_codici, &s_codice_udm::codice), "row i has code i");
static_assert(valori_unici(udm_codici, &s_codice_udm::testo), "a text has one code");
static_assert(testi_entro(udm_codici, &s_codice_udm::testo, 6), "texts are ASCII and fit their field");

// --- The index -----------------------------------------------------------------------------------------------------

namespace {

constexpr auto TESTI =
    raccogli<std::size(udm_codici)>([](std::size_t i) { return std::string_view(udm_codici[i].testo); });

}  // namespace

constexpr IndiceTesti<128, std::size(udm_codici)> INDICE_CODICI_UDM = indice_testi<128>(TESTI);
static_assert(come_la_scansione(INDICE_CODICI_UDM, TESTI), "every code is found by its text");

}  // namespace kel
