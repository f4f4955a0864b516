// Look-up texts and identifiers through every look-up of both faces.
//
// Proves that no look-up reads past a text's NUL (texts lie in blocks of exactly their size) and that units, decimals,
// conversions, legacy identifiers, field values and names are the model's for any text and any identifier.
#include <bit>
#include <cmath>
#include <cstring>
#include <string>

#include "bersaglio.h"
#include "exhaustive/libreria.h"
#include "ingredienti.h"
#include "model/camera.h"
#include "model/campi.h"
#include "model/nomi.h"
#include "model/unita.h"

namespace {

using fuzz::pretendi;
using fuzz::TestoEsatto;

void unita(modello::Fid fid, const TestoEsatto& esatto) {
    const std::string udm = esatto.str();
    const IFunzioni& catalogo = esaustivo::catalogo();
    const auto dove = [&] { return "'" + udm + "' of " + std::to_string(fid); };
    pretendi(kelFunGetUdmCode(esatto.c_str()) == modello::codice_testo(udm), "the code of a unit", dove);
    pretendi(kelFunGetNumDecimaliDefault(fid, esatto.c_str()) == modello::decimali_default(fid, udm), "decimals", dove);
    pretendi(kelFunGetNumDecimaliMax(fid, esatto.c_str()) == modello::decimali_max(fid, udm), "most decimals", dove);
    pretendi(kelFunGetNumDecimaliMin(fid, esatto.c_str()) == modello::decimali_min(fid, udm), "fewest decimals", dove);
    const auto riga = modello::riga_conversione(fid, udm);
    const s_converter_data* attesa = &esaustivo::riga_unita(riga).dati;
    pretendi(kelFunGetConvData(fid, esatto.c_str()) == attesa, "the row of a unit", dove);
    pretendi(catalogo.getParamConv(fid, udm) == attesa, "the row of a unit, of the catalogue", dove);
    pretendi(catalogo.getNumDecimaliDefault(fid, udm) == modello::decimali_default(fid, udm), "catalogue decimals");
    pretendi(catalogo.getUnitaBase(fid) == modello::unita_base(fid), "the base unit", dove);
}

void tra(modello::Fid fid, const TestoEsatto& da, const TestoEsatto& a) {
    const s_converter_data libreria = kelFunGetConvDatas(fid, da.c_str(), a.c_str());
    const modello::Conversione atteso = modello::conversione_tra(fid, da.str(), a.str());
    pretendi(std::bit_cast<std::uint32_t>(libreria.gain) == std::bit_cast<std::uint32_t>(atteso.gain) &&
                 std::bit_cast<std::uint32_t>(libreria.offset) == std::bit_cast<std::uint32_t>(atteso.offset) &&
                 libreria.reciproco == 0 && *libreria.udm == '\0',
             "the conversion between two units", [&] { return da.str() + " to " + a.str(); });
}

void identificatori(const TestoEsatto& esatto) {
    const std::string id = esatto.str();
    IFunzioni& catalogo = esaustivo::catalogo();
    pretendi(kelFunGetFidDaID(esatto.c_str()) == modello::fid_da_id_vecchio(id), "a legacy identifier",
             [&] { return "'" + id + "'"; });
    pretendi(catalogo.getFidDaID(id) == modello::fid_da_id(id), "a legacy identifier, of the catalogue");
    const auto riga = modello::camera_da_id(id);
    const t_SFunzioneZumikoCam* attesa =
        !riga ? nullptr : (riga->estesa ? funz_ZumikoCam_estese : funz_ZumikoCam_base) + riga->riga;
    pretendi(kelFunGetFunVecchiaZumikoDaID(esatto.c_str()) == attesa, "the camera's row of a legacy identifier",
             [&] { return "'" + id + "'"; });
    pretendi(catalogo.getIdxPhi(id) == modello::valore_campo("grandezza_fisica_FunzKel", id), "a quantity's XML name");
    pretendi(catalogo.getIdxObj(id) == modello::valore_campo("oggetto_misurato_FunzKel", id), "an object's XML name");
    pretendi(catalogo.getIdxPos(id) == modello::valore_campo("posizione_FunzKel", id), "a position's XML name");
    pretendi(catalogo.getIdxFrontRear(id) == modello::valore_campo("frontrear_FunzKel", id), "a side's XML name");
}

void nomi(modello::Fid fid) {
    const IFunzioni& catalogo = esaustivo::catalogo();
    const auto dove = [&] { return std::to_string(fid); };
    const s_nome_breve breve = kelFunGetNomeFunzioneShort(nullptr, fid);
    pretendi(std::memchr(breve.testo, '\0', sizeof breve.testo) != nullptr, "a short name ends", dove);
    pretendi(breve.testo == modello::nome_breve(fid), "a short name", dove);
    for (const bool tutti : {false, true})
        pretendi(catalogo.getNomeFunzione(fid, tutti) == modello::nome_lungo(fid, tutti), "a name", dove);
    pretendi(catalogo.getFidEquivalente(fid) == modello::fid_equivalente(fid), "the quantity row", dove);
    const auto riga = modello::camera_da_fid(fid);
    pretendi((kelFunGetFunVecchiaZumikoDaFID(fid) != nullptr) == riga.has_value(), "the camera's row", dove);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* byte, std::size_t quanti) {
    fuzz::Ingredienti da(byte, quanti);
    const modello::Fid fid = da.u32();
    const TestoEsatto primo(da.testo());
    const TestoEsatto secondo(da.testo());
    unita(fid, primo);
    tra(fid, primo, secondo);
    identificatori(primo);
    nomi(fid);
    return 0;
}
