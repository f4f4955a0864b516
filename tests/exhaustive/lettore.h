// A converter record of the library and the model's converter, set up alike.
#ifndef KEL_ESAUSTIVO_LETTORE_H
#define KEL_ESAUSTIVO_LETTORE_H

#include <cstring>
#include <string>
#include <string_view>

#include "exhaustive/libreria.h"
#include "model/convertitore.h"

namespace esaustivo {

// The unit without conversion.
inline const modello::RigaUdm& unitaIdentita() {
    return modello::tabelle().udm.at("NULL_udm_associate").at(0);
}

// How both show numbers.
struct Lettore {
    Lettore(const modello::Canale& canale, modello::Fid fid, const modello::RigaUdm& unita, modello::Campo campo = {},
            bool in_testa = true)
        : dati(datiDi(unita)), modello(canale, fid, unita, campo, in_testa) {
        const s_kel_canale record = canaleDi(canale);
        kelConvInit(&libreria, &record, fid, &dati, static_cast<unsigned short>(campo.pos_bit),
                    static_cast<unsigned short>(campo.num_bit), in_testa ? 1 : 0);
    }
    Lettore(const Lettore&) = delete;
    Lettore& operator=(const Lettore&) = delete;

    void aspetto(const modello::Aspetto& come) {
        modello.aspetto = come;
        libreria.larghezza = come.larghezza;
        libreria.decimali = come.decimali;
        libreria.auto_decimali = come.auto_decimali;
        libreria.formato = static_cast<eFormatoConv>(come.formato);
    }

    // The text as the library wrote it: 32 bytes up to the last that is not NUL.
    std::string_view testoLibreria(const void* buffer) {
        riuscito = kelConvGetString(&libreria, buffer, testo) == 1;
        const std::string_view intero(testo, sizeof testo);
        return intero.substr(0, intero.find_last_not_of('\0') + 1);
    }

    s_converter_data dati;
    s_kel_converter libreria{};
    modello::Convertitore modello;
    char testo[32];
    bool riuscito = false;
};

inline std::string descrivi(const modello::Aspetto& come) {
    return "width " + std::to_string(come.larghezza) + " decimals " + std::to_string(come.decimali) +
           (come.auto_decimali != 0 ? " auto" : "") + " format " + std::to_string(come.formato);
}

}  // namespace esaustivo

#endif
