// kelfun record: the samples of a recording, a column for each channel.
#include <functional>
#include <memory>
#include <optional>

#include "captures/canali_record.h"
#include "captures/file_canali.h"
#include "captures/registrazione.h"
#include "cli/avvisi.h"
#include "cli/esempi.h"
#include "cli/forma.h"
#include "commands/comandi.h"
#include "domain/avvisi_unita.h"
#include "domain/unita.h"
#include "io/ingresso.h"
#include "plots/destinazione_grafico.h"
#include "plots/grafico_record.h"
#include "plots/opzioni_grafico.h"
#include "text/errori.h"
#include "text/numeri.h"

namespace kel::strumento {

namespace {

struct Argomenti {
    std::string canali;
    std::string campioni;
    std::string frequenza;
    std::string orario;
    SceltaGrafico grafico;
    bool tutto = false;
    bool compatta = false;
    SceltaColonne colonne;
    Avvisi avvisi;
    SceltaForma forma;
};

/// When a record was taken: from its time stamp, or from its place where samples come at a rate.
class Tempo {
public:
    explicit Tempo(const Argomenti& argomenti) {
        if (!argomenti.orario.empty() && !argomenti.frequenza.empty())
            throw ErroreUso("--time and --rate exclude each other; accepted: one of them");
        if (argomenti.orario == "u32ms")
            orario_ = Orario::u32ms;
        else if (argomenti.orario == "u64us")
            orario_ = Orario::u64us;
        else if (!argomenti.orario.empty())
            throw ErroreUso("there is no --time '" + argomenti.orario + "'; accepted: u32ms, u64us");
        if (argomenti.frequenza.empty())
            return;
        const auto frequenza = leggiFloat(argomenti.frequenza);
        if (!frequenza || *frequenza < FREQUENZA_MINIMA || *frequenza > FREQUENZA_MASSIMA)
            throw ErroreUso("--rate '" + argomenti.frequenza +
                            "' is no rate; accepted: records a second, 0.001 to 1000000");
        frequenza_ = static_cast<double>(*frequenza);
    }

    Orario orario() const { return orario_; }
    bool noto() const { return frequenza_ > 0 || orario_ != Orario::nessuno; }
    int decimali() const { return orario_ == Orario::u64us || frequenza_ > MILLE ? 6 : 3; }

    double secondi(const LettoreRecord& lettore) const {
        if (orario_ == Orario::nessuno)
            return static_cast<double>(lettore.record() - 1) / frequenza_;
        return static_cast<double>(lettore.orario()) / (orario_ == Orario::u32ms ? 1e3 : 1e6);
    }

private:
    static constexpr float FREQUENZA_MINIMA = 0.001f;
    static constexpr float FREQUENZA_MASSIMA = 1e6f;
    static constexpr double MILLE = 1000;

