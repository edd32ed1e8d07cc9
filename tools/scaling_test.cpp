// Sizes as people write them.
#include "scaling.h"

#include <gtest/gtest.h>

#include "host/error.h"

namespace brushworks::tools {
namespace {

TEST(Scaling, FollowsTheWrittenSize) {
    const auto scaled = [](const char* text, Size size, bool even = false) {
        return Scaling::parse(text).sizeFor(size, even);
    };
    const Size full = {1919, 1080};
    EXPECT_EQ(scaled("7:5", full, true), (Size{7, 5}));
    EXPECT_EQ(scaled("640:", full), (Size{640, 360}));
    EXPECT_EQ(scaled(":333", full), (Size{592, 333}));
    EXPECT_EQ(scaled("25%", full), (Size{480, 270}));
    EXPECT_EQ(scaled("12.5%", full, true), (Size{240, 136}));
    EXPECT_EQ(scaled("fit:1000:500", full), (Size{888, 500}));
    EXPECT_EQ(scaled("fit:1000:2000", full, true), (Size{1000, 562}));
    // What fits stays, whatever its sides.
    EXPECT_EQ(scaled("fit:1919:2000", full, true), full);
    EXPECT_EQ(Scaling::atMostLines(480).sizeFor({300, 479}, true), (Size{300, 479}));
    EXPECT_EQ(scaled("1%", {16000, 3}), (Size{160, 1})) << "no side is lost";
    EXPECT_EQ(scaled("16384:16128", full), (Size{16384, 16128})) << "the largest of its width";
}

TEST(Scaling, RefusesSizesThatNoFrameCanHave) {
    for (const char* text : {"16384:16129", "16384:16384"}) {
        EXPECT_THROW(Scaling::parse(text), host::UsageError) << text;
    }
    for (const char* text : {"16384:", "10000%"}) {
        EXPECT_THROW(Scaling::parse(text).sizeFor({300, 16384}, true), host::UsageError) << text;
    }
}

TEST(Scaling, RefusesTheRest) {
    for (const char* text : {"", ":", "5", "0:5", "-2:100", "5:x", "1e3:5", "16385:5", "%", "0%",
                             "nan%", "inf%", "fit:5", "fit:5:", "fit:50%", "5:5:5", " 5:5"}) {
        EXPECT_THROW(Scaling::parse(text), host::UsageError) << text;
    }
}

}  // namespace
}  // namespace brushworks::tools
