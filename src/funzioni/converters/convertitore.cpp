// The converter record: set-up, once per channel, function and unit, and the reads that go through it.
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

// Functions whose text sample shows the gear itself.
bool funzione_marcia(kel_funpos fid) noexcept {
    const unsigned grandezza = kelFidGrandezza(fid);
    return grandezza == FID_PHI_GEAR || (grandezza == FID_PHI_CODE && kelFidOggetto(fid) == FID_OBJ_GEAR);
}

// A value computed from the packet comes with its own functions, and shows as a number.
void imposta_calcolato(s_kel_converter& conv, const s_sottocampo& riga) noexcept {
    conv.maschera = riga.maschera;
    if (riga.valore_reciproco != nullptr && conv.dati == nullptr)
        return;  // a row with a reciprocal form converts with the unit's data, which are missing
    conv.valore = conv.dati != nullptr && conv.dati->reciproco != 0 ? riga.valore_reciproco : riga.valore;
    conv.testo = testo_numerico;
}

void imposta_formato(s_kel_converter& conv, uint32_t tipo_campione, kel_funpos canale) noexcept {
    const Formato* formato = formato_campione(tipo_campione);
    if (formato == nullptr)
        return;
    const bool senza_dati = formato->usa_dati && conv.dati == nullptr;
    // A numeric text would show the value that cannot be computed; other texts stand without it.
    if (senza_dati && formato->testo == testo_numerico)
        return;
    conv.testo = formato->testo;
    conv.testo_stato = formato->stato;
    if (senza_dati)
        return;
    conv.valore = formato->lineare;
    // Only a format with a reciprocal form looks through the pointer: where the caller has given no unit, it may lead
    // anywhere.
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
    std::memset(testo, 0, kel::byte_testo);
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
