#include "ingresso.h"

#include <fcntl.h>
#include <unistd.h>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "errori.h"

namespace kel::strumento {

Ingresso::Ingresso(const std::string& nome)
    : nome_(nome == "-" ? "standard input" : nome),
      fd_(nome == "-" ? STDIN_FILENO : ::open(nome.c_str(), O_RDONLY | O_CLOEXEC)) {
    if (fd_ < 0)
        throw NonTrovato("cannot open '" + nome_ + "': " + std::strerror(errno));
}

Ingresso::~Ingresso() {
    if (fd_ != STDIN_FILENO)
        ::close(fd_);
}

std::size_t Ingresso::leggi(std::uint8_t* byte, std::size_t quanti) {
    std::fflush(stdout);  // a receiver may take its time
    for (;;) {
        const ssize_t letti = ::read(fd_, byte, quanti);
        if (letti >= 0)
            return static_cast<std::size_t>(letti);
        if (errno != EINTR)
            throw NonTrovato("cannot read '" + nome_ + "': " + std::strerror(errno));
    }
}

std::size_t Ingresso::leggiTutti(std::uint8_t* byte, std::size_t quanti) {
    std::size_t avuti = 0;
    while (avuti < quanti) {
        const std::size_t letti = leggi(byte + avuti, quanti - avuti);
        if (letti == 0)
            break;
        avuti += letti;
    }
    return avuti;
}

}  // namespace kel::strumento
