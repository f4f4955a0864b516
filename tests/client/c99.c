/* The flat face from a C99 program that knows nothing of C++: every flat function is called, every table is read to its
 * end. It knows no more of a table than a program may rely on: how many rows there are, that they can be read, and what the
 * documentation says of single ones. scripts/keep-release keeps a copy, to be run with the libraries that follow. */
#include <kelfunzioni.h>
#include <stdio.h>
#include <string.h>

static int falliti = 0;
static unsigned long letti = 0; /* characters, so that every text is read to its end */

#define VERIFICA(cond)                                                \
    do {                                                              \
        if (!(cond)) {                                                \
            printf("%s:%d: not so: %s\n", __FILE__, __LINE__, #cond); \
            falliti++;                                                \
        }                                                             \
    } while (0)

/* Adds the length of a text, which no table leaves out. */
static void leggi(const char* testo) {
    VERIFICA(testo != NULL);
    if (testo != NULL)
        letti += strlen(testo);
}

static void campi(const s_campo_fid* tabella, int righe) {
    int i;
    for (i = 0; i < righe; i++) {
        VERIFICA(tabella[i].valore == i);
        leggi(tabella[i].xml);
        leggi(tabella[i].breve);
        leggi(tabella[i].testo);
    }
}

static void dati(const s_converter_data* unita) {
    leggi(unita->udm);
    VERIFICA(unita->gain != 0.0f);
    VERIFICA(unita->offset == unita->offset);
    VERIFICA(unita->reciproco == 0 || unita->reciproco == 1);
}

static void unita(const s_udm_associata* tabella, int righe) {
    int i;
    for (i = 0; i < righe; i++) {
        dati(&tabella[i].dati);
        VERIFICA(tabella[i].decimali_min <= tabella[i].decimali_default);
        VERIFICA(tabella[i].decimali_default <= tabella[i].decimali_max);
    }
}

static void scelte(const s_scelta_fid* tabella, int righe) {
    int i;
    for (i = 0; i < righe; i++) {
        VERIFICA(tabella[i].chiave != 0);
        leggi(tabella[i].breve);
        leggi(tabella[i].testo);
    }
}

static void varianti(const s_variante_posizione* tabella, int righe) {
    int i;
    for (i = 0; i < righe; i++) {
        VERIFICA(tabella[i].posizione <= 22);
        leggi(tabella[i].breve);
        leggi(tabella[i].testo);
        scelte(tabella[i].inout, tabella[i].num_inout);
        scelte(tabella[i].lati, tabella[i].num_lati);
        VERIFICA(tabella[i].primo <= tabella[i].ultimo);
    }
}

static void sottocampi(const s_sottocampo* tabella, int righe) {
    int i;
    for (i = 0; i < righe; i++) {
        VERIFICA(kelFidFineTabella(tabella[i].fid) == (i == righe - 1));
        VERIFICA(tabella[i].offset < 64);
        VERIFICA(tabella[i].pos_bit < 32 && tabella[i].num_bit <= 32 && tabella[i].maschera == 0);
        VERIFICA(tabella[i].tipo_campione <= 25);
        VERIFICA(tabella[i].tipo_campione != 25 || i == righe - 1 || tabella[i].valore != NULL ||
                 tabella[i].conv_testo != NULL);
        VERIFICA(tabella[i].valore_reciproco == NULL || tabella[i].valore != NULL);
        leggi(tabella[i].breve);
        leggi(tabella[i].testo);
    }
}

static void camera(const t_SFunzioneZumikoCam* tabella, int righe) {
    int i;
    for (i = 0; i < righe; i++) {
        VERIFICA(kelFidFineTabella(tabella[i].fid) == (i == righe - 1));
        VERIFICA(tabella[i].scala == tabella[i].scala && tabella[i].fattore == tabella[i].fattore);
        VERIFICA(tabella[i].codice >= -1 && tabella[i].tipo_campione <= 25);
        leggi(tabella[i].udm);
        leggi(tabella[i].breve);
        leggi(tabella[i].testo);
        leggi(tabella[i].id);
    }
}

static void tabelle(void) {
    int i;
    campi(grandezza_fisica_FunzKel, 32);
    campi(oggetto_misurato_FunzKel, 58);
    campi(posizione_FunzKel, 23);
    campi(inout_FunzKel, 4);
    campi(leftright_FunzKel, 4);
    campi(frontrear_FunzKel, 4);
    campi(updown_FunzKel, 4);
    campi(dettagli_FunzKel, 4);
    campi(specializzazione_gps_FunzKel, 2);
    campi(specializzazione_laptime_FunzKel, 3);
    varianti(z4_pres_brk, 2);
    varianti(z4_velocity, 1);
    varianti(z4_time_off, 1);
    varianti(z4_num_lambda, 1);
    varianti(z4_speed, 2);
    scelte(ios_completo, 3);
    scelte(ios_solo_inout, 2);
    scelte(udfrlrs_solo_fr, 2);
    scelte(udfrlrs_solo_frlr, 6);
    unita(NULL_udm_associate, 1);
    unita(kmh_udm_associate, 2);
    unita(kmh_vel_udm_associate, 7);
    unita(C_udm_associate, 2);
    unita(bar_udm_associate, 5);
    unita(bar_oil_udm_associate, 3);
    unita(bar_brake_udm_associate, 2);
    unita(g_udm_associate, 1);
    unita(km_udm_associate, 7);
    unita(Hz_udm_associate, 2);
    unita(ms_udm_associate, 5);
    unita(s_udm_associate, 4);
    unita(time_udm_associate, 1);
    unita(deg_udm_associate, 2);
    unita(mV_udm_associate, 2);
    unita(battery_udm_associate, 1);
    unita(deg_sec_udm_associate, 5);
    unita(gyro_udm_associate, 1);
    unita(kW_sec_udm_associate, 4);
    unita(l_udm_associate, 2);
    unita(l_sec_udm_associate, 4);
    unita(pct_udm_associate, 1);
    unita(pct_sec_udm_associate, 1);
    unita(code_udm_associate, 1);
    unita(coord_alt_udm_associate, 2);
    unita(coord_lat_udm_associate, 1);
    unita(coord_lon_udm_associate, 1);
    unita(coord_udm_associate, 1);
    unita(m_udm_associate, 4);
    unita(pos_udm_associate, 2);
    unita(kg_sec_udm_associate, 1);
    unita(afr_udm_associate, 1);
    unita(hash_udm_associate, 1);
    unita(rpm_udm_associate, 1);
    unita(rpm_s_udm_associate, 1);
    unita(lambda_udm_associate, 1);
    unita(lambda_tot_udm_associate, 1);
    unita(gear_udm_associate, 1);
    unita(Nm_udm_associate, 1);
    unita(l_lap_udm_associate, 1);
    unita(date_udm_associate, 1);
    unita(pckt_udm_associate, 1);
    unita(A_udm_associate, 1);
    for (i = 0; i < 66; i++) {
        const s_grandezza_fisica_uiv* riga = &uib_grandezza_fisica_uiv[i];
        VERIFICA((riga->chiave == 0x1D20) == (i == 65));
        leggi(riga->breve);
        leggi(riga->testo);
        unita(riga->udm, riga->num_udm);
        varianti(riga->varianti, riga->num_varianti);
    }
    for (i = 0; i < 33; i++) {
        VERIFICA(udm_codici[i].codice == i);
        leggi(udm_codici[i].testo);
    }
    sottocampi(sottocampi_gps_kel, 9);
    sottocampi(sottocampi_lap_time_2G, 13);
    camera(funz_ZumikoCam_base, 20);
    camera(funz_ZumikoCam_estese, 23);
    for (i = 0; i < 20; i++) {
        VERIFICA(kelFidFineTabella(funz_Kel[i].fid) == (i == 19));
        leggi(funz_Kel[i].breve);
        leggi(funz_Kel[i].testo);
        leggi(funz_Kel[i].id);
    }
}

static void canali(void) {
    s_kel_canale registro[4];
    s_kel_canale* trovati[4];
    s_set_canali set;
    unsigned numero = 4;
    memset(registro, 0xFF, sizeof registro);
    kelFunInit(&set, registro, 4, 0);
    VERIFICA(kelFunGetFreeCh(&set) == &registro[0] && kelFunGetFreeCh(&set) == &registro[1]);
    VERIFICA(registro[1].indice == 1 && registro[1].riservato3[35] == 0 && registro[2].riservato1[0] == 0xFF);
    registro[0].fid = 0x0000019A; /* the GPS packet of the logger */
    registro[0].tipo_campione = KEL_TIPO_GPS_KEL;
    registro[0].dim_buffer = 56;
    registro[1].fid = 0x00001091;
    registro[1].dim_buffer = 4;
    registro[1].offset_campione = 56;
    strcpy(registro[1].breve, "WatT");
    strcpy(registro[1].nome, "Water Temp");
    VERIFICA(kelFunGetCanale(&set, 1) == &registro[1] && kelFunGetCanale(&set, 2) == NULL);
    VERIFICA(kelFunGetNumChUsed(&set) == 2 && kelFunGetNumChTot(&set) == 4);
    VERIFICA(kelFunGetSizeBufferValori(&set) == 60);
    VERIFICA(strcmp(kelFunGetNomeCanale(&set, 1), "Water Temp") == 0);
    VERIFICA(strcmp(kelFunGetNomeCanaleShort(&set, 1), "WatT") == 0);
    VERIFICA(kelFunGetMatchCh(&set, 0x00001091) == &registro[1]);
    VERIFICA(kelFunGetMatchChFull(&set, 0x00001091) == &registro[1]);
    VERIFICA(kelFunGetMatchChList(&set, 0x00001091, trovati, &numero) == 1 && numero == 1 &&
             trovati[0] == &registro[1]);
    VERIFICA(kelFunFreeLastCh(&set) == 1 && kelFunGetNumChUsed(&set) == 1);
}

static void unitaENomi(void) {
    const s_converter_data trovata = kelFunGetConvDatas(0x00001091, "C", "F");
    const s_nome_breve nome = kelFunGetNomeFunzioneShort(NULL, 0x00048611);
    VERIFICA(kelFunGetUIVs(0x00000010)->udm == kmh_udm_associate);
    VERIFICA(strcmp(kelFunGetUnitaBase(0x00001091), "C") == 0);
    VERIFICA(strcmp(kelFunGetUdmTxt(1), "km/h") == 0 && kelFunGetUdmCode("km/h") == 1);
    VERIFICA(kelFunGetNumDecimaliDefault(0x0000000E, "bar") == 2);
    VERIFICA(kelFunGetNumDecimaliMax(0x00000012, "s") == 3);
    VERIFICA(kelFunGetNumDecimaliMin(0x00000012, "s") == 0);
    VERIFICA(kelFunGetConvData(0x00001091, "F") == &C_udm_associate[1].dati);
    VERIFICA(trovata.gain == 1.8f && trovata.offset == 32.0f && trovata.reciproco == 0);
    VERIFICA(strcmp(nome.testo, "TemperatureGear") == 0);
    VERIFICA(kelFunGetFidDaID("FG_GEAR_BOX_TEMP") == 0x00048611);
    VERIFICA(kelFunGetFunVecchiaZumikoDaID("REF_SPEED") == &funz_ZumikoCam_base[1]);
    VERIFICA(kelFunGetFunVecchiaZumikoDaFID(0x00000010) == &funz_ZumikoCam_base[1]);
    VERIFICA(kelFunGetParamZumikoCam(0x00000010) == &funz_ZumikoCam_base[1]);
    VERIFICA(getFunzVisSize() == 20 && getFunzVisEstSize() == 23);
}

static void convertitori(void) {
    static const unsigned char campione[6] = {0, 0, 0xA4, 0x70, 0x45, 0x41}; /* 12.34 at byte 2 */
    s_kel_canale canale;
    s_kel_converter conv;
    char testo[32];
    float valore = 0.0f;
    memset(&canale, 0, sizeof canale);
    canale.fid = 0x00001091;
    canale.tipo_campione = KEL_TIPO_FLOAT;
    canale.offset_campione = 2;
    memset(&conv, 0, sizeof conv);
    conv.larghezza = 4;
    conv.decimali = 1;
    conv.formato = FORMATO_DESTRA;
    kelConvInit(&conv, &canale, canale.fid, kelFunGetConvData(canale.fid, "C"), 0, 0, 0);
    VERIFICA(kelConvGetOffset(&conv) == 2 && kelConvGetConvData(&conv) == &C_udm_associate[0].dati);
    VERIFICA(kelConvGetValFloat(&conv, campione, &valore) == 1 && valore == 12.34f);
    VERIFICA(kelConvGetString(&conv, campione, testo) == 1 && strcmp(testo, " 12.3") == 0);
    VERIFICA(conv.valore != NULL && conv.testo != NULL && conv.testo_stato != NULL);
    VERIFICA(conv.pos_bit == 0 && conv.num_bit == 0 && conv.maschera == 0 && conv.auto_decimali == 0);
    VERIFICA(kelFunGetSamplSize(KEL_TIPO_FLOAT) == 4);
    VERIFICA(kelF16compress(0x3F800000) == 0x3C00 && kelF16decompress(0x3C00) == 0x3F800000);
}

static void pacchetti(void) {
    VERIFICA(kelConvGetSottoCampiGPS(0x0000019A) == sottocampi_gps_kel);
    VERIFICA(kelConvGetSottoCampiLapTime(0x0000009A) == sottocampi_lap_time_2G);
    VERIFICA(kelConvGetSottoCampiDataOra(0x0000011A) != NULL);
    VERIFICA(search_sottocampi_struct(FID_DETTAGLI_GPS, 0) == sottocampi_gps_kel);
    VERIFICA(kelConvMatchSottocampo(FID_DETTAGLI_GPS, 0, sottocampi_gps_kel[1].fid) == 1);
    VERIFICA(getDettagliSottocampo(sottocampi_gps_kel, sottocampi_gps_kel[1].fid) == &sottocampi_gps_kel[1]);
}

int main(void) {
    tabelle();
    canali();
    unitaENomi();
    convertitori();
    pacchetti();
    VERIFICA(letti > 1000);
    printf("%lu characters read, %d checks failed\n", letti, falliti);
    return falliti == 0 ? 0 : 1;
}
