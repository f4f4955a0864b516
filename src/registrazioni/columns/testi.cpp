#include "columns/testi.h"

#include <bit>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <iterator>

namespace kel_colonne {
namespace {

// The first library's numeric text for texts of at most eight characters, its operations in their order; what is told from the
// converter alone is told once for all samples. Other texts go through the converter's own function.

constexpr std::uint32_t cifre_parola = 8;
constexpr std::uint64_t ogni_byte = 0x0101010101010101;
constexpr float scale[] = {1.0f, 10.0f, 100.0f, 1000.0f};
constexpr float potenze_10[] = {0.0f, 1e1f, 1e2f, 1e3f, 1e4f, 1e5f, 1e6f, 1e7f, 1e8f};
constexpr float quasi_mezzo = 0x1.fffffep-2f;  // the float below 0.5: halves are rounded up

constexpr std::uint64_t otto_cifre(std::uint32_t numero) noexcept {
    const std::uint64_t meta = numero / 10000 | std::uint64_t{numero % 10000} << 32;
    const std::uint64_t centinaia = meta * 5243 >> 19 & 0x0000007F0000007F;
    const std::uint64_t coppie = centinaia | (meta - centinaia * 100) << 16;
    const std::uint64_t decine = coppie * 103 >> 10 & 0x000F000F000F000F;
    return (decine | (coppie - decine * 10) << 8) + '0' * ogni_byte;
}

constexpr std::uint64_t primi(std::uint32_t bit) noexcept {
    return (std::uint64_t{1} << bit) - 1;
}

// What a text's field is like, for one choice of decimals.
struct Campo {
    float scala;
    float sotto_positivo;  // magnitudes below which a number fits; 0 where none does
    float sotto_negativo;
    std::uint32_t interi;  // bits of the places before the point
    std::uint32_t oltre;   // bits of the digits that the field has no place for
    std::uint32_t lunghezza;
    bool punto;

