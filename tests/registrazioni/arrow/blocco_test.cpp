// Arrow arrays and schemas member by member, the memory behind them, and that all of it is given back.
#include "arrow/blocco.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "arrow/schema.h"
#include "recordings/tabella_record.h"
#include "registrazioni/face/prova.h"
#include "registrazioni/recordings/fatti.h"
#include "reliability/assegnazioni.h"

namespace {

struct Blocco {
    void* memoria = nullptr;
    std::size_t byte = 0;
};
std::array<Blocco, 4096> blocchi{};  // of aligned_alloc

std::size_t lungo(const void* memoria) {
    const auto* suo = std::ranges::find(blocchi, memoria, &Blocco::memoria);
    return suo == blocchi.end() ? 0 : suo->byte;
}

}  // namespace

// The linker leads the calls of the program's objects here.
extern "C" {
void* __real_aligned_alloc(std::size_t allineamento, std::size_t byte);  // NOLINT: the linker's names
void __real_free(void* blocco);                                          // NOLINT

// Memory is as dirty as it can be, so that what is not written shows.
void* __wrap_aligned_alloc(std::size_t allineamento, std::size_t byte) {  // NOLINT
    EXPECT_EQ(allineamento, 64u);
    EXPECT_EQ(byte % 64, 0u);
    if (!assegnazioni::concessa())
        return nullptr;
    void* memoria = __real_aligned_alloc(allineamento, byte);
    std::memset(memoria, 0xA5, byte);
    *std::ranges::find(blocchi, nullptr, &Blocco::memoria) = {memoria, byte};
    assegnazioni::conta(1);
    return memoria;
}

void __wrap_free(void* memoria) {  // NOLINT
    if (auto* suo = std::ranges::find(blocchi, memoria, &Blocco::memoria); memoria != nullptr && suo != blocchi.end()) {
        *suo = {};
        assegnazioni::conta(-1);
    }
    __real_free(memoria);
}
}

namespace {

using namespace kel_registrazioni;
using prova::Byte;

constexpr std::size_t RIGHE = 19;  // three bytes of validity, the last of them not whole
constexpr std::size_t DA = 5;

// A kart's recording with the texts of its packets, and what of it an array is made of.
struct Kart {
    prova::Kart kart;
    prova::Byte campioni = kart.campioni(40);
    TabellaRecord tabella{kart.canali(), campioni, apertura()};

    static s_kel_apertura apertura() {
        s_kel_apertura come{};
        come.orario = KEL_ORARIO_U32MS;
        come.pacchetti = 1;
        return come;
    }
};

bool bit(const void* bitmap, std::size_t i) {
    return (static_cast<const unsigned char*>(bitmap)[i / 8] >> i % 8 & 1) != 0;
}

// A buffer is as long as its bytes ask for, and zero behind them.
void controlla_memoria(const void* memoria, std::size_t byte, std::size_t scritti) {
    ASSERT_NE(memoria, nullptr);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(memoria) % 64, 0u);
    ASSERT_EQ(lungo(memoria), std::max<std::size_t>((byte + 63) / 64 * 64, 64));
    const auto* byte_suoi = static_cast<const unsigned char*>(memoria);
    for (std::size_t i = scritti; i < lungo(memoria); ++i)
        ASSERT_EQ(byte_suoi[i], 0) << i;
}

std::size_t larghezza(eKelValori valori) {
    switch (valori) {
        case KEL_VALORI_DOUBLE:
        case KEL_VALORI_ISTANTE:
            return 8;
        default:
            return 4;
    }
}

// A column of numbers, against what is read into the caller's own memory.
void controlla_numeri(Tabella& tabella, unsigned colonna, const ArrowArray& array) {
    const std::size_t larga = larghezza(tabella.voci()[colonna].valori);
    std::vector<double> valori(RIGHE);
    std::array<unsigned char, 3> validi{};
    const s_kel_lettura lettura{colonna, valori.data(), validi.data(), nullptr};
    tabella.leggi(DA, RIGHE, std::span(&lettura, 1));
    ASSERT_EQ(array.n_buffers, 2);
    controlla_memoria(array.buffers[0], 3, 3);
    EXPECT_EQ(std::memcmp(array.buffers[0], validi.data(), 3), 0);
    controlla_memoria(array.buffers[1], RIGHE * larga, RIGHE * larga);
    EXPECT_EQ(std::memcmp(array.buffers[1], valori.data(), RIGHE * larga), 0);
    std::int64_t nulle = 0;
    for (std::size_t i = 0; i < RIGHE; ++i)
        nulle += bit(validi.data(), i) ? 0 : 1;
    EXPECT_EQ(array.null_count, nulle);
}

