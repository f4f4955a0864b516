// Builds channel records and samples, and reads them through the flat face, as the tests of several folders need it.
#ifndef KEL_TEST_LETTURA_H
#define KEL_TEST_LETTURA_H

#include <bit>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <string>
#include <vector>

#include "kelfunzioni.h"

namespace kel_test {

using Byte = std::vector<unsigned char>;

/// A 16-bit sample, low byte first.
inline Byte le16(unsigned valore) {
    return {static_cast<unsigned char>(valore & 0xFFu), static_cast<unsigned char>(valore >> 8 & 0xFFu)};
}

/// A 32-bit sample, low byte first.
inline Byte le32(std::uint32_t valore) {
    Byte byte;
    for (int i = 0; i < 4; ++i) {
        byte.push_back(static_cast<unsigned char>(valore >> (8 * i) & 0xFFu));
    }
    return byte;
}

inline Byte le_i32(std::int32_t valore) {
    return le32(static_cast<std::uint32_t>(valore));
}

inline Byte le_float(float valore) {
    return le32(std::bit_cast<std::uint32_t>(valore));
}

/// Writes a field into a packet.
inline void metti(Byte& pacchetto, std::size_t posizione, const Byte& campo) {
    for (std::size_t i = 0; i < campo.size(); ++i) {
        pacchetto.at(posizione + i) = campo[i];
    }
}

/// A channel record in which only identifier, sample type and sample offset are set.
inline s_kel_canale un_canale(kel_funpos fid, unsigned tipo, unsigned offset = 0) {
    s_kel_canale canale;
    std::memset(&canale, 0, sizeof canale);
    canale.fid = fid;
    canale.tipo_campione = tipo;
    canale.offset_campione = offset;
    return canale;
}

/// Unit data without a conversion.
inline constexpr s_converter_data IDENTITA = {"", 0.0f, 1.0f, 0};
/// A unit with both terms: value = raw * 2 + 5.
inline constexpr s_converter_data DOPPIO_PIU_CINQUE = {"u", 5.0f, 2.0f, 0};
/// The same for a quantity that is carried as its reciprocal.
inline constexpr s_converter_data RECIPROCA = {"1/u", 5.0f, 2.0f, 1};

/// An identifier without any meaning of its own: engine speed, for the tests of plain sample types.
inline constexpr kel_funpos FID = kelFidComponi(FID_PHI_RPM, 0, FID_POS_ENGINE);

/// What one read gives.
struct Lettura {
    int ha_valore = -1;       ///< result of the value read
    float valore = 0.0f;      ///< the value, prefilled with rubbish before the read
    std::uint32_t stato = 0;  ///< the status word; 0 without a value function
    int ha_testo = -1;        ///< result of the text read
    std::string testo;        ///< the text up to its NUL
    bool pulito = false;      ///< the 32 bytes after the text are all NUL
};

/// Reads a sample as value, status word and text.
inline Lettura leggi(s_kel_converter& conv, const void* buffer) {
    Lettura letto;
    letto.valore = -12345.0f;
    letto.ha_valore = kelConvGetValFloat(&conv, buffer, &letto.valore);
    if (conv.valore != nullptr) {
        letto.stato = 0xDEADu;
        conv.valore(&conv, static_cast<const unsigned char*>(buffer) + conv.offset_campione, &letto.stato);
    }
    char testo[32];
    std::memset(testo, 'x', sizeof testo);
    letto.ha_testo = kelConvGetString(&conv, buffer, testo);
    const std::size_t lunghezza = strnlen(testo, sizeof testo);
    letto.testo.assign(testo, lunghezza);
    letto.pulito = lunghezza < sizeof testo;
    for (std::size_t i = lunghezza; i < sizeof testo; ++i) {
        letto.pulito = letto.pulito && testo[i] == '\0';
    }
    return letto;
}

inline Lettura leggi(s_kel_converter& conv, const Byte& campione) {
    return leggi(conv, campione.data());
}

/// A converter record for samples handed over by themselves, with an 8-character numeric text without decimals.
struct Impostazione {
    kel_funpos fid_canale = FID;
    kel_funpos fid = FID;
    const s_converter_data* dati = &IDENTITA;
    std::uint32_t larghezza = 8;
    std::uint32_t decimali = 0;
    eFormatoConv formato = FORMATO_DESTRA;
    unsigned short pos_bit = 0;
    unsigned short num_bit = 0;
    std::uint32_t auto_decimali = 0;
};

inline s_kel_converter convertitore(unsigned tipo, const Impostazione& come = {}) {
    s_kel_converter conv{};
    conv.larghezza = come.larghezza;
    conv.decimali = come.decimali;
    conv.auto_decimali = come.auto_decimali;
    conv.formato = come.formato;
    const s_kel_canale canale = un_canale(come.fid_canale, tipo);
    kelConvInit(&conv, &canale, come.fid, come.dati, come.pos_bit, come.num_bit, 1);
    return conv;
}

/// Converter of one subfield of a packet channel.
inline s_kel_converter sottocampo(kel_funpos pacchetto, unsigned tipo, kel_funpos fid,
                                  const s_converter_data* dati = &IDENTITA) {
    Impostazione come;
    come.fid_canale = pacchetto;
    come.fid = fid;
    come.dati = dati;
    return convertitore(tipo, come);
}

inline constexpr kel_funpos PACCHETTO_GPS = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, FID_SPEC_GPS_KELNAVSOL);
inline constexpr kel_funpos PACCHETTO_UBX = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, FID_SPEC_GPS_UBXNAVSOL);
inline constexpr kel_funpos PACCHETTO_GIRO2_G =
    kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_LAPTIME, FID_SPEC_LAPTIME_KEL2G);
inline constexpr kel_funpos PACCHETTO_GIRO1_G =
    kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_LAPTIME, FID_SPEC_LAPTIME_KEL1G);
inline constexpr kel_funpos PACCHETTO_GIRO2_GV2 =
    kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_LAPTIME, FID_SPEC_LAPTIME_KEL2Gv2);
inline constexpr kel_funpos PACCHETTO_DATA_ORA = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_DATETIME, 0);

}  // namespace kel_test

#endif
