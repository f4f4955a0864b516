// Converters that are read, changed and set up again in any order, with automatic decimals, against the model.
#include <array>
#include <bit>
#include <cstring>
#include <memory>

#include "IFunzioni.h"
#include "comune/recinto.h"
#include "comune/tipi_campione.h"
#include "kelfunzioni.h"
#include "model/convertitore.h"
#include "model/unita.h"
#include "sequences/generatori.h"

namespace {

using modello::Byte;
using modello::Canale;
using modello::Convertitore;
using sequenze::Operazione;
using Buffer = std::array<Byte, 80>;

// Codes of sample types that are tried: those that have a format, and two behind them.
constexpr unsigned CODICI = kel_test::TIPI_CAMPIONE + 2;

// A sample of any bytes, a float of a size that the texts can show, or a status word: 0xCFFD to 0xCFFF in 16 bits, with
// 0xFF before it in wider integers.
Buffer campione(const Operazione& operazione) {
    Buffer buffer;
    std::uint32_t caso = operazione.secondo * 2654435761U + 1;
    for (Byte& byte : buffer) {
        caso = caso * 1664525U + 1013904223U;
        byte = static_cast<Byte>(caso >> 24);
    }
    if (operazione.primo < 9) {
        constexpr std::array<float, 9> grandezze = {0.001F, 0.1F, 1, 9, 90, 950, 9100, 95000, 1e6F};
        const float resto = static_cast<float>(static_cast<std::int32_t>(operazione.secondo)) / 2147483648.0F;
        const auto bit = std::bit_cast<std::uint32_t>(grandezze.at(operazione.primo) * (1 + resto / 4) *
                                                      (operazione.secondo % 3 == 0 ? -1.0F : 1.0F));
        for (std::size_t i = 0; i < 4; i++)
            buffer[i] = static_cast<Byte>(bit >> (8 * i));
    } else if (operazione.primo == 9) {
        buffer.fill(0xFF);
        buffer[0] = static_cast<Byte>(0xFD + operazione.secondo % 3);
        buffer[1] = 0xCF;
    }
    return buffer;
}

std::string descrivi(const Operazione& operazione) {
    std::ostringstream flusso;
    showValue(operazione, flusso);
    return flusso.str();
}

// A flat record and the model's converter. The record is that of a caller who sets no more than a look: any bytes, and
// a pointer to memory that nobody may read. Looks survive a new set-up, and so does the unit where none is given.
class Fianco {
public:
    Fianco() {
        static const kel_test::Recinto recinto;
        std::memset(&libreria_, 0xA5, sizeof libreria_);
        libreria_.larghezza = libreria_.decimali = libreria_.auto_decimali = 0;
        libreria_.formato = FORMATO_DESTRA;
        const void* proibito = recinto.in_fondo(0);
        libreria_.dati = static_cast<const s_converter_data*>(proibito);
        imposta({0, 6, 8, 0x10});  // a packet, which has no unit
    }

    void imposta(const Operazione& operazione) {
        Canale canale;
        canale.fid = operazione.fid;
        canale.tipo = operazione.secondo % CODICI;
        RC_LOG() << descrivi(operazione) << ": sample type " << canale.tipo << "\n";
        canale.offset = operazione.primo;
        const auto riga = modello::riga_conversione(
            0x14, modello::tabelle().udm.at("kmh_vel_udm_associate").at(operazione.primo % 7).testo);
        const bool data = operazione.secondo / 32 % 2 == 1;
        const s_converter_data* dati = data ? kelFunGetConvData(0x14, riga.dati().testo.c_str()) : nullptr;
        const auto interne = modello::grandezza(operazione.fid) == 26 ? 0xA8010U : operazione.fid;
        const modello::Campo bit{operazione.secondo / CODICI % 20, operazione.secondo / (CODICI * 20) % 3, 0};
        const bool in_testa = operazione.secondo % 2 == 0;
        const modello::Prima prima{libreria_.maschera, modello_ ? modello_->unita_scelta() : nullptr};
        std::unique_ptr<Convertitore> nuovo;
        try {
            nuovo =
                std::make_unique<Convertitore>(prima, canale, interne, data ? &riga.dati() : nullptr, bit, in_testa);
        } catch (const modello::SenzaUnita&) {
            return;  // no caller may set this up without a unit
        }
        nuovo->aspetto = modello_ ? modello_->aspetto : modello::Aspetto{};
        modello_ = std::move(nuovo);
        const s_converter_data* resta = data ? dati : libreria_.dati;
        s_kel_canale record{};
        record.fid = canale.fid;
        record.tipo_campione = canale.tipo;
        record.offset_campione = canale.offset;
        kelConvInit(&libreria_, &record, interne, dati, static_cast<unsigned short>(bit.pos_bit),
                    static_cast<unsigned short>(bit.num_bit), in_testa ? 1 : 0);
        RC_ASSERT(kelConvGetConvData(&libreria_) == resta);
        RC_ASSERT(libreria_.maschera == modello_->campo().maschera);
        RC_ASSERT(libreria_.pos_bit == modello_->campo().pos_bit);
        RC_ASSERT(libreria_.num_bit == modello_->campo().num_bit);
        RC_ASSERT((libreria_.testo_stato != nullptr) == modello_->ha_testo_stato());
    }

