// brushworks: the command line. Exit status: 0 done, 1 failed, 2 wrong usage.
#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <limits>
#include <ostream>

#include "before_after.h"
#include "codecs_command.h"
#include "command_table.h"
#include "completion_command.h"
#include "describe_command.h"
#include "gallery_command.h"
#include "gpu_command.h"
#include "host/error.h"
#include "host/library.h"
#include "manual.h"
#include "media/error.h"
#include "misspelling.h"
#include "notes.h"
#include "paint_command.h"
#include "preset_command.h"
#include "printable_output.h"
#include "progress.h"

namespace {

using namespace brushworks;

constexpr int kFailed = 1;
constexpr int kWrongUsage = 2;
constexpr int kMostJobs = 1024;

host::Library loadLibrary() {
    return host::Library::load("", {.name = "brushworks", .services = {}});
}

void addList(CLI::App& app) {
    CLI::App* list = app.add_subcommand("list", "List the effects: index, id, display name");
    list->callback([] { tools::listEffects(loadLibrary(), std::cout); });
}

/// `data` is standard output for programs; people read std::cout.
void addInfo(CLI::App& app, std::ostream& data) {
    CLI::App* info = app.add_subcommand("info", "Tell an effect's parameters and presets");
    const auto effect = std::make_shared<std::string>();
    const auto json = std::make_shared<bool>(false);
    info->add_option("EFFECT", *effect, "Id, display name or index of an effect")->required();
    info->add_flag("--json", *json, "Write JSON, with the values of the presets");
    info->callback([=, &data] {
        const host::Effect opened = loadLibrary().open(*effect);
        if (*json) {
            tools::describeEffectAsJson(opened.info(), data);
        } else {
            tools::describeEffect(opened.info(), std::cout);
        }
    });
}

void addCodecs(CLI::App& app) {
    CLI::App* codecs =
        app.add_subcommand("codecs", "List the encoders of outputs and what their quality means");
    codecs->callback([] { tools::listCodecs(std::cout); });
}

/// The options for what an effect starts from and what is set then; returns the one for a preset.
CLI::Option* addValues(CLI::App& app, tools::EffectChoice& choice, const std::string& more = "") {
    CLI::Option* preset =
        app.add_option("-p,--preset", choice.preset, "Start from this preset of the effect")
            ->type_name(tools::kPresetKind);
    app.add_option("-s,--set", choice.values,
                   "Set a parameter, as 'info' names it; may be given again" + more)
        ->type_name(tools::kSettingKind)
        ->allow_extra_args(false);
    return preset;
}

void addEncoding(CLI::App& paint, media::EncodingChoice& choice) {
    constexpr int kBestQuality = 100;
    paint
        .add_option("--codec", choice.codec,
                    "Encoder of the output, such as h264, hevc, vp9, av1, prores, ffv1, or as "
                    "FFmpeg names it; see 'codecs' (default: by the type of the output)")
        ->type_name(tools::kCodecKind);
    paint
        .add_option("--quality", choice.quality,
                    "Quality of a lossy output, 0 (small) to 100 (as good as the encoder can)")
        ->type_name("N")
        ->check(CLI::Range(0, kBestQuality));
    paint
        .add_option("--pix-fmt", choice.pixelFormat,
                    "Pixel format of the output, as FFmpeg names it (default: the nearest to the "
                    "input's that the encoder takes)")
        ->type_name("FORMAT");
    paint.add_flag("--lossless", choice.lossless, "Encode without any loss");
}

/// The options for trying things out.
void addLook(CLI::App& paint, tools::PaintOptions& options) {
    CLI::Option* scale =
        paint
            .add_option("--scale", options.scale,
                        "Scale before painting: 1280:720, 1280: or :720 (the other side follows), "
                        "50%, or fit:1280:720 (reduce what is larger). Strokes grow with the "
                        "height, so the look stays")
            ->type_name("SIZE");
    paint
        .add_flag("--preview", options.preview,
                  "A quick look: at most 480 lines, and of a video the first 2 seconds")
        ->excludes(scale);
    tools::limitTo(
        paint.add_flag("--before-after{left}", options.keptHalf,
                       "Paint one half and leave the other one, the left unless =top is added, "
                       "with a line between"),
        tools::keptHalfNames());
    paint.add_flag("--dry-run", options.dryRun,
                   "Tell what would be done, and what would fail at once; write nothing");
}

/// The options for sequences and parts.
void addPart(CLI::App& paint, tools::PaintOptions& options) {
    paint
        .add_option("--frames", options.frames,
                    "Paint this part: A-B, A-, -B or A, counted from 0 and with both ends; the "
                    "frames are those of the whole, and their times begin at its beginning")
        ->type_name("A-B");
    paint
        .add_option("--start", options.start,
                    "First number of a sequence (default: the lowest that is there; of pictures "
                    "made from a video 0)")
        ->type_name("N")
        ->check(CLI::Range(std::int64_t{0}, std::int64_t{1} << 53));
    paint
        .add_option("--fps", options.rate,
                    "Frames a second: of a sequence (default 25), or instead of a video's own "
                    "times; such as 25, 23.976 or 30000/1001")
        ->type_name("R");
    paint.add_flag("--resume", options.resume,
                   "Go on after a run that was stopped: outputs that are there are left");
}

/// The options for what is done at once.
void addWork(CLI::App& app, const std::string& jobsHelp, int& jobs, std::string& memory) {
    app.add_option("-j,--jobs", jobs, jobsHelp)->type_name("N")->check(CLI::Range(1, kMostJobs));
    app.add_option("--memory", memory,
                   "Memory to use at most, such as 800M or 2G, or a share of what is free, such as "
                   "80% (default: 50%); where it is short, fewer jobs run at once")
        ->type_name("SIZE");
}

/// The options for what is said meanwhile.
void addTalk(CLI::App& app, bool& quiet, std::string& progress) {
    tools::limitTo(
        app.add_option("--progress", progress,
                       "Progress on standard error: a bar (the default on a terminal), lines of "
                       "KEY=VALUE for programs, or none"),
        tools::progressStyleNames());
    app.add_flag("-q,--quiet", quiet, "No notes, and no progress unless --progress asks for it");
}

void addPaint(CLI::App& app) {
    CLI::App* paint = app.add_subcommand("paint", "Paint a picture or a video");
    const auto options = std::make_shared<tools::PaintOptions>();
    paint
        ->add_option("INPUT", options->inputs,
                     "Picture or video to paint, several with a folder as output; "
                     "frame-%04d.png for a sequence; - for YUV4MPEG2 on standard input")
        ->required();
    tools::EffectChoice& choice = options->choice;
    paint->add_option("-e,--effect", choice.effect, "Id, display name or index of an effect")
        ->type_name(tools::kEffectKind)
        ->required();
    CLI::Option* preset = addValues(
        *paint, choice,
        ". NAME=VALUE@TIME,VALUE@TIME moves it over a video, such as size=10@0s,60@4s: times in s, "
        "ms, f (frames) or h:m:s; ~ in place of the comma eases");
    paint->add_option("--preset-file", choice.presetFile, "Start from this preset file")
        ->type_name(tools::kFileKind)
        ->check(CLI::Validator(
            [](const std::string& name) { return name.empty() ? "it names no file" : ""; }, ""))
        ->excludes(preset);
    paint
        ->add_option("-o,--output", options->output,
                     "File to write; its extension tells the type: .png, .jpg, .tif, .webp, .ppm; "
                     ".mp4, .mov, .mkv, .webm, .gif, .avi, .y4m; - for YUV4MPEG2 on standard "
                     "output; out-%04d.png for a picture of each frame; or a folder, as out/")
        ->type_name(tools::kFileKind)
        ->required();
    addEncoding(*paint, options->encoding);
    addWork(*paint, "Frames to render at once (default: all cores)", options->jobs,
            options->memory);
    paint
        ->add_option("--seed", options->seed,
                     "Seed of random strokes, the same for all frames unless --hold is given")
        ->type_name("N")
        ->capture_default_str();
    paint
        ->add_option("--hold", options->hold,
                     "Change random strokes every N frames of a video: the seed counts on there "
                     "(default: they stay throughout)")
        ->type_name("N")
        ->check(CLI::Range(1, std::numeric_limits<int>::max()));
    addPart(*paint, *options);
    addLook(*paint, *options);
    const auto gpu = std::make_shared<std::string>();
    tools::limitTo(
        paint->add_flag("--gpu{any}", *gpu,
                        "Render on the graphics card or, without one, with OpenGL on the "
                        "processor; =hardware wants a graphics card, =auto goes on without "
                        "OpenGL where there is none or it cannot render the effect"),
        tools::gpuWords());
    paint->add_flag("--fields", options->fields, "Paint the two fields of each frame separately");
    paint->add_flag("-f,--force", options->force, "Replace an existing output")
        ->excludes("--resume");
    addTalk(*paint, options->quiet, options->progress);
    paint->callback([=] {
        options->gpu = tools::gpuUseOf(*gpu);
        tools::paint(loadLibrary(), *options, std::cout);
    });
}

void addPresetSave(CLI::App& preset) {
    CLI::App* save = preset.add_subcommand(
        "save", "Write an effect's defaults, or a preset, with values set, to a preset file");
    const auto options = std::make_shared<tools::PresetSaveOptions>();
    save->add_option("EFFECT", options->choice.effect, "Id, display name or index of an effect")
        ->required();
    addValues(*save, options->choice);
    save->add_option("--name", options->name,
                     "Name of the saved preset (default: that of --preset, or else of the file)")
        ->type_name("NAME");
    save->add_option(
            "-o,--output", options->output,
            "File to write; hosts look for the extension of the effect, which a note tells "
            "where another is given")
        ->type_name(tools::kFileKind)
        ->required();
    save->add_flag("-f,--force", options->force, "Replace an existing file");
    save->callback([=] { tools::savePreset(loadLibrary(), *options); });
}

void addPresetShow(CLI::App& preset, std::ostream& data) {
    CLI::App* show = preset.add_subcommand("show", "Tell what a preset file holds");
    const auto file = std::make_shared<std::string>();
    const auto json = std::make_shared<bool>(false);
    show->add_option("FILE", *file, "Preset file of any effect")->required();
    show->add_flag("--json", *json, "Write JSON");
    show->callback(
        [=, &data] { tools::showPreset(loadLibrary(), *file, *json, *json ? data : std::cout); });
}

void addPreset(CLI::App& app, std::ostream& data) {
    CLI::App* preset = app.add_subcommand("preset", "Save and show preset files");
    // One page of help tells all; the commands below are small.
    preset->set_help_flag();
    preset->set_help_all_flag("-h,--help", "Print this help message and exit");
    preset->require_subcommand(1);
    addPresetSave(*preset);
    addPresetShow(*preset, data);
}

void addGallery(CLI::App& app) {
    CLI::App* gallery = app.add_subcommand(
        "gallery", "Show every effect and preset on a picture: a folder with a page to open");
    const auto options = std::make_shared<tools::GalleryOptions>();
    gallery->add_option("INPUT", options->input, "Picture to paint; of a video the first frame")
        ->required();
    gallery
        ->add_option("-o,--output", options->output,
                     "Folder to write; it must be new, empty or an older gallery")
        ->type_name(tools::kFolderKind)
        ->required();
    gallery
        ->add_option("-e,--effect", options->effects,
                     "Show this effect alone, by id, display name or index; may be given again")
        ->type_name(tools::kEffectKind)
        ->allow_extra_args(false);
    gallery
        ->add_option("--width", options->width,
                     "Reduce wider pictures to this width before they are painted; strokes grow "
                     "with the height of a picture, so the look stays")
        ->type_name("N")
        ->check(CLI::Range(16, 16384))
        ->capture_default_str();
    addWork(*gallery, "Pictures to paint at once (default: all cores)", options->jobs,
            options->memory);
    gallery->add_flag("-f,--force", options->force, "Replace an older gallery");
    addTalk(*gallery, options->quiet, options->progress);
    gallery->callback([=] { tools::gallery(loadLibrary(), *options); });
}

void addGpu(CLI::App& app, std::ostream& data) {
    CLI::App* gpu = app.add_subcommand(
        "gpu", "Tell what OpenGL renders here, and which effects render with it");
    const auto options = std::make_shared<tools::GpuOptions>();
    gpu->add_flag("--hardware", options->hardware, "Look for a graphics card alone");
    gpu->add_flag("--json", options->json, "Write JSON");
    gpu->callback([=, &data] {
        tools::describeGpu(loadLibrary(), *options, options->json ? data : std::cout);
    });
}

void addCompletion(CLI::App& app, std::ostream& data) {
    CLI::App* completion =
        app.add_subcommand("completion",
                           "Print the script by which a shell completes; installed ones are loaded "
                           "by themselves");
    const auto shell = std::make_shared<std::string>();
    tools::limitTo(completion->add_option("SHELL", *shell, "Shell to print it for")->required(),
                   tools::completionShells());
    completion->callback([=, &data] { tools::writeCompletionScript(*shell, data); });

    // What the scripts ask; the words of a half typed line are nothing to parse.
    CLI::App* answer = app.add_subcommand("complete", "Answer a script of 'completion'");
    answer->group("")->set_help_flag();
    answer->prefix_command();
    answer->callback([&app, &data, answer] {
        tools::answerCompletion(app, loadLibrary, answer->remaining(), data);
    });
}

void addManual(CLI::App& app, std::ostream& data) {
    CLI::App* manual =
        app.add_subcommand("manual", "Print the manual page, to read with 'man -l -'");
    manual->callback([&app, &data] { tools::writeManual(app, loadLibrary(), data); });
}

int fail(const std::exception& error, int status) {
    tools::say(error.what());
    return status;
}

int run(int count, char** arguments, std::ostream& data) {
    CLI::App app("Twelve painterly effects for pictures and videos", "brushworks");
    app.set_version_flag("--version", BRUSHWORKS_VERSION);
    app.require_subcommand(1);
    app.failure_message([](const CLI::App*, const CLI::Error& error) {
        return std::string("brushworks: ") + error.what() + "; --help tells more\n";
    });
    addList(app);
    addInfo(app, data);
    addPaint(app);
    addPreset(app, data);
    addGallery(app);
    addCodecs(app);
    addGpu(app, data);
    addCompletion(app, data);
    addManual(app, data);
    try {
        app.parse(count, arguments);
        // A full disk behind a pipe or a redirection is a failure like any other.
        std::cout.flush();
        data.flush();
        return std::cout && data ? 0 : fail(std::runtime_error("cannot write the output"), kFailed);
    } catch (const CLI::ParseError& error) {
        const std::string unknown = error.get_exit_code() != 0 ? tools::unknownWord(app) : "";
        if (!unknown.empty()) return fail(host::UsageError(unknown), kWrongUsage);
        return app.exit(error) == 0 ? 0 : kWrongUsage;
    } catch (const host::UsageError& error) {
        return fail(error, kWrongUsage);
    } catch (const media::MediaUsageError& error) {
        return fail(error, kWrongUsage);
    } catch (const std::exception& error) {
        return fail(error, kFailed);
    }
}

}  // namespace

int main(int count, char** arguments) {
    std::ostream data(std::cout.rdbuf());
    const tools::PrintableOutput out(std::cout);
    const tools::PrintableOutput talk(std::cerr);
    try {
        return run(count, arguments, data);
    } catch (const std::exception& error) {
        return fail(error, kFailed);
    }
}
