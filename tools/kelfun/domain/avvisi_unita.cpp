#include "domain/avvisi_unita.h"

#include <cmath>

#include "domain/canale.h"
#include "text/numeri.h"

namespace kel::strumento {

namespace {

// A metric horse power is the smaller one: of the same power there are more CV than HP.
bool scambiati(const IFunzioni& catalogo, kel_funpos fid) {
    const s_converter_data* hp = catalogo.getParamConv(fid, "HP");
    const s_converter_data* cv = catalogo.getParamConv(fid, "CV");
    return hp != nullptr && cv != nullptr && hp->gain > cv->gain;
}

std::string altra(const std::string& udm) {
    return udm == "HP" ? "CV" : udm == "CV" ? "HP" : udm;
}

std::string testo(float valore, const std::string& udm) {
    return breve(valore) + " " + udm;
}

// The value that is probably meant, with as many digits as a display has.
std::string circa(float valore, const std::string& udm) {
    constexpr double CIFRE = 4;
    const double unita = std::pow(10.0, std::floor(std::log10(std::fabs(static_cast<double>(valore)))) + 1 - CIFRE);
    return testo(static_cast<float>(std::round(static_cast<double>(valore) / unita) * unita), udm);
}

bool reciproca(const IFunzioni& catalogo, kel_funpos fid, const std::string& udm) {
    const s_converter_data* dati = catalogo.getParamConv(fid, udm);
    return dati != nullptr && dati->reciproco != 0;
}

// What a converter makes of a sample in the base unit.
float mostrato(const IFunzioni& catalogo, kel_funpos fid, const std::string& udm, float valore) {
    const s_kel_canale canale = kel::strumento::canale(fid, KEL_TIPO_FLOAT);
    s_kel_converter conv{};
    conv.larghezza = 8;
    kelConvInit(&conv, &canale, fid, catalogo.getParamConv(fid, udm), 0, 0, 1);
    float risultato = 0;
    kelConvGetValFloat(&conv, &valore, &risultato);
    return risultato;
}

float lineare(const s_converter_data& dati, float valore) {
    return valore * dati.gain + dati.offset;
}

// Whether one revolution per second, which is 60 rpm, is more than one rps in the catalogue: there it is ten.
bool decuplicati(const IFunzioni& catalogo, kel_funpos fid, const std::string& udm) {
    constexpr float SESSANTA = 60;
    constexpr float DUE = 2;
    const s_converter_data* rps = catalogo.getParamConv(fid, "rps");
    return udm == "rps" && rps->udm == udm && lineare(catalogo.getParamConv(fid, "rpm", udm), SESSANTA) > DUE;
}

std::optional<std::string> decuplo(const IFunzioni& catalogo, kel_funpos fid, const std::string& da,
                                   const std::string& a, float valore) {
    if (!decuplicati(catalogo, fid, da) && !decuplicati(catalogo, fid, a))
        return std::nullopt;
    constexpr float DIECI = 10;
    const float dato = lineare(catalogo.getParamConv(fid, da, a), valore);
    if (dato == 0)
        return std::nullopt;
    return "the catalogue's gain of rps is ten times too large: " + testo(valore, da) + " converts into " +
           testo(dato, a) + ", but is near " + circa(a == "rps" ? dato / DIECI : dato * DIECI, a);
}

std::optional<std::string> scambio(const IFunzioni& catalogo, kel_funpos fid, const std::string& da,
                                   const std::string& a, float valore) {
    if (altra(da) == da && altra(a) == a)
        return std::nullopt;
    if (!scambiati(catalogo, fid))
        return std::nullopt;
    const float dato = lineare(catalogo.getParamConv(fid, da, a), valore);
    const float vero = lineare(catalogo.getParamConv(fid, altra(da), altra(a)), valore);
    if (dato == vero)  // as 0 is in every unit
        return std::nullopt;
    return "the catalogue's gains of HP and CV are swapped: " + testo(valore, da) + " converts into " + testo(dato, a) +
           ", but is " + testo(vero, a);
}

std::optional<std::string> reciproco(const IFunzioni& catalogo, kel_funpos fid, const std::string& da,
                                     const std::string& a, float valore) {
    const std::string base = catalogo.getUnitaBase(fid);
    const bool in_reciproca = reciproca(catalogo, fid, a);
    if (!in_reciproca && !reciproca(catalogo, fid, da))
        return std::nullopt;
    std::string avviso = (in_reciproca ? a : da) +
                         " is a reciprocal unit, but a conversion between two units is linear: " + testo(valore, da) +
                         " converts into " + testo(lineare(catalogo.getParamConv(fid, da, a), valore), a);
    if (in_reciproca) {
        const float in_base = lineare(catalogo.getParamConv(fid, da, base), valore);
        avviso += ", the converters show " + testo(mostrato(catalogo, fid, a, in_base), a);
    }
    // The linear gain is that of the unit upside down: 0.016667 km/min in a km/h.
    const float di = reciproca(catalogo, fid, da) ? 1 / valore : valore;
    const s_converter_data dati = catalogo.getParamConv(fid, da, a);
    const float inteso = in_reciproca ? 1 / lineare(dati, di) : lineare(dati, di);
    if (std::isfinite(inteso) && inteso != 0)
        avviso += ", and what is meant is near " + circa(inteso, a);
    return avviso;
}

}  // namespace

std::optional<std::string> avviso_conversione(const IFunzioni& catalogo, kel_funpos fid, const std::string& da,
                                              const std::string& a, float valore) {
    if (da == a)
        return std::nullopt;
    auto avviso = scambio(catalogo, fid, da, a, valore);
    if (!avviso)
        avviso = decuplo(catalogo, fid, da, a, valore);
    return avviso ? avviso : reciproco(catalogo, fid, da, a, valore);
}

std::optional<std::string> avviso_unita(const IFunzioni& catalogo, kel_funpos fid, const std::string& udm) {
    if (altra(udm) != udm && scambiati(catalogo, fid))
        return "the catalogue's gains of HP and CV are swapped: what is shown as " + udm + " is " + altra(udm);
    if (decuplicati(catalogo, fid, udm))
        return "the catalogue's gain of rps is ten times too large: 60 rpm are shown as 10 rps";
    const s_converter_data* dati = catalogo.getParamConv(fid, udm);
    if (dati == nullptr || dati->reciproco == 0)
        return std::nullopt;
    const std::string base = catalogo.getUnitaBase(fid);
    constexpr float DODICI = 12;
    return udm + " is shown as " + breve(dati->gain) +
           " divided by the value, as the device does: " + testo(DODICI, base) + " as " +
           testo(mostrato(catalogo, fid, udm, DODICI), udm) + ", not " + circa(1 / lineare(*dati, DODICI), udm);
}

}  // namespace kel::strumento
