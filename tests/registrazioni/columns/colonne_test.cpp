// kelColLeggi and, with each set of loops that this processor can run, leggi_colonne: against one call a sample of the first
// library's flat face.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "columns/colonne.h"
#include "columns/nuclei.h"
#include "columns/riconoscimento.h"
#include "comune/recinto.h"
#include "comune/tipi_campione.h"
#include "kelregistrazioni.h"

namespace {

using kel_colonne::Nuclei;

// Each set of loops, and last the library's own choice.
std::vector<const Nuclei*> insiemi() {
    const kel_colonne::InsiemiNuclei possibili = kel_colonne::nuclei_possibili();
    std::vector<const Nuclei*> tutti(possibili.insiemi, possibili.insiemi + possibili.numero);
    tutti.push_back(nullptr);
    return tutti;
}

std::string nome(const Nuclei* nuclei) {
    return nuclei != nullptr ? nuclei->nome : "the library's choice";
}

void leggi(const Nuclei* nuclei, const void* record, std::size_t passo, std::size_t numero, s_kel_colonna* colonne,
           unsigned num_colonne) {
    if (nuclei != nullptr)
        kel_colonne::leggi_colonne(*nuclei, record, passo, numero, colonne, num_colonne);
    else
        kelColLeggi(record, passo, numero, colonne, num_colonne);
}

struct Testo {
    char byte[32];
    bool operator==(const Testo&) const = default;
};

// What a column is read into, filled beforehand with what nobody writes.
struct Esito {
    explicit Esito(std::size_t numero)
        : valori(numero, 0xDEADBEEF), stati(numero, 0xAA), validi((numero + 7) / 8, 0xAA), testi(numero) {
        for (Testo& testo : testi)
            std::memset(testo.byte, 0x55, sizeof testo.byte);
    }
    std::vector<std::uint32_t> valori;  // bits of the floats
    std::vector<unsigned char> stati;
    std::vector<unsigned char> validi;
    std::vector<Testo> testi;
    std::uint32_t decimali = 0;
    bool operator==(const Esito&) const = default;
};

enum Parti : unsigned { valori = 1, stati = 2, validi = 4, testi = 8, tutte = 15 };

s_kel_colonna colonna(s_kel_converter& conv, Esito& esito, unsigned parti = tutte) {
    return {&conv, (parti & valori) != 0 ? reinterpret_cast<float*>(esito.valori.data()) : nullptr,
            (parti & stati) != 0 ? esito.stati.data() : nullptr, (parti & validi) != 0 ? esito.validi.data() : nullptr,
            (parti & testi) != 0 ? reinterpret_cast<char*>(esito.testi.data()) : nullptr};
}

// The same through the flat face, a sample a call.
Esito atteso(s_kel_converter conv, const unsigned char* record, std::size_t passo, std::size_t numero,
             unsigned parti = tutte) {
    Esito esito(numero);
    if ((parti & validi) != 0)
        std::fill(esito.validi.begin(), esito.validi.end(), static_cast<unsigned char>(0));
    for (std::size_t i = 0; i < numero; ++i, record += passo) {
        float valore = 0;
        std::uint32_t stato = KEL_STATO_ERRORE;
        if (kelConvGetValFloat(&conv, record, &valore) != 0)
            conv.valore(&conv, record + conv.offset_campione, &stato);
        if ((parti & valori) != 0)
            esito.valori[i] = std::bit_cast<std::uint32_t>(valore);
        if ((parti & stati) != 0)
            esito.stati[i] = static_cast<unsigned char>(stato);
        if ((parti & validi) != 0 && stato == 0)
            esito.validi[i / 8] = static_cast<unsigned char>(esito.validi[i / 8] | 1u << i % 8);
        if ((parti & testi) != 0)
            kelConvGetString(&conv, record, esito.testi[i].byte);
    }
    esito.decimali = conv.decimali;
    return esito;
}

// Where two outcomes differ first.
std::string differenza(const Esito& a, const Esito& b) {
    for (std::size_t i = 0; i < a.valori.size(); ++i) {
        if (a.valori[i] != b.valori[i])
            return "value " + std::to_string(i) + ": " + std::to_string(a.valori[i]) + " for " +
                   std::to_string(b.valori[i]);
        if (a.stati[i] != b.stati[i])
            return "status " + std::to_string(i) + ": " + std::to_string(a.stati[i]) + " for " +
                   std::to_string(b.stati[i]);
        if (a.validi[i / 8] != b.validi[i / 8])
            return "validity, byte " + std::to_string(i / 8);
        if (a.testi[i] != b.testi[i])
            return "text " + std::to_string(i) + ": '" + std::string(a.testi[i].byte, 32) + "' for '" +
                   std::string(b.testi[i].byte, 32) + "'";
    }
    return a.decimali != b.decimali ? "decimals" : "none";
}

void confronta(const Nuclei* nuclei, s_kel_converter conv, const unsigned char* record, std::size_t passo,
               std::size_t numero, const std::string& caso, unsigned parti = tutte) {
    const Esito giusto = atteso(conv, record, passo, numero, parti);
    Esito letto(numero);
    s_kel_colonna una = colonna(conv, letto, parti);
    leggi(nuclei, record, passo, numero, &una, 1);
    letto.decimali = conv.decimali;
    ASSERT_TRUE(letto == giusto) << nome(nuclei) << ", " << caso << ", step " << passo << ", " << numero
                                 << " samples: " << differenza(letto, giusto);
}

class Caso {
public:
    explicit Caso(unsigned seme) : casuale_(seme) {}

