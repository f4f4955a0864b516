// Columns: many samples of one call, beside loops over the flat face and what moves or converts as many bytes. Times are
// those of one sample.
#include <sys/mman.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <memory>
#include <vector>

#ifdef KEL_PARI_LIBSIGROK
#include <libsigrok/libsigrok.h>
#endif

#include "comune/convertitore.h"
#include "comune/prova.h"
#include "kelregistrazioni.h"
#include "righe.h"

using namespace prova;

namespace {

constexpr std::size_t IN_CACHE = 16 << 10;  // samples
constexpr std::size_t FUORI = 64 << 20;

// Memory that every row of a kind reads and writes in turn: touched before it is measured, and given back at the end.
class Memoria {
public:
    explicit Memoria(std::size_t byte) : byte_(byte) {
        dove_ = static_cast<unsigned char*>(
            mmap(nullptr, byte, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
        Casuale casuale(20011);
        for (std::size_t i = 0; i + 4 <= byte; i += 4) {
            // Small numbers in every format: none of them is reserved, a NaN or negative.
            const std::uint32_t parola = static_cast<std::uint32_t>(casuale()) & 0x3F3F3F3F;
            std::memcpy(dove_ + i, &parola, 4);
        }
    }
    ~Memoria() { munmap(dove_, byte_); }
    Memoria(const Memoria&) = delete;
    Memoria& operator=(const Memoria&) = delete;

    unsigned char* byte() const { return dove_; }
    float* come_float() const { return reinterpret_cast<float*>(dove_); }
    char* testi() const { return reinterpret_cast<char*>(dove_); }

private:
    std::size_t byte_;
    unsigned char* dove_;
};

struct Banco {
    Memoria campioni;
    Memoria valori;
    std::vector<unsigned char> validi;
};

// One for the samples that stay in the caches, one for those that do not. Made when a row first runs.
Banco& banco(std::size_t numero) {
    static std::unique_ptr<Banco> piccolo;
    static std::unique_ptr<Banco> grande;
    std::unique_ptr<Banco>& questo = numero == IN_CACHE ? piccolo : grande;
    if (questo == nullptr)
        questo.reset(new Banco{Memoria(numero * 4 + numero), Memoria(numero * 4 + numero),
                               std::vector<unsigned char>(numero / 8)});
    return *questo;
}

// A series whose operation does `numero` samples at once. `prima`: what is made before it is timed.
template <typename Opera, typename Prima>
void serie_di(const std::string& riga, Ruolo ruolo, const std::string& nome, std::size_t numero, Opera opera,
              Prima prima) {
    benchmark::RegisterBenchmark(nome_serie(riga, ruolo, nome).c_str(),
                                 [numero, opera, prima](benchmark::State& stato) mutable {
                                     prima();
                                     while (stato.KeepRunningBatch(static_cast<benchmark::IterationCount>(numero))) {
                                         opera();
                                         benchmark::ClobberMemory();
                                     }
                                 });
}
template <typename Opera>
void serie_di(const std::string& riga, Ruolo ruolo, const std::string& nome, std::size_t numero, Opera opera) {
    serie_di(riga, ruolo, nome, numero, opera, [numero] { banco(numero); });
}

struct Formato {
    const char* nome;
    unsigned tipo;
};
constexpr std::array<Formato, 6> FORMATI = {{{"int16", KEL_TIPO_INT16},
                                             {"uint16", KEL_TIPO_UINT16},
                                             {"int8", KEL_TIPO_UINT8},
                                             {"int32", KEL_TIPO_INT32},
                                             {"float", KEL_TIPO_FLOAT},
                                             {"half", KEL_TIPO_MEZZO_FLOAT}}};

const s_converter_data UNITA = {"", 32.0f, 1.8f, 0};

s_kel_converter convertitore_di(unsigned tipo, std::uint32_t offset = 0) {
    s_kel_canale canale = {};
    canale.tipo_campione = tipo;
    canale.offset_campione = offset;
    s_kel_converter conv = {};
    kelConvInit(&conv, &canale, 0, &UNITA, 0, 0, 0);
    conv.larghezza = 6;
    conv.decimali = 1;
    return conv;
}

#ifdef KEL_PARI_LIBSIGROK
// As a capture of one channel, in the format's encoding. It has none for 16-bit floats.
void con_libsigrok(const std::string& riga, unsigned tipo, std::size_t numero) {
    if (tipo == KEL_TIPO_MEZZO_FLOAT)
        return;
    serie_di(riga, Ruolo::pari, "libsigrok", numero, [tipo, numero] {
        sr_analog_encoding codifica = {};
        codifica.unitsize = static_cast<std::uint8_t>(kelFunGetSamplSize(tipo));
        codifica.is_signed = tipo == KEL_TIPO_INT16 || tipo == KEL_TIPO_INT32 ? TRUE : FALSE;
        codifica.is_float = tipo == KEL_TIPO_FLOAT ? TRUE : FALSE;
        codifica.scale = {18, 10};
        codifica.offset = {32, 1};
        sr_channel canale = {};
        GSList canali = {&canale, nullptr};
        sr_analog_meaning significato = {};
        significato.channels = &canali;
        sr_datafeed_analog analogico = {};
        analogico.data = banco(numero).campioni.byte();
        analogico.num_samples = static_cast<std::uint32_t>(numero);
        analogico.encoding = &codifica;
        analogico.meaning = &significato;
        sr_analog_to_float(&analogico, banco(numero).valori.come_float());
    });
}
#endif

// Samples `passo` bytes apart to values and validity.
void valori(const Formato& formato, const char* dove, std::size_t numero, std::size_t passo) {
    const std::size_t byte = kelFunGetSamplSize(formato.tipo);
    const bool densi = passo == 0;
    passo = densi ? byte : passo;
    const std::string riga = std::string("column of ") + formato.nome + ", " + (densi ? dove : "apart");
    serie_di(riga, Ruolo::nostro, "kelColLeggi", numero,
             [numero, passo, conv = convertitore_di(formato.tipo)]() mutable {
                 Banco& qui = banco(numero);
                 s_kel_colonna colonna = {&conv, qui.valori.come_float(), nullptr, qui.validi.data(), nullptr};
                 const std::size_t quanti = passo > 4 ? numero * 4 / passo : numero;
                 for (std::size_t fatti = 0; fatti < numero; fatti += quanti)
                     kelColLeggi(qui.campioni.byte(), passo, quanti, &colonna, 1);
             });
    serie_di(riga, Ruolo::pari, "loop", numero, [numero, passo, conv = convertitore_di(formato.tipo)] {
        Banco& qui = banco(numero);
        const std::size_t quanti = passo > 4 ? numero * 4 / passo : numero;
        for (std::size_t fatti = 0; fatti < numero; fatti += quanti)
            for (std::size_t i = 0; i < quanti; ++i)
                kelConvGetValFloat(&conv, qui.campioni.byte() + i * passo, qui.valori.come_float() + i);
    });
    if (!densi)
        return;
    if (numero == FUORI)
        // Half of the bytes that are read and written: memcpy reads and writes each.
        serie_di(riga, Ruolo::pari, "memcpy", numero, [numero, byte] {
            std::memcpy(banco(numero).valori.byte(), banco(numero).campioni.byte(),
                        (numero * byte + numero * 4 + numero / 8) / 2);
        });
#ifdef KEL_PARI_LIBSIGROK
    if (numero == IN_CACHE)
        con_libsigrok(riga, formato.tipo, numero);
#endif
    if (formato.tipo == KEL_TIPO_INT16)
        // What the compiler makes of the formula alone: no reserved patterns, no validity.
        serie_di(riga, Ruolo::limite, "plain loop", numero, [numero] {
            Banco& qui = banco(numero);
            const auto* grezzi = reinterpret_cast<const std::int16_t*>(qui.campioni.byte());
            float* valori = qui.valori.come_float();
            for (std::size_t i = 0; i < numero; ++i)
                valori[i] = static_cast<float>(grezzi[i]) * 1.8f + 32.0f;
        });
}

// Records of 48 channels of eight formats.
void misti(const char* dove, std::size_t numero) {
    constexpr unsigned canali = 48;
    constexpr std::array<unsigned, 12> tipi = {KEL_TIPO_INT16,  KEL_TIPO_UINT16,      KEL_TIPO_UINT8,  KEL_TIPO_INT32,
                                               KEL_TIPO_FLOAT,  KEL_TIPO_MEZZO_FLOAT, KEL_TIPO_INT16,  KEL_TIPO_INT16,
                                               KEL_TIPO_UINT32, KEL_TIPO_UINT16,      KEL_TIPO_MARCIA, KEL_TIPO_INT16};
    auto convertitori = std::make_shared<std::vector<s_kel_converter>>();
    std::uint32_t passo = 0;
    for (unsigned i = 0; i < canali; ++i) {
        const unsigned tipo = tipi[i % tipi.size()];
        convertitori->push_back(convertitore_di(tipo, passo));
        passo += kelFunGetSamplSize(tipo);
    }
    const std::size_t record = numero / canali;
    const std::string riga = std::string("48 mixed channels, ") + dove;
    // A place in the samples for the records, and of the values for the columns.
    struct Luogo {
        std::unique_ptr<Memoria> campioni, valori, validi;
        void serve(std::size_t byte, std::size_t fatti) {
            if (campioni != nullptr)
                return;
            campioni = std::make_unique<Memoria>(byte);
            valori = std::make_unique<Memoria>(fatti * 4);
            validi = std::make_unique<Memoria>(fatti / 4);
        }
    };
    auto luogo = std::make_shared<Luogo>();
    const auto serve = [=] { luogo->serve(record * passo, record * canali); };
    serie_di(
        riga, Ruolo::nostro, "kelColLeggi", record * canali,
        [=] {
            std::array<s_kel_colonna, canali> colonne;
            for (unsigned i = 0; i < canali; ++i)
                colonne[i] = {&(*convertitori)[i], luogo->valori->come_float() + i * record, nullptr,
                              luogo->validi->byte() + i * (record / 8 + 1), nullptr};
            kelColLeggi(luogo->campioni->byte(), passo, record, colonne.data(), canali);
        },
        serve);
    serie_di(
        riga, Ruolo::pari, "loop by record", record * canali,
        [=] {
            for (std::size_t i = 0; i < record; ++i)
                for (unsigned j = 0; j < canali; ++j)
                    kelConvGetValFloat(&(*convertitori)[j], luogo->campioni->byte() + i * passo,
                                       luogo->valori->come_float() + j * record + i);
        },
        serve);
    serie_di(
        riga, Ruolo::pari, "loop by column", record * canali,
        [=] {
            for (unsigned j = 0; j < canali; ++j)
                for (std::size_t i = 0; i < record; ++i)
                    kelConvGetValFloat(&(*convertitori)[j], luogo->campioni->byte() + i * passo,
                                       luogo->valori->come_float() + j * record + i);
        },
        serve);
}

// Packets of positions all over the Earth.
std::shared_ptr<const std::vector<unsigned char>> pacchetti() {
    auto fatti = std::make_shared<std::vector<unsigned char>>(IN_CACHE * 56);
    Casuale casuale(20011);
    for (std::size_t i = 0; i < IN_CACHE; ++i) {
        const double seno = fra(casuale, -0.99, 0.99);
        const double coseno = std::sqrt(1.0 - seno * seno);
        const double giro = fra(casuale, -3.14159, 3.14159);
        const std::array<std::int32_t, 3> xyz = {static_cast<std::int32_t>(6378e5 * coseno * std::cos(giro)),
                                                 static_cast<std::int32_t>(6378e5 * coseno * std::sin(giro)),
                                                 static_cast<std::int32_t>(6378e5 * seno)};
        unsigned char* pacchetto = fatti->data() + i * 56;
        pacchetto[14] = 3;  // 3D fix
        pacchetto[51] = 9;  // satellites
        std::memcpy(pacchetto + 16, xyz.data(), sizeof xyz);
        const auto velocita = static_cast<std::int32_t>(sotto(casuale, 5000));
        std::memcpy(pacchetto + 32, &velocita, sizeof velocita);
    }
    return fatti;
}

void posizioni() {
    struct Campo {
        const char* riga;
        kel_funpos fid;
    };
    const auto byte = pacchetti();
    for (const Campo& campo :
         {Campo{"column of latitudes", kelFidComponi(FID_PHI_COORDINATE, FID_OBJ_LATITUDE, FID_POS_GPS)},
          Campo{"column of longitudes", kelFidComponi(FID_PHI_COORDINATE, FID_OBJ_LONGITUDE, FID_POS_GPS)},
          Campo{"column of GPS speeds", kelFidComponi(FID_PHI_SPEED, FID_OBJ_UNDEFINED, FID_POS_GPS)}}) {
        s_kel_canale canale = {};
        canale.tipo_campione = KEL_TIPO_GPS_KEL;
        canale.fid = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, FID_SPEC_GPS_KELNAVSOL);
        s_kel_converter conv = {};
        kelConvInit(&conv, &canale, campo.fid, &UNITA, 0, 0, 1);
        serie_di(campo.riga, Ruolo::nostro, "kelColLeggi", IN_CACHE, [byte, conv]() mutable {
            s_kel_colonna colonna = {&conv, banco(IN_CACHE).valori.come_float(), nullptr, nullptr, nullptr};
            kelColLeggi(byte->data(), 56, IN_CACHE, &colonna, 1);
        });
        serie_di(campo.riga, Ruolo::pari, "loop", IN_CACHE, [byte, conv] {
            for (std::size_t i = 0; i < IN_CACHE; ++i)
                kelConvGetValFloat(&conv, byte->data() + i * 56, banco(IN_CACHE).valori.come_float() + i);
        });
    }
}

// The texts of every sample type that has some.
void testi() {
    struct Riga {
        const char* nome;
        unsigned tipo;
        unsigned automatici;
    };
    constexpr std::array<Riga, 15> righe = {{{"int16", KEL_TIPO_INT16, 0},
                                             {"int16, automatic", KEL_TIPO_INT16, 1},
                                             {"float", KEL_TIPO_FLOAT, 0},
                                             {"half", KEL_TIPO_MEZZO_FLOAT, 0},
                                             {"gear", KEL_TIPO_MARCIA, 0},
                                             {"lap time", KEL_TIPO_TEMPO_GIRO, 0},
                                             {"bit list", KEL_TIPO_LISTA_BIT, 0},
                                             {"6 bytes of text", KEL_TIPO_NUMERO_TESTO_6, 0},
                                             {"30 bytes of text", KEL_TIPO_NUMERO_TESTO_30, 0},
                                             {"coordinate", KEL_TIPO_COORDINATA, 0},
                                             {"time difference", KEL_TIPO_DIFFERENZA_TEMPO, 0},
                                             {"lap packet", KEL_TIPO_LAP_2G, 0},
                                             {"GPS packet", KEL_TIPO_GPS_KEL, 0},
                                             {"date packet", KEL_TIPO_DATA_ORA, 0},
                                             {"no sample", KEL_TIPO_NESSUNO, 0}}};
    auto campioni = std::make_shared<std::vector<unsigned char>>(IN_CACHE * 64);
    auto scritti = std::make_shared<std::vector<char>>(IN_CACHE * 32);
    Casuale casuale(20011);
    for (unsigned char& byte : *campioni)
        byte = static_cast<unsigned char>(sotto(casuale, 64));
    for (const Riga& riga : righe) {
        s_kel_converter conv = convertitore_di(riga.tipo);
        conv.larghezza = 6;
        conv.auto_decimali = riga.automatici;
        const std::size_t passo = kelFunGetSamplSize(riga.tipo);
        // Times of some minutes; other numbers are as they come.
        auto questi = campioni;
        if (riga.tipo == KEL_TIPO_TEMPO_GIRO || riga.tipo == KEL_TIPO_DIFFERENZA_TEMPO ||
            riga.tipo == KEL_TIPO_LAP_2G) {
            questi = std::make_shared<std::vector<unsigned char>>(*campioni);
            const std::size_t posto = riga.tipo == KEL_TIPO_LAP_2G ? 4 : 0;
            for (std::size_t i = 0; i < IN_CACHE; ++i) {
                const auto tempo = static_cast<std::int32_t>(sotto(casuale, 600000));
                std::memcpy(questi->data() + i * passo + posto, &tempo, sizeof tempo);
            }
        }
        const std::string nome = std::string("column of texts: ") + riga.nome;
        serie_di(nome, Ruolo::nostro, "kelColLeggi", IN_CACHE, [=]() mutable {
            s_kel_colonna colonna = {&conv, nullptr, nullptr, nullptr, scritti->data()};
            kelColLeggi(questi->data(), passo, IN_CACHE, &colonna, 1);
        });
        serie_di(nome, Ruolo::pari, "loop", IN_CACHE, [=]() mutable {
            for (std::size_t i = 0; i < IN_CACHE; ++i)
                kelConvGetString(&conv, questi->data() + i * passo, scritti->data() + i * 32);
        });
    }
}

}  // namespace

void righe_colonne() {
    for (const Formato& formato : FORMATI) {
        valori(formato, "in cache", IN_CACHE, 0);
        valori(formato, "out of cache", FUORI, 0);
        valori(formato, "in cache", IN_CACHE, 64);
    }
    misti("in cache", IN_CACHE);
    misti("out of cache", FUORI);
    posizioni();
    testi();
}
