// Columns, read with each set of loops that this processor can run, against the first library's flat face, a call a sample:
// all words of 32 bits in the formats and texts that have loops of their own.
#include <array>
#include <cstring>
#include <vector>

#include "columns/colonne.h"
#include "columns/nuclei.h"
#include "exhaustive/spazi.h"
#include "kelregistrazioni.h"

namespace esaustivo {

namespace {

constexpr unsigned PARTI = 4096;
constexpr std::uint32_t PER_PARTE = 1U << 20;
constexpr std::uint32_t PER_CHIAMATA = 1U << 14;

struct Testo {
    char byte[32];
    bool operator==(const Testo&) const = default;

    // By eight bytes at a time: byte by byte it would take longer than making the text.
    std::uint64_t impronta() const {
        std::array<std::uint64_t, 4> parole;
        std::memcpy(parole.data(), byte, sizeof byte);
        std::uint64_t h = 0;
        for (const std::uint64_t parola : parole)
            h = mescola(h, parola);
        return h;
    }
};

// How a channel of one format is read.
struct Lettura {
    const char* nome;
    unsigned tipo;
    float offset;
    float gain;
    int reciproco;
    unsigned short pos_bit;
    unsigned short num_bit;
    unsigned larghezza;
    unsigned decimali;
    unsigned automatici;
    eFormatoConv formato;
};

class Prova {
public:
    explicit Prova(const Lettura& lettura)
        : lettura_(lettura), dati_{"", lettura.offset, lettura.gain, lettura.reciproco} {
        s_kel_canale canale = {};
        canale.tipo_campione = lettura.tipo;
        kelConvInit(&conv_, &canale, 0, &dati_, lettura.pos_bit, lettura.num_bit, 1);
        conv_.larghezza = lettura.larghezza;
        conv_.decimali = lettura.decimali;
        conv_.auto_decimali = lettura.automatici;
        conv_.formato = lettura.formato;
    }
    Prova(const Prova&) = delete;
    Prova& operator=(const Prova&) = delete;

    // Values, statuses and validity of samples.
    void valori(const unsigned char* campioni, std::size_t byte, std::size_t numero, Conta& conta) {
        std::vector<float> attesi(numero);
        std::vector<unsigned char> stati_attesi(numero);
        for (std::size_t i = 0; i < numero; ++i) {
            std::uint32_t stato = 0;
            attesi[i] = conv_.valore(&conv_, campioni + i * byte, &stato);
            stati_attesi[i] = static_cast<unsigned char>(stato);
        }
        std::vector<float> valori(numero);
        std::vector<unsigned char> stati(numero);
        std::vector<unsigned char> validi((numero + 7) / 8);
        const kel_colonne::InsiemiNuclei possibili = kel_colonne::nuclei_possibili();
        for (unsigned insieme = 0; insieme < possibili.numero; ++insieme) {
            const s_kel_colonna colonna = {&conv_, valori.data(), stati.data(), validi.data(), nullptr};
            kel_colonne::leggi_colonne(*possibili.insiemi[insieme], campioni, byte, numero, &colonna, 1);
            for (std::size_t i = 0; i < numero; ++i) {
                const bool uguale = std::memcmp(&valori[i], &attesi[i], sizeof(float)) == 0 &&
                                    stati[i] == stati_attesi[i] &&
                                    (validi[i / 8] >> i % 8 & 1) == (stati[i] == 0 ? 1 : 0);
                conta.caso(uguale, std::bit_cast<std::uint32_t>(valori[i]), [&] {
                    return dove(*possibili.insiemi[insieme], campioni + i * byte, byte) + ": column " +
                           Conta::esatto(valori[i]) + " status " + std::to_string(stati[i]) + ", one call " +
                           Conta::esatto(attesi[i]) + " status " + std::to_string(stati_attesi[i]);
                });
            }
        }
    }

