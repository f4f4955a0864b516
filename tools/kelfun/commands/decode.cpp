// kelfun decode: sample bytes as values and texts.
#include <algorithm>
#include <list>
#include <memory>
#include <nlohmann/json.hpp>

#include "cli/avvisi.h"
#include "cli/esempi.h"
#include "cli/forma.h"
#include "code/codice.h"
#include "commands/campioni_dati.h"
#include "commands/comandi.h"
#include "domain/avvisi_campioni.h"
#include "domain/avvisi_unita.h"
#include "domain/canale.h"
#include "domain/identificatore.h"
#include "domain/tipi_campione.h"
#include "output/celle.h"
#include "text/errori.h"
#include "text/numeri.h"
#include "text/parole.h"
#include "text/vicini.h"

namespace kel::strumento {

namespace {

struct Argomenti {
    std::vector<std::string> posizionali;  // identifier, unless given by its fields, and bytes
    CampiDati campi;
    std::string canale;
    std::string tipo;
    std::string udm;
    std::optional<unsigned> larghezza = 8;
    std::optional<unsigned> decimali;
    std::string formato = "right";
    std::string bit;
    bool automatici = false;
    bool tipi = false;
    Avvisi avvisi;
    SceltaForma forma;
    std::string codice;
};

// The formats of texts in the order of their numbers.
const std::vector<std::string> FORMATI = {"right", "left", "compact"};

eFormatoConv leggi_formato(const std::string& testo) {
    return static_cast<eFormatoConv>(std::find(FORMATI.begin(), FORMATI.end(), testo) - FORMATI.begin());
}

struct CampoBit {
    unsigned short posizione = 0;
    unsigned short quanti = 0;
};

CampoBit leggi_bit(const std::string& testo) {
    if (testo.empty())
        return {};
    const std::size_t punti = testo.find(':');
    const auto posizione = leggi_intero(std::string_view(testo).substr(0, punti), 0, 31);
    const auto quanti =
        punti == std::string::npos ? std::nullopt : leggi_intero(std::string_view(testo).substr(punti + 1), 1, 32);
    if (!posizione || !quanti)
        throw ErroreUso("--bits '" + testo + "' is no bit field; accepted: POSITION:COUNT, such as 8:1");
    return {static_cast<unsigned short>(*posizione), static_cast<unsigned short>(*quanti)};
}

// Those asked for, or those that the function shows in the unit.
unsigned leggi_decimali(const Argomenti& argomenti, const IFunzioni& catalogo, kel_funpos fid, const std::string& udm) {
    if (argomenti.decimali)
        return *argomenti.decimali;
    return static_cast<unsigned>(std::clamp(catalogo.getNumDecimaliDefault(fid, udm), 0, 3));
}

// One converter and what it makes of one sample.
class Decodifica {
public:
    Decodifica(const IFunzioni& catalogo, const s_kel_canale& canale, kel_funpos fid, const std::string& udm,
               const std::string& nome, const Argomenti& argomenti)
        : fid_(fid), udm_(udm), nome_(nome) {
        const CampoBit bit = leggi_bit(argomenti.bit);
        conv_.larghezza = *argomenti.larghezza;
        conv_.decimali = leggi_decimali(argomenti, catalogo, fid, udm);
        conv_.auto_decimali = argomenti.automatici;
        conv_.formato = leggi_formato(argomenti.formato);
        kelConvInit(&conv_, &canale, fid, catalogo.getParamConv(fid, udm), bit.posizione, bit.quanti, 1);
    }

    kel_funpos fid() const { return fid_; }

