#include "columns/testi.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "columns/cifre.h"
#include "columns/una_alla_volta.h"

namespace kel_colonne {
namespace {

constexpr std::size_t GRUPPO = 128;  // samples whose words are kept side by side

std::int32_t intero(const unsigned char* campione) noexcept {
    std::int32_t numero = 0;
    std::memcpy(&numero, campione, sizeof numero);
    return numero;
}

// Gives each group of a block to `scrivi`.
template <typename Scrivi>
void a_gruppi(const BloccoTesti& blocco, Scrivi scrivi) noexcept {
    for (std::size_t primo = 0; primo < blocco.numero; primo += GRUPPO) {
        const std::size_t quanti = blocco.numero - primo < GRUPPO ? blocco.numero - primo : GRUPPO;
        scrivi(BloccoTesti{blocco.campioni + primo * blocco.passo, blocco.passo, quanti,
                           blocco.testi + primo * BYTE_TESTO},
               primo);
    }
}

// A text of one word, in 32 bytes.
void scrivi_parola(char* testo, std::uint64_t parola) noexcept {
    std::memset(testo, 0, BYTE_TESTO);
    std::memcpy(testo, &parola, sizeof parola);
}

// --- Lap times and packets -----------------------------------------------------------------------------------------------

// "HH:MM:SS" of an hour or more, of which the last two digits of the hours are shown.
void scrivi_ore(char* testo, std::int32_t millisecondi) noexcept {
    const auto secondi = static_cast<std::uint32_t>(millisecondi) / 1000;
    const std::uint32_t ore = secondi / 3600 % 100;
    const std::uint64_t cifre = otto_cifre(ore * 10000 + secondi / 60 % 60 * 100 + secondi % 60);  // "00HHMMSS"
    std::uint64_t parola = (cifre >> 16 & 0xFFFF) | std::uint64_t{':'} << 16 | (cifre >> 32 & 0xFFFF) << 24 |
                           std::uint64_t{':'} << 40 | cifre >> 48 << 48;
    if (ore < 10)
        parola ^= '0' ^ ' ';
    scrivi_parola(testo, parola);
}

// Times below an hour, word by word; negative ones and rare forms through the converter's own function. `coda`: what follows
// the eighth character.
void scrivi_tempi(const Nuclei& nuclei, s_kel_converter& conv, const BloccoTesti& blocco, std::size_t offset,
                  bool compatto, bool decimi, char coda) noexcept {
    a_gruppi(blocco, [&](const BloccoTesti& questi, std::size_t) {
        std::int32_t tempi[GRUPPO];
        std::uint64_t parole[GRUPPO];
        unsigned char entrano[GRUPPO];
        nuclei.raccogli(questi.campioni + offset, questi.passo, questi.numero, 4, tempi);
        nuclei.tempi_in_parole(tempi, questi.numero, compatto, decimi, parole, entrano);
        char* testo = questi.testi;
        for (std::size_t i = 0; i < questi.numero; ++i, testo += BYTE_TESTO) {
            scrivi_parola(testo, entrano[i] != 0 ? parole[i] : 0);
            if (entrano[i] != 0)
                testo[8] = coda;
            else if (tempi[i] >= 0 && !compatto && !decimi)
                scrivi_ore(testo, tempi[i]);
            else
                conv.testo(&conv, questi.campioni + i * questi.passo, testo);
        }
    });
}

// Seconds and hundredths, with a sign.
void scrivi_differenza(char* testo, std::int32_t millisecondi, bool compatto) noexcept {
    const bool negativo = millisecondi < 0;
    const std::uint32_t modulo =
        negativo ? 0u - static_cast<std::uint32_t>(millisecondi) : static_cast<std::uint32_t>(millisecondi);
    const std::uint64_t cifre = otto_cifre(modulo % 60000 / 10);  // "0000SSCC"
    std::uint64_t parola = (cifre >> 32 & 0xFFFF) | std::uint64_t{'.'} << 16 | cifre >> 48 << 24;
    if ((parola & 0xFF) == '0')
        parola ^= '0' ^ ' ';
    const char segno = negativo ? '-' : compatto ? ' ' : '+';
    parola = parola << 8 | static_cast<unsigned char>(segno);
    scrivi_parola(testo, compatto ? parola : parola << 8 | ' ');
}

// --- Coordinates ---------------------------------------------------------------------------------------------------------

// The digits of a number of up to three places, and what is appended to them.
class Riga {
public:
    explicit Riga(char* testo) noexcept : prossimo_(testo) {}
    void numero(std::uint32_t numero) noexcept {
        if (numero >= 100)
            carattere(static_cast<char>('0' + numero / 100));
        if (numero >= 10)
            carattere(static_cast<char>('0' + numero / 10 % 10));
        carattere(static_cast<char>('0' + numero % 10));
    }
    void carattere(char c) noexcept { *prossimo_++ = c; }
    template <std::size_t N>
    void testo(const char (&fisso)[N]) noexcept {
        std::memcpy(prossimo_, fisso, N - 1);
        prossimo_ += N - 1;
    }
    // The last `cifre` of eight digits.
    void ultime(std::uint64_t otto, unsigned cifre) noexcept {
        otto >>= 8 * (8 - cifre);
        std::memcpy(prossimo_, &otto, sizeof otto);
        prossimo_ += cifre;
    }

private:
    char* prossimo_;
};

// Degrees and fraction, each with its own sign; nothing for a sample that carries no measurement.
void scrivi_coordinata(char* testo, std::int32_t grezzo) noexcept {
    constexpr std::uint32_t unita_per_grado = 10000000;
    std::memset(testo, 0, BYTE_TESTO);
    const auto bit = static_cast<std::uint32_t>(grezzo);
    if (bit - 0xFFFFCFFDu < 3)
        return;
    const bool negativo = grezzo < 0;
    const std::uint32_t modulo = negativo ? 0u - bit : bit;
    const std::uint32_t gradi = modulo / unita_per_grado;
    const std::uint32_t frazione = modulo % unita_per_grado;
    Riga riga(testo);
    if (negativo && gradi != 0)
        riga.carattere('-');
    riga.numero(gradi);
    riga.carattere('.');
    // The sign takes the place of a leading zero, if there is one.
    const bool segno = negativo && frazione != 0;
    if (segno)
        riga.carattere('-');
    riga.ultime(otto_cifre(frazione), segno && frazione < unita_per_grado / 10 ? 6 : 7);
}

// --- Packets and copies ----------------------------------------------------------------------------------------------------

// The state of the receiver.
void scrivi_gps(char* testo, unsigned fix, unsigned satelliti) noexcept {
    constexpr unsigned oltre = 249;
    std::memset(testo, 0, BYTE_TESTO);
    Riga riga(testo);
    if (fix > oltre && satelliti > oltre) {
        riga.testo("No GPS");
    } else if (fix < 2) {
        riga.testo("GPS fix missing");
    } else if (fix == 2) {
        riga.testo("GPS low fix");
    } else {
        riga.testo("GPS Fix=");
        riga.numero(fix);
        riga.testo(" SVs=");
        riga.numero(satelliti);
    }
}

// The text behind a number, up to its NUL or to the end of the sample: of six bytes, in one word.
void scrivi_copia_6(char* testo, const unsigned char* campione) noexcept {
    std::uint32_t quattro = 0;
    std::uint16_t due = 0;
    std::memcpy(&quattro, campione + 2, sizeof quattro);
    std::memcpy(&due, campione + 6, sizeof due);
    const std::uint64_t parola = quattro | std::uint64_t{due} << 32;
    // The top bit of the first byte that is 0; those above it do not matter. The two bytes behind the text are 0.
    const std::uint64_t zeri = (parola - OGNI_BYTE) & ~parola & (OGNI_BYTE << 7);
    const std::uint64_t primo = zeri & (~zeri + 1);
    scrivi_parola(testo, parola & ((primo >> 7) - 1));
}

// Of thirty bytes.
void scrivi_copia_30(char* testo, const unsigned char* campione) noexcept {
    const auto* sorgente = reinterpret_cast<const char*>(campione) + 2;
    std::memset(testo, 0, BYTE_TESTO);
    std::memcpy(testo, sorgente, strnlen(sorgente, 30));
}

// The text of any sample: the same for all.
void scrivi_fisso(s_kel_converter& conv, const BloccoTesti& blocco) noexcept {
    char fisso[BYTE_TESTO] = {};
    conv.testo(&conv, blocco.campioni, fisso);
    for (std::size_t i = 0; i < blocco.numero; ++i)
        std::memcpy(blocco.testi + i * BYTE_TESTO, fisso, sizeof fisso);
}

// One text after the other.
template <typename Scrivi>
void uno_a_uno(const BloccoTesti& blocco, Scrivi scrivi) noexcept {
    const unsigned char* campione = blocco.campioni;
    char* testo = blocco.testi;
    for (std::size_t i = 0; i < blocco.numero; ++i, campione += blocco.passo, testo += BYTE_TESTO)
        scrivi(testo, campione);
}

// --- Numbers with automatic decimals -------------------------------------------------------------------------------------

// The limits of automatic decimals in a field: at `uno` or nearer to 0 one decimal, at `nessuno` or farther none; between them
// the last choice stays.
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

// The words of one group of numbers.
struct Parole {
    std::uint64_t parole[GRUPPO];
    unsigned char entrano[GRUPPO];
};

void scrivi_stato(const s_kel_converter& conv, unsigned stato, char* testo) noexcept {
    if (conv.testo_stato != nullptr)
        conv.testo_stato(stato, testo);
    else
        *testo = '?';
}

void scrivi_automatici(const Nuclei& nuclei, s_kel_converter& conv, const BloccoTesti& blocco, const float* valori,
                       const unsigned char* stati) noexcept {
    const Campo campi[] = {campo_di(conv.larghezza, 0, conv.formato), campo_di(conv.larghezza, 1, conv.formato)};
    const Automatici automatici = limiti_automatici(conv.larghezza);
    std::uint32_t decimali = conv.decimali;
    a_gruppi(blocco, [&](const BloccoTesti& questi, std::size_t primo) {
        Parole parole[2];
        for (unsigned i = 0; i < 2; ++i)
            nuclei.numeri_in_parole(valori + primo, questi.numero, campi[i], parole[i].parole, parole[i].entrano);
        char* testo = questi.testi;
        for (std::size_t i = 0; i < questi.numero; ++i, testo += BYTE_TESTO) {
            const unsigned stato = stati[primo + i];
            if (stato != 0) {
                std::memset(testo, 0, BYTE_TESTO);
                scrivi_stato(conv, stato, testo);
                continue;
            }
            decimali = decimali_di(valori[primo + i], automatici, decimali);
            if (decimali < 2 && parole[decimali].entrano[i] != 0) {
                scrivi_parola(testo, parole[decimali].parole[i]);
            } else {
                conv.decimali = decimali;
                std::memset(testo, 0, BYTE_TESTO);
                conv.testo(&conv, questi.campioni + i * questi.passo, testo);
            }
        }
    });
    conv.decimali = decimali;
}

void scrivi_fermi(const Nuclei& nuclei, s_kel_converter& conv, const BloccoTesti& blocco, const float* valori,
                  const unsigned char* stati) noexcept {
    const Campo campo = campo_di(conv.larghezza, conv.decimali, conv.formato);
    a_gruppi(blocco, [&](const BloccoTesti& questi, std::size_t primo) {
        Parole parole;  // NOLINT(cppcoreguidelines-pro-type-member-init): written by the call below
        nuclei.numeri_in_parole(valori + primo, questi.numero, campo, parole.parole, parole.entrano);
        char* testo = questi.testi;
        for (std::size_t i = 0; i < questi.numero; ++i, testo += BYTE_TESTO) {
            scrivi_parola(testo, parole.parole[i]);
            const unsigned stato = stati[primo + i];
            if (stato == 0 && parole.entrano[i] != 0)
                continue;
            std::memset(testo, 0, BYTE_TESTO);
            if (stato != 0)
                scrivi_stato(conv, stato, testo);
            else
                conv.testo(&conv, questi.campioni + i * questi.passo, testo);
        }
    });
}

}  // namespace

void scrivi_numeri(const Nuclei& nuclei, s_kel_converter& conv, const BloccoTesti& blocco, const float* valori,
                   const unsigned char* stati) noexcept {
    const bool automatici = conv.auto_decimali != 0;
    if (conv.larghezza > CARATTERI_PAROLA || (automatici && conv.larghezza <= 2))
        scrivi_uno_a_uno(conv, blocco);
    else if (automatici)
        scrivi_automatici(nuclei, conv, blocco, valori, stati);
    else
        scrivi_fermi(nuclei, conv, blocco, valori, stati);
}

void scrivi_testi(const Nuclei& nuclei, Scrittura scrittura, s_kel_converter& conv,
                  const BloccoTesti& blocco) noexcept {
    constexpr std::size_t navsol_fix = 10;
    constexpr std::size_t navsol_satelliti = 47;
    constexpr std::size_t payload_in_gps = 4;
    const bool compatto = conv.larghezza == 5;
    switch (scrittura) {
        case Scrittura::tempo_giro:
            scrivi_tempi(nuclei, conv, blocco, 0, compatto, conv.decimali == 1, '\0');
            break;
        case Scrittura::tempo_pacchetto:
            scrivi_tempi(nuclei, conv, blocco, 4, false, false, '0');
            break;
        case Scrittura::differenza_tempo:
            uno_a_uno(blocco, [=](char* testo, const unsigned char* campione) {
                scrivi_differenza(testo, intero(campione), compatto);
            });
            break;
        case Scrittura::coordinata:
            uno_a_uno(blocco,
                      [](char* testo, const unsigned char* campione) { scrivi_coordinata(testo, intero(campione)); });
            break;
        case Scrittura::gps:
            uno_a_uno(blocco, [](char* testo, const unsigned char* campione) {
                scrivi_gps(testo, campione[payload_in_gps + navsol_fix], campione[payload_in_gps + navsol_satelliti]);
            });
            break;
        case Scrittura::navsol:
            uno_a_uno(blocco, [](char* testo, const unsigned char* campione) {
                scrivi_gps(testo, campione[navsol_fix], campione[navsol_satelliti]);
            });
            break;
        case Scrittura::copia_6:
            uno_a_uno(blocco, scrivi_copia_6);
            break;
        case Scrittura::copia_30:
            uno_a_uno(blocco, scrivi_copia_30);
            break;
        case Scrittura::data_ora:
        case Scrittura::lap_1g:
        case Scrittura::satelliti:
            scrivi_fisso(conv, blocco);
            break;
        case Scrittura::numero:
        case Scrittura::sconosciuta:
            scrivi_uno_a_uno(conv, blocco);
            break;
    }
}

}  // namespace kel_colonne
