// Finding the channel that carries a function: three flat variants and the catalogue's.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <vector>

#include "IFunzioni.h"
#include "kelfunzioni.h"

namespace {

constexpr kel_funpos GPS = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, FID_SPEC_GPS_KELNAVSOL);
constexpr kel_funpos UBX = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_GPS, FID_SPEC_GPS_UBXNAVSOL);
constexpr kel_funpos GIRO2_G = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_LAPTIME, FID_SPEC_LAPTIME_KEL2G);
constexpr kel_funpos GIRO1_G = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_LAPTIME, FID_SPEC_LAPTIME_KEL1G);
constexpr kel_funpos GIRO2_GV2 = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_LAPTIME, FID_SPEC_LAPTIME_KEL2Gv2);
constexpr kel_funpos DATA_ORA = kelFidComponi(FID_PHI_PACKAGE, FID_DETTAGLI_DATETIME, 0);

constexpr kel_funpos fid(unsigned grandezza, unsigned oggetto = 0, unsigned posizione = 0) {
    return kelFidComponi(grandezza, oggetto, posizione);
}

constexpr int NESSUNO = -1;

class Canali {
public:
    explicit Canali(const std::vector<kel_funpos>& fid) : canali_(fid.size() + 1) {
        std::memset(canali_.data(), 0, canali_.size() * sizeof(s_kel_canale));
        for (std::size_t i = 0; i < fid.size(); ++i) {
            canali_[i].fid = fid[i];
        }
        canali_.back().fid = 0xFFFFFFFFu;  // not in use
        kelFunInit(&set_, canali_.data(), static_cast<unsigned>(canali_.size()), static_cast<unsigned>(fid.size()));
    }

    int match(kel_funpos fid) const {
        const s_kel_canale* trovato = kelFunGetMatchCh(&set_, fid);
        // The catalogue's own search is the same.
        const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe(set_.canali, set_.usati));
        EXPECT_EQ(catalogo->getMatchCh(fid), trovato) << std::hex << fid;
        return indice(trovato);
    }
    int full(kel_funpos fid) const { return indice(kelFunGetMatchChFull(&set_, fid)); }

    std::vector<int> list(kel_funpos fid, unsigned capacita = 32) const {
        s_kel_canale* trovati[32] = {};
        unsigned numero = capacita;
        const int esito = kelFunGetMatchChList(&set_, fid, trovati, &numero);
        std::vector<int> indici;
        if (esito == 0) {
            EXPECT_EQ(numero, capacita) << "nothing found leaves the count alone";
            EXPECT_EQ(trovati[0], nullptr) << "nothing found leaves the array alone";
            return indici;
        }
        EXPECT_EQ(esito, 1);
        for (unsigned i = 0; i < numero; ++i) {
            indici.push_back(indice(trovati[i]));
        }
        for (unsigned i = numero; i < 32; ++i) {
            EXPECT_EQ(trovati[i], nullptr);
        }
        return indici;
    }

    s_set_canali& set() { return set_; }

private:
    int indice(const s_kel_canale* canale) const {
        return canale == nullptr ? NESSUNO : static_cast<int>(canale - canali_.data());
    }
    std::vector<s_kel_canale> canali_;
    s_set_canali set_;
};

using Indici = std::vector<int>;

TEST(ChannelMatch, OfAnEmptySetIsNone) {
    const Canali vuoto(std::vector<kel_funpos>{});
    for (kel_funpos fid : {0u, fid(16), 0xFFFFFFFFu}) {
        EXPECT_EQ(vuoto.match(fid), NESSUNO);
        EXPECT_EQ(vuoto.full(fid), NESSUNO);
        EXPECT_EQ(vuoto.list(fid), Indici{});
    }
}

TEST(ChannelMatch, WithoutAnArrayIsNone) {
    s_set_canali set;
    kelFunInit(&set, nullptr, 4, 4);
    s_kel_canale* trovati[4] = {};
    unsigned numero = 4;
    EXPECT_EQ(kelFunGetMatchCh(&set, 0), nullptr);
    EXPECT_EQ(kelFunGetMatchChFull(&set, 0), nullptr);
    EXPECT_EQ(kelFunGetMatchChList(&set, 0, trovati, &numero), 0);
    EXPECT_EQ(numero, 4u);
}

