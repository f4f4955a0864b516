// The flat functions allocate nothing. Every allocation of this program passes a counter: under a sanitizer through the
// hooks of its allocator, else through malloc and its relatives defined here, which the library's calls reach as well.
#include <gtest/gtest.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "CConverter.h"
#include "CLaptimeAndStrings.h"
#include "IFunzioni.h"
#include "comune/tipi_campione.h"
#include "converters/lettura.h"

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define KEL_CON_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define KEL_CON_SANITIZER 1
#endif
#endif
#ifndef KEL_CON_SANITIZER
#define KEL_CON_SANITIZER 0
#endif

namespace {

std::atomic<bool> conta{false};
std::atomic<unsigned> allocazioni{0};

void segna() {
    if (conta.load(std::memory_order_relaxed)) {
        allocazioni.fetch_add(1, std::memory_order_relaxed);
    }
}

}  // namespace

#if KEL_CON_SANITIZER

// Declared here because gcc's packages leave sanitizer/allocator_interface.h out.
extern "C" int __sanitizer_install_malloc_and_free_hooks(void (*allocato)(const volatile void*, std::size_t),
                                                         void (*rilasciato)(const volatile void*));

namespace {
void alla_allocazione(const volatile void*, std::size_t) {
    segna();
}
void al_rilascio(const volatile void*) {}
const int GANCIO = __sanitizer_install_malloc_and_free_hooks(alla_allocazione, al_rilascio);
}  // namespace

#else

// glibc's own allocator under the names it has for programs that put theirs in front of it.
extern "C" {
void* __libc_malloc(std::size_t byte);
void* __libc_calloc(std::size_t numero, std::size_t byte);
void* __libc_realloc(void* blocco, std::size_t byte);
void* __libc_memalign(std::size_t allineamento, std::size_t byte);
void __libc_free(void* blocco);

void* malloc(std::size_t byte) noexcept {
    segna();
    return __libc_malloc(byte);
}
void* calloc(std::size_t numero, std::size_t byte) noexcept {
    segna();
    return __libc_calloc(numero, byte);
}
void* realloc(void* blocco, std::size_t byte) noexcept {
    segna();
    return __libc_realloc(blocco, byte);
}
void* memalign(std::size_t allineamento, std::size_t byte) noexcept {
    segna();
    return __libc_memalign(allineamento, byte);
}
void* aligned_alloc(std::size_t allineamento, std::size_t byte) noexcept {
    segna();
    return __libc_memalign(allineamento, byte);
}
int posix_memalign(void** blocco, std::size_t allineamento, std::size_t byte) noexcept {
    segna();
    *blocco = __libc_memalign(allineamento, byte);
    return *blocco == nullptr ? ENOMEM : 0;
}
void free(void* blocco) noexcept {
    __libc_free(blocco);
}
}

#endif

using namespace kel_test;

