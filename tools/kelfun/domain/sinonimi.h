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

/// For an error, before the list of what is accepted: "did you mean 'km/h'? ", with the catalogue's word for this one,
/// or else with the nearest word; or nothing.
std::string proposta(std::string_view parola, std::span<const std::string> parole);

}  // namespace kel::strumento

#endif