TEST(ChannelMatch, ListWithoutAnOutputIsNone) {
    Canali canali({fid(16)});
    unsigned numero = 4;
    EXPECT_EQ(kelFunGetMatchChList(&canali.set(), 0, nullptr, &numero), 0);
    EXPECT_EQ(numero, 4u);
}

TEST(ChannelMatch, RequestOfZeroTakesAnyChannel) {
    const Canali canali({fid(17, 33, 6), fid(16), 0x12345678});
    EXPECT_EQ(canali.match(0), 0);
    EXPECT_EQ(canali.full(0), 0);
    EXPECT_EQ(canali.list(0), (Indici{0, 1, 2}));
}

TEST(ChannelMatch, RequestOfZeroTakesPacketsOnlyOutsideTheList) {
    const Canali canali({GPS, fid(16), DATA_ORA, fid(17)});
    EXPECT_EQ(canali.match(0), 0);
    EXPECT_EQ(canali.full(0), 0);
    EXPECT_EQ(canali.list(0), (Indici{1, 3}));
}

TEST(ChannelMatch, RequestOfZeroInTheListFindsPacketsWithTheReservedRow) {
    // The second-generation lap table has a row with identifier 0.
    const Canali canali({GPS, GIRO2_G, GIRO1_G, GIRO2_GV2, UBX});
    EXPECT_EQ(canali.list(0), (Indici{1, 3}));
}

TEST(ChannelMatch, LooksAtUsedChannelsOnly) {
    Canali canali({fid(16), fid(17), fid(18)});
    canali.set().usati = 2;
    EXPECT_EQ(canali.match(fid(18)), NESSUNO);
    EXPECT_EQ(canali.full(fid(18)), NESSUNO);
    EXPECT_EQ(canali.list(fid(18)), Indici{});
    EXPECT_EQ(canali.list(0), (Indici{0, 1}));
}

TEST(ChannelMatch, QuantityAloneFindsAnyObjectAndPosition) {
    const Canali canali({fid(17, 33, 6), fid(16, 3, 14), fid(16), fid(16, 0, 13)});
    EXPECT_EQ(canali.match(fid(16)), 1);
    EXPECT_EQ(canali.full(fid(16)), 1);
    EXPECT_EQ(canali.list(fid(16)), (Indici{1, 2, 3}));
    EXPECT_EQ(canali.match(fid(15)), NESSUNO);
    EXPECT_EQ(canali.full(fid(15)), NESSUNO);
    EXPECT_EQ(canali.list(fid(15)), Indici{});
}

TEST(ChannelMatch, EveryFieldGivenMustAgree) {
    const Canali canali({fid(17, 33, 6), fid(17, 23, 6), fid(17, 23, 9), fid(14, 23, 9)});
    const std::pair<kel_funpos, int> casi[] = {
        {fid(17, 23, 9), 2}, {fid(17, 23), 1}, {fid(17, 0, 9), 2},  {fid(0, 23), 1},        {fid(0, 0, 9), 2},
        {fid(0, 33), 0},     {fid(14), 3},     {fid(14, 23, 9), 3}, {fid(14, 33), NESSUNO}, {fid(17, 33, 9), NESSUNO},
    };
    for (const auto& [fid, indice] : casi) {
        EXPECT_EQ(canali.match(fid), indice) << std::hex << fid;
        EXPECT_EQ(canali.full(fid), indice) << std::hex << fid;
    }
    EXPECT_EQ(canali.list(fid(0, 23)), (Indici{1, 2, 3}));
    EXPECT_EQ(canali.list(fid(17, 0, 6)), (Indici{0, 1}));
    EXPECT_EQ(canali.list(fid(0, 23, 9)), (Indici{2, 3}));
}

TEST(ChannelMatch, AChannelsOwnZeroIsNoWildcard) {
    const Canali canali({fid(16)});
    EXPECT_EQ(canali.match(fid(16, 3)), NESSUNO);
    EXPECT_EQ(canali.match(fid(16, 0, 14)), NESSUNO);
    EXPECT_EQ(canali.full(fid(16, 3)), NESSUNO);
    EXPECT_EQ(canali.list(fid(16, 0, 14)), Indici{});
}

