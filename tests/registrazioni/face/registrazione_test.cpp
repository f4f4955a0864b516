// Recordings through the C face: what one call a sample gives, in columns.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "kelregistrazioni.h"
#include "prova.h"
#include "registrazioni/recordings/fatti.h"

namespace {

using namespace prova;

constexpr std::size_t RECORD = 300;

// All that a column has to say of some rows.
struct Righe {
    std::vector<double> valori;
    std::vector<bool> validi;
    std::vector<std::string> testi;
    bool operator==(const Righe&) const = default;
};

template <typename Valore>
std::vector<double> come_double(const std::vector<double>& memoria, std::size_t quante) {
    const auto* valori = reinterpret_cast<const Valore*>(memoria.data());
    return {valori, valori + quante};
}

Righe leggi(s_kel_registrazione* reg, unsigned colonna, std::uint64_t da, std::size_t quante) {
    s_kel_descrizione descrizione{};
    EXPECT_EQ(kelRegDescrivi(reg, colonna, &descrizione), 1);
    std::vector<double> valori(quante);
    std::vector<unsigned char> validi((quante + 7) / 8);
    std::vector<char> testi(quante * 32);
    const s_kel_lettura lettura{colonna, valori.data(), validi.data(), testi.data()};
    EXPECT_EQ(kelRegLeggi(reg, da, quante, &lettura, 1), 1);
    Righe righe;
    switch (descrizione.valori) {
        case KEL_VALORI_FLOAT:
            righe.valori = come_double<float>(valori, quante);
            break;
        case KEL_VALORI_UINT32:
            righe.valori = come_double<std::uint32_t>(valori, quante);
            break;
        case KEL_VALORI_ISTANTE:
            righe.valori = come_double<std::int64_t>(valori, quante);
            break;
        default:
            righe.valori = valori;
    }
    for (std::size_t i = 0; i < quante; ++i) {
        righe.validi.push_back((validi[i / 8] >> i % 8 & 1) != 0);
        righe.testi.emplace_back(testi.data() + i * 32);
    }
    return righe;
}

// A packet of the date and time has no numbers, and its text is the same for all.
TEST(Recordings, TellOfPacketsThatHaveNoColumn) {
    const kel_funpos data = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_DATETIME, 0);
    auto canali = fatti::canale(kelFidComponi(FID_PHI_SPEED, 0, FID_POS_WHEEL), 1, "Speed");
    fatti::canale(canali, data, KEL_TIPO_DATA_ORA, "Date");
    fatti::canale(canali, data, KEL_TIPO_DATA_ORA, "Clock");
    const std::size_t record = 2 + 2 * kelFunGetSamplSize(KEL_TIPO_DATA_ORA);
    const fatti::Byte campioni(10 * record);
    s_kel_apertura apertura{};
    apertura.orario = KEL_ORARIO_NESSUNO;
    const auto detto = [&] {
        const Registrazione reg(
            kelRegApri(canali.data(), canali.size(), campioni.data(), campioni.size(), &apertura, nullptr));
        return reg ? std::to_string(kelRegNumColonne(reg.get())) + " " + kelRegDetto(reg.get()) : "refused";
    };
    EXPECT_EQ(detto(), "1 no column for 'Date', 'Clock'");
    apertura.pacchetti = 1;
    EXPECT_EQ(detto(), "3 ");
    apertura = {};
    EXPECT_EQ(detto(), "1 time stamps: none, as nothing runs forward in even steps; no column for 'Date', 'Clock'");
}

