// Kinds of packets and their specialisations.
#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "tables/invarianti.h"

// clang-format off
extern "C" {

// Packet details.
//   value                  XML name                 short    text
constexpr s_campo_fid dettagli_FunzKel[] = {
    {FID_DETTAGLI_UNDEF,    "FID_DETTAGLI_UNDEF",    "---",   ""},
    {FID_DETTAGLI_LAPTIME,  "FID_DETTAGLI_LAPTIME",  "Lap",   "Lap"},
    {FID_DETTAGLI_DATETIME, "FID_DETTAGLI_DATETIME", "DtTme", "Date Time"},
    {FID_DETTAGLI_GPS,      "FID_DETTAGLI_GPS",      "GPS",   "GPS"},
};

// GPS packets: the logger's own solution, or the receiver's NAV-SOL payload as it stands.
//   value                   XML name                  short  text
constexpr s_campo_fid specializzazione_gps_FunzKel[] = {
    {FID_SPEC_GPS_KELNAVSOL, "FID_SPEC_GPS_KELNAVSOL", "Kel", "Kel"},
    {FID_SPEC_GPS_UBXNAVSOL, "FID_SPEC_GPS_UBXNAVSOL", "UBX", "UBX"},
};

// Lap packets, by generation of the lap timer.
//   value                     XML name                    short  text
constexpr s_campo_fid specializzazione_laptime_FunzKel[] = {
    {FID_SPEC_LAPTIME_KEL2G,   "FID_SPEC_LAPTIME_KEL2G",   "2G",  "2G"},
    {FID_SPEC_LAPTIME_KEL1G,   "FID_SPEC_LAPTIME_KEL1G",   "1G",  "1G"},
    {FID_SPEC_LAPTIME_KEL2Gv2, "FID_SPEC_LAPTIME_KEL2Gv2", "2G2", "2G2"},
};

}  // extern "C"
// clang-format on

namespace kel {

static_assert(indice_uguale_valore(dettagli_FunzKel), "row i describes value i");
static_assert(xml_unici(dettagli_FunzKel, "FID_DETTAGLI_"), "an XML name stands for one value");
static_assert(testi_in_misura(dettagli_FunzKel), "texts are ASCII and fit their fields");

static_assert(indice_uguale_valore(specializzazione_gps_FunzKel), "row i describes value i");
static_assert(xml_unici(specializzazione_gps_FunzKel, "FID_SPEC_GPS_"), "an XML name stands for one value");
static_assert(testi_in_misura(specializzazione_gps_FunzKel), "texts are ASCII and fit their fields");

static_assert(indice_uguale_valore(specializzazione_laptime_FunzKel), "row i describes value i");
static_assert(xml_unici(specializzazione_laptime_FunzKel, "FID_SPEC_LAPTIME_"), "an XML name stands for one value");
static_assert(testi_in_misura(specializzazione_laptime_FunzKel), "texts are ASCII and fit their fields");

}  // namespace kel
