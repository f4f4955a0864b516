// Warnings about samples that the device shows differently than most people expect.
#ifndef KELFUN_DOMAIN_AVVISI_CAMPIONI_H
#define KELFUN_DOMAIN_AVVISI_CAMPIONI_H

#include <optional>
#include <span>
#include <string>

#include "kelfunzioni.h"

namespace kel::strumento {

/// The warning for a bit field.
/// @param campo  as it was given: "8:1"; "" for none.
/// @param sopra  the bit above the field, which the converter reads.
std::optional<std::string> avviso_bit(const std::string& campo, unsigned sopra);

/// The warning for the functions of a packet that are shown; nothing if the packet is no GPS packet.
std::optional<std::string> avviso_gps(std::span<const kel_funpos> mostrati, unsigned tipo);

}  // namespace kel::strumento

#endif
