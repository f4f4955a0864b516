#include "campi.h"

#include <algorithm>
#include <cstring>

#include "errori.h"
#include "numeri.h"

namespace kel::strumento {

namespace {

const s_campo_fid* riga(std::span<const s_campo_fid> tabella, unsigned valore) {
    return valore < tabella.size() ? &tabella[valore] : nullptr;
}

}  // namespace

std::span<const s_campo_fid> specializzazioni(unsigned dettagli) {
    if (dettagli == FID_DETTAGLI_GPS)
        return specializzazione_gps_FunzKel;
    if (dettagli == FID_DETTAGLI_LAPTIME)
        return specializzazione_laptime_FunzKel;
    return {};
}

const Vocabolario& grandezze() {
    static const Vocabolario vocabolario = {"--quantity", "FID_PHI_", grandezza_fisica_FunzKel, FID_MASK_PHI};
    return vocabolario;
}

std::vector<Campo> campi(kel_funpos fid) {
    const unsigned grandezza = kelFidGrandezza(fid);
    const unsigned oggetto = kelFidOggetto(fid);
    const unsigned posizione = kelFidPosizione(fid);
    std::vector<Campo> campi;
    campi.push_back({"quantity", "quantity", grandezza, riga(grandezza_fisica_FunzKel, grandezza)});
    if (grandezza == FID_PHI_PACKAGE) {
        campi.push_back({"details", "details", oggetto, riga(dettagli_FunzKel, oggetto)});
        campi.push_back({"specialisation", "specialisation", posizione, riga(specializzazioni(oggetto), posizione)});
    } else {
        campi.push_back({"object", "object", oggetto, riga(oggetto_misurato_FunzKel, oggetto)});
        campi.push_back({"position", "position", posizione, riga(posizione_FunzKel, posizione)});
    }
    campi.push_back({"inout", "in/out", kelFidInOut(fid), riga(inout_FunzKel, kelFidInOut(fid))});
    if (kelFidNumerato(fid)) {
        campi.push_back({"number", "number", kelFidNumero(fid), nullptr});
    } else {
        campi.push_back(
            {"leftright", "left/right", kelFidLeftRight(fid), riga(leftright_FunzKel, kelFidLeftRight(fid))});
        campi.push_back(
            {"frontrear", "front/rear", kelFidFrontRear(fid), riga(frontrear_FunzKel, kelFidFrontRear(fid))});
        campi.push_back({"updown", "up/down", kelFidUpDown(fid), riga(updown_FunzKel, kelFidUpDown(fid))});
    }
    if (fid >> 29 != 0)  // no field of an identifier, but a caller may have set them
        campi.push_back({"unused", "bits 29-31", fid >> 29, nullptr});
    return campi;
}

std::string normale(std::string_view testo) {
    std::string uscita;
    for (const char c : testo) {
        if (c == ' ' || c == '_' || c == '-')
            uscita += uscita.empty() || uscita.back() == ' ' ? "" : " ";
        else
            uscita += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    if (!uscita.empty() && uscita.back() == ' ')
        uscita.pop_back();
    return uscita;
}

std::string parole(const Vocabolario& vocabolario, const s_campo_fid& riga) {
    std::string testo = normale(riga.xml + std::strlen(vocabolario.prefisso));
    std::replace(testo.begin(), testo.end(), ' ', '-');
    return testo;
}

const s_campo_fid* cercaNome(const Vocabolario& vocabolario, std::string_view nome) {
    const std::string cercato = normale(nome);
    if (cercato.empty())
        return nullptr;
    for (const s_campo_fid& r : vocabolario.righe)
        if (normale(r.xml) == cercato)
            return &r;
    for (const s_campo_fid& r : vocabolario.righe)
        if (normale(parole(vocabolario, r)) == cercato)
            return &r;
    for (const s_campo_fid& r : vocabolario.righe)
        if (normale(r.testo) == cercato)
            return &r;
    return nullptr;
}

unsigned leggiCampo(const Vocabolario& vocabolario, std::string_view nome) {
    if (const s_campo_fid* r = cercaNome(vocabolario, nome))
        return static_cast<unsigned>(r->valore);
    if (const auto numero = leggiIntero(nome, 0, vocabolario.massimo))
        return static_cast<unsigned>(*numero);
    std::string accettati;
    for (const s_campo_fid& r : vocabolario.righe)
        accettati += parole(vocabolario, r) + ", ";
    throw ErroreUso("there is no " + std::string(vocabolario.opzione) + " '" + std::string(nome) +
                    "'; accepted: " + accettati + "or a number from 0 to " + std::to_string(vocabolario.massimo));
}

}  // namespace kel::strumento
