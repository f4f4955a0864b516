// Containers that hold entries already: some operations empty them, some add, some keep what is there.
#include <iterator>
#include <list>
#include <map>
#include <memory>

#include "IFunzioni.h"
#include "model/elenchi.h"
#include "model/sottocampi.h"
#include "model/unita.h"
#include "sequences/generatori.h"

namespace {

using modello::Fid;
using sequenze::Operazione;

// The library's containers and the model's, never emptied by the test.
class Fianco {
public:
    void prova(const Operazione& operazione) {
        switch (operazione.quale) {
            case 0:
                libreria_->getFunzUIVs(operazione.fid, unita_);
                unita_attese_ = modello::unita(operazione.fid);
                break;
            case 1:
                libreria_->getAllInnerFunpos(operazione.fid, interne_);
                interne_attese_ = modello::funzioni_interne(operazione.fid);
                break;
            case 2:
                funzioni(operazione);
                break;
            case 3:
                dettagli(operazione.fid);
                break;
            case 4:
                libreria_->RiempiMapGrandezzaFisica(grandezze_);
                modello::riempi_grandezze(grandezze_attese_);
                break;
            case 5:
                canali(operazione.primo);
                break;
            case 6:
                valori();
                break;
            default:
                metti_del_chiamante(operazione);
                break;
        }
        uguali();
    }

private:
    // Entries of the caller, which some of the operations must respect.
    void metti_del_chiamante(const Operazione& operazione) {
        const std::string nome = "mine " + std::to_string(operazione.primo);
        unita_.push_back(nome);
        unita_attese_.push_back(nome);
        interne_.push_back(operazione.fid);
        interne_attese_.push_back(operazione.fid);
        grandezze_[static_cast<GRANDEZZA_FISICA_FUNZKEL>(operazione.primo * 3)] = nome;
        grandezze_attese_[operazione.primo * 3] = nome;
        canali_[operazione.fid] = {"me", nome};
        canali_attesi_[operazione.fid] = {"me", nome};
        lati_[operazione.secondo] = lati_attesi_[operazione.secondo] = nome;
        inout_[operazione.primo] = inout_attesi_[operazione.primo] = nome;
    }

    void funzioni(const Operazione& operazione) {
        std::vector<unsigned> filtro;
        if (operazione.primo != 0)
            filtro = {operazione.fid, operazione.secondo % 128};
        const std::vector<unsigned> prima = filtro;
        libreria_->getFunzioni(funzioni_, filtro);
        RC_ASSERT(filtro == prima);
        funzioni_attese_ = modello::funzioni(filtro);
    }

    void dettagli(Fid fid) {
        libreria_->getFunzDettagli(fid, lati_, inout_, primo_, ultimo_);
        lati_attesi_.clear();
        inout_attesi_.clear();
        if (const auto attesi = modello::dettagli(fid)) {
            lati_attesi_ = attesi->lati;
            inout_attesi_ = attesi->inout;
            primo_atteso_ = attesi->primo;
            ultimo_atteso_ = attesi->ultimo;
        }
    }

    void canali(unsigned quali) {
        if (quali % 3 == 0) {
            libreria_->getCanaliGPS(canali_);
            modello::canali_gps(canali_attesi_);
        } else if (quali % 3 == 1) {
            libreria_->getCanaliLapTime(canali_);
            modello::canali_lap_time(canali_attesi_);
        } else {
            libreria_->getCanaliLapNum(canali_);
            modello::canali_lap_num(canali_attesi_);
        }
    }

    void valori() {
        std::vector<std::list<std::string>>& v = valori_;
        libreria_->GetValoriCampiFID(v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8], v[9], v[10], v[11]);
        const auto altri = modello::valori_campi();
        for (std::size_t i = 0; i < 12; i++)
            valori_attesi_[i].insert(valori_attesi_[i].end(), altri[i].begin(), altri[i].end());
    }

    void uguali() const {
        RC_ASSERT(std::vector<std::string>(unita_.begin(), unita_.end()) == unita_attese_);
        RC_ASSERT(interne_ == interne_attese_);
        RC_ASSERT(lati_ == lati_attesi_);
        RC_ASSERT(inout_ == inout_attesi_);
        RC_ASSERT(primo_ == primo_atteso_);
        RC_ASSERT(ultimo_ == ultimo_atteso_);
        RC_ASSERT(valori_ == valori_attesi_);
        std::map<unsigned, std::string> grandezze;
        for (const auto& [grandezza, testo] : grandezze_)
            grandezze[static_cast<unsigned>(grandezza)] = testo;
        RC_ASSERT(grandezze == grandezze_attese_);
        modello::NomiCanali canali;
        for (const auto& [fid, nomi] : canali_)
            canali[fid] = {nomi.breve, nomi.nome};
        RC_ASSERT(canali == canali_attesi_);
        std::map<unsigned, std::vector<std::pair<Fid, std::string>>> funzioni;
        for (const auto& [grandezza, lista] : funzioni_)
            for (const SFunzionePerGF& funzione : lista)
                funzioni[static_cast<unsigned>(grandezza)].emplace_back(funzione.funpos, funzione.nome);
        RC_ASSERT(funzioni == funzioni_attese_);
    }

    std::unique_ptr<IFunzioni> libreria_{IFunzioni::CreateMe()};
    std::list<std::string> unita_ = {"before"};
    std::vector<std::string> unita_attese_ = {"before"};
    std::list<kel_funpos> interne_ = {7}, interne_attese_ = {7};
    std::map<GRANDEZZA_FISICA_FUNZKEL, std::string> grandezze_;
    std::map<unsigned, std::string> grandezze_attese_;
    std::map<unsigned, IFunzioni::NomiDefaultCanale> canali_;
    modello::NomiCanali canali_attesi_;
    std::map<unsigned, std::string> lati_, lati_attesi_, inout_, inout_attesi_;
    int primo_ = -77, primo_atteso_ = -77, ultimo_ = -78, ultimo_atteso_ = -78;
    std::map<GRANDEZZA_FISICA_FUNZKEL, std::list<SFunzionePerGF>> funzioni_;
    std::map<unsigned, std::vector<std::pair<Fid, std::string>>> funzioni_attese_;
    std::vector<std::list<std::string>> valori_ = std::vector<std::list<std::string>>(12);
    std::vector<std::list<std::string>> valori_attesi_ = std::vector<std::list<std::string>>(12);
};

RC_GTEST_PROP(ContainerSequences, FillersFollowTheModel, ()) {
    Fianco fianco;
    for (const Operazione& operazione : *sequenze::operazioni(9))
        fianco.prova(operazione);
}

}  // namespace
