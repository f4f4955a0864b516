// The flat functions.
//
// Results go to static memory: the stack that is measured is then the library's.
#include <array>
#include <cstdint>
#include <cstring>
#include <iterator>

#include "conti/operazioni.h"

namespace conti {
namespace {

constexpr kel_funpos VELOCITA_RUOTA = 0x05070010;
constexpr kel_funpos ACQUA = 0x1091;
constexpr kel_funpos SCONOSCIUTA = 0x0123459C;
constexpr kel_funpos PACCHETTO_GPS = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, FID_SPEC_GPS_KELNAVSOL);
constexpr kel_funpos PACCHETTO_LAP = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_LAPTIME, FID_SPEC_LAPTIME_KEL2G);
constexpr kel_funpos LATITUDINE = kelFidComponi(FID_PHI_COORDINATE, FID_OBJ_LATITUDE, FID_POS_GPS);
constexpr kel_funpos LONGITUDINE = kelFidComponi(FID_PHI_COORDINATE, FID_OBJ_LONGITUDE, FID_POS_GPS);
constexpr kel_funpos VELOCITA_GPS = kelFidComponi(FID_PHI_SPEED, FID_OBJ_UNDEFINED, FID_POS_GPS);

// Identifiers for names, rows and units: a camera function, a legacy one, a generic row, a composed name, an unknown
// one.
constexpr kel_funpos FUNZIONI[] = {ACQUA, 0x00048611, 0x00001203, VELOCITA_RUOTA, SCONOSCIUTA};

struct UnitaChiesta {
    kel_funpos fid;
    const char* udm;
};
constexpr UnitaChiesta UNITA[] = {{ACQUA, "F"}, {0x0B8E, "psi"}, {0x0014, "m/min"}, {VELOCITA_RUOTA, "knots"}};

constexpr unsigned QUANTI_CANALI = 100;
s_kel_canale canali[QUANTI_CANALI];
s_set_canali set;
s_kel_canale un_canale;
s_set_canali set_di_uno = {&un_canale, 1, 0};
s_kel_canale* trovati[QUANTI_CANALI];
float valore;
char testo[32];
s_nome_breve nome;
s_converter_data dati;

// A hundred channels, a lap packet among them. The one that is searched is ten before the last.
bool prepara_canali() {
    for (unsigned i = 0; i < QUANTI_CANALI; ++i) {
        canali[i] = {};
        canali[i].fid = kelFidComponi(1 + i % 25, i % 40, i % 23);
        canali[i].dim_buffer = i;
    }
    canali[QUANTI_CANALI / 2].fid = PACCHETTO_LAP;
    canali[QUANTI_CANALI - 10].fid = VELOCITA_RUOTA;
    kelFunInit(&set, canali, QUANTI_CANALI, QUANTI_CANALI);
    return true;
}

struct Lettura {
    s_kel_canale canale = {};
    s_kel_converter conv = {};
    unsigned char campione[64] = {};

    template <typename Campione>
    Lettura(kel_funpos fid_canale, kel_funpos fid, unsigned tipo, const char* udm, unsigned larghezza,
            unsigned decimali, const Campione& grezzo) {
        canale.fid = fid_canale;
        canale.tipo_campione = tipo;
        conv.larghezza = larghezza;
        conv.decimali = decimali;
        std::memcpy(campione, &grezzo, sizeof grezzo);
        kelConvInit(&conv, &canale, fid, kelFunGetConvData(fid, udm), 0, 0, 1);
    }

    void leggi_valore() const { kelConvGetValFloat(&conv, campione, &valore); }
    void leggi_testo() { kelConvGetString(&conv, campione, testo); }
};

struct Gps {
    std::uint8_t tempo[4] = {};
    std::uint8_t testa[10] = {};
    std::uint8_t fix[2] = {3, 0};
    std::int32_t xyz[3] = {441853240, 71562390, 452974110};
    std::uint8_t accuratezza[4] = {};
    std::int32_t velocita[3] = {-1200, 800, 400};
    std::uint8_t coda[7] = {};
    std::uint8_t satelliti = 9;
    std::uint8_t fine[4] = {};
};
static_assert(sizeof(Gps) == 56, "the logger's GPS packet");