    Campo(std::uint32_t larghezza, std::uint32_t decimali_chiesti) noexcept {
        const std::uint32_t decimali = decimali_chiesti < std::size(scale) ? decimali_chiesti : std::size(scale) - 1;
        punto = decimali != 0;
        scala = scale[decimali];
        const bool in_parola = larghezza <= cifre_parola - (punto ? 1u : 0u);
        sotto_positivo = in_parola && larghezza > decimali_chiesti ? potenze_10[larghezza] : 0.0f;
        sotto_negativo =
            in_parola && larghezza > 0 && larghezza - 1 > decimali_chiesti ? potenze_10[larghezza - 1] : 0.0f;
        interi = 8 * (larghezza - decimali);
        oltre = 8 * (cifre_parola - larghezza);
        lunghezza = 8 * (larghezza + (punto ? 1u : 0u));
    }
};

template <eFormatoConv Formato>
std::uint64_t parola_di(std::uint32_t numero, const Campo& campo, std::uint32_t segno) noexcept {
    constexpr std::uint64_t spazi = ' ' * ogni_byte;
    std::uint64_t parola = otto_cifre(numero) >> campo.oltre;
    const std::uint64_t figure = (parola ^ '0' * ogni_byte) | std::uint64_t{1} << (campo.interi - 8);
    const std::uint32_t prima = static_cast<std::uint32_t>(std::countr_zero(figure)) & 56;
    parola = (parola & ~primi(prima)) | (spazi & primi(prima));
    parola ^= (std::uint64_t{segno} * (' ' ^ '-') << prima) >> 8;
    if (campo.punto) {
        const std::uint64_t frazione = parola >> campo.interi;
        parola = (parola & primi(campo.interi)) | ('.' | frazione << 8) << campo.interi;
    }
    if constexpr (Formato != FORMATO_DESTRA) {
        const std::uint32_t vuoti = prima - 8 * segno;
        parola >>= vuoti;
        if constexpr (Formato == FORMATO_SINISTRA)
            parola |= (spazi & primi(vuoti)) << (campo.lunghezza - vuoti - 8) << 8;
    }
    return parola;
}

// The limits of automatic decimals: at `uno` or nearer to 0 one decimal, at `nessuno` or farther none; between them the last
// choice stays.
struct Limiti {
    double uno;
    double nessuno;
};
struct Automatici {
    Limiti positivi;
    Limiti negativi;
};

// For fields of 3 to 8 places.
Automatici limiti_automatici(std::uint32_t larghezza) noexcept {
    constexpr double potenze[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7};
    const double alto = potenze[larghezza - 1];
    const double meno = -potenze[larghezza - 2];
    return {{alto - potenze[larghezza - 2], alto}, {potenze[larghezza - 3] + meno, meno}};
}

std::uint32_t decimali_di(float valore, const Automatici& automatici, std::uint32_t decimali) noexcept {
    if (valore < 0.0f)
        return valore >= automatici.negativi.uno ? 1 : valore <= automatici.negativi.nessuno ? 0 : decimali;
    return valore <= automatici.positivi.uno ? 1 : valore >= automatici.positivi.nessuno ? 0 : decimali;
}

template <eFormatoConv Formato, bool Auto>
void scrivi(s_kel_converter& conv, const unsigned char* campioni, std::size_t passo, std::size_t numero,
            const float* valori, const unsigned char* stati, char* testi) noexcept {
    const Campo campi[] = {Campo(conv.larghezza, Auto ? 0 : conv.decimali), Campo(conv.larghezza, 1)};
    const Campo registrato(conv.larghezza, conv.decimali);
    const Automatici automatici = Auto ? limiti_automatici(conv.larghezza) : Automatici{};
    const f_stato_conv testo_stato = conv.testo_stato;
    std::uint32_t decimali = conv.decimali;
    for (std::size_t i = 0; i < numero; ++i, testi += byte_testo) {
        std::memset(testi, 0, byte_testo);
        if (stati[i] != 0) [[unlikely]] {
            if (testo_stato != nullptr)
                testo_stato(stati[i], testi);
            else
                *testi = '?';
            continue;
        }
        const float valore = valori[i];
        if constexpr (Auto)
            decimali = decimali_di(valore, automatici, decimali);
        const Campo& campo = !Auto ? campi[0] : decimali <= 1 ? campi[decimali] : registrato;
        const float cifre = std::fabs(valore) * campo.scala + quasi_mezzo;
        const bool negativo = valore < 0.0f;
        if (cifre < (negativo ? campo.sotto_negativo : campo.sotto_positivo)) [[likely]] {
            const std::uint64_t parola = parola_di<Formato>(static_cast<std::uint32_t>(cifre), campo, negativo ? 1 : 0);
            std::memcpy(testi, &parola, sizeof parola);
        } else {
            conv.decimali = decimali;
            conv.testo(&conv, campioni + i * passo, testi);
        }
    }
    conv.decimali = decimali;
}

template <eFormatoConv Formato>
void scrivi_formato(s_kel_converter& conv, const unsigned char* campioni, std::size_t passo, std::size_t numero,
                    const float* valori, const unsigned char* stati, char* testi) noexcept {
    if (conv.auto_decimali != 0)
        scrivi<Formato, true>(conv, campioni, passo, numero, valori, stati, testi);
    else
        scrivi<Formato, false>(conv, campioni, passo, numero, valori, stati, testi);
}

}  // namespace

bool numeri_in_parola(const s_kel_converter& conv) noexcept {
    return conv.larghezza <= cifre_parola && (conv.auto_decimali == 0 || conv.larghezza > 2);
}

void scrivi_numeri(s_kel_converter& conv, const unsigned char* campioni, std::size_t passo, std::size_t numero,
                   const float* valori, const unsigned char* stati, char* testi) noexcept {
    switch (conv.formato) {
        case FORMATO_SINISTRA:
            scrivi_formato<FORMATO_SINISTRA>(conv, campioni, passo, numero, valori, stati, testi);
            break;
        case FORMATO_COMPATTO:
            scrivi_formato<FORMATO_COMPATTO>(conv, campioni, passo, numero, valori, stati, testi);
            break;
        case FORMATO_DESTRA:
        default:
            scrivi_formato<FORMATO_DESTRA>(conv, campioni, passo, numero, valori, stati, testi);
            break;
    }
}

}  // namespace kel_colonne
