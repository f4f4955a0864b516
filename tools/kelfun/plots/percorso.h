// The positions of records on the axis of a plot.
#ifndef KELFUN_PLOTS_PERCORSO_H
#define KELFUN_PLOTS_PERCORSO_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "plots/grafico.h"

namespace kel::strumento {

/// The part of a recording that is drawn, and over what.
struct Tratto {
    Ascissa ascissa = Ascissa::tempo;
    std::optional<double> da;  ///< s; nothing: from the beginning
    std::optional<double> a;   ///< s; nothing: to the end
};

/// Puts records on the axis one after the other. Where time runs backwards, recordings have been joined: a session
/// begins. It is drawn behind the one before, with a gap between them, and keeps its own time.
class Percorso {
public:
    explicit Percorso(const Tratto& tratto) : tratto_(tratto) {}

    /// The position of the next record; nothing for one that is not to be drawn.
    /// @param tempo     s, or the number of the record.
    /// @param velocita  m/s, to compute distances; where there is none, the last one is used.
    /// @throws NonTrovato  when time runs backwards so often that it can be no time.
    std::optional<double> colloca(double tempo, std::optional<double> velocita);

    /// True when the record placed last does not go on from the one before: it begins another session, or nothing was
    /// recorded for a while.
    bool interrotto() const { return interrotto_; }
    /// True when it begins a session that is not the first.
    bool nuova() const { return nuova_; }

    /// Of a recording with one session none.
    std::vector<Sessione> sessioni() const;
    /// @throws NonTrovato  when there were records, and none of them lies in the part that is to be drawn.
    void verifica() const;
    /// A note on the sessions; "" where there is one.
    std::string nota() const;

private:
    bool comincia(double tempo);

    Tratto tratto_;
    std::vector<Sessione> sessioni_;  // those that anything is drawn of
    std::optional<double> ultimo_;    // time of the last record
    double minimo_ = 0;               // and the least and the greatest of all
    double massimo_ = 0;
    std::optional<double> velocita_;  // and speed
    double metri_ = 0;                // in this session
    double fine_ = 0;                 // of what is drawn so far
    bool da_disegnare_ = true;        // nothing of this session has been drawn yet
    bool nuova_ = false;
    bool interrotto_ = false;
    double passo_ = 0;  // s between the last two records
    std::uint64_t record_ = 0;
    std::vector<std::uint64_t> ritorni_;  // the records where time ran backwards
};

}  // namespace kel::strumento

#endif
