/* A program linked without PIE: the linker gives it copies of the tables it names, and the library must then hand out
   addresses in those copies, not in its own. */
#include <kelfunzioni.h>
#include <stdint.h>
#include <stdio.h>

static int falliti = 0;

/* Whether a pointer is the address of a row of a table. */
static int riga_di(const void* p, const void* tabella, size_t righe, size_t dimensione) {
    const uintptr_t scarto = (uintptr_t)p - (uintptr_t)tabella;
    return scarto < righe * dimensione && scarto % dimensione == 0;
}

#define DENTRO(p, tabella)                                                                        \
    do {                                                                                          \
        if (!riga_di((p), (tabella), sizeof(tabella) / sizeof(tabella)[0], sizeof(tabella)[0])) { \
            printf("%s:%d: %s is no row of %s\n", __FILE__, __LINE__, #p, #tabella);              \
            falliti++;                                                                            \
        }                                                                                         \
    } while (0)

int main(void) {
    /* From functions. */
    DENTRO(kelFunGetUIVs(0x10), uib_grandezza_fisica_uiv);
    DENTRO(kelFunGetConvData(0x11, "F"), C_udm_associate);
    DENTRO(kelFunGetConvData(0x20E, "psi"), bar_brake_udm_associate);
    DENTRO(kelFunGetConvData(28, "F"), NULL_udm_associate);
    DENTRO(kelFunGetFunVecchiaZumikoDaID("REF_SPEED"), funz_ZumikoCam_base);
    DENTRO(kelFunGetFunVecchiaZumikoDaFID(0x00068A07), funz_ZumikoCam_estese);
    DENTRO(kelFunGetParamZumikoCam(0x0000061F), funz_ZumikoCam_base);
    DENTRO(kelConvGetSottoCampiGPS(0x1A | 3 << 7), sottocampi_gps_kel);
    DENTRO(kelConvGetSottoCampiLapTime(0x1A | 1 << 7), sottocampi_lap_time_2G);

    /* From one table to another. */
    DENTRO(kelFunGetUIVs(0x10)->udm, kmh_udm_associate);
    DENTRO(kelFunGetUIVs(0x10)->varianti, z4_speed);
    DENTRO(kelFunGetUIVs(0x10)->varianti[1].lati, udfrlrs_solo_frlr);
    DENTRO(z4_num_lambda[0].inout, ios_solo_inout);

    printf("%d checks failed\n", falliti);
    return falliti != 0;
}
