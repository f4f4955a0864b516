// kelfun fid: everything that the catalogue knows about one identifier.
#include <list>
#include <map>
#include <memory>

#include "cli/esempi.h"
#include "cli/forma.h"
#include "code/codice.h"
#include "code/programma_fid.h"
#include "commands/comandi.h"
#include "domain/campi.h"
#include "domain/disegno_bit.h"
#include "domain/identificatore.h"
#include "domain/unita.h"
#include "output/celle.h"

namespace kel::strumento {

namespace {

struct Argomenti {
    std::string id;
    CampiDati campi;
    SceltaForma forma;
    std::string codice;
};

void nomi(Documento& documento, IFunzioni& catalogo, kel_funpos fid) {
    documento.proprieta("identifier", "Identifier", Cella::fid(fid));
    documento.proprieta("decimal", "Decimal", Cella::intero(fid));
    documento.proprieta("long_name", "Long name", Cella::testo(catalogo.getNomeFunzione(fid, false)));
    documento.proprieta("short_name", "Short name", Cella::testo(senza_nul(catalogo.getNomeFunzioneShort(fid))));
    documento.proprieta("legacy_id", "Legacy identifier", testo_o_vuota(id_vecchio(fid)));
    const kel_funpos classe = catalogo.getFidEquivalente(fid);
    documento.proprieta("class", "Class", classe == 0 ? Cella() : Cella::fid(classe));
    documento.proprieta("base_unit", "Base unit", testo_o_vuota(catalogo.getUnitaBase(fid)));
    std::map<unsigned, IFunzioni::NomiDefaultCanale> canali;
    catalogo.getCanaliGPS(canali);
    catalogo.getCanaliLapTime(canali);
    catalogo.getCanaliLapNum(canali);
    if (const auto canale = canali.find(fid); canale != canali.end()) {
        documento.proprieta("channel_short_name", "Channel, short", Cella::testo(canale->second.breve));
        documento.proprieta("channel_name", "Channel", Cella::testo(canale->second.nome));
    }
}

// For people only: programs have the fields.
void disegno(Documento& documento, kel_funpos fid) {
    const std::vector<std::string> righe = disegno_bit(fid);
    documento.inizia("layout", "", {{"layout", righe.front()}});
    for (std::size_t i = 1; i < righe.size(); ++i)
        documento.riga({Cella::testo(righe[i])});
}

void tabella_campi(Documento& documento, kel_funpos fid) {
    documento.inizia("fields", "",
                     {{"field", "FIELD"}, {"value", "VALUE", Lato::destra}, {"xml", "XML NAME"}, {"text", "TEXT"}});
    for (const Campo& campo : campi(fid))
        documento.riga({Cella::testo(campo.titolo), Cella::intero(campo.valore),
                        campo.riga ? Cella::testo(campo.riga->xml) : Cella(),
                        campo.riga ? testo_o_vuota(campo.riga->testo) : Cella()});
}

// What a configuration program offers at the function's position. Printed where there is a choice.
void tabella_scelte(Documento& documento, const IFunzioni& catalogo, kel_funpos fid) {
    std::map<unsigned, std::string> lati;
    std::map<unsigned, std::string> inout;
    int primo = -1;
    int ultimo = -1;
    catalogo.getFunzDettagli(fid, lati, inout, primo, ultimo);
    if (lati.empty() && inout.empty() && primo < 0)
        return;
    documento.inizia("choices", "", {{"choice", "CHOICE"}, {"text", "TEXT"}, {"identifier", "IDENTIFIER"}});
    const kel_funpos senza = fid & ~(kelFidIstanza(FID_MASK_NUMBER) | kelFidBitInOut(FID_MASK_INOUT));
    for (const auto& [bit, testo] : lati)
        documento.riga({Cella::testo("side"), Cella::testo(testo), Cella::fid(senza | bit)});
    for (const auto& [valore, testo] : inout)
        documento.riga({Cella::testo("in/out"), Cella::testo(testo), Cella::fid(senza | kelFidBitInOut(valore))});
    if (primo >= 0)
        documento.riga(
            {Cella::testo("number"), Cella::testo(std::to_string(primo) + " to " + std::to_string(ultimo)), Cella()});
}

void tabella_camera(Documento& documento, const IFunzioni& catalogo, kel_funpos fid) {
    const t_SFunzioneZumikoCam* riga = catalogo.getParamZumikoCam(fid);
    if (riga == nullptr)
        return;
    documento.inizia("camera", "",
                     {{"code", "CAMERA CODE"},
                      {"unit", "UNIT"},
                      {"scale", "SCALE", Lato::destra},
                      {"factor", "FACTOR", Lato::destra},
                      {"sample_type", "SAMPLE TYPE", Lato::destra}});
    documento.riga({codice_camera(riga->codice), testo_o_vuota(riga->udm), Cella::numero(riga->scala),
                    Cella::numero(riga->fattore), Cella::intero(riga->tipo_campione)});
}

void tabella_sottocampi(Documento& documento, kel_funpos fid) {
    if (kelFidGrandezza(fid) != FID_PHI_PACKAGE)
        return;
    const s_sottocampo* riga = search_sottocampi_struct(kelFidOggetto(fid), kelFidPosizione(fid));
    if (riga == nullptr)
        return;
    documento.inizia("subfields", "",
                     {{"identifier", "SUBFIELD"},
                      {"quantity", "QUANTITY"},
                      {"object", "OBJECT"},
                      {"offset", "OFFSET", Lato::destra},
                      {"bit", "BIT", Lato::destra},
                      {"bits", "BITS", Lato::destra},
                      {"sample_type", "SAMPLE TYPE", Lato::destra},
                      {"short_name", "SHORT"},
                      {"name", "NAME"}});
    for (; !kelFidFineTabella(riga->fid); ++riga) {
        const std::vector<Campo> suoi = campi(riga->fid);
        documento.riga({Cella::fid(riga->fid), testo_o_vuota(suoi[0].riga ? suoi[0].riga->testo : ""),
                        testo_o_vuota(suoi[1].riga ? suoi[1].riga->testo : ""), Cella::intero(riga->offset),
                        riga->num_bit ? Cella::intero(riga->pos_bit) : Cella(),
                        riga->num_bit ? Cella::intero(riga->num_bit) : Cella(), Cella::intero(riga->tipo_campione),
                        testo_o_vuota(riga->breve), testo_o_vuota(riga->testo)});
    }
}

void esegui(const Argomenti& argomenti) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    const kel_funpos fid = risolvi(*catalogo, argomenti.id, argomenti.campi);
    if (!argomenti.codice.empty())
        return programma_fid(*catalogo, argomenti.codice, fid);
    Documento documento(stdout, argomenti.forma.forma());
    nomi(documento, *catalogo, fid);
    if (argomenti.forma.forma().forma == Forma::tabella && argomenti.forma.tabella.empty())
        disegno(documento, fid);
    tabella_campi(documento, fid);
    tabella_unita(documento, *catalogo, fid);
    tabella_scelte(documento, *catalogo, fid);
    tabella_camera(documento, *catalogo, fid);
    tabella_sottocampi(documento, fid);
    documento.fine();
}

}  // namespace

void aggiungi_fid(CLI::App& programma) {
    auto argomenti = std::make_shared<Argomenti>();
    Comando comando(programma, "fid", "Everything known about one identifier");
    comando
        .opzione("ID", argomenti->id,
                 "Hexadecimal (0x10), decimal (16), a legacy identifier (REF_SPEED) or a name ('Oil Pressure')")
        .valore("");
    aggiungi_campi(comando, argomenti->campi);
    aggiungi_forma(comando, argomenti->forma, {"fields", "properties", "units", "choices", "camera", "subfields"});
    aggiungi_codice(comando, argomenti->codice);
    comando.note(esempi("Value in a unit = value in the base unit * gain + offset.", "kelfun fid 0x10",
                        "kelfun fid FG_GEAR_BOX_TEMP --json",
                        "kelfun fid --quantity speed --position wheel --side 'front left'"));
    comando.esegue([argomenti] { esegui(*argomenti); });
}

}  // namespace kel::strumento
