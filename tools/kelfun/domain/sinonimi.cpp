#include "domain/sinonimi.h"

#include <map>

#include "text/incorporati.h"
#include "text/parole.h"
#include "text/vicini.h"

namespace kel::strumento {

namespace {

using Tabella = std::map<std::string, std::vector<std::string>, std::less<>>;

Tabella leggi(std::string_view testo) {
    Tabella tabella;
    for (const std::string& riga : dividi(testo, '\n')) {
        const std::size_t punti = riga.find(':');
        if (riga.starts_with('#') || punti == std::string::npos)
            continue;
        std::vector<std::string>& risposte = tabella[normale(senza_bordi(riga.substr(0, punti)))];
        for (const std::string& una : dividi(riga.substr(punti + 1), ','))
            risposte.push_back(senza_bordi(una));
    }
    return tabella;
}

}  // namespace

std::vector<std::string> sinonimi(std::string_view parola) {
    static const Tabella tabella = leggi(SINONIMI);
    const std::string cercata = normale(parola);
    auto trovata = tabella.find(cercata);
    if (trovata == tabella.end() && cercata.ends_with('s'))  // "tyres"
        trovata = tabella.find(std::string_view(cercata).substr(0, cercata.size() - 1));
    return trovata == tabella.end() ? std::vector<std::string>() : trovata->second;
}

std::string proposta(std::string_view parola, std::span<const std::string> parole) {
    for (const std::string& sinonimo : sinonimi(parola))
        for (const std::string& una : parole)
            if (normale(una) == normale(sinonimo))
                return "did you mean '" + una + "'? ";
    return forse(parola, parole);
}

}  // namespace kel::strumento
