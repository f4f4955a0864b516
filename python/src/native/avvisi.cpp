// What there is to say of values that are not what most people take them for, for Python: "" for nothing.
#include <memory>

#include "IFunzioni.h"
#include "domain/avvisi_campioni.h"
#include "domain/avvisi_unita.h"
#include "risposta.h"

using kel::python::Json;
using kel::python::rispondi;

namespace {

std::unique_ptr<IFunzioni> catalogo() {
    return std::unique_ptr<IFunzioni>(IFunzioni::CreateMe());
}

}  // namespace

/// Of a conversion, with one value as an example.
KELPYTHON_API char* kelpy_avviso_conversione(kel_funpos fid, const char* da, const char* a, float valore) {
    return rispondi(
        [&] { return Json(kel::strumento::avviso_conversione(*catalogo(), fid, da, a, valore).value_or("")); });
}

/// Of a unit that converters show samples in.
KELPYTHON_API char* kelpy_avviso_unita(kel_funpos fid, const char* udm) {
    return rispondi([&] { return Json(kel::strumento::avviso_unita(*catalogo(), fid, udm).value_or("")); });
}

/// Of a subfield of a packet of a sample type.
KELPYTHON_API char* kelpy_avviso_pacchetto(kel_funpos fid, unsigned tipo) {
    return rispondi([&] { return Json(kel::strumento::avviso_gps({&fid, 1}, tipo).value_or("")); });
}

/// Of a bit field.
KELPYTHON_API char* kelpy_avviso_bit(const char* campo, unsigned sopra) {
    return rispondi([&] { return Json(kel::strumento::avviso_bit(campo, sopra).value_or("")); });
}
