// kelfun camera: the functions that the on-board camera can show, and the legacy identifiers beside them.
#include <algorithm>
#include <memory>
#include <nlohmann/json.hpp>
#include <set>

#include "cli/esempi.h"
#include "cli/forma.h"
#include "code/codice.h"
#include "commands/comandi.h"
#include "domain/identificatore.h"
#include "output/celle.h"
#include "text/errori.h"
#include "text/numeri.h"

namespace kel::strumento {

namespace {

struct Argomenti {
    std::string id;
    CampiDati campi;
    bool tutte = false;
    bool vecchi = false;
    SceltaForma forma;
    std::string codice;
};

using Riga = const t_SFunzioneZumikoCam*;

std::set<Riga> visibili(IFunzioni& catalogo) {
    std::set<Riga> righe;
    for (Riga r = catalogo.getFirstFunzVisZumikoCam(); r != nullptr; r = catalogo.getNextFunzVisZumikoCam())
        righe.insert(r);
    for (Riga r = catalogo.getFirstFunzVisZumikoCamEstese(); r != nullptr; r = catalogo.getNextFunzVisZumikoCamEstese())
        righe.insert(r);
    return righe;
}

void tabella(Documento& documento, IFunzioni& catalogo, const std::vector<Riga>& righe, std::size_t base,
             bool nascoste) {
    const std::set<Riga> viste = visibili(catalogo);
    documento.inizia("camera", "",
                     {{"table", "TABLE"},
                      {"code", "CODE", Lato::destra},
                      {"identifier", "IDENTIFIER"},
                      {"short_name", "SHORT"},
                      {"name", "NAME"},
                      {"unit", "UNIT"},
                      {"scale", "SCALE", Lato::destra},
                      {"factor", "FACTOR", Lato::destra},
                      {"sample_type", "TYPE", Lato::destra},
                      {"legacy_id", "LEGACY IDENTIFIER"},
                      {"visible", "VISIBLE"}});
    for (std::size_t i = 0; i < righe.size(); ++i) {
        const Riga r = righe[i];
        if (!nascoste && !viste.contains(r))
            continue;
        documento.riga({Cella::testo(i < base ? "basic" : "extended"), codice_camera(r->codice), Cella::fid(r->fid),
                        Cella::testo(r->breve), Cella::testo(r->testo), Cella::testo(r->udm), Cella::numero(r->scala),
                        Cella::numero(r->fattore), Cella::intero(r->tipo_campione), Cella::testo(r->id),
                        Cella::logico(viste.contains(r))});
    }
}

void vecchi(Documento& documento) {
    documento.inizia(
        "legacy", "",
        {{"legacy_id", "LEGACY IDENTIFIER"}, {"identifier", "IDENTIFIER"}, {"short_name", "SHORT"}, {"name", "NAME"}});
    for (const t_SFunzioneVecchia& riga : funz_Kel)
        if (!kelFidFineTabella(riga.fid))
            documento.riga(
                {Cella::testo(riga.id), Cella::fid(riga.fid), Cella::testo(riga.breve), Cella::testo(riga.testo)});
}

void programma(const Argomenti& argomenti, const std::vector<Riga>& righe, std::size_t base) {
    const bool una = righe.size() == 1;
    nlohmann::ordered_json dati = {{"una", una},
                                   {"tutte", argomenti.tutte},
                                   {"vecchi", argomenti.vecchi},
                                   {"con_tabelle", !una || argomenti.vecchi}};
    if (una) {
        dati["fid"] = fid_per_programma(righe.front()->fid);
        dati["tabella"] = base == 1 ? "basic" : "extended";
    }
    stampa_programma(argomenti.codice, "camera", "Functions that the on-board camera shows", dati);
}

void esegui(const Argomenti& argomenti) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    std::vector<Riga> righe;
    catalogo->getAllFunzZumikoCamBasePerSw(righe);
    std::size_t base = righe.size();
    catalogo->getAllFunzZumikoCamEstesePerSw(righe);
    bool nascoste = argomenti.tutte;
    if (!argomenti.id.empty() || argomenti.campi.dati()) {
        const kel_funpos fid = risolvi(*catalogo, argomenti.id, argomenti.campi);
        const Riga riga = catalogo->getParamZumikoCam(fid);
        if (riga == nullptr || kelFidFineTabella(fid))
            throw NonTrovato("the camera has no function " + esadecimale(fid, 8));
        const auto fine_base = righe.begin() + static_cast<std::ptrdiff_t>(base);
        base = std::find(righe.begin(), fine_base, riga) != fine_base ? 1 : 0;
        righe = {riga};
        nascoste = true;
    }
    if (!argomenti.codice.empty())
        return programma(argomenti, righe, base);
    Documento documento(stdout, argomenti.forma.forma());
    tabella(documento, *catalogo, righe, base, nascoste);
    if (argomenti.vecchi)
        vecchi(documento);
    documento.fine();
}

}  // namespace

void aggiungi_camera(CLI::App& programma) {
    auto argomenti = std::make_shared<Argomenti>();
    Comando comando(programma, "camera", "Functions that the on-board camera shows");
    comando.opzione("ID", argomenti->id, "One identifier; none: all functions that the camera shows");
    comando.bandiera("--all", argomenti->tutte, "Show hidden functions too");
    comando.bandiera("--legacy", argomenti->vecchi, "Show legacy identifiers that are not camera functions too");
    aggiungi_campi(comando, argomenti->campi);
    aggiungi_forma(comando, argomenti->forma, {"camera", "legacy"});
    aggiungi_codice(comando, argomenti->codice);
    comando.note(esempi("SCALE is camera counts per unit; TYPE is the sample type code.", "kelfun camera",
                        "kelfun camera WATER_TEMP --json", "kelfun camera --all --legacy --csv"));
    comando.esegue([argomenti] { esegui(*argomenti); });
}

}  // namespace kel::strumento
