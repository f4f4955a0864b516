#include "object/nome_composto.h"

#include <cstddef>
#include <iterator>
#include <span>
#include <utility>

namespace kel {
namespace {

// A name in the making.
class Frase {
public:
    Frase(const CFunzioni& catalogo, bool tutti) : catalogo_(catalogo), tutti_(tutti) {
        testo_.reserve(63);  // more than most names need
    }

    // A value's text and a blank; nothing for a value that the table does not have.
    void parola(std::span<const s_campo_fid> tabella, unsigned valore) {
        if (valore >= tabella.size())
            return;
        testo(tabella[valore]);
        testo_ += ' ';
    }

    // The same, but without a value (0) only where every field is asked for: most of these texts are empty.
    void parola_se_data(std::span<const s_campo_fid> tabella, unsigned valore) {
        if (valore != 0 || tutti_)
            parola(tabella, valore);
    }

    // Left/right, front/rear and up/down are one word.
    void lati(kel_funpos fid) {
        lato(leftright_FunzKel[kelFidLeftRight(fid)]);
        lato(frontrear_FunzKel[kelFidFrontRear(fid)]);
        lato(updown_FunzKel[kelFidUpDown(fid)]);
    }

    // 0 to 63, in one or two digits.
    void numero(unsigned numero) {
        const char cifre[] = {static_cast<char>('0' + numero / 10), static_cast<char>('0' + numero % 10)};
        testo_.append(cifre + (numero < 10 ? 1 : 0), std::end(cifre));
    }

    // Without the blanks at its end. A name of blanks alone keeps them, and gets the one behind its last word.
    std::string finita() && {
        const std::size_t ultimo = testo_.find_last_not_of(' ');
        if (ultimo == std::string::npos)
            testo_ += ' ';
        else
            testo_.erase(testo_.begin() + static_cast<std::ptrdiff_t>(ultimo) + 1, testo_.end());
        return std::move(testo_);
    }

private:
    // Not inlined: the strings that come and go here would be built in six places.
    [[gnu::noinline]] void testo(const s_campo_fid& riga) { testo_ += catalogo_.ConvertiDa8(riga.testo); }

    void lato(const s_campo_fid& riga) {
        if (riga.valore != 0 || tutti_)
            testo(riga);
    }

    const CFunzioni& catalogo_;
    bool tutti_;
    std::string testo_;
};

}  // namespace

std::string nome_composto(const CFunzioni& catalogo, kel_funpos fid, bool tutti) {
    Frase frase(catalogo, tutti);
    frase.parola(grandezza_fisica_FunzKel, kelFidGrandezza(fid));
    // The bits of the object are never a packet's details here: packets have a row in the quantity table, which names
    // them.
    frase.parola_se_data(oggetto_misurato_FunzKel, kelFidOggetto(fid));
    frase.parola_se_data(inout_FunzKel, kelFidInOut(fid));
    if (kelFidNumerato(fid) != 0)
        frase.numero(kelFidNumero(fid));
    else
        frase.lati(fid);
    return std::move(frase).finita();
}

}  // namespace kel
