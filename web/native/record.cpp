// The package reads and writes these records by the places of their members: web/package/src/recording.ts and laps.ts
// follow when a number here changes.
#include <cstddef>

#include "kelregistrazioni.h"

static_assert(sizeof(s_kel_apertura) == 40 && offsetof(s_kel_apertura, frequenza) == 16 &&
              offsetof(s_kel_apertura, lunghezza) == 24 && offsetof(s_kel_apertura, parole) == 32);
static_assert(sizeof(s_kel_descrizione) == 48 && offsetof(s_kel_descrizione, decimali) == 24);
static_assert(sizeof(s_kel_lettura) == 16 && offsetof(s_kel_lettura, testi) == 12);
static_assert(sizeof(s_kel_linea) == 32 && offsetof(s_kel_linea, larghezza) == 24);
static_assert(sizeof(s_kel_intermedio) == 48 && offsetof(s_kel_intermedio, linea) == 8);
static_assert(sizeof(s_kel_scelte_giri) == 32 && offsetof(s_kel_scelte_giri, minimo) == 16 &&
              offsetof(s_kel_scelte_giri, parole) == 28);
static_assert(offsetof(s_kel_giro, settori) == 24 && offsetof(s_kel_giro, metri) == 64);
