#include "impronta.h"

namespace digest {

void Impronta::riga(const s_converter_data* riga) {
    numero(riga == nullptr ? 0 : 1);
    if (riga == nullptr)
        return;
    testo(riga->udm);
    reale(riga->offset);
    reale(riga->gain);
    segno(riga->reciproco);
}

void Impronta::riga(const s_grandezza_fisica_uiv* riga) {
    numero(riga == nullptr ? 0 : 1);
    if (riga == nullptr)
        return;
    numero(riga->chiave);
    testo(riga->breve);
    testo(riga->testo);
    segno(riga->num_udm);
    for (int i = 0; i < riga->num_udm; i++) {
        this->riga(&riga->udm[i].dati);
        segno(riga->udm[i].decimali_default);
        segno(riga->udm[i].decimali_max);
        segno(riga->udm[i].decimali_min);
    }
    segno(riga->num_varianti);
    for (int i = 0; i < riga->num_varianti; i++)
        testo(riga->varianti[i].testo);
}

void Impronta::riga(const s_sottocampo* riga) {
    numero(riga == nullptr ? 0 : 1);
    if (riga == nullptr)
        return;
    numero(riga->fid);
    numero(riga->offset);
    numero(riga->pos_bit);
    numero(riga->num_bit);
    numero(riga->maschera);
    numero(riga->tipo_campione);
    numero((riga->valore != nullptr ? 1U : 0U) | (riga->valore_reciproco != nullptr ? 2U : 0U) |
           (riga->conv_testo != nullptr ? 4U : 0U));
    testo(riga->breve);
    testo(riga->testo);
}

void Impronta::riga(const t_SFunzioneZumikoCam* riga) {
    numero(riga == nullptr ? 0 : 1);
    if (riga == nullptr)
        return;
    numero(riga->fid);
    testo(riga->udm);
    reale(riga->scala);
    segno(riga->codice);
    reale(riga->fattore);
    testo(riga->breve);
    testo(riga->testo);
    testo(riga->id);
    segno(riga->tipo_campione);
}

void Impronta::sottocampi(const s_sottocampo* tabella) {
    constexpr kel_funpos fine = 32;  // quantity of the end row
    riga(tabella);
    while (tabella != nullptr && (tabella->fid & 0x7F) != fine)
        riga(++tabella);
}

}  // namespace digest
