// Longitudes that tell apart what nearly every other position leaves alike: they lie so near to the middle between two floats
// that a difference of a hundred thousand millionth of the angle shows.
#include <gtest/gtest.h>

#include <bit>
#include <cstdint>

#include "converters/lettura.h"

using namespace kel_test;

namespace {

constexpr kel_funpos LONGITUDINE = kelFidComponi(FID_PHI_COORDINATE, FID_OBJ_LONGITUDE, FID_POS_GPS);

struct Posizione {
    std::int32_t x, y;     // ECEF, cm
    std::uint32_t angolo;  // the float nearest to atan2(y, x) in degrees, its bits
    const char* gradi;     // atan2(y, x) * 180 / pi, sixteen digits
};

constexpr Posizione POSIZIONI[] = {
    {509379920, 31618502, 0x406352EF, "3.551936983940751"},
    {438651061, 27789254, 0x4067FEF3, "3.624935984533217"},
    {592786857, 36270707, 0x40601694, "3.501377940232517"},
};

TEST(Longitude, NearTheMiddleBetweenTwoFloatsIsTheNearer) {
    for (const Posizione& posizione : POSIZIONI) {
        Byte pacchetto(56, 0);
        metti(pacchetto, 16, le_i32(posizione.x));
        metti(pacchetto, 20, le_i32(posizione.y));
        s_kel_converter conv = sottocampo(PACCHETTO_GPS, KEL_TIPO_GPS_KEL, LONGITUDINE, &IDENTITA);
        const float longitudine = leggi(conv, pacchetto).valore;
        EXPECT_EQ(std::bit_cast<std::uint32_t>(longitudine), posizione.angolo) << posizione.gradi << " degrees";
    }
}

struct Equatore {
    std::int32_t x, z;     // ECEF, cm; y is 0
    std::uint32_t angolo;  // bits of the float that the iteration ends with
    const char* limite;    // what it would come to if it went on, degrees
};

// A centimetre or two beside the equator the iteration ends at a step of 1e-10 that is no small part of the way: the float is
// that of where it ends, not of where it would come to.
constexpr Equatore EQUATORE[] = {
    {529779859, 2, 0x346844FA, "2.163177654726877e-07"},
    {655575980, 1, 0x33BBB27B, "8.740331125472260e-08"},
    {699851375, 2, 0x342FD26E, "1.637469821949228e-07"},
};

TEST(Latitude, BesideTheEquatorIsWhereTheIterationEnds) {
    constexpr kel_funpos latitudine = kelFidComponi(FID_PHI_COORDINATE, FID_OBJ_LATITUDE, FID_POS_GPS);
    for (const Equatore& punto : EQUATORE) {
        Byte pacchetto(56, 0);
        metti(pacchetto, 16, le_i32(punto.x));
        metti(pacchetto, 24, le_i32(punto.z));
        s_kel_converter conv = sottocampo(PACCHETTO_GPS, KEL_TIPO_GPS_KEL, latitudine, &IDENTITA);
        EXPECT_EQ(std::bit_cast<std::uint32_t>(leggi(conv, pacchetto).valore), punto.angolo)
            << punto.limite << " degrees";
    }
}

}  // namespace
