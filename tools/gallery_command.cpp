// Lists the pictures, paints them on all threads, and writes the page.
#include "gallery_command.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <set>
#include <stdexcept>
#include <utility>

#include "file_names.h"
#include "frame_memory.h"
#include "gallery_page.h"
#include "gallery_painter.h"
#include "host/names.h"
#include "job_count.h"
#include "media/log.h"
#include "media/output_format.h"
#include "memory_limit.h"
#include "notes.h"
#include "output_folder.h"
#include "progress.h"
#include "shell_text.h"
#include "still_picture.h"

namespace brushworks::tools {
namespace {

namespace fs = std::filesystem;

std::vector<host::Effect> chosenEffects(const host::Library& library,
                                        const GalleryOptions& options) {
    std::vector<host::Effect> effects;
    std::set<unsigned int> seen;
    for (const std::string& name : options.effects) {
        host::Effect effect = library.open(name);
        if (seen.insert(effect.info().index).second) effects.push_back(std::move(effect));
    }
    if (!options.effects.empty()) return effects;
    for (const host::EffectEntry& entry : library.effects()) {
        effects.push_back(library.open(entry.index));
    }
    return effects;
}

/// An output of the input's kind, of its own type where that can be written.
std::string paintedName(const std::string& name, const StillPicture& original,
                        const std::string& input) {
    std::string extension = host::foldCase(fs::path(input).extension().string());
    const std::string list = media::extensionList(!original.video) + ",";
    if (extension.empty() || list.find(extension + ",") == std::string::npos) {
        extension = original.video ? ".mp4" : ".png";
    }
    return fs::path(name).replace_extension(extension).string();
}

std::vector<std::string> commandLine(const std::string& input, const host::EffectInfo& effect,
                                     const std::string& preset, const std::string& output) {
    std::vector<std::string> pieces = {"brushworks paint", shellWord(input),
                                       "-e " + shellWord(effect.id)};
    if (!preset.empty()) pieces.push_back("-p " + shellWord(preset));
    pieces.push_back("-o " + shellWord(output));
    return pieces;
}

/// All pictures of an effect, not yet painted: the defaults, then the presets.
GallerySection plannedSection(const host::EffectInfo& info, const GalleryOptions& options,
                              const StillPicture& original, FileNames& names) {
    GallerySection section = {info, {}};
    const auto add = [&](const std::string& title, const std::string& preset,
                         std::vector<EffectParam> values) {
        const std::string file = names.make(info.id + " " + title);
        const std::string output = paintedName(file, original, options.input);
        section.cards.push_back(
            {title, file, std::move(values), commandLine(options.input, info, preset, output)});
    };
    std::vector<EffectParam> defaults;
    for (const host::ParameterInfo& parameter : info.parameters) {
        defaults.push_back(parameter.defaultValue);
    }
    add("Defaults", "", std::move(defaults));
    for (const host::Preset& preset : info.presets) add(preset.name, preset.name, preset.values);
    return section;
}

/// The sections that have pictures; effects that cannot render have none.
std::vector<GallerySection> painted(std::vector<GallerySection> sections,
                                    const GalleryOptions& options, const Notes& note) {
    std::vector<GallerySection> kept;
    std::vector<std::string> without;
    for (GallerySection& section : sections) {
        if (section.cards.empty()) {
            without.push_back(section.effect.id);
        } else {
            kept.push_back(std::move(section));
        }
    }
    const std::string names = host::joinNames(without);
    if (kept.empty()) throw std::runtime_error(options.input + " cannot be rendered by " + names);
    if (!without.empty()) note("left out, since they cannot render: " + names);
    return kept;
}

std::string originalFacts(const StillPicture& original) {
    const auto size = [](int width, int height) {
        return std::to_string(width) + " × " + std::to_string(height);
    };
    std::string facts = original.video ? "the first frame, " : "";
    facts += size(original.fullWidth, original.fullHeight);
    const AVFrame& frame = *original.frame;
    if (frame.width != original.fullWidth || frame.height != original.fullHeight) {
        facts += "; here " + size(frame.width, frame.height);
    }
    return facts;
}

/// As many as there is memory for.
int jobsFor(const StillPicture& original, const GalleryOptions& options, std::int64_t limit,
            const Notes& note) {
    const Size size = {original.frame->width, original.frame->height};
    FrameMemory memory;
    memory.job = pictureMemory(size, AV_PIX_FMT_BGRA, size);
    memory.once = kProgramMemory + memory.job;
    checkFits(options.input, size, memory.with({}), limit, Scaled::Yes);
    const auto asked = static_cast<std::size_t>(jobCount(options.jobs));
    const std::size_t jobs = parallelWithin(memory, limit, asked).jobs;
    if (jobs < asked) note(fewerJobs(jobs, asked, limit));
    return static_cast<int>(jobs);
}

void writePage(const GalleryPage& page, const fs::path& folder) {
    const fs::path path = folder / "index.html";
    std::ofstream file(path, std::ios::binary);
    file << galleryHtml(page);
    file.close();
    if (!file) failWriting(path, errno);
}

}  // namespace

void gallery(const host::Library& library, const GalleryOptions& options) {
    media::captureLog();
    const Notes note(options.quiet);
    const std::vector<host::Effect> effects = chosenEffects(library, options);
    InputFiles inputs;
    inputs.add(options.input);
    OutputFolder output(options.output, options.force, std::move(inputs));
    const fs::path folder = output.temporaryPath();

    const std::int64_t limit = memoryLimit(options.memory, freeMemory());
    const StillPicture original =
        readStill(options.input, options.width, decodingLimit(limit, Scaled::Yes));
    GalleryPage page;
    page.input = fs::path(options.input).filename().string();
    page.originalFacts = originalFacts(original);
    page.width = original.frame->width;
    page.height = original.frame->height;
    page.transparent = isTransparent(*original.frame);
    // JPEG makes pages that load fast; it has no transparency.
    FileNames names(page.transparent ? ".png" : ".jpg");
    page.originalFile = names.make("original");
    writeStill(*original.frame, (folder / page.originalFile).string());

    std::vector<GallerySection> sections;
    sections.reserve(effects.size());
    for (const host::Effect& effect : effects) {
        sections.push_back(plannedSection(effect.info(), options, original, names));
    }
    paintSections(effects, original, folder, jobsFor(original, options, limit, note),
                  progressStyle(options.progress, options.quiet), sections);
    page.sections = painted(std::move(sections), options, note);
    writePage(page, folder);
    output.commit();
}

}  // namespace brushworks::tools
