#include "exhaustive/libreria.h"

#include <memory>

#include "comune/tabelle.h"

namespace esaustivo {

const s_udm_associata& rigaUnita(const modello::RigaTrovata& riga) {
    return kel_test::tabelleUnita().at(riga.tabella)[riga.riga];
}

const s_sottocampo* sottocampiDi(const std::string& nome) {
    return kel_test::tabelleSottocampi().at(nome).data();
}

s_converter_data datiDi(const modello::RigaUdm& riga) {
    return {riga.testo.c_str(), riga.offset, riga.gain, riga.reciproco};
}

s_kel_canale canaleDi(const modello::Canale& canale) {
    s_kel_canale record{};
    record.fid = canale.fid;
    record.tipo_campione = canale.tipo;
    record.offset_campione = canale.offset;
    return record;
}

IFunzioni& catalogo() {
    static const std::unique_ptr<IFunzioni> uno(IFunzioni::CreateMe());
    return *uno;
}

}  // namespace esaustivo
