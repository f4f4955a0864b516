// Other samples to texts, the object face of a converter, and setting one up.
#include <cmath>
#include <cstdint>
#include <memory>
#include <string>

#include "IFunzioni.h"
#include "comune/scritture.h"
#include "righe.h"

using namespace prova;

namespace {

constexpr kel_funpos TEMPERATURA = 0x1091;
constexpr kel_funpos TEMPO_GIRO = 0x0992;
constexpr kel_funpos LATITUDINE = 0x8A07;

s_kel_canale canale(kel_funpos fid, unsigned tipo) {
    s_kel_canale fatto = {};
    fatto.fid = fid;
    fatto.tipo_campione = tipo;
    return fatto;
}

void tempi() {
    const std::string riga = "lap time sample to text";
    const auto campioni =
        genera([](Casuale& casuale) { return static_cast<std::int32_t>(20000 + sotto(casuale, 580000)); });
    serie(riga, Ruolo::nostro, "kelConvGetString", campioni,
          [conv = convertitore(TEMPO_GIRO, KEL_TIPO_TEMPO_GIRO, "time", {8, 2})](const std::int32_t& campione) mutable {
              Testo testo;
              kelConvGetString(&conv, &campione, testo.data());
              return testo;
          });
    serie(riga, Ruolo::pari, "snprintf", campioni, [](const std::int32_t& campione) {
        Testo testo;
        std::snprintf(testo.data(), testo.size(), "%2d:%02d.%02d", campione / 60000, campione % 60000 / 1000,
                      campione % 1000 / 10);
        return testo;
    });
#ifdef KEL_PARI_FMT
    serie(riga, Ruolo::pari, "fmt", campioni, [](const std::int32_t& campione) {
        Testo testo;
        *fmt::format_to(testo.data(), FMT_COMPILE("{:2}:{:02}.{:02}"), campione / 60000, campione % 60000 / 1000,
                        campione % 1000 / 10) = '\0';
        return testo;
    });
#endif
}

void coordinate() {
    const std::string riga = "coordinate to text";
    const auto campioni =
        genera([](Casuale& casuale) { return static_cast<std::int32_t>(fra(casuale, -1.8e9, 1.8e9)); });
    serie(riga, Ruolo::nostro, "kelConvGetString", campioni,
          [conv = convertitore(LATITUDINE, KEL_TIPO_COORDINATA, "deg", {10, 2})](const std::int32_t& campione) mutable {
              Testo testo;
              kelConvGetString(&conv, &campione, testo.data());
              return testo;
          });
    serie(riga, Ruolo::pari, "snprintf", campioni, [](const std::int32_t& campione) {
        Testo testo;
        std::snprintf(testo.data(), testo.size(), "%.7f", campione * 1e-7);
        return testo;
    });
#ifdef KEL_PARI_FMT
    serie(riga, Ruolo::pari, "fmt", campioni, [](const std::int32_t& campione) {
        Testo testo;
        *fmt::format_to(testo.data(), FMT_COMPILE("{:.7f}"), campione * 1e-7) = '\0';
        return testo;
    });
#endif
}

// A string of the caller's, as the object face gives texts.
void oggetto(const std::shared_ptr<IFunzioni>& catalogo) {
    const auto campioni = genera([](Casuale& casuale) { return static_cast<std::int16_t>(sotto(casuale, 1000)); });
    const s_kel_canale sorgente = canale(TEMPERATURA, KEL_TIPO_INT16);
    const std::shared_ptr<IConverter> conv(
        catalogo->CreateConverter(&sorgente, TEMPERATURA, "C", true, 1, FORMATO_DESTRA, 5));
    serie("int16 to value, object", Ruolo::nostro, "GetVal", campioni, [conv](const std::int16_t& campione) {
        float valore = 0.0f;
        conv->GetVal(&campione, &valore);
        return valore;
    });
    const std::string riga = "int16 to string, object";
    serie(riga, Ruolo::nostro, "GetString", campioni,
          [conv, testo = std::string()](const std::int16_t& campione) mutable {
              conv->GetString(&campione, testo);
              return testo.size();
          });
#ifdef KEL_PARI_FMT
    serie(riga, Ruolo::pari, "fmt", campioni, [testo = std::string()](const std::int16_t& campione) mutable {
        testo.clear();
        fmt::format_to(std::back_inserter(testo), FormatoFisso<5, 1>(), static_cast<float>(campione));
        return testo.size();
    });
#endif
}

void preparazione(const std::shared_ptr<IFunzioni>& catalogo) {
    struct Ingresso {
        s_kel_canale canale;
    };
    const auto canali = genera([](Casuale& casuale) {
        const unsigned tipi[] = {KEL_TIPO_INT16, KEL_TIPO_FLOAT, KEL_TIPO_UINT8, KEL_TIPO_INT32};
        return Ingresso{canale(TEMPERATURA, tipi[sotto(casuale, 4)])};
    });
    serie("converter set-up", Ruolo::nostro, "kelConvInit", canali,
          [dati = kelFunGetConvData(TEMPERATURA, "F")](const Ingresso& ingresso) {
              s_kel_converter conv = {};
              kelConvInit(&conv, &ingresso.canale, TEMPERATURA, dati, 0, 0, 1);
              return conv;
          });
    serie("converter set-up, object", Ruolo::nostro, "CreateConverter", canali,
          [catalogo, udm = std::string("F")](const Ingresso& ingresso) {
              return std::unique_ptr<IConverter>(
                  catalogo->CreateConverter(&ingresso.canale, TEMPERATURA, udm, true, 1, FORMATO_DESTRA, 5));
          });
}

}  // namespace

void righe_campioni() {
    const std::shared_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    tempi();
    coordinate();
    oggetto(catalogo);
    preparazione(catalogo);
}