    unsigned sotto(unsigned limite) { return static_cast<unsigned>(casuale_() % limite); }

    float numero() {
        constexpr float particolari[] = {0.0f,
                                         -0.0f,
                                         1.0f,
                                         -1.0f,
                                         0.1f,
                                         1e-38f,
                                         1e38f,
                                         std::numeric_limits<float>::infinity(),
                                         -std::numeric_limits<float>::infinity(),
                                         std::numeric_limits<float>::quiet_NaN(),
                                         std::numeric_limits<float>::denorm_min(),
                                         0.017453292f};
        switch (sotto(4)) {
            case 0:
                return particolari[sotto(std::size(particolari))];
            case 1:
                return std::bit_cast<float>(static_cast<std::uint32_t>(casuale_()));
            default:
                return static_cast<float>(static_cast<std::int32_t>(casuale_())) * 1e-8f;
        }
    }

    // A converter of any channel: any sample type, any subfield of any packet, units with and without the reciprocal flag,
    // bit fields, texts of any shape.
    s_kel_converter convertitore(s_converter_data& dati, std::string& descrizione) {
        dati = {"", numero(), numero(), sotto(3) == 0 ? 1 : 0};
        s_kel_canale canale = {};
        canale.tipo_campione = sotto(kel_test::TIPI_CAMPIONE + 1);
        canale.offset_campione = sotto(5);
        canale.fid = sotto(4) == 0 ? kelFidComponi(FID_PHI_GEAR, 0, 0) : kelFidComponi(sotto(32), sotto(40), sotto(16));
        kel_funpos fid = canale.fid;
        if (sotto(3) == 0) {
            const unsigned dettagli = 1 + sotto(3) / 2 * 2;
            const unsigned spec = sotto(2);
            canale.fid = kelFidComponi(FID_PHI_PACKAGE, dettagli, spec);
            const s_sottocampo* riga = search_sottocampi_struct(dettagli, spec);
            for (unsigned salti = sotto(14); salti > 0 && !kelFidFineTabella(riga->fid); --salti)
                ++riga;
            fid = riga->fid;
        }
        s_kel_converter conv;
        std::memset(&conv, 0x5A, sizeof conv);
        conv.dati = nullptr;
        const bool campo = sotto(3) == 0;
        kelConvInit(&conv, &canale, fid, sotto(20) == 0 ? nullptr : &dati,
                    static_cast<unsigned short>(campo ? sotto(34) : 0),
                    static_cast<unsigned short>(campo ? sotto(34) : 0), static_cast<int>(sotto(2)));
        conv.larghezza = sotto(12);
        conv.decimali = sotto(5);
        conv.auto_decimali = sotto(3) == 0 ? 1 : 0;
        conv.formato = static_cast<eFormatoConv>(sotto(4));
        descrizione = "type " + std::to_string(canale.tipo_campione) + ", channel " + std::to_string(canale.fid) +
                      ", function " + std::to_string(fid) + ", gain " + std::to_string(dati.gain) + ", offset " +
                      std::to_string(dati.offset) + ", reciprocal " + std::to_string(dati.reciproco) + ", bits " +
                      std::to_string(conv.pos_bit) + "+" + std::to_string(conv.num_bit) + ", width " +
                      std::to_string(conv.larghezza) + ", decimals " + std::to_string(conv.decimali) + ", format " +
                      std::to_string(conv.formato) + ", automatic " + std::to_string(conv.auto_decimali);
        return conv;
    }

