// Texts and XML names of a field's values, and the values of XML names.
#include "CFunzioni.h"

#include <span>
#include <string_view>

namespace {

using Tabella = std::span<const s_campo_fid>;

// Row i describes value i. A value that has no row has no text: there is nothing to convert.
std::string testo_di(const CFunzioni& catalogo, Tabella tabella, unsigned valore, const char* s_campo_fid::*colonna) {
    return valore < tabella.size() ? catalogo.ConvertiDa8(tabella[valore].*colonna) : std::string();
}

// 0 for an unknown name, which is also the undefined value.
int valore_di(Tabella tabella, const std::string& xml) {
    for (const s_campo_fid& riga : tabella)
        if (std::string_view(xml) == riga.xml)
            return riga.valore;
    return 0;
}

}  // namespace

std::string CFunzioni::getStrPhi(GRANDEZZA_FISICA_FUNZKEL valore) {
    return testo_di(*this, grandezza_fisica_FunzKel, valore, &s_campo_fid::testo);
}

std::string CFunzioni::getStrObj(OGGETTO_MISURATO_FUNZKEL valore) {
    return testo_di(*this, oggetto_misurato_FunzKel, valore, &s_campo_fid::testo);
}

std::string CFunzioni::getStrPos(POSIZIONE_FUNZKEL valore) {
    return testo_di(*this, posizione_FunzKel, valore, &s_campo_fid::testo);
}

std::string CFunzioni::getXmlStrPhi(GRANDEZZA_FISICA_FUNZKEL valore) {
    return testo_di(*this, grandezza_fisica_FunzKel, valore, &s_campo_fid::xml);
}

std::string CFunzioni::getXmlStrObj(OGGETTO_MISURATO_FUNZKEL valore) {
    return testo_di(*this, oggetto_misurato_FunzKel, valore, &s_campo_fid::xml);
}

int CFunzioni::getIdxPhi(const std::string& xml) {
    return valore_di(grandezza_fisica_FunzKel, ConvertiIn8(xml));
}

int CFunzioni::getIdxObj(const std::string& xml) {
    return valore_di(oggetto_misurato_FunzKel, ConvertiIn8(xml));
}

int CFunzioni::getIdxPos(const std::string& xml) {
    return valore_di(posizione_FunzKel, ConvertiIn8(xml));
}

int CFunzioni::getIdxFrontRear(const std::string& xml) {
    return valore_di(frontrear_FunzKel, ConvertiIn8(xml));
}
