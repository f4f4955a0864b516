// kelfun ubx: the GPS solutions of a u-blox byte stream.
#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "captures/blocco_record.h"
#include "captures/flusso.h"
#include "captures/messaggi_ubx.h"
#include "captures/navsol.h"
#include "captures/registrazione.h"
#include "captures/vista_gps.h"
#include "cli/esempi.h"
#include "cli/forma.h"
#include "commands/comandi.h"
#include "domain/identificatore.h"
#include "plots/destinazione_grafico.h"
#include "plots/grafico_soluzioni.h"
#include "plots/opzioni_grafico.h"
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

/// A solution of the rows at hand.
struct Riga {
    const Registrazione& reg;
    const BloccoRecord& blocco;
    std::size_t riga;  // of the block

    std::optional<double> valore(eKelCampo campo) const { return blocco.valore(campo, riga); }
    std::uint32_t settimana_ms() const { return blocco.come_intero(0, riga); }
    unsigned satelliti() const { return blocco.come_intero(KEL_CAMPO_SATELLITI, riga); }
};

/// What a run shows: a table's columns and a row for each solution, and its point in a plot.
class Vista {
public:
    Vista() = default;
    Vista(const Vista&) = delete;
    Vista& operator=(const Vista&) = delete;
    virtual ~Vista() = default;

    virtual std::vector<Colonna> colonne() const = 0;
    virtual std::vector<Cella> celle(const Riga& riga) const = 0;
    virtual PuntoGps punto(const Riga& riga) const = 0;
};

/// WGS 84, from the message's own numbers. Column i of the stream, behind the time of week, is field i.
class VistaWgs84 : public Vista {
public:
    VistaWgs84(const Registrazione& reg, unsigned decimali) : decimali_(static_cast<int>(decimali)) {
        for (unsigned i = 0; i < kelRegNumColonne(reg.reg()); ++i) {
            s_kel_descrizione d{};
            kelRegDescrivi(reg.reg(), i, &d);
            campi_.push_back(d);
        }
    }

    std::vector<Colonna> colonne() const override {
        std::vector<Colonna> tutte = {{"time_of_week_ms", "TIME OF WEEK ms", Lato::destra, 15}};
        for (const s_kel_descrizione& d : campi_) {
            const std::string udm = d.udm;
            if (d.campo != KEL_CAMPO_NESSUNO)
                tutte.push_back({chiave_con_udm(d.nome, udm),
                                 std::string(testata_gps(d.campo)) + (udm.empty() ? "" : " " + udm), Lato::destra,
                                 larghezza_gps(d.campo)});
        }
        return tutte;
    }

    std::vector<Cella> celle(const Riga& riga) const override {
        std::vector<Cella> tutte = {Cella::intero(riga.settimana_ms())};
        for (const s_kel_descrizione& d : campi_)
            if (d.campo != KEL_CAMPO_NESSUNO)
                tutte.push_back(cella_gps(riga.valore(d.campo),
                                          d.campo == KEL_CAMPO_UTC ? riga.blocco.testo(d.campo, riga.riga) : "",
                                          d.campo, d.campo == KEL_CAMPO_VELOCITA ? decimali_ : d.decimali));
        return tutte;
    }

    PuntoGps punto(const Riga& riga) const override {
        return {riga.settimana_ms(), riga.satelliti(), riga.valore(KEL_CAMPO_LATITUDINE),
                riga.valore(KEL_CAMPO_LONGITUDINE), riga.valore(KEL_CAMPO_VELOCITA)};
    }

private:
    std::vector<s_kel_descrizione> campi_;
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

    std::vector<Cella> celle(const Riga& riga) const override {
        constexpr int DECIMALI_GRADI = 6;  // a float near 100 degrees is worth 0.000008
        const SoluzioneDispositivo s = leggi(riga);
        return {Cella::intero(s.settimana_ms),
                Cella::intero(s.fix),
                Cella::intero(s.satelliti),
                Cella::numero(s.longitudine, DECIMALI_GRADI),
                Cella::numero(s.latitudine, DECIMALI_GRADI),
                Cella::numero(s.velocita, s.testo_velocita),
                Cella::intero(s.accuratezza_posizione),
                Cella::intero(s.accuratezza_velocita)};
    }

    PuntoGps punto(const Riga& riga) const override {
        const SoluzioneDispositivo s = leggi(riga);
        if (s.fix < KEL_GPS_FIX_MINIMO || s.satelliti < KEL_GPS_SATELLITI_MINIMI)
            return {s.settimana_ms, s.satelliti, {}, {}, {}};
        return {s.settimana_ms, s.satelliti, s.latitudine, s.longitudine, s.velocita};
    }

private:
    SoluzioneDispositivo leggi(const Riga& riga) const {
        std::array<std::uint8_t, KEL_NAV_SOL_BYTE> payload{};
        kelRegNavSol(riga.reg.reg(), riga.blocco.prima() + riga.riga, payload.data());
        return canale_.leggi(payload);
    }

