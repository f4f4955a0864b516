// The entry: columns read with the fastest loops that this processor can run.
#include "columns/colonne.h"
#include "columns/nuclei.h"
#include "kelregistrazioni.h"

void kelColLeggi(const void* record, size_t passo, size_t numero, s_kel_colonna* colonne,
                 unsigned num_colonne) noexcept {
    if (numero < kel_colonne::POCHI)
        kel_colonne::leggi_poche(record, passo, numero, colonne, num_colonne);
    else
        kel_colonne::leggi_colonne(kel_colonne::nuclei_migliori(), record, passo, numero, colonne, num_colonne);
}