TEST(Recordings, HaveAColumnForEachChannelAndSubfield) {
    const Kart kart;
    const Byte campioni = kart.campioni(RECORD);
    const Registrazione reg = apri(kart.canali(), campioni);
    ASSERT_TRUE(reg);
    EXPECT_EQ(kelRegRighe(reg.get()), RECORD);
    EXPECT_EQ(kelRegOrario(reg.get()), KEL_ORARIO_U32MS);
    EXPECT_STREQ(kelRegDetto(reg.get()), "time stamps: u32ms, every 40 ms");
    EXPECT_EQ(kelRegAvanzo(reg.get()), 0u);
    s_kel_descrizione d{};
    ASSERT_EQ(kelRegDescrivi(reg.get(), 0, &d), 1);
    EXPECT_STREQ(d.nome, "Wheel Speed");
    EXPECT_STREQ(d.udm, "km/h");
    EXPECT_EQ(d.fid, kelFidComponi(FID_PHI_SPEED, 0, FID_POS_WHEEL));
    EXPECT_EQ(d.valori, KEL_VALORI_FLOAT);
    for (const char* nome : {"RPM", "Latitude", "Longitude", "UTC", "GPS Fix", "GPS Speed", "Lap Time", "Lap Number"})
        EXPECT_LT(colonna(reg.get(), nome), kelRegNumColonne(reg.get())) << nome;
    EXPECT_EQ(kelRegDescrivi(reg.get(), kelRegNumColonne(reg.get()), &d), 0);
}

TEST(Recordings, GiveWhatOneCallASampleGives) {
    const Kart kart;
    const Byte campioni = kart.campioni(RECORD);
    const Registrazione reg = apri(kart.canali(), campioni);
    const std::size_t passo = kart.dimensione() + 4;
    s_kel_canale canale{};
    canale.fid = kelFidComponi(FID_PHI_RPM, 0, FID_POS_ENGINE);
    canale.tipo_campione = KEL_TIPO_INT16;
    canale.offset_campione = 2;
    s_kel_converter conv{};
    conv.larghezza = 8;
    kelConvInit(&conv, &canale, canale.fid, kelFunGetConvData(canale.fid, "rpm"), 0, 0, 0);
    const Righe righe = leggi(reg.get(), colonna(reg.get(), "RPM"), 0, RECORD);
    unsigned senza = 0;
    for (std::size_t i = 0; i < RECORD; ++i) {
        const std::uint8_t* record = campioni.data() + i * passo + 4;
        std::uint32_t stato = 0;
        EXPECT_EQ(righe.valori[i], static_cast<double>(conv.valore(&conv, record + 2, &stato)));
        EXPECT_EQ(righe.validi[i], stato == 0);
        senza += stato != 0;
        char testo[32];
        kelConvGetString(&conv, record, testo);
        EXPECT_EQ(righe.testi[i], testo);
    }
    EXPECT_EQ(senza, RECORD / 7 + 1) << "the reserved values are not numbers";
}

TEST(Recordings, ShowAGpsPacketInWgs84) {
    const Kart kart;
    const Byte campioni = kart.campioni(RECORD);
    const Registrazione reg = apri(kart.canali(), campioni);
    const Righe latitudini = leggi(reg.get(), colonna(reg.get(), "Latitude"), 0, 10);
    const Righe fix = leggi(reg.get(), colonna(reg.get(), "GPS Fix"), 0, 10);
    const Righe utc = leggi(reg.get(), colonna(reg.get(), "UTC"), 0, 10);
    EXPECT_NEAR(latitudini.valori[0], 44.5, 0.3);
    EXPECT_TRUE(latitudini.validi[0]);
    EXPECT_FALSE(latitudini.validi[4]) << "no fix";
    EXPECT_EQ(latitudini.valori[4], 0) << "where there is none it is 0";
    EXPECT_EQ(latitudini.testi[4], "");
    EXPECT_EQ(fix.valori[4], 0);
    EXPECT_TRUE(fix.validi[4]) << "that there is no fix is known";
    EXPECT_EQ(utc.testi[0], "2025-06-11T23:59:42.000Z");
    EXPECT_EQ(utc.valori[0], 1749686382e6);
}

