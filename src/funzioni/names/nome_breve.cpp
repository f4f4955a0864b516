// The short name of a function: its camera row's, or the texts of its fields without separators. The catalogue's operation
// stands elsewhere: a C program linked with the static library takes this file, and no C++ library with it.
#include <cstddef>

#include "kelfunzioni.h"

namespace {

// Appends to a short name, cut so that its NUL always fits.
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

    // 0 to 63.
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
    // Neither the legacy table nor the quantity table is asked, unlike for the long name.
    composizione.campo(grandezza_fisica_FunzKel, kelFidGrandezza(fid));
    if (kelFidGrandezza(fid) == FID_PHI_PACKAGE) {
        composizione.campo(dettagli_FunzKel, kelFidOggetto(fid));
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
