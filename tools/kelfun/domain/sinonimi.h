// The words that people use, and what the catalogue says in their place.
#ifndef KELFUN_DOMAIN_SINONIMI_H
#define KELFUN_DOMAIN_SINONIMI_H

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kel::strumento {

/// What the catalogue says for a word of people: "tyre" is "wheel", "kph" is "km/h". Nothing for other words.
std::vector<std::string> sinonimi(std::string_view parola);

/// What an error says before it lists what is accepted: the word that stands for another one, or the one nearest to it.
/// "did you mean 'km/h'? ", or nothing.
std::string proposta(std::string_view parola, std::span<const std::string> parole);

}  // namespace kel::strumento

#endif