TEST(Recordings, ReadRangesAndOtherUnits) {
    const Kart kart;
    const Byte campioni = kart.campioni(RECORD);
    const Registrazione reg = apri(kart.canali(), campioni);
    const Righe tutte = leggi(reg.get(), 0, 0, RECORD);
    const Righe meta = leggi(reg.get(), 0, 100, 50);
    EXPECT_TRUE(std::equal(meta.valori.begin(), meta.valori.end(), tutte.valori.begin() + 100));
    EXPECT_EQ(kelRegUnita(reg.get(), 0, "furlong"), 0);
    EXPECT_EQ(kelRegUnita(reg.get(), 0, "mph"), 1);
    EXPECT_NEAR(leggi(reg.get(), 0, 100, 1).valori[0], tutte.valori[100] * 0.621371, 1e-4);
    s_kel_descrizione d{};
    kelRegDescrivi(reg.get(), 0, &d);
    EXPECT_STREQ(d.udm, "mph");
    s_kel_lettura lettura{0, nullptr, nullptr, nullptr};
    EXPECT_EQ(kelRegLeggi(reg.get(), RECORD, 0, &lettura, 1), 1) << "no rows behind the last";
    EXPECT_EQ(kelRegLeggi(reg.get(), RECORD - 1, 2, &lettura, 1), 0);
    EXPECT_EQ(kelRegLeggi(reg.get(), 1, SIZE_MAX, &lettura, 1), 0);
    lettura.colonna = kelRegNumColonne(reg.get());
    EXPECT_EQ(kelRegLeggi(reg.get(), 0, 1, &lettura, 1), 0);
}

TEST(Recordings, KnowTheirTimesAlsoWhereTheCounterBeginsAnew) {
    const Kart kart;
    const Byte campioni = kart.campioni(RECORD, 0xFFFFFFFF - 4000);
    const Registrazione reg = apri(kart.canali(), campioni);
    std::vector<double> tempi(RECORD);
    ASSERT_EQ(kelRegTempi(reg.get(), 0, RECORD, tempi.data()), 1);
    for (std::size_t i = 0; i < RECORD; ++i)
        EXPECT_DOUBLE_EQ(tempi[i], (4294967295.0 - 4000 + 40.0 * static_cast<double>(i)) / 1000);
    double uno = 0;
    ASSERT_EQ(kelRegTempi(reg.get(), 3, 1, &uno), 1);
    EXPECT_DOUBLE_EQ(uno, tempi[3]) << "asked backwards";
    std::uint64_t prima = 0;
    std::uint64_t quante = 0;
    ASSERT_EQ(kelRegTratto(reg.get(), tempi[20], tempi[50], &prima, &quante), 1);
    EXPECT_EQ(prima, 20u);
    EXPECT_EQ(quante, 30u);
    EXPECT_EQ(kelRegTratto(reg.get(), 0, 1, &prima, &quante), 0);
}

TEST(Recordings, PushedInPiecesAreWhatTheyAreInMemory) {
    const Kart kart;
    Byte campioni = kart.campioni(RECORD, 0xFFFFFFFF - 4000);
    campioni.resize(campioni.size() - 10);  // the last record is cut off
    const Registrazione intera = apri(kart.canali(), campioni);
    ASSERT_TRUE(intera);
    EXPECT_EQ(kelRegRighe(intera.get()), RECORD - 1);
    std::vector<double> tempi(RECORD - 1);
    kelRegTempi(intera.get(), 0, RECORD - 1, tempi.data());
    for (const std::size_t pezzo : {1U, 7U, 100U, 4096U, 1U << 20}) {
        s_kel_errore errore{};
        const Registrazione reg(kelRegApri(kart.canali().data(), kart.canali().size(), nullptr, 0, nullptr, &errore));
        ASSERT_TRUE(reg) << errore.testo;
        std::uint64_t lette = 0;
        for (std::size_t da = 0; da <= campioni.size(); da += pezzo) {
            const std::size_t quanti = std::min(pezzo, campioni.size() - da);
            ASSERT_EQ(kelRegSpingi(reg.get(), campioni.data() + da, quanti, &errore), 1) << errore.testo;
            const auto righe = static_cast<std::size_t>(kelRegRighe(reg.get()));
            ASSERT_EQ(kelRegPrima(reg.get()), lette);
            for (const unsigned colonna : {0u, 1u, 5u, 8u})
                EXPECT_EQ(leggi(reg.get(), colonna, lette, righe), leggi(intera.get(), colonna, lette, righe));
            std::vector<double> suoi(righe);
            ASSERT_EQ(righe == 0 || kelRegTempi(reg.get(), lette, righe, suoi.data()) == 1, true);
            EXPECT_TRUE(std::equal(suoi.begin(), suoi.end(), tempi.begin() + static_cast<std::ptrdiff_t>(lette)));
            lette += righe;
        }
        if (campioni.size() % pezzo != 0) {
            ASSERT_EQ(kelRegSpingi(reg.get(), nullptr, 0, &errore), 1) << errore.testo;
            lette += kelRegRighe(reg.get());
        }
        EXPECT_EQ(lette, RECORD - 1) << pezzo;
        EXPECT_EQ(kelRegAvanzo(reg.get()), kelRegAvanzo(intera.get()));
        EXPECT_EQ(kelRegSpingi(reg.get(), campioni.data(), 1, &errore), 0) << "it has ended";
        EXPECT_STREQ(errore.testo, "the stream has ended");
    }
}

