// A NAV-SOL solution as the device shows it, through the logger's GPS packet.
#ifndef KELFUN_CAPTURES_NAVSOL_H
#define KELFUN_CAPTURES_NAVSOL_H

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "IFunzioni.h"
#include "kelregistrazioni.h"

namespace kel::strumento {

/// A solution as the device shows it: by the library's converters, single precision and all, but for the time of week, which
/// as a float would be off by up to 32 ms and is read from the message.
struct SoluzioneDispositivo {
    std::uint32_t settimana_ms = 0;  ///< GPS time of week, ms
    unsigned fix = 0;
    unsigned satelliti = 0;
    float longitudine = 0;  ///< degrees
    float latitudine = 0;   ///< degrees by the library's rule
    float velocita = 0;     ///< in the unit asked for; 0 without a fix in space or with less than 4 satellites
    std::string testo_velocita;
    unsigned accuratezza_posizione = 0;  ///< low byte of the field in cm
    unsigned accuratezza_velocita = 0;   ///< low byte of the field in cm/s
};

/// A packet channel of the logger's GPS packet (4 bytes of time before the 52 of the payload) and its converters.
class CanaleNavSol {
public:
    /// @param udm       a unit of the speed.
    /// @param decimali  digits after the point of the speed's text.
    CanaleNavSol(IFunzioni& catalogo, const std::string& udm, unsigned decimali);

    /// The function of the speed in the packet.
    static kel_funpos fid_velocita();

    SoluzioneDispositivo leggi(std::span<const std::uint8_t, KEL_NAV_SOL_BYTE> payload) const;

private:
    float valore(IConverter& converter, const std::uint8_t* pacchetto) const;

    s_kel_canale canale_;
    std::unique_ptr<IConverter> fix_, satelliti_, longitudine_, latitudine_, velocita_;
    s_kel_converter accuratezza_posizione_{};
    s_kel_converter accuratezza_velocita_{};
};

}  // namespace kel::strumento

#endif
