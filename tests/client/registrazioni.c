/* Recordings, laps and Arrow from a program that knows nothing but the two public headers: C99, and C++11. It calls every
   function that colonne.c does not. */
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

enum { RECORD = 70000, PASSO = 4 + 4 + 28, LATO = 200, MESSAGGIO = 60, MOMENTI = 5 * 140 };

static unsigned char canali[2 * 112], campioni[RECORD * PASSO], flusso[MOMENTI * MESSAGGIO];

static void scrivi(unsigned char* dove, unsigned long valore) {
    int i;
    for (i = 0; i < 4; i++)
        dove[i] = (unsigned char)(valore >> (8 * i) & 0xFF);
}

static void canale(unsigned char* record, kel_funpos fid, unsigned tipo, unsigned offset, const char* nome) {
    scrivi(record + 12, fid);
    scrivi(record + 20, tipo);
    strcpy((char*)record + 32, nome);
    scrivi(record + 68, offset);
    scrivi(record + 72, kelFunGetSamplSize(tipo));
}

/* A speed, and laps of 20 s that the logger has timed; a record every 10 ms. */
static void prepara_record(void) {
    unsigned long i;
    canale(canali, kelFidComponi(FID_PHI_SPEED, 0, FID_POS_WHEEL), KEL_TIPO_INT32, 0, "Speed");
    canale(canali + 112, kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_LAPTIME, FID_SPEC_LAPTIME_KEL2G), KEL_TIPO_LAP_2G,
           4, "Lap");
    for (i = 0; i < RECORD; i++) {
        unsigned char* record = campioni + i * PASSO;
        scrivi(record, i * 10);
        scrivi(record + 4, i % 300);
        record[8] = 1;
        scrivi(record + 10, i / 2000);
        scrivi(record + 12, 20000 + i / 2000 % 3);
    }
}

/* A receiver that drives around a square on the equator at 20 m/s, five messages a second: NAV-SOL in ECEF. */
static void prepara_flusso(void) {
    int i;
    for (i = 0; i < MOMENTI; i++) {
        unsigned char* testa = flusso + i * MESSAGGIO;
        unsigned char* dati = testa + 6;
        const int metri = i * 4 % (4 * LATO), lato = metri / LATO, oltre = metri % LATO;
        const long est = lato == 0 ? 0 : lato == 1 ? -oltre : lato == 2 ? -LATO : oltre - LATO;
        const long nord = lato == 0 ? oltre : lato == 1 ? LATO : lato == 2 ? LATO - oltre : 0;
        unsigned a = 0, b = 0;
        int k;
        testa[0] = 0xB5;
        testa[1] = 0x62;
        testa[2] = 1;
        testa[3] = 6;
        testa[4] = 52;
        scrivi(dati, 100000ul + (unsigned long)i * 200);
        dati[8] = 0x42;
        dati[9] = 9;
        dati[10] = 3;
        scrivi(dati + 12, 637813700ul);
        scrivi(dati + 16, (unsigned long)(est * 100));
        scrivi(dati + 20, (unsigned long)(nord * 100));
        scrivi(dati + 32, (unsigned long)(lato == 1 ? -2000l : lato == 3 ? 2000l : 0));
        scrivi(dati + 36, (unsigned long)(lato == 0 ? 2000l : lato == 2 ? -2000l : 0));
        dati[47] = 9;
        for (k = 2; k < 58; k++)
            b += a += testa[k];
        testa[58] = (unsigned char)(a & 0xFF);
        testa[59] = (unsigned char)(b & 0xFF);
    }
}