TEST(Recordings, SayWhatIsWrong) {
    const Kart kart;
    const Byte campioni = kart.campioni(3);
    const auto detto = [&](const Byte& canali, const Byte& dati, const s_kel_apertura& apertura) {
        s_kel_errore errore{};
        const Registrazione reg(kelRegApri(canali.data(), canali.size(), dati.data(), dati.size(), &apertura, &errore));
        return std::string(reg ? "opened" : errore.testo);
    };
    const s_kel_apertura nulla{};
    EXPECT_EQ(detto({}, campioni, nulla), "there are no channels in it");
    EXPECT_EQ(detto(Byte(111), campioni, nulla), "111 bytes are no channel records, which have 112 bytes each");
    EXPECT_EQ(detto(Byte(112), campioni, nulla),
              "the channels ask for no bytes of samples; compatta goes by their sample types instead");
    Byte fuori = kart.canali();
    fuori[68] = 0xFF;
    EXPECT_EQ(detto(fuori, campioni, nulla),
              "channel 1 ('Wheel Speed') has its sample at bytes 255 to 257 of a record of 96; compatta goes by the "
              "sample types instead");
    s_kel_apertura chiesto{};
    chiesto.orario = KEL_ORARIO_U64US;
    EXPECT_EQ(detto(kart.canali(), campioni, chiesto),
              "300 bytes are no whole number of records of 104 bytes: 2 records and 92 bytes over; orario u32ms: 3 "
              "records of 100 bytes, every 40 ms");
    chiesto.frequenza = -1;
    EXPECT_EQ(detto(kart.canali(), campioni, chiesto),
              "frequenza is no rate; accepted: records a second, 0.001 to 1000000, or 0");
    chiesto.frequenza = NAN;
    EXPECT_NE(detto(kart.canali(), campioni, chiesto), "opened");
    EXPECT_EQ(kelRegApri(nullptr, 0, nullptr, 0, nullptr, nullptr), nullptr) << "nobody asks why";
}

TEST(Recordings, WithoutStampsHaveTheTimesOfARate) {
    const Kart kart;
    const Byte con = kart.campioni(20);
    Byte campioni;
    for (std::size_t i = 0; i < con.size(); i += kart.dimensione() + 4)
        campioni.insert(campioni.end(), con.begin() + static_cast<std::ptrdiff_t>(i + 4),
                        con.begin() + static_cast<std::ptrdiff_t>(i + 4 + kart.dimensione()));
    s_kel_apertura apertura{};
    const Registrazione senza = apri(kart.canali(), campioni, apertura);
    double tempo = 0;
    EXPECT_EQ(kelRegTempi(senza.get(), 3, 1, &tempo), 0);
    apertura.frequenza = 25;
    const Registrazione reg = apri(kart.canali(), campioni, apertura);
    ASSERT_EQ(kelRegTempi(reg.get(), 3, 1, &tempo), 1);
    EXPECT_DOUBLE_EQ(tempo, 0.12);
}

