#include "domain/ricerca.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <set>
#include <tuple>

#include "domain/campi.h"
#include "text/parole.h"

namespace kel::strumento {

namespace {

bool spezza(char c) {
    const bool lettera = c >= 'a' && c <= 'z';
    const bool cifra = c >= '0' && c <= '9';
    return !lettera && !cifra;
}

// The words that all XML names of a field begin with: "FID_LEFTRIGHT_". Other texts have none.
std::size_t prefissoXml(const std::string& testo) {
    const std::size_t primo = testo.starts_with("FID_") ? testo.find('_') : std::string::npos;
    const std::size_t secondo = primo == std::string::npos ? primo : testo.find('_', primo + 1);
    return secondo == std::string::npos ? 0 : secondo + 1;
}

// Both in small letters. Of a prefix only whole words count: "left" is not in FID_LEFTRIGHT_RIGHT.
std::optional<Grado> confronta(const std::string& testo, std::size_t prefisso, const std::string& cercato) {
    if (testo == cercato)
        return Grado::intero;
    std::optional<Grado> migliore;
    for (std::size_t da = testo.find(cercato); da != std::string::npos; da = testo.find(cercato, da + 1)) {
        const std::size_t dopo = da + cercato.size();
        const bool parola = (da == 0 || spezza(testo[da - 1])) && (dopo == testo.size() || spezza(testo[dopo]));
        if (dopo < prefisso && !parola)
            continue;
        const Grado grado = da == 0 ? Grado::inizio : parola ? Grado::parola : Grado::parte;
        migliore = std::min(migliore.value_or(grado), grado);
    }
    return migliore;
}

struct Risposta {
    Grado grado;
    const Testo* testo;
};

// The best of the identifier's texts; the first of equals, which weighs most.
std::optional<Risposta> rispondi(const Noto& noto, const std::string& cercato) {
    std::optional<Risposta> migliore;
    for (const Testo& testo : noto.testi)
        if (const auto grado = confronta(normale(testo.testo), prefissoXml(testo.testo), cercato))
            if (!migliore || *grado < migliore->grado)
                migliore = {*grado, &testo};
    return migliore;
}

std::optional<Trovato> rispondiATutte(const Noto& noto, std::span<const std::string> cercati) {
    Trovato trovato{&noto, Grado::intero, {}};
    for (const std::string& cercato : cercati) {
        const auto risposta = rispondi(noto, cercato);
        if (!risposta)
            return std::nullopt;
        trovato.grado = std::max(trovato.grado, risposta->grado);
        if (std::find(trovato.testi.begin(), trovato.testi.end(), risposta->testo) == trovato.testi.end())
            trovato.testi.push_back(risposta->testo);
    }
    // The words together may be a name, which says more than each of them.
    if (cercati.size() > 1) {
        std::string frase;
        for (const std::string& cercato : cercati)
            frase += (frase.empty() ? "" : " ") + cercato;
        if (const auto insieme = rispondi(noto, frase); insieme && insieme->grado <= trovato.grado)
            trovato = {&noto, insieme->grado, {insieme->testo}};
    }
    std::sort(trovato.testi.begin(), trovato.testi.end());  // they lie in one array, by weight
    return trovato;
}

// Changes of one letter, swaps of two neighbours included, that make one word of the other.
unsigned distanza(const std::string& a, const std::string& b) {
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

}  // namespace

const char* nomeGrado(Grado grado) {
    switch (grado) {
        case Grado::intero:
            return "exact";
        case Grado::inizio:
            return "prefix";
        case Grado::parola:
            return "word";
        default:
            return "part";
    }
}

std::vector<Trovato> cerca(std::span<const Noto> noti, std::span<const std::string> parole) {
    std::vector<std::string> cercati;
    for (const std::string& parola : parole)
        cercati.push_back(normale(parola));
    std::vector<Trovato> trovati;
    for (const Noto& noto : noti)
        if (auto trovato = rispondiATutte(noto, cercati))
            trovati.push_back(std::move(*trovato));
    std::stable_sort(trovati.begin(), trovati.end(), [](const Trovato& a, const Trovato& b) {
        return std::tuple(a.grado, a.testi.front()->specie) < std::tuple(b.grado, b.testi.front()->specie);
    });
    return trovati;
}

std::vector<std::string> vicine(std::span<const Noto> noti, const std::string& parola) {
    const std::string cercata = normale(parola);
    const auto massima = static_cast<unsigned>(std::max<std::size_t>(1, cercata.size() / 3));
    std::set<std::pair<unsigned, std::string>> trovate;
    for (const Noto& noto : noti)
        for (const Testo& testo : noto.testi) {
            if (testo.specie == Specie::identificatore)
                continue;
            for (const std::string& una : dividi(normale(testo.testo), ' '))
                if (const unsigned d = distanza(cercata, una); d <= massima && d < una.size())
                    trovate.emplace(d, una);
        }
    std::vector<std::string> elenco;
    for (const auto& trovata : trovate)
        if (elenco.size() < 5)
            elenco.push_back(trovata.second);
    return elenco;
}

}  // namespace kel::strumento
