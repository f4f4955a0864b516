// A filter element without an object keeps its whole quantity, whatever bits the quantity's own number has.
#include <IFunzioni.h>
#include <gtest/gtest.h>

#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace {

TEST(FunctionFilter, OfAnOddQuantityKeepsTheRowsOfItsObjects) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    std::map<GRANDEZZA_FISICA_FUNZKEL, std::list<SFunzionePerGF>> funzioni;
    std::vector<unsigned int> filtro{FID_PHI_ACCELERATION};
    catalogo->getFunzioni(funzioni, filtro);
    std::vector<std::string> nomi;
    for (const SFunzionePerGF& funzione : funzioni[FID_PHI_ACCELERATION])
        nomi.push_back(funzione.nome);
    EXPECT_EQ(nomi,
              (std::vector<std::string>{"Inline Accel", "Lateral Accel", "Vertical Accel", "GSum", "Acceleration"}));
    EXPECT_EQ(funzioni.size(), 1u);
}

}  // namespace