    std::string udm_;
    CanaleNavSol canale_;
};

std::string riassunto(const s_kel_conteggi& c) {
    const auto n = [](std::uint64_t valore) { return std::to_string(valore); };
    std::string testo = n(c.soluzioni) + " solutions in " + n(c.byte) + " bytes; skipped: " + n(c.byte_fuori) +
                        " bytes outside messages, " + n(c.altri) + " other messages, " + n(c.checksum_errati) +
                        " bad checksums, " + n(c.lunghezza_errata) + " NAV-SOL or NAV-PVT of wrong length, " +
                        n(c.byte_troncati) + " bytes truncated at the end";
    if (c.stessa_epoca != 0)
        testo += "\nthere are both NAV-SOL and NAV-PVT in it: the first of each epoch is shown, " + n(c.stessa_epoca) +
                 " of the other kind are left out";
    return testo;
}

s_kel_conteggi conteggi(const Registrazione& reg) {
    s_kel_conteggi tutti{};
    kelRegConteggi(reg.reg(), &tutti);
    return tutti;
}

[[noreturn]] void senza_soluzioni(const Registrazione& reg) {
    const std::string messaggi = elenco_messaggi(reg);
    throw NonTrovato("there is no NAV-SOL (01 06) and no NAV-PVT (01 07) message in it; " +
                     (messaggi.empty() ? "it holds no UBX message at all"
                                       : "the messages that it holds, by class and id: " + messaggi));
}

// All columns of the stream, in their order: the device's view takes the time of week from them.
std::vector<VoceBlocco> voci(const Registrazione& reg) {
    std::vector<VoceBlocco> tutte;
    for (unsigned i = 0; i < kelRegNumColonne(reg.reg()); ++i) {
        s_kel_descrizione d{};
        kelRegDescrivi(reg.reg(), i, &d);
        tutte.push_back({i, d.valori, d.campo == KEL_CAMPO_UTC});
    }
    return tutte;
}

void scegli_velocita(const Registrazione& reg, const std::string& udm) {
    kelRegUnita(reg.reg(), KEL_CAMPO_VELOCITA, udm.c_str());
}

void esegui(const Argomenti& argomenti) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    const std::string udm = leggi_udm(*catalogo, CanaleNavSol::fid_velocita(), argomenti.udm);
    const Registrazione reg;
    scegli_velocita(reg, udm);
    std::unique_ptr<Vista> vista;
    if (argomenti.dispositivo)
        vista = std::make_unique<VistaDispositivo>(*catalogo, udm, *argomenti.decimali);
    else
        vista = std::make_unique<VistaWgs84>(reg, *argomenti.decimali);
    std::optional<DestinazioneGrafico> destinazione;
    const Tratto tratto = tratto_scelto(argomenti.grafico, true);
    if (argomenti.grafico.file)
        destinazione.emplace(argomenti.grafico);
    Flusso flusso(argomenti.file, reg);
    flusso.ingresso().mostra_avanzamento(!destinazione);
    BloccoRecord blocco(reg, voci(reg));
    const auto ogni_riga = [&](auto&& lavoro) {
        while (flusso.prossimo())
            a_blocchi(reg, blocco, [&] {
                for (std::size_t riga = 0; riga < blocco.righe(); ++riga)
                    lavoro(Riga{reg, blocco, riga});
            });
    };

    if (destinazione) {
        GraficoSoluzioni grafico(udm, 1 / kelRegFattoreVelocita(udm.c_str()), tratto);
        ogni_riga([&](const Riga& riga) { grafico.aggiungi(vista->punto(riga)); });
        std::vector<Nota> note = grafico.chiudi();
        grafico.grafico().titolo = titolo_grafico(argomenti.file);
        const s_kel_conteggi tutti = conteggi(reg);
        for (const std::string& riga : dividi(riassunto(tutti), '\n'))
            note.push_back({riga, {}, ""});
        if (tutti.soluzioni != 0)
            destinazione->disegna(grafico.grafico(), note, false);
        else
            std::fputs((riassunto(conteggi(reg)) + "\n").c_str(), stderr);
    } else {
        Documento documento(stdout, argomenti.forma.forma());
        documento.inizia("solutions", "", vista->colonne(), true);
        ogni_riga([&](const Riga& riga) { documento.riga(vista->celle(riga)); });
        documento.fine();
        std::fputs((riassunto(conteggi(reg)) + "\n").c_str(), stderr);
    }
    if (flusso.righe() == 0)
        senza_soluzioni(reg);
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
