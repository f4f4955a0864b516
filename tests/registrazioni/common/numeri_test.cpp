// Numbers and counts in messages and texts, and the integers of messages.
#include "common/numeri.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "common/interi.h"
#include "common/posto.h"

namespace {

using namespace kel_registrazioni;

constexpr double MASSIMO = std::numeric_limits<double>::max();
constexpr double MINIMO = std::numeric_limits<double>::denorm_min();

TEST(Numbers, HaveTheDecimalsThatAreAskedFor) {
    EXPECT_EQ(con_decimali(0, 0), "0");
    EXPECT_EQ(con_decimali(12.34, 0), "12");
    EXPECT_EQ(con_decimali(12.34, 1), "12.3");
    EXPECT_EQ(con_decimali(-0.06, 1), "-0.1");
    EXPECT_EQ(con_decimali(1, 3), "1.000");
    const std::string lungo = con_decimali(-MASSIMO, 30);
    EXPECT_EQ(lungo.size(), 1u + 309 + 1 + 30);
    EXPECT_EQ(lungo.substr(0, 8), "-1797693");
    EXPECT_EQ(lungo.substr(307), "368.000000000000000000000000000000");
}

TEST(Numbers, AreAsShortAsTheyCanBe) {
    EXPECT_EQ(breve(350), "350");
    EXPECT_EQ(breve(12.5), "12.5");
    EXPECT_EQ(breve(0.1), "0.1");
    EXPECT_EQ(breve(1e22), "10000000000000000000000") << "no exponent";
    EXPECT_EQ(breve(-MASSIMO).size(), 310u);
    EXPECT_EQ(breve(-MINIMO), "-0." + std::string(323, '0') + "5");
}

TEST(Numbers, OfThingsHaveTheirPlural) {
    EXPECT_EQ(contati(0, "byte"), "0 bytes");
    EXPECT_EQ(contati(1, "byte"), "1 byte");
    EXPECT_EQ(contati(2, "record"), "2 records");
    EXPECT_EQ(contati(UINT64_MAX, "byte"), "18446744073709551615 bytes");
}

TEST(Integers, AreReadFromTheirLowestByteOn) {
    const std::array<std::uint8_t, 10> byte = {0xEE, 0x01, 0x02, 0x83, 0x84, 0x05, 0x06, 0x07, 0x88, 0xEE};
    EXPECT_EQ(intero<std::uint8_t>(byte, 3), 0x83);
    EXPECT_EQ(intero<std::int8_t>(byte, 3), -125);
    EXPECT_EQ(intero<std::uint16_t>(byte, 1), 0x0201);
    EXPECT_EQ(intero<std::int16_t>(byte, 2), -31998);
    EXPECT_EQ(intero<std::uint32_t>(byte, 1), 0x84830201u);
    EXPECT_EQ(intero<std::int32_t>(byte, 1), -2071789055);
    EXPECT_EQ(intero<std::uint64_t>(byte, 1), 0x8807060584830201u);
}

TEST(Integers, AreWrittenWhereTheyAreReadFromAndNowhereElse) {
    std::array<std::uint8_t, 7> byte{};
    byte.fill(0xEE);
    scrivi_intero(std::span<std::uint8_t>(byte), 1, std::int32_t{-2071789055});
    EXPECT_EQ(byte, (std::array<std::uint8_t, 7>{0xEE, 0x01, 0x02, 0x83, 0x84, 0xEE, 0xEE}));
    scrivi_intero(std::span<std::uint8_t>(byte), 5, std::uint16_t{0x1234});
    EXPECT_EQ(byte, (std::array<std::uint8_t, 7>{0xEE, 0x01, 0x02, 0x83, 0x84, 0x34, 0x12}));
}

TEST(Room, IsMadeForOneElementMore) {
    std::vector<int> elementi;
    fai_posto(elementi);
    EXPECT_EQ(elementi.capacity(), 16u) << "for the first ones at once";
    elementi.resize(15);
    fai_posto(elementi);
    EXPECT_EQ(elementi.capacity(), 16u) << "there is room";
    elementi.push_back(7);
    fai_posto(elementi);
    EXPECT_EQ(elementi.capacity(), 32u) << "twice as much, so that a long recording is not moved at each row";
    EXPECT_EQ(elementi.size(), 16u);
    EXPECT_EQ(elementi.back(), 7);
}

}  // namespace
