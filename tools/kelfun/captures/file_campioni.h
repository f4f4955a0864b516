// A recording's file of samples, and what time its records have.
#ifndef KELFUN_CAPTURES_FILE_CAMPIONI_H
#define KELFUN_CAPTURES_FILE_CAMPIONI_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "cli/opzioni.h"
#include "domain/registrazioni.h"
#include "io/ingresso.h"
#include "registrazioni/recordings/inquadratura.h"
#include "registrazioni/recordings/lettore_record.h"

namespace kel::strumento {

/// --time and --rate as they are written.
struct SceltaTempo {
    std::string orario = "auto";
    std::string frequenza;
};
void aggiungi_tempo(Comando& comando, SceltaTempo& scelta);

/// When a record was taken: from its time stamp, or from its place where samples come at a rate.
class TempoRecord {
public:
    /// @throws ErroreUso  for a framing or a rate that there is not.
    explicit TempoRecord(const SceltaTempo& scelta);

    /// The framing that the user has chosen; nothing if it is to be found.
    std::optional<Orario> chiesto() const { return chiesto_; }
    /// Sets the framing that was found or chosen.
    void inquadra(Orario orario) { orario_ = orario; }

    bool noto() const { return frequenza_ > 0 || orario_ != Orario::nessuno; }
    int decimali() const;
    /// Seconds of the record at hand.
    double secondi(const LettoreRecord& lettore) const;

private:
    std::optional<Orario> chiesto_;
    Orario orario_ = Orario::nessuno;
    double frequenza_ = 0;
};

/// The samples of a file or of standard input. The framing is found from the first bytes. They are kept, and given to the
/// reader before the rest. Of a stream only few bytes are taken for this, so that the first row comes soon.
class FileCampioni {
public:
    /// Finds or checks the framing, and sets it in `tempo`.
    /// @param dimensione  bytes of a record without its time stamp.
    /// @throws NonTrovato  when the framing is not clear, or the length is no whole number of records.
    FileCampioni(const std::string& nome, std::size_t dimensione, TempoRecord& tempo);

    FileCampioni(const FileCampioni&) = delete;  // the reader holds a pointer to this object
    FileCampioni& operator=(const FileCampioni&) = delete;

    /// Says on standard error which framing was found, or what speaks against the one that was asked for.
    /// @param comando  whose message it is: "record".
    void annuncia(const char* comando) const;

    Ingresso& ingresso() { return ingresso_; }
    LettoreRecord& lettore() { return *lettore_; }

    /// Bytes of a record with its time stamp.
    std::size_t passo() const { return passo_; }

    /// At the end: whether the samples were a whole number of records, at least one.
    /// @throws NonTrovato  when they were not.
    void verifica_fine() const;

private:
    std::size_t leggi(std::uint8_t* byte, std::size_t quanti);

    Ingresso ingresso_;
    std::vector<std::uint8_t> testa_;
    std::size_t riletti_ = 0;
    std::size_t passo_ = 0;
    std::string detto_;
    std::optional<LettoreRecord> lettore_;
};

}  // namespace kel::strumento

#endif
