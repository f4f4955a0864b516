// Exceptions in a WebAssembly module. Debian's libc++abi for wasm32 is built without them: it has types and their tables,
// but nothing that throws. What the compiler's code asks for is here; the stack itself is unwound by the browser.
//
// Only what this module does is provided for: objects of classes with single inheritance are thrown and are caught by
// reference, none is thrown again, and there is one thread.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <typeinfo>

// What the compiler's code and this file tell each other at a landing pad; the compiler knows the name.
struct KelContestoApprodo {
    std::uintptr_t approdo;      // which landing pad of the function, written by the compiler's code
    const std::uint8_t* tavola;  // the function's table of them, written by the compiler's code
    std::uintptr_t scelto;       // which of its catch clauses is to run, read by the compiler's code; 0: none
};
extern "C" thread_local constinit KelContestoApprodo __wasm_lpad_context = {0, nullptr, 0};  // NOLINT

// The table of classes with one base, by which such a class's type information is known. Its third word is the base.
extern "C" const void* const KEL_TAVOLA_UNA_BASE[] __asm__("_ZTVN10__cxxabiv120__si_class_type_infoE");

namespace {

// In WebAssembly a destructor returns its object.
using Distruttore = void* (*)(void*);

// What stands before a thrown object.
struct Testa {
    const std::type_info* tipo;
    Distruttore distrugge;
};
constexpr std::size_t DIMENSIONE_TESTA = 16;  // so that the object is aligned as memory is
static_assert(sizeof(Testa) <= DIMENSIONE_TESTA);

Testa* testa(void* oggetto) {
    return reinterpret_cast<Testa*>(static_cast<char*>(oggetto) - DIMENSIONE_TESTA);
}

// An exception must not fail for want of memory: this is thrown where there is none.
alignas(16) char riserva[256];

const std::type_info* base(const std::type_info* tipo) {
    const auto* parole = reinterpret_cast<const void* const*>(tipo);
    const bool una_base = parole[0] == &KEL_TAVOLA_UNA_BASE[2];
    return una_base ? static_cast<const std::type_info*>(parole[2]) : nullptr;
}

bool presa(const std::type_info* clausola, const std::type_info* lanciata) {
    if (clausola == nullptr)  // catch (...)
        return true;
    for (const std::type_info* tipo = lanciata; tipo != nullptr; tipo = base(tipo))
        if (*tipo == *clausola)
            return true;
    return false;
}

std::uintptr_t leggi_uleb(const std::uint8_t*& dove) {
    std::uintptr_t valore = 0;
    for (unsigned bit = 0;; bit += 7) {
        const std::uint8_t byte = *dove++;
        valore |= static_cast<std::uintptr_t>(byte & 0x7FU) << bit;
        if ((byte & 0x80U) == 0)
            return valore;
    }
}

std::intptr_t leggi_sleb(const std::uint8_t*& dove) {
    std::uintptr_t valore = 0;
    unsigned bit = 0;
    std::uint8_t byte = 0;
    do {
        byte = *dove++;
        valore |= static_cast<std::uintptr_t>(byte & 0x7FU) << bit;
        bit += 7;
    } while ((byte & 0x80U) != 0);
    if ((byte & 0x40U) != 0 && bit < 8 * sizeof valore)
        valore |= ~static_cast<std::uintptr_t>(0) << bit;
    return static_cast<std::intptr_t>(valore);
}

// The table of the Itanium C++ ABI, with what WebAssembly leaves out of it: the landing pads are counted, addresses are
// plain words.
std::uintptr_t scegli(const std::uint8_t* dove, std::uintptr_t approdo, const std::type_info* lanciata) {
    constexpr std::uint8_t OMESSO = 0xFF;
    if (*dove++ != OMESSO)
        std::abort();
    const std::uint8_t* tipi = nullptr;
    if (*dove++ != OMESSO) {
        const std::uintptr_t distanza = leggi_uleb(dove);
        tipi = dove + distanza;
    }
    ++dove;  // how call sites are written: always as counts
    const std::uintptr_t lunghezza = leggi_uleb(dove);
    const std::uint8_t* azioni = dove + lunghezza;
    for (std::uintptr_t i = 0; i < approdo; ++i) {
        leggi_uleb(dove);
        leggi_uleb(dove);
    }
    leggi_uleb(dove);
    const std::uintptr_t prima = leggi_uleb(dove);
    if (prima == 0)
        return 0;
    const std::uint8_t* azione = azioni + (prima - 1);
    for (;;) {
        const std::intptr_t filtro = leggi_sleb(azione);
        const std::uint8_t* qui = azione;
        const std::intptr_t prossima = leggi_sleb(azione);
        if (filtro > 0) {
            const auto* clausola = reinterpret_cast<const std::type_info* const*>(tipi) - filtro;
            if (presa(*clausola, lanciata))
                return static_cast<std::uintptr_t>(filtro);
        }
        if (prossima == 0)
            return 0;
        azione = qui + prossima;
    }
}

}  // namespace

extern "C" {

void* __cxa_allocate_exception(std::size_t quanti) noexcept {
    auto* memoria = static_cast<char*>(std::malloc(DIMENSIONE_TESTA + quanti));
    if (memoria == nullptr && DIMENSIONE_TESTA + quanti <= sizeof riserva)
        memoria = riserva;
    if (memoria == nullptr)
        std::abort();
    return memoria + DIMENSIONE_TESTA;
}

void __cxa_free_exception(void* oggetto) noexcept {
    char* memoria = static_cast<char*>(oggetto) - DIMENSIONE_TESTA;
    if (memoria != riserva)
        std::free(memoria);
}

[[noreturn]] void __cxa_throw(void* oggetto, std::type_info* tipo, Distruttore distrugge) {
    *testa(oggetto) = {tipo, distrugge};
    __builtin_wasm_throw(0, oggetto);
}

int _Unwind_CallPersonality(void* oggetto) {
    KelContestoApprodo& contesto = __wasm_lpad_context;
    contesto.scelto = scegli(contesto.tavola, contesto.approdo, testa(oggetto)->tipo);
    return 0;
}

// One exception is being handled at a time, and it ends with its clause.
static void* in_mano = nullptr;

void* __cxa_begin_catch(void* oggetto) noexcept {
    in_mano = oggetto;
    return oggetto;
}

void __cxa_end_catch() {
    void* oggetto = in_mano;
    in_mano = nullptr;
    if (testa(oggetto)->distrugge != nullptr)
        testa(oggetto)->distrugge(oggetto);
    __cxa_free_exception(oggetto);
}

}  // extern "C"

// The library's own operator new ends the program where there is no memory.
void* operator new(std::size_t quanti) {
    if (void* memoria = std::malloc(quanti == 0 ? 1 : quanti))
        return memoria;
    throw std::bad_alloc();
}
void* operator new[](std::size_t quanti) {
    return operator new(quanti);
}

// How a program ends; the C++ library's own handlers would print, for which a browser has no place.
[[noreturn]] static void finisci() {
    __builtin_trap();
}
extern "C" {
void (*__cxa_terminate_handler)() = finisci;
void (*__cxa_unexpected_handler)() = finisci;
void (*__cxa_new_handler)() = nullptr;
}

namespace std {
inline namespace __2 {
[[noreturn]] void __libcpp_verbose_abort(const char* /*forma*/, ...) {
    finisci();
}  // NOLINT
}  // namespace __2
}  // namespace std
