/* A program that knows the two public headers and nothing else: C99, and C++11 when it is compiled as that. */
#include <stdio.h>
#include <string.h>

#include "kelregistrazioni.h"

enum { RECORD = 70000, PASSO = 8 }; /* a stamp of 32 bits, a value of 32 bits */

static unsigned char campioni[RECORD * PASSO];

static void scrivi(unsigned char* dove, unsigned long valore) {
    int i;
    for (i = 0; i < 4; ++i)
        dove[i] = (unsigned char)(valore >> (8 * i) & 0xFF);
}

static int difetto(const char* che) {
    fprintf(stderr, "not so: %s\n", che);
    return 1;
}

static void prepara(unsigned char canale[112]) {
    unsigned long i;
    memset(canale, 0, 112);
    scrivi(canale + 12, kelFidComponi(FID_PHI_SPEED, 0, FID_POS_WHEEL));
    scrivi(canale + 20, KEL_TIPO_INT32);
    memcpy(canale + 32, "Speed", 5);
    scrivi(canale + 72, 4);
    for (i = 0; i < RECORD; ++i) {
        scrivi(campioni + i * PASSO, i * 10);
        scrivi(campioni + i * PASSO + 4, i % 300);
    }
}

/* A consumer as the interface describes it: every row once, in order; releases what it was given. */
static int consuma(struct ArrowArrayStream* flusso) {
    struct ArrowSchema schema;
    struct ArrowArray blocco;
    int64_t righe = 0;
    if (flusso->get_schema(flusso, &schema) != 0)
        return difetto("there is a schema");
    if (strcmp(schema.format, "+s") != 0 || schema.n_children != 2 || strcmp(schema.children[1]->format, "f") != 0 ||
        strcmp(schema.children[1]->name, "Speed") != 0)
        return difetto("the schema has time and speed");
    schema.release(&schema);
    if (schema.release != NULL)
        return difetto("a schema that was released is marked so");
    for (;;) {
        int64_t i;
        const float* valori;
        if (flusso->get_next(flusso, &blocco) != 0)
            return difetto("there is a next batch");
        if (blocco.release == NULL)
            break;
        if (blocco.length > 65536 || blocco.n_children != 2 || blocco.children[1]->n_buffers != 2 ||
            blocco.children[1]->length != blocco.length || blocco.children[1]->null_count != 0)
            return difetto("a batch is a struct of two full columns");
        valori = (const float*)blocco.children[1]->buffers[1];
        for (i = 0; i < blocco.length; ++i, ++righe)
            if (valori[i] != (float)(righe % 300))
                return difetto("the values are those of the samples");
        blocco.release(&blocco);
        if (blocco.release != NULL)
            return difetto("an array that was released is marked so");
    }
    flusso->release(flusso);
    if (flusso->release != NULL)
        return difetto("a stream that was released is marked so");
    return righe == RECORD ? 0 : difetto("every row comes once");
}

int main(void) {
    unsigned char canale[112];
    s_kel_errore errore;
    s_kel_descrizione descrizione;
    s_kel_registrazione* reg;
    struct ArrowArrayStream flusso;
    float uno = -1;
    unsigned char valido = 0;
    s_kel_lettura lettura;
    prepara(canale);
    if (kelRegApri(canale, 111, campioni, sizeof campioni, NULL, &errore) != NULL ||
        strstr(errore.testo, "111 bytes") == NULL)
        return difetto("channels that are none are refused, and why is said");
    reg = kelRegApri(canale, sizeof canale, campioni, sizeof campioni, NULL, &errore);
    if (reg == NULL)
        return difetto(errore.testo);
    if (kelRegRighe(reg) != RECORD || kelRegOrario(reg) != KEL_ORARIO_U32MS || kelRegNumColonne(reg) != 1)
        return difetto("the framing is found");
    if (!kelRegDescrivi(reg, 0, &descrizione) || strcmp(descrizione.udm, "km/h") != 0)
        return difetto("the column is a speed");
    lettura.colonna = 0;
    lettura.valori = &uno;
    lettura.validi = &valido;
    lettura.testi = NULL;
    if (!kelRegLeggi(reg, 299, 1, &lettura, 1) || uno != 299.0f || valido != 1)
        return difetto("a row can be read");
    if (!kelRegArrow(reg, 0, kelRegRighe(reg), 0, &flusso, &errore))
        return difetto(errore.testo);
    kelRegChiudi(reg);
    return consuma(&flusso);
}
