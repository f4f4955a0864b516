#include "model/canali.h"

#include "model/campi.h"
#include "model/sottocampi.h"

namespace modello {

std::optional<unsigned> SetCanali::libero() {
    if (canali == nullptr || usati >= totale)
        return std::nullopt;
    canali->at(usati) = Canale{};
    canali->at(usati).indice = usati % 65536;
    usati += 1;
    return usati - 1;
}

bool SetCanali::rendi_ultimo() {
    if (canali == nullptr || usati == 0)
        return false;
    usati -= 1;
    return true;
}

std::optional<unsigned> SetCanali::canale(unsigned indice) const {
    if (canali == nullptr || indice >= totale || indice >= usati)
        return std::nullopt;
    return indice;
}

std::optional<unsigned> SetCanali::nome(unsigned indice) const {
    if (indice > totale || indice > usati)
        return std::nullopt;
    return indice;
}

std::uint32_t SetCanali::dimensione_buffer() const {
    std::uint32_t somma = 0;
    if (canali != nullptr)
        for (unsigned i = 0; i < usati; i++)
            somma += canali->at(i).dim_buffer;
    return somma;
}

namespace {

bool pacchetto_con(Fid canale, Fid fid) {
    return grandezza(canale) == 26 && ha_sottocampo(oggetto(canale), posizione(canale), fid);
}

// A field of the request that is 0 matches anything.
bool concorda(unsigned richiesto, unsigned presente) {
    return richiesto == 0 || richiesto == presente;
}

bool concordano_tre(Fid fid, Fid c) {
    return concorda(grandezza(fid), grandezza(c)) && concorda(oggetto(fid), oggetto(c)) &&
           concorda(posizione(fid), posizione(c));
}

}  // namespace

std::optional<unsigned> SetCanali::corrispondente(Fid fid) const {
    if (canali == nullptr)
        return std::nullopt;
    for (unsigned i = 0; i < usati; i++) {
        const Fid c = canali->at(i).fid;
        if (pacchetto_con(c, fid) || concordano_tre(fid, c))
            return i;
    }
    return std::nullopt;
}

std::optional<unsigned> SetCanali::corrispondente_pieno(Fid fid) const {
    if (canali == nullptr)
        return std::nullopt;
    for (unsigned i = 0; i < usati; i++) {
        const Fid c = canali->at(i).fid;
        if (pacchetto_con(c, fid))
            return i;
        if (!concordano_tre(fid, c) || (numerato(fid) && !numerato(c)))
            continue;
        // Sides are compared pair by pair, whether they are sides or an instance number.
        if (concorda(in_out(fid), in_out(c)) && concorda(left_right(fid), left_right(c)) &&
            concorda(front_rear(fid), front_rear(c)) && concorda(up_down(fid), up_down(c)))
            return i;
    }
    return std::nullopt;
}

std::optional<std::vector<unsigned>> SetCanali::corrispondenti(Fid fid, unsigned capacita) const {
    std::vector<unsigned> trovati;
    if (canali == nullptr)
        return std::nullopt;
    for (unsigned i = 0; i < usati; i++) {
        const Fid c = canali->at(i).fid;
        if (grandezza(c) == 26 ? !pacchetto_con(c, fid) : !concordano_tre(fid, c))
            continue;
        trovati.push_back(i);
        if (trovati.size() == capacita)
            break;
    }
    if (trovati.empty())
        return std::nullopt;
    return trovati;
}

}  // namespace modello
