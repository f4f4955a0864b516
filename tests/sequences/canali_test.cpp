// Channel sets: handing records out and back, names, sizes and matching in any order, against the model.
#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <optional>

#include "IFunzioni.h"
#include "kelfunzioni.h"
#include "model/canali.h"
#include "sequences/generatori.h"

namespace {

using modello::Canale;
using modello::SetCanali;
using sequenze::Operazione;

constexpr unsigned RECORD = 8;  // names are also read of the record past the last used one

// A record's members; bytes of the caller that differ from one another count as a change.
Canale da_record(const s_kel_canale& record) {
    Canale canale;
    canale.indice = record.indice;
    canale.fid = record.fid;
    canale.tipo = record.tipo_campione;
    canale.breve = record.breve;
    canale.nome = record.nome;
    canale.offset = record.offset_campione;
    canale.dim_buffer = record.dim_buffer;
    canale.altro = record.riservato1[0];
    const auto altro = [&](const auto& byte) {
        return std::all_of(std::begin(byte), std::end(byte), [&](auto uno) { return uno == record.riservato1[0]; });
    };
    if (!altro(record.riservato1) || !altro(record.riservato2) || !altro(record.riservato3))
        canale.altro = -1;
    return canale;
}

// The library and the model side by side.
class Fianco {
public:
    Fianco() { inizia(4, 0, false); }

    void inizia(unsigned totale, unsigned usati, bool senza) {
        kelFunInit(&set_, senza ? nullptr : record_.data(), totale, usati);
        modello_ = {senza ? nullptr : &canali_, totale, usati};
    }

    void scrivi(unsigned posto, modello::Fid fid, unsigned numero) {
        const std::string nome = "Channel " + std::to_string(numero % 100000);
        const std::string breve = nome.substr(nome.size() - 4);
        s_kel_canale& record = record_.at(posto);
        Canale& canale = canali_.at(posto);
        const int altro = static_cast<int>(numero % 256);
        std::memset(&record, altro, sizeof record);
        canale = {numero % 65536, fid, numero % 25, breve, nome, numero, numero * 16777619U, altro};
        record.indice = static_cast<std::uint16_t>(canale.indice);
        record.fid = fid;
        record.tipo_campione = canale.tipo;
        std::memcpy(record.breve, breve.c_str(), breve.size() + 1);
        std::memcpy(record.nome, nome.c_str(), nome.size() + 1);
        record.offset_campione = canale.offset;
        record.dim_buffer = canale.dim_buffer;
    }

    // Place of a record that the library gave.
    std::optional<unsigned> posto(const s_kel_canale* record) const {
        if (record == nullptr)
            return std::nullopt;
        return static_cast<unsigned>(record - record_.data());
    }

    void prova(const Operazione& operazione) {
        const unsigned i = operazione.primo;
        switch (operazione.quale) {
            case 0:
                RC_ASSERT(posto(kelFunGetFreeCh(&set_)) == modello_.libero());
                break;
            case 1:
                RC_ASSERT((kelFunFreeLastCh(&set_) == 1) == modello_.rendi_ultimo());
                break;
            case 2:
                RC_ASSERT(posto(kelFunGetCanale(&set_, i)) == modello_.canale(i));
                break;
            case 3:
                prova_nomi(i);
                break;
            case 4:
                RC_ASSERT(kelFunGetSizeBufferValori(&set_) == modello_.dimensione_buffer());
                break;
            case 5:
                scrivi(i % RECORD, operazione.fid, operazione.secondo);
                break;
            case 6:
                RC_ASSERT(posto(kelFunGetMatchCh(&set_, operazione.fid)) == modello_.corrispondente(operazione.fid));
                break;
            case 7:
                RC_ASSERT(posto(kelFunGetMatchChFull(&set_, operazione.fid)) ==
                          modello_.corrispondente_pieno(operazione.fid));
                break;
            case 8:
                prova_lista(operazione.fid, operazione.secondo % 10);
                break;
            default:
                inizia(i % RECORD, operazione.secondo % RECORD % (i % RECORD + 1), operazione.secondo % 16 == 0);
                break;
        }
    }

