// Measures the stack that each flat function uses, with all functions that it calls, and prints where its decoders are.
//
// One line per operation: name, bytes, offsets of the decoders from the library's start (hexadecimal), by tabs.
#include <dlfcn.h>
#include <ucontext.h>

#include <array>
#include <cstdint>
#include <cstdio>

#include "conti/operazioni.h"

namespace {

// The calls run on a stack of their own that is filled with a pattern: bytes that have changed were used.
constexpr unsigned char SEGNO = 0xA5;
std::array<unsigned char, 65536> pila;
ucontext_t ritorno;
const conti::Operazione* in_esame;
long usati;

// Finds the deepest byte that has changed. It calls no function, because a call would use the stack as well.
void sulla_pila() {
    in_esame->esegui();
    const volatile unsigned char* ultimo = pila.data();
    while (*ultimo == SEGNO)
        ++ultimo;
    usati = static_cast<const volatile unsigned char*>(__builtin_frame_address(0)) - ultimo;
}

long byte_usati(const conti::Operazione& operazione) {
    operazione.esegui();
    pila.fill(SEGNO);
    in_esame = &operazione;
    ucontext_t contesto;
    getcontext(&contesto);
    contesto.uc_stack.ss_sp = pila.data();
    contesto.uc_stack.ss_size = pila.size();
    contesto.uc_link = &ritorno;
    makecontext(&contesto, sulla_pila, 0);
    swapcontext(&ritorno, &contesto);
    return usati;
}

template <typename Funzione>
void scrivi_posto(Funzione funzione) {
    Dl_info dove;
    auto* const indirizzo = reinterpret_cast<void*>(funzione);
    if (funzione != nullptr && dladdr(indirizzo, &dove) != 0)
        std::printf("\t%lx", static_cast<unsigned long>(reinterpret_cast<std::uintptr_t>(indirizzo) -
                                                        reinterpret_cast<std::uintptr_t>(dove.dli_fbase)));
}

}  // namespace

int main() {
    for (const conti::Operazione& operazione : conti::operazioni_flat()) {
        std::printf("%s\t%ld", operazione.nome, byte_usati(operazione));
        if (operazione.conv != nullptr) {
            scrivi_posto(operazione.conv->valore);
            scrivi_posto(operazione.conv->testo);
            scrivi_posto(operazione.conv->testo_stato);
        }
        std::printf("\n");
    }
}
