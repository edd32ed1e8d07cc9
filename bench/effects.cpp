// Times whole renders: every effect with its defaults and with every preset, through the library as
// a host loads it, on a picture brought to 1920 by 1080. bench/effects runs this and prints a
// table.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <exception>
#include <memory>
#include <string>

#include "host/frame_params.h"
#include "host/library.h"
#include "media/raster.h"
#include "media/reader.h"

namespace {

using namespace brushworks;

constexpr int kWidth = 1920, kHeight = 1080;

media::FramePtr ReadPicture(const std::string& path) {
    const media::FramePtr decoded = media::Reader(path).next();
    const media::Raster raster = media::bgraRaster(kWidth, kHeight);
    media::FramePtr picture = media::allocateFrame(raster);
    media::RasterConverter().convert(*decoded, media::rasterOf(*decoded), *picture, raster, false);
    return picture;
}

FrameParams RecordOf(const AVFrame& frame) {
    return host::frameParams(frame.data[0], frame.width, frame.height, frame.linesize[0],
                             PixelFormatBGRA8);
}

/// Registers the render with the values that the effect has now.
void Register(const std::string& values, const host::Effect& effect,
              const std::shared_ptr<const AVFrame>& picture) {
    const std::string name = effect.info().id + "/" + values;
    benchmark::RegisterBenchmark(name.c_str(), [=, own = effect.clone()](benchmark::State& state) {
        host::Effect painter = own.clone();
        const media::FramePtr painted = media::allocateFrame(media::bgraRaster(kWidth, kHeight));
        for (auto _ : state)
            if (!painter.render(RecordOf(*picture), RecordOf(*painted), {}))
                state.SkipWithError("does not render");
    })->Unit(benchmark::kMillisecond);
}

void RegisterAll(const std::string& path) {
    const host::Library library = host::Library::load("", {.name = "bench", .services = {}});
    const std::shared_ptr<const AVFrame> picture = ReadPicture(path);
    for (const host::EffectEntry& entry : library.effects()) {
        host::Effect effect = library.open(entry.index);
        Register("defaults", effect, picture);
        for (const host::Preset& preset : effect.info().presets) {
            effect.apply(preset);
            Register(preset.name, effect, picture);
        }
    }
}

}  // namespace

int main(int argc, char** argv) try {
    benchmark::Initialize(&argc, argv);
    if (argc != 2) {
        std::fputs("usage: effects_bench [--benchmark_...] PICTURE\n", stderr);
        return 2;
    }
    RegisterAll(argv[1]);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
} catch (const std::exception& failure) {
    std::fprintf(stderr, "effects_bench: %s\n", failure.what());
    return 1;
}
