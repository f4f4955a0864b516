// Many threads at once on everything that only reads tables, through one catalogue and one shared converter record.
// Under ThreadSanitizer this shows that no operation keeps state; everywhere, that all threads get the same answers.
#include <CLaptimeAndStrings.h>
#include <IFunzioni.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstdint>
#include <cstring>
#include <memory>
#include <thread>
#include <vector>

namespace {

// FNV-1a over all that was answered.
class Impronta {
public:
    void byte(const void* dati, std::size_t quanti) {
        for (std::size_t i = 0; i < quanti; ++i)
            valore_ = (valore_ ^ static_cast<const unsigned char*>(dati)[i]) * 0x100000001B3u;
    }
    template <typename Numero>
    void numero(Numero numero) {
        byte(&numero, sizeof numero);
    }
    void testo(const std::string& testo) { byte(testo.data(), testo.size()); }
    std::uint64_t valore() const { return valore_; }

private:
    std::uint64_t valore_ = 0xCBF29CE484222325u;
};

const s_kel_canale& canale_gps() {
    static const s_kel_canale canale = [] {
        s_kel_canale nuovo = {};
        nuovo.fid = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, FID_SPEC_GPS_KELNAVSOL);
        nuovo.tipo_campione = KEL_TIPO_GPS_KEL;
        return nuovo;
    }();
    return canale;
}

void interroga(IFunzioni& catalogo, kel_funpos fid, Impronta& impronta) {
    impronta.testo(catalogo.getNomeFunzione(fid, false));
    impronta.testo(catalogo.getNomeFunzione(fid, true));
    impronta.testo(catalogo.getNomeFunzioneShort(fid));
    impronta.numero(catalogo.getFidEquivalente(fid));
    std::list<std::string> unita;
    catalogo.getFunzUIVs(fid, unita);
    for (const std::string& udm : unita) {
        impronta.testo(udm);
        impronta.numero(catalogo.getNumDecimaliDefault(fid, udm));
        impronta.numero(catalogo.getParamConv(fid, udm)->gain);
        impronta.numero(catalogo.getParamConv(fid, catalogo.getUnitaBase(fid), udm).offset);
    }
    impronta.numero(catalogo.getParamZumikoCam(fid) != nullptr);
    std::map<unsigned int, std::string> lati;
    std::map<unsigned int, std::string> inout;
    int primo = 0;
    int ultimo = 0;
    catalogo.getFunzDettagli(fid, lati, inout, primo, ultimo);
    impronta.numero(static_cast<unsigned>(lati.size() + inout.size()) + static_cast<unsigned>(primo + ultimo));
    impronta.testo(catalogo.getStrObj(static_cast<OGGETTO_MISURATO_FUNZKEL>(kelFidOggetto(fid))));
}

void decodifica(const s_kel_converter& condiviso, std::uint32_t seme, Impronta& impronta) {
    unsigned char pacchetto[56];
    for (unsigned char& byte : pacchetto)
        byte = static_cast<unsigned char>((seme = seme * 1664525u + 1013904223u) >> 24);
    pacchetto[14] = 3;
    pacchetto[51] = 9;
    float valore = 0.0f;
    impronta.numero(kelConvGetValFloat(&condiviso, pacchetto, &valore));
    impronta.numero(valore);
    s_kel_converter proprio = condiviso;
    char testo[32];
    impronta.numero(kelConvGetString(&proprio, pacchetto, testo));
    impronta.byte(testo, sizeof testo);
    impronta.numero(kelF16compress(seme));
    impronta.numero(kelF16decompress(seme));
    const std::string tempo = CLaptimeAndStrings::LapTimeToStringa(static_cast<int>(seme));
    impronta.testo(tempo);
    impronta.numero(CLaptimeAndStrings::StringaToLapTime(tempo));
}

std::uint64_t tutto(IFunzioni& catalogo, const s_kel_converter& condiviso) {
    Impronta impronta;
    for (unsigned grandezza = 0; grandezza < 40; ++grandezza)
        for (unsigned oggetto = 0; oggetto < 64; oggetto += 3)
            interroga(catalogo, kelFidComponi(grandezza, oggetto, oggetto % 24), impronta);
    for (const t_SFunzioneVecchia& riga : funz_Kel) {
        interroga(catalogo, riga.fid, impronta);
        impronta.numero(catalogo.getFidDaID(riga.id));
    }
    for (std::uint32_t seme = 0; seme < 500; ++seme)
        decodifica(condiviso, seme, impronta);
    return impronta.valore();
}

TEST(Threads, SixteenAtOnceGetTheAnswersOfOne) {
    constexpr int fili = 16;
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    const kel_funpos velocita = kelFidComponi(FID_PHI_SPEED, FID_OBJ_UNDEFINED, FID_POS_GPS);
    s_kel_converter condiviso = {};
    condiviso.larghezza = 5;
    condiviso.decimali = 1;
    kelConvInit(&condiviso, &canale_gps(), velocita, kelFunGetConvData(velocita, "mph"), 0, 0, 1);

    std::atomic<int> pronti{0};
    std::vector<std::uint64_t> impronte(fili);
    std::vector<std::thread> squadra;
    for (std::uint64_t& impronta : impronte)
        squadra.emplace_back([&] {
            // All start together, so that they do meet.
            for (++pronti; pronti < fili;)
                std::this_thread::yield();
            impronta = tutto(*catalogo, condiviso);
        });
    for (std::thread& filo : squadra)
        filo.join();

    const std::uint64_t attesa = tutto(*catalogo, condiviso);
    for (int i = 0; i < fili; ++i)
        EXPECT_EQ(impronte[static_cast<std::size_t>(i)], attesa) << "thread " << i;
}

TEST(Threads, EachWalkTheCameraWithACatalogueOfTheirOwn) {
    constexpr int fili = 16;
    std::vector<int> righe(fili);
    std::vector<std::thread> squadra;
    for (int& quante : righe)
        squadra.emplace_back([&quante] {
            const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
            for (int giro = 0; giro < 100; ++giro) {
                for (auto* riga = catalogo->getFirstFunzVisZumikoCam(); riga;
                     riga = catalogo->getNextFunzVisZumikoCam())
                    ++quante;
                for (auto* riga = catalogo->getFirstFunzVisZumikoCamEstese(); riga;
                     riga = catalogo->getNextFunzVisZumikoCamEstese())
                    ++quante;
            }
        });
    for (std::thread& filo : squadra)
        filo.join();
    for (const int quante : righe)
        EXPECT_EQ(quante, 100 * (19 + 9));
}

}  // namespace
