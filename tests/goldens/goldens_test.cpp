// Reference results: a change of any picture is seen, and must be meant.
//
// Each file of this folder named EFFECT.txt holds a line per case: preset (or "defaults"), pixel
// format, and a hash of the rendered bytes. The test program rewrites them when
// BRUSHWORKS_WRITE_GOLDENS is set; the script tests/regenerate-goldens does that and asks why. On a
// difference the picture is written beside the test program, to be looked at.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>

#include "effects/testing.h"
#include "frames/samples.h"
#include "primitives/dispatch.h"

namespace brushworks {
namespace {

using namespace testing;  // NOLINT: a test reads best without the prefix

struct GoldenEffect {
    unsigned int index;
    const char* file;
    const char* presets[3];  ///< besides the defaults
};
constexpr GoldenEffect kEffects[] = {
    {0, "cartoon", {"Hallucination", "Light Cartoon", "Rough Texture"}},
    {1, "charcoal", {"Colored Chalk", "Light Sketch", "Soft Pink"}},
    {2, "colored_pencil", {"Dark Colors", "Faded", "Penciled Lines"}},
    {3, "halo", {"Cotton", "Edgy Blobs", "Noir Abstract"}},
    {4, "impressionist", {"Abstract", "Dark Murk", "Electrified Hair"}},
    {5, "mosaic", {"Block Wall", "Pebbles", "Small Bricks"}},
    {6, "mural", {"Bold", "Heaven", "Stark"}},
    {7, "oil", {"Broad Strokes", "Gritty", "Modified Palette"}},
    {8, "paper_collage", {"Backlit", "Etched", "Topagraphic Map"}},
    {9, "pencil_rubbing", {"Bleached", "Changed Colors", "Gray"}},
    {10, "posterize", {"Dots", "Offset Printing", "Subdued"}},
    {11, "water_color", {"Burnt", "Fun Day Out", "Smokey"}},
};

constexpr int kWidth = 192, kHeight = 144;

/// A picture with slopes, edges, saturated colours and grain, in integers, so that every machine
/// draws the same. `channel` counts B, G, R, A.
unsigned char PictureSample(int x, int y, int channel) {
    if (channel == 3) return static_cast<unsigned char>(255 - x);
    const bool disc = (x - 120) * (x - 120) + (y - 70) * (y - 70) < 45 * 45;
    const int slope[3] = {x * 255 / kWidth, y * 255 / kHeight, (x + y) * 255 / (kWidth + kHeight)};
    const int grain = static_cast<int>(
        (static_cast<unsigned>(x * 7919 + y * 104729 + channel * 31) * 2654435761u) >> 28);
    const int value = disc ? 255 - slope[channel] / (channel + 1) : slope[channel];
    return static_cast<unsigned char>(std::max(0, std::min(255, value + grain - 8)));
}

void Draw(CFrame& frame) {
    const bool alphaFirst = Processors::AlphaPlane(frame) == 0;
    for (int y = 0; y < kHeight; ++y)
        for (int i = 0; i < kWidth * 4; ++i) {
            const unsigned char sample = PictureSample(i / 4, y, alphaFirst ? 3 - i % 4 : i % 4);
            if (Processors::IsFloatColor(frame))
                Processors::RowOf<float>(frame, y)[i] = static_cast<float>(sample) * kByteToFloat;
            else
                Processors::RowOf<unsigned char>(frame, y)[i] = sample;
        }
}

/// FNV-1a, 64 bits, of the pixels.
std::string Hash(const CFrame& frame) {
    std::uint64_t hash = 0xcbf29ce484222325u;
    for (int y = 0; y < frame.m_nHeight; ++y)
        for (int i = 0; i < frame.m_nWidth * frame.m_nDepth; ++i)
            hash = (hash ^ Processors::RowOf<unsigned char>(frame, y)[i]) * 0x100000001b3u;
    char text[17];
    std::snprintf(text, sizeof text, "%016llx", static_cast<unsigned long long>(hash));
    return text;
}

/// The colours as a PPM file.
void WritePicture(const CFrame& frame, const std::string& path) {
    std::ofstream file(path, std::ios::binary);
    file << "P6 " << kWidth << ' ' << kHeight << " 255\n";
    const bool alphaFirst = Processors::AlphaPlane(frame) == 0;
    const float scale = Processors::IsFloatColor(frame) ? 255.0f : 1.0f;
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x)
            for (int c = 2; c >= 0; --c)
                file.put(static_cast<char>(
                    std::lround(SampleAt(frame, y, 4 * x + (alphaFirst ? 3 - c : c)) * scale)));
}

using Goldens = std::map<std::string, std::string>;  // "preset / format" to hash

std::string FileOf(const GoldenEffect& effect) {
    return std::string(BRUSHWORKS_GOLDENS_FOLDER) + "/" + effect.file + ".txt";
}

Goldens ReadGoldens(const GoldenEffect& effect) {
    Goldens goldens;
    std::ifstream file(FileOf(effect));
    for (std::string line; std::getline(file, line);)
        if (const std::size_t at = line.find(" = "); at != std::string::npos)
            goldens[line.substr(0, at)] = line.substr(at + 3);
    return goldens;
}

bool UseNamed(IVideoEffect& effect, TestHost& host, const std::string& preset) {
    UseDefaults(effect, host);
    if (preset == "defaults") return true;
    for (unsigned int p = 0; effect.EnumPreset(p); ++p)
        if (preset == effect.EnumPreset(p)) {
            UsePreset(effect, host, p);
            return true;
        }
    return false;
}

Goldens RenderAll(const GoldenEffect& golden, const Goldens* expected) {
    Goldens results;
    const EffectPointer effect(NewEffect(golden.index));
    TestHost host;
    for (const char* preset :
         {"defaults", golden.presets[0], golden.presets[1], golden.presets[2]}) {
        EXPECT_TRUE(UseNamed(*effect, host, preset));
        for (const PixelFormat format : kColorFormats) {
            RandomFrame src(kWidth, kHeight, format, 1), dst(kWidth, kHeight, format, 2);
            Draw(src);
            EXPECT_TRUE(Render(*effect, host, src, dst));
            const std::string name = std::string(preset) + " / " + std::to_string(format);
            results[name] = Hash(dst);
            if (expected && (!expected->count(name) || expected->at(name) != results[name])) {
                const std::string path =
                    std::string(golden.file) + "-" + preset + "-" + std::to_string(format) + ".ppm";
                WritePicture(dst, path);
                ADD_FAILURE() << golden.file << ", " << name << ": the picture changed; see "
                              << path;
            }
        }
    }
    return results;
}

TEST(Goldens, PicturesAreTheReferencesInEveryVariant) {
    const bool write = std::getenv("BRUSHWORKS_WRITE_GOLDENS") != nullptr;
    for (const GoldenEffect& golden : kEffects) {
        if (write) {
            std::ofstream file(FileOf(golden));
            for (const auto& [name, hash] : RenderAll(golden, nullptr))
                file << name << " = " << hash << '\n';
        }
        const Goldens expected = ReadGoldens(golden);
        for (int v = 0; v <= static_cast<int>(BestVariant()); ++v) {
            SCOPED_TRACE(VariantName(static_cast<Variant>(v)));
            ASSERT_TRUE(SelectVariant(static_cast<Variant>(v)));
            EXPECT_EQ(RenderAll(golden, &expected).size(), expected.size());
        }
    }
}

}  // namespace
}  // namespace brushworks
