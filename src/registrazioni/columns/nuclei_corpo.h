// The body of nuclei_*.cpp: plain loops over samples, which the compiler turns into vector code of the file's instruction set.
//
// Values have the bits of the first library's decoders: the same operations in the same order, in single precision, nothing
// fused. Where a decoder chooses, both sides are computed and one is kept. Everything here is local to the file, and no
// inline function of the standard library is called: the linker would keep one copy for all instruction sets.
#include <cfloat>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#ifdef __SSE2__
#include <immintrin.h>
#endif

#include "columns/campo.h"
#include "columns/cifre.h"
#include "columns/nuclei.h"

#if !defined(FLT_EVAL_METHOD) || FLT_EVAL_METHOD != 0
#error "float arithmetic keeps excess precision here: on 32-bit x86 build with -msse2 -mfpmath=sse"
#endif
#ifdef __FAST_MATH__
#error "-ffast-math changes the values: build without it"
#endif

// NOLINTBEGIN(misc-definitions-in-headers): each source file that includes it has its own copy.
namespace kel_colonne {
namespace {

// Samples lie at any address.
template <typename T>
struct Campione {
    T numero;
} __attribute__((packed, may_alias));

template <typename T>
inline T leggi(const unsigned char* campione) {
    return reinterpret_cast<const Campione<T>*>(campione)->numero;
}

inline float come_float(std::uint32_t bit) {
    return __builtin_bit_cast(float, bit);
}

// --- The samples' numbers, as floats, and their status words -----------------------------------------------------------

// Three bit patterns of 16 and 32 bits carry no measurement.
template <typename T>
struct Intero {
    using Grezzo = T;
    static float numero(T grezzo, const Conversione&) { return static_cast<float>(grezzo); }
    // 0xCFFD, 0xCFFE and 0xCFFF: invalid, missing, over range; in 32 bits with ones above. In the width of the sample, as
    // many at a time as there are samples in a vector.
    static T stato(T grezzo) {
        if (sizeof(T) == 1)
            return 0;
        using Nudo = std::conditional_t<sizeof(T) == 2, std::uint16_t, std::uint32_t>;
        const auto oltre = static_cast<Nudo>(static_cast<Nudo>(grezzo) - static_cast<Nudo>(0xFFFFCFFDu));
        const T noto = oltre == 0   ? T{KEL_STATO_NON_VALIDO}
                       : oltre == 1 ? T{KEL_STATO_MANCANTE}
                                    : T{KEL_STATO_FUORI_SCALA};
        return oltre < 3 ? noto : T{0};
    }
    // Whether it carries no measurement, told by as little as can be.
    static bool cattivo(T grezzo) {
        using Nudo = std::conditional_t<sizeof(T) == 2, std::uint16_t, std::uint32_t>;
        return sizeof(T) != 1 && static_cast<Nudo>(static_cast<Nudo>(grezzo) - static_cast<Nudo>(0xFFFFCFFDu)) < 3;
    }
};

// The one bit above a bit field, moved down to the field's place. The place is below 32 here.
template <typename T>
struct CampoBit : Intero<T> {
    static float numero(T grezzo, const Conversione& conversione) {
        const std::uint32_t campo = (std::uint32_t{grezzo} & conversione.maschera) >> conversione.pos_bit;
        return static_cast<float>(static_cast<T>(campo));
    }
};

struct Float {
    using Grezzo = std::uint32_t;
    static float numero(std::uint32_t grezzo, const Conversione&) { return come_float(grezzo); }
    // A NaN is no measurement, an infinity an over range. As signed numbers, which every instruction set compares.
    static std::uint32_t stato(std::uint32_t grezzo) {
        constexpr std::int32_t infinito = 0x7F800000;
        const auto modulo = static_cast<std::int32_t>(grezzo & 0x7FFFFFFFu);
        const std::uint32_t noto =
            modulo == infinito ? std::uint32_t{KEL_STATO_FUORI_SCALA} : std::uint32_t{KEL_STATO_NON_VALIDO};
        return modulo >= infinito ? noto : std::uint32_t{0};
    }
    static bool cattivo(std::uint32_t grezzo) { return static_cast<std::int32_t>(grezzo & 0x7FFFFFFFu) >= 0x7F800000; }
};

// 16-bit floats. NaNs go on as values.
struct Mezzo {
    using Grezzo = std::uint16_t;
    static float numero(std::uint16_t grezzo, const Conversione&) {
        const std::uint32_t segno = (grezzo & 0x8000u) << 16;
        const std::uint32_t modulo = grezzo & 0x7FFFu;
        const std::uint32_t piccolo =
            __builtin_bit_cast(std::uint32_t, static_cast<float>(static_cast<std::int32_t>(modulo)) * 0x1p-24f);
        const std::uint32_t normale = (modulo + (modulo >= 0x7C00u ? 0x38000u : 0x1C000u)) << 13;
        return come_float(segno | (modulo < 0x400u ? piccolo : normale));
    }
    static std::uint16_t stato(std::uint16_t grezzo) {
        return grezzo == 0x7C00u   ? std::uint16_t{KEL_STATO_FUORI_SCALA | KEL_STATO_NON_VALIDO}
               : grezzo == 0xFC00u ? std::uint16_t{KEL_STATO_MANCANTE}
                                   : std::uint16_t{0};
    }
    static bool cattivo(std::uint16_t grezzo) { return (grezzo == 0x7C00u) | (grezzo == 0xFC00u); }
};

// --- Loops over samples that lie side by side --------------------------------------------------------------------------

inline float reciproca(float x, const Conversione& conversione) {
    const float divisore = x == 0.0f ? 1.0f : x;
    const float valore = 1.0f / divisore * conversione.gain + conversione.offset;
    return x == 0.0f ? 0.0f : valore;
}

template <typename Formato>
bool lineari(const unsigned char* campioni, std::size_t, std::size_t numero, const Conversione& conversione,
             float* __restrict valori) {
    using Grezzo = typename Formato::Grezzo;
    const Conversione c = conversione;
    std::uint32_t cattivi = 0;
    for (std::size_t i = 0; i < numero; ++i) {
        const auto grezzo = leggi<Grezzo>(campioni + i * sizeof(Grezzo));
        const float valore = Formato::numero(grezzo, c) * c.gain + c.offset;
        const std::uint32_t cattivo = Formato::cattivo(grezzo) ? ~std::uint32_t{0} : 0;
        valori[i] = come_float(__builtin_bit_cast(std::uint32_t, valore) & ~cattivo);
        cattivi |= cattivo;
    }
    return cattivi == 0;
}

template <typename Formato>
bool reciproci(const unsigned char* campioni, std::size_t, std::size_t numero, const Conversione& conversione,
               float* __restrict valori) {
    using Grezzo = typename Formato::Grezzo;
    const Conversione c = conversione;
    std::uint32_t cattivi = 0;
    for (std::size_t i = 0; i < numero; ++i) {
        const auto grezzo = leggi<Grezzo>(campioni + i * sizeof(Grezzo));
        const float valore = reciproca(Formato::numero(grezzo, c), c);
        const std::uint32_t cattivo = Formato::cattivo(grezzo) ? ~std::uint32_t{0} : 0;
        valori[i] = come_float(__builtin_bit_cast(std::uint32_t, valore) & ~cattivo);
        cattivi |= cattivo;
    }
    return cattivi == 0;
}

// Whether all are good, which most are: then the statuses are not worked out one by one.
template <typename Formato>
bool tutti_buoni(const unsigned char* campioni, std::size_t numero) {
    using Grezzo = typename Formato::Grezzo;
    Grezzo cattivi = 0;
    for (std::size_t i = 0; i < numero; ++i)
        cattivi =
            static_cast<Grezzo>(cattivi | (Formato::cattivo(leggi<Grezzo>(campioni + i * sizeof(Grezzo))) ? 1 : 0));
    return cattivi == 0;
}

template <typename Formato>
bool stati_di(const unsigned char* campioni, std::size_t numero, unsigned char* __restrict stati) {
    using Grezzo = typename Formato::Grezzo;
    if (tutti_buoni<Formato>(campioni, numero))
        return true;
    for (std::size_t i = 0; i < numero; ++i)
        stati[i] = static_cast<unsigned char>(Formato::stato(leggi<Grezzo>(campioni + i * sizeof(Grezzo))));
    return false;
}

// 16-bit floats with the processor's own conversion where it has one. It makes a NaN quiet, as the product would.
template <bool Reciproca>
bool mezzi(const unsigned char* campioni, std::size_t passo, std::size_t numero, const Conversione& conversione,
           float* __restrict valori) {
    bool buoni = true;
#ifdef __F16C__
    const Conversione c = conversione;
    const std::size_t interi = numero / 8 * 8;
    for (std::size_t i = 0; i < interi; i += 8)
        _mm256_storeu_ps(valori + i,
                         _mm256_cvtph_ps(_mm_loadu_si128(reinterpret_cast<const __m128i*>(campioni + 2 * i))));
    std::uint32_t cattivi = 0;
    for (std::size_t i = 0; i < interi; ++i) {
        const float valore = Reciproca ? reciproca(valori[i], c) : valori[i] * c.gain + c.offset;
        const std::uint32_t cattivo = Mezzo::cattivo(leggi<std::uint16_t>(campioni + 2 * i)) ? ~std::uint32_t{0} : 0;
        valori[i] = come_float(__builtin_bit_cast(std::uint32_t, valore) & ~cattivo);
        cattivi |= cattivo;
    }
    buoni = cattivi == 0;
    campioni += 2 * interi;
    valori += interi;
    numero -= interi;
#endif
    if (Reciproca)
        return reciproci<Mezzo>(campioni, passo, numero, conversione, valori) && buoni;
    return lineari<Mezzo>(campioni, passo, numero, conversione, valori) && buoni;
}

// A gear: no lower than -8, which is also what a reserved pattern shows.
bool marce(const unsigned char* campioni, std::size_t, std::size_t numero, const Conversione&,
           float* __restrict valori) {
    constexpr std::int16_t minima = -8;
    for (std::size_t i = 0; i < numero; ++i) {
        const auto grezzo = leggi<std::int16_t>(campioni + i * 2);
        // The reserved patterns are all below -8.
        valori[i] = static_cast<float>(grezzo < minima ? minima : grezzo);
    }
    return tutti_buoni<Intero<std::int16_t>>(campioni, numero);
}

bool numeri(const unsigned char* campioni, std::size_t, std::size_t numero, const Conversione&,
            float* __restrict valori) {
    for (std::size_t i = 0; i < numero; ++i)
        valori[i] = static_cast<float>(leggi<std::int16_t>(campioni + i * 2));
    return true;
}

bool zeri(const unsigned char*, std::size_t, std::size_t numero, const Conversione&, float* __restrict valori) {
    for (std::size_t i = 0; i < numero; ++i)
        valori[i] = 0.0f;
    return true;
}

// A byte's set bits as decimal digits, counted from 1, the highest in the units place.
struct ListaBit : Intero<std::uint8_t> {
    static float numero(std::uint8_t grezzo, const Conversione&) {
        std::int32_t elenco = 0;
        for (std::int32_t bit = 0; bit < 8; ++bit)
            elenco = (grezzo >> bit & 1) != 0 ? elenco * 10 + bit + 1 : elenco;
        return static_cast<float>(elenco);
    }
};

// Of a bit field, counted from 0, each in its own place.
struct ListaBitMascherata : Intero<std::uint8_t> {
    static float numero(std::uint8_t grezzo, const Conversione& conversione) {
        const std::uint32_t campo = (grezzo & conversione.maschera) >> conversione.pos_bit;
        const std::uint32_t bit = campo & ((1u << conversione.num_bit) - 1u);
        std::int32_t elenco = 0;
        std::int32_t peso = 1;
        for (std::int32_t numero = 0; numero < 8; ++numero, peso *= 10)
            elenco += (bit >> numero & 1u) != 0 ? numero * peso : 0;
        return static_cast<float>(elenco);
    }
};

// --- GPS packets --------------------------------------------------------------------------------------------------------

#include "columns/nuclei_gps.h"

// --- Texts --------------------------------------------------------------------------------------------------------------

#include "columns/nuclei_testi.h"

// --- What goes with them -----------------------------------------------------------------------------------------------

template <typename T>
void raccogli_tipo(const unsigned char* campioni, std::size_t passo, std::size_t numero, T* __restrict densi) {
    std::size_t i = 0;
    for (; i + 4 <= numero; i += 4, campioni += 4 * passo) {
        densi[i] = leggi<T>(campioni);
        densi[i + 1] = leggi<T>(campioni + passo);
        densi[i + 2] = leggi<T>(campioni + 2 * passo);
        densi[i + 3] = leggi<T>(campioni + 3 * passo);
    }
    for (; i < numero; ++i, campioni += passo)
        densi[i] = leggi<T>(campioni);
}

void raccogli(const unsigned char* campioni, std::size_t passo, std::size_t numero, unsigned byte, void* densi) {
    if (byte == 2)
        raccogli_tipo(campioni, passo, numero, static_cast<std::uint16_t*>(densi));
    else if (byte == 4)
        raccogli_tipo(campioni, passo, numero, static_cast<std::uint32_t*>(densi));
    else
        raccogli_tipo(campioni, passo, numero, static_cast<unsigned char*>(densi));
}

void bit_validi(const unsigned char* stati, std::size_t numero, unsigned char* validi) {
    std::size_t i = 0;
#if defined(__AVX2__)
    for (; i + 32 <= numero; i += 32) {
        const __m256i parola = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(stati + i));
        const int buoni = _mm256_movemask_epi8(_mm256_cmpeq_epi8(parola, _mm256_setzero_si256()));
        __builtin_memcpy(validi + i / 8, &buoni, 4);
    }
#elif defined(__SSE2__)
    for (; i + 16 <= numero; i += 16) {
        const __m128i parola = _mm_loadu_si128(reinterpret_cast<const __m128i*>(stati + i));
        const int buoni = _mm_movemask_epi8(_mm_cmpeq_epi8(parola, _mm_setzero_si128()));
        __builtin_memcpy(validi + i / 8, &buoni, 2);
    }
#endif
    for (; i + 8 <= numero; i += 8) {
        std::uint64_t parola;  // NOLINT(cppcoreguidelines-init-variables): the next line writes it
        __builtin_memcpy(&parola, stati + i, 8);
        // The sum carries into the top bit of a byte that is not 0. The product then brings the eight bits together.
        constexpr std::uint64_t sette = 0x7F7F7F7F7F7F7F7F;
        const std::uint64_t buoni = ~(((parola & sette) + sette) | parola) >> 7 & 0x0101010101010101;
        validi[i / 8] = static_cast<unsigned char>(buoni * 0x0102040810204080 >> 56);
    }
    if (i < numero) {
        unsigned ultimi = 0;
        for (std::size_t bit = 0; i + bit < numero; ++bit)
            ultimi |= (stati[i + bit] == 0 ? 1u : 0u) << bit;
        validi[i / 8] = static_cast<unsigned char>(ultimi);
    }
}

#ifdef __SSE2__
void copia_oltre(const float* da, std::size_t numero, float* a) {
    std::size_t i = 0;
    for (; i < numero && reinterpret_cast<std::uintptr_t>(a + i) % 64 != 0; ++i)
        a[i] = da[i];
#ifdef __AVX2__
    for (; i + 16 <= numero; i += 16) {
        _mm256_stream_ps(a + i, _mm256_loadu_ps(da + i));
        _mm256_stream_ps(a + i + 8, _mm256_loadu_ps(da + i + 8));
    }
#else
    for (; i + 4 <= numero; i += 4)
        _mm_stream_ps(a + i, _mm_loadu_ps(da + i));
#endif
    for (; i < numero; ++i)
        a[i] = da[i];
}

void fine_oltre() {
    _mm_sfence();
}
#endif

}  // namespace

