// Renders and encodes on all threads, and takes the times.
#include "gallery_painter.h"

#include <time.h>

#include <new>
#include <optional>
#include <stdexcept>
#include <utility>

#include "media/raster.h"
#include "ordered_pool.h"
#include "render_frame.h"

namespace brushworks::tools {
namespace {

namespace fs = std::filesystem;

/// A picture to paint.
struct Job {
    host::Effect effect;
    std::string path;
};
/// The seconds that the render took; nothing when the effect rendered nothing.
using JobResult = std::optional<double>;
using Pool = OrderedPool<Job, JobResult>;

/// Of this thread alone, so that what else the machine does hardly counts.
double processorSeconds() {
    timespec now = {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

JobResult paintPicture(const StillPicture& original, Job& job) {
    const media::Raster raster = media::bgraRaster(original.frame->width, original.frame->height);
    // A copy for each, since an effect may write into its source.
    const media::FramePtr source = media::allocateFrame(raster);
    const media::FramePtr painted = media::allocateFrame(raster);
    if (av_frame_copy(source.get(), original.frame.get()) < 0) throw std::bad_alloc();
    RenderSettings settings;
    if (original.squarePixels) settings.pixelAspect = {1, 1};
    const double start = processorSeconds();
    ProcessorRenderer renderer;
    if (!renderFrame(renderer, job.effect, settings, recordOf(*source), recordOf(*painted))) {
        return std::nullopt;
    }
    const double seconds = processorSeconds() - start;
    writeStill(*painted, job.path);
    return seconds;
}

Job jobOf(const host::Effect& effect, const GalleryCard& card, const fs::path& folder) {
    Job job = {effect.clone(), (folder / card.file).string()};
    for (const host::ParameterInfo& parameter : effect.info().parameters) {
        if (parameter.hasValue()) job.effect.setValue(parameter, card.values.at(parameter.index));
    }
    return job;
}

/// Sees to it that an effect renders all of its cards or none.
class Refusals {
  public:
    void count(const GallerySection& section, const GalleryCard& card, bool rendered) {
        (rendered ? m_bRendered : m_bRefused) = true;
        if (!rendered && m_sRefused.empty()) m_sRefused = card.title;
        if (!m_bRendered || !m_bRefused) return;
        throw std::runtime_error("the effect " + section.effect.id + " could not render \"" +
                                 m_sRefused + "\"");
    }
    bool all() const { return m_bRefused; }

  private:
    bool m_bRendered = false;
    bool m_bRefused = false;
    std::string m_sRefused;
};

}  // namespace

void paintSections(const std::vector<host::Effect>& effects, const StillPicture& original,
                   const fs::path& folder, int jobs, ProgressStyle style,
                   std::vector<GallerySection>& sections) {
    struct Place {
        std::size_t section;
        std::size_t card;
    };
    std::vector<Place> places;
    for (std::size_t section = 0; section < sections.size(); ++section) {
        for (std::size_t card = 0; card < sections[section].cards.size(); ++card) {
            places.push_back({section, card});
        }
    }
    const auto paint = [&](Job job) { return paintPicture(original, job); };
    const auto threads = static_cast<std::size_t>(jobs);
    Pool pool(std::vector<Pool::Worker>(threads, paint), threads * 2);
    Progress progress(static_cast<std::int64_t>(places.size()),
                      {"pictures", "a second", "picture", "pictures_per_s"}, style);
    std::vector<Refusals> refusals(sections.size());
    std::size_t submitted = 0;
    for (const Place& place : places) {
        for (; submitted < places.size() && pool.hasRoom(); ++submitted) {
            const auto& [section, card] = places[submitted];
            pool.submit(jobOf(effects[section], sections[section].cards[card], folder));
        }
        GallerySection& section = sections[place.section];
        const JobResult seconds = pool.take();
        refusals[place.section].count(section, section.cards[place.card], seconds.has_value());
        section.cards[place.card].seconds = seconds.value_or(0);
        progress.step();
    }
    progress.finish();
    for (std::size_t i = 0; i < sections.size(); ++i) {
        if (refusals[i].all()) sections[i].cards.clear();
    }
}

}  // namespace brushworks::tools
