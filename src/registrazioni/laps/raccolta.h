// What a recording or a capture holds of laps: fixes, and laps that the logger has timed.
#ifndef KEL_REGISTRAZIONI_RACCOLTA_H
#define KEL_REGISTRAZIONI_RACCOLTA_H

#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "IFunzioni.h"
#include "gps/orologio_gps.h"
#include "gps/soluzione.h"
#include "laps/fix.h"
#include "laps/giri.h"
#include "laps/giri_registrati.h"
#include "recordings/colonna.h"

namespace kel_registrazioni {

/// The fix of a solution, at a time of the receiver's clock. A fix in the plane is not used: its height is an old one, and
/// the error of that moves the position by metres.
Fix fix_di(const Soluzione& soluzione, OrologioGps& orologio);

/// The records of a recording, one after the other.
class RaccoltaRecord {
public:
    RaccoltaRecord(const IFunzioni& catalogo, std::span<const s_kel_canale> canali);

    /// The channel that laps are read from: "'Lap packet'"; "" where there is none.
    const std::string& canale_giri() const { return canale_giri_; }
    bool ha_gps() const { return gps_.has_value(); }
    /// Lap numbers without any time of laps: the times are those of the records.
    bool solo_numeri() const { return numero_ && !tempo_ && !corrente_; }

    void aggiungi(std::optional<double> tempo, const std::uint8_t* campioni);

    /// One fix a solution, on the receiver's clock.
    std::vector<Fix> fix_del_ricevitore() const;
    /// The receiver's time when the logger's clock was 0, as it was at a solution; if records have no times, at that solution.
    double inizio_del_ricevitore(std::size_t soluzione) const;
    /// One fix for each record, on the logger's clock. A record without a new solution has only a speed. If records have no
    /// time, there are no fixes.
    std::vector<Fix> fix_dei_record() const;

    /// The logger's laps. Call it once all records have been put in. If `guida`, made of `fix_dei_record`, knows the times,
    /// the way out and the way in are added.
    std::vector<Giro> giri_del_registratore(const Guida& guida) const;

private:
    enum class Formato { pacchetto_2g, pacchetto_1g, canali };

    void cerca_giri(const IFunzioni& catalogo, std::span<const s_kel_canale> canali);
    void cerca_velocita(const IFunzioni& catalogo, std::span<const s_kel_canale> canali);
    StatoCronometro cronometro(const std::uint8_t* campioni);

    struct Ritorno;

    struct Riga {
        double tempo = 0;
        float velocita = 0;           // m/s, of the wheels
        std::int32_t soluzione = -1;  // that is new in it
    };

    std::string canale_giri_;
    Formato formato_ = Formato::canali;
    std::size_t offset_giri_ = 0;
    std::optional<ColonnaDati> numero_, tempo_, corrente_;
    std::optional<ColonnaDati> velocita_;
    struct Gps {
        std::size_t offset = 0;  // of the payload of NAV-SOL
        OrologioGps orologio;
        std::optional<std::uint32_t> ultimo;
    };
    std::optional<Gps> gps_;
    GiriRegistrati giri_;
    bool con_tempo_ = true;
    int ultimo_1g_ = 0;
    int tempo_1g_ = 0;
    int giri_1g_ = 0;
    // They grow with the recording, and never move: a vector would need three times the room while it does.
    std::deque<Riga> righe_;
    std::deque<Fix> soluzioni_;
};

}  // namespace kel_registrazioni

#endif
