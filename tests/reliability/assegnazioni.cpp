#include "assegnazioni.h"

#include <cstdlib>
#include <new>

namespace {

long prima_della_fine = -1;
bool una_fallita = false;
long blocchi = 0;

void* assegna(std::size_t byte) {
    if (!assegnazioni::concessa())
        throw std::bad_alloc();
    void* blocco = std::malloc(byte == 0 ? 1 : byte);
    if (blocco == nullptr)
        throw std::bad_alloc();
    assegnazioni::conta(1);
    return blocco;
}

void rilascia(void* blocco) {
    assegnazioni::conta(blocco != nullptr ? -1 : 0);
    std::free(blocco);
}

}  // namespace

namespace assegnazioni {

void fallisca(long dopo) {
    prima_della_fine = dopo;
    una_fallita = una_fallita && dopo < 0;
}

bool fallita() {
    return una_fallita;
}

long vivi() {
    return blocchi;
}

bool concessa() {
    if (prima_della_fine == 0) {
        prima_della_fine = -1;
        una_fallita = true;
        return false;
    }
    if (prima_della_fine > 0)
        --prima_della_fine;
    return true;
}

void conta(long quanti) {
    blocchi += quanti;
}

}  // namespace assegnazioni

void* operator new(std::size_t byte) {
    return assegna(byte);
}
void* operator new[](std::size_t byte) {
    return assegna(byte);
}
// A sanitizer would otherwise put its own here.
void* operator new(std::size_t byte, const std::nothrow_t&) noexcept {
    try {
        return assegna(byte);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
void operator delete(void* blocco) noexcept {
    rilascia(blocco);
}
void operator delete[](void* blocco) noexcept {
    rilascia(blocco);
}
void operator delete(void* blocco, std::size_t) noexcept {
    rilascia(blocco);
}
void operator delete[](void* blocco, std::size_t) noexcept {
    rilascia(blocco);
}
