/* Columns from a program that knows nothing but the two public headers: C99, and C++11. */
#include <kelfunzioni.h>
#include <kelregistrazioni.h>
#include <stdio.h>
#include <string.h>

static int falliti = 0;

#define VERIFICA(cond)                                                \
    do {                                                              \
        if (!(cond)) {                                                \
            printf("%s:%d: not so: %s\n", __FILE__, __LINE__, #cond); \
            falliti++;                                                \
        }                                                             \
    } while (0)

enum { NUMERO = 100, PASSO = 7 };

int main(void) {
    /* Records of seven bytes: a temperature of 16 bits at byte 1, a gear at byte 4. */
    static unsigned char record[NUMERO * PASSO];
    static float gradi[NUMERO], marce[NUMERO];
    static unsigned char stati[NUMERO], validi[(NUMERO + 7) / 8];
    static char testi[NUMERO][32];
    const kel_funpos temperatura = kelFidComponi(FID_PHI_TEMPERATURE, FID_OBJ_WATER, FID_POS_ENGINE);
    s_kel_canale canali[2];
    s_kel_converter conv[2];
    s_kel_colonna colonne[2];
    int i;

    for (i = 0; i < NUMERO; i++) {
        record[i * PASSO + 1] = (unsigned char)i;
        record[i * PASSO + 4] = (unsigned char)(i % 6);
    }
    record[13 * PASSO + 1] = 0xFE; /* a temperature that is missing */
    record[13 * PASSO + 2] = 0xCF;

    memset(canali, 0, sizeof canali);
    memset(conv, 0, sizeof conv);
    canali[0].tipo_campione = KEL_TIPO_INT16;
    canali[0].offset_campione = 1;
    canali[0].fid = temperatura;
    canali[1].tipo_campione = KEL_TIPO_MARCIA;
    canali[1].offset_campione = 4;
    kelConvInit(&conv[0], &canali[0], temperatura, kelFunGetConvData(temperatura, "F"), 0, 0, 0);
    kelConvInit(&conv[1], &canali[1], canali[1].fid, kelFunGetConvData(0, ""), 0, 0, 0);
    conv[0].larghezza = 5;
    conv[0].decimali = 1;

    memset(colonne, 0, sizeof colonne);
    colonne[0].conv = &conv[0];
    colonne[0].valori = gradi;
    colonne[0].stati = stati;
    colonne[0].validi = validi;
    colonne[0].testi = testi[0];
    colonne[1].conv = &conv[1];
    colonne[1].valori = marce;
    kelColLeggi(record, PASSO, NUMERO, colonne, 2);

    for (i = 0; i < NUMERO; i++) {
        float valore = -1.0f;
        char testo[32];
        VERIFICA(kelConvGetValFloat(&conv[0], record + i * PASSO, &valore) == 1);
        VERIFICA(memcmp(&valore, &gradi[i], sizeof valore) == 0);
        VERIFICA(kelConvGetString(&conv[0], record + i * PASSO, testo) == 1);
        VERIFICA(memcmp(testo, testi[i], sizeof testo) == 0);
        VERIFICA(stati[i] == (i == 13 ? KEL_STATO_MANCANTE : 0));
        VERIFICA((validi[i / 8] >> i % 8 & 1) == (i == 13 ? 0 : 1));
        VERIFICA(marce[i] == (float)(i % 6));
    }
    VERIFICA(strcmp(testi[10], "  50.0") == 0);
    VERIFICA((validi[NUMERO / 8] >> NUMERO % 8) == 0);

    if (falliti == 0)
        printf("columns: as one call a sample gives them\n");
    return falliti == 0 ? 0 : 1;
}
