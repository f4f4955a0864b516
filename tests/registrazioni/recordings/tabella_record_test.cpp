// Records as rows: when their framing is known, and when each of them was taken.
#include "recordings/tabella_record.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "common/errore.h"
#include "fatti.h"

namespace {

using namespace kel_registrazioni;
using fatti::aggiungi;
using fatti::canale;
using Byte = fatti::Byte;

constexpr kel_funpos GIRI = kelFidComponi(FID_PHI_RPM, 0, FID_POS_ENGINE);

// One channel of a byte, named so that nobody looks for its name.
Byte un_byte() {
    return canale(GIRI, KEL_TIPO_UINT8, "n");
}

s_kel_apertura con_orario(eKelOrario orario) {
    s_kel_apertura apertura{};
    apertura.orario = orario;
    return apertura;
}

template <typename Intero>
Byte con_marche(const std::vector<Intero>& marche) {
    Byte byte;
    for (const Intero una : marche) {
        aggiungi(byte, una);
        byte.push_back(1);
    }
    return byte;
}

std::vector<double> tempi(TabellaRecord& tabella) {
    std::vector<double> tutti;
    for (std::uint64_t i = tabella.prima(); i < tabella.prima() + tabella.righe(); ++i)
        tutti.push_back(tabella.secondi(i));
    return tutti;
}

std::string rifiuto(const auto& lavoro) {
    try {
        lavoro();
        return "taken";
    } catch (const Errore& e) {
        return e.what();
    }
}

TEST(RecordTimes, OfMillisecondsCountOnForAnHourOverTheEndOfTheirCounter) {
    const Byte canali = un_byte();
    // An hour is the next turn; a millisecond more, or a step back, is another session.
    const Byte campioni =
        con_marche<std::uint32_t>({0xFFFFFFFFu, 3599999, 3600000, 5, 0xFFFFFFFFu, 3600000, 0xFFFFFFFFu, 0});
    TabellaRecord tabella(canali, campioni, con_orario(KEL_ORARIO_U32MS));
    constexpr double GIRO = 4294967.296;
    const std::vector<double> attesi = {GIRO - 0.001,     GIRO + 3599.999, GIRO + 3600,      GIRO + 0.005,
                                        2 * GIRO - 0.001, GIRO + 3600,     2 * GIRO - 0.001, 2 * GIRO};
    const std::vector<double> letti = tempi(tabella);
    ASSERT_EQ(letti.size(), attesi.size());
    for (std::size_t i = 0; i < attesi.size(); ++i)
        EXPECT_DOUBLE_EQ(letti[i], attesi[i]) << i;
    EXPECT_EQ(tabella.microsecondi(0), 4294967295000);
    EXPECT_EQ(tabella.microsecondi(7), 2 * 4294967296000);
}

TEST(RecordTimes, OfAPushedStreamCountItsTurnsAlsoWhereNobodyAsksForThem) {
    const Byte canali = un_byte();
    std::vector<std::uint32_t> marche;
    for (std::uint64_t i = 0; i < 4000; ++i)  // an hour from each to the next: a turn after 1193
        marche.push_back(static_cast<std::uint32_t>(i * 3600000));
    const Byte campioni = con_marche(marche);
    TabellaRecord tabella(canali, std::nullopt, con_orario(KEL_ORARIO_U32MS));
    for (std::size_t da = 0; da < campioni.size(); da += 5 * 500)
        tabella.spingi(std::span(campioni).subspan(da, 5 * 500));
    ASSERT_EQ(tabella.prima(), 3500u);
    ASSERT_EQ(tabella.righe(), 500u);
    EXPECT_EQ(tabella.secondi(3999), 3999 * 3600.0);
    EXPECT_EQ(tabella.secondi(3500), 3500 * 3600.0) << "asked backwards";
}

TEST(RecordTimes, OfMicrosecondsAreTheirStamps) {
    const Byte canali = un_byte();
    const Byte campioni = con_marche<std::uint64_t>(
        {0, 1500000, 0xFFFFFFFFFFu, 0x7FFFFFFFFFFFFFFFu, 0x8000000000000000u, 0xFFFFFFFFFFFFFFFFu, 3});
    TabellaRecord tabella(canali, campioni, con_orario(KEL_ORARIO_U64US));
    EXPECT_EQ(tabella.microsecondi(0), 0);
    EXPECT_EQ(tabella.microsecondi(1), 1500000);
    EXPECT_EQ(tabella.secondi(1), 1.5);
    EXPECT_EQ(tabella.microsecondi(2), 0xFFFFFFFFFF);
    EXPECT_EQ(tabella.microsecondi(3), std::numeric_limits<std::int64_t>::max());
    EXPECT_FALSE(tabella.microsecondi(4)) << "more than 63 bits";
    EXPECT_FALSE(tabella.microsecondi(5));
    EXPECT_DOUBLE_EQ(tabella.secondi(5), 18446744073709.551615);
    EXPECT_EQ(tabella.microsecondi(6), 3) << "no counter that begins anew";
}

TEST(RecordTimes, OfARateAreItsMultiples) {
    const Byte canali = un_byte();
    const Byte campioni(10);
    s_kel_apertura apertura{};
    apertura.frequenza = 3;
    TabellaRecord tabella(canali, campioni, apertura);
    EXPECT_TRUE(tabella.con_tempo());
    EXPECT_EQ(tabella.orario(), KEL_ORARIO_NESSUNO);
    EXPECT_EQ(tabella.microsecondi(0), 0);
    EXPECT_EQ(tabella.microsecondi(1), 333333);
    EXPECT_EQ(tabella.microsecondi(2), 666667);
    EXPECT_EQ(tabella.secondi(6), 2);
    apertura.frequenza = 0.001;
    TabellaRecord lenta(canali, campioni, apertura);
    EXPECT_EQ(lenta.secondi(9), 9000);
    EXPECT_EQ(lenta.microsecondi(9000000000), 9000000000000000000);
    EXPECT_FALSE(lenta.microsecondi(9200000000)) << "about as much as 63 bits hold";
    apertura.frequenza = 1000000;
    TabellaRecord veloce(canali, campioni, apertura);
    EXPECT_EQ(veloce.microsecondi(9), 9);
    TabellaRecord senza(canali, campioni, con_orario(KEL_ORARIO_NESSUNO));
    EXPECT_FALSE(senza.con_tempo());
}

// What is told of a stream whose bytes come one by one.
std::size_t byte_prima_delle_righe(const Byte& canali, const s_kel_apertura& apertura, const Byte& record) {
    TabellaRecord tabella(canali, std::nullopt, apertura);
    EXPECT_EQ(tabella.orario(), KEL_ORARIO_TROVATO);
    std::size_t quanti = 0;
    while (tabella.righe() == 0 && quanti < record.size()) {
        EXPECT_FALSE(tabella.con_tempo());
        EXPECT_EQ(tabella.avanzo(), quanti);
        tabella.spingi(std::span(record).subspan(quanti++, 1));
    }
    EXPECT_EQ(tabella.righe(), quanti / tabella.passo());
    return quanti;
}

TEST(RecordStreams, KnowTheirFramingAfterThirtyTwoRecordsOfTheWidestStamp) {
    const Byte canali = un_byte();
    Byte campioni;
    for (std::uint32_t i = 0; i < 2000; ++i) {
        aggiungi(campioni, i * 40);
        campioni.push_back(1);
    }
    EXPECT_EQ(byte_prima_delle_righe(canali, {}, campioni), 32u * 9);
    s_kel_apertura lunga{};
    lunga.lunghezza = campioni.size();
    EXPECT_EQ(byte_prima_delle_righe(canali, lunga, campioni), 1024u * 9)
        << "a length that is known is worth a longer look";
}

TEST(RecordStreams, OfLongRecordsKnowTheirFramingAfterFourMiBOrFourRecords) {
    for (const auto& [record, testa] : {std::pair{1U << 19, 1U << 22}, std::pair{1U << 20, 4 * ((1U << 20) + 8)}}) {
        Byte canali = un_byte();
        fatti::metti(canali, 72, record);
        const Byte campioni(testa);
        TabellaRecord tabella(canali, std::nullopt, {});
        tabella.spingi(std::span(campioni).first(testa - 1));
        EXPECT_EQ(tabella.passo(), 0u) << record;
        tabella.spingi(std::span(campioni).last(1));
        EXPECT_EQ(tabella.passo(), record);
        EXPECT_EQ(tabella.righe(), testa / record);
        EXPECT_EQ(tabella.detto(), "time stamps: none, as nothing runs forward in even steps");
    }
}

TEST(RecordStreams, WhoseFramingIsNotFoundEndThere) {
    Byte canali = un_byte();
    fatti::metti(canali, 72, std::uint32_t{2});
    s_kel_apertura apertura{};
    apertura.lunghezza = 1;  // a lie: no whole number of records under any framing
    TabellaRecord tabella(canali, std::nullopt, apertura);
    const Byte molti(1024 * 10, 7);
    const std::string perche = rifiuto([&] { tabella.spingi(molti); });
    EXPECT_EQ(perche.substr(0, 72), "the framing of the samples is not clear: none fits (1 byte); orario may ");
    EXPECT_EQ(rifiuto([&] { tabella.spingi(molti); }), "the stream has ended");
    EXPECT_EQ(rifiuto([&] { tabella.fine(); }), "the stream has ended");
    EXPECT_EQ(tabella.righe(), 0u);
}

TEST(RecordStreams, ThatEndEarlyAreFramedThen) {
    const Byte canali = un_byte();
    TabellaRecord vuota(canali, std::nullopt, {});
    vuota.fine();
    EXPECT_EQ(vuota.righe(), 0u);
    EXPECT_EQ(vuota.detto(), "") << "there is nothing to say of no bytes";
    EXPECT_EQ(rifiuto([&] { vuota.fine(); }), "the stream has ended");
    TabellaRecord corta(canali, std::nullopt, {});
    corta.spingi(con_marche<std::uint32_t>({0, 40, 80, 120}));
    EXPECT_EQ(corta.righe(), 0u);
    corta.fine();
    EXPECT_EQ(corta.righe(), 4u);
    EXPECT_EQ(corta.detto(), "time stamps: u32ms, every 40 ms");
    EXPECT_EQ(tempi(corta), (std::vector<double>{0, 0.04, 0.08, 0.12}));
    const Byte campioni(10);
    TabellaRecord data(canali, campioni, {});
    EXPECT_EQ(rifiuto([&] { data.fine(); }), "the stream has ended");
    EXPECT_EQ(rifiuto([&] { data.spingi(campioni); }), "the samples were given when the recording was opened");
}

TEST(RecordStreams, KeepTheBytesOfTheLastRecordForTheNextPiece) {
    const Byte canali = un_byte();
    TabellaRecord tabella(canali, std::nullopt, con_orario(KEL_ORARIO_U32MS));
    const Byte campioni = con_marche<std::uint32_t>(std::vector<std::uint32_t>(70, 7));
    tabella.spingi(std::span(campioni).first(302));
    EXPECT_EQ(tabella.righe(), 60u);
    EXPECT_EQ(tabella.avanzo(), 2u);
    EXPECT_STREQ(tabella.avanzo_detto(),
                 "302 bytes are no whole number of records of 5 bytes: 60 records and 2 bytes over");
    tabella.spingi(std::span(campioni).subspan(302, 2));
    EXPECT_EQ(tabella.prima(), 60u);
    EXPECT_EQ(tabella.righe(), 0u);
    EXPECT_EQ(tabella.avanzo(), 4u);
    EXPECT_STREQ(tabella.avanzo_detto(),
                 "304 bytes are no whole number of records of 5 bytes: 60 records and 4 bytes over");
    tabella.spingi(std::span(campioni).subspan(304));
    EXPECT_EQ(tabella.prima(), 60u);
    EXPECT_EQ(tabella.righe(), 10u);
    EXPECT_EQ(tabella.avanzo(), 0u);
    EXPECT_EQ(tempi(tabella), std::vector<double>(10, 0.007));
    tabella.fine();
    EXPECT_EQ(tabella.prima(), 70u) << "none that was at hand already";
    EXPECT_EQ(tabella.righe(), 0u);
}

TEST(RecordChoices, TakeRatesUpToTheirEnds) {
    const Byte canali = un_byte();
    const Byte campioni(9);
    const auto detto = [&](eKelOrario orario, double frequenza) {
        s_kel_apertura apertura = con_orario(orario);
        apertura.frequenza = frequenza;
        return rifiuto([&] { TabellaRecord(canali, campioni, apertura); });
    };
    EXPECT_EQ(detto(KEL_ORARIO_TROVATO, 0.001), "taken");
    EXPECT_EQ(detto(KEL_ORARIO_NESSUNO, 1000000), "taken");
    EXPECT_EQ(detto(KEL_ORARIO_TROVATO, -0.001),
              "frequenza is no rate; accepted: records a second, 0.001 to 1000000, or 0");
    EXPECT_EQ(detto(static_cast<eKelOrario>(4), 25), "orario and frequenza exclude each other; accepted: one of them");
}

TEST(RecordChoices, ChannelSetsEndAt65536) {
    const auto detto = [](std::size_t quanti) {
        Byte canali(quanti * 112);
        fatti::metti(canali, 20, std::uint32_t{255});
        canali[32] = 'n';
        return rifiuto([&] { TabellaRecord(canali, std::nullopt, {}); });
    };
    EXPECT_EQ(detto(65537), "it is longer than 65536 channel records");
    EXPECT_EQ(detto(65536).substr(0, 38), "channel 1 ('n') has sample type 255; k") << "as many as an index holds";
}

TEST(RecordChoices, RecordsEndAtAMebibyte) {
    Byte canali = un_byte();
    fatti::metti(canali, 72, (std::uint32_t{1} << 20) + 1);
    EXPECT_EQ(rifiuto([&] { TabellaRecord(canali, std::nullopt, {}); }),
              "the channels ask for records of 1048577 bytes, more than 1048576; compatta goes by their sample types "
              "instead");
}

TEST(RecordChoices, TheFramingThatIsAskedForIsThatOfTheTable) {
    const Byte canali = un_byte();
    const Byte campioni(45);
    EXPECT_EQ(TabellaRecord(canali, campioni, con_orario(KEL_ORARIO_U64US)).orario(), KEL_ORARIO_U64US);
    EXPECT_EQ(TabellaRecord(canali, campioni, con_orario(KEL_ORARIO_U32MS)).orario(), KEL_ORARIO_U32MS);
    EXPECT_EQ(TabellaRecord(canali, campioni, con_orario(KEL_ORARIO_NESSUNO)).orario(), KEL_ORARIO_NESSUNO);
    TabellaRecord senza(canali, std::nullopt, con_orario(KEL_ORARIO_NESSUNO));
    senza.spingi(Byte(300));
    senza.spingi(Byte(7));
    EXPECT_EQ(senza.prima(), 300u);
    EXPECT_EQ(senza.righe(), 7u);
}

// Two GPS packets and a number, read in any order at once.
TEST(RecordColumns, OfTwoGpsPacketsAreEachItsOwn) {
    constexpr kel_funpos NAVSOL = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, FID_SPEC_GPS_UBXNAVSOL);
    Byte canali = canale(NAVSOL, KEL_TIPO_GPS_NAVSOL, "A");
    fatti::canale(canali, GIRI, KEL_TIPO_UINT8, "n");
    fatti::canale(canali, NAVSOL, KEL_TIPO_GPS_NAVSOL, "B");
    Byte campioni(2 * 105);
    for (std::size_t riga = 0; riga < 2; ++riga) {
        campioni[riga * 105 + 47] = static_cast<std::uint8_t>(5 + riga);  // satellites
        campioni[riga * 105 + 10] = 3;                                    // fix
        campioni[riga * 105 + 52] = static_cast<std::uint8_t>(200 + riga);
        campioni[riga * 105 + 53 + 47] = static_cast<std::uint8_t>(9 + riga);
    }
    TabellaRecord tabella(canali, campioni, con_orario(KEL_ORARIO_NESSUNO));
    const auto indice = [&](const char* nome) {
        const auto& voci = tabella.voci();
        return static_cast<unsigned>(std::ranges::find(voci, nome, &VoceColonna::nome) - voci.begin());
    };
    std::array<std::uint32_t, 2> satelliti_b{};
    std::array<std::uint32_t, 2> satelliti_a{};
    std::array<std::uint32_t, 2> fix_a{};
    std::array<float, 2> numeri{};
    const s_kel_lettura letture[] = {{indice("B Sats Number"), satelliti_b.data(), nullptr, nullptr},
                                     {indice("A Sats Number"), satelliti_a.data(), nullptr, nullptr},
                                     {indice("n"), numeri.data(), nullptr, nullptr},
                                     {indice("A GPS Fix"), fix_a.data(), nullptr, nullptr}};
    tabella.leggi(0, 2, letture);
    EXPECT_EQ(satelliti_b, (std::array<std::uint32_t, 2>{9, 10}));
    EXPECT_EQ(satelliti_a, (std::array<std::uint32_t, 2>{5, 6}));
    EXPECT_EQ(fix_a, (std::array<std::uint32_t, 2>{3, 3}));
    EXPECT_EQ(numeri, (std::array<float, 2>{200, 201}));
}