/* Rows, times, channels and columns. */
static void leggi(s_kel_registrazione* reg) {
    s_kel_descrizione descrizione;
    s_kel_canale record;
    s_kel_lettura lettura;
    s_kel_conteggi conteggi;
    unsigned char nessuno[KEL_NAV_SOL_BYTE];
    float uno = -1;
    unsigned char valido = 0;
    double tempo = -1;
    uint64_t prima = 0, quante = 0;
    VERIFICA(kelRegPrima(reg) == 0);
    VERIFICA(kelRegRighe(reg) == RECORD);
    VERIFICA(kelRegPasso(reg) == PASSO);
    VERIFICA(kelRegOrario(reg) == KEL_ORARIO_U32MS);
    VERIFICA(strcmp(kelRegDetto(reg), "time stamps: u32ms, every 10 ms") == 0);
    VERIFICA(kelRegAvanzo(reg) == 0);
    VERIFICA(strcmp(kelRegAvanzoDetto(reg), "") == 0);
    VERIFICA(kelRegNumCanali(reg) == 2);
    VERIFICA(strcmp(kelRegCanale(reg, 1, &record), "Lap") == 0);
    VERIFICA(record.tipo_campione == KEL_TIPO_LAP_2G);
    VERIFICA(kelRegNumColonne(reg) > 2);
    VERIFICA(kelRegDescrivi(reg, 0, &descrizione) == 1);
    VERIFICA(strcmp(descrizione.nome, "Speed") == 0);
    VERIFICA(strcmp(descrizione.udm, "km/h") == 0);
    VERIFICA(descrizione.valori == KEL_VALORI_FLOAT);
    VERIFICA(kelRegUnita(reg, 0, "mph") == 1);
    VERIFICA(kelRegUnita(reg, 0, "km/h") == 1);
    lettura.colonna = 0;
    lettura.valori = &uno;
    lettura.validi = &valido;
    lettura.testi = NULL;
    VERIFICA(kelRegLeggi(reg, 299, 1, &lettura, 1) == 1);
    VERIFICA(uno == 299.0f);
    VERIFICA(valido == 1);
    VERIFICA(kelRegTempi(reg, 500, 1, &tempo) == 1);
    VERIFICA(tempo == 5.0);
    VERIFICA(kelRegTratto(reg, 1.0, 2.0, &prima, &quante) == 1);
    VERIFICA(prima == 100);
    VERIFICA(quante == 100);
    VERIFICA(kelRegConteggi(reg, &conteggi) == 0);
    VERIFICA(kelRegMessaggi(reg, NULL, 0) == 0);
    VERIFICA(kelRegNavSol(reg, 0, nessuno) == 0);
}

/* A consumer of Arrow as its interface describes it: every row once, in order; releases what it was given. */
static void consuma(struct ArrowArrayStream* arrow) {
    struct ArrowSchema schema;
    struct ArrowArray blocco;
    int64_t righe = 0;
    VERIFICA(arrow->get_schema(arrow, &schema) == 0);
    VERIFICA(strcmp(schema.format, "+s") == 0);
    VERIFICA(schema.n_children > 2);
    VERIFICA(strcmp(schema.children[0]->name, "time") == 0);
    VERIFICA(strcmp(schema.children[1]->name, "Speed") == 0);
    VERIFICA(strcmp(schema.children[1]->format, "f") == 0);
    schema.release(&schema);
    VERIFICA(schema.release == NULL);
    for (;;) {
        int64_t i;
        int diversi = 0;
        const float* valori;
        VERIFICA(arrow->get_next(arrow, &blocco) == 0);
        if (falliti != 0 || blocco.release == NULL)
            break;
        VERIFICA(blocco.length <= 65536);
        VERIFICA(blocco.children[1]->n_buffers == 2);
        VERIFICA(blocco.children[1]->length == blocco.length);
        VERIFICA(blocco.children[1]->null_count == 0);
        valori = (const float*)blocco.children[1]->buffers[1];
        for (i = 0; i < blocco.length; i++, righe++)
            diversi += valori[i] != (float)(righe % 300);
        VERIFICA(diversi == 0);
        blocco.release(&blocco);
        VERIFICA(blocco.release == NULL);
    }
    VERIFICA(righe == RECORD);
    VERIFICA(arrow->get_last_error(arrow) == NULL);
    arrow->release(arrow);
    VERIFICA(arrow->release == NULL);
}

/* The laps that the logger has timed. */
static void giri_del_registratore(const s_kel_registrazione* reg) {
    s_kel_errore errore;
    s_kel_giro giro;
    s_kel_giri* giri = kelGiriApri(reg, &errore);
    VERIFICA(giri != NULL);
    if (giri == NULL)
        return;
    VERIFICA(kelGiriAggiungi(giri, &errore) == 1);
    VERIFICA(kelGiriCalcola(giri, NULL, &errore) == 1);
    VERIFICA(strcmp(kelGiriDetto(giri), "laps from 'Lap'\n") == 0);
    VERIFICA(kelGiriNumero(giri) > 30);
    VERIFICA(kelGiriGiro(giri, 3, &giro) == 1);
    VERIFICA(giro.stato == KEL_GIRO_BUONO);
    VERIFICA(giro.ms >= 20000 && giro.ms <= 20002);
    VERIFICA(strcmp(kelGiriNomeStato(giro.stato), "") == 0);
    kelGiriChiudi(giri);
}

