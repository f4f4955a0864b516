// Laps behind the C face.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "common/errore.h"
#include "common/numeri.h"
#include "face/chiamata.h"
#include "laps/andamento.h"
#include "laps/lettura.h"
#include "laps/linea.h"
#include "recordings/tabella_record.h"
#include "recordings/tabella_ubx.h"

namespace kel_registrazioni {

namespace {

constexpr double SENZA = std::numeric_limits<double>::quiet_NaN();
constexpr double MINIMO = 10;  // s
constexpr double MINIMO_MASSIMO = 3600;

// Numbers that a text of a line would take; the same limits, so that what is said can be read back.
Linea linea_di(const s_kel_linea& data, const char* nome) {
    const Linea linea{data.latitudine, data.longitudine, data.rotta,
                      data.larghezza != 0 ? data.larghezza : Linea::LARGHEZZA};
    if (!valida(linea))
        throw Errore(std::string(nome) +
                     " is no line; accepted: latitude, longitude and heading in degrees, and a width of up to 1000 m");
    return linea;
}

ScelteGiri scelte_di(const s_kel_scelte_giri& date, const Parole& parole, const IFunzioni& catalogo) {
    ScelteGiri scelte;
    if (date.fonte > KEL_GIRI_GPS)
        throw Errore("fonte is none; accepted: 0 to 2");
    scelte.fonte = static_cast<FonteGiri>(date.fonte);
    if (date.linea != nullptr)
        scelte.linea = linea_di(*date.linea, parole.linea);
    scelte.minimo = date.minimo != 0 ? date.minimo : MINIMO;
    if (!(scelte.minimo >= 1 && scelte.minimo <= MINIMO_MASSIMO))
        throw Errore(std::string(parole.minimo) + " is no time; accepted: seconds, 1 to 3600, or 0 for 10");
    scelte.udm = date.udm != nullptr ? date.udm : catalogo.getUnitaBase(KEL_FID_GPS_VELOCITA);
    std::list<std::string> unita;
    catalogo.getFunzUIVs(KEL_FID_GPS_VELOCITA, unita);
    if (std::ranges::find(unita, scelte.udm) == unita.end())
        throw Errore("udm '" + scelte.udm + "' is no unit of a speed; accepted: km/h, mph");
    scelte.fattore = da_metri_al_secondo(catalogo, scelte.udm);
    return scelte;
}

std::vector<Intermedio> intermedi_di(const s_kel_scelte_giri& date, const Parole& parole) {
    std::vector<Intermedio> intermedi;
    for (unsigned i = 0; i < date.num_intermedi; ++i) {
        const s_kel_intermedio& uno = date.intermedi[i];
        if (uno.metri == 0)
            intermedi.emplace_back(linea_di(uno.linea, parole.intermedio));
        else if (uno.metri > 0 && std::isfinite(uno.metri))
            intermedi.emplace_back(Metri{uno.metri, uno.detto != nullptr ? uno.detto : breve(uno.metri)});
        else
            throw Errore(std::string(parole.intermedio) +
                         " has metres that are none; accepted: above 0, or 0 and a line");
    }
    return intermedi;
}

double oppure(const std::optional<double>& valore) {
    return valore.value_or(SENZA);
}

}  // namespace

}  // namespace kel_registrazioni

struct s_kel_giri {
    std::shared_ptr<kel_registrazioni::Tabella> tabella;
    std::uint64_t aggiunte = 0;                                 // rows
    std::optional<kel_registrazioni::RaccoltaRecord> raccolta;  // of records
    std::vector<kel_registrazioni::Fix> fix;                    // of a receiver
    kel_registrazioni::OrologioGps orologio;
    std::unique_ptr<IFunzioni> catalogo;
    kel_registrazioni::Lettura lettura;
    std::vector<std::vector<std::int32_t>> settori;
    std::string detto;
};

using namespace kel_registrazioni;

s_kel_giri* kelGiriApri(const s_kel_registrazione* reg, s_kel_errore* errore) noexcept {
    return chiama(errore, static_cast<s_kel_giri*>(nullptr), [&] {
        auto giri = std::make_unique<s_kel_giri>();
        giri->tabella = reg->tabella;
        giri->catalogo.reset(IFunzioni::CreateMe());
        if (const auto* record = dynamic_cast<const TabellaRecord*>(reg->tabella.get()))
            giri->raccolta.emplace(record->catalogo(), record->canali());
        return giri.release();
    });
}

void kelGiriChiudi(s_kel_giri* giri) noexcept {
    delete giri;
}

int kelGiriAggiungi(s_kel_giri* giri, s_kel_errore* errore) noexcept {
    return chiama(errore, 0, [&] {
        Tabella& tabella = *giri->tabella;
        if (tabella.prima() > giri->aggiunte)
            throw Errore("rows from " + std::to_string(giri->aggiunte) + " to " + std::to_string(tabella.prima()) +
                         " are at hand no longer");
        const std::uint64_t fine = tabella.prima() + tabella.righe();
        for (; giri->aggiunte < fine; ++giri->aggiunte) {
            const std::uint64_t riga = giri->aggiunte;
            if (giri->raccolta)
                giri->raccolta->aggiungi(tabella.con_tempo() ? std::optional(tabella.secondi(riga)) : std::nullopt,
                                         static_cast<TabellaRecord&>(tabella).campioni(riga));
            else
                giri->fix.push_back(fix_di(static_cast<TabellaUbx&>(tabella).soluzione(riga), giri->orologio));
        }
        return 1;
    });
}

