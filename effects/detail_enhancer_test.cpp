// The wide unsharp mask: flat stays flat, edges gain on both sides, bytes and floats agree.
#include "effects/detail_enhancer.h"

#include "processors/blur.h"
#include "processors/testing.h"

namespace brushworks {
namespace {

using namespace testing;  // NOLINT: a test reads best without the prefix

TEST(DetailEnhancer, AddsTheDifferenceFromABlurOfTheToldSize) {
    struct Case {
        float size;
        int height;  ///< of the frame
        float blur;  ///< of its surroundings
    };
    for (const auto& [size, height, blur] :
         {Case{1.0f, 100, 18}, Case{1.0f, 96, 18}, Case{0.5f, 60, 6}, Case{0.01f, 30, 2}})
        for (const PixelFormat format : kColorFormats)
            for (const bool field : {false, true}) {
                SCOPED_TRACE(::testing::Message() << "format " << format << ", " << height);
                RandomFrame src(41, height, format, 1), dst(41, height, format, 2),
                    before(41, height, format, 2), blurred(41, height, format, 3);
                MemoryAllocator allocator;
                constexpr float kAmount = 0.7501f;
                ASSERT_TRUE(DetailEnchancer(&src, &dst, kAmount, size, field, &allocator));
                Processors::CBlur().Process(&src, &blurred, field ? 2 * blur : blur, blur,
                                            &allocator, false);
                for (int y = 0; y < height; ++y)
                    for (int i = 0; i < 4 * 41; ++i) {
                        const float s = SampleAt(src, y, i), b = SampleAt(blurred, y, i);
                        float expected = s + kAmount * (s - b), slack = 1e-5f;
                        if (Processors::IsByteColor(src)) {
                            expected = std::min(std::max(expected, 0.0f), 255.0f);
                            slack = 1.001f;  // both products are cut to whole steps
                        }
                        if (i % 4 == Processors::AlphaPlane(src))
                            ASSERT_EQ(SampleAt(dst, y, i), SampleAt(before, y, i));
                        else
                            ASSERT_NEAR(SampleAt(dst, y, i), expected, slack);
                    }
            }
}

TEST(DetailEnhancer, CutsProductsToWholeSteps) {
    // A flat 101 stays: 101 + 75 - 75 with a share of 7501 ten-thousandths, of which 101 has 75.76.
    CFrame frame;
    MemoryAllocator allocator;
    ASSERT_TRUE(frame.Init(8, 8, 4, nullptr, PixelFormatBGRA8, false));
    for (int y = 0; y < 8; ++y)
        std::memset(Processors::RowOf<char>(frame, y), y < 4 ? 101 : 99, 32);
    DetailEnchancer(&frame, &frame, 0.7501f, 0.1f, false, &allocator);
    EXPECT_EQ(frame.m_pBuffer[0], 101);
    EXPECT_EQ(Processors::RowOf<unsigned char>(frame, 7)[1], 99);
}

TEST(DetailEnhancer, CopiesWhereThereIsNothingToAdd) {
    RandomFrame src(9, 6, PixelFormatBGRA8, 1), dst(9, 6, PixelFormatBGRA8, 2);
    MemoryAllocator allocator;
    EXPECT_TRUE(DetailEnchancer(&src, &dst, 0.0f, 1.0f, false, &allocator));
    EXPECT_TRUE(SamePixels(src, dst));
}

}  // namespace
}  // namespace brushworks
