#include "model/sottocampi.h"

#include "model/campi.h"

namespace modello {

std::optional<std::string> tabella_pacchetto(unsigned dettagli, unsigned spec) {
    if (dettagli == 2)
        return "data_ora";
    if (dettagli == 3 && spec == 0)
        return "gps_kel";
    if (dettagli == 3 && spec == 1)
        return "gps_navsol";
    if (dettagli == 1 && (spec == 0 || spec == 2))
        return "lap_2G";
    if (dettagli == 1 && spec == 1)
        return "lap_1G";
    return std::nullopt;
}

std::optional<std::string> tabella_lap(Fid fid) {
    return tabella_pacchetto(1, posizione(fid));
}

std::optional<std::string> tabella_gps(Fid fid) {
    return tabella_pacchetto(3, posizione(fid));
}

std::optional<std::size_t> riga_sottocampo(const std::string& tabella, Fid fid) {
    const std::vector<RigaSottocampo>& righe = tabelle().sottocampi.at(tabella);
    for (std::size_t i = 0; grandezza(righe.at(i).fid) != 32; i++)
        if (righe[i].fid == fid)
            return i;
    return std::nullopt;
}

std::optional<std::size_t> riga_sottocampo(const std::optional<std::string>& tabella, Fid fid) {
    return tabella ? riga_sottocampo(*tabella, fid) : std::nullopt;
}

bool ha_sottocampo(unsigned dettagli, unsigned spec, Fid fid) {
    return riga_sottocampo(tabella_pacchetto(dettagli, spec), fid).has_value();
}

std::list<Fid> funzioni_interne(Fid fid) {
    std::list<Fid> interne;
    if (grandezza(fid) != 26)
        return interne;
    const auto tabella = tabella_pacchetto(oggetto(fid), posizione(fid));
    if (!tabella)
        return interne;
    for (const RigaSottocampo& riga : tabelle().sottocampi.at(*tabella)) {
        if (grandezza(riga.fid) == 32)
            break;
        interne.push_back(riga.fid);
    }
    return interne;
}

void canali_gps(NomiCanali& mappa) {
    for (const RigaSottocampo& riga : tabelle().sottocampi.at("gps_kel"))
        if (!riga.testo.empty())
            mappa.emplace(riga.fid, std::make_pair(riga.breve, riga.testo));
}

namespace {

void canali_lap(NomiCanali& mappa, const std::string& pacchetto) {
    for (const NomeCanale& riga : tabelle().nomi_canali.at(pacchetto))
        mappa.emplace(riga.fid, std::make_pair(riga.breve, riga.testo));
}

}  // namespace

void canali_lap_num(NomiCanali& mappa) {
    canali_lap(mappa, "lap_num");
}

void canali_lap_time(NomiCanali& mappa) {
    canali_lap(mappa, "lap_time");
}

}  // namespace modello