TEST(Recordings, TellTheirChannels) {
    const Kart kart;
    const Byte campioni = kart.campioni(3);
    const Registrazione reg = apri(kart.canali(), campioni);
    ASSERT_EQ(kelRegNumCanali(reg.get()), 5u);
    s_kel_canale canale{};
    EXPECT_STREQ(kelRegCanale(reg.get(), 0, &canale), "Wheel Speed");
    EXPECT_EQ(canale.fid, kelFidComponi(FID_PHI_SPEED, 0, FID_POS_WHEEL));
    EXPECT_EQ(canale.tipo_campione, KEL_TIPO_MEZZO_FLOAT);
    EXPECT_STREQ(kelRegCanale(reg.get(), 1, &canale), "RPM");
    EXPECT_EQ(canale.offset_campione, 2u);
    EXPECT_STREQ(kelRegCanale(reg.get(), 4, nullptr), "Lap") << "the name alone";
    EXPECT_EQ(kelRegCanale(reg.get(), 5, &canale), nullptr);
    EXPECT_EQ(canale.offset_campione, 2u) << "not touched";
    EXPECT_EQ(kelRegPasso(reg.get()), kart.dimensione() + 4);
    EXPECT_EQ(kelRegConteggi(reg.get(), nullptr), 0) << "no u-blox stream";
    EXPECT_EQ(kelRegMessaggi(reg.get(), nullptr, 0), 0u);
    EXPECT_EQ(kelRegNavSol(reg.get(), 0, nullptr), 0);
}

TEST(Recordings, ChannelsLieWhereTheyAreReadFrom) {
    const Kart kart;
    Byte canali = kart.canali();
    canali[112 + 68] = 77;  // the second channel's offset, which is not believed
    Byte campioni = kart.campioni(3);
    s_kel_apertura apertura{};
    apertura.compatta = 1;
    const Registrazione reg = apri(canali, campioni, apertura);
    ASSERT_TRUE(reg);
    s_kel_canale canale{};
    EXPECT_STREQ(kelRegCanale(reg.get(), 1, &canale), "RPM");
    EXPECT_EQ(canale.offset_campione, 2u);
    EXPECT_EQ(canale.dim_buffer, 2u);
}

TEST(Recordings, ChannelsWithoutALongNameHaveTheShortOneOrTheirFunctions) {
    const Kart kart;
    Byte canali = kart.canali();
    std::fill_n(canali.begin() + 32, 36, std::uint8_t{0});
    const Byte campioni = kart.campioni(3);
    EXPECT_STREQ(kelRegCanale(apri(canali, campioni).get(), 0, nullptr), "Wheel Spd");
    std::memcpy(canali.data() + offsetof(s_kel_canale, breve), "WSp", 3);
    EXPECT_STREQ(kelRegCanale(apri(canali, campioni).get(), 0, nullptr), "WSp");
}

TEST(Recordings, SayWhatIsOver) {
    const Kart kart;
    Byte campioni = kart.campioni(5);
    EXPECT_STREQ(kelRegAvanzoDetto(apri(kart.canali(), campioni).get()), "");
    campioni.resize(campioni.size() - 30);
    const Registrazione reg = apri(kart.canali(), campioni);
    EXPECT_EQ(kelRegAvanzo(reg.get()), 70u);
    EXPECT_STREQ(kelRegAvanzoDetto(reg.get()),
                 "470 bytes are no whole number of records of 100 bytes: 4 records and 70 bytes over");
    const Registrazione flusso(kelRegApri(kart.canali().data(), kart.canali().size(), nullptr, 0, nullptr, nullptr));
    EXPECT_STREQ(kelRegAvanzoDetto(flusso.get()), "");
    ASSERT_EQ(kelRegSpingi(flusso.get(), campioni.data(), campioni.size(), nullptr), 1);
    EXPECT_EQ(kelRegPasso(flusso.get()), 0u) << "the framing is not known yet";
    EXPECT_STREQ(kelRegAvanzoDetto(flusso.get()), "") << "nor is what is part of a record";
    ASSERT_EQ(kelRegSpingi(flusso.get(), nullptr, 0, nullptr), 1);
    EXPECT_STREQ(kelRegAvanzoDetto(flusso.get()), kelRegAvanzoDetto(reg.get()));
}