    void riga(Documento& documento, std::int64_t campione, const char* byte) {
        std::uint32_t stato = 0;
        float valore = 0;
        const bool ha_valore = conv_.valore != nullptr;
        if (ha_valore)
            valore = conv_.valore(&conv_, byte + kelConvGetOffset(&conv_), &stato);
        char testo[32];
        kelConvGetString(&conv_, byte, testo);
        documento.riga({Cella::intero(campione), Cella::fid(fid_), Cella::testo(nome_),
                        ha_valore ? Cella::numero(valore) : Cella(), testo_o_vuota(udm_),
                        ha_valore ? Cella::intero(stato) : Cella(), Cella::citata(testo)});
    }

private:
    kel_funpos fid_;
    std::string udm_;
    std::string nome_;
    s_kel_converter conv_{};
};

void tabella_tipi(Documento& documento) {
    documento.inizia(
        "sample_types", "",
        {{"code", "CODE", Lato::destra}, {"name", "TYPE"}, {"bytes", "BYTES", Lato::destra}, {"content", "CONTENT"}});
    for (unsigned tipo = 0; tipo < NUM_TIPI_CAMPIONE; ++tipo)
        documento.riga({Cella::intero(tipo), Cella::testo(nome_campione(tipo)), Cella::intero(kelFunGetSamplSize(tipo)),
                        Cella::testo(contenuto_campione(tipo))});
}

unsigned leggi_tipo(const Argomenti& argomenti, kel_funpos fid_canale) {
    if (!argomenti.tipo.empty()) {
        const auto tipo = leggi_tipo_campione(argomenti.tipo);
        if (!tipo)
            throw ErroreUso("there is no --type '" + argomenti.tipo + "'; " + forse(argomenti.tipo, nomi_campioni()) +
                            "accepted: " + elenco(nomi_campioni()) + ", or a code from 0 to " +
                            std::to_string(NUM_TIPI_CAMPIONE - 1) + ", see --types");
        return *tipo;
    }
    const auto tipo = tipo_pacchetto(fid_canale);
    if (!tipo)
        throw ErroreUso("the sample type is missing; accepted: --type " + elenco(nomi_campioni()) + ", see --types");
    return *tipo;
}

void programma(const Argomenti& argomenti, const IFunzioni& catalogo, const s_kel_canale& canale, kel_funpos fid,
               const std::string& udm, const std::string& byte, bool pacchetto) {
    const CampoBit bit = leggi_bit(argomenti.bit);
    const eFormatoConv formato = leggi_formato(argomenti.formato);
    if (argomenti.codice == "cpp" && (bit.quanti != 0 || argomenti.automatici))
        throw ErroreUso("--bits and --auto-decimals are of the flat face alone; accepted: --code c, --code python");
    const kel_funpos fid_canale = canale.fid;
    const unsigned tipo = canale.tipo_campione;
    const std::size_t dimensione = kelFunGetSamplSize(tipo);
    nlohmann::ordered_json campioni = nlohmann::ordered_json::array();
    for (std::size_t da = 0; da < byte.size(); da += dimensione) {
        std::vector<std::string> uno;
        for (std::size_t i = 0; i < dimensione; ++i)
            uno.push_back(esadecimale(static_cast<std::uint8_t>(byte[da + i]), 2));
        campioni.push_back({{"byte", elenco_per_programma(uno, argomenti.codice == "python" ? 11 : 9)}});
    }
    const unsigned decimali = leggi_decimali(argomenti, catalogo, fid, udm);
    static constexpr const char* COSTANTI[] = {"FORMATO_DESTRA", "FORMATO_SINISTRA", "FORMATO_COMPATTO"};
    stampa_programma(argomenti.codice, "decode", "Samples of " + catalogo.getNomeFunzione(fid, false),
                     {{"fid", fid_per_programma(fid)},
                      {"canale", fid_canale == fid ? "fid" : esadecimale(fid_canale, 8)},
                      {"tipo", costante_campione(tipo)},
                      {"tipo_numero", tipo},
                      {"udm", testo_per_programma(udm)},
                      {"larghezza", *argomenti.larghezza},
                      {"decimali", decimali},
                      {"suoi", !argomenti.decimali},
                      {"automatici", argomenti.automatici ? 1 : 0},
                      {"formato", COSTANTI[formato]},
                      {"formato_numero", static_cast<int>(formato)},
                      {"pos_bit", bit.posizione},
                      {"num_bit", bit.quanti},
                      {"dimensione", dimensione},
                      {"campioni", campioni},
                      {"pacchetto", pacchetto}});
}

// The subfields of a packet, each in its base unit.
void aggiungi_sottocampi(std::vector<Decodifica>& decodifiche, IFunzioni& catalogo, const s_kel_canale& canale,
                         const Argomenti& argomenti) {
    const s_sottocampo* tabella = search_sottocampi_struct(kelFidOggetto(canale.fid), kelFidPosizione(canale.fid));
    std::list<kel_funpos> interni;
    catalogo.getAllInnerFunpos(canale.fid, interni);
    for (const kel_funpos interno : interni) {
        const s_sottocampo* riga = getDettagliSottocampo(tabella, interno);
        std::string nome = catalogo.getNomeFunzione(interno, false);
        if (interno == 0)
            nome = "(reserved)";
        else if (riga->testo != nullptr && *riga->testo != '\0')
            nome = riga->testo;
        decodifiche.emplace_back(catalogo, canale, interno, catalogo.getUnitaBase(interno), nome, argomenti);
    }
}

std::vector<kel_funpos> mostrati(const std::vector<Decodifica>& decodifiche) {
    std::vector<kel_funpos> tutti;
    tutti.reserve(decodifiche.size());
    for (const Decodifica& una : decodifiche)
        tutti.push_back(una.fid());
    return tutti;
}

void inizia(Documento& documento, bool flusso) {
    documento.inizia("samples", "",
                     {{"sample", "SAMPLE", Lato::destra},
                      {"identifier", "IDENTIFIER", Lato::sinistra, 10},
                      {"name", "NAME", Lato::sinistra, 16},
                      {"value", "VALUE", Lato::destra, 10},
                      {"unit", "UNIT", Lato::sinistra, 6},
                      {"status", "STATUS", Lato::destra},
                      {"text", "TEXT"}},
                     flusso);
}

void esegui(Argomenti& argomenti) {
    if (argomenti.tipi && !argomenti.codice.empty())
        return stampa_programma(argomenti.codice, "decode types", "The sizes of the sample types",
                                {{"quanti", NUM_TIPI_CAMPIONE}});
    Documento documento(stdout, argomenti.forma.forma());
    if (argomenti.tipi) {
        tabella_tipi(documento);
        documento.fine();
        return;
    }
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    std::vector<std::string> testi = argomenti.posizionali;
    std::string id;
    if (!argomenti.campi.dati() && !testi.empty()) {
        id = testi.front();
        testi.erase(testi.begin());
    }
    const kel_funpos fid = risolvi(*catalogo, id, argomenti.campi);
    const kel_funpos fid_canale = argomenti.canale.empty() ? fid : leggi_fid(*catalogo, argomenti.canale);
    const unsigned tipo = leggi_tipo(argomenti, fid_canale);
    CampioniDati campioni(tipo, testi);
    const s_kel_canale canale = kel::strumento::canale(fid_canale, tipo);

    // The function asked for; a whole packet shows its subfields too.
    const std::string udm = leggi_udm(*catalogo, fid, argomenti.udm);
    const std::size_t pacchetto = tipo_pacchetto(fid) ? kelFunGetSamplSize(*tipo_pacchetto(fid)) : 0;
    const bool intero = fid == fid_canale && pacchetto == campioni.dimensione() && pacchetto != 0 &&
                        search_sottocampi_struct(kelFidOggetto(fid), kelFidPosizione(fid)) != nullptr;
    std::vector<Decodifica> decodifiche;
    decodifiche.emplace_back(*catalogo, canale, fid, udm, catalogo->getNomeFunzione(fid, false), argomenti);
    if (intero)
        aggiungi_sottocampi(decodifiche, *catalogo, canale, argomenti);
    const CampoBit bit = leggi_bit(argomenti.bit);
    const std::optional<std::string> avvisi[] = {avviso_unita(*catalogo, fid, udm),
                                                 avviso_bit(argomenti.bit, bit.posizione + bit.quanti),
                                                 avviso_gps(mostrati(decodifiche), tipo)};
    for (const auto& avviso : avvisi)
        argomenti.avvisi.pretendi(avviso);
    const auto avvisa = [&] {
        for (const auto& avviso : avvisi)
            argomenti.avvisi.di(avviso);
    };
    if (!argomenti.codice.empty()) {
        std::string byte;
        campioni.leggi([] {}, [&](const char* uno) { byte.append(uno, campioni.dimensione()); });
        programma(argomenti, *catalogo, canale, fid, udm, byte, intero);
        avvisa();
        return campioni.fine();
    }
    std::int64_t campione = 0;
    campioni.leggi(
        [&] {
            avvisa();
            inizia(documento, campioni.con_righe());
        },
        [&](const char* byte) {
            for (Decodifica& una : decodifiche)
                una.riga(documento, campione, byte);
            ++campione;
        });
    documento.fine();
    campioni.fine();
}

}  // namespace

void aggiungi_decode(CLI::App& programma) {
    auto argomenti = std::make_shared<Argomenti>();
    Comando comando(programma, "decode", "Sample bytes as value, status and text");
    comando
        .opzione("[ID] HEX", argomenti->posizionali,
                 "Identifier, unless its fields are given, and bytes; - for lines of standard input")
        .valore("");
    comando
        .opzione("--type", argomenti->tipo,
                 "Sample type: int16, float32... or its code; a packet's is known from its identifier")
        .valore("TYPE");
    comando.bandiera("--types", argomenti->tipi, "List the sample types");
    comando
        .opzione("--channel", argomenti->canale, "Identifier of the packet channel, where ID is one of its subfields")
        .valore("ID");
    comando.opzione("--unit", argomenti->udm, "Unit (default: the base unit)").valore("UNIT");
    comando.intero("--width", argomenti->larghezza, 1, 31,
                   "Characters of the text, point not counted, 1 to 31 (default 8)");
    comando.intero("--decimals", argomenti->decimali, 0, 3, "Decimals of the text (default: the unit's)");
    comando.bandiera("--auto-decimals", argomenti->automatici, "Let the text choose 1 or 0 decimals by magnitude");
    comando.opzione("--format", argomenti->formato, "right is the default").scelta(FORMATI);
    comando.opzione("--bits", argomenti->bit, "Bit field of an integer sample").valore("POS:COUNT");
    aggiungi_campi(comando, argomenti->campi);
    aggiungi_avvisi(comando, argomenti->avvisi);
    aggiungi_forma(comando, argomenti->forma, {"samples", "sample_types"});
    aggiungi_codice(comando, argomenti->codice);
    comando.note(esempi(
        "Bytes stand in the order of the record, low byte first; several samples may follow each other. Lines of\n"
        "standard input are answered as they come; a wrong line is reported and skipped (exit status 1).\n"
        "Types: " +
            su_righe(nomi_campioni()) +
            ".\n"
            "Status: 0 good, 1 error, 2 missing, 4 over range, 8 invalid.",
        "kelfun decode 0x10 --type float32 --unit mph 0000C842",
        "kelfun decode --quantity gear --type gear 0300 FFFF 0000",
        "kelfun decode --details laptime '01 02 0300 00460100 E8030000 00000000 00000000 00000000 00020000'"));
    comando.esegue([argomenti] { esegui(*argomenti); });
}

}  // namespace kel::strumento
