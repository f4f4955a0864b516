// Two catalogues: their camera walks interleaved with each other and with look-ups, against the model.
#include <array>
#include <memory>

#include "IFunzioni.h"
#include "model/camera.h"
#include "model/nomi.h"
#include "sequences/generatori.h"

namespace {

using modello::Passeggiata;
using modello::RigaDiCamera;
using sequenze::Operazione;

const t_SFunzioneZumikoCam* riga(const std::optional<RigaDiCamera>& modello) {
    if (!modello)
        return nullptr;
    return (modello->estesa ? funz_ZumikoCam_estese : funz_ZumikoCam_base) + modello->riga;
}

using Righe = std::vector<const t_SFunzioneZumikoCam*>;

void aggiungi(Righe& righe, const std::vector<RigaDiCamera>& altre) {
    for (const RigaDiCamera& una : altre)
        righe.push_back(riga(una));
}

struct Fianco {
    std::unique_ptr<IFunzioni> libreria{IFunzioni::CreateMe()};
    Passeggiata modello;
    Righe raccolte, attese;  // grow with every selection

    void parametri(modello::Fid fid) const {
        int codice = -77;
        float scala = -78;
        std::string udm = "before";
        const auto attesa = modello::camera_da_fid(fid);
        RC_ASSERT(libreria->FunGetParamZumikoCam(static_cast<int>(fid), codice, scala, udm) == attesa.has_value());
        if (!attesa)
            return RC_ASSERT(codice == -77 && scala == -78 && udm == "before");
        RC_ASSERT(codice == attesa->dati().codice);
        RC_ASSERT(scala == (attesa->dati().scala > 0 ? attesa->dati().scala : -78));
        RC_ASSERT(udm == (attesa->dati().udm.empty() ? "before" : attesa->dati().udm));
    }

    void prova(const Operazione& operazione) {
        switch (operazione.quale) {
            case 0:
                RC_ASSERT(libreria->getFirstFunzVisZumikoCam() == riga(modello.prima_base()));
                break;
            case 1:
            case 2:
                RC_ASSERT(libreria->getNextFunzVisZumikoCam() == riga(modello.prossima_base()));
                break;
            case 3:
                RC_ASSERT(libreria->getFirstFunzVisZumikoCamEstese() == riga(modello.prima_estesa()));
                break;
            case 4:
            case 5:
                RC_ASSERT(libreria->getNextFunzVisZumikoCamEstese() == riga(modello.prossima_estesa()));
                break;
            case 6:
                libreria->getAllFunzZumikoCamBasePerSw(raccolte);
                aggiungi(attese, modello::tutte_base());
                break;
            case 7:
                libreria->getAllFunzZumikoCamEstesePerSw(raccolte);
                aggiungi(attese, modello::tutte_estese());
                break;
            case 8:
                parametri(operazione.fid);
                break;
            default:
                RC_ASSERT(libreria->getNomeFunzione(operazione.fid, operazione.secondo % 2 == 0) ==
                          modello::nome_lungo(operazione.fid, operazione.secondo % 2 == 0));
                break;
        }
        RC_ASSERT(raccolte == attese);
    }
};

RC_GTEST_PROP(CatalogueSequences, CamerasWalkIndependently, ()) {
    std::array<Fianco, 2> fianchi;
    for (const Operazione& operazione : *sequenze::operazioni(10))
        fianchi.at(operazione.secondo / 2 % 2).prova(operazione);
}

// Long runs of steps: beyond the end of both tables.
RC_GTEST_PROP(CatalogueSequences, WalksStayAtTheirEnds, ()) {
    std::array<Fianco, 2> fianchi;
    const auto passi = *rc::gen::container<std::vector<unsigned>>(60, rc::gen::inRange(0U, 40U));
    for (const unsigned passo : passi) {
        Operazione operazione;
        operazione.quale = passo >= 4 ? (passo % 2 == 0 ? 1 : 4) : passo;
        fianchi.at(passo / 2 % 2).prova(operazione);
    }
}

}  // namespace
