#include "io/uscita.h"

#include <cerrno>
#include <cstring>
#include <string>

#include "text/errori.h"

namespace kel::strumento {

void manda_uscita(std::FILE* file) {
    // A write of a long text may have failed before: then nothing is left to flush, but the error flag is set.
    if (std::fflush(file) != 0 || std::ferror(file) != 0)
        throw NonTrovato(std::string("cannot write the output: ") + std::strerror(errno));
}

void scrivi_uscita(std::string_view testo) {
    std::fwrite(testo.data(), 1, testo.size(), stdout);
    manda_uscita();
}

}  // namespace kel::strumento
