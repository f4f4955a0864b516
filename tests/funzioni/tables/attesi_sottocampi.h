// What the subfield tables of packets hold, cell by cell.
#ifndef KEL_TEST_ATTESI_SOTTOCAMPI_H
#define KEL_TEST_ATTESI_SOTTOCAMPI_H

#include <kelfunzioni.h>

#include <cstddef>
#include <cstdint>
#include <iterator>

namespace attesi {

struct Sottocampo {
    std::uint32_t fid;
    unsigned offset;
    unsigned pos_bit;
    unsigned num_bit;
    unsigned tipo_campione;
    bool ha_valore;     // a decoder of its own
    bool ha_reciproco;  // a decoder of its own for reciprocal units
    const char* breve;
    const char* testo;
};

// clang-format off

// The rows before the end row: identifier, offset, bit field, sample type, decoders, names.
inline constexpr Sottocampo gps_kel[] = {
    {0x000A9512, 0,  0, 0, 3,  false, false, "",    ""},
    {0x000A9986, 14, 0, 0, 5,  false, false, "",    ""},
    {0x000A998C, 28, 0, 0, 5,  false, false, "",    ""},
    {0x000A9994, 44, 0, 0, 5,  false, false, "",    ""},
    {0x000A940B, 51, 0, 0, 5,  false, false, "nSV", "Sats Number"},
    {0x000A8010, 0,  0, 0, 25, true,  true,  "Spd", "GPS Speed"},
    {0x000A8A07, 0,  0, 0, 25, true,  false, "Lat", "Latitude"},
    {0x000A8A87, 0,  0, 0, 25, true,  false, "Lon", "Longitude"},
};

inline constexpr Sottocampo gps_ubx[] = {
    {0x000A9986, 10, 0, 0, 5,  false, false, "", ""},
    {0x000A998C, 24, 0, 0, 5,  false, false, "", ""},
    {0x000A9994, 40, 0, 0, 5,  false, false, "", ""},
    {0x000A940B, 47, 0, 0, 5,  false, false, "", ""},
    {0x000A8010, 0,  0, 0, 25, true,  true,  "", ""},
};

inline constexpr Sottocampo lap_time_2g[] = {
    {0x0000190B, 0,  0, 0, 5,  false, false, "nRun", "Run Number"},
    {0x0000178B, 1,  0, 0, 5,  false, false, "nSpl", "Split Number"},
    {0x0000098B, 2,  0, 0, 4,  false, false, "nLap", "Lap Number"},
    {0x00000992, 4,  0, 0, 12, false, false, "LapT", "Lap Time"},
    {0x00001792, 8,  0, 0, 12, false, false, "SplT", "Split Time"},
    {0x00001312, 12, 0, 0, 12, false, false, "",     ""},
    {0x00001712, 16, 0, 0, 12, false, false, "RunT", "Rolling Time"},
    {0x00000000, 20, 0, 0, 12, false, false, "",     ""},
    {0x00000986, 24, 0, 8, 3,  false, false, "",     ""},
    {0x00001786, 24, 0, 8, 3,  false, false, "",     ""},
    {0x00001306, 24, 8, 1, 3,  false, false, "",     ""},
    {0x00001806, 24, 9, 1, 3,  false, false, "",     ""},
};

inline constexpr Sottocampo lap_time_1g[] = {
    {0x00000992, 0, 0,  0,  12, false, false, "", ""},
    {0x00001792, 0, 0,  0,  12, false, false, "", ""},
    {0x0000178B, 4, 0,  12, 4,  false, false, "", ""},
    {0x0000098B, 4, 12, 4,  4,  false, false, "", ""},
    {0x0000190B, 6, 0,  0,  5,  false, false, "", ""},
    {0x00000986, 7, 0,  8,  5,  false, false, "", ""},
    {0x00001786, 7, 0,  8,  5,  false, false, "", ""},
};

// clang-format on

}  // namespace attesi

#endif
