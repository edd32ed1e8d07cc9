// The strings, where they do what their names do not say.
#include "frames/lf_string.h"

#include <gtest/gtest.h>

#include <map>

#include "brushworks/guid.h"

namespace brushworks {
namespace {

LFString S(const char* text) {
    return LFString::FromText(text);
}

TEST(LFString, LongerStringsSortFirst) {
    EXPECT_TRUE(S("zz") < S("a"));
    EXPECT_FALSE(S("a") < S("zz"));
    EXPECT_TRUE(S("ab") < S("ac"));
    EXPECT_FALSE(S("") < S(""));
    std::map<LFString, int> map{{S("b"), 2}, {S("long"), 1}, {S("a"), 3}};
    EXPECT_EQ(map.begin()->second, 1);
    EXPECT_EQ(map.size(), 3u);
}

TEST(LFString, CopiesAndComparesByText) {
    LFString text = S("Brush");
    LFString copy(text);
    copy[0] = 'C';
    EXPECT_TRUE(text == S("Brush"));
    EXPECT_TRUE(copy.EqualsIgnoreCase(S("cRUSH")));
    EXPECT_FALSE(copy.EqualsIgnoreCase(S("cRUSHES")));
    const LFString& same = text;
    text = same;
    EXPECT_TRUE(text.Equals(S("Brush")));
    EXPECT_TRUE(LFString() == S(""));
    EXPECT_EQ(LFString().ConstData(), nullptr);
    EXPECT_TRUE(text.HasOf(4));
    EXPECT_FALSE(text.HasOf(5));
    text.Clear();
    EXPECT_TRUE(text.IsEmpty());
}

TEST(LFString, CutsFindsAndReplaces) {
    const LFString text = S("one two one");
    EXPECT_TRUE(text.Substr(4, 3) == S("two"));
    EXPECT_TRUE(text.Substr(8, 100) == S("one"));
    EXPECT_TRUE(S("12345").Substr(5, 2).IsEmpty());
    EXPECT_EQ(text.IndexOf(S("one"), 1), 8);
    EXPECT_EQ(text.IndexOf(S("ONE")), LFString::kNotFound);
    EXPECT_EQ(text.IndexOfIgnoreCase(S("ONE")), 0);
    EXPECT_EQ(text.IndexLastOf(S("one")), 8);
    EXPECT_EQ(text.IndexOf(S("")), LFString::kNotFound);
    EXPECT_EQ(S("a").IndexOf(S("aa")), LFString::kNotFound);
    EXPECT_TRUE(LFString(text).Replace(S("one"), S("oneone")) == S("oneone two oneone"));
    EXPECT_TRUE(LFString(text).Replace(S("none"), S("x")) == text);
    EXPECT_TRUE((S("a") + S("b")).Append(S("c")) == S("abc"));
    EXPECT_TRUE(S("aBc1").ToUpper() == S("ABC1"));
}

TEST(LFString, NumbersAndIdentifiers) {
    EXPECT_EQ(LFString().GetLong(7), 7);
    EXPECT_EQ(S("x").GetLong(7), 7);
    EXPECT_EQ(S("-12rest").GetLong(7), -12);
    EXPECT_EQ(S("12").GetULong(7), 12u);
    EXPECT_EQ(S("").GetULong(7), 7u);
    EXPECT_TRUE(LFString::FromInt(-5) == S("-5"));
    EXPECT_TRUE(LFString::FromDword(4000000000u) == S("4000000000"));
    EXPECT_TRUE(LFString::FromGUID(IID_EffectLibrary) == S("9b8d0b5f-065a-46b1-889c-f057934ce8a4"));
}

TEST(LFString, WideTextBecomesUTF8) {
    const wchar_t wide[] = L"a\u00e9\u20ac\U0001F3A8";
    EXPECT_TRUE(LFString(wide, 4) == S("a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x8E\xA8"));
    const wchar_t broken[] = {static_cast<wchar_t>(0xD800), static_cast<wchar_t>(0x7FFFFFFF)};
    EXPECT_TRUE(LFUnicodeString(broken, 2).ToUTF8() == S("\xEF\xBF\xBD\xEF\xBF\xBD"));
}

}  // namespace
}  // namespace brushworks
