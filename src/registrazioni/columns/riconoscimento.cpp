#include "columns/riconoscimento.h"

namespace kel_colonne {
namespace {

// A channel whose set-up gives a decoder.
struct Noto {
    std::uint32_t tipo;
    kel_funpos canale;
    kel_funpos fid;
    unsigned short num_bit;
    int reciproco;
};

constexpr kel_funpos GPS = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, FID_SPEC_GPS_KELNAVSOL);
constexpr kel_funpos NAVSOL = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, FID_SPEC_GPS_UBXNAVSOL);
constexpr kel_funpos VELOCITA = kelFidComponi(FID_PHI_SPEED, FID_OBJ_UNDEFINED, FID_POS_GPS);
constexpr kel_funpos LATITUDINE = kelFidComponi(FID_PHI_COORDINATE, FID_OBJ_LATITUDE, FID_POS_GPS);
constexpr kel_funpos LONGITUDINE = kelFidComponi(FID_PHI_COORDINATE, FID_OBJ_LONGITUDE, FID_POS_GPS);

// In the order of `Lettura`.
constexpr Noto NOTI[NUM_LETTURE] = {
    {KEL_TIPO_INT16, 0, 0, 0, 0},
    {KEL_TIPO_UINT16, 0, 0, 0, 0},
    {KEL_TIPO_FLOAT, 0, 0, 0, 0},
    {KEL_TIPO_UINT8, 0, 0, 0, 0},
    {KEL_TIPO_INT32, 0, 0, 0, 0},
    {KEL_TIPO_UINT32, 0, 0, 0, 0},
    {KEL_TIPO_MEZZO_FLOAT, 0, 0, 0, 0},
    {KEL_TIPO_MARCIA, 0, 0, 0, 0},
    {KEL_TIPO_NUMERO_TESTO_30, 0, 0, 0, 0},
    {KEL_TIPO_DATA_ORA, 0, 0, 0, 0},
    {KEL_TIPO_UINT16, 0, 0, 1, 0},
    {KEL_TIPO_UINT32, 0, 0, 1, 0},
    {KEL_TIPO_UINT8, 0, 0, 1, 0},
    {KEL_TIPO_LISTA_BIT, 0, 0, 0, 0},
    {KEL_TIPO_LISTA_BIT, 0, 0, 1, 0},
    {KEL_TIPO_INT16, 0, 0, 0, 1},
    {KEL_TIPO_UINT16, 0, 0, 0, 1},
    {KEL_TIPO_FLOAT, 0, 0, 0, 1},
    {KEL_TIPO_UINT8, 0, 0, 0, 1},
    {KEL_TIPO_INT32, 0, 0, 0, 1},
    {KEL_TIPO_UINT32, 0, 0, 0, 1},
    {KEL_TIPO_MEZZO_FLOAT, 0, 0, 0, 1},
    {KEL_TIPO_GPS_KEL, GPS, LATITUDINE, 0, 0},
    {KEL_TIPO_GPS_KEL, GPS, LONGITUDINE, 0, 0},
    {KEL_TIPO_GPS_KEL, GPS, VELOCITA, 0, 0},
    {KEL_TIPO_GPS_KEL, GPS, VELOCITA, 0, 1},
    {KEL_TIPO_GPS_NAVSOL, NAVSOL, VELOCITA, 0, 0},
    {KEL_TIPO_GPS_NAVSOL, NAVSOL, VELOCITA, 0, 1},
};
static_assert(NOTI[NUM_LETTURE - 1].canale == NAVSOL, "a channel for every way of reading");

// Sample types whose text functions are written here, in the order of `Scrittura`.
constexpr std::uint32_t TIPI_DI_TESTO[NUM_SCRITTURE] = {
    KEL_TIPO_INT16,           KEL_TIPO_TEMPO_GIRO, KEL_TIPO_COORDINATA, KEL_TIPO_DIFFERENZA_TEMPO,
    KEL_TIPO_TEMPO_PACCHETTO, KEL_TIPO_GPS_KEL,    KEL_TIPO_GPS_NAVSOL, KEL_TIPO_NUMERO_TESTO_6,
    KEL_TIPO_NUMERO_TESTO_30, KEL_TIPO_DATA_ORA,   KEL_TIPO_LAP_1G,     KEL_TIPO_GPS_SATELLITI,
};

s_kel_converter convertitore(const Noto& noto) noexcept {
    const s_converter_data dati = {"", 0.0f, 1.0f, noto.reciproco};
    s_kel_canale canale = {};
    canale.fid = noto.canale;
    canale.tipo_campione = noto.tipo;
    s_kel_converter conv;
    kelConvInit(&conv, &canale, noto.fid, &dati, 0, noto.num_bit, 1);
    return conv;
}

}  // namespace

Lettura Riconoscitore::lettura(f_valore_conv valore, std::size_t massimo) noexcept {
    for (std::size_t i = 0; i < NUM_LETTURE; ++i) {
        if (i == valori_noti_) {
            if (i >= massimo)
                break;
            valori_[valori_noti_++] = convertitore(NOTI[i]).valore;
        }
        if (valori_[i] == valore)
            return static_cast<Lettura>(i);
    }
    return Lettura::sconosciuta;
}

Scrittura Riconoscitore::scrittura(f_testo_conv testo) noexcept {
    for (std::size_t i = 0; i < NUM_SCRITTURE; ++i) {
        if (i == testi_noti_)
            testi_[testi_noti_++] = convertitore({TIPI_DI_TESTO[i], 0, 0, 0, 0}).testo;
        if (testi_[i] == testo)
            return static_cast<Scrittura>(i);
    }
    return Scrittura::sconosciuta;
}

}  // namespace kel_colonne
