// Mural's steps, put together from the processors themselves.
#include "effects/detail_enhancer.h"
#include "effects/testing.h"
#include "processors/color_twist.h"
#include "processors/mix.h"
#include "processors/smooth.h"

namespace brushworks {
namespace {

using namespace testing;  // NOLINT: a test reads best without the prefix

constexpr unsigned int kMural = 6;
enum Param : unsigned int { kColor, kBrightness, kContrast, kSmoothing, kShading, kBlend };

TEST(Mural, SmoothsShadesAndMixesByItsControls) {
    const EffectPointer effect(NewEffect(kMural));
    RenderInfo info{};
    info.dwFlags = kRenderHasFieldMode;
    for (const PixelFormat format : {PixelFormatBGRA8, PixelFormatBGRA32f})
        for (const bool field : {false, true})
            for (const float blend : {0.2f, 1.0f}) {
                SCOPED_TRACE(::testing::Message()
                             << format << (field ? ", field, " : ", ") << "blend " << blend);
                TestHost host;
                const float values[] = {0.7f, 0.4f, 0.6f, 0.9f, 0.5f, blend};
                for (unsigned int i = 0; i < 6; ++i) host.values[i].value = values[i];
                info.nFieldMode = field ? 1 : 3;
                RandomFrame src(44, 300, format, 1), dst(44, 300, format, 2),
                    expected(44, 300, format, 3), flat(44, 300, format, 4);
                ASSERT_TRUE(Render(*effect, host, src, dst, &info));

                MemoryAllocator allocator;
                Processors::CColorTwist().Process(&src, &expected, 0.6f, 0.4f, 0.7f, 0.5f,
                                                  allocator);
                Processors::CSmooth().Process(&expected, &flat, nullptr, nullptr, 1.5f,
                                              0.9f * 0.5f + 0.1f, 0.9f * 0.9f * 1.5f * 0.4f + 0.2f,
                                              0.0f, field, nullptr, nullptr);
                DetailEnchancer(&flat, &expected, 0.5f + 0.01f, 0.5f + 0.01f, field, &allocator);
                Processors::CMix().Process(&src, &expected, &expected, 1.0f - (blend + 0.01f),
                                           blend + 0.01f);
                for (int y = 0; y < 300; ++y)
                    for (int i = 0; i < 4 * 44; ++i)
                        if (i % 4 != 3) {
                            ASSERT_EQ(SampleAt(dst, y, i), SampleAt(expected, y, i));
                        }
            }
}

}  // namespace
}  // namespace brushworks
