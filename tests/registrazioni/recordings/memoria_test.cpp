// A u-blox stream when memory runs out while a piece is taken.
#include <gtest/gtest.h>

#include <new>
#include <string>

#include "common/errore.h"
#include "recordings/tabella_ubx.h"
#include "registrazioni/face/pista.h"
#include "reliability/assegnazioni.h"

namespace {

using namespace kel_registrazioni;

TEST(UbxMemory, AStreamThatWasBrokenOffSaysSo) {
    prova::Byte byte;
    for (int i = 0; i < 40; ++i)
        prova::messaggio(byte, 1, 6, prova::Pista::nav_sol(i));
    TabellaUbx tabella(std::nullopt);
    assegnazioni::fallisca(2);
    EXPECT_THROW(tabella.spingi(byte), std::bad_alloc);
    EXPECT_TRUE(assegnazioni::fallita());
    assegnazioni::fallisca(-1);
    try {
        tabella.spingi(byte);
        ADD_FAILURE() << "it went on";
    } catch (const Errore& e) {
        EXPECT_EQ(std::string(e.what()), "the stream was broken off when memory ran out");
    }
    EXPECT_THROW(tabella.fine(), Errore);
    EXPECT_EQ(tabella.righe(), 0u);
}

}  // namespace