Lettura int16(ACQUA, ACQUA, KEL_TIPO_INT16, "F", 5, 1, std::int16_t{87});
Lettura intero32(0x000B, 0x000B, KEL_TIPO_INT32, "#", 6, 0, std::int32_t{-12345});
Lettura float41(ACQUA, ACQUA, KEL_TIPO_FLOAT, "C", 4, 1, 87.25f);
Lettura float52(ACQUA, ACQUA, KEL_TIPO_FLOAT, "C", 5, 2, -7.125f);
Lettura float60(ACQUA, ACQUA, KEL_TIPO_FLOAT, "F", 6, 0, 123456.0f);
Lettura mezzo(ACQUA, ACQUA, KEL_TIPO_MEZZO_FLOAT, "C", 4, 1, std::uint16_t{0x5574});
Lettura marcia(0x061F, 0x061F, KEL_TIPO_MARCIA, "gear", 1, 0, std::int16_t{3});
Lettura giro(0x0992, 0x0992, KEL_TIPO_TEMPO_GIRO, "time", 8, 2, std::int32_t{83456});
Lettura coordinata(LATITUDINE, LATITUDINE, KEL_TIPO_COORDINATA, "deg", 8, 2, std::int32_t{453454997});
Lettura differenza(0x0012, 0x0012, KEL_TIPO_DIFFERENZA_TEMPO, "ms", 6, 2, std::int32_t{-1230});
Lettura lista(0x0006, 0x0006, KEL_TIPO_LISTA_BIT, "#", 8, 0, std::uint8_t{0x81});
Lettura gps(PACCHETTO_GPS, PACCHETTO_GPS, KEL_TIPO_GPS_KEL, "", 8, 2, Gps());
Lettura gps_lat(PACCHETTO_GPS, LATITUDINE, KEL_TIPO_GPS_KEL, "deg", 8, 2, Gps());
Lettura gps_lon(PACCHETTO_GPS, LONGITUDINE, KEL_TIPO_GPS_KEL, "deg", 8, 2, Gps());
Lettura gps_vel(PACCHETTO_GPS, VELOCITA_GPS, KEL_TIPO_GPS_KEL, "km/h", 5, 1, Gps());

template <std::size_t N>
constexpr unsigned di(const auto(&)[N]) {
    return N;
}

constexpr std::uint16_t MEZZI[] = {0x3C00, 0x5574, 0x0001, 0x83FF, 0x7C00, 0x7E01};
constexpr std::uint32_t BIT_FLOAT[] = {0x3F800000, 0x42AE8000, 0x33800000, 0x80000000, 0x7F800000, 0x7FC00001};
constexpr const char* TESTI_UDM[] = {"km/h", "psi", "lambda", "knots"};
constexpr const char* VECCHI[] = {"FG_GEAR_BOX_TEMP", "DSG", "GEAR_LEVER_POS", "UNKNOWN"};
constexpr const char* CAMERA[] = {"RPM_MOTORE", "BATTERY", "FG_RUNNING_LAP_TIME", "UNKNOWN"};

