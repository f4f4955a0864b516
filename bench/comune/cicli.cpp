#include "comune/cicli.h"

#include <cstring>

namespace ciclo {
namespace {

// The part of a text that a field has, "" for a value without a descriptor.
template <std::size_t N>
std::string testo(const s_campo_fid (&tabella)[N], unsigned valore) {
    for (const s_campo_fid& riga : tabella)
        if (riga.valore == static_cast<int>(valore))
            return riga.testo;
    return "";
}

template <typename Riga>
const char* nome_intero(const Riga* tabella, kel_funpos fid) {
    for (; kelFidFineTabella(tabella->fid) == 0; ++tabella)
        if (tabella->fid == fid)
            return tabella->testo;
    return nullptr;
}

const char* nome_in_tabella(kel_funpos fid) {
    if (const char* nome = nome_intero(funz_ZumikoCam_base, fid))
        return nome;
    if (const char* nome = nome_intero(funz_ZumikoCam_estese, fid))
        return nome;
    if (const char* nome = nome_intero(funz_Kel, fid))
        return nome;
    const s_grandezza_fisica_uiv* riga = grandezza(fid);
    if (riga == nullptr)
        return nullptr;
    if (kelFidOggetto(riga->chiave) == kelFidOggetto(fid))
        for (int i = 0; i < riga->num_varianti; ++i)
            if (riga->varianti[i].posizione == kelFidPosizione(fid))
                return riga->varianti[i].testo;
    return riga->testo;
}

const char* breve_camera(kel_funpos fid) {
    for (const t_SFunzioneZumikoCam& riga : funz_ZumikoCam_base)
        if (riga.fid == fid)
            return riga.breve;
    for (const t_SFunzioneZumikoCam& riga : funz_ZumikoCam_estese)
        if (riga.fid == fid)
            return riga.breve;
    return nullptr;
}

std::string lati(kel_funpos fid) {
    return testo(leftright_FunzKel, kelFidLeftRight(fid)) + testo(frontrear_FunzKel, kelFidFrontRear(fid)) +
           testo(updown_FunzKel, kelFidUpDown(fid));
}

// A word of a name; an unknown value has none.
std::string parola(const std::string& testo, bool noto) {
    return noto ? testo + " " : "";
}

bool voluta(kel_funpos chiave, const std::vector<unsigned>& filtro) {
    for (const kel_funpos elemento : filtro)
        if (kelFidGrandezza(elemento) == kelFidGrandezza(chiave) &&
            (kelFidOggetto(elemento) == 0 || kelFidOggetto(elemento) == kelFidOggetto(chiave)))
            return true;
    return filtro.empty();
}

}  // namespace

const s_grandezza_fisica_uiv* grandezza(kel_funpos fid) {
    for (const s_grandezza_fisica_uiv& riga : uib_grandezza_fisica_uiv)
        if (kelFidFineTabella(riga.chiave) == 0 && kelFidGrandezza(riga.chiave) == kelFidGrandezza(fid) &&
            (kelFidOggetto(riga.chiave) == kelFidOggetto(fid) || kelFidOggetto(riga.chiave) == 0))
            return &riga;
    return nullptr;
}

std::string nome(kel_funpos fid, bool tutti) {
    if (const char* trovato = nome_in_tabella(fid))
        return trovato;
    const unsigned oggetto = kelFidOggetto(fid);
    const unsigned posizione = kelFidPosizione(fid);
    const unsigned inout = kelFidInOut(fid);
    std::string frase = parola(testo(grandezza_fisica_FunzKel, kelFidGrandezza(fid)), kelFidGrandezza(fid) < 32);
    if (kelFidGrandezza(fid) == FID_PHI_PACKAGE) {
        frase += parola(testo(dettagli_FunzKel, oggetto), oggetto < 4);
        frase += parola(testo(posizione_FunzKel, posizione), posizione < 23 && (posizione != 0 || tutti));
    } else {
        frase += parola(testo(oggetto_misurato_FunzKel, oggetto), oggetto < 58 && (oggetto != 0 || tutti));
    }
    frase += parola(testo(inout_FunzKel, inout), inout != 0 || tutti);
    frase += (kelFidNumerato(fid) != 0 ? std::to_string(kelFidNumero(fid)) : lati(fid)) + " ";
    while (!frase.empty() && frase.back() == ' ' && frase.find_first_not_of(' ') != std::string::npos)
        frase.pop_back();
    return frase;
}

s_nome_breve nome_breve(kel_funpos fid) {
    std::string composto;
    if (const char* trovato = breve_camera(fid)) {
        composto = trovato;
    } else {
        composto = testo(grandezza_fisica_FunzKel, kelFidGrandezza(fid));
        if (kelFidGrandezza(fid) == FID_PHI_PACKAGE)
            composto += testo(dettagli_FunzKel, kelFidOggetto(fid)) + testo(posizione_FunzKel, kelFidPosizione(fid));
        else
            composto += testo(oggetto_misurato_FunzKel, kelFidOggetto(fid));
        composto += testo(inout_FunzKel, kelFidInOut(fid));
        composto += kelFidNumerato(fid) != 0 ? std::to_string(kelFidNumero(fid)) : lati(fid);
    }
    s_nome_breve nome = {};
    composto.copy(nome.testo, sizeof nome.testo - 1);
    return nome;
}

void funzioni(Funzioni& trovate, const std::vector<unsigned>& filtro) {
    trovate.clear();
    for (const s_grandezza_fisica_uiv& riga : uib_grandezza_fisica_uiv) {
        if (kelFidFineTabella(riga.chiave) != 0 || !voluta(riga.chiave, filtro))
            continue;
        const auto gruppo = static_cast<GRANDEZZA_FISICA_FUNZKEL>(kelFidGrandezza(riga.chiave));
        if (riga.num_varianti == 0)
            trovate[gruppo].push_back({riga.chiave, riga.testo});
        for (int i = 0; i < riga.num_varianti; ++i)
            trovate[gruppo].push_back(
                {riga.chiave | kelFidComponi(0, 0, riga.varianti[i].posizione), riga.varianti[i].testo});
    }
}

void dettagli(kel_funpos fid, Dettagli& trovati) {
    trovati.lati.clear();
    trovati.inout.clear();
    const s_grandezza_fisica_uiv* riga = grandezza(fid);
    for (int i = 0; riga != nullptr && i < riga->num_varianti; ++i) {
        const s_variante_posizione& variante = riga->varianti[i];
        if (variante.posizione != kelFidPosizione(fid))
            continue;
        for (int j = 0; j < variante.num_lati; ++j)
            trovati.lati[variante.lati[j].chiave] = variante.lati[j].testo;
        for (int j = 0; j < variante.num_inout; ++j)
            trovati.inout[variante.inout[j].chiave] = variante.inout[j].testo;
        trovati.primo = variante.primo;
        trovati.ultimo = variante.ultimo;
        return;
    }
}

}  // namespace ciclo
