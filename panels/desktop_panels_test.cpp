// Which way is tried when, and what each answer comes to.
#include "panels/desktop_panels.h"

#include <gmock/gmock.h>

#include "panels/testing_desktop.h"

namespace brushworks {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

class DesktopPanelsTest : public testing::DesktopTest {
  protected:
    std::optional<std::string> Save() {
        return m_panels.ChooseToSave(nullptr, {"/home", "x", "MyPreset.x"});
    }
    std::string Complaint() {
        ::testing::internal::CaptureStderr();
        m_panels.Alert(nullptr, {"Title", "Some text.", "OK"});
        return ::testing::internal::GetCapturedStderr();
    }

    DesktopPanels m_panels;
};

TEST_F(DesktopPanelsTest, TheFirstProgramThatAsksDecides) {
    Install("kdialog", "echo /from/kdialog.x");
    EXPECT_EQ(Save(), "/from/kdialog.x");
    Install("zenity", "echo '/from/zenity  é.x'");
    EXPECT_EQ(Save(), "/from/zenity  é.x");
    EXPECT_EQ(m_panels.ChooseToOpen(nullptr, {"/home", "x", ""}), "/from/zenity  é.x");
    for (const char* declines :
         {"exit 1", "echo /x; exit 1", "echo garbage", "true", "kill -KILL $$"}) {
        Install("zenity", declines);
        EXPECT_EQ(Save(), std::nullopt) << declines;
    }
    EXPECT_THAT(RunsOf("kdialog"), SizeIs(1));
}

TEST_F(DesktopPanelsTest, AProgramThatRefusesIsAskedPlainlyThenLeft) {
    Install("zenity",
            "for w; do [ \"$w\" = --confirm-overwrite ] && exit 255; done; echo /plain.x");
    Install("kdialog", "echo /from/kdialog.x");
    EXPECT_EQ(Save(), "/plain.x");
    EXPECT_THAT(RunsOf("zenity"), SizeIs(2));
    Install("zenity", "exit 255");
    EXPECT_EQ(Save(), "/from/kdialog.x");
    std::filesystem::remove(path("zenity"));
    std::filesystem::create_symlink("/nowhere", path("zenity"));
    EXPECT_EQ(Save(), "/from/kdialog.x");
}

TEST_F(DesktopPanelsTest, ANameWithoutItsExtensionGetsItAndReplacesNothingUnasked) {
    const std::string warm = path("Warm"), whole = warm + ".x";
    Install("zenity", "echo " + warm);
    EXPECT_EQ(Save(), whole);
    EXPECT_EQ(m_panels.ChooseToOpen(nullptr, {"/home", "x", ""}), warm);
    for (const char* untouched : {"/folder/", "/run/user/1000/doc/1a2b/Warm", "/Warm.x"}) {
        Install("zenity", std::string("echo ") + untouched);
        EXPECT_EQ(Save(), untouched);
    }
    Install("zenity", "printf '/%05000d' 0");
    EXPECT_EQ(Save(), "");

    // A link to nothing is a file too. The panel comes again with its name, and asks.
    std::filesystem::create_symlink("/nowhere", whole);
    const std::size_t before = RunsOf("zenity").size();
    Install("zenity", "[ -e " + path("asked") + " ] && echo " + whole + " && exit; : > " +
                          path("asked") + "; echo " + warm);
    EXPECT_EQ(Save(), whole);
    ASSERT_THAT(RunsOf("zenity"), SizeIs(before + 2));
    EXPECT_THAT(RunsOf("zenity").back(), ::testing::Contains("--filename=" + whole));
    Install("zenity", "echo " + warm);  // and never takes another name
    EXPECT_EQ(Save(), std::nullopt);
}

TEST_F(DesktopPanelsTest, AlertsArriveUnchanged) {
    Install("zenity", "exit 1");  // closed without the button
    const AlertTexts texts = {"Couldn't save preset", "A <i>text</i> & $HOME\nmore", "O_K"};
    m_panels.Alert(reinterpret_cast<OpaqueWindowPtr*>(77), texts);
    ASSERT_THAT(RunsOf("zenity"), SizeIs(1));
    EXPECT_EQ(RunsOf("zenity")[0], ZenityWords().alert(77, texts, Manner::kFull));
    // An address, which no window has for its id.
    m_panels.Alert(reinterpret_cast<OpaqueWindowPtr*>(0x7F0000000000), texts);
    EXPECT_EQ(RunsOf("zenity")[1], ZenityWords().alert(0, texts, Manner::kFull));
    EXPECT_EQ(Complaint(), "");
}

TEST_F(DesktopPanelsTest, WithoutAWayNothingIsChosenAndAlertsAreWritten) {
    EXPECT_EQ(Save(), std::nullopt);
    EXPECT_EQ(Complaint(), "Title: Some text.\n");
    Set("PATH", nullptr);
    EXPECT_EQ(Save(), std::nullopt);
}

TEST_F(DesktopPanelsTest, WithoutADisplayNothingIsTried) {
    Install("zenity", "echo /y.x");
    Set("DISPLAY", "");
    EXPECT_EQ(Save(), std::nullopt);
    EXPECT_EQ(Complaint(), "Title: Some text.\n");
    EXPECT_THAT(RunsOf("zenity"), IsEmpty());
    Set("WAYLAND_DISPLAY", "wayland-0");
    EXPECT_EQ(Save(), "/y.x");
}

TEST_F(DesktopPanelsTest, ProgramsRunInUTF8) {
    Set("LC_ALL", "C");
    Install("zenity", "echo \"/$LC_ALL/$CHARSET.x\"");
    EXPECT_EQ(Save(), "/C.UTF-8/UTF-8.x");
}

}  // namespace
}  // namespace brushworks
