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

// GPS packets: the logger's own packet, or the payload of the receiver's NAV-SOL message.
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

static_assert(campo_in_regola(dettagli_FunzKel, "FID_DETTAGLI_"),
              "row i describes value i; XML names unique; texts ASCII and in measure");
static_assert(campo_in_regola(specializzazione_gps_FunzKel, "FID_SPEC_GPS_"),
              "row i describes value i; XML names unique; texts ASCII and in measure");
static_assert(campo_in_regola(specializzazione_laptime_FunzKel, "FID_SPEC_LAPTIME_"),
              "row i describes value i; XML names unique; texts ASCII and in measure");

}  // namespace kel
