// The converter: one function of one channel in one unit.
#ifndef KEL_MODELLO_CONVERTITORE_H
#define KEL_MODELLO_CONVERTITORE_H

#include <optional>
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

class Convertitore {
public:
    // `canale.fid`, `canale.tipo` and `canale.offset` are looked at; `bit` is the field asked for, its mask not.
    Convertitore(const Canale& canale, Fid fid, const RigaUdm& unita, Campo bit, bool campione_in_testa);

    Aspetto aspetto;  // how numbers are shown

    unsigned offset() const { return offset_; }
    const Campo& campo() const { return campo_; }
    Valore modo() const { return modo_; }

    bool haValore() const { return modo_ != Valore::nessuno; }
    Letto valore(const Byte* buffer) const;
    std::string testo(const Byte* buffer);

private:
    void scegliFormato(unsigned tipo, Fid canale);
    void scegliNumero(unsigned tipo);
    void scegliCalcolato(const RigaSottocampo& riga);

    RigaUdm unita_;
    bool reciproco_;
    unsigned offset_ = 0;
    Campo campo_;
    Valore modo_ = Valore::nessuno;
    Testo testo_ = Testo::nessuno;
    bool stato_in_testo_ = false;
    unsigned dimensione_ = 0;
};

// Mask of a bit field: the single bit above it.
std::uint32_t mascheraBit(unsigned pos_bit, unsigned num_bit);

}  // namespace modello

#endif
