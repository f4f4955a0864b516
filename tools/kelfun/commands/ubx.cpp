// kelfun ubx: the GPS solutions of a u-blox byte stream.
#include <memory>
#include <optional>

#include "captures/navsol.h"
#include "captures/vista_gps.h"
#include "cli/esempi.h"
#include "cli/forma.h"
#include "commands/comandi.h"
#include "domain/identificatore.h"
#include "io/ingresso.h"
#include "plots/destinazione_grafico.h"
#include "plots/grafico_soluzioni.h"
#include "plots/opzioni_grafico.h"
#include "registrazioni/gps/fid_gps.h"
#include "registrazioni/gps/lettore_soluzioni.h"
#include "text/chiavi.h"
#include "text/errori.h"
#include "text/numeri.h"
#include "text/parole.h"

namespace kel::strumento {

namespace {

struct Argomenti {
    std::string file;
    std::string udm;
    std::optional<unsigned> decimali = 3;
    SceltaGrafico grafico;
    bool dispositivo = false;
    SceltaForma forma;
};

/// What a run shows: a table's columns and a row for each solution, and its point in a plot.
class Vista {
public:
    Vista() = default;
    Vista(const Vista&) = delete;
    Vista& operator=(const Vista&) = delete;
    virtual ~Vista() = default;

    virtual std::vector<Colonna> colonne() const = 0;
    virtual std::vector<Cella> celle(const LettoreSoluzioni& lettore) const = 0;
    virtual PuntoGps punto(const LettoreSoluzioni& lettore) const = 0;
};

/// WGS 84, from the message's own numbers.
class VistaWgs84 : public Vista {
public:
    VistaWgs84(const IFunzioni& catalogo, const std::string& udm, unsigned decimali)
        : udm_(udm), fattore_(da_metri_al_secondo(catalogo, udm)), decimali_(static_cast<int>(decimali)) {}

    std::vector<Colonna> colonne() const override {
        std::vector<Colonna> tutte = {{"time_of_week_ms", "TIME OF WEEK ms", Lato::destra, 15}};
        for (const CampoGps campo : CAMPI_GPS) {
            const AspettoGps& suo = aspetto(campo);
            const std::string udm = campo == CampoGps::velocita ? udm_ : suo.udm;
            tutte.push_back({chiave_con_udm(suo.nome, udm),
                             std::string(testata_gps(campo)) + (udm.empty() ? "" : " " + udm), Lato::destra,
                             larghezza_gps(campo)});
        }
        return tutte;
    }

    std::vector<Cella> celle(const LettoreSoluzioni& lettore) const override {
        std::vector<Cella> tutte = {Cella::intero(lettore.soluzione().settimana_ms)};
        for (const CampoGps campo : CAMPI_GPS)
            tutte.push_back(cella_gps(lettore.soluzione(), campo, fattore_, decimali_));
        return tutte;
    }

    PuntoGps punto(const LettoreSoluzioni& lettore) const override {
        const Soluzione& s = lettore.soluzione();
        PuntoGps punto{s.settimana_ms, s.satelliti, {}, {}, s.andatura()};
        if (s.luogo) {
            punto.latitudine = s.luogo->latitudine;
            punto.longitudine = s.luogo->longitudine;
        }
        if (punto.velocita)
            *punto.velocita *= fattore_;
        return punto;
    }

private:
    std::string udm_;
    double fattore_;
    int decimali_;
};

/// What the device shows: the library's values and texts of the logger's GPS packet.
class VistaDispositivo : public Vista {
public:
    VistaDispositivo(IFunzioni& catalogo, const std::string& udm, unsigned decimali)
        : udm_(udm), canale_(catalogo, udm, decimali) {}

    std::vector<Colonna> colonne() const override {
        return {{"time_of_week_ms", "TIME OF WEEK ms", Lato::destra, 15},
                {"fix", "FIX", Lato::destra, 3},
                {"satellites", "SATS", Lato::destra, 4},
                {"longitude_deg", "LONGITUDE deg", Lato::destra, 11},
                {"latitude_library_rule_deg", "LATITUDE+-0.19 deg", Lato::destra, 14},
                {chiave_con_udm("speed", udm_), "SPEED " + udm_, Lato::destra, 10},
                {"position_accuracy_low_byte_cm", "POS.ACC LOW BYTE cm", Lato::destra, 19},
                {"speed_accuracy_low_byte_cm_s", "SPD.ACC LOW BYTE cm/s", Lato::destra, 21}};
    }

    std::vector<Cella> celle(const LettoreSoluzioni& lettore) const override {
        constexpr int DECIMALI_GRADI = 6;  // a float near 100 degrees is worth 0.000008
        const SoluzioneDispositivo s = canale_.leggi(lettore.nav_sol());
        return {Cella::intero(s.settimana_ms),
                Cella::intero(s.fix),
                Cella::intero(s.satelliti),
                Cella::numero(s.longitudine, DECIMALI_GRADI),
                Cella::numero(s.latitudine, DECIMALI_GRADI),
                Cella::numero(s.velocita, s.testo_velocita),
                Cella::intero(s.accuratezza_posizione),
                Cella::intero(s.accuratezza_velocita)};
    }

