#include "centralina.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>

#include "messaggi.h"

namespace kel::simulatore {

namespace {

constexpr double G = 9.80665;               // m/s2, standard gravity
constexpr double KMH = 3.6;                 // km/h in a m/s
constexpr double REGIME_MASSIMO = 14000;    // rpm at which the next gear is engaged
constexpr double REGIME_MINIMO = 2500;      // rpm, clutch slipping
constexpr double ACQUA_CALDA = 52;          // degrees Celsius at full pace
constexpr double ACQUA_BOLLENTE = 118;      // without coolant
constexpr double CURVA_CRITICA = 0.8;       // g to the left at which the oil leaves a low sump's pump
constexpr double OLIO_CRITICO = 0.4;        // bar
constexpr double TEMPO_ACQUA = 90;          // s over which it warms up
constexpr double ACCENSIONE_SONDA = 3;      // s before the water's sensor gives its first value
constexpr std::uint16_t MANCANTE = 0xCFFE;  // the sample of a value that is missing
// Speed at which each gear is at its maximum engine speed, m/s.
constexpr double FINE_MARCIA[] = {9, 13, 16.5, 20, 23, 27};

template <typename Intero>
void scrivi(std::string& record, std::size_t dove, Intero valore) {
    for (std::size_t i = 0; i < sizeof valore; ++i)
        record[dove + i] = static_cast<char>(static_cast<std::uint64_t>(valore) >> 8 * i & 0xFF);
}

std::uint16_t mezzo_float(double valore) {
    return static_cast<std::uint16_t>(kelF16compress(std::bit_cast<std::uint32_t>(static_cast<float>(valore))));
}

}  // namespace

Centralina::Centralina(double giro_m, Guasto guasto) : giro_m_(giro_m), guasto_(guasto) {
    kelFunInit(&set_, memoria_.data(), CANALI, 0);
    velocita_ = &aggiungi(kelFidComponi(FID_PHI_SPEED, FID_OBJ_UNDEFINED, FID_POS_WHEEL), KEL_TIPO_FLOAT, "Speed",
                          "Wheel Speed");
    giri_ = &aggiungi(FID_PHI_RPM, KEL_TIPO_UINT16, "RPM", "Engine RPM");
    marcia_ = &aggiungi(FID_PHI_GEAR, KEL_TIPO_MARCIA, "Gear", "Gear");
    acceleratore_ =
        &aggiungi(kelFidComponi(FID_PHI_PERCENT, FID_OBJ_THROTTLE_LOAD, 0), KEL_TIPO_UINT8, "TPS", "Throttle");
    laterale_ = &aggiungi(FID_PHI_ACCELERATION, KEL_TIPO_MEZZO_FLOAT, "LatA", "Lateral Accel");
    acqua_ = &aggiungi(kelFidComponi(FID_PHI_TEMPERATURE, FID_OBJ_WATER, 0), KEL_TIPO_INT16, "WaterT", "Water Temp");
    olio_ = &aggiungi(kelFidComponi(FID_PHI_PRESSURE, FID_OBJ_OIL, 0), KEL_TIPO_MEZZO_FLOAT, "OilP", "Oil Pressure");
    giro_ = &aggiungi(kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_LAPTIME, FID_SPEC_LAPTIME_KEL2G), KEL_TIPO_LAP_2G,
                      "Lap", "Lap packet");
    gps_ = &aggiungi(kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, FID_SPEC_GPS_KELNAVSOL), KEL_TIPO_GPS_KEL, "GPS",
                     "GPS packet");
}

// The channel follows those that are there, and its sample follows theirs.
const s_kel_canale& Centralina::aggiungi(kel_funpos fid, std::uint32_t tipo, const char* breve, const char* nome) {
    const std::uint32_t offset = kelFunGetSizeBufferValori(&set_);
    s_kel_canale& canale = *kelFunGetFreeCh(&set_);  // cleared; there is one for each of the calls above
    canale.fid = fid;
    canale.tipo_campione = tipo;
    canale.offset_campione = offset;
    canale.dim_buffer = kelFunGetSamplSize(tipo);
    std::strncpy(canale.breve, breve, sizeof canale.breve - 1);
    std::strncpy(canale.nome, nome, sizeof canale.nome - 1);
    return canale;
}

std::string Centralina::canali() const {
    static_assert(std::endian::native == std::endian::little, "the file is the logger's memory");
    std::string byte(sizeof memoria_, '\0');
    std::memcpy(byte.data(), memoria_.data(), sizeof memoria_);
    return byte;
}

// In the axes of ISO 8855, x to the front and y to the left: above 0 in a left-hand corner.
double Centralina::laterale(const Istante& istante) {
    return istante.andatura * istante.andatura * istante.curvatura / G;
}

