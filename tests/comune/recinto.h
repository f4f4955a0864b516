// Memory between two pages that may not be touched: whoever reads or writes beside a sample ends the program.
#ifndef KEL_TEST_RECINTO_H
#define KEL_TEST_RECINTO_H

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>

namespace kel_test {

class Recinto {
public:
    Recinto() : pagina_(static_cast<std::size_t>(sysconf(_SC_PAGESIZE))) {
        void* tutto = mmap(nullptr, 3 * pagina_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (tutto == MAP_FAILED) {
            return;
        }
        inizio_ = static_cast<unsigned char*>(tutto);
        if (mprotect(inizio_ + pagina_, pagina_, PROT_READ | PROT_WRITE) != 0) {
            munmap(inizio_, 3 * pagina_);
            inizio_ = nullptr;
        }
    }
    ~Recinto() {
        if (inizio_ != nullptr) {
            munmap(inizio_, 3 * pagina_);
        }
    }
    Recinto(const Recinto&) = delete;
    Recinto& operator=(const Recinto&) = delete;

    bool pronto() const { return inizio_ != nullptr; }

    // Bytes that end where the forbidden page begins.
    unsigned char* in_fondo(std::size_t byte) const { return inizio_ + 2 * pagina_ - byte; }
    // Bytes that begin right after a forbidden page.
    unsigned char* in_testa() const { return inizio_ + pagina_; }

private:
    std::size_t pagina_;
    unsigned char* inizio_ = nullptr;
};

}  // namespace kel_test

#endif