void controlla_figlio(const ArrowArray& array) {
    EXPECT_EQ(array.length, static_cast<std::int64_t>(RIGHE));
    EXPECT_EQ(array.offset, 0);
    EXPECT_EQ(array.n_children, 0);
    EXPECT_EQ(array.children, nullptr);
    EXPECT_EQ(array.dictionary, nullptr);
    EXPECT_NE(array.release, nullptr);
}

std::string testo(const ArrowArray& array, std::size_t i) {
    const auto* inizi = static_cast<const std::int32_t*>(array.buffers[1]);
    return {static_cast<const char*>(array.buffers[2]) + inizi[i], static_cast<std::size_t>(inizi[i + 1] - inizi[i])};
}

unsigned colonna(const Tabella& tabella, const std::string& nome) {
    const auto& voci = tabella.voci();
    return static_cast<unsigned>(std::ranges::find(voci, nome, &VoceColonna::nome) - voci.begin());
}

// An array whose members are whatever was there before.
ArrowArray sporco() {
    ArrowArray array;
    std::memset(static_cast<void*>(&array), 0xA5, sizeof array);
    return array;
}

TEST(ArrowArrays, HoldWhatIsReadIntoColumns) {
    Kart kart;
    ArrowArray tutto = sporco();
    blocco(kart.tabella, false, DA, RIGHE, tutto);
    EXPECT_EQ(tutto.length, static_cast<std::int64_t>(RIGHE));
    EXPECT_EQ(tutto.null_count, 0);
    EXPECT_EQ(tutto.offset, 0);
    ASSERT_EQ(tutto.n_buffers, 1);
    EXPECT_EQ(tutto.buffers[0], nullptr) << "a row itself is always there";
    EXPECT_EQ(tutto.dictionary, nullptr);
    const auto& voci = kart.tabella.voci();
    ASSERT_EQ(tutto.n_children, static_cast<std::int64_t>(voci.size() + 1));
    const ArrowArray& tempo = *tutto.children[0];
    controlla_figlio(tempo);
    ASSERT_EQ(tempo.n_buffers, 2);
    EXPECT_EQ(tempo.null_count, 0);
    controlla_memoria(tempo.buffers[0], 3, 3);
    EXPECT_EQ(std::memcmp(tempo.buffers[0], "\xFF\xFF\x07", 3), 0);
    controlla_memoria(tempo.buffers[1], RIGHE * 8, RIGHE * 8);
    for (std::size_t i = 0; i < RIGHE; ++i)
        EXPECT_EQ(static_cast<const std::int64_t*>(tempo.buffers[1])[i], static_cast<std::int64_t>((DA + i) * 40000));
    unsigned numeri = 0;
    for (unsigned i = 0; i < voci.size(); ++i) {
        controlla_figlio(*tutto.children[i + 1]);
        if (voci[i].valori == KEL_VALORI_NESSUNO)
            continue;
        ++numeri;
        controlla_numeri(kart.tabella, i, *tutto.children[i + 1]);
    }
    EXPECT_EQ(numeri, voci.size() - 2) << "all but the two packets";
    tutto.release(&tutto);
    EXPECT_EQ(tutto.release, nullptr);
}

TEST(ArrowArrays, HoldTheTextsOfPacketsInEachRow) {
    Kart kart;
    ArrowArray tutto{};
    blocco(kart.tabella, false, DA, RIGHE, tutto);
    const ArrowArray& lap = *tutto.children[colonna(kart.tabella, "Lap") + 1];
    ASSERT_EQ(lap.n_buffers, 3);
    EXPECT_EQ(lap.null_count, 0);
    controlla_memoria(lap.buffers[0], 3, 3);
    EXPECT_EQ(std::memcmp(lap.buffers[0], "\xFF\xFF\x07", 3), 0) << "and none behind the last";
    controlla_memoria(lap.buffers[1], (RIGHE + 1) * 4, (RIGHE + 1) * 4);
    EXPECT_EQ(lungo(lap.buffers[2]), RIGHE * 32 + 32);
    std::vector<char> testi(RIGHE * 32);
    const s_kel_lettura lettura{colonna(kart.tabella, "Lap"), nullptr, nullptr, testi.data()};
    kart.tabella.leggi(DA, RIGHE, std::span(&lettura, 1));
    EXPECT_EQ(static_cast<const std::int32_t*>(lap.buffers[1])[0], 0);
    for (std::size_t i = 0; i < RIGHE; ++i) {
        EXPECT_NE(testo(lap, i), "");
        EXPECT_EQ(testo(lap, i), testi.data() + i * 32) << i;
    }
    tutto.release(&tutto);
}