const Nuclei KEL_NUCLEI = {
    KEL_NUCLEI_NOME,
    {
        {2, lineari<Intero<std::int16_t>>, stati_di<Intero<std::int16_t>>},
        {2, lineari<Intero<std::uint16_t>>, stati_di<Intero<std::uint16_t>>},
        {4, lineari<Float>, stati_di<Float>},
        {1, lineari<Intero<std::uint8_t>>, nullptr},
        {4, lineari<Intero<std::int32_t>>, stati_di<Intero<std::int32_t>>},
        {4, lineari<Intero<std::uint32_t>>, stati_di<Intero<std::uint32_t>>},
        {2, mezzi<false>, stati_di<Mezzo>},
        {2, marce, stati_di<Intero<std::int16_t>>},
        {2, numeri, nullptr},
        {0, zeri, nullptr},
        {2, lineari<CampoBit<std::uint16_t>>, stati_di<Intero<std::uint16_t>>},
        {4, lineari<CampoBit<std::uint32_t>>, stati_di<Intero<std::uint32_t>>},
        {1, lineari<CampoBit<std::uint8_t>>, nullptr},
        {1, lineari<ListaBit>, nullptr},
        {1, lineari<ListaBitMascherata>, nullptr},
        {2, reciproci<Intero<std::int16_t>>, stati_di<Intero<std::int16_t>>},
        {2, reciproci<Intero<std::uint16_t>>, stati_di<Intero<std::uint16_t>>},
        {4, reciproci<Float>, stati_di<Float>},
        {1, reciproci<Intero<std::uint8_t>>, nullptr},
        {4, reciproci<Intero<std::int32_t>>, stati_di<Intero<std::int32_t>>},
        {4, reciproci<Intero<std::uint32_t>>, stati_di<Intero<std::uint32_t>>},
        {2, mezzi<true>, stati_di<Mezzo>},
        {0, latitudini, nullptr},
        {0, longitudini, nullptr},
        {0, velocita<Gps, false>, nullptr},
        {0, velocita<Gps, true>, nullptr},
        {0, velocita<NavSol, false>, nullptr},
        {0, velocita<NavSol, true>, nullptr},
    },
    raccogli,
    bit_validi,
    numeri_in_parole,
    tempi_in_parole,
#ifdef __SSE2__
    copia_oltre,
    fine_oltre,
#else
    nullptr,
    nullptr,
#endif
};

}  // namespace kel_colonne
// NOLINTEND(misc-definitions-in-headers)
