#include "captures/file_campioni.h"

#include <sys/stat.h>
#include <cstdio>
#include <utility>

#include "text/errori.h"

namespace kel::strumento {

std::uint64_t lunghezza_file(const std::string& nome) {
    struct stat stato {};
    if (nome == "-" || ::stat(nome.c_str(), &stato) != 0 || !S_ISREG(stato.st_mode))
        return 0;
    return static_cast<std::uint64_t>(stato.st_size);
}

FileCampioni::FileCampioni(const std::string& nome, const Registrazione& reg, std::size_t pezzo)
    : reg_(reg.reg()), flusso_(nome, reg, pezzo) {
    while (kelRegOrario(reg_) == KEL_ORARIO_TROVATO && flusso_.spingi()) {
    }
    pronte_ = kelRegRighe(reg_) != 0;
}

void FileCampioni::annuncia(const char* comando) const {
    if (const char* detto = kelRegDetto(reg_); *detto != '\0')
        std::fprintf(stderr, "kelfun %s: %s\n", comando, detto);
}

bool FileCampioni::prossimo() {
    return std::exchange(pronte_, false) || flusso_.prossimo();
}

std::string FileCampioni::riassunto() const {
    return std::to_string(righe()) + " records of " + std::to_string(kelRegPasso(reg_)) + " bytes in " +
           std::to_string(flusso_.byte()) + " bytes; " + std::to_string(kelRegAvanzo(reg_)) +
           " bytes of a cut record at the end";
}

void FileCampioni::verifica_fine() const {
    if (righe() == 0)
        throw NonTrovato("there is no whole record in it");
    if (const char* detto = kelRegAvanzoDetto(reg_); *detto != '\0')
        throw NonTrovato(detto);
}

}  // namespace kel::strumento
