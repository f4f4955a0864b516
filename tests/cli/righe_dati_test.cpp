// Numbers written fast, against the same numbers written by the rules that they follow.
#include "output/righe_dati.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

#include "output/cifre.h"
#include "output/documento.h"
#include "text/numeri.h"

namespace {

using namespace kel::strumento;

// The shortest digits of a double, and where its point is: by the standard library, put together from its parts.
std::string atteso(double valore) {
    if (!std::isfinite(valore))
        return "null";
    char testo[64];
    const std::string breve(testo,
                            std::to_chars(testo, testo + sizeof testo, valore, std::chars_format::scientific).ptr);
    const int esponente = std::stoi(breve.substr(breve.find('e') + 1));
    if (valore != 0 && (esponente < -4 || esponente >= 15))
        return breve;
    const std::string fissa(testo, std::to_chars(testo, testo + sizeof testo, valore, std::chars_format::fixed).ptr);
    return fissa.find('.') == std::string::npos ? fissa + ".0" : fissa;
}

template <typename... Argomenti>
std::string scritto(char* (*come)(char*, Argomenti...), std::type_identity_t<Argomenti>... argomenti) {
    char testo[CIFRE_MASSIME];
    return {testo, come(testo, argomenti...)};
}

void come_il_lento(float valore) {
    ASSERT_EQ(scritto(scrivi_float, valore), atteso(come_scritto(valore))) << valore;
}

TEST(Digits, OfFloatsAreTheShortestThatReadBack) {
    std::mt19937 caso(1);
    for (int i = 0; i < 300000; ++i) {
        come_il_lento(std::bit_cast<float>(static_cast<std::uint32_t>(caso())));
        come_il_lento(static_cast<float>(static_cast<int>(caso() % 4000001) - 2000000) * 0.001f);
        come_il_lento(static_cast<float>(caso() % 100000000) * 0.5f);
    }
    for (const float una : {0.0f, -0.0f, 1e-4f, 9.999999e-5f, 999999.0f, 1e6f, 16777215.0f, 16777216.0f, 123456792.0f,
                            1e15f, 9.99999986991104e14f, std::numeric_limits<float>::infinity(), -1.5f, 85.68506f,
                            std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::denorm_min()})
        come_il_lento(una);
}

TEST(Digits, OfRoundedNumbersAreThoseOfTheirText) {
    std::mt19937_64 caso(2);
    for (int i = 0; i < 300000; ++i) {
        const int decimali = static_cast<int>(caso() % 10);
        const double grezzo = static_cast<double>(static_cast<std::int64_t>(caso() % 40000000000) - 20000000000);
        for (const double valore : {grezzo * 1e-8, grezzo / 1000, grezzo * 1e6, std::bit_cast<double>(caso())})
            ASSERT_EQ(scritto(scrivi_arrotondato, valore, decimali),
                      atteso(come_scritto(con_decimali(valore, decimali))))
                << valore << " " << decimali;
    }
    for (const double valore : {0.0, -0.0, 1e-4, 5e-5, -4e-9, 0.5, 1.5, 2.5, 999999999999999.0, 1e15, 1e22})
        for (int decimali = 0; decimali < 10; ++decimali)
            ASSERT_EQ(scritto(scrivi_arrotondato, valore, decimali),
                      atteso(come_scritto(con_decimali(valore, decimali))))
                << valore << " " << decimali;
}

std::string letto(std::FILE* file) {
    std::string testo;
    std::rewind(file);
    for (int c = std::fgetc(file); c != EOF; c = std::fgetc(file))
        testo += static_cast<char>(c);
    std::fclose(file);
    return testo;
}

// A table of some rows, cell by cell or by the faster way.
std::string tabella(Forma forma, bool dati, int righe) {
    std::FILE* file = std::tmpfile();
    Documento documento(file, {forma, false, ""});
    documento.inizia("records", "", {{"record", "RECORD"}, {"a \"b\"", "A"}, {"c", "C"}, {"d", "D"}}, true);
    RigheDati* veloci = documento.righe_dati();
    EXPECT_EQ(veloci == nullptr, forma == Forma::tabella);
    for (int i = 0; i < righe; ++i) {
        const float numero = 0.1f * static_cast<float>(i);
        const std::string testo = i % 2 == 0 ? "x, \"y\"\n\xE8" : "plain";
        if (dati && veloci != nullptr) {
            veloci->intero(i);
            veloci->numero(numero);
            veloci->testo(testo);
            i % 3 == 0 ? veloci->niente() : veloci->reale(numero, 2);
            veloci->fine_riga();
        } else {
            documento.riga({Cella::intero(i), Cella::numero(numero, ""), Cella::testo(testo),
                            i % 3 == 0 ? Cella() : Cella::reale(numero, 2)});
        }
    }
    documento.fine();
    return letto(file);
}

TEST(DataRows, HaveTheBytesOfRowsOfCells) {
    for (const Forma forma : {Forma::csv, Forma::json, Forma::ndjson, Forma::tabella})
        for (const int righe : {0, 1, 2, 5000})
            EXPECT_EQ(tabella(forma, true, righe), tabella(forma, false, righe))
                << static_cast<int>(forma) << " " << righe;
}

TEST(DataRows, AreNotOpenWhereTwoColumnsOfAnObjectHaveOneName) {
    std::FILE* file = std::tmpfile();
    Documento documento(file, {Forma::ndjson, false, ""});
    documento.inizia("records", "", {{"a", "A"}, {"b", "B"}, {"a", "A"}}, true);
    EXPECT_EQ(documento.righe_dati(), nullptr);
    documento.riga({Cella::intero(1), Cella::intero(2), Cella::intero(3)});
    documento.fine();
    EXPECT_EQ(letto(file), "{\"table\":\"records\",\"a\":3,\"b\":2}\n");
}

}  // namespace
