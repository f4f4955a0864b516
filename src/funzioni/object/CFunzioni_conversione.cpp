// The character conversion between the caller and the tables. Nothing else stands in this file: a build with another
// character type replaces it, and a test does.
#include "CFunzioni.h"

std::string CFunzioni::ConvertiIn8(const std::string& testo) const {
    return testo;
}

std::string CFunzioni::ConvertiDa8(const std::string& testo) const {
    return testo;
}
