// Rows and columns: what a recording and a u-blox stream have in common.
#ifndef KEL_REGISTRAZIONI_TABELLA_H
#define KEL_REGISTRAZIONI_TABELLA_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "IFunzioni.h"
#include "kelregistrazioni.h"

namespace kel_registrazioni {

using Byte = std::span<const std::uint8_t>;

/// A column's name, unit and kind, with the memory of their texts.
struct VoceColonna {
    std::string nome;
    std::string lungo;
    std::string udm;
    kel_funpos fid = 0;
    std::uint32_t canale = 0;
    eKelValori valori = KEL_VALORI_FLOAT;
    int decimali = 0;
    std::string proprio;  // its name without what that says of the values
    eKelCampo campo = KEL_CAMPO_NESSUNO;
    bool con_unita = false;
    bool interna = false;
    bool pacchetto = false;
};

/// The rows at hand, counted from the start of the recording.
class Tabella {
public:
    Tabella() = default;
    Tabella(const Tabella&) = delete;
    Tabella& operator=(const Tabella&) = delete;
    virtual ~Tabella() = default;

    /// The next piece of a stream; its rows are at hand until the next.
    /// @throws Errore  where it was not opened for this, or the framing cannot be found.
    virtual void spingi(Byte pezzo) = 0;
    /// The end of the stream; the rows that only now are sure are at hand.
    virtual void fine() = 0;

    virtual bool con_tempo() const = 0;
    /// When a row at hand was taken, microseconds; nothing for more than 63 bits hold.
    virtual std::optional<std::int64_t> microsecondi(std::uint64_t riga) = 0;
    /// The same, seconds.
    virtual double secondi(std::uint64_t riga) = 0;

    /// Another unit of a column; false where its function has none of this name.
    virtual bool mostra_in(std::size_t colonna, const std::string& udm) = 0;
    /// All of the rows must be at hand, and the columns exist.
    virtual void leggi(std::uint64_t da, std::size_t quante, std::span<const s_kel_lettura> letture) = 0;

    virtual std::uint64_t avanzo() const = 0;
    virtual eKelOrario orario() const { return KEL_ORARIO_TROVATO; }
    /// What is to be said of the bytes behind the last record; "" for nothing.
    virtual const char* avanzo_detto() { return ""; }

    const std::vector<VoceColonna>& voci() const { return voci_; }
    const std::string& detto() const { return detto_; }
    std::uint64_t prima() const { return prima_; }
    std::uint64_t righe() const { return righe_; }
    bool a_portata(std::uint64_t da, std::uint64_t quante) const {
        return da >= prima_ && da - prima_ <= righe_ && quante <= righe_ - (da - prima_);
    }

protected:
    std::vector<VoceColonna> voci_;
    std::string detto_;
    std::uint64_t prima_ = 0;
    std::uint64_t righe_ = 0;
};

/// The catalogue's name of a function; "" for none.
std::string nome_lungo(const IFunzioni& catalogo, kel_funpos fid);

}  // namespace kel_registrazioni

#endif
