#include "uscita.h"

#include <cerrno>
#include <cstring>
#include <stdexcept>

namespace kel::simulatore {

Uscita::Uscita(const std::string& nome) : nome_(nome), file_(nome == "-" ? stdout : std::fopen(nome.c_str(), "wb")) {
    if (file_ == nullptr)
        fallita();
}

Uscita::~Uscita() {
    if (file_ != nullptr && file_ != stdout)
        std::fclose(file_);
}

void Uscita::scrivi(const std::string& byte) {
    std::fwrite(byte.data(), 1, byte.size(), file_);
}

void Uscita::chiudi() {
    const bool scritto = std::fflush(file_) == 0 && std::ferror(file_) == 0;
    const bool chiuso = file_ == stdout || std::fclose(file_) == 0;
    file_ = nullptr;
    if (!scritto || !chiuso)
        fallita();
}

void Uscita::fallita() const {
    throw std::runtime_error((nome_ == "-" ? "cannot write the output: " : "cannot write '" + nome_ + "': ") +
                             std::strerror(errno));
}

}  // namespace kel::simulatore
