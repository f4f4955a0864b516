// Rows of numbers for programs, written as fast as digits are found.
#ifndef KELFUN_OUTPUT_RIGHE_DATI_H
#define KELFUN_OUTPUT_RIGHE_DATI_H

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace kel::strumento {

/// Puts rows together in one buffer, cell behind cell: the same bytes as cells of a `Documento` have.
class RigheDati {
public:
    /// What stands around the cells.
    struct Aspetto {
        bool csv = false;                  ///< else JSON
        std::vector<std::string> davanti;  ///< before each cell
        std::string dietro;                ///< behind a row
        std::string inizio;                ///< before the first row
        std::string tra;                   ///< before the others
    };

    RigheDati(std::FILE* file, Aspetto aspetto);
    ~RigheDati() { svuota(); }
    RigheDati(const RigheDati&) = delete;
    RigheDati& operator=(const RigheDati&) = delete;

    // A cell each, in the order of the columns.
    void niente();
    void intero(std::int64_t valore);
    /// Shortest decimals.
    void numero(float valore);
    /// With so many decimals, trailing zeros less.
    void reale(double valore, int decimali);
    void testo(std::string_view testo);

    /// Behind the last cell of a row.
    void fine_riga();
    /// Gives what has been put together to the file.
    void svuota();
    /// How many there were.
    std::uint64_t righe() const { return righe_; }

private:
    char* cella();
    void avanti(const char* fine) { pieni_ = static_cast<std::size_t>(fine - buffer_.data()); }

    std::FILE* file_;
    Aspetto aspetto_;
    std::string_view niente_;
    std::size_t colonna_ = 0;
    std::vector<char> buffer_;
    std::size_t pieni_ = 0;
    std::uint64_t righe_ = 0;
};

}  // namespace kel::strumento

#endif
