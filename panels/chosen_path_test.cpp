// What counts as a path, and what must not be taken for one.
#include "panels/chosen_path.h"

#include <gtest/gtest.h>

namespace brushworks {
namespace {

using namespace std::string_view_literals;

TEST(UTF8, IsTakenInItsShortestFormsAlone) {
    for (const std::string_view good :
         {""sv, "a"sv, "\x7F"sv, "\xC2\x80"sv, "\xDF\xBF"sv, "\xE0\xA0\x80"sv, "\xED\x9F\xBF"sv,
          "\xEE\x80\x80"sv, "\xF0\x90\x80\x80"sv, "\xF4\x8F\xBF\xBF"sv, "aüz€𝄞"sv})
        EXPECT_TRUE(IsUTF8(good)) << good;
    for (const std::string_view bad :
         {"a\0b"sv, "\x80"sv, "\xC0\xAF"sv, "\xC1\xBF"sv, "\xC3"sv, "\xC3("sv, "\xE0\x9F\xBF"sv,
          "\xE2\x82"sv, "\xED\xA0\x80"sv, "\xF0\x8F\xBF\xBF"sv, "\xF4\x90\x80\x80"sv,
          "\xF5\x80\x80\x80"sv, "\xFF"sv, "ok\xE2\x28\xA1"sv})
        EXPECT_FALSE(IsUTF8(bad)) << bad;
}

TEST(PathOfOutput, LosesTheEndOfLineAlone) {
    EXPECT_EQ(PathOfOutput("/home/a b/My Preset.x\n"), "/home/a b/My Preset.x");
    EXPECT_EQ(PathOfOutput("/no end"), "/no end");
    EXPECT_EQ(PathOfOutput("/two\nlines\n"), "/two\nlines");
    EXPECT_EQ(PathOfOutput("/ends in one\n\n"), "/ends in one\n");
    EXPECT_EQ(PathOfOutput("/ü\n"), "/ü");
    for (const std::string_view no : {""sv, "\n"sv, "name\n"sv, "file:///x\n"sv, "warning\n/x\n"sv})
        EXPECT_EQ(PathOfOutput(no), std::nullopt) << no;
    for (const std::string_view untaken : {"/\xFF\n"sv, "/a\0b\n"sv})
        EXPECT_EQ(PathOfOutput(untaken), "") << untaken;
    EXPECT_EQ(PathOfOutput(std::string(5000, '/')), "");
}

TEST(PathOfURI, DecodesStrictly) {
    EXPECT_EQ(PathOfURI("file:///home/x"), "/home/x");
    EXPECT_EQ(PathOfURI("file://localhost/home/x"), "/home/x");
    EXPECT_EQ(PathOfURI("file:///a%20b%2520%C3%a9+c%0Ad%3f"), "/a b%20é+c\nd?");
    for (const std::string_view no :
         {""sv, "/home/x"sv, "http:///x"sv, "file:x"sv, "file://"sv, "file://x"sv,
          "file://other/x"sv, "file://localhostx/"sv, "file:///a%"sv, "file:///a%2"sv,
          "file:///a%2g"sv, "file:///a%+1"sv, "file:///x?query"sv, "file:///x#part"sv})
        EXPECT_EQ(PathOfURI(no), std::nullopt) << no;
    for (const std::string_view untaken : {"file:///a%00b"sv, "file:///%E9"sv, "file:///%C0%AF"sv})
        EXPECT_EQ(PathOfURI(untaken), "") << untaken;
}

}  // namespace
}  // namespace brushworks