    PuntoGps punto(const LettoreSoluzioni& lettore) const override {
        const SoluzioneDispositivo s = canale_.leggi(lettore.nav_sol());
        if (s.fix < GPS_FIX_MINIMO || s.satelliti < GPS_SATELLITI_MINIMI)
            return {s.settimana_ms, s.satelliti, {}, {}, {}};
        return {s.settimana_ms, s.satelliti, s.latitudine, s.longitudine, s.velocita};
    }

private:
    std::string udm_;
    CanaleNavSol canale_;
};

std::string riassunto(const LettoreSoluzioni& lettore) {
    const auto n = [](std::uint64_t valore) { return std::to_string(valore); };
    const ConteggiSoluzioni& s = lettore.conteggi();
    const ConteggiUbx& c = lettore.byte();
    std::string testo = n(s.soluzioni) + " solutions in " + n(c.byte) + " bytes; skipped: " + n(c.byte_fuori) +
                        " bytes outside messages, " + n(s.altri) + " other messages, " + n(c.checksum_errati) +
                        " bad checksums, " + n(s.lunghezza_errata) + " NAV-SOL or NAV-PVT of wrong length, " +
                        n(c.byte_troncati) + " bytes truncated at the end";
    if (s.stessa_epoca != 0)
        testo += "\nthere are both NAV-SOL and NAV-PVT in it: the first of each epoch is shown, " + n(s.stessa_epoca) +
                 " of the other kind are left out";
    return testo;
}

[[noreturn]] void senza_soluzioni(const LettoreSoluzioni& lettore) {
    const std::string messaggi = elenco_messaggi(lettore.conteggi());
    throw NonTrovato("there is no NAV-SOL (01 06) and no NAV-PVT (01 07) message in it; " +
                     (messaggi.empty() ? "it holds no UBX message at all"
                                       : "the messages that it holds, by class and id: " + messaggi));
}

void esegui(const Argomenti& argomenti) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    const std::string udm = leggi_udm(*catalogo, CanaleNavSol::fid_velocita(), argomenti.udm);
    std::unique_ptr<Vista> vista;
    if (argomenti.dispositivo)
        vista = std::make_unique<VistaDispositivo>(*catalogo, udm, *argomenti.decimali);
    else
        vista = std::make_unique<VistaWgs84>(*catalogo, udm, *argomenti.decimali);
    std::optional<DestinazioneGrafico> destinazione;
    const Tratto tratto = tratto_scelto(argomenti.grafico, true);
    if (argomenti.grafico.file)
        destinazione.emplace(argomenti.grafico);
    Ingresso ingresso(argomenti.file);
    ingresso.mostra_avanzamento(!destinazione);
    LettoreSoluzioni lettore(
        [&ingresso](std::uint8_t* byte, std::size_t quanti) { return ingresso.leggi(byte, quanti); });

    if (destinazione) {
        GraficoSoluzioni grafico(udm, 1 / da_metri_al_secondo(*catalogo, udm), tratto);
        while (lettore.prossima())
            grafico.aggiungi(vista->punto(lettore));
        std::vector<Nota> note = grafico.chiudi();
        grafico.grafico().titolo = titolo_grafico(argomenti.file);
        for (const std::string& riga : dividi(riassunto(lettore), '\n'))
            note.push_back({riga, {}, ""});
        if (lettore.conteggi().soluzioni != 0)
            destinazione->disegna(grafico.grafico(), note, false);
        else
            std::fputs((riassunto(lettore) + "\n").c_str(), stderr);
    } else {
        Documento documento(stdout, argomenti.forma.forma());
        documento.inizia("solutions", "", vista->colonne(), true);
        while (lettore.prossima())
            documento.riga(vista->celle(lettore));
        documento.fine();
        std::fputs((riassunto(lettore) + "\n").c_str(), stderr);
    }
    if (lettore.conteggi().soluzioni == 0)
        senza_soluzioni(lettore);
}

}  // namespace

void aggiungi_ubx(CLI::App& programma) {
    auto argomenti = std::make_shared<Argomenti>();
    Comando comando(programma, "ubx", "GPS solutions (UBX NAV-SOL and NAV-PVT) of a u-blox byte stream");
    comando.opzione("FILE", argomenti->file, "Capture, or - for standard input").valore("").obbligatoria();
    comando.opzione("--unit", argomenti->udm, "Unit of the speed: km/h (default) or mph").valore("UNIT");
    comando.intero("--decimals", argomenti->decimali, 0, 3, "Decimals of the speed, 0 to 3 (default 3)");
    comando.bandiera("--device", argomenti->dispositivo,
                     "Show what the device shows: the library's values and texts of the logger's GPS packet");
    aggiungi_forma(comando, argomenti->forma, {"solutions"});
    aggiungi_grafico(comando, argomenti->grafico);
    aggiungi_tratto(comando, argomenti->grafico);
    comando.note(esempi(
        "Positions are in WGS 84, computed in double precision from the message's own numbers. The altitude is above\n"
        "the ellipsoid. Fix 2 gives position and speed, fix 3 and 4 also altitude and climb. Without a fix the cells\n"
        "are empty.\n"
        "With --device every value is what the library makes of the logger's GPS packet:\n"
        "- The latitude takes the packet's centimetres as if they were metres, and is up to 0.19 degrees from WGS 84\n"
        "  (most at 45 degrees). The longitude is a 32-bit float, with steps of up to 1.7 m.\n"
        "- The speed is 0 while the fix is below 3 or fewer than 4 satellites are used.\n"
        "- The accuracies are only the low byte of the message's 32-bit fields: 300 cm shows as 44.\n"
        "What was skipped, and why, goes to standard error.",
        "kelfun ubx capture.ubx", "kelfun ubx capture.ubx --unit mph --csv",
        "kelsim - | kelfun ubx - --device --decimals 1"));
    comando.esegue([argomenti] { esegui(*argomenti); });
}

}  // namespace kel::strumento
