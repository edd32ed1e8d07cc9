// Starts the command line as a shell would.
#include "testing_command.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace brushworks::tools::testing {
namespace {

namespace fs = std::filesystem;

constexpr char kOut[] = "captured.out";
constexpr char kErr[] = "captured.err";

void redirect(int descriptor, const std::string& path) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    dup2(file, descriptor);
    close(file);
}

}  // namespace

CommandTest::CommandTest() {
    std::string name = (fs::temp_directory_path() / "brushworks-test-XXXXXX").string();
    m_folder = mkdtemp(name.data());
}

CommandTest::~CommandTest() {
    fs::remove_all(m_folder);
}

std::set<std::string> CommandTest::files() const {
    std::set<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(m_folder)) {
        const std::string name = entry.path().filename().string();
        if (name != kOut && name != kErr) names.insert(name);
    }
    return names;
}

pid_t CommandTest::start(const std::vector<std::string>& arguments, const std::string& library) {
    std::vector<char*> words = {const_cast<char*>(BRUSHWORKS_TOOL)};
    for (const std::string& argument : arguments)
        words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    const std::string out = path(kOut);
    const std::string err = path(kErr);
    const pid_t process = fork();
    if (process != 0) return process;
    if (!library.empty()) setenv("BRUSHWORKS_LIBRARY", library.c_str(), 1);
    redirect(STDOUT_FILENO, out);
    redirect(STDERR_FILENO, err);
    if (chdir(m_folder.c_str()) == 0) execv(BRUSHWORKS_TOOL, words.data());
    _exit(127);
}

Result CommandTest::wait(pid_t process) const {
    int status = 0;
    rusage usage = {};
    wait4(process, &status, 0, &usage);
    Result result;
    result.peakBytes = std::int64_t{usage.ru_maxrss} * 1024;
    if (WIFEXITED(status)) result.status = WEXITSTATUS(status);
    if (WIFSIGNALED(status)) result.signal = WTERMSIG(status);
    result.out = readFile(path(kOut));
    result.err = readFile(path(kErr));
    // Sanitizers end a process with 1 as well, so that its status hides their reports.
    EXPECT_EQ(result.err.find("Sanitizer: "), std::string::npos) << result.err;
    return result;
}

Result CommandTest::paint(const std::string& input, const std::string& output,
                          std::vector<std::string> more) {
    more.insert(more.begin(), {"paint", input, "-e", "posterize", "-o", output});
    return run(more);
}

std::string readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

void writeFile(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

}  // namespace brushworks::tools::testing
