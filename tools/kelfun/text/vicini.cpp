#include "text/vicini.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <set>
#include <utility>

#include "text/parole.h"

namespace kel::strumento {

namespace {

constexpr std::size_t LUNGHEZZA_MASSIMA = 64;  // nobody types a longer word by mistake
constexpr std::size_t LETTERE_PER_CAMBIO = 3;
constexpr std::size_t INIZIO_MINIMO = 2;  // one letter begins too many words

// How many letters of the mistyped word the other word does not have.
unsigned in_vano(std::string_view scritta, std::string parola) {
    unsigned quante = 0;
    for (const char lettera : scritta) {
        const std::size_t dove = parola.find(lettera);
        if (dove == std::string::npos)
            ++quante;
        else
            parola.erase(dove, 1);
    }
    return quante;
}

// How far a word is from the mistyped one: the number of changes, then the number of letters that it lacks. "find" and
// "fid" are both one change from "fnd", but only "find" has all its letters, so it is nearer. Nothing if the words
// differ too much.
std::optional<std::pair<unsigned, unsigned>> lontananza(const std::string& scritta, const std::string& parola) {
    if (parola.empty() || parola.size() > LUNGHEZZA_MASSIMA)
        return std::nullopt;
    const unsigned cambi = distanza(scritta, parola);
    const std::size_t massima = std::max<std::size_t>(1, scritta.size() / LETTERE_PER_CAMBIO);
    if (cambi <= massima && cambi < parola.size() && cambi < scritta.size())
        return std::pair(cambi, in_vano(scritta, parola));
    if (scritta.size() >= INIZIO_MINIMO && parola.starts_with(scritta))
        return std::pair(static_cast<unsigned>(massima) + 1,
                         0u);  // an abbreviation: after all words that were mistyped
    return std::nullopt;
}

}  // namespace

unsigned distanza(std::string_view a, std::string_view b) {
    std::vector<unsigned> prima(b.size() + 1);
    std::vector<unsigned> sopra(b.size() + 1);
    std::vector<unsigned> riga(b.size() + 1);
    std::iota(sopra.begin(), sopra.end(), 0u);
    for (std::size_t i = 1; i <= a.size(); ++i) {
        riga[0] = static_cast<unsigned>(i);
        for (std::size_t j = 1; j <= b.size(); ++j) {
            riga[j] = std::min({sopra[j] + 1, riga[j - 1] + 1, sopra[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1)});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                riga[j] = std::min(riga[j], prima[j - 2] + 1);
        }
        std::swap(prima, sopra);
        std::swap(sopra, riga);
    }
    return sopra[b.size()];
}

std::vector<std::string> vicini(std::string_view parola, std::span<const std::string> parole, std::size_t quanti) {
    const std::string scritta = normale(parola);
    std::vector<std::string> elenco;
    if (scritta.empty() || scritta.size() > LUNGHEZZA_MASSIMA)
        return elenco;
    std::set<std::pair<std::pair<unsigned, unsigned>, std::string>> trovate;
    for (const std::string& una : parole)
        if (const auto lontana = lontananza(scritta, normale(una)))
            trovate.emplace(*lontana, una);
    for (const auto& trovata : trovate)
        if (elenco.size() < quanti && std::find(elenco.begin(), elenco.end(), trovata.second) == elenco.end())
            elenco.push_back(trovata.second);
    return elenco;
}

std::string forse(std::string_view parola, std::span<const std::string> parole) {
    const std::vector<std::string> vicine = vicini(parola, parole, 1);
    return vicine.empty() ? "" : "did you mean '" + vicine.front() + "'? ";
}

}  // namespace kel::strumento
