#include "code/codice.h"

#include <algorithm>
#include <cstring>
#include <kainjow/mustache.hpp>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <span>
#include <vector>

#include "IFunzioni.h"
#include "cli/forma.h"
#include "domain/campi.h"
#include "io/uscita.h"
#include "text/errori.h"
#include "text/incorporati.h"
#include "text/numeri.h"
#include "text/parole.h"

namespace kel::strumento {

namespace {

using Json = nlohmann::ordered_json;
using kainjow::mustache::data;

struct Linguaggio {
    const char* nome;
    const std::string_view* pezzi;
};
constexpr Linguaggio LINGUAGGI[] = {{"c", &PROGRAMMI_C}, {"cpp", &PROGRAMMI_CPP}, {"python", &PROGRAMMI_PYTHON}};

// Ends a line within a template: the template engine has rules of its own for line feeds, which leave an empty line
// where a section is left out.
constexpr char FINE_RIGA = '\x1E';

constexpr std::string_view INIZIO_PEZZO = "%%% ";
const std::string PROGRAMMA = "kelfun ";  // begins the names of the pieces that are programs

// A line with nothing but the beginning or the end of a section leaves no line in the program.
bool soloSezione(const std::string& riga) {
    return riga.size() > 3 && riga.starts_with("{{") &&
           std::string_view("#^/").find(riga[2]) != std::string_view::npos && riga.find("}}") == riga.size() - 2;
}

// The pieces of a language by name: a line "%%% name" begins each. Empty lines between two belong to neither.
std::map<std::string, std::string> leggiPezzi(std::string_view testo) {
    std::map<std::string, std::string> pezzi;
    std::string* questo = nullptr;
    for (const std::string& riga : dividi(testo, '\n')) {
        if (riga.starts_with(INIZIO_PEZZO))
            questo = &pezzi[riga.substr(INIZIO_PEZZO.size())];
        else if (questo != nullptr)
            *questo += soloSezione(riga) ? riga : riga + FINE_RIGA;
    }
    for (auto& pezzo : pezzi)
        pezzo.second.erase(pezzo.second.find_last_not_of(FINE_RIGA) + 1);
    return pezzi;
}

data comeDati(const Json& valore) {
    if (valore.is_object()) {
        data oggetto(data::type::object);
        for (const auto& [nome, membro] : valore.items())
            oggetto.set(nome, comeDati(membro));
        return oggetto;
    }
    if (valore.is_array()) {
        data elenco(data::type::list);
        for (const Json& elemento : valore)
            elenco.push_back(comeDati(elemento));
        return elenco;
    }
    if (valore.is_boolean())
        return data(valore.get<bool>());
    return data(valore.is_string() ? valore.get<std::string>() : valore.dump());
}

const Linguaggio* cercaLinguaggio(const std::string& nome) {
    const auto uguale = [&](const Linguaggio& uno) { return nome == uno.nome; };
    const auto* trovato = std::find_if(std::begin(LINGUAGGI), std::end(LINGUAGGI), uguale);
    return trovato == std::end(LINGUAGGI) ? nullptr : trovato;
}

std::string nomi(std::span<const Linguaggio> linguaggi) {
    std::string tutti;
    for (const Linguaggio& uno : linguaggi)
        tutti += (tutti.empty() ? "" : ", ") + std::string(uno.nome);
    return tutti;
}

// The languages that have a program.
std::vector<Linguaggio> conPezzo(const std::string& pezzo) {
    std::vector<Linguaggio> quelli;
    for (const Linguaggio& uno : LINGUAGGI)
        if (leggiPezzi(*uno.pezzi).contains(pezzo))
            quelli.push_back(uno);
    return quelli;
}

// The program of a command in a language, and what it includes.
std::string compila(const std::map<std::string, std::string>& pezzi, const std::string& pezzo, data dati) {
    for (const auto& [nome, testo] : pezzi)
        if (!nome.starts_with(PROGRAMMA))
            dati.set(nome, data(kainjow::mustache::partial([testo = testo] { return testo; })));
    kainjow::mustache::mustache modello(pezzi.at(pezzo));
    modello.set_custom_escape([](const std::string& testo) { return testo; });
    if (!modello.is_valid())
        throw std::logic_error(pezzo + ": " + modello.error_message());
    std::string programma = modello.render(dati) + FINE_RIGA;
    // A section at the end may have left the end of its last line.
    programma.erase(programma.find_last_not_of(FINE_RIGA) + 2);
    std::replace(programma.begin(), programma.end(), FINE_RIGA, '\n');
    return programma;
}

// A constant of a field by its name; a value without one by its number.
std::string costante(const Campo& campo) {
    return campo.riga != nullptr ? campo.riga->xml : std::to_string(campo.valore);
}

}  // namespace

void aggiungiCodice(Comando& comando, std::string& linguaggio) {
    std::vector<std::string> tutti;
    for (const Linguaggio& uno : LINGUAGGI)
        tutti.emplace_back(uno.nome);
    escludiForma(
        comando,
        comando.opzione("--code", linguaggio, "Print a program that gets this answer from the library").scelta(tutti));
}

void rifiutaCodiceAltrove(CLI::App& programma) {
    std::string con;
    for (const Comando& comando : Comando::tutti(programma))
        if (comando.trova("--code"))
            con += (con.empty() ? "" : ", ") + comando.nome();
    for (Comando& comando : Comando::tutti(programma))
        if (!comando.trova("--code"))
            comando.nascosta("--code", [con](const std::string&) {
                throw ErroreUso("it is more than one program of the library's faces; accepted with --code: " + con);
            });
}

void stampaProgramma(const std::string& linguaggio, const std::string& nome, const std::string& titolo,
                     const Json& dati) {
    const std::string pezzo = PROGRAMMA + nome;
    const std::map<std::string, std::string> pezzi = leggiPezzi(*cercaLinguaggio(linguaggio)->pezzi);
    if (!pezzi.contains(pezzo))
        throw ErroreUso("the library's face for --code " + linguaggio +
                        " has nothing for this; accepted: " + nomi(conPezzo(pezzo)));
    data tutti = comeDati(dati);
    tutti.set("apri", "{");  // a brace before a tag would be taken for the tag's
    tutti.set("titolo", titolo);
    tutti.set("comando", nome.substr(0, nome.find(' ')));
    scriviUscita(compila(pezzi, pezzo, std::move(tutti)));
}

Json fidPerProgramma(kel_funpos fid) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    std::map<std::string, std::string> nomi;
    bool intero = true;  // the functions that compose identifiers know every bit of it
    for (const Campo& campo : campi(fid)) {
        nomi[campo.chiave] = costante(campo);
        intero = intero && std::strcmp(campo.chiave, "unused") != 0;
    }
    const bool pacchetto = nomi.contains("details");
    std::string composto = "kelFidComponi(" + nomi["quantity"] + ", " + nomi[pacchetto ? "details" : "object"] + ", " +
                           nomi[pacchetto ? "specialisation" : "position"] + ")";
    constexpr const char* POI =
        " |\n                           ";  // below the first, after "    const kel_funpos fid = "
    if (kelFidInOut(fid) != FID_INOUT_UNDEF)
        composto += POI + ("kelFidBitInOut(" + nomi["inout"] + ")");
    if (kelFidNumerato(fid))
        composto += POI + ("kelFidIstanza(" + nomi["number"] + ")");
    else if (kelFidLeftRight(fid) + kelFidFrontRear(fid) + kelFidUpDown(fid) != 0)
        composto += POI + ("kelFidLati(" + nomi["leftright"] + ", " + nomi["frontrear"] + ", " + nomi["updown"] + ")");
    const std::string hex = esadecimale(fid, 8);
    return {{"c", intero ? composto : hex + "u"}, {"hex", hex}, {"nome", catalogo->getNomeFunzione(fid, false)}};
}

std::string elencoPerProgramma(const std::vector<std::string>& valori, std::size_t rientro) {
    constexpr std::size_t PER_RIGA = 14;
    std::string testo;
    for (std::size_t i = 0; i < valori.size(); ++i) {
        if (i > 0)
            testo += i % PER_RIGA == 0 ? ",\n" + std::string(rientro, ' ') : ", ";
        testo += valori[i];
    }
    return testo;
}

std::string floatPerProgramma(float valore) {
    std::string testo = breve(valore);
    if (testo.find_first_of(".e") == std::string::npos)
        testo += ".0";
    return testo;
}

std::string testoPerProgramma(const std::string& testo) {
    std::string uscita = "\"";
    for (const char c : testo) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\')
            uscita += {'\\', c};
        else if (byte >= 0x20 && byte < 0x7F && c != '?')  // two question marks may begin a trigraph
            uscita += c;
        else
            uscita += {'\\', static_cast<char>('0' + byte / 64), static_cast<char>('0' + byte / 8 % 8),
                       static_cast<char>('0' + byte % 8)};
    }
    return uscita + '"';
}

}  // namespace kel::strumento