std::string Centralina::record(const Istante& istante, const PianoLocale& piano) {
    misura(istante);
    cronometra(istante);
    const auto ora_ms = static_cast<std::uint32_t>(std::lround(istante.secondi * 1000));
    std::string campioni(kelFunGetSizeBufferValori(&set_), '\0');
    scrivi(campioni, velocita_->offset_campione,
           std::bit_cast<std::uint32_t>(static_cast<float>(istante.andatura * KMH)));
    scrivi(campioni, giri_->offset_campione, static_cast<std::uint16_t>(regime_));
    scrivi(campioni, marcia_->offset_campione, static_cast<std::int16_t>(in_marcia_));
    scrivi(campioni, acceleratore_->offset_campione, static_cast<std::uint8_t>(spinta_));
    scrivi(campioni, laterale_->offset_campione, mezzo_float(laterale(istante)));
    scrivi(campioni, acqua_->offset_campione, acqua(istante));
    scrivi(campioni, olio_->offset_campione, mezzo_float(olio_bar(istante)));
    pacchetto_giro(campioni, ora_ms);
    scrivi(campioni, gps_->offset_campione, ora_ms);
    const std::string navsol = payload_nav_sol(istante, piano);
    std::copy(navsol.begin(), navsol.end(), campioni.begin() + gps_->offset_campione + sizeof ora_ms);

    std::string orario(sizeof ora_ms, '\0');
    scrivi(orario, 0, ora_ms);
    prima_ = istante;
    return orario + campioni;
}

double Centralina::olio_bar(const Istante& istante) const {
    if (guasto_ == Guasto::olio_basso && laterale(istante) > CURVA_CRITICA)
        return OLIO_CRITICO;
    return 1.2 + 3.6 * regime_ / REGIME_MASSIMO;
}

std::uint16_t Centralina::acqua(const Istante& istante) const {
    const bool spenta = guasto_ == Guasto::sonda_staccata || istante.secondi < ACCENSIONE_SONDA;
    return spenta ? MANCANTE : static_cast<std::uint16_t>(acqua_c_);
}

// What the sensors give: engine and gear follow the speed, the throttle its change.
void Centralina::misura(const Istante& istante) {
    const double dt = istante.secondi - prima_.secondi;
    const double accelerazione = dt > 0 ? (istante.andatura - prima_.andatura) / dt : 0;
    const auto* marcia = std::find_if(std::begin(FINE_MARCIA), std::end(FINE_MARCIA) - 1,
                                      [&istante](double fine) { return istante.andatura < fine; });
    in_marcia_ = istante.andatura > 0 ? static_cast<int>(marcia - std::begin(FINE_MARCIA)) + 1 : 0;
    regime_ = std::max(REGIME_MINIMO, REGIME_MASSIMO * istante.andatura / *marcia);
    spinta_ = std::clamp(35 + accelerazione * 30, 0.0, 100.0);
    const double calda = guasto_ == Guasto::surriscaldamento ? ACQUA_BOLLENTE : ACQUA_CALDA;
    acqua_c_ += (calda - acqua_c_) * dt / TEMPO_ACQUA;
}

// The line is crossed between two solutions. The time of the crossing divides their interval as the line divides the
// way between them. The first crossing only begins the first lap.
void Centralina::cronometra(const Istante& istante) {
    const double traguardo = passaggi_ * giro_m_;
    if (istante.distanza < traguardo)
        return;
    const double parte = (traguardo - prima_.distanza) / (istante.distanza - prima_.distanza);
    const double passaggio = prima_.secondi + parte * (istante.secondi - prima_.secondi);
    const auto passaggio_ms = static_cast<std::uint32_t>(std::lround(passaggio * 1000));
    if (passaggi_ > 0) {
        ultimo_ms_ = passaggio_ms - traguardo_ms_;
        migliore_ms_ = passaggi_ == 1 ? ultimo_ms_ : std::min(migliore_ms_, ultimo_ms_);
    }
    traguardo_ms_ = passaggio_ms;
    ++passaggi_;
}

// Bytes of the packet: run 0, split 1, laps done 2, times of the last lap 4, of the best 12, of the lap now running 16.
void Centralina::pacchetto_giro(std::string& record, std::uint32_t ora_ms) const {
    const std::size_t da = giro_->offset_campione;
    scrivi(record, da, std::uint8_t{1});
    scrivi(record, da + 2, static_cast<std::uint16_t>(passaggi_ > 0 ? passaggi_ - 1 : 0));
    scrivi(record, da + 4, ultimo_ms_);
    scrivi(record, da + 12, migliore_ms_);
    scrivi(record, da + 16, ora_ms - traguardo_ms_);
}

}  // namespace kel::simulatore