    // Texts of samples.
    void testi(const unsigned char* campioni, std::size_t byte, std::size_t numero, Conta& conta) {
        std::vector<Testo> attesi(numero);
        const unsigned prima = conv_.decimali;
        for (std::size_t i = 0; i < numero; ++i)
            kelConvGetString(&conv_, campioni + i * byte, attesi[i].byte);
        std::vector<Testo> testi(numero);
        const kel_colonne::InsiemiNuclei possibili = kel_colonne::nuclei_possibili();
        for (unsigned insieme = 0; insieme < possibili.numero; ++insieme) {
            conv_.decimali = prima;
            const s_kel_colonna colonna = {&conv_, nullptr, nullptr, nullptr, testi.data()->byte};
            kel_colonne::leggi_colonne(*possibili.insiemi[insieme], campioni, byte, numero, &colonna, 1);
            for (std::size_t i = 0; i < numero; ++i)
                conta.caso(testi[i] == attesi[i], testi[i].impronta(), [&] {
                    return dove(*possibili.insiemi[insieme], campioni + i * byte, byte) + ": column " +
                           Conta::citato({testi[i].byte, 32}) + ", one call " + Conta::citato({attesi[i].byte, 32});
                });
        }
    }

private:
    std::string dove(const kel_colonne::Nuclei& nuclei, const unsigned char* campione, std::size_t byte) const {
        std::uint32_t grezzo = 0;
        std::memcpy(&grezzo, campione, byte < 4 ? byte : 4);
        return std::string(nuclei.nome) + ", " + lettura_.nome + ", sample " + esadecimale(grezzo);
    }

