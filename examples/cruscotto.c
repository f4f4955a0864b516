/*
 * A dashboard: one line of fixed-width texts for every record of samples that the logger sends.
 *
 * C99, and nothing is allocated: channels, converters and texts are static memory or on the stack.
 */
#include <kelfunzioni.h>
#include <stdio.h>
#include <string.h>

/* What the dashboard shows, from left to right. */
static const struct {
    kel_funpos fid;
    uint32_t tipo_campione; /* how the logger records it */
    const char* udm;        /* the unit that the driver chose */
    const char* etichetta;  /* the unit that is shown after the text; gears and lap times need none */
    uint32_t larghezza;     /* characters of a number, the point not counted */
    uint32_t decimali;
    int colonna; /* width of the column; a status ("---", three blanks, "Err") needs three characters */
} voci[] = {
    {FID_PHI_RPM, KEL_TIPO_UINT16, "rpm", "rpm", 5, 0, 5},
    {FID_PHI_SPEED, KEL_TIPO_MEZZO_FLOAT, "mph", "mph", 4, 1, 5},
    {FID_PHI_GEAR | FID_OBJ_GEAR << FID_SHIFT_OBJ, KEL_TIPO_MARCIA, "gear", "", 1, 0, 1},
    {FID_PHI_TEMPERATURE | FID_OBJ_WATER << FID_SHIFT_OBJ, KEL_TIPO_INT16, "F", "F", 3, 0, 3},
    {FID_PHI_PRESSURE | FID_OBJ_BRAKE_FLUID << FID_SHIFT_OBJ, KEL_TIPO_FLOAT, "bar", "bar", 4, 1, 5},
    {FID_PHI_TIME | FID_OBJ_RUNNING_LAP << FID_SHIFT_OBJ, KEL_TIPO_TEMPO_GIRO, "time", "", 8, 2, 8},
};
enum { NUM_VOCI = sizeof voci / sizeof voci[0], DIM_RECORD = 16 };

/* Three records as a logger writes them: the samples are little-endian, one after the other, without alignment. */
static const unsigned char registrati[][DIM_RECORD] = {
    /* rpm      speed       gear        water       brake                   lap time, ms */
    {0xF2, 0x2B, 0x08, 0x56, 0x03, 0x00, 0x3A, 0x00, 0x00, 0x00, 0x00, 0x00, 0x0E, 0xA1, 0x00, 0x00},
    /* the water sensor came loose: 0xCFFE is "missing" */
    {0xC0, 0x30, 0x74, 0x56, 0x04, 0x00, 0xFE, 0xCF, 0x00, 0x00, 0x00, 0x00, 0x72, 0xA1, 0x00, 0x00},
    /* a wheel locked, and the speed left its range: +infinity as a 16-bit float */
    {0xB8, 0x1F, 0x00, 0x7C, 0x00, 0x00, 0x3A, 0x00, 0x00, 0x00, 0x19, 0x42, 0xD6, 0xA1, 0x00, 0x00},
};

/* The next record; 0 at the end. On a device this waits for the logger. */
static int leggi_record(unsigned char record[DIM_RECORD]) {
    static unsigned prossimo;
    if (prossimo == sizeof registrati / sizeof registrati[0]) {
        return 0;
    }
    memcpy(record, registrati[prossimo++], DIM_RECORD);
    return 1;
}

int main(void) {
    static s_kel_canale canali[NUM_VOCI];
    static s_kel_converter converter[NUM_VOCI]; /* static, so zeroed */
    s_set_canali set;
    unsigned char record[DIM_RECORD];
    char testo[32];
    uint32_t offset = 0;
    unsigned i;

    /* Once, at start-up: the channels, one after the other in the record, and a converter for each. */
    kelFunInit(&set, canali, NUM_VOCI, 0);
    for (i = 0; i < NUM_VOCI; ++i) {
        s_kel_canale* canale = kelFunGetFreeCh(&set);
        canale->fid = voci[i].fid;
        canale->tipo_campione = voci[i].tipo_campione;
        canale->offset_campione = offset;
        canale->dim_buffer = kelFunGetSamplSize(voci[i].tipo_campione);
        offset += canale->dim_buffer;

        converter[i].larghezza = voci[i].larghezza;
        converter[i].decimali = voci[i].decimali;
        converter[i].formato = FORMATO_DESTRA;
        kelConvInit(&converter[i], canale, canale->fid, kelFunGetConvData(canale->fid, voci[i].udm), 0, 0, 0);
    }
    if (kelFunGetSizeBufferValori(&set) != DIM_RECORD) {
        fprintf(stderr, "the channels need records of %u bytes\n", kelFunGetSizeBufferValori(&set));
        return 1;
    }

    /* The loop: each text is one call, and the columns keep their places. */
    while (leggi_record(record)) {
        for (i = 0; i < NUM_VOCI; ++i) {
            kelConvGetString(&converter[i], record, testo);
            printf("%s%s %*s%s%s", i > 0 ? " | " : "", kelFunGetNomeFunzioneShort(&set, voci[i].fid).testo,
                   voci[i].colonna, testo, *voci[i].etichetta ? " " : "", voci[i].etichetta);
        }
        putchar('\n');
    }
    return 0;
}
