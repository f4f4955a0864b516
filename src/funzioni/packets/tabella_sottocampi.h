// The subfield tables that have no exported name, how a row is written, and the rules of all subfield tables.
#ifndef KEL_PACKETS_TABELLA_SOTTOCAMPI_H
#define KEL_PACKETS_TABELLA_SOTTOCAMPI_H

#include "kelfunzioni.h"
#include "tables/byte_campione.h"
#include "tables/invarianti.h"

namespace kel {

extern const s_sottocampo SOTTOCAMPI_GPS_NAVSOL[6];
extern const s_sottocampo SOTTOCAMPI_LAP_TIME_1G[8];
extern const s_sottocampo SOTTOCAMPI_DATA_ORA[1];

// A row whose subfield is one sample.
constexpr s_sottocampo intero(kel_funpos fid, uint32_t offset, uint32_t tipo_campione, const char* breve = "",
                              const char* testo = "") {
    return {fid, offset, 0, 0, 0, tipo_campione, nullptr, nullptr, nullptr, breve, testo};
}

// A row whose subfield is some bits of a sample.
constexpr s_sottocampo campo_bit(kel_funpos fid, uint32_t offset, uint16_t pos_bit, uint16_t num_bit,
                                 uint32_t tipo_campione) {
    return {fid, offset, pos_bit, num_bit, 0, tipo_campione, nullptr, nullptr, nullptr, "", ""};
}

// A row whose value a function computes from several fields of the packet.
constexpr s_sottocampo calcolato(kel_funpos fid, f_valore_conv valore, f_valore_conv reciproco, const char* breve = "",
                                 const char* testo = "") {
    return {fid, 0, 0, 0, 0, KEL_TIPO_CALCOLATO, valore, reciproco, nullptr, breve, testo};
}

inline constexpr s_sottocampo FINE_SOTTOCAMPI = intero(FINE_TABELLA, 0, KEL_TIPO_CALCOLATO);

// Samples lie within their packet, and bit fields within their samples. A computed value is of no type that has a size,
// and lies nowhere in particular.
template <std::size_t N>
constexpr bool dentro_al_pacchetto(const s_sottocampo (&tabella)[N], uint32_t pacchetto) {
    for (const s_sottocampo& riga : tabella) {
        const uint32_t byte = byte_campione(riga.tipo_campione);
        if (byte == 0 && riga.tipo_campione != KEL_TIPO_CALCOLATO)
            return false;
        if (riga.offset + byte > byte_campione(pacchetto) || riga.maschera != 0)
            return false;
        if (riga.num_bit != 0 && uint32_t{riga.pos_bit} + riga.num_bit > 8 * byte)
            return false;
    }
    return true;
}

// The searches compare only the quantity of the end marker: no other row may have it.
template <std::size_t N>
constexpr bool fine_per_grandezza(const s_sottocampo (&tabella)[N]) {
    for (std::size_t i = 0; i < N; ++i)
        if (grandezza_di_fine(tabella[i].fid) != (i == N - 1))
            return false;
    return true;
}

// Only computed values have functions of their own. Everything else is read as its sample type says, and no row has a
// text function: the converter would not call it.
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

// `pacchetto`: the sample type of the packet.
template <std::size_t N>
constexpr bool sottocampi_in_regola(const s_sottocampo (&tabella)[N], uint32_t pacchetto) {
    return fine_per_grandezza(tabella) && chiavi_in_regola(tabella, &s_sottocampo::fid) &&
           dentro_al_pacchetto(tabella, pacchetto) && funzioni_dei_calcolati(tabella) &&
           testi_entro(tabella, &s_sottocampo::breve, 4) && testi_entro(tabella, &s_sottocampo::testo, 12);
}

}  // namespace kel

#endif
