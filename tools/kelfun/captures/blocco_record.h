// Rows of some columns of a recording, read together.
#ifndef KELFUN_CAPTURES_BLOCCO_RECORD_H
#define KELFUN_CAPTURES_BLOCCO_RECORD_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "captures/registrazione.h"

namespace kel::strumento {

/// What is to be read of a column.
struct VoceBlocco {
    unsigned quale;  ///< in the recording
    eKelValori valori;
    bool testi;  ///< its texts too
};

class BloccoRecord {
public:
    BloccoRecord(const Registrazione& reg, std::vector<VoceBlocco> voci);

    /// Rows that are read at once: as many as stay in a processor's cache.
    std::size_t capienza() const { return capienza_; }

    /// Reads rows at hand, at most `capienza`, and their times, where they have any.
    void leggi(std::uint64_t da, std::size_t quante);

    std::size_t righe() const { return righe_; }
    /// The number of the first row.
    std::uint64_t prima() const { return prima_; }
    bool con_tempi() const { return con_tempi_; }
    double tempo(std::size_t riga) const { return tempi_[riga]; }

    // Of the columns by their place in `voci`.
    bool valido(std::size_t voce, std::size_t riga) const {
        return (memorie_[voce].validi[riga / 8] >> riga % 8 & 1) != 0;
    }
    float come_float(std::size_t voce, std::size_t riga) const { return memorie_[voce].corti[riga]; }
    double come_double(std::size_t voce, std::size_t riga) const { return memorie_[voce].lunghi[riga]; }
    std::uint32_t come_intero(std::size_t voce, std::size_t riga) const { return memorie_[voce].interi[riga]; }
    /// Its number, whatever its kind; nothing where the row has none.
    std::optional<double> valore(std::size_t voce, std::size_t riga) const;
    std::string_view testo(std::size_t voce, std::size_t riga) const;

private:
    struct Memoria {
        std::vector<float> corti;
        std::vector<double> lunghi;
        std::vector<std::uint32_t> interi;
        std::vector<std::int64_t> istanti;
        std::vector<unsigned char> validi;
        std::vector<char> testi;

        void* valori(eKelValori quali);
    };

    s_kel_registrazione* reg_;
    std::vector<VoceBlocco> voci_;
    std::size_t capienza_;
    std::vector<Memoria> memorie_;
    std::vector<s_kel_lettura> letture_;
    std::vector<double> tempi_;
    bool con_tempi_ = false;
    std::uint64_t prima_ = 0;
    std::size_t righe_ = 0;
};

/// Reads the rows at hand, a block at a time, and has some work done on each.
template <typename Lavoro>
void a_blocchi(const Registrazione& reg, BloccoRecord& blocco, Lavoro&& lavoro) {
    const std::uint64_t fine = kelRegPrima(reg.reg()) + kelRegRighe(reg.reg());
    for (std::uint64_t da = kelRegPrima(reg.reg()); da < fine; da += blocco.righe()) {
        blocco.leggi(da, static_cast<std::size_t>(std::min<std::uint64_t>(blocco.capienza(), fine - da)));
        lavoro();
    }
}

}  // namespace kel::strumento

#endif
