#include "domain/unita.h"

#include <list>
#include <string>

namespace kel::strumento {

void tabella_unita(Documento& documento, const IFunzioni& catalogo, kel_funpos fid) {
    std::list<std::string> unita;
    catalogo.getFunzUIVs(fid, unita);
    documento.inizia("units", "",
                     {{"unit", "UNIT"},
                      {"code", "CODE", Lato::destra},
                      {"decimals", "DECIMALS", Lato::destra},
                      {"max_decimals", "MAX", Lato::destra},
                      {"min_decimals", "MIN", Lato::destra},
                      {"gain", "GAIN", Lato::destra},
                      {"offset", "OFFSET", Lato::destra},
                      {"reciprocal", "RECIPROCAL"}});
    for (const std::string& udm : unita) {
        const s_converter_data* dati = catalogo.getParamConv(fid, udm);
        const int codice = kelFunGetUdmCode(udm.c_str());
        documento.riga({Cella::testo(udm), codice < 0 ? Cella() : Cella::intero(codice),
                        Cella::intero(catalogo.getNumDecimaliDefault(fid, udm)),
                        Cella::intero(catalogo.getNumDecimaliMax(fid, udm)),
                        Cella::intero(catalogo.getNumDecimaliMin(fid, udm)), Cella::numero(dati->gain),
                        Cella::numero(dati->offset), Cella::logico(dati->reciproco != 0)});
    }
}

}  // namespace kel::strumento
