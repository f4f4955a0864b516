// Subfields of lap packets.
#include "kelfunzioni.h"  // first: its extern declarations give the arrays their linkage
#include "packets/tabella_sottocampi.h"

namespace {

using kel::fid;

// The word at byte 20 of the packet is reserved: it has no function. Its row is one like any other all the same: it is
// listed among the subfields, and a request for identifier 0 finds it.
constexpr kel_funpos RISERVATO = 0;

}  // namespace

using kel::campo_bit;
using kel::intero;

// clang-format off
extern "C" {

// Second generation, both versions: numbers, times in milliseconds, and a 32-bit word of codes and flags. The bits are
// read through the converter's mask, see `maschera_campo_bit`: it selects the bit above each field, so the codes of lap
// and split are bit 8 (0 or 256), "best lap" is bit 9 and "best split" bit 10 (0 or 2).
//             subfield                                    offset  bits    type                 short   name
constexpr s_sottocampo sottocampi_lap_time_2G[] = {
    intero   (fid(FID_PHI_NUMBER, FID_OBJ_SESSION),        0,              KEL_TIPO_UINT8,      "nRun", "Run Number"),
    intero   (fid(FID_PHI_NUMBER, FID_OBJ_SPLIT),          1,              KEL_TIPO_UINT8,      "nSpl", "Split Number"),
    intero   (fid(FID_PHI_NUMBER, FID_OBJ_LAP),            2,              KEL_TIPO_UINT16,     "nLap", "Lap Number"),
    intero   (fid(FID_PHI_TIME,   FID_OBJ_LAP),            4,              KEL_TIPO_TEMPO_GIRO, "LapT", "Lap Time"),
    intero   (fid(FID_PHI_TIME,   FID_OBJ_SPLIT),          8,              KEL_TIPO_TEMPO_GIRO, "SplT", "Split Time"),
    intero   (fid(FID_PHI_TIME,   FID_OBJ_BEST_LAP),       12,             KEL_TIPO_TEMPO_GIRO),
    intero   (fid(FID_PHI_TIME,   FID_OBJ_RUNNING_LAP),    16,             KEL_TIPO_TEMPO_GIRO, "RunT", "Rolling Time"),
    intero   (RISERVATO,                                   20,             KEL_TIPO_TEMPO_GIRO),
    campo_bit(fid(FID_PHI_CODE,   FID_OBJ_LAP),            24,     0, 8,   KEL_TIPO_UINT32),
    campo_bit(fid(FID_PHI_CODE,   FID_OBJ_SPLIT),          24,     0, 8,   KEL_TIPO_UINT32),
    campo_bit(fid(FID_PHI_CODE,   FID_OBJ_BEST_LAP),       24,     8, 1,   KEL_TIPO_UINT32),
    campo_bit(fid(FID_PHI_CODE,   FID_OBJ_BEST_SPLIT),     24,     9, 1,   KEL_TIPO_UINT32),
    kel::FINE_SOTTOCAMPI,
};

}  // extern "C"

// First generation: one time serves as lap time and as split time. The converter's mask selects the bit above each
// field. For the split number that is the lowest bit of the lap number (0 or 4096); for the lap number and the codes it
// lies beyond the sample, so these always read 0.
//             subfield                                    offset  bits    type
constexpr s_sottocampo kel::SOTTOCAMPI_LAP_TIME_1G[] = {
    intero   (fid(FID_PHI_TIME,   FID_OBJ_LAP),            0,              KEL_TIPO_TEMPO_GIRO),
    intero   (fid(FID_PHI_TIME,   FID_OBJ_SPLIT),          0,              KEL_TIPO_TEMPO_GIRO),
    campo_bit(fid(FID_PHI_NUMBER, FID_OBJ_SPLIT),          4,      0, 12,  KEL_TIPO_UINT16),
    campo_bit(fid(FID_PHI_NUMBER, FID_OBJ_LAP),            4,      12, 4,  KEL_TIPO_UINT16),
    intero   (fid(FID_PHI_NUMBER, FID_OBJ_SESSION),        6,              KEL_TIPO_UINT8),
    campo_bit(fid(FID_PHI_CODE,   FID_OBJ_LAP),            7,      0, 8,   KEL_TIPO_UINT8),
    campo_bit(fid(FID_PHI_CODE,   FID_OBJ_SPLIT),          7,      0, 8,   KEL_TIPO_UINT8),
    kel::FINE_SOTTOCAMPI,
};
// clang-format on

namespace kel {

static_assert(sottocampi_in_regola(sottocampi_lap_time_2G, KEL_TIPO_LAP_2G),
              "rows lie in the packet; the end row is last and only last");
static_assert(sottocampi_in_regola(SOTTOCAMPI_LAP_TIME_1G, KEL_TIPO_LAP_1G),
              "rows lie in the packet; the end row is last and only last");

}  // namespace kel
