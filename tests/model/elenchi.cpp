#include "model/elenchi.h"

#include "model/campi.h"
#include "model/unita.h"

namespace modello {

namespace {

bool tenuta(Fid chiave, const std::vector<unsigned>& filtro) {
    if (filtro.empty())
        return true;
    for (const unsigned f : filtro)
        if (grandezza(f) == grandezza(chiave) && (oggetto(f) == 0 || oggetto(f) == oggetto(chiave)))
            return true;
    return false;
}

}  // namespace

std::map<unsigned, std::vector<std::pair<Fid, std::string>>> funzioni(const std::vector<unsigned>& filtro) {
    std::map<unsigned, std::vector<std::pair<Fid, std::string>>> elenco;
    for (const RigaGrandezza& riga : tabelle().grandezze) {
        if (fine_tabella(riga.chiave))
            break;
        if (!tenuta(riga.chiave, filtro))
            continue;
        auto& lista = elenco[grandezza(riga.chiave)];
        if (riga.num_varianti == 0)
            lista.emplace_back(riga.chiave, riga.testo);
        else
            for (const Variante& variante : tabelle().varianti.at(riga.varianti))
                lista.emplace_back(componi(grandezza(riga.chiave), oggetto(riga.chiave), variante.posizione),
                                   variante.testo);
    }
    return elenco;
}

namespace {

std::map<unsigned, std::string> scelte(const std::string& nome) {
    std::map<unsigned, std::string> mappa;
    if (nome != "-")
        for (const Scelta& scelta : tabelle().scelte.at(nome))
            mappa.emplace(scelta.chiave, scelta.testo);
    return mappa;
}

}  // namespace

std::optional<Dettagli> dettagli(Fid fid) {
    const RigaGrandezza* riga = riga_grandezza(fid);
    if (riga == nullptr || riga->num_varianti < 1)
        return std::nullopt;
    for (const Variante& variante : tabelle().varianti.at(riga->varianti))
        if (variante.posizione == posizione(fid))
            return Dettagli{scelte(variante.lati), scelte(variante.inout), variante.primo, variante.ultimo};
    return std::nullopt;
}

void riempi_grandezze(std::map<unsigned, std::string>& mappa) {
    for (const RigaCampo& riga : tabelle().campi.at("grandezza_fisica_FunzKel"))
        mappa.emplace(static_cast<unsigned>(riga.valore), riga.testo);
}

}  // namespace modello
