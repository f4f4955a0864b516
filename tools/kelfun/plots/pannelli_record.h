// Which columns of a recording a plot shows, and which of them share a panel.
#ifndef KELFUN_PLOTS_PANNELLI_RECORD_H
#define KELFUN_PLOTS_PANNELLI_RECORD_H

#include <string>
#include <vector>

#include "captures/canali_record.h"

namespace kel::strumento {

/// A panel and the columns whose curves it holds.
struct PannelloRecord {
    std::string nome;
    std::string udm;
    double altezza = 1;
    std::vector<ColonnaRecord> colonne;
};

struct PannelliRecord {
    std::vector<PannelloRecord> pannelli;
    std::vector<std::string> tolte;  ///< names of the columns that have values and are not shown
};

/// The columns that an engineer looks at first, in the order in which he does: speed, RPM, gear, throttle,
/// accelerations, temperatures. Where there is none of them all columns are shown.
/// @param insieme  columns of one kind in one unit share a panel; else the first of each kind come first.
PannelliRecord pannelli_principali(const std::vector<ColonnaRecord>& colonne, bool insieme);

/// A panel for each column, in their order.
PannelliRecord un_pannello_per_colonna(const std::vector<ColonnaRecord>& colonne);

}  // namespace kel::strumento

#endif