    Lettura lettura_;
    s_converter_data dati_;
    s_kel_converter conv_ = {};
};

// The words of a part, some at a time.
template <typename Opera>
void a_pezzi(unsigned parte, Opera opera) {
    std::vector<std::uint32_t> parole(PER_CHIAMATA);
    for (std::uint32_t fatte = 0; fatte < PER_PARTE; fatte += PER_CHIAMATA) {
        for (std::uint32_t i = 0; i < PER_CHIAMATA; ++i)
            parole[i] = parte * PER_PARTE + fatte + i;
        opera(reinterpret_cast<const unsigned char*>(parole.data()));
    }
}

constexpr std::array<Lettura, 9> PAROLE = {{
    {"int32", KEL_TIPO_INT32, 0.25F, 0.1F, 0, 0, 0, 5, 1, 0, FORMATO_DESTRA},
    {"int32, reciprocal", KEL_TIPO_INT32, 0.25F, 0.1F, 1, 0, 0, 5, 1, 0, FORMATO_DESTRA},
    {"uint32", KEL_TIPO_UINT32, -17.3F, 3.3333F, 0, 0, 0, 5, 1, 0, FORMATO_DESTRA},
    {"uint32, reciprocal", KEL_TIPO_UINT32, 0.25F, 1e6F, 1, 0, 0, 5, 1, 0, FORMATO_DESTRA},
    {"uint32, bit field", KEL_TIPO_UINT32, 0.5F, 2.0F, 0, 7, 12, 5, 1, 0, FORMATO_DESTRA},
    {"float", KEL_TIPO_FLOAT, 0.25F, 0.1F, 0, 0, 0, 5, 1, 0, FORMATO_DESTRA},
    {"float, reciprocal", KEL_TIPO_FLOAT, 0.0F, 1.0F, 1, 0, 0, 5, 1, 0, FORMATO_DESTRA},
    {"half, in pairs", KEL_TIPO_MEZZO_FLOAT, 0.25F, 0.1F, 0, 0, 0, 5, 1, 0, FORMATO_DESTRA},
    {"bit list, in fours", KEL_TIPO_LISTA_BIT, 0.25F, 0.1F, 0, 0, 0, 5, 1, 0, FORMATO_DESTRA},
}};

void parole(unsigned parte, Conta& conta) {
    for (const Lettura& lettura : PAROLE) {
        Prova prova(lettura);
        const std::size_t byte = kelFunGetSamplSize(lettura.tipo);
        // Shorter samples repeat themselves: their low bytes take all values in every part.
        a_pezzi(parte, [&](const unsigned char* campioni) {
            prova.valori(campioni, byte, byte == 4 ? PER_CHIAMATA : PER_CHIAMATA / 16, conta);
        });
    }
}

constexpr std::array<Lettura, 8> TEMPI = {{
    {"lap time", KEL_TIPO_TEMPO_GIRO, 0, 1, 0, 0, 0, 8, 2, 0, FORMATO_DESTRA},
    {"lap time, tenths", KEL_TIPO_TEMPO_GIRO, 0, 1, 0, 0, 0, 8, 1, 0, FORMATO_DESTRA},
    {"lap time, compact", KEL_TIPO_TEMPO_GIRO, 0, 1, 0, 0, 0, 5, 2, 0, FORMATO_DESTRA},
    {"lap time, compact, tenths", KEL_TIPO_TEMPO_GIRO, 0, 1, 0, 0, 0, 5, 1, 0, FORMATO_DESTRA},
    {"time difference", KEL_TIPO_DIFFERENZA_TEMPO, 0, 1, 0, 0, 0, 8, 2, 0, FORMATO_DESTRA},
    {"time difference, compact", KEL_TIPO_DIFFERENZA_TEMPO, 0, 1, 0, 0, 0, 5, 2, 0, FORMATO_DESTRA},
    {"coordinate", KEL_TIPO_COORDINATA, 0, 1, 0, 0, 0, 8, 2, 0, FORMATO_DESTRA},
    {"packet time", KEL_TIPO_TEMPO_PACCHETTO, 0, 1, 0, 0, 0, 8, 2, 0, FORMATO_DESTRA},
}};

void tempi(unsigned parte, Conta& conta) {
    for (const Lettura& lettura : TEMPI) {
        Prova prova(lettura);
        const std::size_t byte = kelFunGetSamplSize(lettura.tipo);
        std::vector<unsigned char> pacchetti(byte == 4 ? 0 : PER_CHIAMATA * byte);
        a_pezzi(parte, [&](const unsigned char* campioni) {
            for (std::uint32_t i = 0; byte != 4 && i < PER_CHIAMATA; ++i)
                std::memcpy(pacchetti.data() + i * byte + 4, campioni + 4 * i, 4);
            prova.testi(byte == 4 ? campioni : pacchetti.data(), byte, PER_CHIAMATA, conta);
        });
    }
}

constexpr std::array<Lettura, 10> NUMERI = {{
    {"4.0", KEL_TIPO_FLOAT, 0, 1, 0, 0, 0, 4, 0, 0, FORMATO_DESTRA},
    {"4.1", KEL_TIPO_FLOAT, 0, 1, 0, 0, 0, 4, 1, 0, FORMATO_DESTRA},
    {"5.2, left", KEL_TIPO_FLOAT, 0, 1, 0, 0, 0, 5, 2, 0, FORMATO_SINISTRA},
    {"6.3, compact", KEL_TIPO_FLOAT, 0, 1, 0, 0, 0, 6, 3, 0, FORMATO_COMPATTO},
    {"8.0", KEL_TIPO_FLOAT, 0, 1, 0, 0, 0, 8, 0, 0, FORMATO_DESTRA},
    {"7.1, left", KEL_TIPO_FLOAT, 0, 1, 0, 0, 0, 7, 1, 0, FORMATO_SINISTRA},
    {"1.0", KEL_TIPO_FLOAT, 0, 1, 0, 0, 0, 1, 0, 0, FORMATO_DESTRA},
    {"3, automatic", KEL_TIPO_FLOAT, 0, 1, 0, 0, 0, 3, 1, 1, FORMATO_DESTRA},
    {"5, automatic", KEL_TIPO_FLOAT, 0, 1, 0, 0, 0, 5, 1, 1, FORMATO_COMPATTO},
    {"8, automatic", KEL_TIPO_FLOAT, 0, 1, 0, 0, 0, 8, 1, 1, FORMATO_SINISTRA},
}};

void numeri(unsigned parte, Conta& conta) {
    for (const Lettura& lettura : NUMERI) {
        Prova prova(lettura);
        a_pezzi(parte, [&](const unsigned char* campioni) { prova.testi(campioni, 4, PER_CHIAMATA, conta); });
    }
}

// Where infinities, NaNs, reserved patterns and the numbers that texts show lie.
const std::vector<unsigned> NOTEVOLI = {0x000, 0x3F8, 0x412, 0x42C, 0x447, 0x461, 0x7F8, 0xBF8, 0xC12, 0xFF8, 0xFFF};

}  // namespace

std::vector<Spazio> spazi_colonne() {
    std::vector<Spazio> spazi = {
        {"column-words", "all words of 32 bits as columns of values", PARTI, 256, parole, NOTEVOLI},
        {"column-times", "all words of 32 bits as columns of times and coordinates", PARTI, 1024, tempi, NOTEVOLI},
        {"column-numbers", "all floats as columns of texts in ten looks", PARTI, 1024, numeri, NOTEVOLI}};
    for (Spazio& spazio : spazi)
        spazio.codice = &NOTEVOLI;
    return spazi;
}

}  // namespace esaustivo
