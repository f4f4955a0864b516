#include "domain/campi.h"

#include <algorithm>
#include <cstring>

#include "text/errori.h"
#include "text/numeri.h"

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
    const auto campo = [&](const char* chiave, const char* titolo, unsigned bit, unsigned quanti, unsigned valore,
                           std::span<const s_campo_fid> tabella) {
        campi.push_back({chiave, titolo, bit, quanti, valore, riga(tabella, valore)});
    };
    campo("quantity", "quantity", FID_SHIFT_PHI, 7, grandezza, grandezza_fisica_FunzKel);
    if (grandezza == FID_PHI_PACKAGE) {
        campo("details", "details", FID_SHIFT_OBJ, 8, oggetto, dettagli_FunzKel);
        campo("specialisation", "specialisation", FID_SHIFT_POS, 5, posizione, specializzazioni(oggetto));
    } else {
        campo("object", "object", FID_SHIFT_OBJ, 8, oggetto, oggetto_misurato_FunzKel);
        campo("position", "position", FID_SHIFT_POS, 5, posizione, posizione_FunzKel);
    }
    campo("inout", "in/out", FID_SHIFT_INOUT, 2, kelFidInOut(fid), inout_FunzKel);
    if (kelFidNumerato(fid)) {
        campo("number", "number", FID_SHIFT_NUMBER, 6, kelFidNumero(fid), {});
    } else {
        campo("leftright", "left/right", FID_SHIFT_LEFTRIGHT, 2, kelFidLeftRight(fid), leftright_FunzKel);
        campo("frontrear", "front/rear", FID_SHIFT_FRONTREAR, 2, kelFidFrontRear(fid), frontrear_FunzKel);
        campo("updown", "up/down", FID_SHIFT_UPDOWN, 2, kelFidUpDown(fid), updown_FunzKel);
    }
    if (fid >> PRIMO_BIT_LIBERO != 0)  // no field of an identifier, but a caller may have set them
        campo("unused", "bits 29-31", PRIMO_BIT_LIBERO, 3, fid >> PRIMO_BIT_LIBERO, {});
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
