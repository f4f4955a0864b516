#include "io/ingresso.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>

#include "io/colore.h"
#include "io/uscita.h"
#include "text/errori.h"

namespace kel::strumento {

Ingresso::Ingresso(const std::string& nome)
    : nome_(nome == "-" ? "standard input" : nome),
      fd_(nome == "-" ? STDIN_FILENO : ::open(nome.c_str(), O_RDONLY | O_CLOEXEC)) {
    if (fd_ < 0)
        throw NonTrovato("cannot open '" + nome_ + "': " + std::strerror(errno));
    struct stat stato {};
    const int errore = ::fstat(fd_, &stato) != 0 ? errno : S_ISDIR(stato.st_mode) ? EISDIR : 0;
    if (errore == 0)
        return;
    chiudi();
    throw NonTrovato("cannot read '" + nome_ + "': " + std::strerror(errore));
}

Ingresso::~Ingresso() {
    chiudi();
}

void Ingresso::chiudi() const {
    if (fd_ != STDIN_FILENO)
        ::close(fd_);
}

void Ingresso::mostra_avanzamento(bool con_righe) {
    if (!capisce_comandi(stderr) || (con_righe && ::isatty(STDOUT_FILENO) == 1))
        return;
    avanzamento_.emplace(
        lunghezza(),
        [] { return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count(); },
        [](std::string_view testo) { std::fwrite(testo.data(), 1, testo.size(), stderr); });
}

std::optional<std::uint64_t> Ingresso::lunghezza() const {
    struct stat stato {};
    if (fd_ == STDIN_FILENO || ::fstat(fd_, &stato) != 0 || !S_ISREG(stato.st_mode))
        return std::nullopt;
    return static_cast<std::uint64_t>(stato.st_size);
}

std::size_t Ingresso::leggi(std::uint8_t* byte, std::size_t quanti) {
    manda_uscita();  // the next bytes may be long in coming, from a receiver for example
    for (;;) {
        const ssize_t letti = ::read(fd_, byte, quanti);
        const int errore = errno;
        if (letti < 0 && errore == EINTR)
            continue;
        if (letti <= 0)
            avanzamento_.reset();  // erases its line before other messages
        if (letti < 0)
            throw NonTrovato("cannot read '" + nome_ + "': " + std::strerror(errore));
        letti_ += static_cast<std::uint64_t>(letti);
        if (avanzamento_)
            avanzamento_->letti(letti_);
        return static_cast<std::size_t>(letti);
    }
}

std::size_t Ingresso::leggi_tutti(std::uint8_t* byte, std::size_t quanti) {
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
