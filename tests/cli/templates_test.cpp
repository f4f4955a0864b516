// Programs out of pieces of text: what a line with a tag becomes.
#include "code/templates.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <stdexcept>

namespace {

using kel::strumento::Templates;
using Json = nlohmann::ordered_json;

std::string rendered(const std::string& lines, const Json& values) {
    return Templates("for readers\n%%% inner\n// {{title}}\n\n\n%%% it\n" + lines).render("it", values);
}

TEST(Templates, FillInValuesTheirMembersAndNumbers) {
    EXPECT_EQ(rendered("a {{x}} {{y.z}}{{n}};\n", {{"x", "1 < 2"}, {"y", {{"z", "&"}}}, {"n", 7}}), "a 1 < 2 &7;\n");
}

TEST(Templates, ABraceBeforeAPlaceIsABrace) {
    EXPECT_EQ(rendered("int v[] = {{{list}}};\n", {{"list", "1, 2"}}), "int v[] = {1, 2};\n");
    EXPECT_EQ(rendered("{{1, 2}, {3, 4}};\n", Json::object()), "{{1, 2}, {3, 4}};\n");
}

TEST(Templates, LinesThatAreLeftOutLeaveNothing) {
    const std::string lines = "a\n{{#on}}\nb\n\n{{/on}}\n{{^on}}\nc\n{{/on}}\nd\n";
    EXPECT_EQ(rendered(lines, {{"on", true}}), "a\nb\n\nd\n");
    EXPECT_EQ(rendered(lines, {{"on", false}}), "a\nc\nd\n");
    EXPECT_EQ(rendered(lines, Json::object()), "a\nc\nd\n");
    EXPECT_EQ(rendered(lines, {{"on", Json::array()}}), "a\nc\nd\n");
}

TEST(Templates, LinesStandOnceForEachElementWhichHidesTheValuesAroundIt) {
    const Json values = {{"x", 0}, {"y", 9}, {"all", {{{"x", 1}}, {{"x", 2}}}}};
    EXPECT_EQ(rendered("{{#all}}\n{{x}} {{y}}\n{{/all}}\n{{x}}\n", values), "1 9\n2 9\n0\n");
}

TEST(Templates, APieceIncludesAnotherWithItsValuesButNotTheEmptyLinesBehindIt) {
    EXPECT_EQ(rendered("{{> inner}}\nb\n", {{"title", "T"}}), "// T\nb\n");
}

TEST(Templates, EndWithoutEmptyLines) {
    EXPECT_EQ(rendered("a\n\n{{#no}}\nb\n{{/no}}\n\n", Json::object()), "a\n");
}

TEST(Templates, WhatIsMissingIsSaid) {
    EXPECT_THROW(rendered("{{x}}\n", Json::object()), std::logic_error);
    EXPECT_THROW(rendered("{{> other}}\n", Json::object()), std::logic_error);
    EXPECT_THROW(rendered("{{#x}}\n", {{"x", true}}), std::logic_error);
    EXPECT_FALSE(Templates("%%% it\n").contains("other"));
}

}  // namespace
