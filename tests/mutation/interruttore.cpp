// Part of the instrumented library alone: reads from the environment which mutant is on, before anything else runs.
//
//   KEL_MUTANTE=NUMBER                         a mutant of the code
//   KEL_CELLA=SYMBOL:PLACE:BYTES               a cell of a table: from this place on it holds these bytes (hexadecimal)
//   KEL_CELLA=SYMBOL:PLACE:text:BYTES          a pointer there leads to this text
//   KEL_CELLA=SYMBOL:PLACE:address:DISTANCE    a pointer there leads to this place of the library
//   KEL_VISTI=FILE                             which mutants the run came by: a byte of each, appended to FILE
//
// PLACE counts from the symbol, or, where that is empty, from the beginning of the library.
#include "interruttore.h"

#include <dlfcn.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

int kel_mutante_acceso = 0;
unsigned char* kel_mutanti_visti = nullptr;

namespace {

constexpr std::size_t mutanti_massimi = 65536;
unsigned char visti[mutanti_massimi];

[[noreturn]] void rinuncia(const char* perche) {
    std::fprintf(stderr, "mutant: %s\n", perche);
    std::_Exit(125);
}

std::vector<std::string> parti(const std::string& testo) {
    std::vector<std::string> parti(1);
    for (const char c : testo)
        if (c == ':')
            parti.emplace_back();
        else
            parti.back() += c;
    return parti;
}

std::string byte_di(const std::string& esadecimale) {
    std::string byte;
    for (std::size_t i = 0; i + 1 < esadecimale.size(); i += 2)
        byte += static_cast<char>(std::strtoul(esadecimale.substr(i, 2).c_str(), nullptr, 16));
    return byte;
}

char* inizio_libreria() {
    Dl_info info;
    if (dladdr(&kel_mutante_acceso, &info) == 0)
        rinuncia("the library does not find itself");
    return static_cast<char*>(info.dli_fbase);
}

// A program may hold the table itself, as a copy: its symbol leads there.
char* inizio_tabella(const std::string& simbolo) {
    if (simbolo.empty())
        return inizio_libreria();
    void* tabella = dlsym(RTLD_DEFAULT, simbolo.c_str());
    if (tabella == nullptr)
        rinuncia("no such table");
    return static_cast<char*>(tabella);
}

std::string puntatore(const void* dove) {
    return {reinterpret_cast<const char*>(&dove), sizeof dove};
}

std::string nuovi_byte(const std::vector<std::string>& richiesta) {
    if (richiesta[2] == "text")
        return puntatore(strdup(byte_di(richiesta.at(3)).c_str()));
    if (richiesta[2] == "address")
        return puntatore(inizio_libreria() + std::strtoul(richiesta.at(3).c_str(), nullptr, 16));
    return byte_di(richiesta[2]);
}

void cambia_cella(const char* testo) {
    const std::vector<std::string> richiesta = parti(testo);
    char* cella = inizio_tabella(richiesta.at(0)) + std::strtoul(richiesta.at(1).c_str(), nullptr, 16);
    const std::string byte = nuovi_byte(richiesta);
    const auto pagina = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const std::uintptr_t da = reinterpret_cast<std::uintptr_t>(cella) / pagina * pagina;
    const std::uintptr_t a = reinterpret_cast<std::uintptr_t>(cella) + byte.size();
    if (mprotect(reinterpret_cast<void*>(da), a - da, PROT_READ | PROT_WRITE | PROT_EXEC) != 0)
        rinuncia("the table cannot be made writable");
    std::memcpy(cella, byte.data(), byte.size());
}

void annota() {
    if (FILE* file = std::fopen(std::getenv("KEL_VISTI"), "ab")) {
        std::fwrite(visti, 1, sizeof visti, file);
        std::fclose(file);
    }
}

[[gnu::constructor]] void accendi() {
    if (const char* numero = std::getenv("KEL_MUTANTE"))
        kel_mutante_acceso = std::atoi(numero);
    if (const char* cella = std::getenv("KEL_CELLA"))
        cambia_cella(cella);
    if (std::getenv("KEL_VISTI") != nullptr) {
        kel_mutanti_visti = visti;
        std::atexit(annota);
    }
}

}  // namespace
