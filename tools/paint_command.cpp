// Sends each input on its way: pictures several at once, videos one after another.
#include "paint_command.h"

#include <filesystem>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "input_files.h"
#include "media/log.h"
#include "media/reader.h"
#include "paint_pictures.h"
#include "paint_run.h"
#include "paint_task.h"
#include "paint_video.h"

namespace brushworks::tools {
namespace {

/// Whether each picture of the input becomes one of its own.
bool isPictures(const PaintTask& task) {
    if (!task.format().picture) return false;
    if (!task.names || task.sequence) return true;
    return task.input != "-" && media::Reader::isPictureFile(task.input);
}

/// A folder that goes again when nothing came into it.
class NewFolder {
  public:
    explicit NewFolder(const std::string& path) {
        if (std::filesystem::create_directory(path)) m_sPath = path;
    }
    ~NewFolder() {
        std::error_code ignored;
        if (!m_sPath.empty()) std::filesystem::remove(m_sPath, ignored);
    }
    NewFolder(const NewFolder&) = delete;
    NewFolder& operator=(const NewFolder&) = delete;

  private:
    std::string m_sPath;
};

/// Throws when an output would be an input or another output, as far as their names are known:
/// those of a video's pictures are when its frames are counted.
void refuseSameFiles(const InputFiles& inputs, const std::vector<PictureTask>& pictures,
                     const std::vector<const PaintTask*>& videos) {
    FilePlaces places;
    std::set<std::string> taken;
    const auto check = [&](const std::string& output) {
        inputs.refuse(output);
        if (taken.insert(places.of(output)).second) return;
        throw std::runtime_error("two inputs would both become " + output);
    };
    for (const PictureTask& picture : pictures) check(picture.output);
    for (const PaintTask* task : videos) {
        if (!task->names) check(task->output);
    }
}

}  // namespace

void paint(const host::Library& library, const PaintOptions& options, std::ostream& out) {
    media::captureLog();
    failOnWriting();
    const std::vector<PaintTask> tasks = paintTasks(options);
    std::optional<NewFolder> folder;
    if (isFolderOutput(options) && !options.dryRun) folder.emplace(options.output);

    std::vector<PictureTask> pictures;
    std::vector<const PaintTask*> videos;
    for (const PaintTask& task : tasks) {
        if (isPictures(task)) {
            for (PictureTask& picture : picturesOf(task, options)) {
                pictures.push_back(std::move(picture));
            }
        } else {
            videos.push_back(&task);
        }
    }
    const InputFiles inputs = inputsOf(tasks, options);
    refuseSameFiles(inputs, pictures, videos);
    PaintRun run(library, options, inputs, out, tasks.size() == 1);
    if (!pictures.empty()) paintPictures(run, pictures);
    for (const PaintTask* task : videos) paintVideo(run, *task);
    run.finish();
}

}  // namespace brushworks::tools
