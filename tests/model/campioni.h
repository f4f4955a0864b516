// Samples: bytes to values with a status word, and to texts.
#ifndef KEL_MODELLO_CAMPIONI_H
#define KEL_MODELLO_CAMPIONI_H

#include <cstdint>
#include <string>

#include "model/tabelle.h"

namespace modello {

using Byte = std::uint8_t;

// Little-endian numbers at any address.
std::uint32_t u32(const Byte* byte);
std::int32_t i32(const Byte* byte);
std::uint16_t u16(const Byte* byte);
std::int16_t i16(const Byte* byte);
float f32(const Byte* byte);

// How a value is read from a sample.
enum class Valore {
    nessuno,
    zero,  // packets: always 0
    int32,
    int16,
    uint8,
    uint32,
    uint16,
    virgola_mobile,
    mezzo,
    uint32_bit,
    uint16_bit,
    uint8_bit,
    marcia,
    lista_bit,
    lista_bit_mascherata,
    numero,
    numero_o_cifra,
    velocita,
    velocita_semplice,
    latitudine,
    longitudine
};

struct Campo {
    unsigned pos_bit = 0, num_bit = 0;
    std::uint32_t maschera = 0;
};

struct Letto {
    float valore;
    unsigned stato;
};

unsigned dimensione_campione(unsigned tipo);

// `reciproco`: the quantity is shown as its reciprocal.
Letto leggi_valore(Valore modo, bool reciproco, const RigaUdm& unita, const Campo& campo, const Byte* campione);

std::string testo_stato(unsigned stato);
std::string testo_marcia(const Byte* campione);
std::string testo_tempo_giro(std::int32_t millisecondi, unsigned decimali, bool compatto);
std::string testo_differenza(std::int32_t millisecondi, bool compatto);
std::string testo_tempo_pacchetto(std::int32_t millisecondi);
std::string testo_coordinata(const Byte* campione);
std::string testo_gps(unsigned fix, unsigned satelliti);
// Text after the number of types 15 and 16; ends at its NUL or with the sample.
std::string testo_copiato(const Byte* campione, unsigned dimensione);

}  // namespace modello

#endif
