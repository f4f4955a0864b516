// Unit codes: a compact number for the common units. Their vocabulary ("a/f", "lambda", "m/s2", "mA") is older than that
// of the unit tables, and external programs know it.
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
    {"lambda", 13},
    {"g",      14},
    {"m/s2",   15},
    {"V",      16},
    {"%/s",    17},
    {"m",      18},
    {"ft",     19},
    {"deg",    20},
    {"km",     21},
    {"mi",     22},
    {"a/f",    23},
    {"deg/s",  24},
    {"Hz",     25},
    {"kW",     26},
    {"s",      27},
    {"Nm",     28},
    {"l",      29},
    {"mA",     30},
    {"A",      31},
    {"mV",     32},
};

}  // extern "C"
// clang-format on

namespace kel {

constexpr bool codici_in_ordine() {
    int atteso = 0;
    for (const s_codice_udm& riga : udm_codici)
        if (riga.codice != atteso++ || !ascii(riga.testo, 6))
            return false;
    return true;
}
static_assert(codici_in_ordine(), "row i has code i; texts are ASCII and fit their field");

constexpr bool testi_unici() {
    for (const s_codice_udm& riga : udm_codici)
        for (const s_codice_udm* altra = udm_codici; altra != &riga; ++altra)
            if (std::string_view(riga.testo) == altra->testo)
                return false;
    return true;
}
static_assert(testi_unici(), "a text stands for one code");

// --- The index -----------------------------------------------------------------------------------------------------

namespace {

constexpr std::array<std::string_view, std::size(udm_codici)> testi() {
    std::array<std::string_view, std::size(udm_codici)> testi = {};
    for (std::size_t i = 0; i < testi.size(); ++i)
        testi[i] = udm_codici[i].testo;
    return testi;
}

}  // namespace

constexpr IndiceTesti<128, std::size(udm_codici)> indice_codici_udm = indice_testi<128>(testi());

constexpr bool indice_completo() {
    for (std::size_t i = 0; i < std::size(udm_codici); ++i)
        if (indice_codici_udm.riga(udm_codici[i].testo) != i)
            return false;
    return true;
}
static_assert(indice_completo(), "every row is found by its text, which is unique");

}  // namespace kel
