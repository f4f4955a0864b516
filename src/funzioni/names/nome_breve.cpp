// The short name of a function: that of its camera row, or the texts of its fields one after the other.
//
// The catalogue's operation of the same name is in another file, because it needs std::string. A C program that is
// linked with the static library takes this file only, and so needs no C++ library.
#include <cstddef>

#include "kelfunzioni.h"

namespace {

// Appends to a short name. What is too long is cut, so that there is always room for the NUL.
class Composizione {
public:
    explicit Composizione(s_nome_breve& nome) noexcept : prossimo_(nome.testo), fine_(nome.testo + sizeof nome - 1) {}

    void testo(const char* testo) noexcept {
        while (*testo != '\0' && prossimo_ != fine_)
            *prossimo_++ = *testo++;
    }

    template <std::size_t N>
    void campo(const s_campo_fid (&tabella)[N], unsigned valore) noexcept {
        if (valore < N)
            testo(tabella[valore].testo);
    }

    // An instance number, 0 to 63, without a leading zero.
    void numero(unsigned numero) noexcept {
        const char cifre[] = {static_cast<char>('0' + numero / 10), static_cast<char>('0' + numero % 10), '\0'};
        testo(numero < 10 ? cifre + 1 : cifre);
    }

private:
    char* prossimo_;
    char* const fine_;
};

}  // namespace

s_nome_breve kelFunGetNomeFunzioneShort(const s_set_canali*, kel_funpos fid) noexcept {
    s_nome_breve nome = {};
    Composizione composizione(nome);
    if (const t_SFunzioneZumikoCam* riga = kelFunGetParamZumikoCam(fid)) {
        composizione.testo(riga->breve);
        return nome;
    }
    // The long name is also searched in the legacy table and in the quantity table; the short one is not. So a function
    // that is only there has a composed short name. It is made of the texts of the fields and not of their
    // abbreviations, and is long: "PressureOilEngine". Displays show it so, and it stays.
    composizione.campo(grandezza_fisica_FunzKel, kelFidGrandezza(fid));
    if (kelFidGrandezza(fid) == FID_PHI_PACKAGE) {
        composizione.campo(dettagli_FunzKel, kelFidOggetto(fid));
        // The specialisation of the packet, shown as the position of the same number: 1 is "Admission". It stays so
        // too.
        composizione.campo(posizione_FunzKel, kelFidPosizione(fid));
    } else {
        composizione.campo(oggetto_misurato_FunzKel, kelFidOggetto(fid));
    }
    composizione.campo(inout_FunzKel, kelFidInOut(fid));
    if (kelFidNumerato(fid) != 0) {
        composizione.numero(kelFidNumero(fid));
        return nome;
    }
    composizione.campo(leftright_FunzKel, kelFidLeftRight(fid));
    composizione.campo(frontrear_FunzKel, kelFidFrontRear(fid));
    composizione.campo(updown_FunzKel, kelFidUpDown(fid));
    return nome;
}
