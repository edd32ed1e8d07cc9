// Files replaced as a whole: what was there survives every failure.
#include "presets/whole_file.h"

#include <gmock/gmock.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>

namespace brushworks {
namespace {

namespace fs = std::filesystem;

class WholeFile : public ::testing::Test {
  protected:
    void SetUp() override {
        char folder[] = "/tmp/brushworks-presets-XXXXXX";
        ASSERT_NE(mkdtemp(folder), nullptr);
        m_folder = folder;
        ASSERT_EQ(chmod(folder, 0755), 0);
        m_file = m_folder / "file";
    }
    void TearDown() override { fs::remove_all(m_folder); }

    static std::string TextOf(const fs::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    /// The temporary file is gone, whatever came of it.
    void ExpectFiles(std::ptrdiff_t count) {
        EXPECT_EQ(std::distance(fs::directory_iterator(m_folder), {}), count);
    }
    /// Whether `work` holds in a process of its own, whose limits may be changed.
    static bool HoldsApart(const std::function<bool()>& work) {
        const pid_t child = fork();
        if (child == 0) _exit(work() ? 0 : 1);
        int status = 0;
        return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

    fs::path m_folder, m_file;
};

TEST_F(WholeFile, ReplacesAndKeepsTheRights) {
    const mode_t mask = umask(027);
    EXPECT_TRUE(ReplaceWholeFile(m_file, "first"));
    umask(mask);
    EXPECT_EQ(fs::status(m_file).permissions(), fs::perms(0640));
    fs::permissions(m_file, fs::perms(0604));
    const std::string second("sec\0nd", 6);
    EXPECT_TRUE(ReplaceWholeFile(m_file, second));
    EXPECT_EQ(ReadWholeFile(m_file, 6), second);
    EXPECT_EQ(ReadWholeFile(m_file, 5), std::nullopt);
    EXPECT_EQ(fs::status(m_file).permissions(), fs::perms(0604));
    ExpectFiles(1);
}

TEST_F(WholeFile, ALinkStaysALink) {
    fs::create_directory(m_folder / "deep");
    fs::create_symlink("deep/to", m_folder / "link");
    fs::create_symlink("../file", m_folder / "deep" / "to");
    for (const char* text : {"new", "old"}) {  // a link to nothing, then one to a file
        EXPECT_TRUE(ReplaceWholeFile(m_folder / "link", text));
        EXPECT_EQ(TextOf(m_file), text);
    }
    EXPECT_TRUE(fs::is_symlink(m_folder / "link"));
    EXPECT_TRUE(fs::is_symlink(m_folder / "deep" / "to"));
    fs::create_symlink("circle", m_folder / "circle");
    EXPECT_FALSE(ReplaceWholeFile(m_folder / "circle", "x"));
    EXPECT_TRUE(fs::is_symlink(m_folder / "circle"));
    ExpectFiles(4);
}

TEST_F(WholeFile, WhatWasThereSurvivesAFailure) {
    ASSERT_TRUE(ReplaceWholeFile(m_file, "old"));
    EXPECT_TRUE(HoldsApart([&] {  // the disk is full
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{10, 10};
        setrlimit(RLIMIT_FSIZE, &limit);
        return !ReplaceWholeFile(m_file, std::string(100, 'x'));
    }));
    EXPECT_TRUE(HoldsApart([&] {  // the folder is another's
        if (geteuid() != 0)
            fs::permissions(m_folder, fs::perms(0555));
        else if (setuid(65534) != 0)
            return false;
        return !ReplaceWholeFile(m_file, "x") && !ReplaceWholeFile(m_folder / "other", "x");
    }));
    fs::permissions(m_folder, fs::perms(0777));
    fs::permissions(m_file, fs::perms(0444));
    EXPECT_TRUE(HoldsApart([&] {  // the file is not to be written, though the folder is
        if (geteuid() == 0 && setuid(65534) != 0) return false;
        return !ReplaceWholeFile(m_file, "x");
    }));
    EXPECT_EQ(TextOf(m_file), "old");
    ExpectFiles(1);
}

TEST_F(WholeFile, OnlyRegularFilesWillDo) {
    const fs::path pipe = m_folder / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const fs::path& path : {pipe, m_folder, fs::path("/dev/zero"), fs::path()}) {
        EXPECT_EQ(ReadWholeFile(path, 100), std::nullopt) << path;
        EXPECT_FALSE(ReplaceWholeFile(path, "x")) << path;
    }
    EXPECT_FALSE(ReplaceWholeFile(m_folder / "no" / "folder", "x"));
    EXPECT_FALSE(ReplaceWholeFile(m_folder / std::string(300, 'n'), "x"));
    EXPECT_TRUE(fs::is_fifo(pipe));
    ExpectFiles(1);
}

}  // namespace
}  // namespace brushworks
