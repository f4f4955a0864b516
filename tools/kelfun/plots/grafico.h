// Values over time, and a track, kept to be drawn: few enough for any drawing, however many are put in.
#ifndef KELFUN_PLOTS_GRAFICO_H
#define KELFUN_PLOTS_GRAFICO_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace kel::strumento {

/// One point of a series. Where `presente` is false the line is broken.
struct Punto {
    double tempo = 0;
    double valore = 0;
    bool presente = false;
};

/// Values over time. When there are many, stretches of them are replaced by their least and their greatest, so that no
/// peak is lost.
class Serie {
public:
    /// Nothing, or a value that is not finite, breaks the line.
    void aggiungi(double tempo, std::optional<double> valore);

    const std::vector<Punto>& punti() const { return punti_; }
    bool vuota() const { return minimo_ > massimo_; }
    double minimo() const { return minimo_; }  ///< of all values that were put in
    double massimo() const { return massimo_; }

private:
    void dirada();

    std::vector<Punto> punti_;
    double minimo_ = 1;
    double massimo_ = 0;
};

/// One point of a track, metres east and north of its first point; `presente` as above.
struct PuntoTraccia {
    double est = 0;
    double nord = 0;
    double velocita = 0;
    bool presente = false;
};

/// The way that was driven. When it is long, every second point goes.
class Traccia {
public:
    /// @param longitudine, latitudine  degrees.
    void aggiungi(double longitudine, double latitudine, double velocita);
    void interrompi();

    const std::vector<PuntoTraccia>& punti() const { return punti_; }
    bool vuota() const { return punti_.empty(); }

private:
    void dirada();

    std::vector<PuntoTraccia> punti_;
    double origine_longitudine_ = 0;
    double origine_latitudine_ = 0;
    double metri_longitudine_ = 0;  // in a degree
    std::size_t passo_ = 1;         // of so many points one is kept
    std::size_t saltati_ = 0;
};

/// Values of one kind over time.
struct Pannello {
    std::string nome;
    std::string udm;  ///< "" where they have no unit
    Serie serie;
};

struct Grafico {
    std::string titolo;
    std::string asse;  ///< what the values stand over: "time, s"
    std::vector<Pannello> pannelli;
    Traccia traccia;
    std::string udm_velocita;  ///< of the track

    /// First and last time of all series; 0 and 1 when there is none.
    double inizio() const;
    double fine() const;
};

}  // namespace kel::strumento

#endif