    Orario orario_ = Orario::nessuno;
    double frequenza_ = 0;
};

void tabella(const Argomenti& argomenti, const Tempo& tempo, std::vector<ColonnaRecord>& colonne,
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

// What was read, and what a size that does not fit may mean.
std::string riassunto(const LettoreRecord& lettore, std::size_t dimensione_record, Orario orario) {
    std::string testo = std::to_string(lettore.record()) + " records of " +
                        std::to_string(dimensione_record + dimensione(orario)) + " bytes in " +
                        std::to_string(lettore.byte()) + " bytes; " + std::to_string(lettore.avanzo()) +
                        " bytes of a cut record at the end";
    if (orario == Orario::nessuno && lettore.avanzo() != 0 &&
        lettore.byte() % (dimensione_record + dimensione(Orario::u32ms)) == 0)
        testo += "; none with --time u32ms";
    return testo;
}

// The columns of a plot: those asked for, or those that matter. Characters show one curve in a panel best.
PannelliRecord pannelli(const Argomenti& argomenti, const std::vector<ColonnaRecord>& colonne) {
    const bool nel_terminale = argomenti.grafico.file == "-";
    return argomenti.tutto || !argomenti.colonne.solo.empty() ? unPannelloPerColonna(colonne)
                                                              : pannelliPrincipali(colonne, !nel_terminale);
}

void disegna(const DestinazioneGrafico& destinazione, const Argomenti& argomenti, const Tempo& tempo,
             GraficoRecord& grafico, LettoreRecord& lettore, const std::function<std::string()>& riassunto) {
    while (lettore.prossimo())
        grafico.aggiungi(tempo.noto() ? tempo.secondi(lettore) : static_cast<double>(lettore.record() - 1),
                         lettore.campioni());
    std::vector<Nota> note = grafico.chiudi();
    grafico.grafico().titolo = titoloGrafico(argomenti.campioni);
    note.push_back({riassunto(), {}, ""});
    if (lettore.record() != 0)
        destinazione.disegna(grafico.grafico(), note, argomenti.tutto || !argomenti.colonne.solo.empty());
    else
        std::fputs((note.back().testo() + "\n").c_str(), stderr);
}

void esegui(Argomenti& argomenti) {
    if (argomenti.canali == "-" && argomenti.campioni == "-")
        throw ErroreUso("standard input cannot be both files; accepted: - for one of CHANNELS and SAMPLES");
    const Tempo tempo(argomenti);
    std::optional<DestinazioneGrafico> destinazione;
    const Tratto tratto = trattoScelto(argomenti.grafico, tempo.noto());
    if (argomenti.tutto && !argomenti.grafico.file)
        throw ErroreUso("--all is for a plot, a table has all columns; accepted: --plot FILE with it");
    if (argomenti.grafico.file)
        destinazione.emplace(argomenti.grafico);
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    const std::vector<s_kel_canale> canali =
        leggiFileCanali(argomenti.canali, argomenti.compatta ? Disposizione::compatta : Disposizione::dichiarata);
    std::vector<ColonnaRecord> colonne = colonneRecord(*catalogo, canali, argomenti.colonne);
    for (const ColonnaRecord& colonna : colonne)
        argomenti.avvisi.subito(avvisoUnita(*catalogo, colonna.fid, colonna.udm));
    Ingresso ingresso(argomenti.campioni);
    ingresso.mostraAvanzamento(!destinazione);
    LettoreRecord lettore([&ingresso](std::uint8_t* byte, std::size_t quanti) { return ingresso.leggi(byte, quanti); },
                          dimensioneRecord(canali), tempo.orario());
    const auto letto = [&] { return riassunto(lettore, dimensioneRecord(canali), tempo.orario()); };
    if (destinazione) {
        const std::vector<ColonnaRecord> tutte = colonneRecord(*catalogo, canali, {});
        GraficoRecord grafico(*catalogo, canali, tutte, colonne, pannelli(argomenti, colonne), tratto);
        disegna(*destinazione, argomenti, tempo, grafico, lettore, letto);
    } else {
        tabella(argomenti, tempo, colonne, lettore);
        std::fputs((letto() + "\n").c_str(), stderr);
    }
    if (lettore.record() == 0)
        throw NonTrovato("there is no whole record in it");
}

}  // namespace

void aggiungiRecord(CLI::App& programma) {
    auto argomenti = std::make_shared<Argomenti>();
    Comando comando(programma, "record", "Samples of a recording, a column for each channel");
    comando.opzione("CHANNELS", argomenti->canali, "Channel records of 112 bytes, or - for standard input")
        .valore("")
        .obbligatoria();
    comando.opzione("SAMPLES", argomenti->campioni, "Records of samples, or - for standard input")
        .valore("")
        .obbligatoria();
    comando
        .opzione("--time", argomenti->orario,
                 "Time stamp before every record: u32ms (32 bits, ms) or u64us (64 bits, us); none by default")
        .valore("{u32ms,u64us}");
    comando.opzione("--rate", argomenti->frequenza, "Records a second, where they have no time stamp").valore("HZ");
    comando
        .opzione("--unit", argomenti->colonne.unita,
                 "A unit, for all channels that know it or for the one named; may be repeated")
        .valore("[CHANNEL=]UNIT")
        .ripetibile();
    comando
        .opzione("--only", argomenti->colonne.solo,
                 "Show this channel or subfield, by name, short name or identifier; may be repeated")
        .valore("CHANNEL")
        .ripetibile();
    const Opzione testi =
        comando.bandiera("--text", argomenti->colonne.testi, "Show the library's texts in place of values");
    comando.bandiera("--device", argomenti->colonne.dispositivo,
                     "Show GPS packets as the device shows them: the library's values, not WGS 84");
    comando.bandiera("--packed", argomenti->compatta,
                     "Samples lie one behind the other, as long as their types, whatever the channels say");
    aggiungiAvvisi(comando, argomenti->avvisi);
    aggiungiForma(comando, argomenti->forma, {"records"});
    aggiungiGrafico(comando, argomenti->grafico).esclude(testi);
    comando.bandiera("--all", argomenti->tutto,
                     "Draw all channels, each in its panel, not only those that matter most");
    aggiungiTratto(comando, argomenti->grafico);
    comando.note(esempi(
        "A GPS packet's columns are WGS 84, from the packet's own numbers; where it has no fix they are nothing.\n"
        "A record holds one sample of every channel, little-endian, where the channel's record says, and is as long "
        "as\n"
        "their sample buffers together. Of a channel's record these fields are used: identifier (byte 12), sample "
        "type\n"
        "(20), short name (24), name (32), place of the sample (68), sample buffer (72).",
        "kelfun record session.channels session.samples --time u32ms",
        "kelfun record session.channels session.samples --time u32ms --only RPM --only 'GPS Speed' --unit mph --csv",
        "kelfun record session.channels session.samples --time u32ms --plot - --x distance --from 0:30"));
    comando.esegue([argomenti] { esegui(*argomenti); });
}

}  // namespace kel::strumento
