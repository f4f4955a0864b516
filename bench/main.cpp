// The program that scripts/bench runs: every row of the table, in one process.
#include <benchmark/benchmark.h>

#include "righe.h"

int main(int argc, char** argv) {
    righe_testo_numerico();
    righe_valore();
    righe_mezzo_float();
    righe_grandezza();
    righe_camera();
    righe_nomi();
    righe_identificatori_vecchi();
    righe_conversione();
    righe_tempi();
    righe_coordinate();
    righe_canali();
    righe_elenchi();
    righe_ricerche();
    righe_campioni();
    righe_colonne();
    righe_registrazioni();

    benchmark::AddCustomContext("missing_peers", KEL_PARI_MANCANTI);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