    // Bytes among which reserved patterns, NaNs, zeros and small numbers are frequent.
    void riempi(unsigned char* byte, std::size_t quanti) {
        for (std::size_t i = 0; i < quanti; ++i)
            byte[i] = static_cast<unsigned char>(casuale_());
        constexpr std::array<std::uint32_t, 14> frequenti = {0xFFFFCFFF, 0xFFFFCFFE, 0xFFFFCFFD, 0xCFFFCFFE, 0x7F800000,
                                                             0xFF800000, 0x7FC00001, 0x7C00FC00, 0x7C01FE00, 0,
                                                             1,          0xFFFFFFFF, 0x00010003, 0x80000000};
        for (std::size_t volte = quanti / 24; volte > 0 && quanti >= 4; --volte) {
            const std::uint32_t parola = frequenti[sotto(frequenti.size())];
            std::memcpy(byte + casuale_() % (quanti - 3), &parola, 4);
        }
    }

private:
    std::mt19937 casuale_;
};

// Bytes after the record's start that a converter may read.
std::size_t byte_letti(const s_kel_converter& conv) {
    return conv.offset_campione + 64;
}

TEST(Columns, AreWhatOneCallASampleGives) {
    constexpr std::array<std::size_t, 12> passi = {0, 1, 2, 3, 4, 7, 8, 17, 56, 64, 200, 2000};
    for (const Nuclei* nuclei : insiemi()) {
        Caso caso(1);
        std::vector<unsigned char> byte;
        for (int giro = 0; giro < 1200; ++giro) {
            s_converter_data dati;
            std::string descrizione;
            const s_kel_converter conv = caso.convertitore(dati, descrizione);
            const std::size_t passo = passi[caso.sotto(passi.size())];
            const std::size_t numero = caso.sotto(4) == 0 ? caso.sotto(2200) : caso.sotto(300);
            const std::size_t disallineo = caso.sotto(16);
            byte.resize(disallineo + numero * passo + byte_letti(conv));
            caso.riempi(byte.data(), byte.size());
            const unsigned parti = caso.sotto(2) == 0 ? unsigned{tutte} : caso.sotto(16);
            confronta(nuclei, conv, byte.data() + disallineo, passo, numero, descrizione, parti);
            if (HasFatalFailure())
                return;
        }
    }
}

TEST(Columns, OfOneCallAreReadEachAsIfAlone) {
    for (const Nuclei* nuclei : insiemi()) {
        Caso caso(2);
        for (int giro = 0; giro < 25; ++giro) {
            const std::size_t num_colonne = 1 + caso.sotto(150);
            const std::size_t numero = caso.sotto(1500);
            const std::size_t passo = caso.sotto(400);
            std::vector<unsigned char> byte(numero * passo + 128);
            caso.riempi(byte.data(), byte.size());
            std::vector<s_converter_data> dati(num_colonne);
            std::vector<s_kel_converter> convertitori;
            std::vector<Esito> letti(num_colonne, Esito(numero));
            std::vector<Esito> attesi;
            std::vector<s_kel_colonna> colonne;
            std::string descrizione;
            for (s_converter_data& uno : dati)
                convertitori.push_back(caso.convertitore(uno, descrizione));
            for (std::size_t i = 0; i < num_colonne; ++i) {
                const unsigned parti = caso.sotto(16);
                attesi.push_back(atteso(convertitori[i], byte.data(), passo, numero, parti));
                colonne.push_back(colonna(convertitori[i], letti[i], parti));
            }
            leggi(nuclei, byte.data(), passo, numero, colonne.data(), static_cast<unsigned>(num_colonne));
            for (std::size_t i = 0; i < num_colonne; ++i) {
                letti[i].decimali = convertitori[i].decimali;
                ASSERT_TRUE(letti[i] == attesi[i])
                    << nome(nuclei) << ", column " << i << ": " << differenza(letti[i], attesi[i]);
            }
        }
    }
}

// Every length up to several vectors, at every alignment: what is left over of a vector is right, and nothing is written
// behind the last sample.
TEST(Columns, EndWhereTheSamplesEnd) {
    for (const Nuclei* nuclei : insiemi())
        for (unsigned tipo = 0; tipo < kel_test::TIPI_CAMPIONE; ++tipo) {
            s_converter_data dati = {"", 1.5f, 0.25f, 0};
            s_kel_canale canale = {};
            canale.tipo_campione = tipo;
            s_kel_converter conv = {};
            kelConvInit(&conv, &canale, 0, &dati, 0, 0, 1);
            conv.larghezza = 6;
            conv.decimali = 1;
            const std::size_t byte = std::max(1u, kelFunGetSamplSize(tipo));
            Caso caso(tipo);
            std::vector<unsigned char> campioni(4096 + 64 * 210);
            caso.riempi(campioni.data(), campioni.size());
            for (std::size_t numero = 0; numero < 140; ++numero) {
                const Esito giusto = atteso(conv, campioni.data() + numero % 8, byte, numero);
                Esito letto(numero + 8);
                s_kel_colonna una = colonna(conv, letto);
                leggi(nuclei, campioni.data() + numero % 8, byte, numero, &una, 1);
                const Esito intatto(8);
                EXPECT_TRUE(std::equal(intatto.valori.begin(), intatto.valori.end(), letto.valori.end() - 8));
                EXPECT_TRUE(std::equal(intatto.stati.begin(), intatto.stati.end(), letto.stati.end() - 8));
                EXPECT_EQ(0xAA, letto.validi.back());
                EXPECT_TRUE(std::equal(intatto.testi.begin(), intatto.testi.end(), letto.testi.end() - 8));
                letto.valori.resize(numero);
                letto.stati.resize(numero);
                letto.validi.resize((numero + 7) / 8);
                letto.testi.resize(numero);
                letto.decimali = conv.decimali;
                ASSERT_TRUE(letto == giusto)
                    << nome(nuclei) << ", type " << tipo << ", " << numero << ": " << differenza(letto, giusto);
            }
        }
}

// Samples that begin behind a page nobody may touch, or end before one.
TEST(Columns, ReadNothingBesideTheSamples) {
    kel_test::Recinto recinto;
    ASSERT_TRUE(recinto.pronto());
    constexpr std::size_t pagina = 4096;
    for (const Nuclei* nuclei : insiemi())
        for (unsigned tipo = 0; tipo < kel_test::TIPI_CAMPIONE; ++tipo)
            for (const int reciproco : {0, 1})
                for (const unsigned short num_bit : {std::uint16_t{0}, std::uint16_t{3}}) {
                    const std::size_t byte = kelFunGetSamplSize(tipo);
                    s_converter_data dati = {"", 1.5f, 0.25f, reciproco};
                    s_kel_canale canale = {};
                    canale.tipo_campione = tipo;
                    s_kel_converter conv = {};
                    kelConvInit(&conv, &canale, 0, &dati, 0, num_bit, 1);
                    conv.larghezza = 5;
                    Caso caso(tipo);
                    caso.riempi(recinto.in_testa(), pagina);
                    for (const std::size_t passo : {byte, byte + 1, byte + 3, std::size_t{40}, std::size_t{0}})
                        for (const std::size_t numero : {1u, 15u, 64u, 77u, 100u}) {
                            const std::size_t lunghezza = (numero - 1) * passo + byte;
                            if (lunghezza > pagina)
                                continue;
                            const std::string descrizione = "type " + std::to_string(tipo);
                            confronta(nuclei, conv, recinto.in_fondo(lunghezza), passo, numero, descrizione);
                            confronta(nuclei, conv, recinto.in_testa(), passo, numero, descrizione);
                            if (HasFatalFailure())
                                return;
                        }
                }
}

// A computed subfield reads its fields of the packet, of which the last may end where memory ends.
TEST(Columns, ReadNothingBesideTheFieldsOfAPacket) {
    kel_test::Recinto recinto;
    ASSERT_TRUE(recinto.pronto());
    const s_converter_data dati = {"", 1.0f, 0.0f, 0};
    s_kel_canale canale = {};
    canale.tipo_campione = KEL_TIPO_GPS_KEL;
    canale.fid = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, FID_SPEC_GPS_KELNAVSOL);
    const std::array<std::pair<kel_funpos, std::size_t>, 3> campi = {
        {{kelFidComponi(FID_PHI_COORDINATE, FID_OBJ_LATITUDE, FID_POS_GPS), 28},
         {kelFidComponi(FID_PHI_COORDINATE, FID_OBJ_LONGITUDE, FID_POS_GPS), 24},
         {kelFidComponi(FID_PHI_SPEED, FID_OBJ_UNDEFINED, FID_POS_GPS), 52}}};
    Caso caso(3);
    caso.riempi(recinto.in_testa(), 4096);
    for (const Nuclei* nuclei : insiemi())
        for (const auto& [fid, fine] : campi) {
            s_kel_converter conv = {};
            kelConvInit(&conv, &canale, fid, &dati, 0, 0, 1);
            ASSERT_NE(nullptr, conv.valore);
            const unsigned char* primo = recinto.in_fondo(69 * 56 + fine);
            confronta(nuclei, conv, primo, 56, 70, "function " + std::to_string(fid));
        }
}

