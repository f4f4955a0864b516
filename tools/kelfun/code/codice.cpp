#include "code/codice.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <span>
#include <vector>

#include "IFunzioni.h"
#include "cli/forma.h"
#include "code/templates.h"
#include "domain/campi.h"
#include "io/uscita.h"
#include "text/errori.h"
#include "text/incorporati.h"
#include "text/numeri.h"

namespace kel::strumento {

namespace {

using Json = nlohmann::ordered_json;

struct Linguaggio {
    const char* nome;
    const std::string_view* pezzi;
};
constexpr Linguaggio LINGUAGGI[] = {{"c", &PROGRAMMI_C}, {"cpp", &PROGRAMMI_CPP}, {"python", &PROGRAMMI_PYTHON}};

const std::string PROGRAMMA = "kelfun ";  // begins the names of the pieces that are programs

const Linguaggio* cerca_linguaggio(const std::string& nome) {
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
std::vector<Linguaggio> con_pezzo(const std::string& pezzo) {
    std::vector<Linguaggio> quelli;
    for (const Linguaggio& uno : LINGUAGGI)
        if (Templates(*uno.pezzi).contains(pezzo))
            quelli.push_back(uno);
    return quelli;
}

// A constant of a field by its name; a value without one by its number.
std::string costante(const Campo& campo) {
    return campo.riga != nullptr ? campo.riga->xml : std::to_string(campo.valore);
}

}  // namespace

void aggiungi_codice(Comando& comando, std::string& linguaggio) {
    std::vector<std::string> tutti;
    for (const Linguaggio& uno : LINGUAGGI)
        tutti.emplace_back(uno.nome);
    escludi_forma(
        comando,
        comando.opzione("--code", linguaggio, "Print a program that gets this answer from the library").scelta(tutti));
}

void rifiuta_codice_altrove(CLI::App& programma) {
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

void stampa_programma(const std::string& linguaggio, const std::string& nome, const std::string& titolo,
                      const Json& dati) {
    const std::string pezzo = PROGRAMMA + nome;
    const Templates pezzi(*cerca_linguaggio(linguaggio)->pezzi);
    if (!pezzi.contains(pezzo))
        throw ErroreUso("the library's face for --code " + linguaggio +
                        " has nothing for this; accepted: " + nomi(con_pezzo(pezzo)));
    Json tutti = dati;
    tutti["titolo"] = titolo;
    tutti["comando"] = nome.substr(0, nome.find(' '));
    scrivi_uscita(pezzi.render(pezzo, tutti));
}

Json fid_per_programma(kel_funpos fid) {
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

std::string elenco_per_programma(const std::vector<std::string>& valori, std::size_t rientro) {
    constexpr std::size_t PER_RIGA = 14;
    std::string testo;
    for (std::size_t i = 0; i < valori.size(); ++i) {
        if (i > 0)
            testo += i % PER_RIGA == 0 ? ",\n" + std::string(rientro, ' ') : ", ";
        testo += valori[i];
    }
    return testo;
}

std::string float_per_programma(float valore) {
    std::string testo = breve(valore);
    if (testo.find_first_of(".e") == std::string::npos)
        testo += ".0";
    return testo;
}

std::string testo_per_programma(const std::string& testo) {
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