TEST(ChannelMatch, UsesAllEightBitsOfTheObject) {
    const Canali canali({fid(16, 0x80), fid(16, 0xFF)});
    EXPECT_EQ(canali.match(fid(16, 0xFF)), 1);
    EXPECT_EQ(canali.match(fid(16, 0x7F)), NESSUNO);
    EXPECT_EQ(canali.full(fid(16, 0xFF)), 1);
    EXPECT_EQ(canali.list(fid(16, 0xFF)), (Indici{1}));
}

TEST(ChannelMatch, ThreeFieldVariantsIgnoreEverythingAboveThePosition) {
    const Canali canali({fid(16, 0, 14) | kelFidIstanza(3)});
    for (kel_funpos alto : {0x00100000u, 0x00400000u, 0x00800000u, 0x1F800000u, 0xE0000000u, 0xFFF00000u}) {
        EXPECT_EQ(canali.match(fid(16, 0, 14) | alto), 0) << std::hex << alto;
        EXPECT_EQ(canali.list(fid(16, 0, 14) | alto), (Indici{0})) << std::hex << alto;
    }
}

// --- all fields -----------------------------------------------------------------------------------------------------

TEST(FullMatch, NumberedFlagIsOneWay) {
    const kel_funpos lati = fid(16, 0, 14) | kelFidLati(1, 2, 0);
    const kel_funpos numero = fid(16, 0, 14) | kelFidIstanza(0);
    const Canali canali({lati, numero});
    EXPECT_EQ(canali.full(fid(16, 0, 14)), 0) << "a request without the flag takes channels without it";
    EXPECT_EQ(Canali({numero, lati}).full(fid(16, 0, 14)), 0) << "and with it";
    EXPECT_EQ(canali.full(fid(16, 0, 14) | 0x00400000u), 1) << "a request with the flag needs it";
    EXPECT_EQ(Canali({lati}).full(fid(16, 0, 14) | 0x00400000u), NESSUNO);
    EXPECT_EQ(Canali({lati}).match(fid(16, 0, 14) | 0x00400000u), 0) << "the three-field search ignores it";
}

TEST(FullMatch, EachPairOfBitsIsComparedWhereItIsGiven) {
    for (unsigned posto : {20u, 23u, 25u, 27u}) {
        for (kel_funpos valore = 1; valore <= 3; ++valore) {
            for (kel_funpos del_canale = 0; del_canale <= 3; ++del_canale) {
                const Canali canali({fid(16, 0, 14) | del_canale << posto});
                EXPECT_EQ(canali.full(fid(16, 0, 14) | valore << posto), valore == del_canale ? 0 : NESSUNO)
                    << "bits at " << posto << ": request " << valore << ", channel " << del_canale;
                EXPECT_EQ(canali.full(fid(16, 0, 14)), 0) << "not given";
            }
        }
    }
}

TEST(FullMatch, FindsTheWheelThatIsAskedFor) {
    std::vector<kel_funpos> ruote;
    for (unsigned fr : {FID_FRONTREAR_FRONT, FID_FRONTREAR_REAR}) {
        for (unsigned lr : {FID_LEFTRIGHT_LEFT, FID_LEFTRIGHT_RIGHT}) {
            ruote.push_back(fid(FID_PHI_SPEED, 0, FID_POS_WHEEL) | kelFidLati(lr, fr, 0));
        }
    }
    const Canali canali(ruote);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(canali.full(ruote[static_cast<std::size_t>(i)]), i);
    }
    EXPECT_EQ(canali.full(fid(16, 0, 14) | kelFidLati(0, FID_FRONTREAR_REAR, 0)), 2);
    EXPECT_EQ(canali.full(fid(16, 0, 14) | kelFidLati(FID_LEFTRIGHT_RIGHT, 0, 0)), 1);
    EXPECT_EQ(canali.full(fid(16, 0, 14) | kelFidLati(FID_LEFTRIGHT_CENTER, 0, 0)), NESSUNO);
    EXPECT_EQ(canali.match(ruote[3]), 0) << "the three-field search sees no sides";
}

