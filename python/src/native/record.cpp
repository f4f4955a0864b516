// How the records of the C faces lie in memory, for Python to compare its own with.
#include <cstddef>

#include "kelregistrazioni.h"
#include "risposta.h"

using kel::python::Json;
using kel::python::rispondi;

// The bytes of a record, and where its last member begins.
#define KEL_RECORD(tipo, ultimo)                 \
    {                                            \
#tipo, {                                 \
            sizeof(tipo), offsetof(tipo, ultimo) \
        }                                        \
    }

KELPYTHON_API char* kelpy_record() {
    return rispondi([] {
        return Json{
            KEL_RECORD(s_converter_data, reciproco),
            KEL_RECORD(s_udm_associata, decimali_min),
            KEL_RECORD(s_grandezza_fisica_uiv, varianti),
            KEL_RECORD(s_kel_canale, dim_buffer),
            KEL_RECORD(s_kel_converter, testo_stato),
            KEL_RECORD(s_sottocampo, testo),
            KEL_RECORD(s_nome_breve, testo),
            KEL_RECORD(s_kel_colonna, testi),
            KEL_RECORD(s_kel_errore, testo),
            KEL_RECORD(s_kel_parole, intermedio),
            KEL_RECORD(s_kel_apertura, parole),
            KEL_RECORD(s_kel_descrizione, pacchetto),
            KEL_RECORD(s_kel_lettura, testi),
            KEL_RECORD(s_kel_linea, larghezza),
            KEL_RECORD(s_kel_intermedio, detto),
            KEL_RECORD(s_kel_scelte_giri, parole),
            KEL_RECORD(s_kel_giro, campioni),
        };
    });
}
