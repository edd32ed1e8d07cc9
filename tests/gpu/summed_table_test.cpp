// The table of sums, read as effects read it.
#include <cmath>
#include <random>

#include "drawing.h"
#include "gpu/gl_api.h"
#include "gpu/processors/segment_tree.h"
#include "gpu/shader_catalogue.h"

namespace brushworks::testing {

extern const ShaderStruct ssMeanOfRectangle;

namespace {

struct Rectangle {
    int x0, y0, x1, y1;

    double Area() const { return double(x1 - x0 + 1) * (y1 - y0 + 1); }
};

/// Sums of the bytes that a picture's samples are, channel by channel, by plain 64-bit addition.
class Sums {
  public:
    explicit Sums(Picture& picture)
        : m_nStride(picture.width + 1), m_sums(m_nStride * (picture.height + 1)) {
        for (int y = 0; y < picture.height; ++y)
            for (int x = 0; x < picture.width; ++x) {
                const Color color = Pixel(picture, x, y);
                for (int c = 0; c < 4; ++c)
                    At(x + 1, y + 1)[c] = std::llround(color[c] * 255) + At(x, y + 1)[c] +
                                          At(x + 1, y)[c] - At(x, y)[c];
            }
    }
    double Of(const Rectangle& r, int c) {
        return static_cast<double>(At(r.x1 + 1, r.y1 + 1)[c] - At(r.x0, r.y1 + 1)[c] -
                                   At(r.x1 + 1, r.y0)[c] + At(r.x0, r.y0)[c]);
    }

  private:
    std::array<std::int64_t, 4>& At(int x, int y) { return m_sums[y * m_nStride + x]; }

    int m_nStride;
    std::vector<std::array<std::int64_t, 4>> m_sums;
};

Picture RandomPicture(int width, int height, PixelFormat format) {
    std::mt19937 engine(1);
    return Paint(width, height, format, [&](int, int) {
        const auto bits = static_cast<unsigned>(engine());
        return Color{(bits & 255) / 255.0f, (bits >> 8 & 255) / 255.0f, (bits >> 16 & 255) / 255.0f,
                     (bits >> 24) / 255.0f};
    });
}

/// Of all sizes: most have their size's logarithm from an even range.
std::vector<Rectangle> SomeRectangles(int width, int height, int count) {
    std::mt19937 engine(2);
    const auto side = [&](int length) {
        const double part = std::uniform_real_distribution(0.0, 1.0)(engine);
        return std::min(static_cast<int>(std::pow(length + 1.0, part)), length);
    };
    std::vector<Rectangle> all = {{0, 0, width - 1, height - 1},
                                  {0, 0, 0, 0},
                                  {0, height - 1, width - 1, height - 1},
                                  {width - 1, 0, width - 1, height - 1}};
    while (static_cast<int>(all.size()) < count) {
        const int w = side(width), h = side(height);
        const int x = static_cast<int>(engine() % static_cast<unsigned>(width - w + 1));
        const int y = static_cast<int>(engine() % static_cast<unsigned>(height - h + 1));
        all.push_back({x, y, x + w - 1, y + h - 1});
    }
    return all;
}

class SummedTableTest : public DrawingTest {
  protected:
    /// The means that a shader reads from the table of a picture.
    void Read(Picture& picture, const std::vector<Rectangle>& rectangles, PixelFormat tableFormat,
              std::vector<Color>& means) {
        Texture source(picture), table(picture.width, picture.height, tableFormat);
        ASSERT_TRUE(GPUProcessors::CSegmentTree(&helper).Process(source, table));

        const int count = static_cast<int>(rectangles.size());
        Texture list(Paint(count, 1, PixelFormatBGRA32f, [&](int i, int) {
            const Rectangle& r = rectangles[i];
            return Color{float(r.x0), float(r.y0), float(r.x1), float(r.y1)};
        }));
        Texture target(count, 1, PixelFormatBGRA32f);
        ScratchProgram program(helper);
        ASSERT_TRUE(program.Make(CommonShaders::ssVertexBiTexture, ssMeanOfRectangle));
        table.pTexture->SetFilter(GL_NEAREST);
        helper.SetRenderTarget(&target, false, false, false);
        helper.BindShader(program);
        helper.BuildQuad(table, list, false, nullptr);
        Picture read = target.Read();
        for (int i = 0; i < count; ++i) means.push_back(Pixel(read, i, 0));
    }
};

TEST_F(SummedTableTest, HoldsTheMeansOfWholePicturesToTheLastLevel) {
    constexpr int kWidth = 1920, kHeight = 1080;
    const std::vector<Rectangle> rectangles = SomeRectangles(kWidth, kHeight, 200);
    Picture random = RandomPicture(kWidth, kHeight, PixelFormatBGRA8);
    for (int i = 0; i < kWidth * kHeight; ++i)  // alpha is the largest sum that there can be
        random.bytes[4 * i + 3] = 255;
    Sums sums(random);
    std::vector<Color> means;
    Read(random, rectangles, PixelFormatBGRA32f, means);
    for (std::size_t i = 0; i < means.size(); ++i)
        for (int c = 0; c < 4; ++c)
            EXPECT_NEAR(means[i][c], sums.Of(rectangles[i], c) / rectangles[i].Area() / 255, 1e-6)
                << i;
}

TEST_F(SummedTableTest, IsExactAtAllSmallSizesAndInAllFormats) {
    constexpr int kSizes[][2] = {{1, 1},   {1, 9},  {8, 1},   {2, 2},  {15, 17},
                                 {16, 16}, {33, 7}, {64, 31}, {3, 65}, {127, 129}};
    constexpr PixelFormat kTables[][2] = {{PixelFormatBGRA8, PixelFormatBGRA32f},
                                          {PixelFormatARGB8, PixelFormatARGB32f},
                                          {PixelFormatBGRA32f, PixelFormatBGRA32f},
                                          {PixelFormatARGB32f, PixelFormatARGB32f}};
    for (const auto& [width, height] : kSizes)
        for (const auto& [format, tableFormat] : kTables) {
            SCOPED_TRACE(::testing::Message() << width << " x " << height << ' ' << format);
            Picture picture = RandomPicture(width, height, format);
            Sums sums(picture);
            const std::vector<Rectangle> rectangles = SomeRectangles(width, height, 30);
            std::vector<Color> means;
            Read(picture, rectangles, tableFormat, means);
            const bool swapped = format == PixelFormatARGB8 || format == PixelFormatARGB32f;
            constexpr int kOrders[][4] = {{0, 1, 2, 3}, {1, 0, 3, 2}};  // as textures read them
            for (std::size_t i = 0; i < means.size(); ++i)
                for (int c = 0; c < 4; ++c)
                    EXPECT_NEAR(means[i][c] * 255 * rectangles[i].Area(),
                                sums.Of(rectangles[i], kOrders[swapped][c]), 0.4);
        }
}

}  // namespace
}  // namespace brushworks::testing
