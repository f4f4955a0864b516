// A program with a catalogue of its own: what it overrides must change the library's own operations.
#include <CFunzioni.h>

#include <cstdio>
#include <memory>
#include <string>

namespace {

const t_SFunzioneZumikoCam kPropria = {0x00000123, "x", 1.0f, 99, 1.0f, "Prop", "Propria", "PROPRIA", 6};

class CFunzioniProprie : public CFunzioni {
public:
    const t_SFunzioneZumikoCam* getFunVecchiaZumikoDaID(const std::string& id) override {
        chiamate++;
        return id == "PROPRIA" ? &kPropria : CFunzioni::getFunVecchiaZumikoDaID(id);
    }
    int chiamate = 0;
};

int falliti = 0;

void verifica(kel_funpos atteso, kel_funpos avuto, const char* id) {
    if (atteso != avuto) {
        std::printf("%s: 0x%08X instead of 0x%08X\n", id, static_cast<unsigned>(avuto), static_cast<unsigned>(atteso));
        falliti++;
    }
}

}  // namespace

int main() {
    CFunzioniProprie proprie;
    IFunzioni& f = proprie;
    verifica(0x00000123, f.getFidDaID("PROPRIA"), "PROPRIA");
    verifica(0x00001091, f.getFidDaID("WATER_TEMP"), "WATER_TEMP");
    verifica(0x00048611, f.getFidDaID("FG_GEAR_BOX_TEMP"), "FG_GEAR_BOX_TEMP");
    if (proprie.chiamate != 3) {
        std::printf("asked %d times instead of 3\n", proprie.chiamate);
        falliti++;
    }
    std::unique_ptr<IFunzioni> comune(IFunzioni::CreateMe());
    verifica(0, comune->getFidDaID("PROPRIA"), "PROPRIA in the library's own catalogue");
    std::printf("%d checks failed\n", falliti);
    return falliti != 0;
}
