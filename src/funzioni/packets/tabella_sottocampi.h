// Subfield tables that are reached only through the look-ups, and the rules that all subfield tables keep.
#ifndef KEL_PACKETS_TABELLA_SOTTOCAMPI_H
#define KEL_PACKETS_TABELLA_SOTTOCAMPI_H

#include "kelfunzioni.h"
#include "tables/invarianti.h"

namespace kel {

extern const s_sottocampo sottocampi_gps_navsol[6];
extern const s_sottocampo sottocampi_lap_time_1G[8];
extern const s_sottocampo sottocampi_data_ora[1];

// Whole value of a sample type.
constexpr s_sottocampo intero(kel_funpos fid, uint32_t offset, uint32_t tipo_campione, const char* breve = "",
                              const char* testo = "") {
    return {fid, offset, 0, 0, 0, tipo_campione, nullptr, nullptr, nullptr, breve, testo};
}

// Bit field within a value.
constexpr s_sottocampo campo_bit(kel_funpos fid, uint32_t offset, uint16_t pos_bit, uint16_t num_bit,
                                 uint32_t tipo_campione) {
    return {fid, offset, pos_bit, num_bit, 0, tipo_campione, nullptr, nullptr, nullptr, "", ""};
}

// Computed from several fields of the packet.
constexpr s_sottocampo calcolato(kel_funpos fid, f_valore_conv valore, f_valore_conv reciproco, const char* breve = "",
                                 const char* testo = "") {
    return {fid, 0, 0, 0, 0, KEL_TIPO_CALCOLATO, valore, reciproco, nullptr, breve, testo};
}

inline constexpr s_sottocampo fine_sottocampi = intero(fine_tabella, 0, KEL_TIPO_CALCOLATO);

// Bytes of a sample of the types that subfields have; 0 for a computed one, which lies anywhere in the packet.
constexpr uint32_t byte_sottocampo(uint32_t tipo_campione) {
    switch (tipo_campione) {
        case KEL_TIPO_UINT8:
            return 1;
        case KEL_TIPO_UINT16:
            return 2;
        case KEL_TIPO_UINT32:
        case KEL_TIPO_TEMPO_GIRO:
            return 4;
        default:
            return 0;
    }
}

template <std::size_t N>
constexpr bool dentro_al_pacchetto(const s_sottocampo (&tabella)[N], uint32_t byte_pacchetto) {
    for (const s_sottocampo& riga : tabella) {
        const uint32_t byte = byte_sottocampo(riga.tipo_campione);
        if (byte == 0 && riga.tipo_campione != KEL_TIPO_CALCOLATO)
            return false;
        if (riga.offset + byte > byte_pacchetto || riga.maschera != 0)
            return false;
        if (riga.num_bit != 0 && riga.pos_bit + riga.num_bit > 8 * static_cast<int>(byte))
            return false;
    }
    return true;
}

// A walk ends at the first row whose low seven bits are those of the end marker.
template <std::size_t N>
constexpr bool fine_per_primo_byte(const s_sottocampo (&tabella)[N]) {
    for (std::size_t i = 0; i < N; ++i)
        if ((kelFidGrandezza(tabella[i].fid) == FID_PHI_FINE_TABELLA) != (i == N - 1))
            return false;
    return true;
}

// Only what is computed has functions of its own, and those are for values: whatever lies in the packet is read by its
// sample type, and every text is that of a type.
template <std::size_t N>
constexpr bool funzioni_dei_calcolati(const s_sottocampo (&tabella)[N]) {
    for (const s_sottocampo& riga : tabella) {
        const bool calcolata = riga.tipo_campione == KEL_TIPO_CALCOLATO;
        if (!calcolata && (riga.valore != nullptr || riga.valore_reciproco != nullptr))
            return false;
        if (riga.conv_testo != nullptr)
            return false;
    }
    return true;
}

template <std::size_t N>
constexpr bool nomi_in_misura(const s_sottocampo (&tabella)[N]) {
    for (const s_sottocampo& riga : tabella)
        if (!ascii(riga.breve, 4) || !ascii(riga.testo, 12))
            return false;
    return true;
}

template <std::size_t N>
constexpr bool sottocampi_in_regola(const s_sottocampo (&tabella)[N], uint32_t byte_pacchetto) {
    return fine_per_primo_byte(tabella) && chiavi_in_regola(tabella, &s_sottocampo::fid) &&
           dentro_al_pacchetto(tabella, byte_pacchetto) && funzioni_dei_calcolati(tabella) && nomi_in_misura(tabella);
}

}  // namespace kel

#endif
