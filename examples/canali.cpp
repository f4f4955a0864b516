// What a dialog for setting up channels needs: which quantities there are and which functions each offers; the sides or
// numbers, units, decimals and names of one function; and the default names of packet channels.
#include <IFunzioni.h>

#include <cstdio>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace {

// First page: the functions to choose from, by quantity.
void mostra_grandezze(const IFunzioni& catalogo) {
    std::map<GRANDEZZA_FISICA_FUNZKEL, std::string> grandezze;
    catalogo.RiempiMapGrandezzaFisica(grandezze);

    std::map<GRANDEZZA_FISICA_FUNZKEL, std::list<SFunzionePerGF>> funzioni;
    std::vector<unsigned int> tutte;  // "all": an empty filter gives all functions
    catalogo.getFunzioni(funzioni, tutte);

    for (const auto& voce : funzioni) {
        std::printf("%-13s ", grandezze[voce.first].c_str());
        const char* separatore = "";
        for (const SFunzionePerGF& funzione : voce.second) {
            std::printf("%s%s", separatore, funzione.nome.c_str());
            separatore = ", ";
        }
        std::printf("\n");
    }
}

// Second page: everything that the dialog needs to know about one function.
void mostra_scelte(IFunzioni& catalogo, kel_funpos fid) {
    // The short name ends with a NUL that counts in its length; c_str() stops before it.
    std::printf("\n0x%08X  \"%s\", short \"%s\"\n", static_cast<unsigned>(fid),
                catalogo.getNomeFunzione(fid, false).c_str(), catalogo.getNomeFunzioneShort(fid).c_str());

    std::map<unsigned int, std::string> lati, inout;
    int primo = -1, ultimo = -1;
    catalogo.getFunzDettagli(fid, lati, inout, primo, ultimo);
    for (const auto& lato : lati)
        // The key of a side holds its bits of the identifier: add them with "or".
        std::printf("  side    %-12s 0x%08X\n", lato.second.c_str(), static_cast<unsigned>(fid | lato.first));
    for (const auto& verso : inout)
        // The key of in/out is the field's value, not shifted.
        std::printf("  in/out  %-12s 0x%08X\n", verso.second.c_str(),
                    static_cast<unsigned>(fid | kelFidBitInOut(verso.first)));
    if (primo >= 0)
        std::printf("  number  %d to %-7d 0x%08X is number %d\n", primo, ultimo,
                    static_cast<unsigned>(fid | kelFidIstanza(static_cast<unsigned>(ultimo))), ultimo);

    std::list<std::string> unita;
    catalogo.getFunzUIVs(fid, unita);
    for (const std::string& udm : unita)
        std::printf("  unit    %-12s decimals %d, from %d to %d\n", udm.c_str(),
                    catalogo.getNumDecimaliDefault(fid, udm), catalogo.getNumDecimaliMin(fid, udm),
                    catalogo.getNumDecimaliMax(fid, udm));
}

// Third page: each subfield of a packet becomes a channel. These are its names unless the user chooses others.
void mostra_pacchetti(const IFunzioni& catalogo) {
    std::map<unsigned int, IFunzioni::NomiDefaultCanale> canali;
    canali[0xA8010].nome = "Ground Speed";  // a name that the user chose: entries that are there are not changed
    catalogo.getCanaliGPS(canali);
    catalogo.getCanaliLapNum(canali);
    catalogo.getCanaliLapTime(canali);

    std::printf("\nChannels of packets\n");
    for (const auto& canale : canali)
        std::printf("  0x%08X  %-4s  %s\n", canale.first, canale.second.breve.c_str(), canale.second.nome.c_str());
}

}  // namespace

int main() {
    // Questions about functions need no channels.
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());

    mostra_grandezze(*catalogo);
    mostra_scelte(*catalogo, kelFidComponi(FID_PHI_SPEED, FID_OBJ_UNDEFINED, FID_POS_WHEEL));
    mostra_scelte(*catalogo, kelFidComponi(FID_PHI_LAMBDA, FID_OBJ_RATIO, FID_POS_EXHAUST));
    mostra_scelte(*catalogo, kelFidComponi(FID_PHI_PRESSURE, FID_OBJ_OIL, FID_POS_UNDEFINED));
    mostra_pacchetti(*catalogo);
}