// clang-format off
const Operazione OPERAZIONI[] = {
    {"kelFunInit",                    1, [] { kelFunInit(&set, canali, QUANTI_CANALI, QUANTI_CANALI); }},
    {"kelFunGetFreeCh",               1, [] { set_di_uno.usati = 0; usa(kelFunGetFreeCh(&set_di_uno)); }},
    {"kelFunFreeLastCh",              1, [] { set_di_uno.usati = 1; usa(kelFunFreeLastCh(&set_di_uno)); }},
    {"kelFunGetCanale",               1, [] { usa(kelFunGetCanale(&set, 7)); }},
    {"kelFunGetNumChUsed",            1, [] { usa(kelFunGetNumChUsed(&set)); }},
    {"kelFunGetNumChTot",             1, [] { usa(kelFunGetNumChTot(&set)); }},
    {"kelFunGetSizeBufferValori 100 channels", 1, [] { usa(kelFunGetSizeBufferValori(&set)); }},
    {"kelFunGetNomeCanale",           1, [] { usa(kelFunGetNomeCanale(&set, 7)); }},
    {"kelFunGetNomeCanaleShort",      1, [] { usa(kelFunGetNomeCanaleShort(&set, 7)); }},
    {"kelFunGetMatchCh 91st channel", 1, [] { usa(kelFunGetMatchCh(&set, VELOCITA_RUOTA)); }},
    {"kelFunGetMatchChFull 91st channel", 1, [] { usa(kelFunGetMatchChFull(&set, VELOCITA_RUOTA)); }},
    {"kelFunGetMatchChList 100 channels", 1, [] { unsigned numero = QUANTI_CANALI; usa(kelFunGetMatchChList(&set, FID_PHI_SPEED, trovati, &numero)); }},
    {"kelFunGetUIVs",                 di(FUNZIONI), [] { for (const auto fid : FUNZIONI) usa(kelFunGetUIVs(fid)); }},
    {"kelFunGetUnitaBase",            di(FUNZIONI), [] { for (const auto fid : FUNZIONI) usa(kelFunGetUnitaBase(fid)); }},
    {"kelFunGetUdmTxt",               1, [] { usa(kelFunGetUdmTxt(11)); }},
    {"kelFunGetUdmCode",              di(TESTI_UDM), [] { for (const auto* t : TESTI_UDM) usa(kelFunGetUdmCode(t)); }},
    {"kelFunGetNumDecimaliDefault",   di(UNITA), [] { for (const auto& u : UNITA) usa(kelFunGetNumDecimaliDefault(u.fid, u.udm)); }},
    {"kelFunGetNumDecimaliMax",       di(UNITA), [] { for (const auto& u : UNITA) usa(kelFunGetNumDecimaliMax(u.fid, u.udm)); }},
    {"kelFunGetNumDecimaliMin",       di(UNITA), [] { for (const auto& u : UNITA) usa(kelFunGetNumDecimaliMin(u.fid, u.udm)); }},
    {"kelFunGetConvData",             di(UNITA), [] { for (const auto& u : UNITA) usa(kelFunGetConvData(u.fid, u.udm)); }},
    {"kelFunGetConvDatas",            1, [] { dati = kelFunGetConvDatas(0x000E, "psi", "kPa"); }},
    {"kelFunGetConvDatas unknown unit", 1, [] { dati = kelFunGetConvDatas(0x000E, "psi", "knots"); }},
    {"kelFunGetNomeFunzioneShort camera", 1, [] { nome = kelFunGetNomeFunzioneShort(nullptr, ACQUA); }},
    {"kelFunGetNomeFunzioneShort composed", 1, [] { nome = kelFunGetNomeFunzioneShort(nullptr, VELOCITA_RUOTA); }},
    {"kelFunGetFidDaID",              di(VECCHI), [] { for (const auto* t : VECCHI) usa(kelFunGetFidDaID(t)); }},
    {"kelFunGetFunVecchiaZumikoDaID", di(CAMERA), [] { for (const auto* t : CAMERA) usa(kelFunGetFunVecchiaZumikoDaID(t)); }},
    {"kelFunGetFunVecchiaZumikoDaFID", di(FUNZIONI), [] { for (const auto fid : FUNZIONI) usa(kelFunGetFunVecchiaZumikoDaFID(fid)); }},
    {"kelFunGetParamZumikoCam",       di(FUNZIONI), [] { for (const auto fid : FUNZIONI) usa(kelFunGetParamZumikoCam(fid)); }},
    {"getFunzVisSize",                1, [] { usa(getFunzVisSize()); }},
    {"getFunzVisEstSize",             1, [] { usa(getFunzVisEstSize()); }},
    {"kelFunGetSamplSize",            1, [] { usa(kelFunGetSamplSize(KEL_TIPO_FLOAT)); }},
    {"kelF16compress",                di(BIT_FLOAT), [] { for (const auto bit : BIT_FLOAT) usa(kelF16compress(bit)); }},
    {"kelF16decompress",              di(MEZZI), [] { for (const auto bit : MEZZI) usa(kelF16decompress(bit)); }},
    {"kelConvInit",                   1, [] { kelConvInit(&int16.conv, &int16.canale, ACQUA, int16.conv.dati, 0, 0, 1); }},
    {"kelConvInit subfield",          1, [] { kelConvInit(&gps_lat.conv, &gps_lat.canale, LATITUDINE, gps_lat.conv.dati, 0, 0, 1); }},
    {"kelConvGetValFloat int16",      1, [] { int16.leggi_valore(); }, &int16.conv},
    {"kelConvGetValFloat float",      1, [] { float41.leggi_valore(); }, &float41.conv},
    {"kelConvGetValFloat 16-bit float", 1, [] { mezzo.leggi_valore(); }, &mezzo.conv},
    {"kelConvGetValFloat gear",       1, [] { marcia.leggi_valore(); }, &marcia.conv},
    {"kelConvGetValFloat bit list",   1, [] { lista.leggi_valore(); }, &lista.conv},
    {"kelConvGetValFloat GPS speed",  1, [] { gps_vel.leggi_valore(); }, &gps_vel.conv},
    {"kelConvGetValFloat GPS latitude", 1, [] { gps_lat.leggi_valore(); }, &gps_lat.conv},
    {"kelConvGetValFloat GPS longitude", 1, [] { gps_lon.leggi_valore(); }, &gps_lon.conv},
    {"kelConvGetString int16 5.1",    1, [] { int16.leggi_testo(); }, &int16.conv},
    {"kelConvGetString int32 6.0",    1, [] { intero32.leggi_testo(); }, &intero32.conv},
    {"kelConvGetString float 4.1",    1, [] { float41.leggi_testo(); }, &float41.conv},
    {"kelConvGetString float 5.2",    1, [] { float52.leggi_testo(); }, &float52.conv},
    {"kelConvGetString float 6.0",    1, [] { float60.leggi_testo(); }, &float60.conv},
    {"kelConvGetString 16-bit float 4.1", 1, [] { mezzo.leggi_testo(); }, &mezzo.conv},
    {"kelConvGetString gear",         1, [] { marcia.leggi_testo(); }, &marcia.conv},
    {"kelConvGetString lap time",     1, [] { giro.leggi_testo(); }, &giro.conv},
    {"kelConvGetString time difference", 1, [] { differenza.leggi_testo(); }, &differenza.conv},
    {"kelConvGetString coordinate",   1, [] { coordinata.leggi_testo(); }, &coordinata.conv},
    {"kelConvGetString GPS packet",   1, [] { gps.leggi_testo(); }, &gps.conv},
    {"kelConvGetString GPS latitude", 1, [] { gps_lat.leggi_testo(); }, &gps_lat.conv},
    {"kelConvGetConvData",            1, [] { usa(kelConvGetConvData(&int16.conv)); }},
    {"kelConvGetOffset",              1, [] { usa(kelConvGetOffset(&int16.conv)); }},
    {"kelConvGetSottoCampiLapTime",   1, [] { usa(kelConvGetSottoCampiLapTime(PACCHETTO_LAP)); }},
    {"kelConvGetSottoCampiDataOra",   1, [] { usa(kelConvGetSottoCampiDataOra(0x011A)); }},
    {"kelConvGetSottoCampiGPS",       1, [] { usa(kelConvGetSottoCampiGPS(PACCHETTO_GPS)); }},
    {"kelConvMatchSottocampo",        1, [] { usa(kelConvMatchSottocampo(FID_DETTAGLI_GPS, 0, LATITUDINE)); }},
    {"getDettagliSottocampo",         1, [] { usa(getDettagliSottocampo(sottocampi_gps_kel, LATITUDINE)); }},
    {"search_sottocampi_struct",      1, [] { usa(search_sottocampi_struct(FID_DETTAGLI_LAPTIME, 0)); }},
};
// clang-format on

}  // namespace

std::span<const Operazione> operazioni_flat() {
    static const bool pronti = prepara_canali();
    usa(pronti);
    return OPERAZIONI;
}

}  // namespace conti
