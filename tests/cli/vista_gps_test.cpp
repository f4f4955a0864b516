// How the numbers of a solution are shown.
#include "captures/vista_gps.h"

#include <gtest/gtest.h>

namespace {

using namespace kel::strumento;

TEST(VistaGps, ShownNumbersHaveNoMinusZeroAndNoHeadingOf360) {
    EXPECT_EQ(cella_gps(359.999, "", KEL_CAMPO_ROTTA, 2).per_persone(), "0.00");
    EXPECT_EQ(cella_gps(-0.0001, "", KEL_CAMPO_SALITA, 3).per_persone(), "0.000");
    EXPECT_EQ(cella_gps(36.04, "", KEL_CAMPO_VELOCITA, 1).per_persone(), "36.0");
    EXPECT_EQ(cella_gps(0, "", KEL_CAMPO_LATITUDINE, 8).per_persone(), "0.00000000");
}

TEST(VistaGps, WhatASolutionDoesNotHaveIsEmpty) {
    EXPECT_EQ(cella_gps({}, "", KEL_CAMPO_ROTTA, 2).per_persone(), "-");
    EXPECT_EQ(cella_gps({}, "", KEL_CAMPO_UTC, 0).per_persone(), "-");
    EXPECT_EQ(cella_gps({}, "2024-05-01T10:00:00.000Z", KEL_CAMPO_UTC, 0).per_persone(), "2024-05-01T10:00:00.000Z");
}

}  // namespace
