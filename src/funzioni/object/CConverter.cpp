#include "CConverter.h"

#include <cstring>

#include "base/scrittura.h"
#include "packets/ricerca_sottocampi.h"

IConverter::~IConverter() = default;

CConverter::CConverter(const s_kel_canale* ch, kel_funpos fid, const s_converter_data* data, bool sampleAtStart,
                       unsigned int numDec, eFormatoConv format, unsigned int width)
    : conv_() {
    conv_.dati = &NULL_udm_associate[0].dati;  // set-up keeps it where `data` is null: values as they are in the sample
    conv_.larghezza = width;
    conv_.decimali = numDec;
    conv_.formato = format;
    kelConvInit(&conv_, ch, fid, data, 0, 0, sampleAtStart ? 1 : 0);
}

CConverter::~CConverter() = default;

bool CConverter::GetVal(const void* buffer, float* value) {
    return kelConvGetValFloat(&conv_, buffer, value) != 0;
}

bool CConverter::GetString(const void* buffer, std::string& text) {
    text.clear();
    char testo[kel::BYTE_TESTO];
    // Always true: set-up gives every record a text function.
    const bool letto = kelConvGetString(&conv_, buffer, testo) != 0;
    // A value's text is none of the tables': it is handed out as it stands. Its NUL is part of the string: clients
    // compare and print texts with it.
    text.assign(testo, std::strlen(testo) + 1);
    return letto;
}

void CConverter::SetNumDec(int numDec) {
    conv_.decimali = static_cast<unsigned int>(numDec);
}

void CConverter::getAllInnerFunpos(kel_funpos fid, std::list<kel_funpos>& out) {
    out.clear();
    if (kelFidGrandezza(fid) != FID_PHI_PACKAGE)
        return;
    const s_sottocampo* riga = kel::tabella_sottocampi(kelFidOggetto(fid), kelFidPosizione(fid));
    for (; riga != nullptr && !kel::fine_sottocampi_qui(*riga); ++riga)
        out.push_back(riga->fid);
}