TEST(Recordings, CallTheChoicesByTheWordsOfTheCaller) {
    const Kart kart;
    const s_kel_parole parole{"--framing", "--packed", nullptr, nullptr, nullptr};
    s_kel_apertura apertura{};
    apertura.parole = &parole;
    s_kel_errore errore{};
    EXPECT_EQ(kelRegApri(Byte(112).data(), 112, "", 0, &apertura, &errore), nullptr);
    EXPECT_STREQ(errore.testo, "the channels ask for no bytes of samples; --packed goes by their sample types instead");
    const Byte campioni = kart.campioni(3);
    apertura.orario = KEL_ORARIO_U64US;
    EXPECT_EQ(
        kelRegApri(kart.canali().data(), kart.canali().size(), campioni.data(), campioni.size(), &apertura, &errore),
        nullptr);
    EXPECT_NE(std::string(errore.testo).find("--framing u32ms"), std::string::npos) << errore.testo;
}

TEST(Recordings, RefuseChoicesThatAreNone) {
    const Kart kart;
    const Byte campioni = kart.campioni(3);
    const auto detto = [&](eKelOrario orario, double frequenza) {
        s_kel_apertura apertura{};
        apertura.orario = orario;
        apertura.frequenza = frequenza;
        s_kel_errore errore{};
        const Registrazione reg(kelRegApri(kart.canali().data(), kart.canali().size(), campioni.data(), campioni.size(),
                                           &apertura, &errore));
        return std::string(reg ? "opened" : errore.testo);
    };
    const std::string esclusi = "orario and frequenza exclude each other; accepted: one of them";
    EXPECT_EQ(detto(KEL_ORARIO_U32MS, 25), esclusi);
    EXPECT_EQ(detto(KEL_ORARIO_U64US, 25), esclusi);
    EXPECT_EQ(detto(static_cast<eKelOrario>(4), 0), "orario is no framing; accepted: 0 to 3");
    const std::string nessuna = "frequenza is no rate; accepted: records a second, 0.001 to 1000000, or 0";
    EXPECT_EQ(detto(KEL_ORARIO_NESSUNO, 0.0009), nessuna);
    EXPECT_EQ(detto(KEL_ORARIO_NESSUNO, 1000001), nessuna);
    EXPECT_EQ(detto(KEL_ORARIO_TROVATO, INFINITY), nessuna);
    s_kel_errore errore{};
    const Registrazione flusso(kelRegApri(kart.canali().data(), kart.canali().size(), nullptr, 0, nullptr, nullptr));
    EXPECT_EQ(kelRegSpingi(flusso.get(), nullptr, 5, &errore), 0);
    EXPECT_STREQ(errore.testo, "there are no bytes where 5 are announced");
    const Registrazione intera = apri(kart.canali(), campioni);
    EXPECT_EQ(kelRegSpingi(intera.get(), campioni.data(), 5, &errore), 0);
    EXPECT_STREQ(errore.testo, "the samples were given when the recording was opened");
}

TEST(Recordings, AnErrorIsCutToItsLine) {
    Byte canali = Kart().canali();
    canali.resize(112);
    canali[68] = 0xFF;
    const std::string parola(1000, 'p');
    const s_kel_parole parole{nullptr, parola.c_str(), nullptr, nullptr, nullptr};
    s_kel_apertura apertura{};
    apertura.parole = &parole;
    struct {
        s_kel_errore errore;
        char oltre = 'x';
    } luogo{};
    EXPECT_EQ(kelRegApri(canali.data(), canali.size(), "", 0, &apertura, &luogo.errore), nullptr);
    EXPECT_EQ(std::strlen(luogo.errore.testo), sizeof luogo.errore.testo - 1);
    EXPECT_EQ(luogo.oltre, 'x');
}

TEST(Recordings, AnErrorIsNotTouchedWhenAllGoesWell) {
    const Kart kart;
    const Byte campioni = kart.campioni(3);
    s_kel_errore errore{};
    std::strcpy(errore.testo, "as before");
    const Registrazione reg(
        kelRegApri(kart.canali().data(), kart.canali().size(), campioni.data(), campioni.size(), nullptr, &errore));
    ASSERT_TRUE(reg);
    EXPECT_STREQ(errore.testo, "as before");
}

TEST(Recordings, NullIsClosed) {
    kelRegChiudi(nullptr);
    kelGiriChiudi(nullptr);
}

