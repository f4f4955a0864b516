#include "plots/gnuplot.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

#include "text/errori.h"

// NOLINTNEXTLINE(readability-redundant-declaration): POSIX leaves it to the program
extern char** environ;

namespace kel::strumento {

namespace {

// A file without a name: unlike a pipe it blocks nobody, and nobody is killed when the other side goes.
class FileAnonimo {
public:
    FileAnonimo() : file_(std::tmpfile(), &std::fclose) {
        if (!file_)
            throw NonTrovato(std::string("cannot make a temporary file: ") + std::strerror(errno));
    }

    int descrittore() const { return ::fileno(file_.get()); }

    void scrivi(const std::string& byte) {
        if (std::fwrite(byte.data(), 1, byte.size(), file_.get()) != byte.size() || std::fflush(file_.get()) != 0)
            throw NonTrovato(std::string("cannot write a temporary file: ") + std::strerror(errno));
        std::rewind(file_.get());
    }

    std::string tutto() {
        std::rewind(file_.get());
        std::string byte;
        std::array<char, 65536> pezzo{};
        while (const std::size_t letti = std::fread(pezzo.data(), 1, pezzo.size(), file_.get()))
            byte.append(pezzo.data(), letti);
        return byte;
    }

private:
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file_;
};

std::string primaRiga(std::string_view testo) {
    while (!testo.empty()) {
        const std::string_view riga = testo.substr(0, testo.find('\n'));
        const std::size_t inizio = riga.find_first_not_of(" \t^");
        if (inizio != std::string_view::npos)
            return std::string(riga.substr(inizio));
        testo.remove_prefix(std::min(testo.size(), riga.size() + 1));
    }
    return "it says nothing";
}

int avvia(const std::string& programma, const std::array<int, 3>& canali) {
    posix_spawn_file_actions_t azioni;
    posix_spawn_file_actions_init(&azioni);
    for (int i = 0; i < 3; ++i)
        posix_spawn_file_actions_adddup2(&azioni, canali[static_cast<std::size_t>(i)], i);
    std::array<std::string, 3> parole = {"gnuplot", "-d", "-"};
    std::array<char*, 4> argomenti = {parole[0].data(), parole[1].data(), parole[2].data(), nullptr};
    pid_t processo = 0;
    const int errore = ::posix_spawn(&processo, programma.c_str(), &azioni, nullptr, argomenti.data(), environ);
    posix_spawn_file_actions_destroy(&azioni);
    if (errore != 0)
        throw NonTrovato("cannot run '" + programma + "': " + std::strerror(errore));
    int stato = 0;
    while (::waitpid(processo, &stato, 0) < 0 && errno == EINTR) {
    }
    return stato;
}

}  // namespace

std::string cercaGnuplot() {
    const char* percorso = std::getenv("PATH");
    std::string_view cartelle = percorso != nullptr ? percorso : "/usr/bin:/bin";
    while (!cartelle.empty()) {
        const std::string_view una = cartelle.substr(0, cartelle.find(':'));
        std::string programma = std::string(una) + "/gnuplot";
        if (!una.empty() && ::access(programma.c_str(), X_OK) == 0)
            return programma;
        cartelle.remove_prefix(std::min(cartelle.size(), una.size() + 1));
    }
    throw NonTrovato(
        "a picture takes gnuplot, which is not installed: install the package gnuplot-nox, or use --plot -");
}

std::string eseguiGnuplot(const std::string& programma, const std::string& istruzioni) {
    FileAnonimo entrata;
    FileAnonimo uscita;
    FileAnonimo errori;
    entrata.scrivi(istruzioni);
    const int stato = avvia(programma, {entrata.descrittore(), uscita.descrittore(), errori.descrittore()});
    std::string byte = uscita.tutto();
    if (stato != 0 || byte.empty())
        throw NonTrovato("gnuplot fails: " + primaRiga(errori.tutto()));
    return byte;
}

}  // namespace kel::strumento
