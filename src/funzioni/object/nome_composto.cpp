// A readable phrase from the fields of an identifier.
#include "object/nome_composto.h"

#include <span>
#include <utility>

#include "object/conversione_testi.h"

namespace kel {
namespace {

// The long name's parts, each with its separator.
class Frase {
public:
    explicit Frase(bool tutti) : tutti_(tutti) {
        testo_.reserve(63);  // more than most phrases need
    }

    void parola(std::span<const s_campo_fid> tabella, unsigned valore) {
        if (valore >= tabella.size())
            return;
        aggiungi_da_8(testo_, tabella[valore].testo);
        testo_ += ' ';
    }

    // Undefined values only where every field is asked for.
    void parola_se_data(std::span<const s_campo_fid> tabella, unsigned valore) {
        if (valore != 0 || tutti_)
            parola(tabella, valore);
    }

    // Left/right, front/rear and up/down are one word; an undefined one has no text.
    void lati(kel_funpos fid) {
        aggiungi_da_8(testo_, leftright_FunzKel[kelFidLeftRight(fid)].testo);
        aggiungi_da_8(testo_, frontrear_FunzKel[kelFidFrontRear(fid)].testo);
        aggiungi_da_8(testo_, updown_FunzKel[kelFidUpDown(fid)].testo);
        testo_ += ' ';
    }

    void numero(unsigned numero) {
        testo_ += std::to_string(numero);
        testo_ += ' ';
    }

    // Trailing blanks go, unless there is nothing else; leading and inner ones stay.
    std::string finita() && {
        const std::size_t ultimo = testo_.find_last_not_of(' ');
        if (ultimo != std::string::npos)
            testo_.erase(ultimo + 1);
        return std::move(testo_);
    }

private:
    bool tutti_;
    std::string testo_;
};

}  // namespace

std::string nome_composto(kel_funpos fid, bool tutti) {
    Frase frase(tutti);
    frase.parola(grandezza_fisica_FunzKel, kelFidGrandezza(fid));
    frase.parola_se_data(oggetto_misurato_FunzKel, kelFidOggetto(fid));  // never details: packets have their row's name
    frase.parola_se_data(inout_FunzKel, kelFidInOut(fid));
    if (kelFidNumerato(fid) != 0)
        frase.numero(kelFidNumero(fid));
    else
        frase.lati(fid);
    return std::move(frase).finita();
}

}  // namespace kel
