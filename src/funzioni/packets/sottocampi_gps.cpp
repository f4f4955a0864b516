// Subfields of GPS packets: the logger's own, and the payload of a u-blox UBX-NAV-SOL message.
//
// The accuracies of position and velocity are 32-bit numbers, of which the rows read only the low byte: 300 cm shows as
// 44. They stay so, because displays must show the same for a recording in every release.
#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "packets/decoder_sottocampi.h"
#include "packets/navsol.h"
#include "packets/tabella_sottocampi.h"

namespace {

using kel::fid;

constexpr kel_funpos TEMPO = fid(FID_PHI_TIME, FID_OBJ_MASTER_CLOCK, FID_POS_GPS);
constexpr kel_funpos TIPO_FIX = fid(FID_PHI_CODE, FID_OBJ_ACCURACY, FID_POS_GPS);
constexpr kel_funpos ACCURATEZZA_POSIZIONE = fid(FID_PHI_POSITION, FID_OBJ_ACCURACY, FID_POS_GPS);
constexpr kel_funpos ACCURATEZZA_VELOCITA = fid(FID_PHI_VELOCITY, FID_OBJ_ACCURACY, FID_POS_GPS);
constexpr kel_funpos SATELLITI = fid(FID_PHI_NUMBER, FID_OBJ_SATELLITE, FID_POS_GPS);
constexpr kel_funpos VELOCITA = fid(FID_PHI_SPEED, FID_OBJ_UNDEFINED, FID_POS_GPS);
constexpr kel_funpos LATITUDINE = fid(FID_PHI_COORDINATE, FID_OBJ_LATITUDE, FID_POS_GPS);
constexpr kel_funpos LONGITUDINE = fid(FID_PHI_COORDINATE, FID_OBJ_LONGITUDE, FID_POS_GPS);

constexpr uint32_t PAYLOAD = kel::PAYLOAD_IN_GPS_KEL;

}  // namespace

using kel::calcolato;
using kel::intero;

// clang-format off
extern "C" {

// The logger's packet: a 32-bit time, and then the payload. The numbers of the comments are bytes of the packet.
//            subfield                offset                                        type               short   name
constexpr s_sottocampo sottocampi_gps_kel[] = {
    intero   (TEMPO,                  0,                                            KEL_TIPO_UINT32),
    intero   (TIPO_FIX,               PAYLOAD + kel::NAVSOL_FIX,                    KEL_TIPO_UINT8),  // 14
    intero   (ACCURATEZZA_POSIZIONE,  PAYLOAD + kel::NAVSOL_ACCURATEZZA_POSIZIONE,  KEL_TIPO_UINT8),  // 28, low byte
    intero   (ACCURATEZZA_VELOCITA,   PAYLOAD + kel::NAVSOL_ACCURATEZZA_VELOCITA,   KEL_TIPO_UINT8),  // 44, low byte
    intero   (SATELLITI,              PAYLOAD + kel::NAVSOL_SATELLITI,              KEL_TIPO_UINT8,    "nSV",  "Sats Number"),  // 51
    calcolato(VELOCITA,     kel::velocita_gps,    kel::velocita_gps_reciproca, "Spd", "GPS Speed"),
    calcolato(LATITUDINE,   kel::latitudine_gps,  nullptr,                     "Lat", "Latitude"),
    calcolato(LONGITUDINE,  kel::longitudine_gps, nullptr,                     "Lon", "Longitude"),
    kel::FINE_SOTTOCAMPI,
};

}  // extern "C"

// The payload alone. It has no time; this table offers no coordinates and no names. Its speed is in cm/s and not in
// km/h, see `velocita_navsol`.
//            subfield                offset                              type
constexpr s_sottocampo kel::SOTTOCAMPI_GPS_NAVSOL[] = {
    intero   (TIPO_FIX,               kel::NAVSOL_FIX,                    KEL_TIPO_UINT8),  // 10
    intero   (ACCURATEZZA_POSIZIONE,  kel::NAVSOL_ACCURATEZZA_POSIZIONE,  KEL_TIPO_UINT8),  // 24, low byte
    intero   (ACCURATEZZA_VELOCITA,   kel::NAVSOL_ACCURATEZZA_VELOCITA,   KEL_TIPO_UINT8),  // 40, low byte
    intero   (SATELLITI,              kel::NAVSOL_SATELLITI,              KEL_TIPO_UINT8),  // 47
    calcolato(VELOCITA,     kel::velocita_navsol, kel::velocita_navsol_reciproca),
    kel::FINE_SOTTOCAMPI,
};
// clang-format on

namespace kel {

static_assert(sottocampi_in_regola(sottocampi_gps_kel, KEL_TIPO_GPS_KEL),
              "rows lie in the packet; the end row is last and only last");
static_assert(sottocampi_in_regola(SOTTOCAMPI_GPS_NAVSOL, KEL_TIPO_GPS_NAVSOL),
              "rows lie in the payload; the end row is last and only last");

}  // namespace kel
