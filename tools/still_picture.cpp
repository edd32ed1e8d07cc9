// Reads, turns and reduces; writes.
#include "still_picture.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include "media/encoder.h"
#include "media/orientation.h"
#include "media/output_format.h"
#include "media/output_raster.h"
#include "media/raster.h"
#include "media/reader.h"
#include "media/writer.h"

namespace brushworks::tools {
namespace {

struct Size {
    int width;
    int height;
};

/// The size with square pixels, whatever their `aspect`, and at most `maxWidth`; no side grows.
Size reduced(Size full, AVRational aspect, int maxWidth) {
    double width = full.width;
    double height = full.height;
    if (aspect.num > 0 && aspect.den > 0) {
        const double shape = av_q2d(aspect);
        (shape < 1 ? width : height) *= std::min(shape, 1 / shape);
    }
    const double scale = std::min(1.0, maxWidth / width);
    const auto side = [&](double length) {
        return std::max(1, static_cast<int>(std::lround(length * scale)));
    };
    return {side(width), side(height)};
}

}  // namespace

StillPicture readStill(const std::string& path, int maxWidth, const media::FrameLimit& limit) {
    media::Reader reader(path, limit);
    const media::FramePtr recorded = reader.next();
    const media::Orientation orientation = reader.orientation(*recorded);
    AVRational aspect = reader.sampleAspect(*recorded);
    Size full = {recorded->width, recorded->height};
    if (orientation.swapsSides()) {
        std::swap(full.width, full.height);
        std::swap(aspect.num, aspect.den);
    }
    const Size upright = reduced(full, aspect, maxWidth);
    const media::Raster raster = media::bgraRaster(upright.width, upright.height);
    media::Raster lying = raster;
    if (orientation.swapsSides()) std::swap(lying.width, lying.height);

    StillPicture picture;
    picture.frame = media::allocateFrame(lying);
    media::RasterConverter().convert(*recorded, media::rasterOf(*recorded), *picture.frame, lying,
                                     /*fields=*/false);
    if (!orientation.isUpright()) {
        media::FramePtr turned = media::allocateFrame(raster);
        media::turn(media::viewOf(*picture.frame), orientation, media::viewOf(*turned));
        picture.frame = std::move(turned);
    }
    picture.fullWidth = full.width;
    picture.fullHeight = full.height;
    picture.squarePixels = aspect.num > 0 && aspect.den > 0;
    picture.video = !reader.isPicture();
    return picture;
}

bool isTransparent(const AVFrame& bgra) {
    for (int y = 0; y < bgra.height; ++y) {
        const std::uint8_t* row = bgra.data[0] + static_cast<std::ptrdiff_t>(y) * bgra.linesize[0];
        for (int x = 0; x < bgra.width; ++x) {
            if (row[x * 4 + 3] != 255) return true;
        }
    }
    return false;
}

void writeStill(const AVFrame& bgra, const std::string& path) {
    const media::OutputFormat& format = media::outputFormatOf(path);
    const media::Raster raster = media::bgraRaster(bgra.width, bgra.height);
    media::VideoSettings settings;
    settings.encoding = media::chooseEncoding(format, {}, raster.format);
    settings.raster = media::outputRaster(settings.encoding, raster, bgra.width, bgra.height);
    const media::FramePtr coded = media::allocateFrame(settings.raster);
    media::RasterConverter().convert(bgra, raster, *coded, settings.raster, /*fields=*/false);
    coded->pts = 0;
    media::Writer writer(path, format, settings);
    writer.writeFrame(*coded);
    writer.finish();
}

}  // namespace brushworks::tools
