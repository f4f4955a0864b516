// kelfun convert: values from one unit of a function into another.
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/esempi.h"
#include "cli/forma.h"
#include "code/codice.h"
#include "commands/comandi.h"
#include "domain/identificatore.h"
#include "io/righe.h"
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
    SceltaForma forma;
    std::string codice;
};

void programma(const std::string& linguaggio, kel_funpos fid, const std::string& da, const std::string& a,
               const std::vector<float>& valori) {
    const std::string suffisso = linguaggio == "python" ? "" : "f";
    std::vector<std::string> numeri;
    numeri.reserve(valori.size());
    for (const float valore : valori)
        numeri.push_back(floatPerProgramma(valore) + suffisso);
    stampaProgramma(linguaggio, "convert", "Values from " + da + " into " + a,
                    {{"fid", fidPerProgramma(fid)},
                     {"da", testoPerProgramma(da)},
                     {"a", testoPerProgramma(a)},
                     {"valori", elencoPerProgramma(numeri, 8)}});
}

std::vector<float> leggiValori(const std::vector<std::string>& testi) {
    std::vector<float> valori;
    for (const std::string& riga : conRigheDiIngresso(testi)) {
        const std::string testo = senzaBordi(riga);
        const auto valore = leggiFloat(testo);
        if (!valore)
            throw ErroreUso("'" + testo +
                            "' is no value; accepted: a decimal number with a point, such as 12.5, within single "
                            "precision (up to 3.4e38)");
        valori.push_back(*valore);
    }
    if (valori.empty())
        throw ErroreUso("there is no value to convert; accepted: ID VALUE..., or fields by name and VALUE...");
    return valori;
}

void esegui(const Argomenti& argomenti) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    std::vector<std::string> testi = argomenti.posizionali;
    std::string id;
    if (!argomenti.campi.dati()) {
        id = testi.front();
        testi.erase(testi.begin());
    }
    const kel_funpos fid = risolvi(*catalogo, id, argomenti.campi);
    const std::vector<float> valori = leggiValori(testi);
    if (argomenti.da.empty() && argomenti.a.empty())
        throw ErroreUso(
            "there is no unit to convert from or into; accepted: --from, --to, one left out is the base unit");
    const std::string da = leggiUdm(*catalogo, fid, argomenti.da);
    const std::string a = leggiUdm(*catalogo, fid, argomenti.a);
    const s_converter_data dati = catalogo->getParamConv(fid, da, a);
    const int decimali = catalogo->getNumDecimaliDefault(fid, a);

    if (!argomenti.codice.empty())
        return programma(argomenti.codice, fid, da, a, valori);
    Documento documento(stdout, argomenti.forma.forma());
    documento.proprieta("identifier", "Identifier", Cella::fid(fid));
    documento.proprieta("name", "Name", Cella::testo(catalogo->getNomeFunzione(fid, false)));
    documento.proprieta("gain", "Gain", Cella::numero(dati.gain));
    documento.proprieta("offset", "Offset", Cella::numero(dati.offset));
    documento.inizia("values", "",
                     {{"value", "VALUE", Lato::destra},
                      {"from", "FROM"},
                      {"result", "RESULT", Lato::destra},
                      {"to", "TO"},
                      {"shown", "SHOWN", Lato::destra}});
    for (const float valore : valori) {
        const float risultato = valore * dati.gain + dati.offset;
        documento.riga({Cella::numero(valore), Cella::testo(da), Cella::numero(risultato), Cella::testo(a),
                        Cella::testo(conDecimali(risultato, decimali))});
    }
    documento.fine();
    for (const std::string& udm : {da, a})
        if (da != a && catalogo->getParamConv(fid, udm)->reciproco != 0)
            std::fprintf(stderr,
                         "kelfun convert: %s shows a reciprocal, which a conversion between two units does not\n",
                         udm.c_str());
}

}  // namespace

void aggiungiConvert(CLI::App& programma) {
    auto argomenti = std::make_shared<Argomenti>();
    Comando comando(programma, "convert", "Values from one unit of a function into another");
    comando
        .opzione("[ID] VALUE", argomenti->posizionali,
                 "Identifier, unless its fields are given, and values; - for lines of standard input")
        .valore("")
        .obbligatoria();
    comando.opzione("--from", argomenti->da, "Unit of the values (default: the base unit)").valore("UNIT");
    comando.opzione("--to", argomenti->a, "Unit wanted (default: the base unit)").valore("UNIT");
    aggiungiCampi(comando, argomenti->campi);
    aggiungiForma(comando, argomenti->forma);
    aggiungiCodice(comando, argomenti->codice);
    comando.note(
        esempi("Result = value * gain + offset in single precision; SHOWN has the function's default decimals.",
               "kelfun convert 0x10 100 --to mph", "kelfun convert --quantity temperature --from F --to C 32 212",
               "kelfun convert OIL_PRESS 2.5 --to psi --json"));
    comando.esegue([argomenti] { esegui(*argomenti); });
}

}  // namespace kel::strumento
