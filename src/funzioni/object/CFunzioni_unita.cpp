// Units of measure of a function: their texts, decimals and conversions.
#include "CFunzioni.h"

std::string CFunzioni::getUnitaBase(kel_funpos fid) const {
    return ConvertiDa8(kelFunGetUnitaBase(fid));
}

void CFunzioni::getFunzUIVs(kel_funpos fid, std::list<std::string>& unita) const {
    unita.clear();
    const s_grandezza_fisica_uiv* grandezza = kelFunGetUIVs(fid);
    if (grandezza == nullptr)
        return;
    for (int i = 0; i < grandezza->num_udm; ++i)
        unita.push_back(ConvertiDa8(grandezza->udm[i].dati.udm));
}

// The decimals are searched with the unit's text unchanged; the conversions below, with the converted text.
int CFunzioni::getNumDecimaliDefault(kel_funpos fid, const std::string& udm) const {
    return kelFunGetNumDecimaliDefault(fid, udm.c_str());
}

int CFunzioni::getNumDecimaliMax(kel_funpos fid, const std::string& udm) const {
    return kelFunGetNumDecimaliMax(fid, udm.c_str());
}

int CFunzioni::getNumDecimaliMin(kel_funpos fid, const std::string& udm) const {
    return kelFunGetNumDecimaliMin(fid, udm.c_str());
}

const s_converter_data* CFunzioni::getParamConv(kel_funpos fid, const std::string& udm) const {
    return kelFunGetConvData(fid, ConvertiIn8(udm).c_str());
}

s_converter_data CFunzioni::getParamConv(kel_funpos fid, const std::string& udmDa, const std::string& udmA) const {
    return kelFunGetConvDatas(fid, ConvertiIn8(udmDa).c_str(), ConvertiIn8(udmA).c_str());
}
