// A walk that has come to its end stays there: its cursor, a part of the object, does not run on.
#include <CFunzioni.h>
#include <gtest/gtest.h>

#include <cstring>

namespace {

struct Contenuto {
    unsigned char byte[sizeof(CFunzioni)];
};

Contenuto di(const CFunzioni& catalogo) {
    Contenuto contenuto;
    std::memcpy(contenuto.byte, reinterpret_cast<const unsigned char*>(&catalogo), sizeof contenuto.byte);
    return contenuto;
}

template <typename Prossima>
void prova_fine(CFunzioni& catalogo, Prossima prossima) {
    int passi = 0;
    while (prossima(catalogo) != nullptr && passi < 100)
        ++passi;
    const Contenuto alla_fine = di(catalogo);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(prossima(catalogo), nullptr) << "call " << i + 1 << " behind the end";
        const Contenuto dopo = di(catalogo);
        EXPECT_EQ(std::memcmp(alla_fine.byte, dopo.byte, sizeof dopo.byte), 0) << "call " << i + 1 << " behind the end";
    }
}

TEST(CameraWalk, OfBasicFunctionsStaysAtItsEnd) {
    CFunzioni catalogo;
    ASSERT_NE(catalogo.getFirstFunzVisZumikoCam(), nullptr);
    prova_fine(catalogo, [](CFunzioni& c) { return c.getNextFunzVisZumikoCam(); });
}

TEST(CameraWalk, OfExtendedFunctionsStaysAtItsEnd) {
    CFunzioni catalogo;
    ASSERT_NE(catalogo.getFirstFunzVisZumikoCamEstese(), nullptr);
    prova_fine(catalogo, [](CFunzioni& c) { return c.getNextFunzVisZumikoCamEstese(); });
}

}  // namespace
