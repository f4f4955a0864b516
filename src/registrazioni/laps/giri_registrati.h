// Laps as a logger has timed them: out of the lap number and the lap time that stand in every record.
#ifndef KEL_REGISTRAZIONI_GIRI_REGISTRATI_H
#define KEL_REGISTRAZIONI_GIRI_REGISTRATI_H

#include <cstddef>
#include <optional>
#include <vector>

namespace kel_registrazioni {

/// What one record says of laps. What the logger does not record is nothing.
struct StatoCronometro {
    std::optional<int> numero;       ///< of the last lap; without a time beside it, of the lap now running
    std::optional<int> ms;           ///< of the last lap
    std::optional<int> corrente_ms;  ///< of the lap now running
};

struct GiroRegistrato {
    int numero = 0;
    int ms = 0;
    std::size_t record = 0;      ///< the first behind the line
    std::optional<double> fine;  ///< s, when the line was passed; nothing where records have no time
};

/// Watches how number and time change from record to record. The lap in the first record was driven before the recording.
class GiriRegistrati {
public:
    void aggiungi(std::optional<double> tempo, const StatoCronometro& stato);
    /// All laps, once all records have been put in.
    std::vector<GiroRegistrato> chiudi();

private:
    void chiudi_giro();

    std::size_t record_ = 0;
    StatoCronometro prima_;  // as the last lap left it
    StatoCronometro ora_;
    std::optional<double> tempo_;  // of the last record
    // A change that has been seen; where number and time are channels of their own they may change one after the other.
    struct Attesa {
        std::size_t record = 0;
        std::optional<double> tempo, fine;
    };
    std::optional<Attesa> attesa_;
    std::optional<double> ultima_fine_;
    int contati_ = 0;
    std::vector<GiroRegistrato> giri_;
};

}  // namespace kel_registrazioni

#endif