TEST(FullMatch, InstanceNumbersAreComparedPieceByPiece) {
    const kel_funpos base = fid(FID_PHI_LAMBDA, FID_OBJ_RATIO, FID_POS_EXHAUST);
    const Canali cinque({base | kelFidIstanza(5)});
    EXPECT_EQ(cinque.full(base | kelFidIstanza(5)), 0);
    EXPECT_EQ(cinque.full(base | kelFidIstanza(4)), 0) << "4 has a low piece of 0, which is not compared";
    EXPECT_EQ(cinque.full(base | kelFidIstanza(1)), 0) << "1 has only a low piece";
    EXPECT_EQ(cinque.full(base | kelFidIstanza(0)), 0);
    EXPECT_EQ(cinque.full(base | kelFidIstanza(6)), NESSUNO);
    EXPECT_EQ(cinque.full(base | kelFidIstanza(2)), NESSUNO);
    EXPECT_EQ(cinque.full(base | kelFidIstanza(20)), NESSUNO) << "the high piece differs";
    const Canali quattro({base | kelFidIstanza(4)});
    EXPECT_EQ(quattro.full(base | kelFidIstanza(5)), NESSUNO);
    const Canali sessantatre({base | kelFidIstanza(63)});
    for (unsigned numero : {0u, 3u, 12u, 15u, 48u, 51u, 60u, 63u}) {
        EXPECT_EQ(sessantatre.full(base | kelFidIstanza(numero)), 0) << numero;
    }
}

TEST(FullMatch, NeverComparesTheThreeTopBits) {
    const Canali canali({fid(16, 0, 14)});
    EXPECT_EQ(canali.full(fid(16, 0, 14) | 0xE0000000u), 0);
    const Canali alti({fid(16, 0, 14) | 0xE0000000u});
    EXPECT_EQ(alti.full(fid(16, 0, 14)), 0);
    EXPECT_EQ(alti.full(fid(16, 0, 14) | 0x20000000u), 0);
}

TEST(FullMatch, AgreesWithItsModelOnEveryCombinationOfSides) {
    const auto modello = [](kel_funpos c, kel_funpos f) {
        const auto campo = [](kel_funpos fid, unsigned posto) { return fid >> posto & 3u; };
        if ((f & 0x400000u) && !(c & 0x400000u)) {
            return false;
        }
        for (unsigned posto : {20u, 23u, 25u, 27u}) {
            if (campo(f, posto) != 0 && campo(f, posto) != campo(c, posto)) {
                return false;
            }
        }
        return true;
    };
    for (kel_funpos c = 0; c < 512; ++c) {
        s_kel_canale canale;
        std::memset(&canale, 0, sizeof canale);
        canale.fid = fid(16, 0, 14) | c << 20;
        s_set_canali set;
        kelFunInit(&set, &canale, 1, 1);
        for (kel_funpos f = 0; f < 512; ++f) {
            ASSERT_EQ(kelFunGetMatchChFull(&set, fid(16, 0, 14) | f << 20) != nullptr, modello(c << 20, f << 20))
                << "channel " << std::hex << (c << 20) << ", request " << (f << 20);
        }
    }
}

// --- packets --------------------------------------------------------------------------------------------------------

TEST(PacketMatch, FindsAPacketByAnyOfItsSubfields) {
    const Canali canali({fid(15, 0, 6), GPS});
    for (kel_funpos fid : {0xA9512u, 0xA9986u, 0xA998Cu, 0xA9994u, 0xA940Bu, 0xA8010u, 0xA8A07u, 0xA8A87u}) {
        EXPECT_EQ(canali.match(fid), 1) << std::hex << fid;
        EXPECT_EQ(canali.full(fid), 1) << std::hex << fid;
        EXPECT_EQ(canali.list(fid), (Indici{1})) << std::hex << fid;
    }
    EXPECT_EQ(Canali({UBX}).match(0xA8A07), NESSUNO) << "no latitude in NAV-SOL";
    EXPECT_EQ(Canali({UBX}).match(0xA8010), 0);
    EXPECT_EQ(Canali({GIRO1_G}).full(0x1712), NESSUNO) << "no running lap in the first generation";
    EXPECT_EQ(Canali({GIRO2_G}).full(0x1712), 0);
    EXPECT_EQ(Canali({GIRO2_GV2}).list(0x98B), (Indici{0}));
    EXPECT_EQ(Canali({DATA_ORA}).match(0xA9512), NESSUNO);
}

