// Runs the tests of one folder. With KEL_TEST_LOCALE in the environment, first makes that C locale current, and a C++
// locale that groups digits and writes a decimal comma: nothing in the library may notice.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <locale>
#include <string>

namespace {

class PunteggiaturaConVirgola : public std::numpunct<char> {
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

}  // namespace

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    if (const char* nome = std::getenv("KEL_TEST_LOCALE")) {
        if (std::setlocale(LC_ALL, nome) == nullptr) {
            std::fprintf(stderr, "the locale %s is not installed\n", nome);
            return 2;
        }
        std::locale::global(std::locale(std::locale::classic(), new PunteggiaturaConVirgola));
        std::setlocale(LC_ALL, nome);
    }
    return RUN_ALL_TESTS();
}
