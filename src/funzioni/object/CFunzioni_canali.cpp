// The channels that the catalogue was made for.
#include "CFunzioni.h"

#include <cstring>
#include <stdexcept>

namespace {

// A name of a channel record. Its text ends at the end of its field where the caller left no NUL there. A catalogue
// without channels gets an address from the flat face too, which nothing lies at. Where there is no name, the failure
// is the one of a string built from a null pointer: programs catch it.
std::string testo_canale(const s_set_canali& set, const char* testo, std::size_t byte) {
    if (set.canali == nullptr || testo == nullptr)
        throw std::logic_error("basic_string: construction from null is not valid");
    const void* fine = std::memchr(testo, '\0', byte);
    return std::string(testo, fine != nullptr ? static_cast<const char*>(fine) : testo + byte);
}

}  // namespace

std::string CFunzioni::getNomeCanale(unsigned int indice) {
    return ConvertiDa8(testo_canale(set_, kelFunGetNomeCanale(&set_, indice), sizeof(s_kel_canale::nome)));
}

std::string CFunzioni::getNomeCanaleShort(unsigned int indice) {
    return ConvertiDa8(testo_canale(set_, kelFunGetNomeCanaleShort(&set_, indice), sizeof(s_kel_canale::breve)));
}

unsigned int CFunzioni::getSizeBufferValori() {
    return kelFunGetSizeBufferValori(&set_);
}

unsigned int CFunzioni::getNumChUsed() {
    return kelFunGetNumChUsed(&set_);
}

s_kel_canale* CFunzioni::getFreeCh() {
    return kelFunGetFreeCh(&set_);
}

s_kel_canale* CFunzioni::getCanale(unsigned int indice) {
    return kelFunGetCanale(&set_, indice);
}

s_kel_canale* CFunzioni::getMatchCh(kel_funpos fid) {
    return kelFunGetMatchCh(&set_, fid);
}