    void uguali() const {
        RC_ASSERT(kelFunGetNumChUsed(&set_) == modello_.usati);
        RC_ASSERT(kelFunGetNumChTot(&set_) == modello_.totale);
        for (unsigned i = 0; i < RECORD; i++)
            RC_ASSERT(da_record(record_[i]) == canali_[i]);
    }

private:
    void prova_nomi(unsigned indice) const {
        const char* nome = kelFunGetNomeCanale(&set_, indice);
        const char* breve = kelFunGetNomeCanaleShort(&set_, indice);
        const auto atteso = modello_.nome(indice);
        RC_ASSERT((nome != nullptr) == atteso.has_value());
        RC_ASSERT((breve != nullptr) == atteso.has_value());
        if (atteso && modello_.canali != nullptr) {
            RC_ASSERT(nome == record_[*atteso].nome);
            RC_ASSERT(breve == record_[*atteso].breve);
        }
    }

    // The places past those stored, and the count where nothing matches, must stay as they were.
    void prova_lista(modello::Fid fid, unsigned capacita) {
        std::array<s_kel_canale*, RECORD + 2> trovati;
        s_kel_canale niente{};
        trovati.fill(&niente);
        unsigned numero = capacita;
        const int esito = kelFunGetMatchChList(&set_, fid, trovati.data(), &numero);
        const auto attesi = modello_.corrispondenti(fid, capacita);
        RC_ASSERT((esito == 1) == attesi.has_value());
        RC_ASSERT(numero == (attesi ? attesi->size() : capacita));
        for (std::size_t i = 0; i < trovati.size(); i++) {
            if (attesi && i < attesi->size())
                RC_ASSERT(posto(trovati[i]) == attesi->at(i));
            else
                RC_ASSERT(trovati[i] == &niente);
        }
    }

    std::array<s_kel_canale, RECORD> record_{};
    std::vector<Canale> canali_ = std::vector<Canale>(RECORD);
    s_set_canali set_{};
    SetCanali modello_;
};

RC_GTEST_PROP(ChannelSetSequences, FlatFunctionsFollowTheModel, ()) {
    Fianco fianco;
    for (const Operazione& operazione : *sequenze::operazioni(10)) {
        fianco.prova(operazione);
        fianco.uguali();
    }
}

// The catalogue holds a set of its own, over the caller's array: all of it counts as used from the start.
RC_GTEST_PROP(ChannelSetSequences, CatalogueFollowsTheModel, ()) {
    std::array<s_kel_canale, RECORD> record{};
    std::vector<Canale> canali(RECORD);
    for (unsigned i = 0; i < RECORD; i++)
        record[i].fid = canali[i].fid = *sequenze::un_fid();
    const std::unique_ptr<IFunzioni> funzioni(IFunzioni::CreateMe(record.data(), RECORD));
    SetCanali modello{&canali, RECORD, RECORD};
    const auto posto = [&](const s_kel_canale* trovato) {
        return trovato == nullptr ? std::nullopt
                                  : std::optional<unsigned>(static_cast<unsigned>(trovato - record.data()));
    };
    for (const Operazione& operazione : *sequenze::operazioni(5)) {
        const unsigned i = operazione.primo;
        if (operazione.quale == 0)
            RC_ASSERT(posto(funzioni->getFreeCh()) == modello.libero());
        else if (operazione.quale == 1)
            RC_ASSERT(posto(funzioni->getCanale(i)) == modello.canale(i));
        else if (operazione.quale == 2)
            RC_ASSERT(posto(funzioni->getMatchCh(operazione.fid)) == modello.corrispondente(operazione.fid));
        else if (operazione.quale == 3 && i < RECORD)
            RC_ASSERT(funzioni->getNomeCanale(i) + funzioni->getNomeCanaleShort(i) == std::string());
        else
            RC_ASSERT(funzioni->getSizeBufferValori() == 0U);
        RC_ASSERT(funzioni->getNumChUsed() == modello.usati);
    }
}

}  // namespace
