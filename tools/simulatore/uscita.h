// A file that the simulator writes.
#ifndef KELSIM_USCITA_H
#define KELSIM_USCITA_H

#include <cstdio>
#include <string>

namespace kel::simulatore {

/// A file that is written from start to end, "-" being standard output. Where that fails, an exception says why.
class Uscita {
public:
    explicit Uscita(const std::string& nome);
    ~Uscita();
    Uscita(const Uscita&) = delete;
    Uscita& operator=(const Uscita&) = delete;

    void scrivi(const std::string& byte);
    void chiudi();

private:
    [[noreturn]] void fallita() const;

    std::string nome_;
    std::FILE* file_;
};

}  // namespace kel::simulatore

#endif