int kelGiriCalcola(s_kel_giri* giri, const s_kel_scelte_giri* scelte, s_kel_errore* errore) noexcept {
    return chiama(errore, 0, [&] {
        // Until all is computed there are no laps: neither those of another choice nor some of these.
        giri->detto.clear();
        giri->settori.clear();
        giri->lettura = {};
        const s_kel_scelte_giri date = scelte != nullptr ? *scelte : s_kel_scelte_giri{};
        const Parole parole = parole_di(date.parole);
        const ScelteGiri chieste = scelte_di(date, parole, *giri->catalogo);
        const std::vector<Intermedio> intermedi = intermedi_di(date, parole);
        const Dillo dillo = [giri](std::string riga) {
            std::ranges::replace(riga, '\n', ' ');  // a channel's name may hold any bytes
            giri->detto += riga + "\n";
        };
        Lettura lettura;
        if (giri->raccolta) {
            lettura = giri_della_registrazione(*giri->raccolta, chieste, parole, dillo);
        } else {
            if (giri->fix.empty())
                throw Errore("there is no NAV-SOL and no NAV-PVT message in it");
            lettura = giri_della_cattura(giri->fix, chieste, parole, dillo);
        }
        di_sessioni(lettura.guida, dillo);
        misura(lettura.giri, lettura.guida);
        dividi(lettura.giri, lettura.guida, linee_intermedie(lettura, intermedi, parole, dillo));
        std::vector<std::vector<std::int32_t>> settori;
        for (const Giro& giro : lettura.giri) {
            auto& suoi = settori.emplace_back();
            for (const std::optional<int>& ms : giro.settori)
                suoi.push_back(ms.value_or(-1));
        }
        giri->settori = std::move(settori);
        giri->lettura = std::move(lettura);
        return 1;
    });
}

const char* kelGiriDetto(const s_kel_giri* giri) noexcept {
    return giri->detto.c_str();
}

unsigned kelGiriNumero(const s_kel_giri* giri) noexcept {
    return static_cast<unsigned>(giri->settori.size());
}

int kelGiriGiro(const s_kel_giri* giri, unsigned quale, s_kel_giro* giro) noexcept {
    if (quale >= giri->settori.size())
        return 0;
    const Lettura& lettura = giri->lettura;
    const Giro& suo = lettura.giri[quale];
    const Giro* primo = migliore(lettura.giri);
    const bool conta = suo.chiuso() && suo.stato == StatoGiro::buono;
    giro->numero = suo.numero;
    giro->sessione = static_cast<std::uint32_t>(suo.sessione);
    giro->stato = static_cast<eKelStatoGiro>(suo.stato);
    giro->migliore = &suo == primo ? 1 : 0;
    giro->ms = suo.ms.value_or(-1);
    giro->num_settori = static_cast<std::uint32_t>(giri->settori[quale].size());
    giro->settori = giri->settori[quale].data();
    giro->inizio = suo.inizio ? *suo.inizio - lettura.origini[suo.sessione] : SENZA;
    giro->distacco = conta ? (*suo.ms - *primo->ms) / 1000.0 : SENZA;
    giro->massima = oppure(suo.massima);
    giro->minima = oppure(suo.minima);
    giro->metri = oppure(suo.metri);
    giro->campioni = suo.campioni;
    return 1;
}

int kelGiriLinea(const char* testo, s_kel_linea* linea) noexcept {
    return chiama(nullptr, 0, [&] {
        const auto letta = leggi_linea(testo);
        if (!letta)
            return 0;
        *linea = {letta->latitudine, letta->longitudine, letta->rotta, letta->larghezza};
        return 1;
    });
}

const char* kelGiriNomeStato(eKelStatoGiro stato) noexcept {
    return stato <= KEL_GIRO_FERMO ? nome(static_cast<StatoGiro>(stato)).data() : nullptr;
}

size_t kelGiriAndamento(const s_kel_giri* giri, unsigned quale, double lunghezza, s_kel_punto_giro* punti,
                        size_t capienza) noexcept {
    return chiama(nullptr, std::size_t{0}, [&] {
        if (quale >= giri->settori.size() || !(lunghezza > 0))
            return std::size_t{0};
        const std::vector<PuntoGiro> suoi = andamento(giri->lettura.giri[quale], giri->lettura.guida, lunghezza);
        for (std::size_t i = 0; punti != nullptr && i < std::min(capienza, suoi.size()); ++i)
            punti[i] = {suoi[i].metri, suoi[i].secondi, oppure(suoi[i].velocita), suoi[i].staccato ? 1 : 0};
        return suoi.size();
    });
}

size_t kelGiriFix(const s_kel_giri* giri, unsigned quale, s_kel_fix* fix, size_t capienza) noexcept {
    return chiama(nullptr, std::size_t{0}, [&] {
        if (quale >= giri->settori.size() || !giri->lettura.giri[quale].inizio)
            return std::size_t{0};
        const Guida& guida = giri->lettura.guida;
        const auto [primo, oltre] = fix_del_giro(giri->lettura.giri[quale], guida);
        for (std::size_t i = primo; fix != nullptr && i < oltre && i - primo < capienza; ++i) {
            const Fix& uno = guida.fix()[i];
            fix[i - primo] = {uno.valido ? uno.latitudine : SENZA, uno.valido ? uno.longitudine : SENZA,
                              oppure(uno.valido ? guida.velocita(i) : uno.velocita)};
        }
        return oltre - primo;
    });
}
