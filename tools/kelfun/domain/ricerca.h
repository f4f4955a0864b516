// Searching the texts of identifiers.
#ifndef KELFUN_DOMAIN_RICERCA_H
#define KELFUN_DOMAIN_RICERCA_H

#include <span>
#include <string>
#include <vector>

#include "domain/noti.h"

namespace kel::strumento {

/// How well a text answers: the whole of it, its beginning, a whole word in it, any part of it.
enum class Grado { intero, inizio, parola, parte };

const char* nome_grado(Grado grado);

/// An identifier that answers every word: the worst of their grades, and the text that answers each of them best.
struct Trovato {
    const Noto* noto;
    Grado grado;
    std::vector<const Testo*> testi;  ///< none twice, the weightiest first
};

/// The identifiers that answer every word, best first: by grade, by what kind of text answers, and then as they stand
/// in `noti`. Capitals do not matter, nor whether words stand apart by blanks, underscores or hyphens, nor leading
/// zeros of an identifier. Where a word is in none of an identifier's texts its synonyms are: "tyre" finds "Wheel".
std::vector<Trovato> cerca(std::span<const Noto> noti, std::span<const std::string> parole);

/// Words of the texts that differ little from one that nothing answers, the nearest first; at most five.
std::vector<std::string> vicine(std::span<const Noto> noti, const std::string& parola);

}  // namespace kel::strumento

#endif
