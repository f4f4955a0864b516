// kelfun ubx: the NAV-SOL solutions of a u-blox byte stream.
#include <memory>
#include <optional>

#include "captures/flusso_ubx.h"
#include "captures/navsol.h"
#include "cli/esempi.h"
#include "cli/forma.h"
#include "commands/comandi.h"
#include "domain/identificatore.h"
#include "io/ingresso.h"
#include "plots/destinazione_grafico.h"
#include "plots/grafico_soluzioni.h"
#include "text/chiavi.h"
#include "text/errori.h"
#include "text/numeri.h"

namespace kel::strumento {

namespace {

struct Argomenti {
    std::string file;
    std::string udm;
    std::string decimali = "3";
    std::optional<std::string> grafico;
    SceltaForma forma;
};

struct Riassunto {
    std::uint64_t soluzioni = 0;
    std::uint64_t altri = 0;
    std::uint64_t lunghezza_errata = 0;
};

void stampa(const Riassunto& r, const ConteggiUbx& c) {
    const auto n = [](std::uint64_t valore) { return std::to_string(valore); };
    const std::string testo = n(r.soluzioni) + " solutions in " + n(c.byte) + " bytes; skipped: " + n(c.byte_fuori) +
                              " bytes outside messages, " + n(r.altri) + " other messages, " + n(c.checksum_errati) +
                              " bad checksums, " + n(r.lunghezza_errata) + " NAV-SOL of wrong length, " +
                              n(c.byte_troncati) + " bytes truncated at the end\n";
    std::fputs(testo.c_str(), stderr);
}

std::vector<Colonna> colonne(const std::string& udm) {
    return {{"time_of_week_ms", "TIME OF WEEK ms", Lato::destra, 15},
            {"fix", "FIX", Lato::destra, 3},
            {"satellites", "SATS", Lato::destra, 4},
            {"longitude_deg", "LONGITUDE deg", Lato::destra, 11},
            {"latitude_library_rule_deg", "LATITUDE+-0.19 deg", Lato::destra, 14},
            {chiaveConUdm("speed", udm), "SPEED " + udm, Lato::destra, 10},
            {"position_accuracy_low_byte_cm", "POS.ACC LOW BYTE cm", Lato::destra, 19},
            {"speed_accuracy_low_byte_cm_s", "SPD.ACC LOW BYTE cm/s", Lato::destra, 21}};
}

std::vector<Cella> celle(const Soluzione& s) {
    constexpr int DECIMALI_GRADI = 6;  // a float near 100 degrees is worth 0.000008
    return {Cella::intero(s.settimana_ms),
            Cella::intero(s.fix),
            Cella::intero(s.satelliti),
            Cella::numero(s.longitudine, DECIMALI_GRADI),
            Cella::numero(s.latitudine, DECIMALI_GRADI),
            Cella::numero(s.velocita, s.testo_velocita),
            Cella::intero(s.accuratezza_posizione),
            Cella::intero(s.accuratezza_velocita)};
}

template <typename Mostra>
Riassunto leggi(LettoreUbx& lettore, const CanaleNavSol& canale, Mostra mostra) {
    Riassunto riassunto;
    MessaggioUbx messaggio;
    while (lettore.prossimo(messaggio)) {
        if (messaggio.classe != NAV_SOL_CLASSE || messaggio.id != NAV_SOL_ID) {
            ++riassunto.altri;
        } else if (messaggio.dati.size() != NAV_SOL_BYTE) {
            ++riassunto.lunghezza_errata;
        } else {
            ++riassunto.soluzioni;
            mostra(canale.leggi(std::span<const std::uint8_t, NAV_SOL_BYTE>(messaggio.dati.data(), NAV_SOL_BYTE)));
        }
    }
    return riassunto;
}

void esegui(const Argomenti& argomenti) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    const std::string udm = leggiUdm(*catalogo, CanaleNavSol::fidVelocita(), argomenti.udm);
    const auto decimali = leggiIntero(argomenti.decimali, 0, 3);
    if (!decimali)
        throw ErroreUso("--decimals '" + argomenti.decimali + "' is no number of decimals; accepted: 0 to 3");
    const CanaleNavSol canale(*catalogo, udm, static_cast<unsigned>(*decimali));
    std::optional<DestinazioneGrafico> destinazione;
    if (argomenti.grafico)
        destinazione.emplace(*argomenti.grafico);
    Ingresso ingresso(argomenti.file);
    ingresso.mostraAvanzamento(!destinazione);
    LettoreUbx lettore([&ingresso](std::uint8_t* byte, std::size_t quanti) { return ingresso.leggi(byte, quanti); });

    Riassunto riassunto;
    if (destinazione) {
        GraficoSoluzioni grafico(titoloGrafico(argomenti.file), udm);
        riassunto = leggi(lettore, canale, [&grafico](const Soluzione& s) { grafico.aggiungi(s); });
        if (riassunto.soluzioni != 0)
            destinazione->disegna(grafico.grafico());
    } else {
        Documento documento(stdout, argomenti.forma.forma());
        documento.inizia("solutions", "", colonne(udm), true);
        riassunto = leggi(lettore, canale, [&documento](const Soluzione& s) { documento.riga(celle(s)); });
        documento.fine();
    }
    stampa(riassunto, lettore.conteggi());
    if (riassunto.soluzioni == 0)
        throw NonTrovato("there is no NAV-SOL message in it");
}

}  // namespace

void aggiungiUbx(CLI::App& programma) {
    auto argomenti = std::make_shared<Argomenti>();
    Comando comando(programma, "ubx", "GPS solutions (UBX NAV-SOL) of a u-blox byte stream");
    comando.opzione("FILE", argomenti->file, "Capture, or - for standard input").valore("").obbligatoria();
    comando.opzione("--unit", argomenti->udm, "Unit of the speed: km/h (default) or mph").valore("UNIT");
    comando.opzione("--decimals", argomenti->decimali, "Decimals of the speed, 0 to 3 (default 3)").valore("{0,1,2,3}");
    aggiungiForma(comando, argomenti->forma, {"solutions"});
    aggiungiGrafico(comando, argomenti->grafico);
    comando.note(esempi(
        "Every value is what the library makes of the logger's GPS packet:\n"
        "- The latitude follows the library's own rule, which takes the packet's centimetres as if they were metres:\n"
        "  it lies up to 0.19 degrees from WGS 84 (most at 45 degrees, none at the equator and the poles).\n"
        "- The speed is 0 while the fix is below 3 or fewer than 4 satellites are used.\n"
        "- The accuracies are only the low byte of the message's 32-bit fields: 300 cm shows as 44.\n"
        "What was skipped, and why, goes to standard error.",
        "kelfun ubx capture.ubx", "kelfun ubx capture.ubx --unit mph --csv", "kelsim - | kelfun ubx - --decimals 1"));
    comando.esegue([argomenti] { esegui(*argomenti); });
}

}  // namespace kel::strumento
