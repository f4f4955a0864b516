// A season of many karts, to try programs on that read recordings by the thousand.
#ifndef KELSIM_FLOTTA_H
#define KELSIM_FLOTTA_H

#include <cstdint>
#include <string>
#include <vector>

#include "centralina.h"
#include "circuito.h"
#include "kart.h"

namespace kel::simulatore {

/// What is wrong with the files of a session.
enum class Danno {
    nessuno,
    canali_mozzi,       ///< the channel records end within one
    canali_corrotti,    ///< their bytes are noise
    campioni_mancanti,  ///< there is no file of samples
};

/// A drive of one kart, and how it is recorded.
struct Sessione {
    std::string cartella;  ///< KART/DATE
    std::string nome;      ///< of its files, without the ending
    unsigned circuito = 0;
    Partenza partenza;
    unsigned giri = 1;
    unsigned frequenza = 10;
    std::uint64_t seme = 0;
    bool cattura = false;  ///< of the receiver instead of the logger
    Guasto guasto = Guasto::nessuno;
    Danno danno = Danno::nessuno;
};

/// Recordings of a fleet. Each follows from its number and the arguments alone: the same arguments write the same bytes.
class Flotta {
public:
    /// @param quante     recordings.
    /// @param guaste     damaged ones of these.
    /// @param giri       most laps of a session.
    /// @param frequenza  records a second; every fourth kart has half of it.
    Flotta(unsigned quante, unsigned guaste, unsigned giri, unsigned frequenza, std::uint64_t seme);

    /// A recording, `quale` below their number.
    Sessione sessione(unsigned quale) const;

    /// Writes all of them below a folder, which is made. Where that fails, an exception says why.
    void scrivi(const std::string& cartella) const;

private:
    void scrivi_sessione(const Sessione& sessione, const std::string& senza_fine) const;
    Danno danno(unsigned quale) const;

    unsigned quante_, guaste_, giri_, frequenza_;
    std::uint64_t seme_;
    unsigned kart_;  // how many
    std::vector<Circuito> circuiti_;
};

}  // namespace kel::simulatore

#endif
