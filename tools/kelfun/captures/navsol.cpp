#include "captures/navsol.h"

#include <algorithm>

#include "domain/canale.h"
#include "output/celle.h"

namespace kel::strumento {

namespace {

constexpr unsigned TIPO_PACCHETTO_GPS = 8;
constexpr std::size_t BYTE_TEMPO = 4;
constexpr unsigned LARGHEZZA_VELOCITA = 8;

std::unique_ptr<IConverter> converter(IFunzioni& catalogo, const s_kel_canale& canale, kel_funpos fid,
                                      const std::string& udm, unsigned decimali) {
    return std::unique_ptr<IConverter>(
        catalogo.CreateConverter(&canale, fid, udm, true, decimali, FORMATO_COMPATTO, LARGHEZZA_VELOCITA));
}

s_kel_converter senza_unita(const s_kel_canale& canale, kel_funpos fid) {
    s_kel_converter conv{};
    kelConvInit(&conv, &canale, fid, kelFunGetConvData(fid, nullptr), 0, 0, 1);
    return conv;
}

unsigned valore_intero(const s_kel_converter& conv, const std::uint8_t* pacchetto) {
    float valore = 0;
    kelConvGetValFloat(&conv, pacchetto, &valore);
    return static_cast<unsigned>(valore);  // a byte, 0 to 255
}

}  // namespace

CanaleNavSol::CanaleNavSol(IFunzioni& catalogo, const std::string& udm, unsigned decimali)
    : canale_(canale(KEL_FID_GPS_PACCHETTO, TIPO_PACCHETTO_GPS)),
      fix_(converter(catalogo, canale_, KEL_FID_GPS_FIX, "", 0)),
      satelliti_(converter(catalogo, canale_, KEL_FID_GPS_SATELLITI, "", 0)),
      longitudine_(converter(catalogo, canale_, KEL_FID_GPS_LONGITUDINE, "", 0)),
      latitudine_(converter(catalogo, canale_, KEL_FID_GPS_LATITUDINE, "", 0)),
      velocita_(converter(catalogo, canale_, KEL_FID_GPS_VELOCITA, udm, decimali)),
      accuratezza_posizione_(senza_unita(canale_, KEL_FID_GPS_ACCURATEZZA_POSIZIONE)),
      accuratezza_velocita_(senza_unita(canale_, KEL_FID_GPS_ACCURATEZZA_VELOCITA)) {}

kel_funpos CanaleNavSol::fid_velocita() {
    return KEL_FID_GPS_VELOCITA;
}

float CanaleNavSol::valore(IConverter& converter, const std::uint8_t* pacchetto) const {
    float valore = 0;
    converter.GetVal(pacchetto, &valore);
    return valore;
}

SoluzioneDispositivo CanaleNavSol::leggi(std::span<const std::uint8_t, KEL_NAV_SOL_BYTE> payload) const {
    std::array<std::uint8_t, BYTE_TEMPO + KEL_NAV_SOL_BYTE> pacchetto{};
    // The logger stamps its own time in front; here the time of week serves for it.
    std::copy_n(payload.begin(), BYTE_TEMPO, pacchetto.begin());
    std::copy(payload.begin(), payload.end(), pacchetto.begin() + BYTE_TEMPO);

    SoluzioneDispositivo soluzione;
    for (std::size_t i = BYTE_TEMPO; i-- > 0;)
        soluzione.settimana_ms = soluzione.settimana_ms << 8 | payload[i];
    soluzione.fix = static_cast<unsigned>(valore(*fix_, pacchetto.data()));
    soluzione.satelliti = static_cast<unsigned>(valore(*satelliti_, pacchetto.data()));
    soluzione.longitudine = valore(*longitudine_, pacchetto.data());
    soluzione.latitudine = valore(*latitudine_, pacchetto.data());
    soluzione.velocita = valore(*velocita_, pacchetto.data());
    std::string testo;
    velocita_->GetString(pacchetto.data(), testo);
    soluzione.testo_velocita = senza_nul(testo);
    soluzione.accuratezza_posizione = valore_intero(accuratezza_posizione_, pacchetto.data());
    soluzione.accuratezza_velocita = valore_intero(accuratezza_velocita_, pacchetto.data());
    return soluzione;
}

}  // namespace kel::strumento
