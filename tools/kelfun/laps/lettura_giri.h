// The laps of files, and what there is to say of them on standard error.
#ifndef KELFUN_LAPS_LETTURA_GIRI_H
#define KELFUN_LAPS_LETTURA_GIRI_H

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "captures/registrazione.h"
#include "kelregistrazioni.h"

namespace kel::strumento {

struct ChiudiGiri {
    void operator()(s_kel_giri* giri) const { kelGiriChiudi(giri); }
};

/// A lap's number, where it is known, is no NaN.
class Giri {
public:
    /// The laps of a u-blox capture.
    /// @throws NonTrovato  where there is no solution in it.
    explicit Giri(const std::string& cattura);
    /// The laps of a recording.
    /// @throws NonTrovato  where its files cannot be used.
    Giri(const std::string& canali, const std::string& campioni, const s_kel_apertura& apertura);

    /// Finds them, and says what there is to say.
    /// @throws NonTrovato  where no lap is closed: one line that says why.
    void calcola(const s_kel_scelte_giri& scelte);

    std::span<const s_kel_giro> tutti() const { return tutti_; }
    /// The best of those that count; null where none does.
    const s_kel_giro* migliore() const;

    /// A lap over its distance, stretched to a length in metres.
    std::vector<s_kel_punto_giro> andamento(const s_kel_giro& giro, double lunghezza) const;
    std::vector<s_kel_fix> fix(const s_kel_giro& giro) const;

private:
    template <typename Campioni>
    void raccogli(Campioni& campioni);
    unsigned posto(const s_kel_giro& giro) const { return static_cast<unsigned>(&giro - tutti_.data()); }

    Registrazione reg_;
    std::unique_ptr<s_kel_giri, ChiudiGiri> giri_;
    std::vector<s_kel_giro> tutti_;
};

}  // namespace kel::strumento

#endif