/* The laps of the square by GPS: 800 m in 40 s. */
static void giri_gps(const s_kel_registrazione* reg) {
    s_kel_errore errore;
    s_kel_giro giro;
    s_kel_linea linea;
    s_kel_scelte_giri scelte;
    static s_kel_punto_giro punti[300];
    static s_kel_fix fix[300];
    size_t quanti;
    s_kel_giri* giri = kelGiriApri(reg, &errore);
    VERIFICA(giri != NULL);
    if (giri == NULL)
        return;
    VERIFICA(kelGiriLinea("0.0009,0,0", &linea) == 1);
    memset(&scelte, 0, sizeof scelte);
    scelte.fonte = KEL_GIRI_GPS;
    scelte.linea = &linea;
    VERIFICA(kelGiriAggiungi(giri, &errore) == 1);
    VERIFICA(kelGiriCalcola(giri, &scelte, &errore) == 1);
    VERIFICA(kelGiriGiro(giri, 1, &giro) == 1);
    VERIFICA(giro.ms > 39990 && giro.ms < 40010);
    VERIFICA(giro.metri > 790 && giro.metri < 810);
    quanti = kelGiriAndamento(giri, 1, 800, punti, 300);
    VERIFICA(quanti > 190 && quanti < 300);
    VERIFICA(quanti != 0 && punti[0].metri == 0 && punti[quanti - 1].metri > 799.9);
    quanti = kelGiriFix(giri, 1, fix, 300);
    VERIFICA(quanti > 190 && quanti < 300);
    VERIFICA(fix[0].velocita > 19.9 && fix[0].velocita < 20.1);
    kelGiriChiudi(giri);
}

/* A stream of a receiver that comes in two pieces. */
static void leggi_flusso(void) {
    s_kel_errore errore;
    s_kel_conteggi conteggi;
    s_kel_messaggi messaggi;
    unsigned char payload[KEL_NAV_SOL_BYTE];
    s_kel_registrazione* reg = kelRegApriUbx(NULL, 0, &errore);
    VERIFICA(reg != NULL);
    if (reg == NULL)
        return;
    VERIFICA(kelRegSpingi(reg, flusso, MESSAGGIO + 7, &errore) == 1);
    VERIFICA(kelRegRighe(reg) == 1);
    VERIFICA(kelRegSpingi(reg, flusso + MESSAGGIO + 7, sizeof flusso - MESSAGGIO - 7, &errore) == 1);
    VERIFICA(kelRegPrima(reg) == 1);
    VERIFICA(kelRegRighe(reg) == MOMENTI - 1);
    VERIFICA(kelRegSpingi(reg, NULL, 0, &errore) == 1);
    VERIFICA(kelRegConteggi(reg, &conteggi) == 1);
    VERIFICA(conteggi.soluzioni == MOMENTI);
    VERIFICA(kelRegMessaggi(reg, &messaggi, 1) == 1);
    VERIFICA(messaggi.quanti == MOMENTI);
    kelRegChiudi(reg);
    reg = kelRegApriUbx(flusso, sizeof flusso, &errore);
    VERIFICA(reg != NULL);
    if (reg == NULL)
        return;
    VERIFICA(kelRegNavSol(reg, 7, payload) == 1);
    VERIFICA(memcmp(payload, flusso + 7 * MESSAGGIO + 6, sizeof payload) == 0);
    giri_gps(reg);
    kelRegChiudi(reg);
}

int main(void) {
    s_kel_errore errore;
    s_kel_registrazione* reg;
    struct ArrowArrayStream arrow;
    char chiave[16];
    prepara_record();
    prepara_flusso();
    VERIFICA(kelRegApri(canali, 111, campioni, sizeof campioni, NULL, &errore) == NULL);
    VERIFICA(strcmp(errore.testo, "111 bytes are no channel records, which have 112 bytes each") == 0);
    reg = kelRegApri(canali, sizeof canali, campioni, sizeof campioni, NULL, &errore);
    VERIFICA(reg != NULL);
    if (reg != NULL) {
        leggi(reg);
        giri_del_registratore(reg);
        VERIFICA(kelRegArrow(reg, 0, RECORD, 0, &arrow, &errore) == 1);
        kelRegChiudi(reg); /* the stream stays good */
        consuma(&arrow);
    }
    leggi_flusso();
    VERIFICA(kelRegTipoPacchetto(KEL_FID_GPS_PACCHETTO) == KEL_TIPO_GPS_KEL);
    VERIFICA(kelRegFattoreVelocita("mph") > 2.2 && kelRegFattoreVelocita("mph") < 2.3);
    VERIFICA(kelRegChiave("Lambda 1 (L)", chiave, sizeof chiave) == 10);
    VERIFICA(strcmp(chiave, "lambda_1_l") == 0);
    VERIFICA(strcmp(kelRegMisura("time"), "ms") == 0);
    if (falliti == 0)
        printf("recordings, laps and Arrow: as the header says\n");
    return falliti == 0 ? 0 : 1;
}
