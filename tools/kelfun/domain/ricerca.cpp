#include "domain/ricerca.h"

#include <algorithm>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <utility>

#include "domain/sinonimi.h"
#include "text/parole.h"
#include "text/vicini.h"

namespace kel::strumento {

namespace {

bool spezza(char c) {
    const bool lettera = c >= 'a' && c <= 'z';
    const bool cifra = c >= '0' && c <= '9';
    return !lettera && !cifra;
}

// The words that all XML names of a field begin with: "FID_LEFTRIGHT_". Other texts have none.
std::size_t prefisso_xml(const std::string& testo) {
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

// An identifier in hexadecimal as its texts have it: "0x0b8e" is "0xb8e". Both in small letters.
std::string senza_zeri(const std::string& cercato) {
    const std::size_t cifre = cercato.starts_with("0x") ? cercato.find_first_not_of('0', 2) : std::string::npos;
    return cifre == std::string::npos ? cercato : "0x" + cercato.substr(cifre);
}

struct Risposta {
    Grado grado;
    const Testo* testo;
};

// The best of the identifier's texts; the first of equals, which weighs most.
std::optional<Risposta> rispondi(const Noto& noto, const std::string& cercato) {
    std::optional<Risposta> migliore;
    for (const Testo& testo : noto.testi)
        if (const auto grado = confronta(normale(testo.testo), prefisso_xml(testo.testo), cercato))
            if (!migliore || *grado < migliore->grado)
                migliore = {*grado, &testo};
    for (const Testo& testo : noto.testi)
        if (testo.specie == Specie::identificatore && normale(testo.testo) == senza_zeri(cercato))
            migliore = {Grado::intero, &testo};
    return migliore;
}

// A short word that stands for another is a unit: "celsius" is C, and not the short name of a coordinate.
constexpr std::size_t LETTERE_UNITA = 2;

std::optional<Risposta> rispondi_unita(const Noto& noto, const std::string& unita) {
    for (const Testo& testo : noto.testi)
        if (testo.specie == Specie::unita && testo.testo == unita)
            return Risposta{Grado::intero, &testo};
    return std::nullopt;
}

// A text that has the word, or else one that has its synonym in the catalogue.
std::optional<Risposta> rispondi_o_sinonimo(const Noto& noto, const std::string& cercato,
                                            const std::vector<std::string>& altri) {
    std::optional<Risposta> migliore = rispondi(noto, cercato);
    for (std::size_t i = 0; i < altri.size() && !migliore; ++i)
        migliore =
            altri[i].size() <= LETTERE_UNITA ? rispondi_unita(noto, altri[i]) : rispondi(noto, normale(altri[i]));
    return migliore;
}

// `altri` are the synonyms of each word.
std::optional<Trovato> rispondi_a_tutte(const Noto& noto, std::span<const std::string> cercati,
                                        std::span<const std::vector<std::string>> altri) {
    Trovato trovato{&noto, Grado::intero, {}};
    for (std::size_t i = 0; i < cercati.size(); ++i) {
        const auto risposta = rispondi_o_sinonimo(noto, cercati[i], altri[i]);
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
    std::sort(trovato.testi.begin(),
              trovato.testi.end());  // as pointers: the texts are in one array, in the order of their weight
    return trovato;
}

}  // namespace

const char* nome_grado(Grado grado) {
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
    std::vector<std::vector<std::string>> altri;
    for (const std::string& parola : parole) {
        cercati.push_back(normale(parola));
        altri.push_back(sinonimi(parola));
    }
    std::vector<Trovato> trovati;
    for (const Noto& noto : noti)
        if (auto trovato = rispondi_a_tutte(noto, cercati, altri))
            trovati.push_back(std::move(*trovato));
    std::stable_sort(trovati.begin(), trovati.end(), [](const Trovato& a, const Trovato& b) {
        return std::tuple(a.grado, a.testi.front()->specie) < std::tuple(b.grado, b.testi.front()->specie);
    });
    return trovati;
}

std::vector<std::string> vicine(std::span<const Noto> noti, const std::string& parola) {
    std::set<std::string> parole;
    for (const Noto& noto : noti)
        for (const Testo& testo : noto.testi) {
            if (testo.specie == Specie::identificatore)
                continue;
            for (std::string& una : dividi(normale(testo.testo), ' '))
                parole.insert(std::move(una));
        }
    return vicini(parola, std::vector<std::string>(parole.begin(), parole.end()), 5);
}

}  // namespace kel::strumento