// All patterns of the 16-bit formats, one of each bit field, with units of every kind.
TEST(Columns, AreRightForEverySampleOf16Bits) {
    std::vector<unsigned char> campioni(2 * 65536);
    for (std::size_t i = 0; i < 65536; ++i) {
        campioni[2 * i] = static_cast<unsigned char>(i);
        campioni[2 * i + 1] = static_cast<unsigned char>(i >> 8);
    }
    const std::array<s_converter_data, 5> unita = {{{"", 0.0f, 1.0f, 0},
                                                    {"", 0.25f, 0.1f, 0},
                                                    {"", -17.3f, -3.3333f, 0},
                                                    {"", 0.25f, 0.1f, 1},
                                                    {"", std::numeric_limits<float>::infinity(), 1e38f, 0}}};
    for (const Nuclei* nuclei : insiemi())
        for (const unsigned tipo : {KEL_TIPO_INT16, KEL_TIPO_UINT16, KEL_TIPO_MEZZO_FLOAT, KEL_TIPO_MARCIA,
                                    KEL_TIPO_UINT8, KEL_TIPO_UINT8_INTERO, KEL_TIPO_LISTA_BIT})
            for (const s_converter_data& dati : unita)
                for (unsigned short num_bit = 0; num_bit < 9; num_bit = static_cast<unsigned short>(num_bit + 4u)) {
                    const bool con_campo =
                        tipo == KEL_TIPO_UINT16 || tipo == KEL_TIPO_UINT8 || tipo == KEL_TIPO_LISTA_BIT;
                    if (num_bit != 0 && !con_campo)
                        continue;
                    s_kel_canale canale = {};
                    canale.tipo_campione = tipo;
                    s_kel_converter conv = {};
                    kelConvInit(&conv, &canale, 0, &dati, 3, num_bit, 1);
                    conv.larghezza = 6;
                    conv.decimali = 2;
                    const bool con_testi = &dati == &unita[1] && num_bit == 0;
                    const std::size_t byte = kelFunGetSamplSize(tipo);
                    confronta(nuclei, conv, campioni.data(), byte, campioni.size() / byte,
                              "type " + std::to_string(tipo), con_testi ? unsigned{tutte} : valori | stati | validi);
                    if (HasFatalFailure())
                        return;
                }
}

