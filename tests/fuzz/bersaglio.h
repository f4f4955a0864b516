// What every target of the fuzzer is: one function that takes any bytes at all, and ends the program when the library
// or a tool does wrong with them. Linked with the fuzzer it is tried with millions of inputs; linked with riproduci.cpp
// it is run on the inputs that are kept.
#ifndef KEL_FUZZ_BERSAGLIO_H
#define KEL_FUZZ_BERSAGLIO_H

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* byte, std::size_t quanti);

namespace fuzz {

// Ends the program, so that the input is kept, unless what is said is true.
template <typename Dettagli>
void pretendi(bool vero, const char* che, Dettagli&& dettagli) {
    if (vero)
        return;
    const std::string testo = dettagli();
    std::fprintf(stderr, "not so: %s%s%s\n", che, testo.empty() ? "" : ": ", testo.c_str());
    std::abort();
}

inline void pretendi(bool vero, const char* che) {
    pretendi(vero, che, [] { return std::string(); });
}

}  // namespace fuzz

#endif
