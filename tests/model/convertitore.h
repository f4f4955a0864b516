// The converter: one function of one channel in one unit.
#ifndef KEL_MODELLO_CONVERTITORE_H
#define KEL_MODELLO_CONVERTITORE_H

#include <optional>
#include <stdexcept>
#include <string>

#include "model/campioni.h"
#include "model/canali.h"
#include "model/testo_numerico.h"

namespace modello {

enum class Testo {
    nessuno,  // "- -"
    numerico,
    marcia,
    tempo_giro,
    differenza,
    tempo_pacchetto,
    coordinata,
    gps_kel,
    gps_navsol,
    copia,
    data_ora,
    lap_1g,
    satelliti
};

// What a caller's record holds before it is set up, of that which set-up may leave as it is.
struct Prima {
    std::uint32_t maschera = 0;
    const RigaUdm* unita = nullptr;  // null = the record's pointer leads to no unit
};

// A unit is needed, and there is none.
class SenzaUnita : public std::logic_error {
public:
    SenzaUnita() : std::logic_error("a unit is needed, and there is none") {}
};

class Convertitore {
public:
    // `canale.fid`, `canale.tipo` and `canale.offset` are looked at; `bit` is the field asked for, its mask not. Without
    // `unita` the one of `prima` stays. Throws SenzaUnita where a set-up or a read needs a unit and has none: then
    // the caller asked for what is undefined.
    Convertitore(const Prima& prima, const Canale& canale, Fid fid, const RigaUdm* unita, Campo bit,
                 bool campione_in_testa);
    Convertitore(const Canale& canale, Fid fid, const RigaUdm& unita, Campo bit, bool campione_in_testa)
        : Convertitore({}, canale, fid, &unita, bit, campione_in_testa) {}

    Aspetto aspetto;  // how numbers are shown

    unsigned offset() const { return offset_; }
    const Campo& campo() const { return campo_; }
    Valore modo() const { return modo_; }
    const RigaUdm* unita_scelta() const { return unita_ ? &*unita_ : nullptr; }
    // Whether a status has a text of its own.
    bool ha_testo_stato() const { return stato_in_testo_; }

    bool ha_valore() const { return modo_ != Valore::nessuno; }
    Letto valore(const Byte* buffer) const;
    std::string testo(const Byte* buffer);

private:
    void scegli_formato(unsigned tipo, Fid canale);
    void scegli_numero(unsigned tipo);
    void scegli_calcolato(const RigaSottocampo& riga);
    const RigaUdm& unita() const;
    bool reciproco() const { return unita().reciproco != 0; }

    std::optional<RigaUdm> unita_;
    bool reciproco_ = false;  // only where the sample type has a reciprocal form
    unsigned offset_ = 0;
    Campo campo_;
    Valore modo_ = Valore::nessuno;
    Testo testo_ = Testo::nessuno;
    bool stato_in_testo_ = false;
    unsigned dimensione_ = 0;
};

// Mask of a bit field: the single bit above it.
std::uint32_t maschera_bit(unsigned pos_bit, unsigned num_bit);

}  // namespace modello

#endif
