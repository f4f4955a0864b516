// The rows of the table: each function registers the series of its rows.
#ifndef KEL_BENCH_RIGHE_H
#define KEL_BENCH_RIGHE_H

void righe_testo_numerico();
void righe_valore();
void righe_mezzo_float();
void righe_grandezza();
void righe_camera();
void righe_nomi();
void righe_identificatori_vecchi();
void righe_conversione();
void righe_tempi();
void righe_coordinate();
void righe_canali();
void righe_elenchi();
void righe_ricerche();
void righe_campioni();
void righe_colonne();
void righe_registrazioni();

#endif