TEST(PacketMatch, ComparesTheWholeSubfieldIdentifier) {
    const Canali canali({GPS});
    EXPECT_EQ(canali.match(fid(FID_PHI_SPEED)), NESSUNO) << "a speed at any position is no subfield";
    EXPECT_EQ(canali.full(fid(FID_PHI_SPEED)), NESSUNO);
    EXPECT_EQ(canali.list(fid(FID_PHI_SPEED)), Indici{});
    EXPECT_EQ(canali.match(0xA940B | 0x00100000u), NESSUNO);
}

TEST(PacketMatch, TakesTheFirstOfPacketAndPlainChannel) {
    EXPECT_EQ(Canali({GPS, 0xA8010}).match(0xA8010), 0);
    EXPECT_EQ(Canali({0xA8010, GPS}).match(0xA8010), 0);
    EXPECT_EQ(Canali({GPS, 0xA8010}).list(0xA8010), (Indici{0, 1}));
}

TEST(PacketMatch, APacketIsFoundByItsOwnIdentifierExceptInTheList) {
    const Canali canali({GIRO2_G, GPS, UBX});
    EXPECT_EQ(canali.match(fid(FID_PHI_PACKAGE)), 0);
    EXPECT_EQ(canali.full(fid(FID_PHI_PACKAGE)), 0);
    EXPECT_EQ(canali.list(fid(FID_PHI_PACKAGE)), Indici{});
    EXPECT_EQ(canali.match(GPS), 1);
    EXPECT_EQ(canali.full(UBX), 2);
    EXPECT_EQ(canali.list(GPS), Indici{});
    EXPECT_EQ(canali.match(kelFidComponi(0, FID_DETTAGLI_GPS, 0)), 1) << "details stand where the object stands";
}

TEST(PacketMatch, WithoutASubfieldTableIsFoundByItsOwnIdentifierOnly) {
    const kel_funpos strano = kelFidComponi(FID_PHI_PACKAGE, 9, 7);
    const Canali canali({strano});
    EXPECT_EQ(canali.match(0xA940B), NESSUNO);
    EXPECT_EQ(canali.match(strano), 0);
    EXPECT_EQ(canali.full(strano), 0);
    EXPECT_EQ(canali.list(strano), Indici{});
}

TEST(PacketMatch, SideBitsOfThePacketDoNotMatterToItsSubfields) {
    const Canali canali({GPS | 0x1F700000u});
    EXPECT_EQ(canali.match(0xA940B), 0);
    EXPECT_EQ(canali.full(0xA940B), 0);
    EXPECT_EQ(canali.list(0xA940B), (Indici{0}));
}

TEST(PacketMatch, OrdinaryChannelsAreNotSearchedForSubfields) {
    const Canali canali({kelFidComponi(FID_PHI_SPEED, FID_DETTAGLI_GPS, 0)});
    EXPECT_EQ(canali.match(0xA940B), NESSUNO);
}

// --- the list's capacity --------------------------------------------------------------------------------------------

TEST(MatchList, StopsAtItsCapacity) {
    const Canali canali({fid(16), fid(16), fid(16), fid(16), fid(16)});
    EXPECT_EQ(canali.list(fid(16), 1), (Indici{0}));
    EXPECT_EQ(canali.list(fid(16), 2), (Indici{0, 1}));
    EXPECT_EQ(canali.list(fid(16), 5), (Indici{0, 1, 2, 3, 4}));
}

TEST(MatchList, TellsHowManyItStored) {
    const Canali canali({fid(16), fid(17), fid(16)});
    EXPECT_EQ(canali.list(fid(16), 5), (Indici{0, 2}));
    EXPECT_EQ(canali.list(fid(17), 5), (Indici{1}));
}

TEST(MatchList, ACapacityOfZeroNeverStopsTheWalk) {
    const Canali canali({fid(16), fid(17), fid(16), fid(16)});
    EXPECT_EQ(canali.list(fid(16), 0), (Indici{0, 2, 3}));
    EXPECT_EQ(canali.list(fid(18), 0), Indici{});
}

TEST(MatchList, PacketsCountInTheirPlace) {
    const Canali canali({0xA940B, GPS, UBX, GIRO2_G, 0xA940B});
    EXPECT_EQ(canali.list(0xA940B), (Indici{0, 1, 2, 4}));
    EXPECT_EQ(canali.list(0xA940B, 3), (Indici{0, 1, 2}));
}

}  // namespace
