// Texts and XML names of field values, and back.
#include <span>
#include <string_view>

#include "CFunzioni.h"

namespace {

// The text of a value, or "" out of the table; row i describes value i.
const char* testo_di(std::span<const s_campo_fid> tabella, unsigned valore, const char* s_campo_fid::*colonna) {
    return valore < tabella.size() ? tabella[valore].*colonna : "";
}

// The value of an XML name, compared whole. 0 for an unknown one, which is also the undefined value.
int valore_di(std::span<const s_campo_fid> tabella, const std::string& xml) {
    for (const s_campo_fid& riga : tabella)
        if (std::string_view(xml) == riga.xml)
            return riga.valore;
    return 0;
}

}  // namespace

std::string CFunzioni::getStrPhi(GRANDEZZA_FISICA_FUNZKEL valore) {
    return ConvertiDa8(testo_di(grandezza_fisica_FunzKel, valore, &s_campo_fid::testo));
}

std::string CFunzioni::getStrObj(OGGETTO_MISURATO_FUNZKEL valore) {
    return ConvertiDa8(testo_di(oggetto_misurato_FunzKel, valore, &s_campo_fid::testo));
}

std::string CFunzioni::getStrPos(POSIZIONE_FUNZKEL valore) {
    return ConvertiDa8(testo_di(posizione_FunzKel, valore, &s_campo_fid::testo));
}

std::string CFunzioni::getXmlStrPhi(GRANDEZZA_FISICA_FUNZKEL valore) {
    return ConvertiDa8(testo_di(grandezza_fisica_FunzKel, valore, &s_campo_fid::xml));
}

std::string CFunzioni::getXmlStrObj(OGGETTO_MISURATO_FUNZKEL valore) {
    return ConvertiDa8(testo_di(oggetto_misurato_FunzKel, valore, &s_campo_fid::xml));
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
