// The converter record: its set-up, once for a channel, function and unit, and the reads of samples through it.
#include <cstring>

#include "base/scrittura.h"
#include "converters/campo_bit.h"
#include "converters/decoder_numero_testo.h"
#include "converters/formati.h"
#include "converters/testo_numerico.h"
#include "kelfunzioni.h"
#include "packets/ricerca_sottocampi.h"

namespace kel {
namespace {

// Whether a function is a gear: its samples of number and text then begin their text with the gear's digit.
bool funzione_marcia(kel_funpos fid) noexcept {
    const unsigned grandezza = kelFidGrandezza(fid);
    return grandezza == FID_PHI_GEAR || (grandezza == FID_PHI_CODE && kelFidOggetto(fid) == FID_OBJ_GEAR);
}

// A value that is computed from several fields of a packet: its row names the functions, and its text is the numeric
// one.
void imposta_calcolato(s_kel_converter& conv, const s_sottocampo& riga) noexcept {
    conv.maschera = 0;  // it has no bit field
    if (riga.valore_reciproco != nullptr && conv.dati == nullptr)
        return;  // no value: only speeds have a reciprocal form, and they need the data of their unit
    conv.valore = conv.dati != nullptr && conv.dati->reciproco != 0 ? riga.valore_reciproco : riga.valore;
    conv.testo = testo_numerico;
}

void imposta_formato(s_kel_converter& conv, uint32_t tipo_campione, kel_funpos canale) noexcept {
    const Formato* formato = formato_campione(tipo_campione);
    if (formato == nullptr)
        return;
    const bool senza_dati = formato->usa_dati && conv.dati == nullptr;
    // Without the unit's data there is no value, and so no numeric text. Times and coordinates have texts without a
    // unit.
    if (senza_dati && formato->testo == testo_numerico)
        return;
    conv.testo = formato->testo;
    conv.testo_stato = formato->stato;
    if (senza_dati)
        return;
    conv.valore = formato->lineare;
    // The unit's data are read only of a format with a reciprocal form. Other formats do without a unit: in the
    // caller's record the pointer may then be anything.
    if (formato->reciproca != nullptr && conv.dati->reciproco != 0)
        conv.valore = formato->reciproca;
    else if (conv.maschera != 0 && formato->campo_bit != nullptr)
        conv.valore = formato->campo_bit;
    else if (tipo_campione == KEL_TIPO_NUMERO_TESTO_6 && funzione_marcia(canale))
        conv.valore = numero_o_cifra;
}

}  // namespace
}  // namespace kel

void kelConvInit(s_kel_converter* conv, const s_kel_canale* canale, kel_funpos fid, const s_converter_data* dati,
                 unsigned short pos_bit, unsigned short num_bit, int campione_in_testa) noexcept {
    const kel_funpos funzione_canale = canale->fid;
    uint32_t tipo_campione = canale->tipo_campione;

    conv->offset_campione = campione_in_testa != 0 ? 0 : canale->offset_campione;
    conv->pos_bit = pos_bit;
    conv->num_bit = num_bit;
    if (dati != nullptr)
        conv->dati = dati;
    conv->valore = nullptr;
    conv->testo = kel::testo_assente;
    conv->testo_stato = nullptr;

    if (kelFidGrandezza(funzione_canale) == FID_PHI_PACKAGE && funzione_canale != fid) {
        const s_sottocampo* riga =
            kel::cerca_sottocampo(kelFidOggetto(funzione_canale), kelFidPosizione(funzione_canale), fid);
        if (riga == nullptr)
            return;
        tipo_campione = riga->tipo_campione;
        conv->offset_campione += riga->offset;
        conv->pos_bit = riga->pos_bit;
        conv->num_bit = riga->num_bit;
        if (tipo_campione == KEL_TIPO_CALCOLATO) {
            kel::imposta_calcolato(*conv, *riga);
            return;
        }
    }

    conv->maschera = kel::maschera_campo_bit(conv->pos_bit, conv->num_bit);
    kel::imposta_formato(*conv, tipo_campione, funzione_canale);
}

int kelConvGetValFloat(const s_kel_converter* conv, const void* buffer, float* valore) noexcept {
    if (conv->valore == nullptr) {
        *valore = 0.0f;
        return 0;
    }
    uint32_t stato = 0;
    *valore = conv->valore(conv, static_cast<const unsigned char*>(buffer) + conv->offset_campione, &stato);
    return 1;
}

int kelConvGetString(s_kel_converter* conv, const void* buffer, char testo[32]) noexcept {
    std::memset(testo, 0, kel::BYTE_TESTO);
    if (conv->testo == nullptr) {
        kel::testo_assente(conv, buffer, testo);
        return 0;
    }
    conv->testo(conv, static_cast<const unsigned char*>(buffer) + conv->offset_campione, testo);
    return 1;
}

const s_converter_data* kelConvGetConvData(const s_kel_converter* conv) noexcept {
    return conv->dati;
}

unsigned kelConvGetOffset(const s_kel_converter* conv) noexcept {
    return conv->offset_campione;
}
