#include "model/unita.h"

#include "model/campi.h"

namespace modello {

const RigaGrandezza* riga_grandezza(Fid fid) {
    for (const RigaGrandezza& riga : tabelle().grandezze) {
        if (riga.chiave == 0x1D20)
            break;
        if (grandezza(fid) != grandezza(riga.chiave))
            continue;
        if (oggetto(fid) == oggetto(riga.chiave) || oggetto(riga.chiave) == 0)
            return &riga;
    }
    return nullptr;
}

Fid fid_equivalente(Fid fid) {
    const RigaGrandezza* riga = riga_grandezza(fid);
    return riga == nullptr ? 0 : riga->chiave;
}

std::string unita_base(Fid fid) {
    const RigaGrandezza* riga = riga_grandezza(fid);
    return tabelle().udm.at(riga == nullptr ? "NULL_udm_associate" : riga->udm).at(0).testo;
}

std::vector<std::string> unita(Fid fid) {
    std::vector<std::string> testi;
    const RigaGrandezza* riga = riga_grandezza(fid);
    if (riga == nullptr)
        return testi;
    for (int i = 0; i < riga->num_udm; i++)
        testi.push_back(tabelle().udm.at(riga->udm).at(static_cast<std::size_t>(i)).testo);
    return testi;
}

std::optional<std::string> testo_codice(unsigned codice) {
    if (codice > 32)
        return std::nullopt;
    return tabelle().codici_udm.at(codice);
}

int codice_testo(const std::string& testo) {
    for (std::size_t i = 0; i < tabelle().codici_udm.size(); i++)
        if (tabelle().codici_udm[i] == testo)
            return static_cast<int>(i);
    return -1;
}

namespace {

// Row of a unit text in the unit table of a row of the quantity table; the base unit's when it has no such unit.
std::size_t indice_unita(const RigaGrandezza& riga, const std::string& udm) {
    const std::vector<RigaUdm>& tabella = tabelle().udm.at(riga.udm);
    for (std::size_t i = 0; i < tabella.size() && i < static_cast<std::size_t>(riga.num_udm); i++)
        if (tabella[i].testo == udm)
            return i;
    return 0;
}

}  // namespace

RigaTrovata riga_decimali(Fid fid, const std::string& udm) {
    const RigaGrandezza* riga = riga_grandezza(fid);
    if (riga == nullptr)
        return {"NULL_udm_associate", 0};
    return {riga->udm, indice_unita(*riga, udm)};
}

RigaTrovata riga_conversione(Fid fid, const std::optional<std::string>& udm) {
    const RigaGrandezza* riga = riga_grandezza(fid);
    if (riga == nullptr || !udm)
        return {"NULL_udm_associate", 0};
    return {riga->udm, indice_unita(*riga, *udm)};
}

int decimali_default(Fid fid, const std::string& udm) {
    return riga_decimali(fid, udm).dati().decimali_default;
}

int decimali_max(Fid fid, const std::string& udm) {
    return riga_decimali(fid, udm).dati().decimali_max;
}

int decimali_min(Fid fid, const std::string& udm) {
    return riga_decimali(fid, udm).dati().decimali_min;
}

Conversione conversione_tra(Fid fid, const std::string& da, const std::string& a) {
    const Conversione identita{0.0F, 1.0F};
    const RigaGrandezza* riga = riga_grandezza(fid);
    if (da == a || riga == nullptr)
        return identita;
    const RigaUdm* sorgente = nullptr;
    const RigaUdm* bersaglio = nullptr;
    for (const RigaUdm& unita : tabelle().udm.at(riga->udm)) {
        if (sorgente == nullptr && unita.testo == da)
            sorgente = &unita;
        else if (bersaglio == nullptr && unita.testo == a)
            bersaglio = &unita;
    }
    if (sorgente == nullptr || bersaglio == nullptr)
        return identita;
    const float gain = bersaglio->gain / sorgente->gain;
    const float prodotto = bersaglio->gain * sorgente->offset;
    const float quoziente = prodotto / sorgente->gain;
    return {bersaglio->offset - quoziente, gain};
}

}  // namespace modello
