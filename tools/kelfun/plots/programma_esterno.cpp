#include "plots/programma_esterno.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <algorithm>
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

// A file without a name. Unlike a pipe it never blocks, and no signal ends this program when the other one ends first.
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
        std::fseek(file_.get(), 0, SEEK_SET);
    }

    std::string tutto() {
        std::fseek(file_.get(), 0, SEEK_SET);
        std::string byte;
        std::array<char, 65536> pezzo{};
        while (const std::size_t letti = std::fread(pezzo.data(), 1, pezzo.size(), file_.get()))
            byte.append(pezzo.data(), letti);
        return byte;
    }

private:
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file_;
};

int avvia(const std::string& programma, std::vector<std::string>& parole, const std::array<int, 3>& canali) {
    posix_spawn_file_actions_t azioni;
    posix_spawn_file_actions_init(&azioni);
    for (int i = 0; i < 3; ++i)
        posix_spawn_file_actions_adddup2(&azioni, canali[static_cast<std::size_t>(i)], i);
    std::vector<char*> argomenti;
    argomenti.reserve(parole.size() + 1);
    for (std::string& parola : parole)
        argomenti.push_back(parola.data());
    argomenti.push_back(nullptr);
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

std::optional<std::string> cerca_programma(const std::string& nome) {
    const char* percorso = std::getenv("PATH");
    std::string_view cartelle = percorso != nullptr ? percorso : "/usr/bin:/bin";
    while (!cartelle.empty()) {
        const std::string_view una = cartelle.substr(0, cartelle.find(':'));
        std::string programma = std::string(una) + "/" + nome;
        if (!una.empty() && ::access(programma.c_str(), X_OK) == 0)
            return programma;
        cartelle.remove_prefix(std::min(cartelle.size(), una.size() + 1));
    }
    return std::nullopt;
}

EsitoProgramma esegui_programma(const std::string& programma, std::vector<std::string> argomenti,
                                const std::string& entrata) {
    FileAnonimo ingresso;
    FileAnonimo uscita;
    FileAnonimo errori;
    ingresso.scrivi(entrata);
    const int stato = avvia(programma, argomenti, {ingresso.descrittore(), uscita.descrittore(), errori.descrittore()});
    return {stato, uscita.tutto(), errori.tutto()};
}

}  // namespace kel::strumento
