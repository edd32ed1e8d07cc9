// Times the operations on textures of 1920 by 1080, on whatever OpenGL is found first: a graphics
// card, or Mesa on the processor. Each call includes its programs, which the host keeps compiled.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <exception>
#include <functional>
#include <string>
#include <utility>

#include "gpu/gl_lookup.h"
#include "gpu/gl_objects.h"
#include "gpu/processors/blend.h"
#include "gpu/processors/blur.h"
#include "gpu/processors/clamp.h"
#include "gpu/processors/color_twist.h"
#include "gpu/processors/combine.h"
#include "gpu/processors/copy.h"
#include "gpu/processors/mix.h"
#include "gpu/processors/noise_gen.h"
#include "gpu/processors/resize.h"
#include "gpu/processors/smooth.h"
#include "host/gl/renderer.h"

namespace brushworks::GPUProcessors {
namespace {

constexpr int kWidth = 1920, kHeight = 1080;

/// Three pictures of noise on the card, and the operations over them.
class Bench {
  public:
    explicit Bench(host::gl::Renderer& renderer)
        : m_a(m_helper), m_b(m_helper), m_target(m_helper) {
        m_helper.SetParams(&renderer.hostGL(), &renderer.context());
        m_helper.SetGLStates();
        m_helper.ConfigProjectionMatrix(kWidth, kHeight);
        m_helper.ConfigModelViewMatrix();
        for (ScratchTexture* texture : {&m_a, &m_b, &m_target})
            if (!texture->Make(kWidth, kHeight, PixelFormatBGRA8) ||
                !CNoiseGen(&m_helper).Process(*texture))
                std::fputs("gpu_bench: no texture\n", stderr);
        m_half = m_a;
        m_half.nWidth /= 2;
        m_half.nHeight /= 2;
    }

    void RegisterAll() {
        static float matrix[3][4] = {{0.9f, 0.1f, 0, 0}, {0, 0.9f, 0.1f, 0}, {0.1f, 0, 0.9f, 0}};
        Register("copy", [this] { return CCopy(&m_helper).Process(m_a, m_target); });
        Register("resize/twice", [this] { return CResize(&m_helper).Process(m_half, m_target); });
        Register("clamp", [this] { return CClamp(&m_helper).Process(m_a, m_target, 0, 1); });
        Register("twist", [this] { return CColorTwist(&m_helper).Process(m_a, m_target, matrix); });
        Register("combine", [this] {
            return CCombine(&m_helper).Process(m_a, m_b, m_target, 1.5f, -0.5f, 0, 1);
        });
        Register("mix", [this] { return CMix(&m_helper).Process(m_a, m_b, m_target, 0.5f); });
        Register("noise", [this] { return CNoiseGen(&m_helper).Process(m_target); });
        for (unsigned int mode = CBlend::kHue; mode <= CBlend::kNegation; ++mode)
            Register("blend/" + std::to_string(mode), [this, mode] {
                return CBlend(&m_helper).Process(m_a, m_b, m_target,
                                                 static_cast<CBlend::BlendTypeEnum>(mode), false);
            });
        for (int size : {5, 41, 201})
            Register("blur/" + std::to_string(size), [this, size] {
                return CBlur(&m_helper).Process(m_a, m_target, size, size, nullptr, true);
            });
        for (const auto& [span, radius] : {std::pair{15, 0.11f}, std::pair{33, 0.25f}})
            Register("smooth/" + std::to_string(span), [this, radius = radius] {
                return CSmooth(&m_helper).Process(m_a, m_target, 1, 0.6f, radius, 0, false);
            });
    }

  private:
    static void Register(const std::string& name, const std::function<bool()>& draw) {
        const auto finish = reinterpret_cast<void (*)()>(FindGLProcedure("glFinish"));
        benchmark::RegisterBenchmark(name.c_str(),
                                     [=](benchmark::State& state) {
                                         for (auto _ : state) {
                                             if (!draw()) state.SkipWithError("does not draw");
                                             finish();
                                         }
                                     })
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    }

    GPUHelper m_helper;
    ScratchTexture m_a, m_b, m_target;
    TextureParams m_half;
};

}  // namespace
}  // namespace brushworks::GPUProcessors

int main(int argc, char** argv) try {
    using namespace brushworks;
    benchmark::Initialize(&argc, argv);
    host::gl::Renderer renderer = host::gl::Renderer::create();
    std::printf("%s\n", renderer.description().renderer.c_str());
    GPUProcessors::Bench bench(renderer);
    bench.RegisterAll();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "gpu_bench: %s\n", failure.what());
    return 1;
}
