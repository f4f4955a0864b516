// The second library when memory runs out: each allocation of every operation fails in turn, those of Arrow's arrays as well.
// An error comes back, nothing is thrown, nothing is lost, and what is open answers as before.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "assegnazioni.h"
#include "kelregistrazioni.h"
#include "registrazioni/face/pista.h"
#include "registrazioni/face/prova.h"

namespace {

// Blocks of aligned_alloc, which no delete gives back.
std::array<void*, 4096> allineati{};

}  // namespace

// The linker leads the calls of the program's objects here.
extern "C" {
void* __real_aligned_alloc(std::size_t allineamento, std::size_t byte);  // NOLINT: the linker's names
void __real_free(void* blocco);                                          // NOLINT

void* __wrap_aligned_alloc(std::size_t allineamento, std::size_t byte) {  // NOLINT
    if (!assegnazioni::concessa())
        return nullptr;
    void* blocco = __real_aligned_alloc(allineamento, byte);
    *std::ranges::find(allineati, nullptr) = blocco;
    assegnazioni::conta(1);
    return blocco;
}

void __wrap_free(void* blocco) {  // NOLINT
    if (const auto suo = std::ranges::find(allineati, blocco); blocco != nullptr && suo != allineati.end()) {
        *suo = nullptr;
        assegnazioni::conta(-1);
    }
    __real_free(blocco);
}
}

namespace {

using namespace prova;

constexpr std::size_t RIGHE = 30;  // three laps of the logger

// What the operations are asked of; open all the time.
struct Aperti {
    Kart kart;
    Byte campioni = kart.campioni(RIGHE);
    Registrazione reg = apri(kart.canali(), campioni);
    Byte svolta = kart.campioni(RIGHE, 0xFFFFFFFF - 400);
    Byte flusso = Pista::flusso(2, 1);
    Registrazione ubx{kelRegApriUbx(flusso.data(), flusso.size(), nullptr)};
    s_kel_giri* giri = kelGiriApri(reg.get(), nullptr);
    s_kel_giri* pista = kelGiriApri(ubx.get(), nullptr);

    Aperti() {
        kelGiriAggiungi(giri, nullptr);
        kelGiriAggiungi(pista, nullptr);
        kelGiriCalcola(giri, nullptr, nullptr);
        kelGiriCalcola(pista, nullptr, nullptr);
    }
    ~Aperti() {
        kelGiriChiudi(giri);
        kelGiriChiudi(pista);
    }
    Aperti(const Aperti&) = delete;
    Aperti& operator=(const Aperti&) = delete;
};

// What an operation gave: numbers in memory that it does not allocate, because a text would.
struct Esito {
    std::array<double, 24> numeri{};
    std::size_t quanti = 0;
    s_kel_errore errore{};
    bool riuscito = false;

