#include "exhaustive/libreria.h"

#include <memory>

#include "comune/tabelle.h"

namespace esaustivo {

const s_udm_associata& riga_unita(const modello::RigaTrovata& riga) {
    return kel_test::tabelle_unita().at(riga.tabella)[riga.riga];
}

const s_sottocampo* sottocampi_di(const std::string& nome) {
    return kel_test::tabelle_sottocampi().at(nome).data();
}

s_converter_data dati_di(const modello::RigaUdm& riga) {
    return {riga.testo.c_str(), riga.offset, riga.gain, riga.reciproco};
}

s_kel_canale canale_di(const modello::Canale& canale) {
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
