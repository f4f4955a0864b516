// The way that was driven, kept to be drawn: few enough points for any drawing, however long it is.
#ifndef KELFUN_PLOTS_TRACCIA_H
#define KELFUN_PLOTS_TRACCIA_H

#include <cstddef>
#include <vector>

namespace kel::strumento {

/// One point of a track, metres east and north of its first point. Where `staccato` is true the line does not come from
/// the point before.
struct PuntoTraccia {
    double est = 0;
    double nord = 0;
    double velocita = 0;
    bool staccato = false;
};

/// The ground that a track covers, metres from its first point.
struct Estensione {
    double ovest = 0;
    double est = 0;
    double sud = 0;
    double nord = 0;
};

/// The way that was driven, with the speed at each place.
///
/// A point is removed only if the straight line without it passes within a tolerance of it (the method of Douglas and
/// Peucker), and if the speed changes evenly there. So corners stay. When too many points are left, the tolerance
/// doubles. So the total error is always less than twice the present tolerance.
class Traccia {
public:
    /// @param longitudine, latitudine  degrees.
    void aggiungi(double longitudine, double latitudine, double velocita);
    /// The next point is not joined to the last.
    void interrompi() { rotta_ = true; }

    const std::vector<PuntoTraccia>& punti() const { return punti_; }
    bool vuota() const { return punti_.empty(); }
    Estensione estensione() const;
    /// The greatest distance between the line that is kept and the one that was put in, metres.
    double tolleranza() const;

private:
    void riduci();

    std::vector<PuntoTraccia> punti_;
    std::size_t fermi_ = 0;  // so many have been thinned with the tolerance that holds now
    double metri_ = 0.02;    // the tolerance: less than a dot of any picture
    double velocita_ = 0.5;  // and that of the speed, in its unit: less than a shade of colour
    bool rotta_ = true;
    double origine_longitudine_ = 0;
    double origine_latitudine_ = 0;
    double metri_longitudine_ = 0;  // in a degree
};

}  // namespace kel::strumento

#endif