    // What needs a unit and has none is not read: that is undefined.
    void leggi(const Operazione& operazione) {
        const Buffer buffer = campione(operazione);
        try {
            std::string atteso = modello_->testo(buffer.data());
            atteso.resize(32);
            char testo[32];
            RC_ASSERT(kelConvGetString(&libreria_, buffer.data(), testo) == 1);
            RC_ASSERT(std::string(testo, sizeof testo) == atteso);
            const float voluto = modello_->ha_valore() ? modello_->valore(buffer.data()).valore : 0.0F;
            float valore = -77;
            RC_ASSERT((kelConvGetValFloat(&libreria_, buffer.data(), &valore) == 1) == modello_->ha_valore());
            RC_ASSERT(std::bit_cast<std::uint32_t>(valore) == std::bit_cast<std::uint32_t>(voluto));
        } catch (const modello::SenzaUnita&) {
            return;
        }
    }

    void prova(const Operazione& operazione) {
        switch (operazione.quale) {
            case 0:
                modello_->aspetto.larghezza = libreria_.larghezza = operazione.primo;
                break;
            case 1:
                modello_->aspetto.decimali = libreria_.decimali = operazione.primo % 7;
                break;
            case 2:
                modello_->aspetto.auto_decimali = libreria_.auto_decimali = operazione.primo % 2;
                break;
            case 3:
                modello_->aspetto.formato = operazione.primo % 4;
                libreria_.formato = static_cast<eFormatoConv>(operazione.primo % 4);
                break;
            case 4:
                imposta(operazione);
                break;
            case 5:
                imposta({0, operazione.primo, operazione.secondo / CODICI * CODICI + 6, 0x10});
                break;
            default:
                leggi(operazione);
                break;
        }
        RC_ASSERT(libreria_.decimali == modello_->aspetto.decimali);
        RC_ASSERT(kelConvGetOffset(&libreria_) == modello_->offset());
    }

private:
    s_kel_converter libreria_;
    std::unique_ptr<Convertitore> modello_;
};

RC_GTEST_PROP(ConverterSequences, FlatRecordsFollowTheModel, ()) {
    std::array<Fianco, 2> fianchi;
    for (const Operazione& operazione : *sequenze::operazioni(12))
        fianchi.at(operazione.secondo / 4 % 2).prova(operazione);
}

// Reads of the object face end with a NUL that counts; decimals are set between them.
RC_GTEST_PROP(ConverterSequences, ObjectsFollowTheModel, ()) {
    const auto fid = *sequenze::un_fid();
    const unsigned tipo = *rc::gen::inRange(0U, CODICI);
    RC_LOG() << "sample type " << tipo << "\n";
    const auto larghezza = *rc::gen::inRange(0U, 12U);
    const auto formato = *rc::gen::inRange(0U, 4U);
    const auto inTesta = *rc::gen::arbitrary<bool>();
    const std::vector<std::string> unita = modello::unita(fid);
    const std::string udm = unita.empty() ? "none" : *rc::gen::elementOf(unita);

    Canale canale;
    canale.fid = fid;
    canale.tipo = tipo;
    canale.offset = 5;
    s_kel_canale record{};
    record.fid = fid;
    record.tipo_campione = tipo;
    record.offset_campione = canale.offset;
    const std::unique_ptr<IFunzioni> funzioni(IFunzioni::CreateMe());
    const std::unique_ptr<IConverter> libreria(
        funzioni->CreateConverter(&record, fid, udm, inTesta, 1, static_cast<eFormatoConv>(formato), larghezza));
    Convertitore modello(canale, fid, modello::riga_conversione(fid, udm).dati(), {}, inTesta);
    modello.aspetto = {larghezza, 1, 0, formato};

    for (const Operazione& operazione : *sequenze::operazioni(3)) {
        RC_LOG() << descrivi(operazione) << "\n";
        const Buffer buffer = campione(operazione);
        if (operazione.quale == 0) {
            const int decimali = static_cast<int>(operazione.primo) - 4;
            libreria->SetNumDec(decimali);
            modello.aspetto.decimali = static_cast<unsigned>(decimali);
        } else if (operazione.quale == 1) {
            std::string testo = "before";
            RC_ASSERT(libreria->GetString(buffer.data(), testo));
            RC_ASSERT(testo == modello.testo(buffer.data()) + '\0');
        } else {
            float valore = -77;
            RC_ASSERT(libreria->GetVal(buffer.data(), &valore) == modello.ha_valore());
            RC_ASSERT(std::bit_cast<std::uint32_t>(valore) ==
                      std::bit_cast<std::uint32_t>(modello.ha_valore() ? modello.valore(buffer.data()).valore : 0.0F));
        }
    }
}

}  // namespace
