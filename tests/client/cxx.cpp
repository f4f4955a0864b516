// The object face from a program compiled on its own: every operation is called through its slot, and known by what it
// answers, so that a slot which moved is noticed. Compiled as C++11 and as C++20. scripts/keep-release keeps a copy, to be
// run with the libraries that follow.
#include <CConverter.h>
#include <CFunzioni.h>
#include <CLaptimeAndStrings.h>
#include <IConverter.h>
#include <IFunzioni.h>

#include <cstdio>
#include <cstring>
#include <list>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <typeinfo>
#include <vector>

namespace {

int falliti = 0;

void verifica(bool vero, const char* che, int riga) {
    if (!vero) {
        std::printf("%s:%d: not so: %s\n", __FILE__, riga, che);
        falliti++;
    }
}

#define VERIFICA(cond) verifica((cond), #cond, __LINE__)

typedef std::map<unsigned int, std::string> Scelte;

void canali() {
    s_kel_canale registro[3];
    std::memset(registro, 0, sizeof registro);
    registro[0].fid = 0x10;  // speed
    std::strcpy(registro[0].breve, "Spd");
    std::strcpy(registro[0].nome, "Speed");
    registro[0].dim_buffer = 40;
    registro[1].fid = 0x11;  // temperature
    registro[1].dim_buffer = 2;

    std::unique_ptr<IFunzioni> f(IFunzioni::CreateMe(registro, 3));
    VERIFICA(f->getNomeCanale(0) == "Speed");
    VERIFICA(f->getNomeCanaleShort(0) == "Spd");
    VERIFICA(f->getSizeBufferValori() == 42);
    VERIFICA(f->getNumChUsed() == 3);
    VERIFICA(f->getFreeCh() == nullptr);
    VERIFICA(f->getCanale(2) == &registro[2]);
    VERIFICA(f->getCanale(3) == nullptr);
    VERIFICA(f->getMatchCh(0x11) == &registro[1]);

    std::unique_ptr<IFunzioni> senza(IFunzioni::CreateMe());
    VERIFICA(senza->getNumChUsed() == 0);
    bool lanciato = false;
    try {
        senza->getNomeCanale(1);
    } catch (const std::logic_error&) {
        lanciato = true;  // thrown in the library, caught here
    }
    VERIFICA(lanciato);
}

void nomi(IFunzioni& f) {
    VERIFICA(f.getNomeFunzioneShort(0x00048611) == std::string("TemperatureGear", 16));
    VERIFICA(f.getNomeFunzione(0x00048611, false) == "Gear Box Temp");
    VERIFICA(f.getFidEquivalente(0x00048611) == 0x11);
    VERIFICA(f.getUnitaBase(0x00048611) == "C");
    VERIFICA(f.getFidDaID("FG_GEAR_BOX_TEMP") == 0x00048611);
}

void telecamera(IFunzioni& f) {
    VERIFICA(f.getFunVecchiaZumikoDaFID(0x00068A07) == &funz_ZumikoCam_estese[0]);
    VERIFICA(f.getFunVecchiaZumikoDaID("REF_SPEED") == &funz_ZumikoCam_base[1]);
    VERIFICA(f.getParamZumikoCam(0x0000061F) == &funz_ZumikoCam_base[2]);
    VERIFICA(f.getFirstFunzVisZumikoCam() == &funz_ZumikoCam_base[0]);
    VERIFICA(f.getNextFunzVisZumikoCam() == &funz_ZumikoCam_base[1]);
    VERIFICA(f.getFirstFunzVisZumikoCamEstese() == &funz_ZumikoCam_estese[0]);
    VERIFICA(f.getNextFunzVisZumikoCamEstese() == &funz_ZumikoCam_estese[1]);
    std::vector<const t_SFunzioneZumikoCam*> base;
    std::vector<const t_SFunzioneZumikoCam*> estese;
    f.getAllFunzZumikoCamBasePerSw(base);
    f.getAllFunzZumikoCamEstesePerSw(estese);
    VERIFICA(base.size() == 19);
    VERIFICA(estese.size() == 22);
    int codice = 0;
    float scala = 0.0f;
    std::string udm;
    VERIFICA(f.FunGetParamZumikoCam(0x00000B8E, codice, scala, udm));
    VERIFICA(codice == 8 && scala == 100.0f && udm == "bar");
}

void unita(IFunzioni& f) {
    VERIFICA(f.getNumDecimaliDefault(0x0E, "psi") == kelFunGetNumDecimaliDefault(0x0E, "psi"));
    VERIFICA(f.getNumDecimaliMax(0x1E, "#") == 2);  // lambda: at most 2, at least 1
    VERIFICA(f.getNumDecimaliMin(0x1E, "#") == 1);
    std::list<std::string> testi(1, "left over");
    f.getFunzUIVs(0x11, testi);
    VERIFICA((testi == std::list<std::string>{"C", "F"}));

    std::map<GRANDEZZA_FISICA_FUNZKEL, std::list<SFunzionePerGF>> funzioni;
    std::vector<unsigned int> filtro(1, 0x10);
    f.getFunzioni(funzioni, filtro);
    VERIFICA(funzioni.size() == 1);
    VERIFICA(funzioni[FID_PHI_SPEED].size() == 2);
    VERIFICA(funzioni[FID_PHI_SPEED].front().funpos == 0x00068010);
    VERIFICA(funzioni[FID_PHI_SPEED].front().nome == "Vehicle Spd");

    Scelte lati;
    Scelte inout;
    int primo = 0;
    int ultimo = 0;
    f.getFunzDettagli(0x00070010, lati, inout, primo, ultimo);  // speed of a wheel
    VERIFICA(lati.size() == 6 && lati[0x05000000] == "Front Left");
    VERIFICA(inout.empty() && primo == -1 && ultimo == -1);

    unsigned int formati = 77;
    VERIFICA(f.getFormati(0x11, &formati) == 0 && formati == 77);
    std::list<kel_funpos> interni;
    f.getAllInnerFunpos(0x1A | 3 << 7, interni);  // a GPS packet
    VERIFICA(interni.size() == 8 && interni.front() == sottocampi_gps_kel[0].fid);
    VERIFICA(f.getParamConv(0x11, "F") == &C_udm_associate[1].dati);
    VERIFICA(f.getParamConv(0x11, "C", "F").gain == 1.8f);
}

void campi(IFunzioni& f) {
    std::map<unsigned int, IFunzioni::NomiDefaultCanale> gps;
    std::map<unsigned int, IFunzioni::NomiDefaultCanale> tempo;
    std::map<unsigned int, IFunzioni::NomiDefaultCanale> numero;
    f.getCanaliGPS(gps);
    f.getCanaliLapTime(tempo);
    f.getCanaliLapNum(numero);
    VERIFICA(gps.size() == 4 && gps[0xA8010].nome == "GPS Speed");
    VERIFICA(tempo.size() == 4 && tempo[0x992].breve == "LapT");
    VERIFICA(numero.size() == 1 && numero[0x98B].breve == "nLap");

    VERIFICA(f.getStrPhi(FID_PHI_TEMPERATURE) == grandezza_fisica_FunzKel[17].testo);
    VERIFICA(f.getStrObj(FID_OBJ_BEST_SPLIT) == "Best Split");
    VERIFICA(f.getStrPos(static_cast<POSIZIONE_FUNZKEL>(9)) == posizione_FunzKel[9].testo);
    VERIFICA(f.getXmlStrPhi(FID_PHI_SPEED) == "FID_PHI_SPEED");
    VERIFICA(f.getXmlStrObj(FID_OBJ_BEST_SPLIT) == "FID_OBJ_BEST_SPLIT");
    std::map<GRANDEZZA_FISICA_FUNZKEL, std::string> testi;
    f.RiempiMapGrandezzaFisica(testi);
    VERIFICA(testi.size() == 32);
    VERIFICA(f.getIdxPhi("FID_PHI_SPEED") == 16);
    VERIFICA(f.getIdxObj("FID_OBJ_BEST_SPLIT") == 48);
    VERIFICA(f.getIdxPos(posizione_FunzKel[9].xml) == 9);
    VERIFICA(f.getIdxFrontRear(frontrear_FunzKel[2].xml) == 2);

    std::list<std::string> l[12];
    f.GetValoriCampiFID(l[0], l[1], l[2], l[3], l[4], l[5], l[6], l[7], l[8], l[9], l[10], l[11]);
    const std::size_t voci[12] = {32, 58, 23, 4, 2, 3, 2, 4, 4, 4, 4, 64};
    for (int i = 0; i < 12; i++)
        VERIFICA(l[i].size() == voci[i]);
}

void convertitore(IFunzioni& f) {
    s_kel_canale ch;
    std::memset(&ch, 0, sizeof ch);
    ch.fid = 0x11;
    ch.tipo_campione = 6;
    std::unique_ptr<IConverter> conv(f.CreateConverter(&ch, 0x11, "C", true, 1, FORMATO_DESTRA, 4));
    const float gradi = -0.5f;
    float valore = 0.0f;
    std::string testo;
    VERIFICA(conv->GetVal(&gradi, &valore) && valore == gradi);
    VERIFICA(conv->GetString(&gradi, testo) && testo == std::string(" -0.5", 6));
    conv->SetNumDec(2);
    VERIFICA(conv->GetString(&gradi, testo) && testo == std::string("-0.50", 6));
    // Type information is one and the same on both sides of the boundary.
    VERIFICA(typeid(*conv) == typeid(CConverter));
    VERIFICA(dynamic_cast<CConverter*>(conv.get()) != nullptr);
}

void tempi() {
    VERIFICA(CLaptimeAndStrings::LapTimeToStringa(83456) == "1:23.456");
    VERIFICA(CLaptimeAndStrings::StringaToLapTime("1:23.456") == 83456);
    VERIFICA(CLaptimeAndStrings::LapNumAndTimeToStringa(7, 83456) == "  7 - 1:23.456");
    int numero = 0;
    int tempo = 0;
    CLaptimeAndStrings::StringaToLapNumAndTime("  7 - 1:23.456", numero, tempo);
    VERIFICA(numero == 7 && tempo == 83456);
    std::string che;
    try {
        CLaptimeAndStrings::StringaToLapNumAndTime("12", numero, tempo);
    } catch (const std::out_of_range& e) {
        che = e.what();
    }
    VERIFICA(che == "basic_string::substr");
}

}  // namespace

int main() {
    canali();
    CFunzioni proprio;  // the implementation may be named as well
    std::unique_ptr<IFunzioni> creato(IFunzioni::CreateMe());
    IFunzioni* const faccia[] = {&proprio, creato.get()};
    for (IFunzioni* f : faccia) {
        nomi(*f);
        telecamera(*f);
        unita(*f);
        campi(*f);
        convertitore(*f);
    }
    tempi();
    std::printf("%d checks failed\n", falliti);
    return falliti != 0;
}