// Positions at which the short way of the angles ends: the centre, the axis, the equator, far too near and as far as numbers go.
TEST(Columns, AreRightForPositionsOfEveryKind) {
    constexpr std::array<std::int32_t, 17> numeri = {
        0,         1,          -1,        9999,       -10000,      10001,       353553390, -353553391, 500000000,
        637813700, -637813700, 635675231, 2147483647, -2147483647, -2147483648, 100,       -300000000};
    std::vector<unsigned char> pacchetti;
    for (const std::int32_t x : numeri)
        for (const std::int32_t y : numeri)
            for (const std::int32_t z : numeri) {
                std::array<unsigned char, 56> pacchetto = {};
                const std::array<std::int32_t, 3> xyz = {x, y, z};
                pacchetto[14] = static_cast<unsigned char>(2 + pacchetti.size() / 56 % 3);
                pacchetto[51] = static_cast<unsigned char>(3 + pacchetti.size() / 56 % 2);
                std::memcpy(pacchetto.data() + 16, xyz.data(), sizeof xyz);
                std::memcpy(pacchetto.data() + 32, xyz.data(), sizeof xyz);
                pacchetti.insert(pacchetti.end(), pacchetto.begin(), pacchetto.end());
            }
    for (const Nuclei* nuclei : insiemi())
        for (const unsigned spec : {FID_SPEC_GPS_KELNAVSOL, FID_SPEC_GPS_UBXNAVSOL})
            for (const s_sottocampo* riga = search_sottocampi_struct(FID_DETTAGLI_GPS, spec);
                 kelFidFineTabella(riga->fid) == 0; ++riga)
                for (const int reciproco : {0, 1}) {
                    const s_converter_data dati = {"", 0.5f, 0.25f, reciproco};
                    s_kel_canale canale = {};
                    canale.tipo_campione = KEL_TIPO_GPS_KEL;
                    canale.fid = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, spec);
                    s_kel_converter conv = {};
                    kelConvInit(&conv, &canale, riga->fid, &dati, 0, 0, 1);
                    conv.larghezza = 7;
                    conv.decimali = 2;
                    confronta(nuclei, conv, pacchetti.data(), 56, pacchetti.size() / 56,
                              "function " + std::to_string(riga->fid));
                    if (HasFatalFailure())
                        return;
                }
}

