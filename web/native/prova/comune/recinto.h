// Memory for a record, as tests/comune/recinto.h fences it by pages. WebAssembly has no pages to forbid: here it is plain.
#ifndef KEL_TEST_RECINTO_H
#define KEL_TEST_RECINTO_H

#include <cstddef>

namespace kel_test {

class Recinto {
public:
    static bool pronto() { return true; }
    unsigned char* in_fondo(std::size_t byte) const { return memoria_ + sizeof memoria_ - byte; }
    unsigned char* in_testa() const { return memoria_; }

private:
    mutable unsigned char memoria_[4096] = {};
};

}  // namespace kel_test

#endif
