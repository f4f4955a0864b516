// kelfun record: the samples of a recording, a column for each channel.
#include <unistd.h>
#include <algorithm>
#include <memory>
#include <optional>
#include <span>
#include <utility>

#include "captures/arrow_record.h"
#include "captures/blocco_record.h"
#include "captures/canali_record.h"
#include "captures/cella_record.h"
#include "captures/file_campioni.h"
#include "captures/registrazione.h"
#include "captures/tempo_record.h"
#include "cli/avvisi.h"
#include "cli/compatta.h"
#include "cli/esempi.h"
#include "cli/forma.h"
#include "commands/comandi.h"
#include "domain/avvisi_unita.h"
#include "plots/destinazione_grafico.h"
#include "plots/grafico_record.h"
#include "plots/opzioni_grafico.h"
#include "text/errori.h"

namespace kel::strumento {

namespace {

struct Argomenti {
    std::string canali;
    std::string campioni;
    SceltaTempo tempo;
    SceltaGrafico grafico;
    bool tutto = false;
    bool compatta = false;
    bool dispositivo = false;
    std::optional<std::string> arrow;
    SceltaColonne colonne;
    Avvisi avvisi;
    SceltaForma forma;
};

/// The parts of a run that table and plot have in common.
struct Aperta {
    const IFunzioni& catalogo;
    const Registrazione& reg;
    std::span<const ColonnaRecord> colonne;
    bool con_tempo;
    int decimali_tempo;
};

std::vector<Colonna> testate(const Argomenti& argomenti, const Aperta& aperta) {
    std::vector<Colonna> tutte = {{"record", "RECORD", Lato::destra, 6}};
    if (aperta.con_tempo)
        tutte.push_back({"time_s", "TIME s", Lato::destra, 9});
    for (const ColonnaRecord& colonna : aperta.colonne)
        tutte.push_back({colonna.chiave(), colonna.titolo(), Lato::destra, colonna.larghezza(argomenti.colonne.testi)});
    return tutte;
}

void scrivi(RigheDati& righe, const Aperta& aperta, const BloccoRecord& blocco, bool testi) {
    for (std::size_t riga = 0; riga < blocco.righe(); ++riga) {
        righe.intero(static_cast<std::int64_t>(blocco.prima() + riga));
        if (aperta.con_tempo)
            righe.reale(blocco.tempo(riga), aperta.decimali_tempo);
        for (std::size_t i = 0; i < aperta.colonne.size(); ++i)
            scrivi_record(righe, aperta.colonne[i], blocco, i, riga, testi);
        righe.fine_riga();
    }
}

void scrivi(Documento& documento, const Aperta& aperta, const BloccoRecord& blocco, bool testi) {
    for (std::size_t riga = 0; riga < blocco.righe(); ++riga) {
        std::vector<Cella> celle = {Cella::intero(static_cast<std::int64_t>(blocco.prima() + riga))};
        if (aperta.con_tempo)
            celle.push_back(Cella::reale(blocco.tempo(riga), aperta.decimali_tempo));
        for (std::size_t i = 0; i < aperta.colonne.size(); ++i)
            celle.push_back(cella_record(aperta.colonne[i], blocco, i, riga, testi));
        documento.riga(std::move(celle));
    }
}

void tabella(const Argomenti& argomenti, const Aperta& aperta, FileCampioni& campioni) {
    const bool testi = argomenti.colonne.testi;
    const Aspetto aspetto = argomenti.forma.forma();
    Documento documento(stdout, aspetto);
    documento.inizia("records", "", testate(argomenti, aperta), true);
    RigheDati* righe = documento.righe_dati();
    BloccoRecord blocco(aperta.reg, voci_di(aperta.colonne, testi, aspetto.forma == Forma::tabella));
    while (campioni.prossimo()) {
        a_blocchi(aperta.reg, blocco, [&] {
            if (righe != nullptr)
                scrivi(*righe, aperta, blocco, testi);
            else
                scrivi(documento, aperta, blocco, testi);
        });
        if (righe != nullptr)
            righe->svuota();  // the next piece may be long in coming
    }
    documento.fine();
}

// The columns of a plot: those asked for, or those that matter. Characters show one curve in a panel best.
PannelliRecord pannelli(const Argomenti& argomenti, const std::vector<ColonnaRecord>& colonne) {
    const bool nel_terminale = argomenti.grafico.file == "-";
    return argomenti.tutto || !argomenti.colonne.solo.empty() ? un_pannello_per_colonna(colonne)
                                                              : pannelli_principali(colonne, !nel_terminale);
}

void disegna(const DestinazioneGrafico& destinazione, const Argomenti& argomenti, const Aperta& aperta,
             GraficoRecord& grafico, FileCampioni& campioni) {
    while (campioni.prossimo())
        a_blocchi(aperta.reg, grafico.blocco(), [&] { grafico.aggiungi(); });
    std::vector<Nota> note = grafico.chiudi();
    grafico.grafico().titolo = titolo_grafico(argomenti.campioni);
    note.push_back({campioni.riassunto(), {}, ""});
    if (campioni.righe() != 0)
        destinazione.disegna(grafico.grafico(), note, argomenti.tutto || !argomenti.colonne.solo.empty());
    else
        std::fputs((note.back().testo() + "\n").c_str(), stderr);
}

s_kel_apertura apertura(const Argomenti& argomenti) {
    s_kel_apertura scelta = apertura_di(argomenti.tempo);
    scelta.compatta = argomenti.compatta ? 1 : 0;
    scelta.dispositivo = argomenti.dispositivo ? 1 : 0;
    scelta.pacchetti = argomenti.colonne.testi ? 1 : 0;
    scelta.lunghezza = lunghezza_file(argomenti.campioni);
    return scelta;
}

void esegui(Argomenti& argomenti) {
    if (argomenti.arrow == "-" && ::isatty(STDOUT_FILENO) == 1)
        throw ErroreUso("--arrow - writes bytes that are no text; accepted: a file, or a pipe behind -");
    if (argomenti.canali == "-" && argomenti.campioni == "-")
        throw ErroreUso("standard input cannot be both files; accepted: - for one of CHANNELS and SAMPLES");
    const s_kel_apertura scelta = apertura(argomenti);
    std::optional<DestinazioneGrafico> destinazione;
    tratto_scelto(argomenti.grafico, true);  // refuses what is no time before anything is read
    if (argomenti.tutto && !argomenti.grafico.file)
        throw ErroreUso("--all is for a plot, a table has all columns; accepted: --plot FILE with it");
    if (argomenti.grafico.file)
        destinazione.emplace(argomenti.grafico);
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    const Registrazione reg(argomenti.canali, scelta);
    const std::vector<ColonnaRecord> tutte = colonne_record(*catalogo, reg);
    const std::vector<ColonnaRecord> colonne = colonne_scelte(*catalogo, reg, argomenti.colonne);
    for (const ColonnaRecord& colonna : colonne)
        argomenti.avvisi.subito(avviso_unita(*catalogo, colonna.fid, colonna.udm));
    FileCampioni campioni(argomenti.campioni, reg, argomenti.arrow ? PEZZO_ARROW : Flusso::PEZZO);
    const bool con_tempo = scelta.frequenza > 0 || kelRegOrario(reg.reg()) != KEL_ORARIO_NESSUNO;
    const Aperta aperta{*catalogo, reg, colonne, con_tempo, decimali_tempo(kelRegOrario(reg.reg()), scelta.frequenza)};
    const Tratto tratto = tratto_scelto(argomenti.grafico, con_tempo);
    campioni.annuncia("record");
    campioni.ingresso().mostra_avanzamento(!destinazione);
    if (destinazione) {
        GraficoRecord grafico(reg, tutte, colonne, pannelli(argomenti, colonne), tratto);
        disegna(*destinazione, argomenti, aperta, grafico, campioni);
    } else {
        if (argomenti.arrow)
            scrivi_arrow(*argomenti.arrow, reg, colonne, argomenti.colonne.testi, campioni);
        else
            tabella(argomenti, aperta, campioni);
        std::fputs((campioni.riassunto() + "\n").c_str(), stderr);
    }
    campioni.verifica_fine();
}

}  // namespace

void aggiungi_record(CLI::App& programma) {
    auto argomenti = std::make_shared<Argomenti>();
    Comando comando(programma, "record", "Samples of a recording, a column for each channel");
    comando.opzione("CHANNELS", argomenti->canali, "Channel records of 112 bytes, or - for standard input")
        .valore("")
        .obbligatoria();
    comando.opzione("SAMPLES", argomenti->campioni, "Records of samples, or - for standard input")
        .valore("")
        .obbligatoria();
    aggiungi_tempo(comando, argomenti->tempo);
    comando
        .opzione("--unit", argomenti->colonne.unita,
                 "Unit of all channels that have it, or of the named channel; may be repeated")
        .valore("[CHANNEL=]UNIT")
        .ripetibile();
    comando
        .opzione("--only", argomenti->colonne.solo,
                 "Show this channel or subfield, by any of its names or by identifier; may be repeated")
        .valore("CHANNEL")
        .ripetibile();
    const Opzione testi =
        comando.bandiera("--text", argomenti->colonne.testi, "Show the library's texts in place of values");
    comando.bandiera("--device", argomenti->dispositivo,
                     "Show GPS packets as the device shows them: the library's values, not WGS 84");
    aggiungi_compatta(comando, argomenti->compatta);
    aggiungi_avvisi(comando, argomenti->avvisi);
    aggiungi_forma(comando, argomenti->forma, {"records"});
    Opzione arrow =
        comando
            .opzione("--arrow", argomenti->arrow,
                     "Write the columns as an Arrow IPC stream, no table: to a file, or - for standard output")
            .valore("FILE");
    escludi_forma(comando, arrow);
    aggiungi_grafico(comando, argomenti->grafico).esclude(testi).esclude(arrow);
    comando.bandiera("--all", argomenti->tutto,
                     "Draw all channels, each in its panel, not only those that matter most");
    aggiungi_tratto(comando, argomenti->grafico);
    comando.note(esempi(
        "The columns of a GPS packet are in WGS 84, and empty without a fix.\n"
        "A record of samples holds one sample of every channel, little-endian. Where it lies, and how many bytes the\n"
        "channel takes, stands in the channel record, of which these fields are used: identifier (byte 12), sample\n"
        "type (20), short name (24), name (32), place of the sample (68), bytes (72).\n"
        "An Arrow IPC stream has the type of each column, whether a row has a value, and unit, identifier and long "
        "name\n"
        "as metadata; pyarrow.ipc.open_stream reads it.",
        "kelfun record session.channels session.samples",
        "kelfun record session.channels session.samples --only RPM --only 'GPS Speed' --unit mph --csv",
        "kelfun record session.channels session.samples --plot - --x distance --from 0:30"));
    comando.esegue([argomenti] { esegui(*argomenti); });
}

}  // namespace kel::strumento
