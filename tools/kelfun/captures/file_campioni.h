// A recording's file of samples.
#ifndef KELFUN_CAPTURES_FILE_CAMPIONI_H
#define KELFUN_CAPTURES_FILE_CAMPIONI_H

#include <cstdint>
#include <string>

#include "captures/flusso.h"
#include "captures/registrazione.h"

namespace kel::strumento {

/// The length of a file, which may tell its framing; 0 where it is not known, as of standard input, or there is none.
std::uint64_t lunghezza_file(const std::string& nome);

/// The samples of a file or of standard input. The framing is found from the first bytes, of a stream from few of them, so that
/// the first row comes soon.
class FileCampioni {
public:
    /// Finds or checks the framing.
    /// @param reg    opened with the length of the file; must live as long as this.
    /// @param pezzo  bytes of a piece at most.
    /// @throws NonTrovato  when the framing is not clear, or the length is no whole number of records.
    FileCampioni(const std::string& nome, const Registrazione& reg, std::size_t pezzo = Flusso::PEZZO);

    /// Says on standard error which framing was found, or what speaks against the one that was asked for.
    /// @param comando  whose message it is: "record".
    void annuncia(const char* comando) const;

    /// The rows of the next piece; false at the end.
    bool prossimo();

    Ingresso& ingresso() { return flusso_.ingresso(); }
    std::uint64_t righe() const { return flusso_.righe(); }  ///< so far

    /// "12 records of 16 bytes in 200 bytes; 8 bytes of a cut record at the end".
    std::string riassunto() const;

    /// At the end: whether the samples were a whole number of records, at least one.
    /// @throws NonTrovato  when they were not.
    void verifica_fine() const;

private:
    s_kel_registrazione* reg_;
    Flusso flusso_;
    bool pronte_ = false;  // the rows of the first piece
};

}  // namespace kel::strumento

#endif
