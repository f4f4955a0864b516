// The frame of a UBX message, and the numbers in it.
#ifndef KELSIM_UBX_H
#define KELSIM_UBX_H

#include <cstdint>
#include <string>

namespace kel::simulatore {

/// Appends the low bytes of a number, the lowest first.
void aggiungi(std::string& byte, std::uint32_t valore, int quanti);

/// The nearest whole number, a negative one in two's complement.
std::uint32_t intero(double valore);

/// A whole message: sync, class, id, length, payload, and the 8-bit Fletcher checksum over class to payload.
std::string messaggio_ubx(unsigned classe, unsigned id, const std::string& dati);

}  // namespace kel::simulatore

#endif
