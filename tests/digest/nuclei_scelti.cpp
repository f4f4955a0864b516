#include "nuclei_scelti.h"

#include "columns/colonne.h"
#include "kelregistrazioni.h"

namespace {

thread_local const kel_colonne::Nuclei* scelti = nullptr;

}  // namespace

namespace digest {

void scegli_nuclei(const kel_colonne::Nuclei* nuclei) {
    scelti = nuclei;
}

}  // namespace digest

extern "C" {
void __real_kelColLeggi(const void* record, size_t passo, size_t numero,
                        s_kel_colonna* colonne,  // NOLINT: the linker's name
                        unsigned num_colonne);

void __wrap_kelColLeggi(const void* record, size_t passo, size_t numero, s_kel_colonna* colonne,  // NOLINT
                        unsigned num_colonne) {
    if (scelti != nullptr)
        kel_colonne::leggi_colonne(*scelti, record, passo, numero, colonne, num_colonne);
    else
        __real_kelColLeggi(record, passo, numero, colonne, num_colonne);
}
}