TEST(ArrowArrays, HoldTextsOneBehindTheOtherAndNoneForARowWithoutAValue) {
    Kart kart;
    ArrowArray tutto{};
    blocco(kart.tabella, true, DA, RIGHE, tutto);
    const ArrowArray& rpm = *tutto.children[colonna(kart.tabella, "RPM") + 1];
    const auto* inizi = static_cast<const std::int32_t*>(rpm.buffers[1]);
    std::int32_t fine = 0;
    for (std::size_t i = 0; i < RIGHE; ++i) {
        const bool senza = (DA + i) % 7 == 3;
        EXPECT_EQ(bit(rpm.buffers[0], i), !senza) << i;
        EXPECT_EQ(testo(rpm, i), senza ? "" : "    " + std::to_string(2000 + DA + i)) << i;
        EXPECT_EQ(inizi[i], fine) << i;
        fine += senza ? 0 : 8;
    }
    EXPECT_EQ(inizi[RIGHE], fine);
    EXPECT_EQ(rpm.null_count, 2);
    const ArrowArray& nota = *tutto.children[colonna(kart.tabella, "Note \xE8") + 1];
    for (std::size_t i = 0; i < RIGHE; ++i)
        EXPECT_EQ(testo(nota, i), "lap?") << i;
    const ArrowArray& utc = *tutto.children[colonna(kart.tabella, "UTC") + 1];
    EXPECT_EQ(testo(utc, 18), "2025-06-11T23:59:42.920Z");
    tutto.release(&tutto);
}

TEST(ArrowArrays, OfNoRowsHaveMemoryAllTheSame) {
    Kart kart;
    for (const bool testi : {false, true}) {
        ArrowArray tutto{};
        blocco(kart.tabella, testi, 0, 0, tutto);
        EXPECT_EQ(tutto.length, 0);
        for (std::int64_t c = 0; c < tutto.n_children; ++c) {
            const ArrowArray& uno = *tutto.children[c];
            EXPECT_EQ(uno.length, 0);
            EXPECT_EQ(uno.null_count, 0);
            for (std::int64_t b = 0; b < uno.n_buffers; ++b)
                controlla_memoria(uno.buffers[b], 0, 0);
        }
        tutto.release(&tutto);
    }
}

TEST(ArrowArrays, HaveNoTimeWhereItIsMoreThan63BitsHold) {
    Byte canali = fatti::canale(kelFidComponi(FID_PHI_RPM, 0, FID_POS_ENGINE), KEL_TIPO_UINT8, "n");
    Byte campioni;
    for (std::uint64_t i = 0; i < 12; ++i) {
        fatti::aggiungi(campioni, i % 5 == 2 ? UINT64_MAX - i : i * 1000);
        campioni.push_back(1);
    }
    s_kel_apertura apertura{};
    apertura.orario = KEL_ORARIO_U64US;
    TabellaRecord tabella(canali, campioni, apertura);
    ArrowArray tutto{};
    blocco(tabella, false, 0, 12, tutto);
    ASSERT_EQ(tutto.n_children, 2);
    const ArrowArray& tempo = *tutto.children[0];
    EXPECT_EQ(tempo.null_count, 2);
    for (std::size_t i = 0; i < 12; ++i) {
        EXPECT_EQ(bit(tempo.buffers[0], i), i % 5 != 2) << i;
        EXPECT_EQ(static_cast<const std::int64_t*>(tempo.buffers[1])[i],
                  i % 5 == 2 ? 0 : static_cast<std::int64_t>(i * 1000));
    }
    tutto.release(&tutto);
    apertura.orario = KEL_ORARIO_NESSUNO;
    TabellaRecord senza(canali, campioni, apertura);
    blocco(senza, false, 0, 12, tutto);
    EXPECT_EQ(tutto.n_children, 1) << "no time, no column of it";
    tutto.release(&tutto);
    ArrowSchema campi{};
    schema(senza, false, campi);
    ASSERT_EQ(campi.n_children, 1);
    EXPECT_STREQ(campi.children[0]->name, "n");
    campi.release(&campi);
}

TEST(ArrowArrays, AndSchemasGiveAllOfTheirMemoryBack) {
    Kart kart;
    const long prima = assegnazioni::vivi();
    {
        ArrowArray tutto{};
        blocco(kart.tabella, true, DA, RIGHE, tutto);
        ArrowArray figlio = *tutto.children[3];
        tutto.children[3]->release = nullptr;  // moved away
        tutto.children[1]->release(tutto.children[1]);
        EXPECT_EQ(tutto.children[1]->release, nullptr);
        tutto.release(&tutto);
        EXPECT_GT(assegnazioni::vivi(), prima) << "what was moved away stays";
        EXPECT_EQ(testo(figlio, 0), "lap?");
        figlio.release(&figlio);
        EXPECT_EQ(figlio.release, nullptr);
    }
    EXPECT_EQ(assegnazioni::vivi(), prima);
    {
        ArrowSchema campi{};
        schema(kart.tabella, false, campi);
        ArrowSchema campo = *campi.children[3];
        campi.children[3]->release = nullptr;
        campi.children[1]->release(campi.children[1]);
        EXPECT_EQ(campi.children[1]->release, nullptr);
        campi.release(&campi);
        EXPECT_EQ(campi.release, nullptr);
        EXPECT_GT(assegnazioni::vivi(), prima);
        EXPECT_STREQ(campo.name, "Note ?");
        campo.release(&campo);
    }
    EXPECT_EQ(assegnazioni::vivi(), prima);
}

