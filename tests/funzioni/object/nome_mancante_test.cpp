// What a program reads that catches the failure of a channel's name: the words of the standard library for a string that is
// built from a null pointer.
#include <IFunzioni.h>
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>

namespace {

TEST(MissingChannelName, SaysWhatTheStandardLibrarySays) {
    const std::unique_ptr<IFunzioni> catalogo(IFunzioni::CreateMe());
    try {
        catalogo->getNomeCanale(0);
        FAIL() << "there is no channel";
    } catch (const std::logic_error& errore) {
        EXPECT_STREQ(errore.what(), "basic_string: construction from null is not valid");
    }
}

}  // namespace
