// Values over an axis, kept to be drawn: few enough for any drawing, however many are put in.
#ifndef KELFUN_PLOTS_SERIE_H
#define KELFUN_PLOTS_SERIE_H

#include <cstddef>
#include <optional>
#include <vector>

namespace kel::strumento {

/// One point of a line. Where `staccato` is true the line does not come from the point before.
struct Punto {
    double x = 0;
    double valore = 0;
    bool staccato = false;
};

/// Values over time or distance.
///
/// A short series is kept whole. A long one is cut into equal stretches of the axis: each keeps its first, least,
/// greatest and last value, and whether the line was broken between them. As the series grows, two neighbouring
/// stretches become one of twice the width. Its first, least, greatest and last value are still those of all its
/// values, so no peak is ever lost, and no place of the drawn line is further from the true one than a stretch is wide.
class Serie {
public:
    /// @param x       never less than the one before.
    /// @param valore  nothing, or a value that is not finite, breaks the line.
    void aggiungi(double x, std::optional<double> valore);

    const std::vector<Punto>& punti() const { return punti_; }
    bool vuota() const { return punti_.empty(); }
    double minimo() const { return minimo_; }  ///< of all values that were put in
    double massimo() const { return massimo_; }
    /// The width of a stretch; 0 while every value is kept.
    double tratto() const { return tratto_; }

private:
    double numero_tratto(double x) const;
    void accoda(const Punto& punto, double numero);
    void raggruppa();
    void chiudi_tratto(std::size_t da);

    std::vector<Punto> punti_;
    double tratto_ = 0;
    std::size_t ultimo_ = 0;    // where the points of the last stretch begin
    double numero_ultimo_ = 0;  // and which stretch it is, from 0; a whole number
    bool rotta_ = true;         // a value was missing since the last point
    double minimo_ = 0;
    double massimo_ = 0;
};

}  // namespace kel::strumento

#endif
