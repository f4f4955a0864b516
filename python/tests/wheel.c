/* Calls each part of a wheel's library once, and prints what it answers. scripts/wheels runs it on every machine. */
#include <stdio.h>
#include <stdlib.h>

#include "kelfunzioni.h"
#include "kelregistrazioni.h"

char* kelpy_nome(kel_funpos fid, int tutti);
void kelpy_libera(char* testo);

int main(void) {
    const kel_funpos fid = 0x05070010;
    const char* base = kelFunGetUnitaBase(fid);
    const s_converter_data in_mph = kelFunGetConvDatas(fid, base, "mph");
    const int16_t campioni[2] = {123, -12290};
    float valori[2];
    unsigned char validi[1];
    s_kel_canale canale = {0};
    s_kel_converter conv = {0};
    s_kel_colonna colonna = {0};
    char* nome = kelpy_nome(fid, 0);

    canale.fid = fid;
    canale.tipo_campione = 1;
    kelConvInit(&conv, &canale, fid, kelFunGetConvData(fid, base), 0, 0, 1);
    colonna.conv = &conv;
    colonna.valori = valori;
    colonna.validi = validi;
    kelColLeggi(campioni, sizeof campioni[0], 2, &colonna, 1);
    printf("%s %d %g %g %s\n", base, validi[0], (double)valori[0], (double)in_mph.gain, nome);
    kelpy_libera(nome);
    return 0;
}
