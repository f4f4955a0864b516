// The library's tables hold what the text files in tests/model/tables say, cell by cell.
#include <gtest/gtest.h>

#include <bit>
#include <cstdint>

#include "comune/celle.h"

namespace {

// A difference is told as "table[row].column".
class Provate : public kel_test::Celle {
protected:
    void testo(const std::string& dove, const std::string& libreria, const std::string& modello) override {
        EXPECT_EQ(libreria, modello) << dove;
    }
    void numero(const std::string& dove, long long libreria, long long modello) override {
        EXPECT_EQ(libreria, modello) << dove;
    }
    void reale(const std::string& dove, float libreria, float modello) override {
        EXPECT_EQ(std::bit_cast<std::uint32_t>(libreria), std::bit_cast<std::uint32_t>(modello))
            << dove << ": " << libreria << " instead of " << modello;
    }
};

TEST(FieldTables, HoldEveryCell) {
    Provate().campi();
}

TEST(UnitTables, HoldEveryCell) {
    Provate().unita();
}

TEST(UnitCodeTable, HoldsEveryCell) {
    Provate().codici_unita();
}

TEST(QuantityTable, HoldsEveryCell) {
    Provate().grandezze();
}

TEST(PositionVariants, HoldEveryCell) {
    Provate().varianti();
}

TEST(ChoiceLists, HoldEveryCell) {
    Provate().scelte();
}

TEST(SubfieldTables, HoldEveryCell) {
    Provate().sottocampi();
}

TEST(CameraTables, HoldEveryCell) {
    Provate().camera();
}

TEST(LegacyTable, HoldsEveryCell) {
    Provate().vecchie();
}

}  // namespace