    void operator()(double numero) {
        if (quanti < numeri.size())
            numeri[quanti++] = numero;
    }
    bool operator==(const Esito& altro) const { return numeri == altro.numeri && riuscito == altro.riuscito; }
};

using Operazione = std::function<void(Aperti&, Esito&)>;

void apri_record(Aperti& a, Esito& e) {
    s_kel_apertura apertura{};
    apertura.pacchetti = 1;
    s_kel_registrazione* reg = kelRegApri(a.kart.canali().data(), a.kart.canali().size(), a.campioni.data(),
                                          a.campioni.size(), &apertura, &e.errore);
    e.riuscito = reg != nullptr;
    if (e.riuscito)
        e(static_cast<double>(kelRegRighe(reg)));
    kelRegChiudi(reg);
}

void apri_rotti(Aperti& a, Esito& e) {
    s_kel_registrazione* reg =
        kelRegApri(a.kart.canali().data(), 111, a.campioni.data(), a.campioni.size(), nullptr, &e.errore);
    e.riuscito = reg == nullptr && e.errore.testo[0] == '1';
    kelRegChiudi(reg);
}

void apri_ubx(Aperti& a, Esito& e) {
    s_kel_registrazione* reg = kelRegApriUbx(a.flusso.data(), a.flusso.size(), &e.errore);
    e.riuscito = reg != nullptr;
    if (e.riuscito)
        e(static_cast<double>(kelRegRighe(reg)));
    kelRegChiudi(reg);
}

// In two pieces and the end. A piece of records for which there was no memory is pushed again, and no row is lost or doubled
// by that; a u-blox stream is over then, and says so.
template <bool UBX>
void spingi(Aperti& a, Esito& e) {
    const Byte& byte = UBX ? a.flusso : a.campioni;
    s_kel_registrazione* reg =
        UBX ? kelRegApriUbx(nullptr, 0, &e.errore)
            : kelRegApri(a.kart.canali().data(), a.kart.canali().size(), nullptr, 0, nullptr, &e.errore);
    if (reg == nullptr)
        return;
    e.riuscito = true;
    std::uint64_t righe = 0;
    const std::size_t meta = byte.size() / 2;
    const std::span<const std::uint8_t> tutti(byte);
    for (const auto pezzo : {tutti.first(meta), tutti.subspan(meta), tutti.first(0)}) {
        bool spinto = kelRegSpingi(reg, pezzo.data(), pezzo.size(), &e.errore) == 1;
        if (!spinto) {
            e.riuscito = false;
            EXPECT_EQ(kelRegRighe(reg), 0u);
            s_kel_errore altro{};
            spinto = kelRegSpingi(reg, pezzo.data(), pezzo.size(), &altro) == 1;
            if (!spinto) {
                EXPECT_STREQ(altro.testo, UBX             ? pezzo.empty() ? "the stream has ended"
                                                                          : "the stream was broken off when memory ran out"
                                          : pezzo.empty() ? "the stream has ended"
                                                          : "");
                kelRegChiudi(reg);
                return;
            }
        }
        righe += kelRegRighe(reg);
    }
    EXPECT_EQ(righe, UBX ? kelRegRighe(a.ubx.get()) : RIGHE);
    e(static_cast<double>(righe));
    kelRegChiudi(reg);
}

void unita(Aperti& a, Esito& e) {
    e.riuscito = kelRegUnita(a.reg.get(), 0, "mph") == 1;
    s_kel_descrizione descrizione{};
    kelRegDescrivi(a.reg.get(), 0, &descrizione);
    float valore = 0;
    const s_kel_lettura lettura{0, &valore, nullptr, nullptr};
    // What the column says of itself is what its values are, also where the choice failed.
    EXPECT_STREQ(descrizione.udm, e.riuscito ? "mph" : "km/h");
    assegnazioni::fallisca(-1);
    kelRegLeggi(a.reg.get(), 9, 1, &lettura, 1);
    EXPECT_EQ(valore == 4.5f, !e.riuscito);
    e(e.riuscito ? static_cast<double>(valore) : 0);
    kelRegUnita(a.reg.get(), 0, "km/h");
}

void leggi(Aperti& a, Esito& e) {
    std::array<float, RIGHE> valori{};
    std::array<double, RIGHE> latitudini{};
    static char testi[RIGHE][32];
    const unsigned latitudine = 5;
    const s_kel_lettura letture[] = {{0, valori.data(), nullptr, testi[0]},
                                     {latitudine, latitudini.data(), nullptr, nullptr}};
    e.riuscito = kelRegLeggi(a.reg.get(), 0, RIGHE, letture, 2) == 1;
    if (e.riuscito)
        e(static_cast<double>(valori[9]) + latitudini[9]);
}

// Where the counter of the stamps begins anew there is something to keep.
void tempi(Aperti& a, Esito& e) {
    s_kel_registrazione* reg = kelRegApri(a.kart.canali().data(), a.kart.canali().size(), a.svolta.data(),
                                          a.svolta.size(), nullptr, &e.errore);
    if (reg == nullptr)
        return;
    std::array<double, RIGHE> tutti{};
    std::uint64_t prima = 0;
    std::uint64_t quante = 0;
    e.riuscito = kelRegTempi(reg, 0, RIGHE, tutti.data()) == 1;
    assegnazioni::fallisca(-1);
    EXPECT_EQ(kelRegTempi(reg, 0, RIGHE, tutti.data()), 1);
    EXPECT_EQ(kelRegTratto(reg, tutti[5], tutti[20], &prima, &quante), 1);
    e(tutti[RIGHE - 1] + static_cast<double>(prima + quante));
    kelRegChiudi(reg);
}

template <bool TESTI>
void arrow(Aperti& a, Esito& e) {
    ArrowArrayStream flusso{};
    e.riuscito = kelRegArrow(a.reg.get(), 0, RIGHE, TESTI ? 1 : 0, &flusso, &e.errore) == 1;
    if (!e.riuscito)
        return;
    const auto esito = [&](int numero) {
        if (numero == 0)
            return true;
        EXPECT_EQ(numero, ENOMEM);
        std::string_view(flusso.get_last_error(&flusso)).copy(e.errore.testo, sizeof e.errore.testo - 1);
        return false;
    };
    ArrowSchema schema{};
    ArrowArray blocco{};
    e.riuscito = esito(flusso.get_schema(&flusso, &schema)) && esito(flusso.get_next(&flusso, &blocco));
    if (e.riuscito) {
        e(static_cast<double>(schema.n_children));
        e(static_cast<double>(blocco.length));
    }
    if (schema.release != nullptr)
        schema.release(&schema);
    if (blocco.release != nullptr)
        blocco.release(&blocco);
    // The batch comes again: the stream stands where it stood.
    assegnazioni::fallisca(-1);
    if (!e.riuscito) {
        EXPECT_EQ(flusso.get_next(&flusso, &blocco), 0);
        EXPECT_EQ(blocco.length, RIGHE);
        blocco.release(&blocco);
    }
    flusso.release(&flusso);
}

template <bool UBX>
void raccogli(Aperti& a, Esito& e) {
    s_kel_giri* giri = kelGiriApri(UBX ? a.ubx.get() : a.reg.get(), &e.errore);
    e.riuscito = giri != nullptr;
    if (!e.riuscito)
        return;
    e.riuscito = kelGiriAggiungi(giri, &e.errore) == 1;
    if (!e.riuscito) {
        // Taken again the rows are there once.
        assegnazioni::fallisca(-1);
        EXPECT_EQ(kelGiriAggiungi(giri, nullptr), 1);
        s_kel_giri* altri = UBX ? a.pista : a.giri;
        EXPECT_EQ(kelGiriCalcola(giri, nullptr, nullptr), 1);
        EXPECT_EQ(kelGiriCalcola(altri, nullptr, nullptr), 1);
        EXPECT_EQ(kelGiriNumero(giri), kelGiriNumero(altri));
        for (unsigned i = 0; i < kelGiriNumero(giri); ++i) {
            s_kel_giro uno{};
            s_kel_giro altro{};
            kelGiriGiro(giri, i, &uno);
            EXPECT_EQ(kelGiriGiro(altri, i, &altro), 1);
            EXPECT_EQ(uno.ms, altro.ms);
            EXPECT_EQ(uno.campioni, altro.campioni);
        }
    }
    kelGiriChiudi(giri);
}

template <bool UBX, bool LINEA>
void calcola(Aperti& a, Esito& e) {
    s_kel_giri* giri = UBX ? a.pista : a.giri;
    const s_kel_intermedio intermedio{100, {}, nullptr};
    s_kel_scelte_giri scelte{};
    scelte.intermedi = &intermedio;
    scelte.num_intermedi = UBX ? 1 : 0;
    const s_kel_linea linea{Pista::LAT, Pista::LON, 0, 0};
    scelte.linea = LINEA ? &linea : nullptr;
    e.riuscito = kelGiriCalcola(giri, &scelte, &e.errore) == 1;
    // The laps can be asked for, whether there are any or not.
    for (unsigned i = 0; i < kelGiriNumero(giri); ++i) {
        s_kel_giro giro{};
        EXPECT_EQ(kelGiriGiro(giri, i, &giro), 1);
        EXPECT_TRUE(e.riuscito);
        if (e.riuscito)
            e(giro.ms);
    }
}

void andamento(Aperti& a, Esito& e) {
    const std::size_t quanti = kelGiriAndamento(a.pista, 1, 600, nullptr, 0);
    e.riuscito = quanti != 0;
    if (!e.riuscito)
        std::string("out of memory").copy(e.errore.testo, 13);
    e(static_cast<double>(quanti));
    e(static_cast<double>(kelGiriFix(a.pista, 1, nullptr, 0)));
}

void linea(Aperti&, Esito& e) {
    s_kel_linea letta{};
    e.riuscito = kelGiriLinea("44.8231,10.4107,12.5,20", &letta) == 1;
    if (e.riuscito)
        e(letta.rotta);
}

void fattore(Aperti&, Esito& e) {
    const double quanto = kelRegFattoreVelocita("mph");
    e.riuscito = quanto != 0;
    e(quanto);
}

// The search for the finish line tries many places, and allocates for each what it allocates for the others.
const std::string RICERCA = "kelGiriCalcola search";
constexpr long PASSO_RICERCA = 23;

// Where a run is slow, as under an emulator, every so many allocations are tried.
long passo() {
    const char* testo = std::getenv("KEL_PASSO_ROBUSTEZZA");
    const long suo = testo != nullptr ? std::strtol(testo, nullptr, 10) : 1;
    return suo > 0 ? suo : 1;
}

// Those with a text for what was wrong, and those that say no more than 0.
const std::map<std::string, Operazione> CON_ERRORE = {
    {"kelRegApri", apri_record},
    {"kelRegApri of no channels", apri_rotti},
    {"kelRegApriUbx", apri_ubx},
    {"kelRegSpingi records", spingi<false>},
    {"kelRegSpingi ubx", spingi<true>},
    {"kelRegArrow", arrow<false>},
    {"kelRegArrow texts", arrow<true>},
    {"kelGiriAggiungi records", raccogli<false>},
    {"kelGiriAggiungi ubx", raccogli<true>},
    {"kelGiriCalcola logger", calcola<false, false>},
    {"kelGiriCalcola GPS", calcola<true, true>},
    {RICERCA, calcola<true, false>},
};
const std::map<std::string, Operazione> SENZA_ERRORE = {
    {"kelRegUnita", unita},          {"kelRegLeggi", leggi},  {"kelRegTempi", tempi},
    {"kelGiriAndamento", andamento}, {"kelGiriLinea", linea}, {"kelRegFattoreVelocita", fattore},
};

class OutOfMemoryInRecordings : public testing::TestWithParam<std::string> {};

TEST_P(OutOfMemoryInRecordings, IsAnErrorAndLeavesNothingBehind) {
    Aperti aperti;
    const bool con_errore = CON_ERRORE.contains(GetParam());
    const Operazione& operazione = con_errore ? CON_ERRORE.at(GetParam()) : SENZA_ERRORE.at(GetParam());
    Esito atteso;
    operazione(aperti, atteso);
    ASSERT_TRUE(atteso.riuscito) << atteso.errore.testo;

    for (long quante = 0;; quante += passo() * (GetParam() == RICERCA ? PASSO_RICERCA : 1)) {
        const long prima = assegnazioni::vivi();
        Esito esito;
        assegnazioni::fallisca(quante);
        operazione(aperti, esito);
        const bool fallita = assegnazioni::fallita();
        assegnazioni::fallisca(-1);
        if (esito.riuscito) {
            // The algorithms of the C++ library do without memory for their own convenience.
            ASSERT_TRUE(esito == atteso) << "another result when allocation " << quante << " fails";
        } else if (con_errore) {
            ASSERT_STREQ(esito.errore.testo, "out of memory") << "allocation " << quante;
        }
        Esito dopo;
        operazione(aperti, dopo);
        ASSERT_TRUE(dopo == atteso) << "it does not answer as before after allocation " << quante << " failed";
        // A choice that is computed anew gives its old memory back, and takes as much.
        ASSERT_EQ(assegnazioni::vivi(), prima) << "blocks are lost when allocation " << quante << " fails";
        if (!fallita) {
            ASSERT_TRUE(esito.riuscito);
            ASSERT_GT(quante, 0) << "nothing was made to fail";
            break;
        }
        ASSERT_LT(quante, 20000) << "it goes on for ever";
    }
}

std::vector<std::string> nomi() {
    std::vector<std::string> nomi;
    for (const auto* operazioni : {&CON_ERRORE, &SENZA_ERRORE})
        for (const auto& [nome, operazione] : *operazioni)
            nomi.push_back(nome);
    return nomi;
}

INSTANTIATE_TEST_SUITE_P(Operations, OutOfMemoryInRecordings, testing::ValuesIn(nomi()));

}  // namespace
