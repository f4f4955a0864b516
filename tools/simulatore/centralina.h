// The kart's data logger: its channel set, and what it records at every solution of the receiver.
#ifndef KELSIM_CENTRALINA_H
#define KELSIM_CENTRALINA_H

#include <array>
#include <cstdint>
#include <string>

#include "kart.h"
#include "kel_funzioni.h"
#include "wgs84.h"

namespace kel::simulatore {

/// What is wrong with the kart or its sensors during a drive.
enum class Guasto {
    nessuno,
    sonda_staccata,    ///< the water's sensor gives no value
    surriscaldamento,  ///< the water boils in the end
    olio_basso,        ///< in fast left-hand corners the oil pump draws air
};

/// Records speed, engine and water, and the receiver's and the lap timer's packets. The same solutions give the same
/// records.
class Centralina {
public:
    /// @param giro_m  length of a lap, m.
    explicit Centralina(double giro_m, Guasto guasto = Guasto::nessuno);

    /// The channel records, 112 bytes each, as they lie in the logger's memory.
    std::string canali() const;

    /// The record of samples of a solution, its time stamp (32 bits, ms since the start) before it.
    std::string record(const Istante& istante, const PianoLocale& piano);

private:
    const s_kel_canale& aggiungi(kel_funpos fid, std::uint32_t tipo, const char* breve, const char* nome);
    static double laterale(const Istante& istante);
    double olio_bar(const Istante& istante) const;
    std::uint16_t acqua(const Istante& istante) const;
    void misura(const Istante& istante);
    void cronometra(const Istante& istante);
    void pacchetto_giro(std::string& record, std::uint32_t ora_ms) const;

    static constexpr unsigned CANALI = 9;
    std::array<s_kel_canale, CANALI> memoria_{};
    s_set_canali set_{};
    const s_kel_canale *velocita_, *giri_, *marcia_, *acceleratore_, *laterale_, *acqua_, *olio_, *giro_, *gps_;

    double giro_m_;
    Guasto guasto_;
    Istante prima_;
    double regime_ = 0;  // rpm
    double spinta_ = 0;  // throttle, %
    int in_marcia_ = 0;
    double acqua_c_ = 24;             // degrees Celsius
    unsigned passaggi_ = 0;           // of the line
    std::uint32_t traguardo_ms_ = 0;  // when the lap now running began; 0 before the line
    std::uint32_t ultimo_ms_ = 0;     // lap times; 0 = none yet
    std::uint32_t migliore_ms_ = 0;
};

}  // namespace kel::simulatore

#endif
