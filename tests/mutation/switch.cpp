// Part of the instrumented library alone: reads from the environment which mutant is on, before anything else runs.
//
//   KEL_MUTANT=NUMBER                      a mutant of the code
//   KEL_CELL="SYMBOL PLACE bytes HEX"      a cell of a table: from this place on it holds these bytes
//   KEL_CELL="SYMBOL PLACE text HEX"       a pointer there leads to a text of these bytes
//   KEL_CELL="SYMBOL PLACE place PLACE"    a pointer there leads to this place of the library
//   KEL_SEEN=FILE                          the numbers of the mutants that the run comes by are appended to the file
//
// A place counts from the symbol, or, where that is "-", from the beginning of the library. All numbers but the mutant's are
// hexadecimal.
#include "switch.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <string>

int kel_mutant_on = 0;
unsigned char* kel_mutants_seen = nullptr;

namespace {

unsigned char seen[KEL_MUTANTS + 1];

[[noreturn]] void give_up(const char* why) {
    std::fprintf(stderr, "mutant: %s\n", why);
    std::_Exit(125);
}

char* library() {
    Dl_info info;
    if (dladdr(&kel_mutant_on, &info) == 0)
        give_up("the library does not find itself");
    return static_cast<char*>(info.dli_fbase);
}

std::string bytes(const std::string& hex) {
    std::string bytes;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
        bytes += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
    return bytes;
}

std::string pointer(const void* to) {
    return {reinterpret_cast<const char*>(&to), sizeof to};
}

void change_cell(const char* request) {
    std::string symbol, what, value;
    std::size_t place = 0;
    std::istringstream(request) >> symbol >> std::hex >> place >> what >> value;
    void* table = symbol == "-" ? library() : dlsym(RTLD_DEFAULT, symbol.c_str());
    if (table == nullptr)
        give_up("no such table");
    char* cell = static_cast<char*>(table) + place;
    const std::string held = what == "text"    ? pointer(strdup(bytes(value).c_str()))
                             : what == "place" ? pointer(library() + std::stoul(value, nullptr, 16))
                                               : bytes(value);
    const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const auto begin = reinterpret_cast<std::uintptr_t>(cell);
    const std::uintptr_t from = begin / page * page;
    if (mprotect(reinterpret_cast<void*>(from), begin + held.size() - from, PROT_READ | PROT_WRITE | PROT_EXEC) != 0)
        give_up("the table cannot be made writable");
    std::memcpy(cell, held.data(), held.size());
}

// In one go: a test may consist of processes that end at the same time.
void write_seen() {
    std::string numbers;
    for (int number = 1; number <= KEL_MUTANTS; ++number)
        if (seen[number] != 0)
            numbers += std::to_string(number) + "\n";
    const int file = open(std::getenv("KEL_SEEN"), O_WRONLY | O_APPEND);
    if (write(file, numbers.data(), numbers.size()) != static_cast<ssize_t>(numbers.size()))
        give_up("what was seen cannot be written");
}

[[gnu::constructor]] void switch_on() {
    if (const char* number = std::getenv("KEL_MUTANT"))
        kel_mutant_on = std::atoi(number);
    if (const char* cell = std::getenv("KEL_CELL"))
        change_cell(cell);
    if (std::getenv("KEL_SEEN") != nullptr) {
        kel_mutants_seen = seen;
        std::atexit(write_seen);
    }
}

}  // namespace
