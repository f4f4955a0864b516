// kelfun's reader of u-blox streams, and the GPS solutions shown from it.
//
// Proves that the reader finds the messages that a plain reader finds, however the stream arrives, that every byte is
// counted once, and that any solution can be shown, as the device shows it and in WGS 84.
#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <vector>

#include "bersaglio.h"
#include "captures/navsol.h"
#include "captures/vista_gps.h"
#include "gps/campi_gps.h"
#include "gps/flusso_ubx.h"
#include "gps/lettore_soluzioni.h"
#include "gps/navpvt.h"
#include "ingredienti.h"

namespace {

using fuzz::pretendi;
using kel_registrazioni::LettoreUbx;
using kel_registrazioni::MessaggioUbx;
using Byte = std::span<const std::uint8_t>;

// The good message at the front of some bytes: bytes of its frame, 0 when there is none. RFC 1145 as it stands.
std::size_t messaggio_in(Byte byte) {
    if (byte.size() < 8 || byte[0] != 0xB5 || byte[1] != 0x62)
        return 0;
    const std::size_t corpo = 4U + byte[4] + 256U * byte[5];
    if (byte.size() < corpo + 4)
        return 0;
    unsigned a = 0;
    unsigned b = 0;
    for (const std::uint8_t uno : byte.subspan(2, corpo)) {
        a = (a + uno) % 256;
        b = (b + a) % 256;
    }
    return byte[corpo + 2] == a && byte[corpo + 3] == b ? corpo + 4 : 0;
}

std::vector<MessaggioUbx> messaggi_di(Byte byte) {
    std::vector<MessaggioUbx> trovati;
    while (!byte.empty()) {
        const std::size_t lungo = messaggio_in(byte);
        if (lungo != 0)
            trovati.push_back(
                {byte[2], byte[3], {byte.begin() + 6, byte.begin() + static_cast<std::ptrdiff_t>(lungo) - 2}});
        byte = byte.subspan(std::max<std::size_t>(lungo, 1));
    }
    return trovati;
}

// The payload of NAV-SOL that the solution has, or would have.
std::array<std::uint8_t, kel_registrazioni::NAV_SOL_BYTE> nav_sol(const kel_registrazioni::LettoreSoluzioni& lettore) {
    if (lettore.da_pvt())
        return kel_registrazioni::nav_sol_da_pvt(lettore.payload().first<kel_registrazioni::NAV_PVT_BYTE>());
    std::array<std::uint8_t, kel_registrazioni::NAV_SOL_BYTE> sol{};
    std::ranges::copy(lettore.payload(), sol.begin());
    return sol;
}

void mostra_dispositivo(const kel::strumento::CanaleNavSol& canale,
                        std::span<const std::uint8_t, kel_registrazioni::NAV_SOL_BYTE> payload) {
    const auto soluzione = canale.leggi(payload);
    pretendi(std::isfinite(soluzione.velocita) && soluzione.velocita >= 0, "a speed is a number");
    pretendi(soluzione.fix < 256 && soluzione.satelliti < 256, "fix and satellites are bytes");
}

void mostra_wgs84(const kel_registrazioni::Soluzione& soluzione) {
    using kel_registrazioni::CampoGps;
    for (const CampoGps campo : kel_registrazioni::CAMPI_GPS) {
        const auto valore = kel_registrazioni::valore_gps(soluzione, campo);
        pretendi(!valore || std::isfinite(*valore), "a value is a number");
        const auto quale = static_cast<eKelCampo>(static_cast<int>(campo) + 1);
        pretendi(!kel::strumento::cella_gps(valore, "", quale, 3).per_persone().empty(), "a cell shows something");
    }
    const bool senza = !kel_registrazioni::con_posizione(soluzione.fix);
    pretendi(!senza || (!soluzione.luogo && !soluzione.velocita), "there is nothing without a fix");
    pretendi(!soluzione.luogo ||
                 (std::fabs(soluzione.luogo->latitudine) <= 90 && std::fabs(soluzione.luogo->longitudine) <= 180),
             "a place is on the earth");
}

void mostra(const kel::strumento::CanaleNavSol& canale, Byte flusso) {
    kel_registrazioni::LettoreSoluzioni lettore([resto = flusso](std::uint8_t* dove, std::size_t spazio) mutable {
        const auto arrivati = resto.first(std::min(spazio, resto.size()));
        std::ranges::copy(arrivati, dove);
        resto = resto.subspan(arrivati.size());
        return arrivati.size();
    });
    while (lettore.prossima()) {
        mostra_dispositivo(canale, nav_sol(lettore));
        mostra_wgs84(lettore.soluzione());
    }
    const auto& conta = lettore.conteggi();
    pretendi(conta.soluzioni + conta.stessa_epoca + conta.altri + conta.lunghezza_errata == lettore.byte().messaggi,
             "every message is counted once");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* byte, std::size_t quanti) {
    static const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    static const kel::strumento::CanaleNavSol canale(*catalogo, "km/h", 1);

    fuzz::Ingredienti da(byte, quanti);
    const std::size_t pezzo = 1 + da.u8();  // what arrives at once
    const Byte flusso = da.resto();
    LettoreUbx lettore([resto = flusso, pezzo](std::uint8_t* dove, std::size_t spazio) mutable {
        const auto arrivati = resto.first(std::min({spazio, pezzo, resto.size()}));
        std::ranges::copy(arrivati, dove);
        resto = resto.subspan(arrivati.size());
        return arrivati.size();
    });
    MessaggioUbx messaggio;
    std::size_t letti = 0;
    const std::vector<MessaggioUbx> attesi = messaggi_di(flusso);
    for (; lettore.prossimo(messaggio); letti++) {
        pretendi(letti < attesi.size(), "there are no more messages than the plain reader's");
        const MessaggioUbx& atteso = attesi[letti];
        pretendi(messaggio.classe == atteso.classe && messaggio.id == atteso.id && messaggio.dati == atteso.dati,
                 "the messages are the plain reader's");
    }
    pretendi(letti == attesi.size(), "no message is lost");
    const auto& conta = lettore.conteggi();
    pretendi(conta.byte == flusso.size() && conta.byte == conta.byte_messaggi + conta.byte_fuori + conta.byte_troncati,
             "every byte is counted once");
    pretendi(conta.messaggi == letti, "the messages are counted");
    mostra(canale, flusso);
    return 0;
}
