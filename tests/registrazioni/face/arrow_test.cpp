// The Arrow stream: its layout, its values, and who releases what.
#include <gtest/gtest.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "kelregistrazioni.h"
#include "prova.h"

namespace {

using namespace prova;

std::map<std::string, std::string> metadati(const char* byte) {
    const auto intero = [&byte] {
        std::int32_t valore = 0;
        std::memcpy(&valore, byte, sizeof valore);
        byte += sizeof valore;
        return valore;
    };
    const auto testo = [&] {
        const auto quanti = static_cast<std::size_t>(intero());
        const std::string uno(byte, quanti);
        byte += quanti;
        return uno;
    };
    std::map<std::string, std::string> tutti;
    for (std::int32_t n = intero(); n > 0; --n) {
        const std::string chiave = testo();
        tutti[chiave] = testo();
    }
    return tutti;
}

ArrowArrayStream flusso(const Registrazione& reg, bool testi = false) {
    ArrowArrayStream uno{};
    EXPECT_EQ(kelRegArrow(reg.get(), kelRegPrima(reg.get()), kelRegRighe(reg.get()), testi, &uno, nullptr), 1);
    return uno;
}

bool valido(const ArrowArray& array, std::int64_t i) {
    return (static_cast<const unsigned char*>(array.buffers[0])[i / 8] >> i % 8 & 1) != 0;
}

TEST(Arrow, SchemaTellsColumnsUnitsAndIdentifiers) {
    const Kart kart;
    const Byte campioni = kart.campioni(10);
    const Registrazione reg = apri(kart.canali(), campioni);
    ArrowArrayStream uno = flusso(reg);
    ArrowSchema schema{};
    ASSERT_EQ(uno.get_schema(&uno, &schema), 0);
    EXPECT_STREQ(schema.format, "+s");
    ASSERT_EQ(schema.n_children, kelRegNumColonne(reg.get()) + 1);
    EXPECT_STREQ(schema.children[0]->name, "time");
    EXPECT_STREQ(schema.children[0]->format, "tDu");
    for (unsigned i = 0; i < kelRegNumColonne(reg.get()); ++i) {
        s_kel_descrizione d{};
        kelRegDescrivi(reg.get(), i, &d);
        const ArrowSchema& campo = *schema.children[i + 1];
        const char* formati[] = {"f", "g", "I", "tsu:UTC", "u"};
        EXPECT_STREQ(campo.format, formati[d.valori]);
        EXPECT_EQ(campo.flags, ARROW_FLAG_NULLABLE);
        EXPECT_EQ(metadati(campo.metadata)["unit"], d.udm);
    }
    const ArrowSchema& velocita = *schema.children[1];
    EXPECT_STREQ(velocita.name, "Wheel Speed");
    EXPECT_EQ(metadati(velocita.metadata)["identifier"], "0x00070010");
    EXPECT_EQ(metadati(velocita.metadata)["long_name"], "Wheel Spd") << "the catalogue's name";
    EXPECT_STREQ(schema.children[3]->name, "Note ?") << "0xE8 alone is no UTF-8";
    schema.release(&schema);
    EXPECT_EQ(schema.release, nullptr);
    uno.release(&uno);
    EXPECT_EQ(uno.release, nullptr);
}

TEST(Arrow, BatchesHoldWhatIsReadIntoColumns) {
    const Kart kart;
    constexpr std::size_t RIGHE = 65536 + 100;
    const Byte campioni = kart.campioni(RIGHE);
    Registrazione reg = apri(kart.canali(), campioni);
    std::vector<float> rpm(RIGHE);
    std::vector<unsigned char> bit((RIGHE + 7) / 8);
    const s_kel_lettura lettura{1, rpm.data(), bit.data(), nullptr};
    ASSERT_EQ(kelRegLeggi(reg.get(), 0, RIGHE, &lettura, 1), 1);
    ArrowArrayStream uno = flusso(reg);
    reg.reset();  // the stream stays good
    std::size_t lette = 0;
    for (const std::size_t attese : {std::size_t{65536}, std::size_t{100}}) {
        ArrowArray blocco{};
        ASSERT_EQ(uno.get_next(&uno, &blocco), 0);
        ASSERT_EQ(blocco.length, static_cast<std::int64_t>(attese));
        EXPECT_EQ(blocco.n_buffers, 1);
        EXPECT_EQ(blocco.null_count, 0);
        const ArrowArray& tempo = *blocco.children[0];
        const ArrowArray& sua = *blocco.children[2];
        ASSERT_EQ(sua.n_buffers, 2);
        std::int64_t nulle = 0;
        for (std::size_t i = 0; i < attese; ++i) {
            const auto riga = static_cast<std::int64_t>(i);
            const bool attesa = (bit[(lette + i) / 8] >> (lette + i) % 8 & 1) != 0;
            ASSERT_EQ(valido(sua, riga), attesa) << i;
            nulle += attesa ? 0 : 1;
            ASSERT_EQ(static_cast<const float*>(sua.buffers[1])[i], rpm[lette + i]);
            ASSERT_EQ(static_cast<const std::int64_t*>(tempo.buffers[1])[i],
                      static_cast<std::int64_t>((lette + i) * 40000));
        }
        EXPECT_EQ(sua.null_count, nulle);
        for (std::int64_t c = 0; c < blocco.n_children; ++c)
            for (std::int64_t b = 0; b < blocco.children[c]->n_buffers; ++b)
                EXPECT_EQ(reinterpret_cast<std::uintptr_t>(blocco.children[c]->buffers[b]) % 64, 0u);
        lette += attese;
        blocco.release(&blocco);
    }
    ArrowArray fine{};
    fine.release = [](ArrowArray*) {};
    ASSERT_EQ(uno.get_next(&uno, &fine), 0);
    EXPECT_EQ(fine.release, nullptr) << "the end of the stream";
    uno.release(&uno);
}

TEST(Arrow, TextsAreUtf8OnRequest) {
    const Kart kart;
    const Byte campioni = kart.campioni(10);
    const Registrazione reg = apri(kart.canali(), campioni);
    ArrowArrayStream uno = flusso(reg, true);
    ArrowArray blocco{};
    ASSERT_EQ(uno.get_next(&uno, &blocco), 0);
    const auto testo = [&](unsigned colonna, std::size_t i) {
        const ArrowArray& sua = *blocco.children[colonna + 1];
        const auto* inizi = static_cast<const std::int32_t*>(sua.buffers[1]);
        return std::string(static_cast<const char*>(sua.buffers[2]) + inizi[i],
                           static_cast<std::size_t>(inizi[i + 1] - inizi[i]));
    };
    EXPECT_EQ(testo(0, 9), "      4.5");
    EXPECT_EQ(testo(1, 3), "") << "no value";
    EXPECT_FALSE(valido(*blocco.children[2], 3));
    EXPECT_EQ(testo(2, 0), "lap?") << "sample bytes that are no UTF-8";
    EXPECT_EQ(testo(colonna(reg.get(), "UTC"), 1), "2025-06-11T23:59:42.040Z");
    blocco.release(&blocco);
    uno.release(&uno);
}

TEST(Arrow, HalfReadAndMovedPartsAreReleasedOnce) {
    const Kart kart;
    const Byte campioni = kart.campioni(70000);
    const Registrazione reg = apri(kart.canali(), campioni);
    ArrowArrayStream uno = flusso(reg);
    ArrowSchema schema{};
    ASSERT_EQ(uno.get_schema(&uno, &schema), 0);
    ArrowArray blocco{};
    ASSERT_EQ(uno.get_next(&uno, &blocco), 0);
    uno.release(&uno);  // half read; what it gave stays
    // A child moved away outlives its parent: whoever has it releases it.
    ArrowArray figlio = *blocco.children[1];
    blocco.children[1]->release = nullptr;
    ArrowSchema campo = *schema.children[1];
    schema.children[1]->release = nullptr;
    // One released on its own is not released again.
    blocco.children[2]->release(blocco.children[2]);
    blocco.release(&blocco);
    schema.release(&schema);
    EXPECT_STREQ(campo.name, "Wheel Speed");
    EXPECT_EQ(static_cast<const float*>(figlio.buffers[1])[9], 4.5f);
    campo.release(&campo);
    figlio.release(&figlio);
}

TEST(Arrow, OfAPushedStreamEndsWithThePieceThatItReads) {
    const Kart kart;
    const Byte campioni = kart.campioni(100);
    const Registrazione reg(kelRegApri(kart.canali().data(), kart.canali().size(), nullptr, 0, nullptr, nullptr));
    ASSERT_EQ(kelRegSpingi(reg.get(), campioni.data(), campioni.size() / 2, nullptr), 1);
    ASSERT_EQ(kelRegRighe(reg.get()), 50u);
    ArrowArrayStream uno = flusso(reg);
    ASSERT_EQ(kelRegSpingi(reg.get(), campioni.data() + campioni.size() / 2, campioni.size() / 2, nullptr), 1);
    ArrowArray blocco{};
    EXPECT_EQ(uno.get_next(&uno, &blocco), EINVAL);
    EXPECT_STREQ(uno.get_last_error(&uno), "the rows are at hand no longer: another piece of the stream was pushed");
    uno.release(&uno);
    ArrowArrayStream altro = flusso(reg);
    ASSERT_EQ(altro.get_next(&altro, &blocco), 0);
    EXPECT_EQ(blocco.length, 50);
    EXPECT_EQ(altro.get_last_error(&altro), nullptr);
    blocco.release(&blocco);
    altro.release(&altro);
    s_kel_errore errore{};
    EXPECT_EQ(kelRegArrow(reg.get(), 0, 1, 0, &altro, &errore), 0);
    EXPECT_STREQ(errore.testo, "these rows are not at hand");
}

TEST(Arrow, IsRefusedForRowsThatAreNotAtHand) {
    const Kart kart;
    const Byte campioni = kart.campioni(10);
    const Registrazione reg = apri(kart.canali(), campioni);
    ArrowArrayStream uno{};
    uno.private_data = &uno;
    s_kel_errore errore{};
    for (const auto& [da, quante] : std::map<std::uint64_t, std::uint64_t>{
             {0, 11}, {1, 10}, {2, UINT64_MAX}, {11, 0}, {UINT64_MAX, 1}, {UINT64_MAX - 1, 2}}) {
        EXPECT_EQ(kelRegArrow(reg.get(), da, quante, 0, &uno, &errore), 0) << da;
        EXPECT_STREQ(errore.testo, "these rows are not at hand");
        EXPECT_EQ(uno.private_data, &uno) << "as it was";
    }
    EXPECT_EQ(kelRegArrow(reg.get(), 0, 11, 0, &uno, nullptr), 0) << "nobody asks why";
}

TEST(Arrow, OfNoRowsHasASchemaAndNoBatch) {
    const Kart kart;
    const Byte campioni = kart.campioni(10);
    const Registrazione reg = apri(kart.canali(), campioni);
    ArrowArrayStream uno{};
    ASSERT_EQ(kelRegArrow(reg.get(), 10, 0, 0, &uno, nullptr), 1);
    ArrowSchema schema{};
    ASSERT_EQ(uno.get_schema(&uno, &schema), 0);
    schema.release(&schema);
    ArrowArray blocco{};
    blocco.release = [](ArrowArray*) {};
    ASSERT_EQ(uno.get_next(&uno, &blocco), 0);
    EXPECT_EQ(blocco.release, nullptr);
    ASSERT_EQ(uno.get_next(&uno, &blocco), 0) << "asked again";
    EXPECT_EQ(blocco.release, nullptr);
    uno.release(&uno);
}

// A program asks for the schema once: what follows must be in the units that it names.
TEST(Arrow, EndsWithAnErrorWhenAUnitIsChanged) {
    const Kart kart;
    const Byte campioni = kart.campioni(70000);
    const Registrazione reg = apri(kart.canali(), campioni);
    ArrowArrayStream uno = flusso(reg);
    ArrowArray blocco{};
    ASSERT_EQ(uno.get_next(&uno, &blocco), 0);
    EXPECT_EQ(blocco.length, 65536);
    blocco.release(&blocco);
    ASSERT_EQ(kelRegUnita(reg.get(), 0, "mph"), 1);
    const char* perche = "the unit of 'Wheel Speed' was changed after the stream was made";
    ArrowSchema schema{};
    EXPECT_EQ(uno.get_schema(&uno, &schema), EINVAL);
    EXPECT_STREQ(uno.get_last_error(&uno), perche);
    EXPECT_EQ(uno.get_next(&uno, &blocco), EINVAL);
    EXPECT_STREQ(uno.get_last_error(&uno), perche);
    // Back in its unit the stream goes on where it was.
    ASSERT_EQ(kelRegUnita(reg.get(), 0, "km/h"), 1);
    ASSERT_EQ(uno.get_next(&uno, &blocco), 0);
    EXPECT_EQ(blocco.length, 70000 - 65536);
    blocco.release(&blocco);
    uno.release(&uno);
    // A new stream has the unit of its day.
    ASSERT_EQ(kelRegUnita(reg.get(), 0, "mph"), 1);
    ArrowArrayStream altro = flusso(reg);
    ASSERT_EQ(altro.get_schema(&altro, &schema), 0);
    EXPECT_EQ(metadati(schema.children[1]->metadata)["unit"], "mph");
    schema.release(&schema);
    ASSERT_EQ(altro.get_next(&altro, &blocco), 0);
    float valore = 0;
    const s_kel_lettura lettura{0, &valore, nullptr, nullptr};
    ASSERT_EQ(kelRegLeggi(reg.get(), 30000, 1, &lettura, 1), 1);
    EXPECT_NE(valore, 0);
    EXPECT_EQ(static_cast<const float*>(blocco.children[1]->buffers[1])[30000], valore);
    blocco.release(&blocco);
    altro.release(&altro);
}

}  // namespace
