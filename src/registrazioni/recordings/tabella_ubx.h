// The solutions of a u-blox stream as rows.
#ifndef KEL_REGISTRAZIONI_TABELLA_UBX_H
#define KEL_REGISTRAZIONI_TABELLA_UBX_H

#include <memory>
#include <vector>

#include "gps/lettore_soluzioni.h"
#include "gps/orologio_gps.h"
#include "recordings/tabella.h"

namespace kel_registrazioni {

class TabellaUbx : public Tabella {
public:
    /// @param flusso  to stay as long as this; nothing: it will be pushed.
    explicit TabellaUbx(std::optional<Byte> flusso);

    void spingi(Byte pezzo) override;
    void fine() override;

    bool con_tempo() const override { return true; }
    std::optional<std::int64_t> microsecondi(std::uint64_t quale) override;
    double secondi(std::uint64_t quale) override;
    bool mostra_in(std::size_t colonna, const std::string& udm) override;
    void leggi(std::uint64_t da, std::size_t quante, std::span<const s_kel_lettura> letture) override;
    std::uint64_t avanzo() const override { return finita_ ? lettore_.byte().byte_troncati : lettore_.in_attesa(); }

    /// The solution of a row at hand, and the payload of NAV-SOL that it has, or would have.
    Soluzione soluzione(std::uint64_t quale) const;
    std::array<std::uint8_t, NAV_SOL_BYTE> nav_sol(std::uint64_t quale) const;
    /// What was found in the stream so far.
    const LettoreSoluzioni& lettore() const { return lettore_; }

private:
    struct Riga {
        std::uint64_t posto;  // of the payload
        double tempo;
        bool pvt;
    };

    Byte payload(const Riga& riga) const;
    const Riga& riga(std::uint64_t quale) const { return messaggi_[static_cast<std::size_t>(quale - prima_)]; }
    void raccogli();
    void prosegui();

    std::unique_ptr<IFunzioni> catalogo_;
    double fattore_ = 1;  // from m/s to the unit of the speed
    bool spinta_;
    bool finita_;
    bool interrotta_ = false;             // a piece could not be taken as a whole
    Byte byte_;                           // the caller's stream, or the payloads of raccolti_
    Byte attesi_;                         // given to the reader next
    std::vector<std::uint8_t> raccolti_;  // payloads of the piece at hand
    std::vector<Riga> messaggi_;
    OrologioGps orologio_;
    LettoreSoluzioni lettore_;
};

}  // namespace kel_registrazioni

#endif
