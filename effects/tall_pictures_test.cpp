// Effects that smooth keep their look however tall the picture is: their weights hold it, and their
// lengths follow its height.
#include <cmath>
#include <map>

#include "effects/testing.h"

namespace brushworks {
namespace {

using namespace testing;  // NOLINT: a test reads best without the prefix

/// Slopes of colour without edges, so that no line of a fixed width is drawn, alike at any height.
struct Scene : RandomFrame {
    explicit Scene(int height) : RandomFrame(16, height, PixelFormatBGRA8, 1) {
        for (int y = 0; y < height; ++y) {
            const double place = static_cast<double>(y) / height;
            for (int i = 0; i < 4 * 16; ++i)
                Processors::RowOf<unsigned char>(*this, y)[i] = static_cast<unsigned char>(
                    50.0 + 140.0 * place + 20.0 * std::sin(6.0 * place + 1.5 * (i % 4)));
        }
    }
};

double MeanOf(const CFrame& frame) {
    double sum = 0;
    for (int y = 0; y < frame.m_nHeight; ++y)
        for (int i = 0; i < 4 * frame.m_nWidth; ++i)
            if (i % 4 != 3) sum += SampleAt(frame, y, i);
    return sum / (3.0 * frame.m_nWidth * frame.m_nHeight);
}

// Under sanitizers the rest takes minutes and shows nothing new.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif

class TallPictures : public ::testing::TestWithParam<const char*> {};

TEST_P(TallPictures, KeepTheirLook) {
    EffectPointer effect;
    for (unsigned int i = 0; i < kEffects; ++i)
        if (EffectPointer one(NewEffect(i)); std::string(one->GetName()) == GetParam())
            effect = std::move(one);
    ASSERT_TRUE(effect);
    TestHost host;
    const auto meanAt = [&](int height) {
        const Scene scene(height);
        RandomFrame painted(16, height, PixelFormatBGRA8, 2);
        EXPECT_TRUE(Render(*effect, host, scene, painted));
        return MeanOf(painted);
    };
    constexpr double kMost = 0.03 * 255.0;
    const auto check = [&](const char* values) {
        const double known = meanAt(1080);
        for (const int height : {480, 1780, 1781, 2160, 4320, 8640})
            EXPECT_NEAR(meanAt(height), known, kMost) << values << ", " << height << " lines";
    };
    UseDefaults(*effect, host);
    check("defaults");
    if (kSanitized) return;
    for (unsigned int preset = 0; effect->EnumPreset(preset); ++preset) {
        UsePreset(*effect, host, preset);
        check(effect->EnumPreset(preset));
    }
}

INSTANTIATE_TEST_SUITE_P(Smoothing, TallPictures,
                         ::testing::Values("Mural", "Toonery Plus", "Charcoal", "Colored Pencil"),
                         [](const auto& effect) {
                             std::string name = effect.param;
                             std::erase(name, ' ');
                             return name;
                         });

}  // namespace
}  // namespace brushworks