TEST(Recordings, KnowThePacketsOfFunctions) {
    EXPECT_EQ(kelRegTipoPacchetto(KEL_FID_GPS_PACCHETTO), KEL_TIPO_GPS_KEL);
    EXPECT_EQ(kelRegTipoPacchetto(kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_LAPTIME, FID_SPEC_LAPTIME_KEL2G)),
              KEL_TIPO_LAP_2G);
    EXPECT_EQ(kelRegTipoPacchetto(KEL_FID_GPS_VELOCITA), -1);
    EXPECT_EQ(kelRegTipoPacchetto(0), -1);
    EXPECT_EQ(kelRegTipoPacchetto(UINT32_MAX), -1);
}

TEST(Recordings, KnowTheUnitsOfASpeed) {
    EXPECT_NEAR(kelRegFattoreVelocita("km/h"), 3.6, 1e-6);
    EXPECT_NEAR(kelRegFattoreVelocita("mph"), 2.23694, 1e-4);
    EXPECT_EQ(kelRegFattoreVelocita("furlong"), 0);
    EXPECT_EQ(kelRegFattoreVelocita(""), 0);
    EXPECT_EQ(kelRegFattoreVelocita(nullptr), 0);
}

TEST(Recordings, TimesAndRangesEndWhereTheRowsDo) {
    const Kart kart;
    const Byte campioni = kart.campioni(10);
    const Registrazione reg = apri(kart.canali(), campioni);
    std::array<double, 11> tempi{};
    tempi.fill(-1);
    EXPECT_EQ(kelRegTempi(reg.get(), 0, 11, tempi.data()), 0);
    EXPECT_EQ(kelRegTempi(reg.get(), UINT64_MAX, 1, tempi.data()), 0);
    EXPECT_EQ(tempi[0], -1);
    EXPECT_EQ(kelRegTempi(reg.get(), 10, 0, nullptr), 1) << "no rows behind the last";
    std::uint64_t prima = 99;
    std::uint64_t quante = 99;
    EXPECT_EQ(kelRegTratto(reg.get(), NAN, NAN, &prima, &quante), 0);
    EXPECT_EQ(kelRegTratto(reg.get(), 0.1, 0.1, &prima, &quante), 0);
    EXPECT_EQ(prima, 99u);
    ASSERT_EQ(kelRegTratto(reg.get(), -INFINITY, INFINITY, &prima, &quante), 1);
    EXPECT_EQ(prima, 0u);
    EXPECT_EQ(quante, 10u);
    ASSERT_EQ(kelRegTratto(reg.get(), 0.04, 0.08, &prima, &quante), 1);
    EXPECT_EQ(prima, 1u) << "not before the first";
    EXPECT_EQ(quante, 1u) << "before the last";
    s_kel_apertura apertura{};
    apertura.orario = KEL_ORARIO_NESSUNO;
    const Byte interi = kart.campioni(kart.dimensione());  // whole records without stamps, too
    const Registrazione senza = apri(kart.canali(), interi, apertura);
    ASSERT_TRUE(senza);
    EXPECT_EQ(kelRegTratto(senza.get(), 0, 1, &prima, &quante), 0) << "no times";
    EXPECT_EQ(kelRegTempi(senza.get(), 0, 1, tempi.data()), 0);
}

TEST(Recordings, ReadTheSameColumnTwiceAndNoneAtAll) {
    const Kart kart;
    const Byte campioni = kart.campioni(20);
    const Registrazione reg = apri(kart.canali(), campioni);
    std::array<float, 20> uno{};
    std::array<float, 20> altro{};
    const s_kel_lettura letture[] = {{0, uno.data(), nullptr, nullptr}, {0, altro.data(), nullptr, nullptr}};
    ASSERT_EQ(kelRegLeggi(reg.get(), 0, 20, letture, 2), 1);
    EXPECT_EQ(uno, altro);
    EXPECT_EQ(uno[9], 4.5f);
    EXPECT_EQ(kelRegLeggi(reg.get(), 0, 20, nullptr, 0), 1);
    const s_kel_lettura meta[] = {{0, uno.data(), nullptr, nullptr}, {9999, altro.data(), nullptr, nullptr}};
    altro.fill(-1);
    EXPECT_EQ(kelRegLeggi(reg.get(), 0, 20, meta, 2), 0);
    EXPECT_EQ(altro[0], -1.0f) << "nothing is read where one column does not exist";
}

}  // namespace
