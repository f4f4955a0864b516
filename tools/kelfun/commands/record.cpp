// kelfun record: the samples of a recording, a column for each channel.
#include <functional>
#include <memory>
#include <optional>

#include "captures/canali_record.h"
#include "captures/file_campioni.h"
#include "captures/file_canali.h"
#include "cli/avvisi.h"
#include "cli/compatta.h"
#include "cli/esempi.h"
#include "cli/forma.h"
#include "commands/comandi.h"
#include "domain/avvisi_unita.h"
#include "domain/unita.h"
#include "plots/destinazione_grafico.h"
#include "plots/grafico_record.h"
#include "plots/opzioni_grafico.h"
#include "registrazioni/recordings/canali.h"
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
    SceltaColonne colonne;
    Avvisi avvisi;
    SceltaForma forma;
};

void tabella(const Argomenti& argomenti, const TempoRecord& tempo, std::vector<ColonnaRecord>& colonne,
             LettoreRecord& lettore) {
    const bool testi = argomenti.colonne.testi;
    std::vector<Colonna> testate = {{"record", "RECORD", Lato::destra, 6}};
    if (tempo.noto())
        testate.push_back({"time_s", "TIME s", Lato::destra, 9});
    for (const ColonnaRecord& colonna : colonne)
        testate.push_back({colonna.chiave(), colonna.titolo(), Lato::destra, colonna.larghezza(testi)});
    Documento documento(stdout, argomenti.forma.forma());
    documento.inizia("records", "", std::move(testate), true);
    while (lettore.prossimo()) {
        std::vector<Cella> celle = {Cella::intero(static_cast<std::int64_t>(lettore.record() - 1))};
        if (tempo.noto())
            celle.push_back(Cella::reale(tempo.secondi(lettore), tempo.decimali()));
        for (ColonnaRecord& colonna : colonne)
            celle.push_back(colonna.cella(lettore.campioni(), testi));
        documento.riga(std::move(celle));
    }
    documento.fine();
}

std::string riassunto(const LettoreRecord& lettore, std::size_t passo) {
    return std::to_string(lettore.record()) + " records of " + std::to_string(passo) + " bytes in " +
           std::to_string(lettore.byte()) + " bytes; " + std::to_string(lettore.avanzo()) +
           " bytes of a cut record at the end";
}

// The columns of a plot: those asked for, or those that matter. Characters show one curve in a panel best.
PannelliRecord pannelli(const Argomenti& argomenti, const std::vector<ColonnaRecord>& colonne) {
    const bool nel_terminale = argomenti.grafico.file == "-";
    return argomenti.tutto || !argomenti.colonne.solo.empty() ? un_pannello_per_colonna(colonne)
                                                              : pannelli_principali(colonne, !nel_terminale);
}

void disegna(const DestinazioneGrafico& destinazione, const Argomenti& argomenti, const TempoRecord& tempo,
             GraficoRecord& grafico, LettoreRecord& lettore, const std::function<std::string()>& riassunto) {
    while (lettore.prossimo())
        grafico.aggiungi(tempo.noto() ? tempo.secondi(lettore) : static_cast<double>(lettore.record() - 1),
                         lettore.campioni());
    std::vector<Nota> note = grafico.chiudi();
    grafico.grafico().titolo = titolo_grafico(argomenti.campioni);
    note.push_back({riassunto(), {}, ""});
    if (lettore.record() != 0)
        destinazione.disegna(grafico.grafico(), note, argomenti.tutto || !argomenti.colonne.solo.empty());
    else
        std::fputs((note.back().testo() + "\n").c_str(), stderr);
}

void esegui(Argomenti& argomenti) {
    if (argomenti.canali == "-" && argomenti.campioni == "-")
        throw ErroreUso("standard input cannot be both files; accepted: - for one of CHANNELS and SAMPLES");
    TempoRecord tempo(argomenti.tempo);
    std::optional<DestinazioneGrafico> destinazione;
    tratto_scelto(argomenti.grafico, true);  // refuses what is no time before anything is read
    if (argomenti.tutto && !argomenti.grafico.file)
        throw ErroreUso("--all is for a plot, a table has all columns; accepted: --plot FILE with it");
    if (argomenti.grafico.file)
        destinazione.emplace(argomenti.grafico);
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    const std::vector<s_kel_canale> canali =
        leggi_file_canali(argomenti.canali, argomenti.compatta ? Disposizione::compatta : Disposizione::dichiarata);
    std::vector<ColonnaRecord> colonne = colonne_record(*catalogo, canali, argomenti.colonne);
    for (const ColonnaRecord& colonna : colonne)
        argomenti.avvisi.subito(avviso_unita(*catalogo, colonna.fid, colonna.udm));
    FileCampioni campioni(argomenti.campioni, dimensione_record(canali), tempo);
    const Tratto tratto = tratto_scelto(argomenti.grafico, tempo.noto());
    campioni.annuncia("record");
    campioni.ingresso().mostra_avanzamento(!destinazione);
    LettoreRecord& lettore = campioni.lettore();
    const auto letto = [&] { return riassunto(lettore, campioni.passo()); };
    if (destinazione) {
        SceltaColonne ogni;
        ogni.dispositivo = argomenti.colonne.dispositivo;
        const std::vector<ColonnaRecord> tutte = colonne_record(*catalogo, canali, ogni);
        GraficoRecord grafico(*catalogo, canali, tutte, colonne, pannelli(argomenti, colonne), tratto);
        disegna(*destinazione, argomenti, tempo, grafico, lettore, letto);
    } else {
        tabella(argomenti, tempo, colonne, lettore);
        std::fputs((letto() + "\n").c_str(), stderr);
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
    comando.bandiera("--device", argomenti->colonne.dispositivo,
                     "Show GPS packets as the device shows them: the library's values, not WGS 84");
    aggiungi_compatta(comando, argomenti->compatta);
    aggiungi_avvisi(comando, argomenti->avvisi);
    aggiungi_forma(comando, argomenti->forma, {"records"});
    aggiungi_grafico(comando, argomenti->grafico).esclude(testi);
    comando.bandiera("--all", argomenti->tutto,
                     "Draw all channels, each in its panel, not only those that matter most");
    aggiungi_tratto(comando, argomenti->grafico);
    comando.note(esempi(
        "The columns of a GPS packet are in WGS 84, and empty without a fix.\n"
        "A record of samples holds one sample of every channel, little-endian. Where it lies, and how many bytes the\n"
        "channel takes, stands in the channel record, of which these fields are used: identifier (byte 12), sample\n"
        "type (20), short name (24), name (32), place of the sample (68), bytes (72).",
        "kelfun record session.channels session.samples",
        "kelfun record session.channels session.samples --only RPM --only 'GPS Speed' --unit mph --csv",
        "kelfun record session.channels session.samples --plot - --x distance --from 0:30"));
    comando.esegue([argomenti] { esegui(*argomenti); });
}

}  // namespace kel::strumento