namespace {

template <typename Funzione>
unsigned conta_allocazioni(Funzione&& fai) {
    allocazioni = 0;
    conta = true;
    fai();
    conta = false;
    return allocazioni;
}

TEST(AllocationCounter, SeesWhatOthersAllocate) {
#if KEL_CON_SANITIZER
    ASSERT_NE(GANCIO, 0) << "the sanitizer took no hook";
#endif
    EXPECT_GE(conta_allocazioni([] {
                  void* volatile blocco = std::malloc(10);
                  std::free(blocco);
              }),
              1u)
        << "malloc of this program";
    EXPECT_GE(conta_allocazioni([] {
                  int* volatile numero = new int(1);
                  delete numero;
              }),
              1u)
        << "operator new of the C++ library";
    EXPECT_GE(conta_allocazioni([] {
                  char* volatile copia = strdup("a text of the C library");
                  std::free(copia);
              }),
              1u)
        << "malloc called inside the C library";
    // Inside the library itself: the object face does allocate.
    EXPECT_GE(conta_allocazioni([] { delete IFunzioni::CreateMe(); }), 1u) << "the library's own allocations";
    EXPECT_EQ(conta_allocazioni([] {}), 0u);
}

TEST(FlatFace, ChannelFunctionsAllocateNothing) {
    s_kel_canale canali[4];
    std::memset(canali, 0, sizeof canali);
    s_kel_canale* trovati[4];
    const unsigned quante = conta_allocazioni([&] {
        s_set_canali set;
        kelFunInit(&set, canali, 4, 0);
        while (s_kel_canale* canale = kelFunGetFreeCh(&set)) {
            canale->fid = PACCHETTO_GPS;
        }
        canali[0].fid = FID;
        kelFunFreeLastCh(&set);
        kelFunGetCanale(&set, 1);
        kelFunGetNumChUsed(&set);
        kelFunGetNumChTot(&set);
        kelFunGetSizeBufferValori(&set);
        kelFunGetNomeCanale(&set, 0);
        kelFunGetNomeCanaleShort(&set, 0);
        for (kel_funpos fid : {0u, FID, 0xA940Bu, PACCHETTO_GPS, 0xFFFFFFFFu}) {
            kelFunGetMatchCh(&set, fid);
            kelFunGetMatchChFull(&set, fid);
            unsigned numero = 4;
            kelFunGetMatchChList(&set, fid, trovati, &numero);
        }
    });
    EXPECT_EQ(quante, 0u);
}

TEST(FlatFace, UnitFunctionsAllocateNothing) {
    const unsigned quante = conta_allocazioni([] {
        for (kel_funpos fid = 0; fid < 0x8000; fid += 7) {
            kelFunGetUIVs(fid);
            kelFunGetUnitaBase(fid);
            for (const char* udm : {"bar", "a unit that no table of any quantity has ever had"}) {
                kelFunGetNumDecimaliDefault(fid, udm);
                kelFunGetNumDecimaliMax(fid, udm);
                kelFunGetNumDecimaliMin(fid, udm);
                kelFunGetConvData(fid, udm);
                kelFunGetConvDatas(fid, udm, "psi");
            }
            kelFunGetConvData(fid, nullptr);
        }
        for (unsigned codice = 0; codice < 40; ++codice) {
            kelFunGetUdmTxt(codice);
        }
        kelFunGetUdmCode("mV");
        kelFunGetUdmCode("a unit that no table of any quantity has ever had");
    });
    EXPECT_EQ(quante, 0u);
}

TEST(FlatFace, NameAndCameraFunctionsAllocateNothing) {
    const unsigned quante = conta_allocazioni([] {
        s_set_canali set;
        kelFunInit(&set, nullptr, 0, 0);
        for (std::uint64_t fid = 0; fid < 0x20000000u; fid += 0x123457u) {
            kelFunGetNomeFunzioneShort(&set, static_cast<kel_funpos>(fid));
            kelFunGetNomeFunzioneShort(nullptr, static_cast<kel_funpos>(fid));
            kelFunGetFunVecchiaZumikoDaFID(static_cast<kel_funpos>(fid));
            kelFunGetParamZumikoCam(static_cast<kel_funpos>(fid));
        }
        for (const char* id : {"", "nobody knows an identifier as long as this one is"}) {
            kelFunGetFidDaID(id);
            kelFunGetFunVecchiaZumikoDaID(id);
        }
        kelFunGetFidDaID(nullptr);
        getFunzVisSize();
        getFunzVisEstSize();
    });
    EXPECT_EQ(quante, 0u);
}

TEST(FlatFace, SampleFunctionsAllocateNothing) {
    const unsigned quante = conta_allocazioni([] {
        for (unsigned codice = 0; codice < 30; ++codice) {
            kelFunGetSamplSize(codice);
        }
        for (unsigned bit = 0; bit < 0xFF000000u; bit += 0x123457u) {
            kelF16decompress(kelF16compress(bit));
        }
    });
    EXPECT_EQ(quante, 0u);
}

TEST(FlatFace, SubfieldFunctionsAllocateNothing) {
    const unsigned quante = conta_allocazioni([] {
        for (unsigned dettagli = 0; dettagli < 6; ++dettagli) {
            for (unsigned spec = 0; spec < 4; ++spec) {
                kelConvMatchSottocampo(dettagli, spec, 0xA940B);
                if (const s_sottocampo* tabella = search_sottocampi_struct(dettagli, spec)) {
                    getDettagliSottocampo(tabella, 0x98B);
                }
                const kel_funpos fid = kelFidComponi(FID_PHI_PACKAGE, dettagli, spec);
                kelConvGetSottoCampiGPS(fid);
                kelConvGetSottoCampiLapTime(fid);
                kelConvGetSottoCampiDataOra(fid);
            }
        }
    });
    EXPECT_EQ(quante, 0u);
}

TEST(FlatFace, ConverterFunctionsAllocateNothing) {
    unsigned char campione[64];
    const kel_funpos funzioni[] = {FID, 0xA940B, 0xA8010, 0xA8A07, 0xA8A87, 0x992, 0x1306};
    const unsigned quante = conta_allocazioni([&] {
        for (kel_funpos canale_fid : {FID, PACCHETTO_GPS, PACCHETTO_UBX, PACCHETTO_GIRO2_G, PACCHETTO_GIRO1_G}) {
            for (unsigned tipo = 0; tipo <= 26; ++tipo) {
                for (kel_funpos fid : funzioni) {
                    const s_kel_canale canale = un_canale(canale_fid, tipo);
                    for (unsigned char riempimento = 0; riempimento < 250; riempimento += 25) {
                        std::memset(campione, riempimento, sizeof campione);
                        s_kel_converter conv{};
                        conv.larghezza = riempimento;
                        conv.decimali = riempimento % 4u;
                        conv.auto_decimali = riempimento % 2u;
                        kelConvInit(&conv, &canale, fid, &DOPPIO_PIU_CINQUE, riempimento % 3u, riempimento % 5u, 1);
                        float valore;
                        char testo[32];
                        kelConvGetValFloat(&conv, campione, &valore);
                        kelConvGetString(&conv, campione, testo);
                        kelConvGetConvData(&conv);
                        kelConvGetOffset(&conv);
                    }
                }
            }
        }
    });
    EXPECT_EQ(quante, 0u);
}

TEST(ObjectFace, ValueReadsAllocateNothing) {
    for (unsigned tipo = 0; tipo < kel_test::TIPI_CAMPIONE; ++tipo) {
        const s_kel_canale canale = un_canale(FID, tipo);
        CConverter conv(&canale, FID, &IDENTITA, true, 1, FORMATO_DESTRA, 8);
        const Byte campione(64, 0x31);
        EXPECT_EQ(conta_allocazioni([&] {
                      float valore;
                      conv.GetVal(campione.data(), &valore);
                      conv.SetNumDec(2);
                  }),
                  0u)
            << "sample type " << tipo;
    }
}

}  // namespace
