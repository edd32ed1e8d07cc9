// Fills, complements and float arithmetic.
#include <cmath>

#include "frames/samples.h"
#include "processors/in_place.h"
#include "processors/invert.h"
#include "processors/set_color.h"
#include "processors/testing.h"

namespace brushworks {
namespace {

using testing::kAllFormats;
using testing::kColorFormats;
using testing::RandomFrame;
using testing::SamePixels;
using testing::SampleAt;
using testing::SamplesPerPixel;

TEST(SetColor, StoresTheSameColourInEveryOrder) {
    constexpr unsigned char kBytes[4] = {0x40, 0x80, 0xC0, 0xFF};  // B, G, R, A of 0xFFC08040
    for (const PixelFormat format : kColorFormats) {
        SCOPED_TRACE(format);
        RandomFrame frame(5, 4, format, 1);
        ASSERT_TRUE(Processors::CSetColor().Process(&frame, 0xFFC08040));
        const bool alphaLast = format == PixelFormatBGRA8 || format == PixelFormatBGRA32f;
        const float scale = Processors::IsFloatColor(frame) ? kByteToFloat : 1.0f;
        for (int i = 0; i < 20; ++i)
            ASSERT_EQ(SampleAt(frame, 3, i), kBytes[alphaLast ? i % 4 : 3 - i % 4] * scale);
    }
    RandomFrame bytes(3, 3, PixelFormatMono8, 1), floats(3, 3, PixelFormatMono32f, 1);
    ASSERT_TRUE(Processors::CSetColor().Process(&bytes, 0xFFC08040));
    ASSERT_TRUE(Processors::CSetColor().Process(&floats, 0xFFC08040));
    EXPECT_EQ(SampleAt(bytes, 2, 2), 0x40);
    EXPECT_EQ(SampleAt(floats, 2, 2), 0x40 * kByteToFloat);
    floats.m_nDepth = 2;
    EXPECT_FALSE(Processors::CSetColor().Process(&floats, 0));
}

TEST(SetChannelColor, FillsOneChannelAlone) {
    for (const PixelFormat format : kColorFormats) {
        RandomFrame frame(5, 4, format, 1), before(5, 4, format, 1);
        ASSERT_TRUE(Processors::CSetChannelColor().Process(&frame, 3, 0x1FF));
        for (int i = 0; i < 20; ++i)
            ASSERT_EQ(SampleAt(frame, 1, i),
                      i % 4 == 3 ? (Processors::IsFloatColor(frame) ? 255 * kByteToFloat : 255)
                                 : SampleAt(before, 1, i));
        EXPECT_FALSE(Processors::CSetChannelColor().Process(&frame, 4, 0));
    }
    RandomFrame plane(3, 3, PixelFormatMono8, 1);
    EXPECT_FALSE(Processors::CSetChannelColor().Process(&plane, 0, 0));
}

TEST(Invert, ComplementsEverySampleAndUndoesItself) {
    for (const PixelFormat format : kAllFormats) {
        SCOPED_TRACE(format);
        RandomFrame src(7, 3, format, 1), dst(7, 3, format, 2);
        ASSERT_TRUE(Processors::CInvert().Process(&src, &dst));
        const float top =
            Processors::IsFloatColor(src) || Processors::IsFloatPlane(src) ? 1.0f : 255.0f;
        for (int i = 0; i < 7 * SamplesPerPixel(src); ++i)
            ASSERT_EQ(SampleAt(dst, 2, i), top - SampleAt(src, 2, i));
    }
}

TEST(InvertChannel, WalksTheSlackAsWell) {
    RandomFrame frame(5, 4, PixelFormatBGRA8, 1), before(5, 4, PixelFormatBGRA8, 1);
    ASSERT_GT(frame.m_nPixelSpan, 5);
    for (CFrame* f : {static_cast<CFrame*>(&frame), static_cast<CFrame*>(&before)})
        for (int y = 0; y < 4; ++y) f->m_pBuffer[y * f->m_nByteSpan + 5 * 4 + 2] = 7;
    ASSERT_TRUE(Processors::CInvertChannel().Process(&frame, 2));
    for (int y = 0; y < 4; ++y)
        for (int i = 0; i < 6 * 4; ++i)
            if (i < 20 || i % 4 == 2) {
                const unsigned char old = before.m_pBuffer[y * before.m_nByteSpan + i];
                ASSERT_EQ(frame.m_pBuffer[y * frame.m_nByteSpan + i], i % 4 == 2 ? 255 - old : old);
            }
    EXPECT_FALSE(Processors::CInvertChannel().Process(&frame, 4));
    EXPECT_FALSE(Processors::CInvertChannel().Process(&frame, -1));
    RandomFrame plane(5, 4, PixelFormatMono32f, 1), old(5, 4, PixelFormatMono32f, 1);
    ASSERT_TRUE(Processors::CInvertChannel().Process(&plane, 4));  // the channel is not consulted
    EXPECT_EQ(SampleAt(plane, 3, 4), 1.0f - SampleAt(old, 3, 4));
    RandomFrame floats(5, 4, PixelFormatARGB32f, 1);
    EXPECT_FALSE(Processors::CInvertChannel().Process(&floats, 4));
}

TEST(InPlace, ArithmeticOnFloatColourAlone) {
    const float bounds[4] = {0.25f, 0.5f, 0.0f, 0.75f};
    for (const PixelFormat format : {PixelFormatBGRA32f, PixelFormatARGB32f}) {
        RandomFrame raised(5, 3, format, 1), squared(5, 3, format, 1), rooted(5, 3, format, 1),
            old(5, 3, format, 1);
        ASSERT_TRUE(Processors::CThresholdLTInPlace().Process(&raised, bounds));
        ASSERT_TRUE(Processors::CSqrInPlace().Process(&squared));
        ASSERT_TRUE(Processors::CSqrtInPlace().Process(&rooted));
        for (int i = 0; i < 20; ++i) {
            const float sample = SampleAt(old, 1, i);
            ASSERT_EQ(SampleAt(raised, 1, i), std::fmax(sample, bounds[i % 4]));
            ASSERT_EQ(SampleAt(squared, 1, i), sample * sample);
            ASSERT_EQ(SampleAt(rooted, 1, i), std::sqrt(sample));
        }
    }
    RandomFrame bytes(5, 3, PixelFormatBGRA8, 1);
    EXPECT_FALSE(Processors::CSqrInPlace().Process(&bytes));
    EXPECT_FALSE(Processors::CSqrtInPlace().Process(nullptr));
    EXPECT_FALSE(Processors::CThresholdLTInPlace().Process(&bytes, bounds));
}

}  // namespace
}  // namespace brushworks
