// Samples to numeric texts.
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "comune/scritture.h"
#include "comune/testo_limite.h"
#include "righe.h"

using namespace prova;

namespace {

constexpr kel_funpos TEMPERATURA = 0x1091;  // water
constexpr const char* UDM = "F";
constexpr float GAIN = 1.8f;
constexpr float OFFSET = 32.0f;

// A value that fits a form, with any number of digits before the point and every fourth one negative.
float valore_in_forma(Casuale& casuale, const Forma& forma) {
    const bool negativo = sotto(casuale, 4) == 0;
    const unsigned massimo = forma.larghezza - forma.decimali - (negativo ? 1 : 0);
    const double alto = std::pow(10.0, 1 + sotto(casuale, massimo));
    const double modulo = fra(casuale, alto == 10.0 ? 0.0 : alto / 10, alto * 0.99);
    return static_cast<float>(negativo ? -modulo : modulo);
}

float letto_float(const float& campione) {
    float valore = 0.0f;
    std::memcpy(&valore, &campione, sizeof valore);
    return valore * GAIN + OFFSET;
}

// One form. Peers that can do so know it when they are compiled.
template <unsigned Larghezza, unsigned Decimali>
void float_in_forma() {
    constexpr Forma forma = {Larghezza, Decimali};
    const std::string riga = "float to text " + std::to_string(Larghezza) + "." + std::to_string(Decimali);
    const auto campioni =
        genera([forma](Casuale& casuale) { return (valore_in_forma(casuale, forma) - OFFSET) / GAIN; });
    const auto nostro = [conv = convertitore(TEMPERATURA, KEL_TIPO_FLOAT, UDM, forma)](const float& campione) mutable {
        Testo testo;
        kelConvGetString(&conv, &campione, testo.data());
        return testo;
    };
    const auto limite = [forma](const float& campione) {
        Testo testo;
        testo_limite(testo.data(), letto_float(campione), forma);
        return testo;
    };
    concordi(riga, campioni, nostro, limite);
    serie(riga, Ruolo::nostro, "kelConvGetString", campioni, nostro);
    serie(riga, Ruolo::limite, "digits in a register", campioni, limite);
    pari_testo(riga, campioni, letto_float, [forma](const float&) { return forma; });
#ifdef KEL_PARI_FMT
    serie(riga, Ruolo::pari, "fmt", campioni, [](const float& campione) {
        Testo testo;
        con_fmt_fisso<Larghezza, Decimali>(testo.data(), letto_float(campione));
        return testo;
    });
#endif
}

// A dashboard's nine channels, each with a form of its own, in any order.
void float_misti() {
    struct Ingresso {
        float campione;
        unsigned canale;
    };
    const std::string riga = "float to text, mixed";
    std::array<Forma, 9> forme = {};
    std::array<s_kel_converter, 9> conv = {};
    for (unsigned i = 0; i < 9; ++i) {
        forme[i] = {4 + i / 3, i % 3};
        conv[i] = convertitore(TEMPERATURA, KEL_TIPO_FLOAT, UDM, forme[i]);
    }
    const auto ingressi = genera([forme](Casuale& casuale) {
        const unsigned canale = sotto(casuale, 9);
        return Ingresso{(valore_in_forma(casuale, forme[canale]) - OFFSET) / GAIN, canale};
    });
    const auto nostro = [conv](const Ingresso& ingresso) mutable {
        Testo testo;
        kelConvGetString(&conv[ingresso.canale], &ingresso.campione, testo.data());
        return testo;
    };
    const auto limite = [forme](const Ingresso& ingresso) {
        Testo testo;
        testo_limite(testo.data(), letto_float(ingresso.campione), forme[ingresso.canale]);
        return testo;
    };
    concordi(riga, ingressi, nostro, limite);
    serie(riga, Ruolo::nostro, "kelConvGetString", ingressi, nostro);
    serie(riga, Ruolo::limite, "digits in a register", ingressi, limite);
    const auto valore = [](const Ingresso& ingresso) { return letto_float(ingresso.campione); };
    const auto forma = [forme](const Ingresso& ingresso) { return forme[ingresso.canale]; };
    pari_testo(riga, ingressi, valore, forma);
#ifdef KEL_PARI_FMT
    serie(riga, Ruolo::pari, "fmt", ingressi, [=](const Ingresso& ingresso) {
        Testo testo;
        con_fmt(testo.data(), valore(ingresso), forma(ingresso));
        return testo;
    });
#endif
}

void int16() {
    constexpr Forma forma = {6, 1};
    const std::string riga = "int16 to text";
    // From -3276.8 F to 3276.7 F: the values that the sample type reserves are far away.
    const auto campioni = genera([](Casuale& casuale) {
        return static_cast<std::int16_t>((valore_in_forma(casuale, {4, 0}) - OFFSET) / GAIN);
    });
    const auto valore = [](const std::int16_t& campione) {
        std::int16_t grezzo = 0;
        std::memcpy(&grezzo, &campione, sizeof grezzo);
        return static_cast<float>(grezzo) * GAIN + OFFSET;
    };
    const auto nostro =
        [conv = convertitore(TEMPERATURA, KEL_TIPO_INT16, UDM, forma)](const std::int16_t& campione) mutable {
            Testo testo;
            kelConvGetString(&conv, &campione, testo.data());
            return testo;
        };
    const auto limite = [=](const std::int16_t& campione) {
        Testo testo;
        testo_limite(testo.data(), valore(campione), forma);
        return testo;
    };
    concordi(riga, campioni, nostro, limite);
    serie(riga, Ruolo::nostro, "kelConvGetString", campioni, nostro);
    serie(riga, Ruolo::limite, "digits in a register", campioni, limite);
    pari_testo(riga, campioni, valore, [=](const std::int16_t&) { return forma; });
#ifdef KEL_PARI_FMT
    serie(riga, Ruolo::pari, "fmt", campioni, [=](const std::int16_t& campione) {
        Testo testo;
        con_fmt_fisso<forma.larghezza, forma.decimali>(testo.data(), valore(campione));
        return testo;
    });
#endif
}

}  // namespace

void righe_testo_numerico() {
    float_in_forma<4, 0>();
    float_in_forma<4, 1>();
    float_in_forma<4, 2>();
    float_in_forma<5, 0>();
    float_in_forma<5, 1>();
    float_in_forma<5, 2>();
    float_in_forma<6, 0>();
    float_in_forma<6, 1>();
    float_in_forma<6, 2>();
    float_misti();
    int16();
}
