// For tests of passes: a helper as a render has it, and pictures on the graphics card.
#pragma once

#include <algorithm>
#include <array>

#include "frames/frame.h"
#include "gpu/gpu_helper.h"
#include "host/gl/testing_gl.h"
#include "host/gl/testing_picture.h"

namespace brushworks::testing {

using host::gl::Picture;

/// A pixel as red, green, blue and alpha from 0 to 1.
using Color = std::array<float, 4>;

inline bool IsFloat(PixelFormat format) {
    return format == PixelFormatBGRA32f || format == PixelFormatARGB32f;
}

/// A pixel of four channels, whatever their order and type.
class Pixel {
  public:
    Pixel(Picture& picture, int x, int y)
        : m_format(picture.format),
          m_pBytes(picture.bytes.data() + static_cast<std::size_t>(y * picture.width + x) *
                                              (IsFloat(m_format) ? 16 : 4)) {}
    operator Color() const {
        Color color;
        for (int i = 0; i < 4; ++i)
            color[i] = IsFloat(m_format) ? Floats()[Place(i)] : m_pBytes[Place(i)] / 255.0f;
        return color;
    }
    /// Bytes are cut and rounded as the graphics card does it.
    void operator=(const Color& color) {
        for (int i = 0; i < 4; ++i)
            if (IsFloat(m_format))
                Floats()[Place(i)] = color[i];
            else
                m_pBytes[Place(i)] =
                    static_cast<std::uint8_t>(std::clamp(color[i], 0.0f, 1.0f) * 255 + 0.5f);
    }

  private:
    int Place(int channel) const {
        const bool alphaFirst = m_format == PixelFormatARGB8 || m_format == PixelFormatARGB32f;
        return alphaFirst ? (channel + 1) % 4 : std::array{2, 1, 0, 3}[channel];
    }
    float* Floats() const { return reinterpret_cast<float*>(m_pBytes); }

    PixelFormat m_format;
    std::uint8_t* m_pBytes;
};

/// The picture that `color(x, y)` paints.
template <class Function>
Picture Paint(int width, int height, PixelFormat format, const Function& color) {
    Picture picture(width, height, format);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) Pixel(picture, x, y) = color(x, y);
    return picture;
}

/// The picture as operations on frames take it.
struct FrameOver : CFrame {
    explicit FrameOver(Picture& picture) {
        const FrameParams record = picture.frame();
        Init(&record);
    }
};

/// A case that draws: `helper` is inside a GPU call of the shared host.
class DrawingTest : public host::gl::GLTest {
  protected:
    void SetUp() override {
        GLTest::SetUp();
        if (!IsSkipped() && !HasFatalFailure()) Begin(hostGL());
    }
    void TearDown() override {
        helper.SetParams(nullptr, nullptr);
        GLTest::TearDown();
    }
    /// Starts a call anew with that maker of GL objects.
    void Begin(IVideoHostGL& maker) {
        helper.SetParams(&maker, &context());
        helper.SetGLStates();
        helper.ConfigProjectionMatrix(2, 2);
        helper.ConfigModelViewMatrix();
    }

    /// A texture for one case. The picture is a region of a larger one, and nonsense is around it.
    class Texture : public TextureParams {
      public:
        explicit Texture(Picture picture)
            : TextureParams(renderer()
                                .upload(picture.frame(), picture.width + 7, picture.height + 4,
                                        /*left=*/3, /*top=*/2)
                                .value()) {}
        Texture(int width, int height, PixelFormat format)
            : Texture(Picture(width, height, format)) {}
        ~Texture() { hostGL().FreeTexture(this, true); }
        Texture(const Texture&) = delete;
        Texture& operator=(const Texture&) = delete;

        Picture Read() const {
            Picture picture(nWidth, nHeight, pfPixelFormat);
            EXPECT_TRUE(renderer().download(*this, picture.frame()));
            return picture;
        }
    };

    GPUHelper helper;
};

}  // namespace brushworks::testing
