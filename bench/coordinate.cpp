// Latitude and longitude of a GPS packet.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <memory>

#ifdef KEL_PARI_GEOGRAPHICLIB
#include <GeographicLib/Geocentric.hpp>
#endif
#ifdef KEL_PARI_PROJ
#include <proj.h>
#endif

#include "comune/convertitore.h"
#include "comune/prova.h"
#include "righe.h"

using namespace prova;

namespace {

constexpr double PI = 3.141592653589793;
constexpr double SEMIASSE_A = 6378137.0;  // WGS 84
constexpr double SEMIASSE_B = 6356752.314245179;
constexpr double E2 = 1.0 - SEMIASSE_B * SEMIASSE_B / (SEMIASSE_A * SEMIASSE_A);
constexpr std::size_t POSTO_X = 16;  // i32 x, y, z in cm, behind the packet's own time

using Pacchetto = std::array<unsigned char, 56>;

struct Posizione {
    float latitudine;
    float longitudine;

    bool operator==(const Posizione&) const = default;
};

// A solution somewhere on Earth, up to 3000 m high.
Pacchetto pacchetto(Casuale& casuale) {
    const double lat = std::asin(fra(casuale, -0.95, 0.95));
    const double lon = fra(casuale, -PI, PI);
    const double quota = fra(casuale, 0.0, 3000.0);
    const double n = SEMIASSE_A / std::sqrt(1.0 - E2 * std::sin(lat) * std::sin(lat));
    const double xyz[] = {(n + quota) * std::cos(lat) * std::cos(lon), (n + quota) * std::cos(lat) * std::sin(lon),
                          (n * (1.0 - E2) + quota) * std::sin(lat)};
    Pacchetto fatto = {};
    fatto[14] = 3;  // 3D fix
    fatto[51] = 9;  // satellites
    for (std::size_t i = 0; i < 3; ++i) {
        const auto centimetri = static_cast<std::int32_t>(std::lround(xyz[i] * 100.0));
        std::memcpy(fatto.data() + POSTO_X + 4 * i, &centimetri, sizeof centimetri);
    }
    return fatto;
}

std::array<double, 3> metri(const Pacchetto& pacchetto) {
    std::array<double, 3> xyz = {};
    for (std::size_t i = 0; i < 3; ++i) {
        std::int32_t centimetri = 0;
        std::memcpy(&centimetri, pacchetto.data() + POSTO_X + 4 * i, sizeof centimetri);
        xyz[i] = centimetri * 0.01;
    }
    return xyz;
}

// Arc tangent of y / x in degrees, error below 2e-8 rad: Abramowitz and Stegun 4.4.49 on the smaller quotient.
float arco(double y, double x) {
    constexpr double a[] = {1.0,           -0.3333314528, 0.1999355085,  -0.1420889944, 0.1065626393,
                            -0.0752896400, 0.0429096138,  -0.0161657367, 0.0028662257};
    const double ay = std::fabs(y);
    const double ax = std::fabs(x);
    const double t = std::min(ay, ax) / std::max(ay, ax);
    const double t2 = t * t;
    const double t4 = t2 * t2;
    const double basse = (a[0] + a[1] * t2) + (a[2] + a[3] * t2) * t4;
    const double alte = (a[4] + a[5] * t2) + (a[6] + a[7] * t2 + a[8] * t4) * t4;
    const double primo = t * (basse + alte * (t4 * t4));
    // Signs, and not branches: the processor cannot predict the octant.
    const double secondo = PI / 4 - std::copysign(PI / 4 - primo, ax - ay);
    const double intero = PI / 2 - std::copysign(PI / 2 - secondo, x);
    return static_cast<float>(std::copysign(intero, y) * (180.0 / PI));
}

// Bowring's closed form, one step: two arc tangents, as exact as the results.
Posizione bowring(const Pacchetto& pacchetto) {
    const auto [x, y, z] = metri(pacchetto);
    constexpr double e2_secondo = SEMIASSE_A * SEMIASSE_A / (SEMIASSE_B * SEMIASSE_B) - 1.0;
    const double p = std::sqrt(x * x + y * y);
    const double tangente = z * SEMIASSE_A / (p * SEMIASSE_B);
    const double coseno = 1.0 / std::sqrt(1.0 + tangente * tangente);
    const double seno = tangente * coseno;
    const double sopra = z + e2_secondo * SEMIASSE_B * seno * seno * seno;
    const double sotto_asse = p - E2 * SEMIASSE_A * coseno * coseno * coseno;
    return {arco(sopra, sotto_asse), arco(y, x)};
}

#ifdef KEL_PARI_GEOGRAPHICLIB
Posizione geographiclib(const Pacchetto& pacchetto) {
    const auto [x, y, z] = metri(pacchetto);
    double lat = 0.0;
    double lon = 0.0;
    double quota = 0.0;
    GeographicLib::Geocentric::WGS84().Reverse(x, y, z, lat, lon, quota);
    return {static_cast<float>(lat), static_cast<float>(lon)};
}
#endif

}  // namespace

void righe_coordinate() {
    const std::string riga = "latitude and longitude";
    const auto pacchetti = genera(pacchetto);
    s_kel_canale canale = {};
    canale.fid = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, FID_SPEC_GPS_KELNAVSOL);
    canale.tipo_campione = KEL_TIPO_GPS_KEL;
    const auto di = [&canale](unsigned oggetto) {
        const kel_funpos fid = kelFidComponi(FID_PHI_COORDINATE, oggetto, FID_POS_GPS);
        s_kel_converter conv = {};
        kelConvInit(&conv, &canale, fid, kelFunGetConvData(fid, "deg"), 0, 0, 1);
        return conv;
    };
    serie(riga, Ruolo::nostro, "kelConvGetValFloat twice", pacchetti,
          [lat = di(FID_OBJ_LATITUDE), lon = di(FID_OBJ_LONGITUDE)](const Pacchetto& ingresso) {
              Posizione posizione = {};
              kelConvGetValFloat(&lat, ingresso.data(), &posizione.latitudine);
              kelConvGetValFloat(&lon, ingresso.data(), &posizione.longitudine);
              return posizione;
          });
    serie(riga, Ruolo::limite, "closed form", pacchetti, bowring);
#ifdef KEL_PARI_GEOGRAPHICLIB
    // The limit is as exact as a float can be.
    concordi(riga, pacchetti, geographiclib, [](const Pacchetto& ingresso) {
        const Posizione esatta = geographiclib(ingresso);
        const Posizione sua = bowring(ingresso);
        const bool vicina = std::fabs(esatta.latitudine - sua.latitudine) < 2e-5f &&
                            std::fabs(esatta.longitudine - sua.longitudine) < 4e-5f;
        return vicina ? esatta : sua;
    });
    serie(riga, Ruolo::pari, "GeographicLib", pacchetti, geographiclib);
#endif
#ifdef KEL_PARI_PROJ
    const std::shared_ptr<PJ> proj(proj_create(nullptr, "+proj=cart +ellps=WGS84"), proj_destroy);
    serie(riga, Ruolo::pari, "PROJ", pacchetti, [proj](const Pacchetto& ingresso) {
        const auto [x, y, z] = metri(ingresso);
        const PJ_COORD gradi = proj_trans(proj.get(), PJ_INV, proj_coord(x, y, z, 0.0));
        return Posizione{static_cast<float>(proj_todeg(gradi.lp.phi)), static_cast<float>(proj_todeg(gradi.lp.lam))};
    });
#endif
}
