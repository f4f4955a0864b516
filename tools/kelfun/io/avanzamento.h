// How far the reading of a long file has come, on one line of the terminal.
#ifndef KELFUN_IO_AVANZAMENTO_H
#define KELFUN_IO_AVANZAMENTO_H

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace kel::strumento {

/// Nothing for the first two seconds; then "12.3 MB of 45.6 MB, 26%, 0:08 left", written anew a few times a second, and
/// erased at the end.
class Avanzamento {
public:
    using Orologio = std::function<double()>;  ///< seconds since any moment; never runs backwards
    using Schermo = std::function<void(std::string_view)>;

    /// @param totale  bytes of the file, where they are known.
    Avanzamento(std::optional<std::uint64_t> totale, Orologio orologio, Schermo schermo);
    ~Avanzamento();
    Avanzamento(const Avanzamento&) = delete;
    Avanzamento& operator=(const Avanzamento&) = delete;

    /// So many bytes have been read in all.
    void letti(std::uint64_t byte);
    /// Erases the line, if there is one.
    void fine();

private:
    std::string riga(std::uint64_t byte, double trascorsi) const;

    std::optional<std::uint64_t> totale_;
    Orologio orologio_;
    Schermo schermo_;
    double inizio_;
    double prossima_;  // when the line is written next
    bool mostrata_ = false;
};

}  // namespace kel::strumento

#endif
