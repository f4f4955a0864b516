// The records of a recording as rows.
#ifndef KEL_REGISTRAZIONI_TABELLA_RECORD_H
#define KEL_REGISTRAZIONI_TABELLA_RECORD_H

#include <memory>
#include <vector>

#include "common/parole.h"
#include "recordings/colonna.h"
#include "recordings/orario.h"
#include "recordings/tabella.h"

namespace kel_registrazioni {

class TabellaRecord : public Tabella {
public:
    /// @param campioni  to stay as long as this; nothing: they will be pushed.
    /// @throws Errore  for channels that cannot be used, and samples whose framing cannot be found.
    TabellaRecord(Byte canali, std::optional<Byte> campioni, const s_kel_apertura& apertura);

    void spingi(Byte pezzo) override;
    void fine() override;

    bool con_tempo() const override { return frequenza_ > 0 || (inquadrata_ && orario_ != Orario::nessuno); }
    std::optional<std::int64_t> microsecondi(std::uint64_t riga) override;
    double secondi(std::uint64_t riga) override;
    bool mostra_in(std::size_t colonna, const std::string& udm) override;
    void leggi(std::uint64_t da, std::size_t quante, std::span<const s_kel_lettura> letture) override;
    std::uint64_t avanzo() const override { return byte_.size() - righe_ * (inquadrata_ ? passo_ : 0); }
    eKelOrario orario() const override;
    const char* avanzo_detto() override;

    const IFunzioni& catalogo() const { return *catalogo_; }
    std::span<const s_kel_canale> canali() const { return canali_; }
    const std::string& nome(std::size_t canale) const { return nomi_[canale]; }
    /// Bytes of a record with its time stamp; 0 while the framing is not known.
    std::size_t passo() const { return passo_; }
    /// The samples of a row at hand.
    const std::uint8_t* campioni(std::uint64_t riga) const {
        return byte_.data() + (riga - prima_) * passo_ + byte_orario(orario_);
    }

private:
    void di_senza_colonna();
    void inquadra(std::optional<std::uint64_t> lunghezza);
    void mostra();
    VoceColonna voce(const ColonnaDati& colonna) const;
    std::uint64_t marca(std::uint64_t riga);
    void leggi_soluzioni(std::uint64_t da, std::size_t quante, std::span<const s_kel_lettura> letture);

    std::unique_ptr<IFunzioni> catalogo_;
    Parole parole_;
    std::vector<s_kel_canale> canali_;
    std::vector<std::string> nomi_;  // of the channels
    std::string avanzo_detto_;
    std::vector<ColonnaDati> colonne_;
    std::size_t dimensione_ = 0;  // bytes of a record without its time stamp
    std::size_t passo_ = 0;       // with it
    std::optional<Orario> chiesto_;
    Orario orario_ = Orario::nessuno;
    bool inquadrata_ = false;
    bool finita_ = false;
    bool spinta_ = false;
    double frequenza_ = 0;
    std::uint64_t lunghezza_ = 0;
    Byte byte_;                           // at hand, the caller's or those of raccolti_
    std::vector<std::uint8_t> raccolti_;  // pushed
    // A counter of 32 bits that comes to its end goes on behind it. Its stamps are looked at once, in their order.
    std::uint64_t guardate_ = 0;         // rows so far
    std::uint32_t ultima_ = 0;           // the stamp of the last of them
    std::uint64_t giri_ = 0;             // turns before the rows at hand
    std::vector<std::uint64_t> svolte_;  // the rows at hand that begin a turn
};

}  // namespace kel_registrazioni

#endif
