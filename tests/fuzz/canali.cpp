// Channel sets: any sequence of operations on records of any bytes, names without an end included.
//
// Proves that no operation reads or writes beside the caller's array and list (both in blocks of exactly their size),
// that only the record handed out is written to, and that every answer is the model's.
#include <algorithm>
#include <cstring>
#include <memory>
#include <optional>
#include <vector>

#include "bersaglio.h"
#include "ingredienti.h"
#include "kelfunzioni.h"
#include "model/canali.h"

namespace {

using fuzz::Ingredienti;
using fuzz::pretendi;

constexpr std::array<modello::Fid, 12> FUNZIONI = {0x9A,    0x809A, 0x1009A, 0x11A,   0x19A,   0x819A,
                                                   0x1019A, 0x98B,  0x992,   0xA8010, 0xA940B, 0x10};

modello::Fid funzione(Ingredienti& da) {
    const std::size_t quale = da.scelta(FUNZIONI.size() + 1);
    return quale < FUNZIONI.size() ? FUNZIONI.at(quale) : da.u32();
}

class Prova {
public:
    explicit Prova(Ingredienti& da)
        : quanti_(static_cast<unsigned>(da.scelta(9))),
          record_(std::make_unique<s_kel_canale[]>(quanti_)),
          totale_(quanti_ == 0 ? 0 : static_cast<unsigned>(da.scelta(quanti_))),
          modello_(quanti_) {
        // One record more than the capacity may be in use: names are read one past the last.
        kelFunInit(&set_, quanti_ == 0 ? nullptr : record_.get(), totale_, 0);
    }

    void esegui(Ingredienti& da) {
        switch (da.scelta(8)) {
            case 0:
                return scrivi(da);
            case 1:
                return libero();
            case 2:
                return ultimo();
            case 3:
                return cerca(funzione(da));
            case 4:
                return elenca(funzione(da), static_cast<unsigned>(da.scelta(10)));
            case 5:
                return indici(da.u8() < 128 ? da.u8() % 10U : da.u32());
            case 6:
                return somma();
            default:
                return nome(funzione(da));
        }
    }

private:
    // The model looks at a copy of the records.
    modello::SetCanali modello() {
        for (unsigned i = 0; i < quanti_; i++) {
            modello_[i].fid = record_[i].fid;
            modello_[i].dim_buffer = record_[i].dim_buffer;
        }
        return {quanti_ == 0 ? nullptr : &modello_, set_.totale, set_.usati};
    }
    std::optional<unsigned> posto(const s_kel_canale* record) const {
        return record == nullptr ? std::nullopt : std::optional(static_cast<unsigned>(record - record_.get()));
    }

    void scrivi(Ingredienti& da) {
        if (quanti_ == 0)
            return;
        s_kel_canale& record = record_[da.scelta(quanti_)];
        const kel_funpos fid = funzione(da);
        const auto byte = da.byte(sizeof record);
        std::memcpy(static_cast<void*>(&record), byte.data(), byte.size());
        record.fid = fid;
    }

    void libero() {
        const auto atteso = modello().libero();
        std::vector<s_kel_canale> prima(record_.get(), record_.get() + quanti_);
        s_kel_canale* trovato = kelFunGetFreeCh(&set_);
        pretendi(posto(trovato) == atteso, "the free record is the model's");
        if (atteso) {
            prima[*atteso] = {};
            prima[*atteso].indice = static_cast<std::uint16_t>(*atteso);
            pretendi(set_.usati == *atteso + 1, "a record handed out is in use");
        }
        for (unsigned i = 0; i < quanti_; i++)
            pretendi(std::memcmp(&prima[i], &record_[i], sizeof record_[i]) == 0, "no other record is written to");
    }

    void ultimo() {
        modello::SetCanali atteso = modello();
        const bool reso = atteso.rendi_ultimo();
        pretendi((kelFunFreeLastCh(&set_) == 1) == reso && set_.usati == atteso.usati, "the last record is given back");
    }

    void cerca(modello::Fid fid) {
        pretendi(posto(kelFunGetMatchCh(&set_, fid)) == modello().corrispondente(fid), "the channel is the model's");
        pretendi(posto(kelFunGetMatchChFull(&set_, fid)) == modello().corrispondente_pieno(fid),
                 "the channel of all fields is the model's");
    }

    void elenca(modello::Fid fid, unsigned capacita) {
        const auto attesi = modello().corrispondenti(fid, capacita);
        const std::size_t posti = capacita != 0 ? capacita : quanti_;  // 0: as many as there are
        const auto trovati = std::make_unique<s_kel_canale*[]>(posti);
        unsigned numero = capacita;
        const bool riuscito = kelFunGetMatchChList(&set_, fid, trovati.get(), &numero) == 1;
        pretendi(riuscito == attesi.has_value(), "there are channels where the model has some");
        pretendi(numero == (attesi ? attesi->size() : capacita), "the number of channels is the model's");
        for (std::size_t i = 0; attesi && i < attesi->size(); i++)
            pretendi(posto(trovati[i]) == attesi->at(i), "the channels are the model's");
    }

    void indici(unsigned indice) {
        const auto modello = this->modello();
        pretendi(posto(kelFunGetCanale(&set_, indice)) == modello.canale(indice), "the channel of an index");
        const auto atteso = modello.nome(indice);
        const char* nome = kelFunGetNomeCanale(&set_, indice);
        const char* breve = kelFunGetNomeCanaleShort(&set_, indice);
        if (quanti_ == 0)  // without an array a name has an address of no use
            return;
        pretendi(nome == (atteso ? record_[*atteso].nome : nullptr), "the name of an index");
        pretendi(breve == (atteso ? record_[*atteso].breve : nullptr), "the short name of an index");
    }

    void somma() {
        pretendi(kelFunGetSizeBufferValori(&set_) == modello().dimensione_buffer(), "the sum of the buffers");
        pretendi(kelFunGetNumChUsed(&set_) == set_.usati && kelFunGetNumChTot(&set_) == totale_, "the counts");
    }

    void nome(modello::Fid fid) {
        const s_nome_breve con = kelFunGetNomeFunzioneShort(&set_, fid);
        const s_nome_breve senza = kelFunGetNomeFunzioneShort(nullptr, fid);
        pretendi(std::memcmp(con.testo, senza.testo, sizeof con.testo) == 0, "channels change no function's name");
    }

    unsigned quanti_;
    std::unique_ptr<s_kel_canale[]> record_;
    unsigned totale_;
    s_set_canali set_{};
    std::vector<modello::Canale> modello_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* byte, std::size_t quanti) {
    Ingredienti da(byte, quanti);
    Prova prova(da);
    while (!da.finiti())
        prova.esegui(da);
    return 0;
}
