// An overlay on the video. Goes through the functions that the camera can show, finds the channel that carries each, and
// prints the value twice: as the count (whole number) that the camera is sent, and as the text that it draws.
#include <IFunzioni.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>

namespace {

// What the logger records: one sample of every channel, one after the other.
struct Registrato {
    kel_funpos fid;
    std::uint32_t tipo_campione;
    unsigned char campione[4];  // little-endian
};
const Registrato registrato[] = {
    {FID_PHI_RPM, KEL_TIPO_UINT16, {0xE8, 0x2E}},                 // 12008 rpm
    {FID_PHI_SPEED, KEL_TIPO_FLOAT, {0x00, 0x80, 0xF6, 0x42}},    // 123.25 km/h
    {0x0000061F, KEL_TIPO_MARCIA, {0x04, 0x00}},                  // gear: 4
    {0x00001091, KEL_TIPO_INT16, {0x57, 0x00}},                   // water: 87 C
    {0x0000020E, KEL_TIPO_UINT16, {0xFE, 0xCF}},                  // brake pressure: missing
    {0x00000195, KEL_TIPO_UINT16, {0x1E, 0x32}},                  // battery: 12830 mV
    {0x00068A07, KEL_TIPO_COORDINATA, {0x95, 0x2C, 0x07, 0x1B}},  // latitude: 45.3454997 degrees
    {0x00069214, KEL_TIPO_FLOAT, {0x00, 0x00, 0x10, 0xC1}},       // vertical velocity: -9 km/h
    {0x00068B08, KEL_TIPO_UINT32, {0x43, 0x30, 0x00, 0x00}},      // odometer: 12355 m
};
constexpr unsigned num_canali = sizeof registrato / sizeof registrato[0];

s_kel_canale canali[num_canali];
unsigned char record[num_canali * sizeof registrato[0].campione];

// The channel set and a record of samples, as they come from the logger.
void prepara() {
    for (unsigned i = 0; i < num_canali; ++i) {
        canali[i].fid = registrato[i].fid;
        canali[i].tipo_campione = registrato[i].tipo_campione;
        canali[i].offset_campione = static_cast<std::uint32_t>(i * sizeof registrato[i].campione);
        std::memcpy(record + canali[i].offset_campione, registrato[i].campione, sizeof registrato[i].campione);
    }
}

void mostra(IFunzioni& catalogo, const t_SFunzioneZumikoCam& funzione) {
    // Functions with the code -1 are unknown to the camera. They are hidden, so none comes here.
    std::printf("%04X %-4s  %-16s ", static_cast<unsigned>(funzione.codice), funzione.breve, funzione.testo);
    const s_kel_canale* canale = catalogo.getMatchCh(funzione.fid);
    if (canale == nullptr) {
        std::printf("not recorded\n");
        return;
    }

    // Some units of the camera ("deg7", "lambda", "#") are not units of the function. For these getParamConv gives the base
    // unit, so take the unit's text from its result.
    const std::string udm = catalogo.getParamConv(funzione.fid, funzione.udm)->udm;
    const auto decimali = static_cast<unsigned>(catalogo.getNumDecimaliDefault(funzione.fid, udm));
    const std::unique_ptr<IConverter> converter(
        catalogo.CreateConverter(canale, funzione.fid, udm, false, decimali, FORMATO_DESTRA, 6));

    // A sample that is missing or out of range has the value 0; only the text tells. A value is a float with 24 bits, so a
    // coordinate loses its last digits in the count, but not in its text.
    float valore = 0;
    std::string testo;
    converter->GetVal(record, &valore);
    converter->GetString(record, testo);
    std::printf("%10ld  %10s %s\n", std::lround(valore * funzione.scala), testo.c_str(), udm.c_str());
}

}  // namespace

int main() {
    prepara();
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe(canali, num_canali));

    // The catalogue object holds one cursor for the basic functions and one for the extended functions.
    std::printf("code                         counts  text\n");
    for (auto f = catalogo->getFirstFunzVisZumikoCam(); f != nullptr; f = catalogo->getNextFunzVisZumikoCam())
        mostra(*catalogo, *f);
    for (auto f = catalogo->getFirstFunzVisZumikoCamEstese(); f != nullptr;
         f = catalogo->getNextFunzVisZumikoCamEstese())
        mostra(*catalogo, *f);
}
