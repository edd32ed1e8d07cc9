// FFmpeg's palette filters, run over one frame at a time.
#include "media/palette.h"

extern "C" {
#include <libavfilter/avfilter.h>
#include <libavfilter/buffersink.h>
#include <libavfilter/buffersrc.h>
}

#include <string>

namespace brushworks::media {
namespace {

constexpr char kFilters[] =
    "split[look][use];[look]palettegen=stats_mode=single[colors];"
    "[use][colors]paletteuse=new=1:dither=sierra2_4a,buffersink@out";

struct GraphCloser {
    void operator()(AVFilterGraph* graph) const { avfilter_graph_free(&graph); }
};
using GraphPtr = std::unique_ptr<AVFilterGraph, GraphCloser>;

}  // namespace

FramePtr withPalette(const AVFrame& bgra) {
    const std::string failure = "cannot choose the colours of a frame";
    const GraphPtr graph = owned<GraphPtr>(avfilter_graph_alloc());
    graph->nb_threads = 1;  // frames are spread over threads already
    const std::string source = "buffer@in=video_size=" + std::to_string(bgra.width) + "x" +
                               std::to_string(bgra.height) + ":pix_fmt=bgra:time_base=1/1,";
    AVFilterInOut* openIn = nullptr;
    AVFilterInOut* openOut = nullptr;
    const int parsed =
        avfilter_graph_parse2(graph.get(), (source + kFilters).c_str(), &openIn, &openOut);
    avfilter_inout_free(&openIn);
    avfilter_inout_free(&openOut);
    check(parsed, failure);
    check(avfilter_graph_config(graph.get(), nullptr), failure);
    AVFilterContext* in = avfilter_graph_get_filter(graph.get(), "buffer@in");
    AVFilterContext* out = avfilter_graph_get_filter(graph.get(), "buffersink@out");
    if (in == nullptr || out == nullptr) throw MediaError(failure);

    const FramePtr pushed = owned<FramePtr>(av_frame_clone(&bgra));
    pushed->pts = 0;
    check(av_buffersrc_add_frame(in, pushed.get()), failure);
    check(av_buffersrc_add_frame(in, nullptr), failure);
    FramePtr paletted = newFrame();
    check(av_buffersink_get_frame(out, paletted.get()), failure);
    return paletted;
}

}  // namespace brushworks::media
