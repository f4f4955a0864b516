// Longitudes that tell apart what nearly every other position leaves alike: they lie so near to the middle between two floats
// that a difference of a hundred thousand millionth of the angle shows.
#include <gtest/gtest.h>

#include <bit>
#include <cstdint>

#include "converters/lettura.h"

using namespace kel_test;

namespace {

constexpr kel_funpos kLongitudine = kelFidComponi(FID_PHI_COORDINATE, FID_OBJ_LONGITUDE, FID_POS_GPS);

struct Posizione {
    std::int32_t x, y;     // ECEF, cm
    std::uint32_t angolo;  // the float nearest to atan2(y, x) in degrees, its bits
    const char* gradi;     // atan2(y, x) * 180 / pi, sixteen digits
};

constexpr Posizione posizioni[] = {
    {509379920, 31618502, 0x406352EF, "3.551936983940751"},
    {438651061, 27789254, 0x4067FEF3, "3.624935984533217"},
    {592786857, 36270707, 0x40601694, "3.501377940232517"},
};

TEST(Longitude, NearTheMiddleBetweenTwoFloatsIsTheNearer) {
    for (const Posizione& posizione : posizioni) {
        Byte pacchetto(56, 0);
        Metti(pacchetto, 16, LeI32(posizione.x));
        Metti(pacchetto, 20, LeI32(posizione.y));
        s_kel_converter conv = Sottocampo(kPacchettoGps, KEL_TIPO_GPS_KEL, kLongitudine, &kIdentita);
        const float longitudine = Leggi(conv, pacchetto).valore;
        EXPECT_EQ(std::bit_cast<std::uint32_t>(longitudine), posizione.angolo) << posizione.gradi << " degrees";
    }
}

}  // namespace
