#include "plots/pannelli_record.h"

#include <algorithm>

#include "kelfunzioni.h"

namespace kel::strumento {

namespace {

constexpr std::size_t CURVE_MASSIME = 6;  // in one panel: more colours are not told apart

struct Genere {
    const char* nome;
    double altezza;
    bool (*comprende)(kel_funpos fid);
};

// In the order in which they are looked at.
constexpr Genere GENERI[] = {
    {"Speed", 1.4, [](kel_funpos fid) { return kelFidGrandezza(fid) == FID_PHI_SPEED; }},
    {"RPM", 1, [](kel_funpos fid) { return kelFidGrandezza(fid) == FID_PHI_RPM; }},
    {"Gear", 0.6, [](kel_funpos fid) { return kelFidGrandezza(fid) == FID_PHI_GEAR; }},
    {"Throttle", 0.8,
     [](kel_funpos fid) {
         return kelFidGrandezza(fid) != FID_PHI_PACKAGE && kelFidOggetto(fid) == FID_OBJ_THROTTLE_LOAD;
     }},
    {"Acceleration", 1, [](kel_funpos fid) { return kelFidGrandezza(fid) == FID_PHI_ACCELERATION; }},
    {"Temperature", 0.8, [](kel_funpos fid) { return kelFidGrandezza(fid) == FID_PHI_TEMPERATURE; }},
};

// The panel of this kind and unit that still has room, or a new one.
PannelloRecord& pannello_di(const Genere& genere, const std::string& udm, std::vector<PannelloRecord>& pannelli) {
    for (PannelloRecord& uno : pannelli)
        if (uno.nome == genere.nome && uno.udm == udm && uno.colonne.size() < CURVE_MASSIME)
            return uno;
    pannelli.push_back({genere.nome, udm, genere.altezza, {}});
    return pannelli.back();
}

// A panel for each column: the first of all panels, then the others.
std::vector<PannelloRecord> separati(const std::vector<PannelloRecord>& pannelli) {
    std::vector<PannelloRecord> tutti;
    for (const bool prima : {true, false})
        for (const PannelloRecord& uno : pannelli)
            for (std::size_t i = 0; i < uno.colonne.size(); ++i)
                if ((i == 0) == prima)
                    tutti.push_back({uno.colonne[i].nome_misurato(), uno.udm, uno.altezza, {uno.colonne[i]}});
    return tutti;
}

}  // namespace

PannelliRecord pannelli_principali(const std::vector<ColonnaRecord>& colonne, bool insieme) {
    PannelliRecord scelti;
    std::vector<bool> mostrate(colonne.size());
    for (const Genere& genere : GENERI)
        for (std::size_t i = 0; i < colonne.size(); ++i)
            if (!mostrate[i] && colonne[i].ha_valore() && genere.comprende(colonne[i].fid)) {
                pannello_di(genere, colonne[i].udm, scelti.pannelli).colonne.push_back(colonne[i]);
                mostrate[i] = true;
            }
    if (scelti.pannelli.empty())
        return un_pannello_per_colonna(colonne);
    if (!insieme)
        scelti.pannelli = separati(scelti.pannelli);
    for (std::size_t i = 0; i < colonne.size(); ++i)
        if (!mostrate[i] && colonne[i].ha_valore())
            scelti.tolte.push_back(colonne[i].nome_misurato());
    return scelti;
}

PannelliRecord un_pannello_per_colonna(const std::vector<ColonnaRecord>& colonne) {
    PannelliRecord scelti;
    for (const ColonnaRecord& colonna : colonne)
        if (colonna.ha_valore())
            scelti.pannelli.push_back({colonna.nome_misurato(), colonna.udm, 1, {colonna}});
    return scelti;
}

}  // namespace kel::strumento
