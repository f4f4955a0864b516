// Conversions into a unit and between two units.
#include "base/aritmetica.h"
#include "kelfunzioni.h"
#include "units/grandezza.h"

const s_converter_data* kelFunGetConvData(kel_funpos fid, const char* udm) noexcept {
    const s_grandezza_fisica_uiv* grandezza = kel::cerca_grandezza(fid);
    if (udm == nullptr || grandezza == nullptr)
        return &NULL_udm_associate[0].dati;
    const s_udm_associata* riga = kel::cerca_udm(*grandezza, udm);
    return riga != nullptr ? &riga->dati : &grandezza->udm[0].dati;
}

s_converter_data kelFunGetConvDatas(kel_funpos fid, const char* udmDa, const char* udmA) noexcept {
    static constexpr s_converter_data identita = {"", 0.0f, 1.0f, 0};
    const s_grandezza_fisica_uiv* grandezza = kel::cerca_grandezza(fid);
    if (grandezza == nullptr)
        return identita;
    const s_udm_associata* da = kel::cerca_udm(*grandezza, udmDa);
    const s_udm_associata* a = kel::cerca_udm(*grandezza, udmA);
    if (da == a || da == nullptr || a == nullptr)
        return identita;

    // The result has no reciprocal flag, so between a speed and a pace it is no more than value * gain + offset.
    const float gain = a->dati.gain / da->dati.gain;
    const float offset = a->dati.offset - (a->dati.gain * da->dati.offset) / da->dati.gain;
    return {"", offset, gain, 0};
}
