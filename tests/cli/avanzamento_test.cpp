// The line that tells how far the reading has come, by a clock that the tests set.
#include "io/avanzamento.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace kel::strumento;

class ProgressLine : public testing::Test {
protected:
    Avanzamento avanzamento(std::optional<std::uint64_t> totale) {
        return {totale, [this] { return adesso_; }, [this](std::string_view testo) { visto_ += testo; }};
    }

    double adesso_ = 1000;
    std::string visto_;
};

TEST_F(ProgressLine, DoesNotAppearInTheFirstTwoSeconds) {
    {
        Avanzamento una = avanzamento(1000000);
        adesso_ += 1.99;
        una.letti(500000);
    }
    EXPECT_EQ(visto_, "") << "nothing was shown, and nothing is there to erase";
}

TEST_F(ProgressLine, TellsBytesPercentAndTimeLeft) {
    Avanzamento una = avanzamento(50000000);
    adesso_ += 2;
    una.letti(10000000);
    EXPECT_EQ(visto_, "\r10.0 MB of 50.0 MB, 20%, 0:08 left\033[K");
}

TEST_F(ProgressLine, TellsBytesAloneWhereTheEndIsNotKnown) {
    Avanzamento una = avanzamento(std::nullopt);
    adesso_ += 3;
    una.letti(1234);
    EXPECT_EQ(visto_, "\r1.2 kB\033[K");
}

TEST_F(ProgressLine, IsWrittenAFewTimesASecond) {
    Avanzamento una = avanzamento(std::nullopt);
    adesso_ += 2;
    una.letti(1);
    adesso_ += 0.19;
    una.letti(2);
    EXPECT_EQ(visto_, "\r1 B\033[K");
    adesso_ += 0.02;
    una.letti(999);
    EXPECT_EQ(visto_, "\r1 B\033[K\r999 B\033[K");
}

TEST_F(ProgressLine, IsErasedOnceAtTheEnd) {
    {
        Avanzamento una = avanzamento(2000);
        adesso_ += 2;
        una.letti(1000);
        visto_.clear();
        una.fine();
        una.fine();
    }
    EXPECT_EQ(visto_, "\r\033[K");
}

TEST_F(ProgressLine, IsErasedWhenTheReadingIsGivenUp) {
    {
        Avanzamento una = avanzamento(2000);
        adesso_ += 2;
        una.letti(1000);
        visto_.clear();
    }
    EXPECT_EQ(visto_, "\r\033[K");
}

TEST_F(ProgressLine, BearsAFileThatGrowsAndOneThatIsEmpty) {
    Avanzamento cresciuta = avanzamento(1000);
    Avanzamento vuota = avanzamento(0);
    adesso_ += 200;
    cresciuta.letti(3000);
    EXPECT_EQ(visto_, "\r3.0 kB of 1.0 kB, 100%, 0:00 left\033[K");
    visto_.clear();
    vuota.letti(3000000000000000);
    EXPECT_EQ(visto_, "\r3000.0 TB\033[K");
}

TEST_F(ProgressLine, CountsLongWaitsInMinutes) {
    Avanzamento una = avanzamento(1000000000000);
    adesso_ += 61;
    una.letti(10000000000);
    EXPECT_EQ(visto_, "\r10.0 GB of 1.0 TB, 1%, 100:39 left\033[K");
}

}  // namespace