TEST(RecordColumns, TakeTheUnitsThatTheirNumbersHave) {
    Byte canali = canale(KEL_FID_GPS_PACCHETTO, KEL_TIPO_GPS_KEL, "GPS");
    fatti::canale(canali, KEL_FID_GPS_LATITUDINE, KEL_TIPO_COORDINATA, "As it comes");
    fatti::canale(canali, KEL_FID_GPS_LATITUDINE, KEL_TIPO_FLOAT, "In degrees");
    fatti::canale(canali, 0, KEL_TIPO_INT16, "No function");
    const Byte campioni(66);
    TabellaRecord tabella(canali, campioni, con_orario(KEL_ORARIO_NESSUNO));
    const auto mostra = [&](const char* nome, const char* udm) {
        const auto& voci = tabella.voci();
        return tabella.mostra_in(
            static_cast<std::size_t>(std::ranges::find(voci, nome, &VoceColonna::nome) - voci.begin()), udm);
    };
    EXPECT_TRUE(mostra("GPS Speed", "mph"));
    EXPECT_FALSE(mostra("GPS Speed", "deg"));
    EXPECT_FALSE(mostra("Latitude", "deg")) << "it has no other";
    EXPECT_FALSE(mostra("As it comes", "deg")) << "its numbers are no degrees";
    EXPECT_TRUE(mostra("In degrees", "deg"));
    EXPECT_FALSE(mostra("No function", "deg"));
    EXPECT_TRUE(mostra("No function", ""));
}

}  // namespace
