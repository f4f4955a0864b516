// Converters as a client sets them up, and the texts that they write.
#ifndef KEL_BENCH_CONVERTITORE_H
#define KEL_BENCH_CONVERTITORE_H

#include <array>

#include "kelfunzioni.h"

namespace prova {

using Testo = std::array<char, 32>;

struct Forma {
    unsigned larghezza;
    unsigned decimali;
};

/// A converter of one channel whose samples are given alone.
inline s_kel_converter convertitore(kel_funpos fid, unsigned tipo, const char* udm, Forma forma) {
    s_kel_canale canale = {};
    canale.fid = fid;
    canale.tipo_campione = tipo;
    s_kel_converter conv = {};
    conv.larghezza = forma.larghezza;
    conv.decimali = forma.decimali;
    kelConvInit(&conv, &canale, fid, kelFunGetConvData(fid, udm), 0, 0, 1);
    return conv;
}

}  // namespace prova

#endif
