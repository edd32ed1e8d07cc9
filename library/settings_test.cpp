// Settings: what is kept, and what two processes writing at once leave behind.
#include "library/settings.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace brushworks {
namespace {

LFString S(const std::string& text) {
    return LFString::FromCFString(&text);
}

class SettingsTest : public ::testing::Test {
  protected:
    void SetUp() override {
        char folder[] = "/tmp/brushworks-settings-XXXXXX";
        ASSERT_NE(mkdtemp(folder), nullptr);
        m_folder = folder;
    }
    void TearDown() override { std::filesystem::remove_all(m_folder); }

    std::string Get(const Settings& settings, const char* section, const char* name) {
        LFString value = S("(none)");
        settings.Get(S(section), S(name), value);
        return value.GetCFString();
    }

    std::filesystem::path m_folder;
};

TEST_F(SettingsTest, KeepsAnyTextAcrossObjects) {
    Settings settings((m_folder / "deep" / "er" / "store.ini").string());
    const std::string odd = " = [x]\nline\\two\r# ü ";
    ASSERT_TRUE(settings.Set(S("reports"), S("last"), S(odd)));
    ASSERT_TRUE(settings.Set(S("reports"), S("empty"), S("")));
    ASSERT_TRUE(settings.Set(S("gpu"), S("last"), S("none")));
    const Settings again(settings.path());
    EXPECT_EQ(Get(again, "reports", "last"), odd);
    EXPECT_EQ(Get(again, "reports", "empty"), "");
    EXPECT_EQ(Get(again, "gpu", "last"), "none");
    EXPECT_EQ(Get(again, "gpu", "first"), "(none)");
    ASSERT_TRUE(settings.Remove(S("gpu"), S("last")));
    ASSERT_TRUE(settings.Remove(S("gpu"), S("last")));
    EXPECT_EQ(Get(again, "gpu", "last"), "(none)");
}

TEST_F(SettingsTest, RefusesNamesThatCannotBeKept) {
    Settings settings((m_folder / "store.ini").string());
    EXPECT_FALSE(settings.Set(S("a]b"), S("n"), S("v")));
    EXPECT_FALSE(settings.Set(S("a"), S("n=m"), S("v")));
    EXPECT_FALSE(settings.Set(S("a"), S(""), S("v")));
    EXPECT_FALSE(settings.Set(S("a"), S("n\nm"), S("v")));
    EXPECT_FALSE(settings.Set(S("a"), S(" n"), S("v")));
    EXPECT_FALSE(std::filesystem::exists(settings.path()));
}

TEST_F(SettingsTest, TwoProcessesLoseNothing) {
    const std::string path = (m_folder / "store.ini").string();
    constexpr int kProcesses = 4, kValues = 25;
    for (int p = 0; p < kProcesses; ++p) {
        if (fork() == 0) {
            Settings settings(path);
            bool kept = true;
            for (int i = 0; i < kValues; ++i)
                kept = kept &&
                       settings.Set(S("process" + std::to_string(p)), S(std::to_string(i)), S("x"));
            _exit(kept ? 0 : 1);
        }
    }
    for (int p = 0, status = 0; p < kProcesses; ++p) {
        ASSERT_GT(wait(&status), 0);
        EXPECT_EQ(status, 0);
    }
    const Settings settings(path);
    for (int p = 0; p < kProcesses; ++p)
        for (int i = 0; i < kValues; ++i)
            ASSERT_EQ(
                Get(settings, ("process" + std::to_string(p)).c_str(), std::to_string(i).c_str()),
                "x");
    EXPECT_FALSE(std::filesystem::exists(path + ".new"));
}

TEST_F(SettingsTest, UnwritableAndDamagedFilesAreNoTrouble) {
    std::ofstream(m_folder / "damaged.ini") << "no section\n=\n[open\n[s]\nname=v\\\nnothing\n";
    Settings damaged((m_folder / "damaged.ini").string());
    EXPECT_EQ(Get(damaged, "s", "name"), "v\\");
    std::ofstream(m_folder / "file") << "x";
    Settings nowhere((m_folder / "file" / "store.ini").string());
    EXPECT_FALSE(nowhere.Set(S("a"), S("n"), S("v")));
}

TEST_F(SettingsTest, TheUsersFolderIsTheConfiguredOne) {
    setenv("XDG_CONFIG_HOME", m_folder.c_str(), 1);
    EXPECT_EQ(Settings::ForUser("reports").path(),
              (m_folder / "brushworks" / "reports.ini").string());
    unsetenv("XDG_CONFIG_HOME");
    setenv("HOME", m_folder.c_str(), 1);
    EXPECT_EQ(Settings::ForUser().path(),
              (m_folder / ".config" / "brushworks" / "settings.ini").string());
}

}  // namespace
}  // namespace brushworks
