// Solutions as rows: each field's value, validity and text, and nothing beside it.
#include "recordings/righe_gps.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>

namespace {

using namespace kel_registrazioni;

constexpr std::size_t RIGHE = 19;
constexpr std::size_t RIGA = 9;  // that is written: its bit is not in the first byte
constexpr unsigned char INTATTO = 0xA5;

Soluzione solita() {
    Soluzione soluzione;
    soluzione.settimana_ms = 400463250;
    soluzione.utc = Utc{2024, 3, 28, 15, 14, 5, 250};
    soluzione.fix = 3;
    soluzione.satelliti = 7;
    soluzione.luogo = Geodetica{44.5, -10.25, 123.4567};
    soluzione.velocita = VelocitaLocale{3, 4, 12};
    soluzione.accuratezza_posizione = 1.5;
    soluzione.accuratezza_velocita = 0.25;
    return soluzione;
}

// The memory of a column's rows, and what became of one of them.
struct Colonna {
    alignas(8) std::array<unsigned char, RIGHE * 8> valori;
    std::array<unsigned char, 3> validi;
    std::array<char, RIGHE * 32> testi;

    Colonna() {
        valori.fill(INTATTO);
        validi.fill(0);
        testi.fill(0);
    }
    s_kel_lettura lettura() { return {0, valori.data(), validi.data(), testi.data()}; }

    template <typename Valore>
    Valore valore() const {
        Valore letto{};
        std::memcpy(&letto, valori.data() + RIGA * sizeof letto, sizeof letto);
        return letto;
    }
    std::string testo() const { return testi.data() + RIGA * 32; }

