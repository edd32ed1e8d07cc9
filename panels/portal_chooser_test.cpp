// Conversations with a portal, on a bus of the test's own.
#include "panels/portal_chooser.h"

#include <gmock/gmock.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <optional>

#include "panels/child_process.h"
#include "panels/dbus.h"
#include "panels/desktop_panels.h"
#include "panels/testing_desktop.h"
#include "panels/testing_portal.h"

namespace brushworks {
namespace {

using ::testing::IsEmpty;
using testing::Reaction;
using testing::TestingBus;
using testing::TestingPortal;

class PortalTest : public testing::DesktopTest {
  protected:
    void SetUp() override {
        const std::string daemon = FindProgram("dbus-daemon", Before("PATH"));
        if (daemon.empty()) GTEST_SKIP() << "no dbus-daemon in PATH: the portal is not tested";
        if (!dbus::Load()) GTEST_SKIP() << "no libdbus-1.so.3: the portal is not tested";
        m_bus.emplace(daemon, path(""));
        ASSERT_NE(m_bus->address(), "");
        Set("DBUS_SESSION_BUS_ADDRESS", m_bus->address().c_str());
        Install("zenity", "echo /from/zenity.x");
    }
    void TearDown() override {
        if (m_bus) m_bus->Stop();
    }

    void StartPortal(Reaction reaction, unsigned int code = 0,
                     const std::string& uri = "file:///chosen%20one.x") {
        m_portal.emplace(m_bus->address(), reaction, code, uri);
    }
    std::optional<std::string> Save(const std::string& name = "MyPreset.x") {
        return DesktopPanels().ChooseToSave(nullptr, {"/home/a b", "x", name});
    }
    const testing::PortalRequest& Requested() {
        m_bus->Stop();
        return m_portal->Requested();
    }

    std::optional<TestingPortal> m_portal;
    std::optional<TestingBus> m_bus;  // stops first, which the portal's end waits for
};

TEST_F(PortalTest, IsAskedFirstAndInFull) {
    StartPortal(Reaction::kAnswers);
    auto* parent = reinterpret_cast<OpaqueWindowPtr*>(0x1C00007);
    EXPECT_EQ(DesktopPanels().ChooseToSave(parent, {"/home/\xFF ü", "fxpbwkk", "-É 𝄞\n%2f"}),
              "/chosen one.x.fxpbwkk");
    EXPECT_THAT(RunsOf("zenity"), IsEmpty());
    const testing::PortalRequest& request = Requested();
    EXPECT_EQ(request.method, "SaveFile");
    EXPECT_EQ(request.parent, "x11:1c00007");
    EXPECT_EQ(request.name, "-É 𝄞\n%2f");
    EXPECT_EQ(request.pattern, "*.fxpbwkk");
    EXPECT_EQ(request.folder, "/home/\xFF ü");
}

TEST_F(PortalTest, OpensWithoutAName) {
    StartPortal(Reaction::kAnswers);
    EXPECT_EQ(DesktopPanels().ChooseToOpen(nullptr, {"", "x", "ignored"}), "/chosen one.x");
    const testing::PortalRequest& request = Requested();
    EXPECT_EQ(request.method, "OpenFile");
    EXPECT_EQ(request.parent + request.name + request.folder, "");
}

TEST_F(PortalTest, TheUsersNoIsFinal) {
    for (const unsigned int code : {1U, 2U, 77U}) {
        StartPortal(Reaction::kAnswers, code);
        EXPECT_EQ(Save(), std::nullopt) << code;
        TearDown();
        m_portal.reset();
        SetUp();
    }
    StartPortal(Reaction::kAnswers, 0, "http://somewhere/else");
    EXPECT_EQ(Save(), std::nullopt);
    EXPECT_THAT(RunsOf("zenity"), IsEmpty());
}

TEST_F(PortalTest, OthersAnswersDoNotCount) {
    StartPortal(Reaction::kIsImitated);
    EXPECT_EQ(Save(), "/chosen one.x");
}

TEST_F(PortalTest, ThatLeavesEndsTheWait) {
    StartPortal(Reaction::kLeaves);
    EXPECT_EQ(Save(), std::nullopt);
    EXPECT_THAT(RunsOf("zenity"), IsEmpty());
}

TEST_F(PortalTest, ThatCannotAskGivesWay) {
    EXPECT_EQ(Save(), "/from/zenity.x") << "on an empty bus";
    StartPortal(Reaction::kHasNoChooser);
    EXPECT_EQ(Save(), "/from/zenity.x") << "beside a portal without files";
    EXPECT_EQ(Save("\xFF"), "/from/zenity.x") << "for a name that no message holds";
    m_bus->Stop();
    EXPECT_EQ(Save(), "/from/zenity.x") << "after the bus is gone";
}

TEST_F(PortalTest, ThatIsSilentGivesWay) {
    StartPortal(Reaction::kIsSilent);
    EXPECT_EQ(Save(), "/from/zenity.x");
}

TEST_F(PortalTest, LeavesSignalsToTheHost) {
    StartPortal(Reaction::kAnswers);
    signal(SIGPIPE, SIG_DFL);
    Save();
    EXPECT_EQ(signal(SIGPIPE, SIG_DFL), SIG_DFL);
}

using BusAddress = testing::DesktopTest;

TEST_F(BusAddress, IsNamedOrASocketThatIsThere) {
    EXPECT_EQ(SessionBusAddress("unix:path=/x", "/run"), "unix:path=/x");
    EXPECT_EQ(SessionBusAddress(nullptr, nullptr), "");
    EXPECT_EQ(SessionBusAddress("", path("").c_str()), "");
    EXPECT_EQ(SessionBusAddress("", ""), "");

    std::filesystem::create_directory(path("a,b"));
    sockaddr_un name{};
    name.sun_family = AF_UNIX;
    std::strncpy(name.sun_path, path("a,b/bus").c_str(), sizeof(name.sun_path) - 1);
    const int listening = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(listening, reinterpret_cast<const sockaddr*>(&name), sizeof(name)), 0);
    EXPECT_EQ(SessionBusAddress(nullptr, path("a,b").c_str()), "unix:path=" + path("a%2cb/bus"));
    close(listening);
}

}  // namespace
}  // namespace brushworks
