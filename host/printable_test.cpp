// What a terminal gets to see of texts from outside.
#include "host/printable.h"

#include <gtest/gtest.h>

namespace brushworks::host {
namespace {

TEST(Printable, TellsOrdersByTheirCodes) {
    EXPECT_EQ(printable("\x1B[2JOil\r\n\t\x7F"), "\\x1b[2JOil\\x0d\\x0a\\x09\\x7f");
    EXPECT_EQ(printable("\xC2\x9B 1m \xE2\x80\xAE txt \xE2\x81\xA6"),
              "\\u009b 1m \\u202e txt \\u2066");
    EXPECT_EQ(printable(std::string_view("a\0b", 3)), "a\\x00b");
}

TEST(Printable, LeavesWritingAlone) {
    const char* const texts[] = {"", "C:\\x1b", "Öl über Ähre\xC2\xA0", "油絵 \xF0\x9F\x8E\xA8"};
    for (const char* text : texts) EXPECT_EQ(printable(text), text);
    EXPECT_EQ(printable(printable("\x9B\x1B")), printable("\x9B\x1B"));
}

TEST(Printable, TakesNothingForUtf8ThatIsNone) {
    EXPECT_EQ(printable("\x9B"), "\\x9b");
    EXPECT_EQ(printable("\xC2"), "\\xc2");
    EXPECT_EQ(printable("\xC0\x9B\xE0\x80\x9B"), "\\xc0\\x9b\\xe0\\x80\\x9b")
        << "longer than need be";
    EXPECT_EQ(printable("\xED\xA0\x80"), "\\xed\\xa0\\x80") << "half of a pair";
    EXPECT_EQ(printable("\xF4\x90\x80\x80\xFF"), "\\xf4\\x90\\x80\\x80\\xff");
    EXPECT_EQ(printable("\xE2\x80"
                        "a"),
              "\\xe2\\x80a");
}

TEST(Printable, IsShortenedBetweenCharacters) {
    EXPECT_EQ(shortened("no option \"x\"", 20), "no option \"x\"");
    const std::string text = "wrong: " + std::string(5000, 'x') + "; right: a, b";
    EXPECT_EQ(shortened(text, 50).size(), 50U);
    EXPECT_TRUE(shortened(text, 50).starts_with("wrong: xxx"));
    EXPECT_TRUE(shortened(text, 50).ends_with("xx; right: a, b"));
    std::string wide;
    for (int i = 0; i < 100; ++i) wide += "ä";
    for (std::size_t most = 6; most < 60; ++most) {
        const std::string cut = shortened(wide, most);
        EXPECT_LE(cut.size(), most);
        EXPECT_EQ(printable(cut), cut) << most;
    }
}

}  // namespace
}  // namespace brushworks::host
