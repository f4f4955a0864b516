// Writes the input of gperf: the library's own texts, so that both look among the same ones.
//
//   kel_bench_tabella_gperf vecchi|camera
#include <cstdio>
#include <cstring>

#include "comune/funzioni.h"

namespace {

void testata(const char* classe, const char* voce) {
    std::printf("%%language=C++\n%%readonly-tables\n%%struct-type\n%%define slot-name testo\n");
    std::printf("%%define class-name %s\n%%define lookup-function-name cerca\n%%omit-struct-type\n", classe);
    std::printf("%%{\n#include <cstring>\nstruct %s {\n    const char* testo;\n    unsigned valore;\n};\n%%}\n", voce);
    std::printf("struct %s { const char* testo; unsigned valore; };\n%%%%\n", voce);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 2 && std::strcmp(argv[1], "vecchi") == 0) {
        testata("GperfVecchi", "VoceVecchia");
        for (const t_SFunzioneVecchia& riga : funz_Kel)
            if (kelFidFineTabella(riga.fid) == 0)
                std::printf("%s, 0x%08Xu\n", riga.id, static_cast<unsigned>(riga.fid));
        return 0;
    }
    if (argc == 2 && std::strcmp(argv[1], "camera") == 0) {
        testata("GperfCamera", "VoceCamera");
        unsigned indice = 0;
        for (const t_SFunzioneZumikoCam* riga : prova::righe_camera_tutte())
            std::printf("%s, %uu\n", riga->id, indice++);
        return 0;
    }
    std::fprintf(stderr, "usage: kel_bench_tabella_gperf vecchi|camera\n");
    return 2;
}