// No decoder goes unrecognised, but for the digit of a gear's text: its column would be right, and slow.
TEST(Columns, AreReadWithALoopOfTheirOwn) {
    const s_converter_data dati = {"", 0, 1, 0};
    const s_converter_data reciproci = {"", 0, 1, 1};
    for (unsigned tipo = 0; tipo <= KEL_TIPO_DIFFERENZA_TEMPO; ++tipo)
        for (const s_converter_data* unita : {&dati, &reciproci})
            for (const unsigned short num_bit : {std::uint16_t{0}, std::uint16_t{3}}) {
                s_kel_canale canale = {};
                canale.tipo_campione = tipo;
                s_kel_converter conv = {};
                kelConvInit(&conv, &canale, 0, unita, 0, num_bit, 1);
                kel_colonne::Riconoscitore riconoscitore;
                if (conv.valore != nullptr) {
                    EXPECT_NE(kel_colonne::Lettura::sconosciuta,
                              riconoscitore.lettura(conv.valore, kel_colonne::NUM_LETTURE))
                        << tipo;
                }
                const bool una_lettera = tipo == KEL_TIPO_MARCIA || conv.valore == nullptr;
                if (!una_lettera) {
                    EXPECT_NE(kel_colonne::Scrittura::sconosciuta, riconoscitore.scrittura(conv.testo)) << tipo;
                }
            }
}

// By its pointer, among no more than were asked for.
TEST(Columns, FindOutTheDecoder) {
    s_kel_canale canale = {};
    canale.tipo_campione = KEL_TIPO_INT16;
    const s_converter_data dati = {"", 0, 1, 0};
    s_kel_converter conv = {};
    kelConvInit(&conv, &canale, 0, &dati, 0, 0, 1);
    kel_colonne::Riconoscitore riconoscitore;
    EXPECT_EQ(kel_colonne::Lettura::int16_lineare, riconoscitore.lettura(conv.valore, 1));
    EXPECT_EQ(kel_colonne::Lettura::sconosciuta, riconoscitore.lettura(nullptr, kel_colonne::NUM_LETTURE));
    EXPECT_EQ(kel_colonne::Scrittura::numero, riconoscitore.scrittura(conv.testo));
    canale.tipo_campione = KEL_TIPO_MEZZO_FLOAT;
    kelConvInit(&conv, &canale, 0, &dati, 0, 0, 1);
    EXPECT_EQ(kel_colonne::Lettura::mezzo_lineare, riconoscitore.lettura(conv.valore, kel_colonne::NUM_LETTURE));
}

