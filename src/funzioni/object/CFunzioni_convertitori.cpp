// Converters of a channel's samples, and the subfields that a packet's samples hold.
#include "CFunzioni.h"

#include "CConverter.h"

IConverter* CFunzioni::CreateConverter(const s_kel_canale* ch, kel_funpos fid, const std::string& udm,
                                       bool sampleAtStart, unsigned int numDec, eFormatoConv format,
                                       unsigned int width) {
    const s_converter_data* dati = kelFunGetConvData(fid, ConvertiIn8(udm).c_str());
    return new CConverter(ch, fid, dati, sampleAtStart, numDec, format, width);
}

void CFunzioni::getAllInnerFunpos(kel_funpos fid, std::list<kel_funpos>& interni) {
    CConverter::getAllInnerFunpos(fid, interni);
}

// No function has formats to choose from.
int CFunzioni::getFormati(kel_funpos, unsigned int*) {
    return 0;
}
