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
inline const modello::RigaUdm& unita_identita() {
    return modello::tabelle().udm.at("NULL_udm_associate").at(0);
}

// What a caller's record holds before anything is set: any bytes, and a pointer that leads nowhere.
inline s_kel_converter registro_qualunque(unsigned char byte = 0xA5) {
    s_kel_converter record;
    std::memset(&record, byte, sizeof record);
    return record;
}

// In what a record that was just set up differs from the model's converter; "" when in nothing.
inline std::string differenza(const s_kel_converter& record, const modello::Convertitore& modello) {
    if (record.offset_campione != modello.offset())
        return "offset";
    if (record.pos_bit != modello.campo().pos_bit || record.num_bit != modello.campo().num_bit)
        return "bit field";
    if (record.maschera != modello.campo().maschera)
        return "mask";
    if ((record.valore != nullptr) != modello.ha_valore())
        return "value function";
    if ((record.testo_stato != nullptr) != modello.ha_testo_stato())
        return "status-text function";
    return record.testo == nullptr ? "text function" : "";
}

// A record of any bytes that is set up by its caller, and the model's converter of the same channel.
struct Lettore {
    Lettore(const modello::Canale& canale, modello::Fid fid, const modello::RigaUdm& unita, modello::Campo campo = {},
            bool in_testa = true)
        : dati(dati_di(unita)),
          libreria(registro_qualunque()),
          modello({libreria.maschera, nullptr}, canale, fid, &unita, campo, in_testa) {
        aspetto({});
        const s_kel_canale record = canale_di(canale);
        kelConvInit(&libreria, &record, fid, &dati, static_cast<unsigned short>(campo.pos_bit),
                    static_cast<unsigned short>(campo.num_bit), in_testa ? 1 : 0);
    }
    Lettore(const Lettore&) = delete;
    Lettore& operator=(const Lettore&) = delete;

    // How both show numbers.
    void aspetto(const modello::Aspetto& come) {
        modello.aspetto = come;
        libreria.larghezza = come.larghezza;
        libreria.decimali = come.decimali;
        libreria.auto_decimali = come.auto_decimali;
        libreria.formato = static_cast<eFormatoConv>(come.formato);
    }

    // The text as the library wrote it: 32 bytes up to the last that is not NUL.
    std::string_view testo_libreria(const void* buffer) {
        riuscito = kelConvGetString(&libreria, buffer, testo) == 1;
        const std::string_view intero(testo, sizeof testo);
        return intero.substr(0, intero.find_last_not_of('\0') + 1);
    }

    s_converter_data dati;
    s_kel_converter libreria;
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
