// What is to be said of samples that the device shows otherwise than a person expects.
#ifndef KELFUN_DOMAIN_AVVISI_CAMPIONI_H
#define KELFUN_DOMAIN_AVVISI_CAMPIONI_H

#include <optional>
#include <span>
#include <string>

#include "kelfunzioni.h"

namespace kel::strumento {

/// Of a bit field, as it was given ("" for none), and the bit above it.
std::optional<std::string> avvisoBit(const std::string& campo, unsigned sopra);

/// Of the functions that are shown of a packet; nothing for samples that are no GPS packets.
std::optional<std::string> avvisoGps(std::span<const kel_funpos> mostrati, unsigned tipo);

}  // namespace kel::strumento

#endif