    // Bytes that are as they were, but for those of the row's value.
    std::size_t intatti(std::size_t larghezza) const {
        std::size_t quanti = 0;
        for (std::size_t i = 0; i < valori.size(); ++i)
            quanti += i / larghezza != RIGA && valori[i] == INTATTO ? 1 : 0;
        return quanti + larghezza;
    }
    bool solo_la_riga() const { return validi == std::array<unsigned char, 3>{0, 0x02, 0}; }
};

struct Atteso {
    CampoGps campo;
    double valore;
    const char* testo;
};

TEST(GpsRows, HaveNumbersOfTheirKind) {
    const Soluzione soluzione = solita();
    for (const auto& [campo, valore, testo] :
         {Atteso{CampoGps::latitudine, 44.5, "44.50000"}, Atteso{CampoGps::longitudine, -10.25, "-10.25000"},
          Atteso{CampoGps::altezza, 123.4567, "123.45670"}, Atteso{CampoGps::velocita, 13, "13.00000"},
          Atteso{CampoGps::rotta, 36.86989764584402, "36.86990"}, Atteso{CampoGps::salita, 12, "12.00000"},
          Atteso{CampoGps::accuratezza_posizione, 1.5, "1.50000"},
          Atteso{CampoGps::accuratezza_velocita, 0.25, "0.25000"}}) {
        Colonna colonna;
        scrivi_campo(colonna.lettura(), RIGA, soluzione, campo, 1, 5);
        EXPECT_EQ(valori_di(campo), KEL_VALORI_DOUBLE);
        EXPECT_DOUBLE_EQ(colonna.valore<double>(), valore);
        EXPECT_EQ(colonna.testo(), testo);
        EXPECT_EQ(colonna.intatti(8), RIGHE * 8);
        EXPECT_TRUE(colonna.solo_la_riga());
    }
    for (const auto& [campo, valore, testo] : {Atteso{CampoGps::fix, 3, "3"}, Atteso{CampoGps::satelliti, 7, "7"}}) {
        Colonna colonna;
        scrivi_campo(colonna.lettura(), RIGA, soluzione, campo, 1, 0);
        EXPECT_EQ(valori_di(campo), KEL_VALORI_UINT32);
        EXPECT_EQ(colonna.valore<std::uint32_t>(), valore);
        EXPECT_EQ(colonna.testo(), testo);
        EXPECT_EQ(colonna.intatti(4), RIGHE * 8);
        EXPECT_TRUE(colonna.solo_la_riga());
    }
}

TEST(GpsRows, HaveTheSpeedInItsUnit) {
    Colonna colonna;
    scrivi_campo(colonna.lettura(), RIGA, solita(), CampoGps::velocita, 3.6, 1);
    EXPECT_DOUBLE_EQ(colonna.valore<double>(), 46.8);
    EXPECT_EQ(colonna.testo(), "46.8");
}

TEST(GpsRows, HaveUtcInMicroseconds) {
    Colonna colonna;
    scrivi_campo(colonna.lettura(), RIGA, solita(), CampoGps::utc, 1, 0);
    EXPECT_EQ(valori_di(CampoGps::utc), KEL_VALORI_ISTANTE);
    EXPECT_EQ(colonna.valore<std::int64_t>(), 1711638845250000);
    EXPECT_EQ(colonna.testo(), "2024-03-28T15:14:05.250Z");
    EXPECT_EQ(colonna.intatti(8), RIGHE * 8);
    EXPECT_TRUE(colonna.solo_la_riga());
}

TEST(GpsRows, HaveTheTimeOfWeek) {
    Colonna colonna;
    scrivi_settimana(colonna.lettura(), RIGA, solita());
    EXPECT_EQ(colonna.valore<std::uint32_t>(), 400463250u);
    EXPECT_EQ(colonna.testo(), "400463250");
    EXPECT_EQ(colonna.intatti(4), RIGHE * 8);
    EXPECT_TRUE(colonna.solo_la_riga());
}

TEST(GpsRows, AreNotTouchedWhereNothingIsKnown) {
    const Soluzione niente;
    for (const CampoGps campo : CAMPI_GPS) {
        if (campo == CampoGps::fix || campo == CampoGps::satelliti)
            continue;  // that there is none is known
        Colonna colonna;
        scrivi_campo(colonna.lettura(), RIGA, niente, campo, 1, 3);
        EXPECT_EQ(colonna.intatti(8) - 8, (RIGHE - 1) * 8);
        EXPECT_EQ(colonna.valori[RIGA * 8], INTATTO);
        EXPECT_EQ(colonna.validi[1], 0);
        EXPECT_EQ(colonna.testo(), "");
    }
}

TEST(GpsRows, AreWrittenOnlyWhereThereIsMemory) {
    const Soluzione soluzione = solita();
    for (const CampoGps campo : {CampoGps::utc, CampoGps::fix, CampoGps::velocita}) {
        scrivi_campo({0, nullptr, nullptr, nullptr}, RIGA, soluzione, campo, 1, 3);
        Colonna colonna;
        scrivi_campo({0, nullptr, nullptr, colonna.testi.data()}, RIGA, soluzione, campo, 1, 3);
        EXPECT_NE(colonna.testo(), "");
        scrivi_campo({0, nullptr, colonna.validi.data(), nullptr}, RIGA, soluzione, campo, 1, 3);
        EXPECT_TRUE(colonna.solo_la_riga());
        EXPECT_EQ(colonna.valori[RIGA * 8], INTATTO);
    }
    scrivi_settimana({0, nullptr, nullptr, nullptr}, RIGA, soluzione);
}

TEST(GpsRows, TextsEndWithANul) {
    Soluzione lontana = solita();
    lontana.luogo->altezza = 1e30;
    Colonna colonna;
    scrivi_campo(colonna.lettura(), RIGA, lontana, CampoGps::altezza, 1, 3);
    EXPECT_EQ(colonna.testo(), "1000000000000000019884624838656") << "31 characters of 35";
    EXPECT_EQ(colonna.testi[(RIGA + 1) * 32], '\0');
}

TEST(GpsRows, AreZeroBeforeTheyAreWritten) {
    const auto azzerati = [](eKelValori valori, std::size_t righe) {
        Colonna colonna;
        colonna.validi.fill(INTATTO);
        colonna.testi.fill('x');
        azzera(colonna.lettura(), valori, righe);
        const auto zeri = [](const auto& byte) {
            std::size_t quanti = 0;
            while (quanti < byte.size() && byte[quanti] == 0)
                ++quanti;
            for (std::size_t i = quanti; i < byte.size(); ++i)
                EXPECT_NE(byte[i], 0) << i;
            return quanti;
        };
        return std::array<std::size_t, 3>{zeri(colonna.valori), zeri(colonna.validi), zeri(colonna.testi)};
    };
    using Byte = std::array<std::size_t, 3>;
    EXPECT_EQ(azzerati(KEL_VALORI_FLOAT, 8), (Byte{32, 1, 256}));
    EXPECT_EQ(azzerati(KEL_VALORI_UINT32, 9), (Byte{36, 2, 288}));
    EXPECT_EQ(azzerati(KEL_VALORI_DOUBLE, 17), (Byte{136, 3, 544}));
    EXPECT_EQ(azzerati(KEL_VALORI_ISTANTE, 1), (Byte{8, 1, 32}));
    EXPECT_EQ(azzerati(KEL_VALORI_NESSUNO, 1), (Byte{0, 1, 32})) << "a packet has no values";
    azzera({0, nullptr, nullptr, nullptr}, KEL_VALORI_DOUBLE, 3);
}

TEST(GpsRows, FieldsHaveTheNumbersOfTheFace) {
    EXPECT_EQ(campo_di_faccia(CampoGps::utc), KEL_CAMPO_UTC);
    EXPECT_EQ(campo_di_faccia(CampoGps::velocita), KEL_CAMPO_VELOCITA);
    EXPECT_EQ(campo_di_faccia(CampoGps::accuratezza_velocita), KEL_CAMPO_ACCURATEZZA_VELOCITA);
}

}  // namespace
