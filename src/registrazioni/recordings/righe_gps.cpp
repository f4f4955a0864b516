#include "recordings/righe_gps.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string>

#include "common/numeri.h"

namespace kel_registrazioni {

namespace {

constexpr std::size_t TESTO = 32;

void segna(const s_kel_lettura& lettura, std::size_t riga) {
    if (lettura.validi != nullptr)
        lettura.validi[riga / 8] = static_cast<unsigned char>(lettura.validi[riga / 8] | 1u << riga % 8);
}

template <typename Valore>
void metti(const s_kel_lettura& lettura, std::size_t riga, Valore valore) {
    if (lettura.valori != nullptr)
        static_cast<Valore*>(lettura.valori)[riga] = valore;
    segna(lettura, riga);
}

void scrivi_testo(const s_kel_lettura& lettura, std::size_t riga, const std::string& testo) {
    if (lettura.testi != nullptr)
        std::copy_n(testo.begin(), std::min(testo.size(), TESTO - 1), lettura.testi + riga * TESTO);
}

}  // namespace

eKelValori valori_di(CampoGps campo) {
    return campo == CampoGps::utc                                   ? KEL_VALORI_ISTANTE
           : campo == CampoGps::fix || campo == CampoGps::satelliti ? KEL_VALORI_UINT32
                                                                    : KEL_VALORI_DOUBLE;
}

eKelCampo campo_di_faccia(CampoGps campo) {
    static_assert(static_cast<int>(CampoGps::accuratezza_velocita) + 1 == KEL_CAMPO_ACCURATEZZA_VELOCITA);
    return static_cast<eKelCampo>(static_cast<int>(campo) + 1);
}

void scrivi_campo(const s_kel_lettura& lettura, std::size_t riga, const Soluzione& soluzione, CampoGps campo,
                  double fattore, int decimali) {
    if (campo == CampoGps::utc) {
        if (!soluzione.utc)
            return;
        metti(lettura, riga, soluzione.utc->microsecondi());
        scrivi_testo(lettura, riga, lettura.testi != nullptr ? soluzione.utc->testo() : "");
        return;
    }
    const auto valore = valore_gps(soluzione, campo);
    if (!valore)
        return;
    if (valori_di(campo) == KEL_VALORI_UINT32)
        metti(lettura, riga, static_cast<std::uint32_t>(*valore));
    else
        metti(lettura, riga, *valore * fattore);
    if (lettura.testi != nullptr)
        scrivi_testo(lettura, riga, con_decimali(*valore * fattore, decimali));
}

void scrivi_settimana(const s_kel_lettura& lettura, std::size_t riga, const Soluzione& soluzione) {
    metti(lettura, riga, soluzione.settimana_ms);
    if (lettura.testi != nullptr)
        scrivi_testo(lettura, riga, std::to_string(soluzione.settimana_ms));
}

void azzera(const s_kel_lettura& lettura, eKelValori valori, std::size_t righe) {
    const std::size_t larghezza = valori == KEL_VALORI_DOUBLE || valori == KEL_VALORI_ISTANTE ? 8 : 4;
    if (lettura.valori != nullptr && valori != KEL_VALORI_NESSUNO)
        std::memset(lettura.valori, 0, righe * larghezza);
    if (lettura.validi != nullptr)
        std::memset(lettura.validi, 0, (righe + 7) / 8);
    if (lettura.testi != nullptr)
        std::memset(lettura.testi, 0, righe * TESTO);
}

}  // namespace kel_registrazioni
