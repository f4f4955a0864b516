/* The flat face from a C99 program that knows nothing of C++. */
#include <kelfunzioni.h>
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

int main(void) {
    const kel_funpos cambio = 0x00048611; /* temperature of the gearbox */

    /* Units and names. */
    VERIFICA(strcmp(kelFunGetUnitaBase(cambio), "C") == 0);
    VERIFICA(kelFunGetUdmCode("km/h") == 1);
    VERIFICA(kelFunGetUdmCode("KM/H") == -1);
    VERIFICA(strcmp(kelFunGetUdmTxt(32), "mV") == 0);
    VERIFICA(kelFunGetUdmTxt(33) == NULL);
    VERIFICA(kelFunGetFidDaID("FG_GEAR_BOX_TEMP") == cambio);
    VERIFICA(kelFunGetFidDaID(NULL) == 0);
    VERIFICA(strcmp(kelFunGetNomeFunzioneShort(NULL, cambio).testo, "TemperatureGear") == 0);
    VERIFICA(kelFunGetUIVs(28) == NULL);
    VERIFICA(getFunzVisSize() == 20);
    VERIFICA(getFunzVisEstSize() == 23);

    /* Records by value and in place. */
    const s_converter_data fahrenheit = kelFunGetConvDatas(cambio, "C", "F");
    VERIFICA(fahrenheit.gain == 1.8f);
    VERIFICA(fahrenheit.offset == 32.0f);
    VERIFICA(strcmp(fahrenheit.udm, "") == 0); /* a conversion between two units has no text of its own */
    VERIFICA(kelFunGetConvDatas(cambio, "C", "C").gain == 1.0f);
    VERIFICA(kelFunGetConvData(cambio, "F") == &C_udm_associate[1].dati);
    VERIFICA(kelFunGetConvData(28, "F") == &NULL_udm_associate[0].dati);

    /* A channel set and a converter. */
    s_kel_canale canali[2];
    s_set_canali set;
    kelFunInit(&set, canali, 2, 0);
    s_kel_canale* ch = kelFunGetFreeCh(&set);
    VERIFICA(ch == &canali[0]);
    VERIFICA(kelFunGetNumChUsed(&set) == 1);
    ch->fid = cambio;
    ch->tipo_campione = 6; /* 32-bit float */
    ch->offset_campione = 3;
    VERIFICA(kelFunGetMatchCh(&set, cambio) == ch);
    VERIFICA(kelFunGetMatchCh(&set, 0x10) == NULL);

    s_kel_converter conv;
    memset(&conv, 0, sizeof conv);
    kelConvInit(&conv, ch, cambio, kelFunGetConvData(cambio, "C"), 0, 0, 0);
    conv.larghezza = 4;
    conv.decimali = 1;
    conv.formato = FORMATO_DESTRA;
    VERIFICA(kelConvGetOffset(&conv) == 3);
    const float gradi = 123.45f;
    unsigned char dati[8] = {0};
    memcpy(dati + 3, &gradi, sizeof gradi);
    float valore = 0.0f;
    char testo[32];
    VERIFICA(kelConvGetValFloat(&conv, dati, &valore) == 1);
    VERIFICA(valore == gradi);
    VERIFICA(kelConvGetString(&conv, dati, testo) == 1);
    VERIFICA(strcmp(testo, "123.5") == 0);

    VERIFICA(kelFunFreeLastCh(&set) == 1);
    VERIFICA(kelFunFreeLastCh(&set) == 0);

    VERIFICA(kelFunGetSamplSize(9) == 52);
    VERIFICA(kelF16compress(0x3F800000u) == 0x3C00u);
    VERIFICA(kelF16decompress(0x3C00u) == 0x3F800000u);

    printf("%d checks failed\n", falliti);
    return falliti != 0;
}
