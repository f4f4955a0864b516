// Converters: any channel record, any function, any unit and any look, on samples of any bytes.
//
// Proves that no read touches a byte beside the sample, that values and texts are those of the model whatever the bytes
// are, that the text ends inside its 32 bytes, and that flat and object face agree. The sample ends at a page that may
// not be touched, then begins right behind one. A record holds any bytes before it is set up, its pointer to the unit leads
// to such a page as well, and where no unit is needed none is given.
#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>
#include <string>
#include <vector>

#include "CConverter.h"
#include "bersaglio.h"
#include "comune/recinto.h"
#include "comune/tipi_campione.h"
#include "comune/unita_necessaria.h"
#include "exhaustive/lettore.h"
#include "ingredienti.h"
#include "model/campi.h"

namespace {

using esaustivo::Lettore;
using fuzz::Ingredienti;
using fuzz::pretendi;

constexpr std::array<modello::Fid, 12> FUNZIONI = {0x1A,   0x9A,    0x809A, 0x1009A, 0x11A, 0x19A,
                                                   0x819A, 0x1019A, 0x1F,   0x606,   0xF,   0x10};

modello::Fid funzione_canale(Ingredienti& da) {
    const std::size_t quale = da.scelta(FUNZIONI.size() + 1);
    return quale < FUNZIONI.size() ? FUNZIONI.at(quale) : da.u32();
}

// The channel's own function, one of its packet's subfields, or any.
modello::Fid funzione(Ingredienti& da, modello::Fid canale) {
    std::list<kel_funpos> interne;
    CConverter::getAllInnerFunpos(canale, interne);
    const std::size_t quale = da.scelta(interne.size() + 2);
    if (quale < interne.size())
        return *std::next(interne.begin(), static_cast<std::ptrdiff_t>(quale));
    return quale == interne.size() ? canale : da.u32();
}

modello::RigaUdm unita(Ingredienti& da) {
    static const std::vector<modello::RigaUdm> righe = [] {
        std::vector<modello::RigaUdm> tutte;
        for (const auto& [nome, tabella] : modello::tabelle().udm)
            tutte.insert(tutte.end(), tabella.begin(), tabella.end());
        return tutte;
    }();
    const std::size_t quale = da.scelta(righe.size() + 1);
    if (quale < righe.size())
        return righe.at(quale);
    modello::RigaUdm riga = righe.front();
    riga.offset = da.reale();
    riga.gain = da.reale();
    riga.reciproco = static_cast<int>(da.scelta(2));
    return riga;
}

modello::Aspetto aspetto(Ingredienti& da) {
    modello::Aspetto come;
    const unsigned larghezza = da.u8();
    come.larghezza = larghezza < 250 ? larghezza % 50 : da.u32();
    const unsigned decimali = da.u8();
    come.decimali = decimali < 250 ? decimali % 7 : da.u32();
    come.auto_decimali = static_cast<unsigned>(da.scelta(2));
    come.formato = static_cast<unsigned>(da.scelta(4));
    return come;
}

// A record that its caller has not cleared.
s_kel_converter indefinito(Ingredienti& da, const kel_test::Recinto& recinto) {
    s_kel_converter prima;
    std::memset(static_cast<void*>(&prima), da.u8() ^ 0xA5, sizeof prima);
    const auto byte = da.byte(sizeof prima);
    std::memcpy(static_cast<void*>(&prima), byte.data(), byte.size());
    prima.dati = reinterpret_cast<const s_converter_data*>(recinto.in_fondo(0));
    return prima;
}

// Whether a packet channel is asked for something that its packet does not have: the set-up ends there.
bool senza_sottocampo(const modello::Canale& canale, modello::Fid fid) {
    return modello::grandezza(canale.fid) == FID_PHI_PACKAGE && canale.fid != fid &&
           kelConvMatchSottocampo(modello::oggetto(canale.fid), modello::posizione(canale.fid), fid) == 0;
}

// Bytes that the reads of a function of a channel may touch: the whole packet where one of its subfields is asked for,
// else one sample.
std::size_t dimensione(const modello::Canale& canale, modello::Fid fid) {
    const bool pacchetto = modello::grandezza(canale.fid) == FID_PHI_PACKAGE && canale.fid != fid;
    if (pacchetto && search_sottocampi_struct(modello::oggetto(canale.fid), modello::posizione(canale.fid)) != nullptr)
        switch (modello::oggetto(canale.fid)) {
            case FID_DETTAGLI_LAPTIME:
                return kelFunGetSamplSize(modello::posizione(canale.fid) == 1 ? KEL_TIPO_LAP_1G : KEL_TIPO_LAP_2G);
            case FID_DETTAGLI_DATETIME:
                return kelFunGetSamplSize(KEL_TIPO_DATA_ORA);
            default:
                return kelFunGetSamplSize(modello::posizione(canale.fid) == 1 ? KEL_TIPO_GPS_NAVSOL : KEL_TIPO_GPS_KEL);
        }
    return kelFunGetSamplSize(canale.tipo);
}

bool uguali(float uno, float altro) {
    return std::bit_cast<std::uint32_t>(uno) == std::bit_cast<std::uint32_t>(altro) ||
           (std::isnan(uno) && std::isnan(altro));
}

void leggi(Lettore& lettore, const unsigned char* buffer) {
    float valore = -77;
    const bool riuscito = kelConvGetValFloat(&lettore.libreria, buffer, &valore) == 1;
    const float atteso = lettore.modello.ha_valore() ? lettore.modello.valore(buffer).valore : 0.0F;
    pretendi(riuscito == lettore.modello.ha_valore(), "there is a value where the model has one");
    pretendi(uguali(valore, atteso), "the value is the model's",
             [&] { return std::to_string(valore) + ", not " + std::to_string(atteso); });
    const std::string testo(lettore.testo_libreria(buffer));
    const std::string aspettato = lettore.modello.testo(buffer);
    pretendi(testo.size() < 32, "the text ends inside its 32 bytes");
    pretendi(testo == aspettato, "the text is the model's", [&] { return "'" + testo + "', not '" + aspettato + "'"; });
    pretendi(lettore.libreria.decimali == lettore.modello.aspetto.decimali, "the decimals chosen are the model's");
}

// The object face, which has no automatic decimals and no bit fields, on the same sample.
void leggi_oggetto(const s_kel_canale& canale, modello::Fid fid, const Lettore& lettore, bool in_testa,
                   const s_kel_converter& prima, const s_converter_data* dati, const unsigned char* buffer) {
    s_kel_converter conv = prima;
    conv.auto_decimali = 0;
    conv.larghezza = lettore.libreria.larghezza;
    conv.decimali = lettore.libreria.decimali;
    conv.formato = lettore.libreria.formato;
    kelConvInit(&conv, &canale, fid, dati, 0, 0, in_testa ? 1 : 0);
    float valore = -77;
    char testo[32];
    const bool riuscito = kelConvGetValFloat(&conv, buffer, &valore) == 1;
    const bool scritto = kelConvGetString(&conv, buffer, testo) == 1;

    CConverter oggetto(&canale, fid, dati, in_testa, conv.decimali, conv.formato, conv.larghezza);
    float suo = -77;
    std::string suo_testo = "before";
    pretendi(oggetto.GetVal(buffer, &suo) == riuscito && uguali(suo, valore), "both faces read the same value");
    pretendi(oggetto.GetString(buffer, suo_testo) == scritto, "both faces have a text");
    if (scritto)
        pretendi(suo_testo == std::string(testo) + '\0', "both faces write the same text");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* byte, std::size_t quanti) {
    static const kel_test::Recinto recinto;
    pretendi(recinto.pronto(), "there is memory between two forbidden pages");

    Ingredienti da(byte, quanti);
    modello::Canale canale;
    canale.fid = funzione_canale(da);
    const unsigned tipo = da.u8();
    canale.tipo = tipo < 250 ? tipo % (kel_test::TIPI_CAMPIONE + 2) : da.u32();
    const modello::Fid fid = funzione(da, canale.fid);
    const modello::RigaUdm riga = unita(da);
    const modello::Aspetto come = aspetto(da);
    const unsigned bit = da.u8();
    const modello::Campo campo = {bit < 128 ? bit % 40 : da.u16(), bit < 128 ? da.u8() % 40U : da.u16(), 0};
    const bool in_testa = da.scelta(2) == 0;
    canale.offset = da.u16();

    const std::size_t grande = dimensione(canale, fid);
    std::vector<std::uint8_t> campione(grande);
    std::ranges::copy(da.byte(grande), campione.begin());
    const s_kel_canale record = esaustivo::canale_di(canale);
    const bool con_dati = kel_test::unita_necessaria(canale.fid, canale.tipo, fid) || da.scelta(2) == 1;
    const s_kel_converter prima = indefinito(da, recinto);
    for (unsigned char* posto : {recinto.in_fondo(grande), recinto.in_testa()}) {
        std::ranges::copy(campione, posto);
        // A record of all samples begins before this one: where, only its address tells.
        const unsigned char* buffer = in_testa ? posto : posto - canale.offset;
        Lettore lettore(canale, fid, riga, campo, in_testa);
        const s_converter_data* dati = con_dati ? &lettore.dati : nullptr;
        lettore.libreria = prima;
        kelConvInit(&lettore.libreria, &record, fid, dati, static_cast<unsigned short>(campo.pos_bit),
                    static_cast<unsigned short>(campo.num_bit), in_testa ? 1 : 0);
        lettore.aspetto(come);
        pretendi(kelConvGetOffset(&lettore.libreria) == lettore.modello.offset(), "the offset is the model's");
        pretendi(kelConvGetConvData(&lettore.libreria) == (con_dati ? dati : prima.dati),
                 "the unit is the one given, or the pointer as it was");
        pretendi(lettore.libreria.maschera ==
                     (senza_sottocampo(canale, fid) ? prima.maschera : lettore.modello.campo().maschera),
                 "the mask is the model's, or as it was when the set-up ends early");
        leggi(lettore, buffer);
        leggi(lettore, buffer);  // automatic decimals remember
        leggi_oggetto(record, fid, lettore, in_testa, prima, dati, buffer);
    }
    return 0;
}
