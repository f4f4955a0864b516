#include "domain/campi.h"

#include <algorithm>
#include <cstring>

#include "domain/sinonimi.h"
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
    return *vocabolario(OPZIONE_GRANDEZZA);
}

const Vocabolario* vocabolario(std::string_view opzione, unsigned dettagli) {
    static const Vocabolario campi[] = {
        {OPZIONE_GRANDEZZA, "FID_PHI_", grandezza_fisica_FunzKel, FID_MASK_PHI},
        {OPZIONE_OGGETTO, "FID_OBJ_", oggetto_misurato_FunzKel, FID_MASK_OBJ},
        {OPZIONE_POSIZIONE, "FID_POS_", posizione_FunzKel, FID_MASK_POS},
        {OPZIONE_INOUT, "FID_INOUT_", inout_FunzKel, FID_MASK_INOUT},
        {OPZIONE_DETTAGLI, "FID_DETTAGLI_", dettagli_FunzKel, FID_MASK_OBJ},
    };
    static const Vocabolario gps = {OPZIONE_SPECIALIZZAZIONE, "FID_SPEC_GPS_", specializzazione_gps_FunzKel,
                                    FID_MASK_POS};
    static const Vocabolario giro = {OPZIONE_SPECIALIZZAZIONE, "FID_SPEC_LAPTIME_", specializzazione_laptime_FunzKel,
                                     FID_MASK_POS};
    if (opzione == OPZIONE_SPECIALIZZAZIONE)
        return dettagli == FID_DETTAGLI_GPS ? &gps : dettagli == FID_DETTAGLI_LAPTIME ? &giro : nullptr;
    for (const Vocabolario& uno : campi)
        if (uno.opzione == opzione)
            return &uno;
    return nullptr;
}

std::vector<Campo> campi(kel_funpos fid) {
    const unsigned grandezza = kelFidGrandezza(fid);
    const unsigned oggetto = kelFidOggetto(fid);
    const unsigned posizione = kelFidPosizione(fid);
    std::vector<Campo> campi;
    const auto campo = [&](const char* chiave, const char* titolo, unsigned bit, unsigned maschera, unsigned valore,
                           std::span<const s_campo_fid> tabella) {
        const auto quanti = static_cast<unsigned>(std::bit_width(maschera));
        campi.push_back({chiave, titolo, bit, quanti, valore, riga(tabella, valore)});
    };
    campo("quantity", "quantity", FID_SHIFT_PHI, FID_MASK_PHI, grandezza, grandezza_fisica_FunzKel);
    if (grandezza == FID_PHI_PACKAGE) {
        campo("details", "details", FID_SHIFT_OBJ, FID_MASK_OBJ, oggetto, dettagli_FunzKel);
        campo("specialisation", "specialisation", FID_SHIFT_POS, FID_MASK_POS, posizione, specializzazioni(oggetto));
    } else {
        campo("object", "object", FID_SHIFT_OBJ, FID_MASK_OBJ, oggetto, oggetto_misurato_FunzKel);
        campo("position", "position", FID_SHIFT_POS, FID_MASK_POS, posizione, posizione_FunzKel);
    }
    campo("inout", "in/out", FID_SHIFT_INOUT, FID_MASK_INOUT, kelFidInOut(fid), inout_FunzKel);
    if (kelFidNumerato(fid)) {
        campo("number", "number", FID_SHIFT_NUMBER, FID_MASK_NUMBER, kelFidNumero(fid), {});
    } else {
        campo("leftright", "left/right", FID_SHIFT_LEFTRIGHT, FID_MASK_LEFTRIGHT, kelFidLeftRight(fid),
              leftright_FunzKel);
        campo("frontrear", "front/rear", FID_SHIFT_FRONTREAR, FID_MASK_FRONTREAR, kelFidFrontRear(fid),
              frontrear_FunzKel);
        campo("updown", "up/down", FID_SHIFT_UPDOWN, FID_MASK_UPDOWN, kelFidUpDown(fid), updown_FunzKel);
    }
    if (fid >> PRIMO_BIT_LIBERO != 0)  // no field of an identifier, but a caller may have set them
        campo("unused", "bits 29-31", PRIMO_BIT_LIBERO, ~kel_funpos{0} >> PRIMO_BIT_LIBERO, fid >> PRIMO_BIT_LIBERO,
              {});
    return campi;
}

std::string parole(const Vocabolario& vocabolario, const s_campo_fid& riga) {
    std::string testo = normale(riga.xml + std::strlen(vocabolario.prefisso));
    std::replace(testo.begin(), testo.end(), ' ', '-');
    return testo;
}

const s_campo_fid* cerca_nome(const Vocabolario& vocabolario, std::string_view nome) {
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

unsigned leggi_campo(const Vocabolario& vocabolario, std::string_view nome) {
    if (const s_campo_fid* r = cerca_nome(vocabolario, nome))
        return static_cast<unsigned>(r->valore);
    if (const auto numero = leggi_intero(nome, 0, vocabolario.massimo))
        return static_cast<unsigned>(*numero);
    std::vector<std::string> nomi;
    for (const s_campo_fid& r : vocabolario.righe)
        nomi.push_back(parole(vocabolario, r));
    throw ErroreUso("there is no " + std::string(vocabolario.opzione) + " '" + std::string(nome) + "'; " +
                    proposta(nome, nomi) + "accepted: " + elenco(nomi) + ", or a number from 0 to " +
                    std::to_string(vocabolario.massimo));
}

}  // namespace kel::strumento
