// A field that a request leaves at 0 is not compared, whatever stands in the other fields.
#include <gtest/gtest.h>
#include <kelfunzioni.h>

#include <cstring>

namespace {

constexpr kel_funpos TUTTO_UNO = kelFidComponi(FID_MASK_PHI, FID_MASK_OBJ, FID_MASK_POS) |
                                 kel_funpos{FID_MASK_INOUT} << FID_SHIFT_INOUT |
                                 kel_funpos{FID_MASK_NUMBERED} << FID_SHIFT_NUMBERED |
                                 kelFidLati(FID_MASK_LEFTRIGHT, FID_MASK_FRONTREAR, FID_MASK_UPDOWN);

struct Campo {
    const char* nome;
    kel_funpos bit;
};

constexpr Campo CAMPI[] = {
    {"quantity", kel_funpos{FID_MASK_PHI} << FID_SHIFT_PHI},
    {"object", kel_funpos{FID_MASK_OBJ} << FID_SHIFT_OBJ},
    {"position", kel_funpos{FID_MASK_POS} << FID_SHIFT_POS},
    {"in/out", kel_funpos{FID_MASK_INOUT} << FID_SHIFT_INOUT},
    {"numbered", kel_funpos{FID_MASK_NUMBERED} << FID_SHIFT_NUMBERED},
    {"left/right", kel_funpos{FID_MASK_LEFTRIGHT} << FID_SHIFT_LEFTRIGHT},
    {"front/rear", kel_funpos{FID_MASK_FRONTREAR} << FID_SHIFT_FRONTREAR},
    {"up/down", kel_funpos{FID_MASK_UPDOWN} << FID_SHIFT_UPDOWN},
};

// Each full request with one field left out finds the channel that has it, and with one bit changed does not.
TEST(FullMatch, ComparesNoFieldThatIsLeftOut) {
    s_kel_canale canale;
    std::memset(&canale, 0, sizeof canale);
    canale.fid = TUTTO_UNO;
    s_set_canali set;
    kelFunInit(&set, &canale, 1, 1);
    for (const Campo& campo : CAMPI) {
        EXPECT_EQ(kelFunGetMatchChFull(&set, TUTTO_UNO & ~campo.bit), &canale) << "without " << campo.nome;
        for (unsigned bit = 0; bit < 29; ++bit) {
            const kel_funpos uno = kel_funpos{1} << bit;
            if ((campo.bit & uno) == 0 || campo.bit == uno)
                continue;
            EXPECT_EQ(kelFunGetMatchChFull(&set, TUTTO_UNO & ~uno), nullptr) << campo.nome << " without bit " << bit;
        }
    }
}

TEST(ChannelList, NothingFoundIsNoListAndLeavesTheCount) {
    s_kel_canale canale;
    std::memset(&canale, 0, sizeof canale);
    canale.fid = kelFidComponi(FID_PHI_SPEED, 0, 0);
    s_set_canali set;
    kelFunInit(&set, &canale, 1, 1);
    s_kel_canale* trovati[2] = {};
    unsigned numero = 2;
    EXPECT_EQ(kelFunGetMatchChList(&set, kelFidComponi(FID_PHI_RPM, 0, 0), trovati, &numero), 0);
    EXPECT_EQ(numero, 2u);
    EXPECT_EQ(trovati[0], nullptr);
}

}  // namespace
