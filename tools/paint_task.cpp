// Names outputs after inputs.
#include "paint_task.h"

#include <algorithm>
#include <filesystem>

#include "host/error.h"
#include "host/names.h"
#include "media/reader.h"

namespace brushworks::tools {
namespace {

namespace fs = std::filesystem;

/// Types for inputs whose own cannot be written.
constexpr char kUsualPicture[] = ".png";
constexpr char kUsualVideo[] = ".mkv";

bool isWritable(const fs::path& path) {
    const std::string extension = host::foldCase(path.extension().string());
    for (const media::OutputFormat& format : media::outputFormats()) {
        if (extension == std::string(".") + format.extension) return true;
    }
    return false;
}

std::string nameIn(const std::string& folder, const PaintTask& task) {
    fs::path name = fs::path(task.input).filename();
    if (!isWritable(name)) {
        const std::string first = task.sequence ? task.sequence->at(0) : task.input;
        const bool picture = task.sequence || media::Reader::isPictureFile(first);
        name.replace_extension(picture ? kUsualPicture : kUsualVideo);
    }
    return (fs::path(folder) / name).string();
}

void checkKinds(const PaintTask& task) {
    if (!task.sequence || !task.format().picture || task.names) return;
    throw host::UsageError(
        task.input +
        " is a sequence; its output must be a video, or have a place for the number, "
        "such as out-%04d." +
        task.format().extension);
}

}  // namespace

const media::OutputFormat& PaintTask::format() const {
    try {
        return media::outputFormatOf(output);
    } catch (const media::MediaUsageError& error) {
        // A slip in the extension is answered with the nearest one.
        std::vector<std::string> extensions;
        for (const media::OutputFormat& format : media::outputFormats()) {
            extensions.emplace_back(format.extension);
        }
        const std::string typed = fs::path(output).extension().string();
        const std::string nearest =
            typed.empty() ? "" : host::didYouMean(typed.substr(1), extensions);
        throw media::MediaUsageError(error.what() + nearest);
    }
}

bool isFolderOutput(const PaintOptions& options) {
    if (options.inputs.size() > 1 || options.output.ends_with('/')) return true;
    std::error_code ignored;
    return !isWritable(options.output) && fs::is_directory(options.output, ignored);
}

std::vector<PaintTask> paintTasks(const PaintOptions& options) {
    const bool folder = isFolderOutput(options);
    if (folder && (options.output == "-" || isWritable(options.output))) {
        throw host::UsageError("several inputs need a folder as their output, such as painted/");
    }
    std::vector<PaintTask> tasks;
    for (const std::string& input : options.inputs) {
        PaintTask task = {input, options.output};
        if (input != "-") task.sequence = findSequence(input, options.start);
        if (folder) {
            if (input == "-") throw host::UsageError("standard input has no name in a folder");
            task.output = nameIn(options.output, task);
        }
        if (task.format().picture) task.names = NumberedName::parse(task.output);
        // The picture is itself what its name says, and so is its copy.
        if (folder && !task.sequence) task.names.reset();
        task.firstName =
            task.sequence ? task.sequence->start : std::max<std::int64_t>(options.start, 0);
        checkKinds(task);
        tasks.push_back(std::move(task));
    }
    return tasks;
}

InputFiles inputsOf(const std::vector<PaintTask>& tasks, const PaintOptions& options) {
    InputFiles inputs;
    for (const PaintTask& task : tasks) {
        if (!task.sequence) inputs.add(task.input);
        const std::int64_t count = task.sequence ? task.sequence->count : 0;
        for (std::int64_t i = 0; i < count; ++i) inputs.add(task.sequence->at(i));
    }
    if (!options.choice.presetFile.empty()) inputs.add(options.choice.presetFile);
    return inputs;
}

}  // namespace brushworks::tools
