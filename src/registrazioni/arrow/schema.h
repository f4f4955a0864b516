// Columns as an Arrow schema.
#ifndef KEL_REGISTRAZIONI_SCHEMA_H
#define KEL_REGISTRAZIONI_SCHEMA_H

#include "recordings/tabella.h"

namespace kel_registrazioni {

/// Whether a column is handed out as its texts.
bool come_testo(const VoceColonna& voce, bool testi);

/// Fills a schema: a struct with the time, where there is one, and the columns.
void schema(const Tabella& tabella, bool testi, ArrowSchema& uscita);

}  // namespace kel_registrazioni

#endif
