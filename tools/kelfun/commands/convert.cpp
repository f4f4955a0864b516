// kelfun convert: values from one unit of a function into another.
#include <memory>
#include <nlohmann/json.hpp>
#include <utility>

#include "cli/avvisi.h"
#include "cli/elementi.h"
#include "cli/esempi.h"
#include "cli/forma.h"
#include "code/codice.h"
#include "commands/comandi.h"
#include "domain/avvisi_unita.h"
#include "domain/identificatore.h"
#include "text/errori.h"
#include "text/numeri.h"
#include "text/parole.h"

namespace kel::strumento {

namespace {

struct Argomenti {
    std::vector<std::string> posizionali;  // identifier, unless given by its fields, and values
    CampiDati campi;
    std::string da;
    std::string a;
    Avvisi avvisi;
    SceltaForma forma;
    std::string codice;
};

void programma(const std::string& linguaggio, kel_funpos fid, const std::string& da, const std::string& a,
               const std::vector<float>& valori) {
    const std::string suffisso = linguaggio == "python" ? "" : "f";
    std::vector<std::string> numeri;
    numeri.reserve(valori.size());
    for (const float valore : valori)
        numeri.push_back(float_per_programma(valore) + suffisso);
    stampa_programma(linguaggio, "convert", "Values from " + da + " into " + a,
                     {{"fid", fid_per_programma(fid)},
                      {"da", testo_per_programma(da)},
                      {"a", testo_per_programma(a)},
                      {"valori", elenco_per_programma(numeri, 8)}});
}

float leggi_valore(const std::string& riga) {
    const std::string testo = senza_bordi(riga);
    const auto valore = leggi_float(testo);
    if (!valore)
        throw ErroreUso("'" + testo +
                        "' is no value; accepted: a decimal number with a point, such as 12.5, within single "
                        "precision (up to 3.4e38)");
    return *valore;
}

constexpr std::size_t LARGHEZZA_NUMERO = 10;  // of the values of lines, whose table grows
constexpr std::size_t LARGHEZZA_UNITA = 6;

std::vector<Colonna> colonne() {
    return {{"value", "VALUE", Lato::destra, LARGHEZZA_NUMERO},
            {"from", "FROM", Lato::sinistra, LARGHEZZA_UNITA},
            {"result", "RESULT", Lato::destra, LARGHEZZA_NUMERO},
            {"to", "TO", Lato::sinistra, LARGHEZZA_UNITA},
            {"shown", "SHOWN", Lato::destra, LARGHEZZA_NUMERO}};
}

// What the values are converted by.
struct Conversione {
    kel_funpos fid;
    std::string da;
    std::string a;
    s_converter_data dati;
    int decimali;
};

Conversione leggi_conversione(IFunzioni& catalogo, const Argomenti& argomenti, const std::string& id) {
    const kel_funpos fid = risolvi(catalogo, id, argomenti.campi);
    if (argomenti.da.empty() && argomenti.a.empty())
        throw ErroreUso(
            "there is no unit to convert from or into; accepted: --from, --to, one left out is the base unit");
    const std::string da = leggi_udm(catalogo, fid, argomenti.da);
    const std::string a = leggi_udm(catalogo, fid, argomenti.a);
    return {fid, da, a, catalogo.getParamConv(fid, da, a), catalogo.getNumDecimaliDefault(fid, a)};
}

void inizia(Documento& documento, const IFunzioni& catalogo, const Conversione& c, bool flusso) {
    documento.proprieta("identifier", "Identifier", Cella::fid(c.fid));
    documento.proprieta("name", "Name", Cella::testo(catalogo.getNomeFunzione(c.fid, false)));
    documento.proprieta("gain", "Gain", Cella::numero(c.dati.gain));
    documento.proprieta("offset", "Offset", Cella::numero(c.dati.offset));
    documento.inizia("values", "", colonne(), flusso);
}

void riga(Documento& documento, const Conversione& c, float valore) {
    const float risultato = valore * c.dati.gain + c.dati.offset;
    documento.riga({Cella::numero(valore), Cella::testo(c.da), Cella::numero(risultato), Cella::testo(c.a),
                    Cella::testo(con_decimali(risultato, c.decimali))});
}

void esegui(Argomenti& argomenti) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    std::vector<std::string> testi = argomenti.posizionali;
    std::string id;
    if (!argomenti.campi.dati()) {
        id = testi.front();
        testi.erase(testi.begin());
        // Of "convert 100 --from km/h" the units would be looked for in function 100.
        if (testi.empty())
            throw ErroreUso("there is no value to convert, only the identifier '" + id +
                            "'; accepted: ID VALUE..., or fields by name and VALUE...");
    }
    const Conversione conversione = leggi_conversione(*catalogo, argomenti, id);
    Elementi elementi("convert", testi);
    Documento documento(stdout, argomenti.forma.forma());
    std::vector<float> valori;
    const bool con_codice = !argomenti.codice.empty();
    // The remark is the same for all values that have one: that of the first shows what it is about.
    bool detto = false;
    const auto leggi = [&](const std::string& testo) {
        const float valore = leggi_valore(testo);
        argomenti.avvisi.pretendi(
            avviso_conversione(*catalogo, conversione.fid, conversione.da, conversione.a, valore));
        return valore;
    };
    const bool risposto = elementi.rispondi(
        leggi,
        [&] {
            if (!con_codice)
                inizia(documento, *catalogo, conversione, elementi.con_righe());
        },
        [&](float valore) {
            if (!detto) {
                const auto avviso =
                    avviso_conversione(*catalogo, conversione.fid, conversione.da, conversione.a, valore);
                argomenti.avvisi.di(avviso);
                detto = avviso.has_value();
            }
            if (con_codice)
                valori.push_back(valore);
            else
                riga(documento, conversione, valore);
        });
    if (!risposto || (con_codice && valori.empty()))
        throw ErroreUso("there is no value to convert; accepted: ID VALUE..., or fields by name and VALUE...");
    if (con_codice)
        programma(argomenti.codice, conversione.fid, conversione.da, conversione.a, valori);
    else
        documento.fine();
    elementi.fine();
}

}  // namespace

void aggiungi_convert(CLI::App& programma) {
    auto argomenti = std::make_shared<Argomenti>();
    Comando comando(programma, "convert", "Values from one unit of a function into another");
    comando
        .opzione("[ID] VALUE", argomenti->posizionali,
                 "Identifier, unless its fields are given, and values; - for lines of standard input")
        .valore("")
        .obbligatoria();
    comando.opzione("--from", argomenti->da, "Unit of the values (default: the base unit)").valore("UNIT");
    comando.opzione("--to", argomenti->a, "Unit wanted (default: the base unit)").valore("UNIT");
    aggiungi_campi(comando, argomenti->campi);
    aggiungi_avvisi(comando, argomenti->avvisi);
    aggiungi_forma(comando, argomenti->forma, {"values", "properties"});
    aggiungi_codice(comando, argomenti->codice);
    comando.note(esempi(
        "Result = value * gain + offset in single precision; SHOWN has the default decimals of the function. Lines of\n"
        "standard input are answered as they come; a wrong line is reported and skipped (exit status 1).",
        "kelfun convert 0x10 100 --to mph", "kelfun convert --quantity temperature --from F --to C 32 212",
        "kelfun convert OIL_PRESS 2.5 --to psi --json"));
    comando.esegue([argomenti] { esegui(*argomenti); });
}

}  // namespace kel::strumento