// Each allocation in turn.
template <typename Lavoro>
long fallite(const Lavoro& lavoro) {
    long quante = 0;
    for (;; ++quante) {
        const long prima = assegnazioni::vivi();
        assegnazioni::fallisca(quante);
        try {
            lavoro();
        } catch (const std::bad_alloc&) {
        }
        const bool fallita = assegnazioni::fallita();
        assegnazioni::fallisca(-1);
        EXPECT_EQ(assegnazioni::vivi(), prima) << quante;
        if (!fallita || ::testing::Test::HasFailure())
            return quante;
    }
}

TEST(ArrowArrays, AndSchemasLoseNothingWhenMemoryRunsOut) {
    Kart kart;
    EXPECT_GT(fallite([&] {
                  ArrowArray tutto{};
                  blocco(kart.tabella, true, DA, RIGHE, tutto);
                  tutto.release(&tutto);
              }),
              100);
    EXPECT_GT(fallite([&] {
                  ArrowSchema campi{};
                  schema(kart.tabella, true, campi);
                  campi.release(&campi);
              }),
              100);
}

// Keys and values in their order: the number of pairs, then each text behind its length.
std::vector<std::string> metadati(const char* byte) {
    std::vector<std::string> tutti;
    if (byte == nullptr)
        return {"none"};
    const auto intero = [&byte] {
        std::int32_t valore = 0;
        std::memcpy(&valore, byte, sizeof valore);
        byte += sizeof valore;
        return static_cast<std::size_t>(valore);
    };
    for (std::size_t n = 2 * intero(); n > 0; --n) {
        const std::size_t quanti = intero();
        tutti.emplace_back(byte, quanti);
        byte += quanti;
    }
    return tutti;
}

TEST(ArrowSchemas, TellOfEachColumnWhatItIs) {
    Kart kart;
    ArrowSchema campi;
    std::memset(static_cast<void*>(&campi), 0xA5, sizeof campi);
    schema(kart.tabella, false, campi);
    EXPECT_STREQ(campi.format, "+s");
    EXPECT_STREQ(campi.name, "");
    EXPECT_EQ(campi.metadata, nullptr);
    EXPECT_EQ(campi.flags, 0);
    EXPECT_EQ(campi.dictionary, nullptr);
    using Testi = std::vector<std::string>;
    struct Atteso {
        const char* nome;
        const char* formato;
        Testi metadati;
    };
    const Atteso attesi[] = {
        {"time", "tDu", {"unit", "us", "long_name", "time"}},
        {"Wheel Speed", "f", {"unit", "km/h", "identifier", "0x00070010", "long_name", "Wheel Spd"}},
        {"RPM", "f", {"unit", "rpm", "identifier", "0x0003000F", "long_name", "RPM"}},
        {"Note ?", "f", {"unit", "", "long_name", "Note ?"}},
        {"GPS", "u", {"unit", "", "identifier", "0x0000019A", "long_name", "Pckg"}},
    };
    for (std::size_t i = 0; i < std::size(attesi); ++i) {
        const ArrowSchema& uno = *campi.children[i];
        EXPECT_STREQ(uno.name, attesi[i].nome);
        EXPECT_STREQ(uno.format, attesi[i].formato);
        EXPECT_EQ(uno.flags, ARROW_FLAG_NULLABLE);
        EXPECT_EQ(uno.n_children, 0);
        EXPECT_EQ(uno.children, nullptr);
        EXPECT_EQ(uno.dictionary, nullptr);
        EXPECT_EQ(metadati(uno.metadata), attesi[i].metadati) << attesi[i].nome;
    }
    const auto formato = [&](const char* nome) {
        return std::string(campi.children[colonna(kart.tabella, nome) + 1]->format);
    };
    EXPECT_EQ(formato("UTC"), "tsu:UTC");
    EXPECT_EQ(formato("GPS Fix"), "I");
    EXPECT_EQ(formato("Latitude"), "g");
    campi.release(&campi);
    schema(kart.tabella, true, campi);
    EXPECT_STREQ(campi.children[0]->format, "tDu") << "the time is never a text";
    for (std::int64_t i = 1; i < campi.n_children; ++i)
        EXPECT_STREQ(campi.children[i]->format, "u");
    campi.release(&campi);
}

}  // namespace