// A caller's own decoder, whose status words may have bits above the eighth.
float di_chi_chiama(const s_kel_converter*, const void* campione, std::uint32_t* stato) {
    const unsigned char byte = *static_cast<const unsigned char*>(campione);
    *stato = byte % 3 == 0 ? 0x100u : byte % 5 == 0 ? 2u : 0u;
    return static_cast<float>(byte) / 7;
}

TEST(Columns, GoThroughADecoderOfTheCallers) {
    std::array<unsigned char, 777> campioni;
    Caso caso(4);
    caso.riempi(campioni.data(), campioni.size());
    s_kel_canale canale = {};
    canale.tipo_campione = KEL_TIPO_UINT8;
    const s_converter_data dati = {"", 0, 1, 0};
    for (const Nuclei* nuclei : insiemi()) {
        s_kel_converter conv = {};
        kelConvInit(&conv, &canale, 0, &dati, 0, 0, 1);
        conv.valore = di_chi_chiama;
        conv.larghezza = 5;
        confronta(nuclei, conv, campioni.data(), 1, campioni.size(), "the caller's decoder");
        conv.testo = nullptr;
        confronta(nuclei, conv, campioni.data(), 1, campioni.size(), "no text function");
    }
}

// So many that what is written goes past the caches.
TEST(Columns, AreTheSameInNumbersThatNoCacheHolds) {
    constexpr std::size_t numero = (5u << 20) + 3;
    std::vector<unsigned char> campioni(2 * numero);
    Caso caso(5);
    caso.riempi(campioni.data(), campioni.size());
    s_kel_canale canale = {};
    canale.tipo_campione = KEL_TIPO_INT16;
    const s_converter_data dati = {"", 0.5f, 0.1f, 0};
    s_kel_converter conv = {};
    kelConvInit(&conv, &canale, 0, &dati, 0, 0, 1);
    for (const Nuclei* nuclei : insiemi())
        confronta(nuclei, conv, campioni.data(), 2, numero, "int16", valori | validi);
}

TEST(Columns, OfNoSamplesAreNotTouched) {
    s_kel_converter conv = {};
    Esito esito(8);
    const Esito intatto(8);
    for (const Nuclei* nuclei : insiemi()) {
        s_kel_colonna una = colonna(conv, esito);
        leggi(nuclei, nullptr, 4, 0, &una, 1);
        leggi(nuclei, nullptr, 4, 8, nullptr, 0);
        EXPECT_TRUE(esito == intatto);
    }
}

// Automatic decimals depend on the texts before: in the order of the samples, over the ends of blocks.
TEST(Columns, MakeAutomaticDecimalsInTheOrderOfTheSamples) {
    std::vector<std::int16_t> campioni;
    for (int i = 0; i < 5000; ++i)
        campioni.push_back(static_cast<std::int16_t>(940 + i * 7 % 120));  // about the limits of four places
    s_kel_canale canale = {};
    canale.tipo_campione = KEL_TIPO_INT16;
    for (const Nuclei* nuclei : insiemi())
        for (std::uint32_t larghezza = 0; larghezza < 10; ++larghezza)
            for (const float gain : {1.0f, -1.0f, 0.01f, 10.0f, -0.1f}) {
                const s_converter_data unita = {"", 0.0f, gain, 0};
                s_kel_converter conv = {};
                kelConvInit(&conv, &canale, 0, &unita, 0, 0, 1);
                conv.larghezza = larghezza;
                conv.auto_decimali = 1;
                conv.decimali = 3;
                confronta(nuclei, conv, reinterpret_cast<const unsigned char*>(campioni.data()), 2, campioni.size(),
                          "width " + std::to_string(larghezza));
            }
}

}  // namespace
