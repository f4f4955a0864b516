#include "io/uscita.h"

#include <cerrno>
#include <cstring>
#include <string>

#include "text/errori.h"

namespace kel::strumento {

void mandaUscita(std::FILE* file) {
    // Of a long text the writing itself may have failed, and left nothing to send on.
    if (std::fflush(file) != 0 || std::ferror(file) != 0)
        throw NonTrovato(std::string("cannot write the output: ") + std::strerror(errno));
}

void scriviUscita(std::string_view testo) {
    std::fwrite(testo.data(), 1, testo.size(), stdout);
    mandaUscita();
}

}  // namespace kel::strumento
