// Programs that answer, fail, and leave things behind, in hosts with signal habits of their own.
#include "panels/child_process.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <fstream>

#include "panels/testing_desktop.h"

namespace brushworks {
namespace {

ProcessResult Shell(const std::string& script, std::vector<std::string> arguments = {}) {
    arguments.insert(arguments.begin(), {"-c", script, "sh"});
    return RunProgram("/bin/sh", arguments, {"PATH=/usr/bin:/bin", "MARK=a b"});
}

/// Puts back what a signal did before.
class SignalHabit {
  public:
    SignalHabit(int number, void (*handler)(int)) : m_number(number) {
        m_before = signal(number, handler);
    }
    ~SignalHabit() { signal(m_number, m_before); }

  private:
    int m_number;
    void (*m_before)(int);
};

using ChildProcess = testing::DesktopTest;

TEST_F(ChildProcess, IsFoundInAbsoluteFoldersAlone) {
    const std::string folder = path("");
    std::filesystem::create_directories(path("first/tool"));
    std::filesystem::create_directories(path("second"));
    std::filesystem::create_directories(path("third"));
    std::ofstream(path("second/tool")) << "not executable";
    std::filesystem::permissions(path("second/tool"), std::filesystem::perms::owner_read);
    Install("third/tool", "");
    const std::string search = path("first") + ":" + path("second") + "::" + path("third");
    EXPECT_EQ(FindProgram("tool", search), path("third/tool"));
    EXPECT_EQ(FindProgram("tool", path("third")), path("third/tool"));
    EXPECT_EQ(FindProgram("tool", path("second") + ":"), "");
    EXPECT_EQ(FindProgram("tool", ""), "");
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(path("third"));
    EXPECT_EQ(FindProgram("tool", "::.:./:../third"), "");
    std::filesystem::current_path(before);
}

TEST_F(ChildProcess, TakesWordsAsTheyAreAndAnswers) {
    const ProcessResult result =
        Shell("printf '%s|' \"$@\" \"$MARK\"; cat; exit 7", {"$(x) `y`", "", "-n", "a\nb", "é*"});
    EXPECT_TRUE(result.started);
    EXPECT_EQ(result.status, 7);
    EXPECT_EQ(result.output, "$(x) `y`||-n|a\nb|é*|a b|");
    EXPECT_FALSE(RunProgram(path("missing"), {}, {}).started);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a child is left";
}

TEST_F(ChildProcess, KilledHasNoStatus) {
    const ProcessResult result = Shell("echo half; kill -KILL $$");
    EXPECT_TRUE(result.started);
    EXPECT_EQ(result.status, std::nullopt);
    EXPECT_EQ(result.output, "half\n");
}

TEST_F(ChildProcess, GetsNoFilesOfTheHost) {
    const int file = open("/dev/null", O_RDONLY);
    const int high = fcntl(file, F_DUPFD, 50);
    EXPECT_EQ(Shell("[ ! -e /proc/$$/fd/" + std::to_string(high) + " ]").status, 0);
    close(high);
    close(file);
}

TEST_F(ChildProcess, IsNotWaitedForThroughItsHelpers) {
    const int watch = static_cast<int>(syscall(SYS_pidfd_open, getpid(), 0));
    if (watch < 0) GTEST_SKIP() << "this kernel cannot tell the end of a process from its pipe's";
    close(watch);
    const auto start = std::chrono::steady_clock::now();
    const ProcessResult result = Shell("sleep 60 & echo $!");
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
    kill(std::stoi(result.output), SIGKILL);
    EXPECT_EQ(result.status, 0);
}

TEST_F(ChildProcess, MayWriteMoreThanIsKept) {
    const ProcessResult result = Shell("head -c 300000 /dev/zero && exit 3");
    EXPECT_EQ(result.status, 3);
    EXPECT_EQ(result.output.size(), kMostOutput);
}

TEST_F(ChildProcess, StartsWithSignalsAsUsual) {
    const SignalHabit ignoring(SIGPIPE, SIG_IGN);
    sigset_t term;
    sigset_t before;
    sigemptyset(&term);
    sigaddset(&term, SIGTERM);
    pthread_sigmask(SIG_BLOCK, &term, &before);
    EXPECT_EQ(Shell("kill -PIPE $$; echo survived").output, "");
    EXPECT_EQ(Shell("kill -TERM $$; echo survived").output, "");
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

TEST_F(ChildProcess, AnswersInHostsThatReapAll) {
    const SignalHabit ignoring(SIGCHLD, SIG_IGN);
    const ProcessResult result = Shell("echo /answer; exit 0");
    EXPECT_TRUE(result.started);
    EXPECT_EQ(result.status, std::nullopt);
    EXPECT_EQ(result.output, "/answer\n");
}

}  // namespace
}  // namespace brushworks
