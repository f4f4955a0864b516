#include "captures/file_canali.h"

#include "io/ingresso.h"
#include "registrazioni/common/errore.h"
#include "text/errori.h"

namespace kel::strumento {

std::vector<s_kel_canale> leggi_file_canali(const std::string& nome, Disposizione disposizione) {
    Ingresso ingresso(nome);
    std::vector<std::uint8_t> byte(CANALI_MASSIMI * CANALE_BYTE + 1);
    byte.resize(ingresso.leggi_tutti(byte.data(), byte.size()));
    try {
        if (byte.size() > CANALI_MASSIMI * CANALE_BYTE)
            throw Errore("it is longer than " + std::to_string(CANALI_MASSIMI) + " channel records");
        return leggi_canali(byte, disposizione, PAROLE);
    } catch (const Errore& e) {
        throw NonTrovato("cannot use '" + ingresso.nome() + "' as channels: " + e.what());
    }
}

}  // namespace kel::strumento
