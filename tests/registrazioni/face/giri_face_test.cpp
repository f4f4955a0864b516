// Laps through the C face: the simulated kart's, whose laps its own logger has timed.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <string>

#include "kelregistrazioni.h"
#include "prova.h"

namespace {

using namespace prova;

struct ChiudiGiri {
    void operator()(s_kel_giri* giri) const { kelGiriChiudi(giri); }
};
using Giri = std::unique_ptr<s_kel_giri, ChiudiGiri>;

Giri raccolti(const Registrazione& reg) {
    Giri giri(kelGiriApri(reg.get(), nullptr));
    EXPECT_EQ(kelGiriAggiungi(giri.get(), nullptr), 1);
    return giri;
}

TEST(Laps, OfTheLoggersPackets) {
    const Kart kart;
    const Byte campioni = kart.campioni(55);  // the lap packet's number grows every ten records
    const Registrazione reg = apri(kart.canali(), campioni);
    const Giri giri = raccolti(reg);
    ASSERT_EQ(kelGiriCalcola(giri.get(), nullptr, nullptr), 1);
    EXPECT_STREQ(kelGiriDetto(giri.get()), "laps from 'Lap'\n");
    unsigned chiusi = 0;
    s_kel_giro giro{};
    for (unsigned i = 0; i < kelGiriNumero(giri.get()); ++i) {
        ASSERT_EQ(kelGiriGiro(giri.get(), i, &giro), 1);
        if (giro.ms < 0)
            continue;
        ++chiusi;
        EXPECT_EQ(giro.ms, 50000 + static_cast<int>(chiusi));
        EXPECT_EQ(giro.numero, static_cast<int>(chiusi));
        EXPECT_EQ(giro.migliore, chiusi == 1 ? 1 : 0);
        EXPECT_NEAR(giro.distacco, (chiusi - 1) / 1000.0, 1e-9);
        EXPECT_EQ(giro.num_settori, 0u);
    }
    EXPECT_EQ(chiusi, 5u);
    EXPECT_EQ(kelGiriGiro(giri.get(), kelGiriNumero(giri.get()), &giro), 0);
}

TEST(Laps, OfAPushedStreamAreThoseOfMemory) {
    const Kart kart;
    const Byte campioni = kart.campioni(400);
    const Registrazione intera = apri(kart.canali(), campioni);
    const Giri attesi = raccolti(intera);
    ASSERT_EQ(kelGiriCalcola(attesi.get(), nullptr, nullptr), 1);
    const Registrazione reg(kelRegApri(kart.canali().data(), kart.canali().size(), nullptr, 0, nullptr, nullptr));
    const Giri giri(kelGiriApri(reg.get(), nullptr));
    for (std::size_t da = 0; da <= campioni.size(); da += 3000) {
        ASSERT_EQ(
            kelRegSpingi(reg.get(), campioni.data() + da, std::min<std::size_t>(3000, campioni.size() - da), nullptr),
            1);
        ASSERT_EQ(kelGiriAggiungi(giri.get(), nullptr), 1);
        ASSERT_EQ(kelGiriAggiungi(giri.get(), nullptr), 1) << "no row twice";
    }
    ASSERT_EQ(kelRegSpingi(reg.get(), nullptr, 0, nullptr), 1);
    ASSERT_EQ(kelGiriAggiungi(giri.get(), nullptr), 1);
    ASSERT_EQ(kelGiriCalcola(giri.get(), nullptr, nullptr), 1);
    ASSERT_EQ(kelGiriNumero(giri.get()), kelGiriNumero(attesi.get()));
    for (unsigned i = 0; i < kelGiriNumero(giri.get()); ++i) {
        s_kel_giro uno{};
        s_kel_giro altro{};
        kelGiriGiro(giri.get(), i, &uno);
        kelGiriGiro(attesi.get(), i, &altro);
        EXPECT_EQ(uno.ms, altro.ms);
        EXPECT_EQ(uno.campioni, altro.campioni);
        EXPECT_EQ(uno.inizio, altro.inizio);
    }
}

TEST(Laps, ThatMissedRowsSaySo) {
    const Kart kart;
    const Byte campioni = kart.campioni(400);
    const Registrazione reg(kelRegApri(kart.canali().data(), kart.canali().size(), nullptr, 0, nullptr, nullptr));
    const Giri giri(kelGiriApri(reg.get(), nullptr));
    kelRegSpingi(reg.get(), campioni.data(), 20000, nullptr);
    kelRegSpingi(reg.get(), campioni.data() + 20000, 20000, nullptr);
    s_kel_errore errore{};
    EXPECT_EQ(kelGiriAggiungi(giri.get(), &errore), 0);
    EXPECT_STREQ(errore.testo, "rows from 0 to 200 are at hand no longer");
}

TEST(Laps, SayWhyThereIsNone) {
    const Kart kart;
    const Byte campioni = kart.campioni(400);
    const Registrazione reg = apri(kart.canali(), campioni);
    const Giri giri = raccolti(reg);
    const auto detto = [&](const s_kel_scelte_giri& scelte) {
        s_kel_errore errore{};
        EXPECT_EQ(kelGiriCalcola(giri.get(), &scelte, &errore), 0);
        EXPECT_EQ(kelGiriNumero(giri.get()), 0u);
        return std::string(errore.testo);
    };
    s_kel_scelte_giri scelte{};
    scelte.fonte = KEL_GIRI_GPS;
    EXPECT_EQ(detto(scelte),
              "no lap is closed: no place is passed twice in the same direction at speed, 10 s apart or more (minimo)");
    scelte.minimo = NAN;
    EXPECT_EQ(detto(scelte), "minimo is no time; accepted: seconds, 1 to 3600, or 0 for 10");
    scelte.minimo = 0;
    s_kel_linea linea{91, 0, 0, 0};
    scelte.linea = &linea;
    EXPECT_EQ(detto(scelte),
              "linea is no line; accepted: latitude, longitude and heading in degrees, and a width of up to 1000 m");
    linea = {44.5, 10, 90, 0};
    EXPECT_EQ(detto(scelte), "no lap is closed: the track never passes the line 44.5000000,10.0000000,90.0");
    const Byte rumore(100);
    const Registrazione vuota(kelRegApriUbx(rumore.data(), rumore.size(), nullptr));
    const Giri nessuno = raccolti(vuota);
    s_kel_errore errore{};
    EXPECT_EQ(kelGiriCalcola(nessuno.get(), nullptr, &errore), 0);
    EXPECT_STREQ(errore.testo, "there is no NAV-SOL and no NAV-PVT message in it");
}

}  // namespace
