// Subfields of GPS packets.
//
// The payload is that of u-blox UBX-NAV-SOL: fix type at byte 10, ECEF position at 12, its accuracy at 24, ECEF velocity
// at 28, its accuracy at 40, satellites at 47. The accuracies are 32-bit words of which only the low byte is read.
#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "packets/decoder_sottocampi.h"
#include "packets/tabella_sottocampi.h"

namespace {

using kel::fid;

constexpr kel_funpos tempo = fid(FID_PHI_TIME, FID_OBJ_MASTER_CLOCK, FID_POS_GPS);
constexpr kel_funpos tipo_fix = fid(FID_PHI_CODE, FID_OBJ_ACCURACY, FID_POS_GPS);
constexpr kel_funpos accuratezza_posizione = fid(FID_PHI_POSITION, FID_OBJ_ACCURACY, FID_POS_GPS);
constexpr kel_funpos accuratezza_velocita = fid(FID_PHI_VELOCITY, FID_OBJ_ACCURACY, FID_POS_GPS);
constexpr kel_funpos satelliti = fid(FID_PHI_NUMBER, FID_OBJ_SATELLITE, FID_POS_GPS);
constexpr kel_funpos velocita = fid(FID_PHI_SPEED, FID_OBJ_UNDEFINED, FID_POS_GPS);
constexpr kel_funpos latitudine = fid(FID_PHI_COORDINATE, FID_OBJ_LATITUDE, FID_POS_GPS);
constexpr kel_funpos longitudine = fid(FID_PHI_COORDINATE, FID_OBJ_LONGITUDE, FID_POS_GPS);

}  // namespace

using kel::calcolato;
using kel::intero;

// clang-format off
extern "C" {

// The logger's packet: a 32-bit time, then the payload, whose fields thus lie four bytes later.
//            subfield                offset  type               short   name
constexpr s_sottocampo sottocampi_gps_kel[] = {
    intero   (tempo,                  0,      KEL_TIPO_UINT32),
    intero   (tipo_fix,               14,     KEL_TIPO_UINT8),
    intero   (accuratezza_posizione,  28,     KEL_TIPO_UINT8),
    intero   (accuratezza_velocita,   44,     KEL_TIPO_UINT8),
    intero   (satelliti,              51,     KEL_TIPO_UINT8,    "nSV",  "Sats Number"),
    calcolato(velocita,     kel::velocita_gps,    kel::velocita_gps_reciproca, "Spd", "GPS Speed"),
    calcolato(latitudine,   kel::latitudine_gps,  nullptr,                     "Lat", "Latitude"),
    calcolato(longitudine,  kel::longitudine_gps, nullptr,                     "Lon", "Longitude"),
    kel::fine_sottocampi,
};

}  // extern "C"

// The payload as it stands: no time, no coordinates, no names.
//            subfield                offset  type
constexpr s_sottocampo kel::sottocampi_gps_navsol[] = {
    intero   (tipo_fix,               10,     KEL_TIPO_UINT8),
    intero   (accuratezza_posizione,  24,     KEL_TIPO_UINT8),
    intero   (accuratezza_velocita,   40,     KEL_TIPO_UINT8),
    intero   (satelliti,              47,     KEL_TIPO_UINT8),
    calcolato(velocita,     kel::velocita_navsol, kel::velocita_navsol_reciproca),
    kel::fine_sottocampi,
};
// clang-format on

namespace kel {

static_assert(sottocampi_in_regola(sottocampi_gps_kel, 56),
              "rows lie in the packet; the end row is last and only last");
static_assert(sottocampi_in_regola(sottocampi_gps_navsol, 52),
              "rows lie in the payload; the end row is last and only last");

}  // namespace kel
