// Set-up of a caller's record: every sample type, the functions of every kind of channel, with a unit, with that of the
// record, and with a pointer in the record that leads to memory that nobody may read.
#include <array>
#include <cstring>
#include <optional>

#include "comune/recinto.h"
#include "exhaustive/lettore.h"
#include "exhaustive/spazi.h"
#include "model/campi.h"
#include "model/sottocampi.h"

namespace esaustivo {

namespace {

using modello::Canale;
using modello::Fid;

constexpr unsigned TIPI = 40;  // those above 24 are none

// Where the record finds its unit.
enum class Unita { data, rimasta, proibita };

struct Caso {
    Canale canale;
    Fid fid = 0;
    modello::Campo campo;
    bool in_testa = false;
    bool reciproco = false;
    Unita unita = Unita::data;
    unsigned char byte = 0;
};

std::string descrivi(const Caso& caso) {
    constexpr std::array<const char*, 3> unita = {"given", "left from before", "never set"};
    return "sample type " + std::to_string(caso.canale.tipo) + " channel " + esadecimale(caso.canale.fid) +
           " function " + esadecimale(caso.fid) + " position " + std::to_string(caso.campo.pos_bit) + " count " +
           std::to_string(caso.campo.num_bit) + (caso.reciproco ? " reciprocal" : "") + " unit " +
           unita.at(static_cast<std::size_t>(caso.unita)) + " bytes " + esadecimale(caso.byte);
}

std::vector<Fid> funzioni_del_canale() {
    std::vector<Fid> tutte = {0x10, 0x0F, 0x1F, 0x606, modello::componi(26, 4, 0)};
    for (const unsigned dettagli : {1U, 2U, 3U})
        for (unsigned spec = 0; spec < 4; spec++)
            tutte.push_back(modello::componi(26, dettagli, spec));
    return tutte;
}

// The model's converter; none where it needs a unit and has none, which no caller may ask for.
std::optional<modello::Convertitore> modello_di(const Caso& caso, std::uint32_t maschera,
                                                const modello::RigaUdm& unita) {
    const modello::Prima prima{maschera, caso.unita == Unita::rimasta ? &unita : nullptr};
    try {
        return modello::Convertitore(prima, caso.canale, caso.fid, caso.unita == Unita::data ? &unita : nullptr,
                                     caso.campo, caso.in_testa);
    } catch (const modello::SenzaUnita&) {
        return std::nullopt;
    }
}

void imposta(const Caso& caso, const kel_test::Recinto& recinto, Conta& conta) {
    modello::RigaUdm unita = modello::tabelle().udm.at("C_udm_associate").at(1);
    unita.reciproco = caso.reciproco ? 1 : 0;
    const s_converter_data dati = dati_di(unita);
    s_kel_converter record = registro_qualunque(caso.byte);
    const auto atteso = modello_di(caso, record.maschera, unita);
    if (!atteso)
        return;
    // A row's worth of the forbidden page behind the fence.
    const void* proibito = recinto.in_fondo(0);
    if (caso.unita == Unita::rimasta)
        record.dati = &dati;
    else if (caso.unita == Unita::proibita)
        record.dati = static_cast<const s_converter_data*>(proibito);
    s_kel_converter prima = record;
    const s_kel_canale canale = canale_di(caso.canale);
    kelConvInit(&record, &canale, caso.fid, caso.unita == Unita::data ? &dati : nullptr,
                static_cast<unsigned short>(caso.campo.pos_bit), static_cast<unsigned short>(caso.campo.num_bit),
                caso.in_testa ? 1 : 0);
    if (caso.unita == Unita::data)
        prima.dati = &dati;
    std::string diverso = differenza(record, *atteso);
    if (record.dati != prima.dati)
        diverso = "unit";
    if (record.larghezza != prima.larghezza || record.decimali != prima.decimali ||
        record.auto_decimali != prima.auto_decimali ||
        std::memcmp(&record.formato, &prima.formato, sizeof record.formato) != 0)
        diverso = "look";
    conta.caso(diverso.empty(), record.maschera, [&] { return descrivi(caso) + ": another " + diverso; });
}

void impostazioni(unsigned tipo, Conta& conta) {
    static const kel_test::Recinto recinto;
    constexpr std::array<modello::Campo, 5> campi = {{{0, 0, 0}, {0, 8, 0}, {3, 5, 0}, {30, 2, 0}, {40, 1, 0}}};
    Caso caso;
    caso.canale.tipo = tipo;
    caso.canale.offset = 70000;
    for (const Fid canale : funzioni_del_canale()) {
        caso.canale.fid = canale;
        std::list<Fid> funzioni = modello::funzioni_interne(canale);
        funzioni.insert(funzioni.end(), {canale, 0x11U, 0xB9D20U, 0U});
        for (const Fid fid : funzioni)
            for (const modello::Campo& campo : campi)
                for (const bool reciproco : {false, true})
                    for (const bool in_testa : {false, true})
                        for (const Unita unita : {Unita::data, Unita::rimasta, Unita::proibita})
                            for (const unsigned byte : {0x00U, 0x5AU, 0xFFU}) {
                                caso.fid = fid;
                                caso.campo = campo;
                                caso.reciproco = reciproco;
                                caso.in_testa = in_testa;
                                caso.unita = unita;
                                caso.byte = static_cast<unsigned char>(byte);
                                imposta(caso, recinto, conta);
                            }
    }
}

}  // namespace

std::vector<Spazio> spazi_impostazioni() {
    return {{"set-ups", "every sample type set up in records of any bytes, with and without a unit", TIPI, 1,
             impostazioni}};
}

}  // namespace esaustivo
