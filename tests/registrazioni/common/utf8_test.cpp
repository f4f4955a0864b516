// Which bytes are UTF-8: the first and the last character of each length, and all that RFC 3629 leaves out.
#include "common/utf8.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using kel_registrazioni::come_utf8;

TEST(Utf8, StaysAsItIs) {
    for (const std::string testo : {"", "a", "\x7F", "caff\xC3\xA8 1", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80",
                                    "\xEC\xBF\xBF", "\xED\x9F\xBF", "\xEE\x80\x80", "\xEF\xBF\xBF", "\xF0\x90\x80\x80",
                                    "\xF3\xBF\xBF\xBF", "\xF4\x8F\xBF\xBF", "\xC2\x80\xE0\xA0\x80\xF0\x90\x80\x80z"})
        EXPECT_EQ(come_utf8(testo), testo);
}

TEST(Utf8, OtherBytesAreQuestionMarks) {
    struct Caso {
        const char* byte;
        const char* atteso;
    };
    for (const auto& [byte, atteso] : {Caso{"\x80", "?"},                 // begins no character
                                       Caso{"\xBF", "?"},                 //
                                       Caso{"\xC0\x80", "??"},            // one byte would do
                                       Caso{"\xC1\xBF", "??"},            //
                                       Caso{"\xE0\x9F\xBF", "???"},       // two would
                                       Caso{"\xF0\x8F\xBF\xBF", "????"},  // three would
                                       Caso{"\xED\xA0\x80", "???"},       // a surrogate
                                       Caso{"\xF4\x90\x80\x80", "????"},  // beyond the last character
                                       Caso{"\xF5\x80\x80\x80", "????"},  //
                                       Caso{"\xFF", "?"},                 //
                                       Caso{"a\xC3", "a?"},               // cut off
                                       Caso{"\xE2\x82", "??"},            //
                                       Caso{"\xF0\x90\x80", "???"},       //
                                       Caso{"\xC3+", "?+"},               // another byte where one more is due
                                       Caso{"\xC3\xC3", "??"},            //
                                       Caso{"\xE2+\xA1", "?+?"},          //
                                       Caso{"\xE2\x82+", "??+"},          //
                                       Caso{"\xF0+\x8C\xBC", "?+??"},     //
                                       Caso{"\xF0\x90+\xBC", "??+?"},     //
                                       Caso{"\xF0\x90\x8C+", "???+"}})
        EXPECT_EQ(come_utf8(byte), atteso);
}

TEST(Utf8, OneBadByteSpoilsTheWholeText) {
    EXPECT_EQ(come_utf8("\xC3\xA8 \x7F \xE8"), "?? \x7F ?") << "nobody knows what the other bytes were meant to be";
}

}  // namespace
