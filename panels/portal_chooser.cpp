#include "panels/portal_chooser.h"

#include <sys/stat.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "panels/chosen_path.h"
#include "panels/dbus.h"

namespace brushworks {
namespace {

constexpr int kPatience = 4000;  // milliseconds, for each answer that needs no user
constexpr dbus::Object kPortal = {"org.freedesktop.portal.Desktop",
                                  "/org/freedesktop/portal/desktop"};
constexpr char kFileChooser[] = "org.freedesktop.portal.FileChooser";
constexpr std::uint32_t kConfirmed = 0;

bool IsSocket(const std::string& path) {
    struct stat facts;
    return stat(path.c_str(), &facts) == 0 && S_ISSOCK(facts.st_mode);
}

/// A value in an address of the bus: all but a few bytes are escaped.
std::string EscapedForAddress(std::string_view value) {
    std::string escaped;
    for (const char byte : value) {
        const bool isAlphanumeric = (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
                                    (byte >= 'a' && byte <= 'z');
        if (isAlphanumeric || std::string_view("-_/.").find(byte) != std::string_view::npos) {
            escaped += byte;
            continue;
        }
        char code[4];
        std::snprintf(code, sizeof(code), "%%%02x", static_cast<unsigned char>(byte));
        escaped += code;
    }
    return escaped;
}

std::string ParentHandle(WindowId parent) {
    if (parent == 0) return {};
    char handle[16];
    std::snprintf(handle, sizeof(handle), "x11:%x", static_cast<unsigned int>(parent));
    return handle;
}

/// A word that tells the requests of one connection apart.
std::string NewToken() {
    static std::atomic<unsigned int> s_count = 0;
    return "brushworks" + std::to_string(++s_count);
}

/// Named by its pattern, with the one pattern: (sa(us)), 0 for a glob.
void WriteFilter(dbus::Writer& writer, const std::string& pattern) {
    writer.In('r', nullptr, [&](dbus::Writer& filter) {
        filter.Text(pattern).In('a', "(us)", [&](dbus::Writer& patterns) {
            patterns.In('r', nullptr, [&](dbus::Writer& entry) { entry.Number(0).Text(pattern); });
        });
    });
}

void WriteOptions(dbus::Writer& options, Purpose purpose, const FileRequest& request) {
    const std::string pattern = "*." + request.extension;
    options.Entry("handle_token", "s", [](dbus::Writer& value) { value.Text(NewToken()); });
    options.Entry("modal", "b", [](dbus::Writer& value) { value.Flag(true); });
    options.Entry("filters", "a(sa(us))", [&](dbus::Writer& value) {
        value.In('a', "(sa(us))", [&](dbus::Writer& filters) { WriteFilter(filters, pattern); });
    });
    options.Entry("current_filter", "(sa(us))",
                  [&](dbus::Writer& value) { WriteFilter(value, pattern); });
    if (purpose == Purpose::kSave && !request.name.empty())
        options.Entry("current_name", "s", [&](dbus::Writer& value) { value.Text(request.name); });
    if (!request.folder.empty())
        options.Entry("current_folder", "ay", [&](dbus::Writer& value) {
            value.In('a', "y", [&](dbus::Writer& bytes) {
                bytes.Bytes(request.folder.c_str(), request.folder.size() + 1);
            });
        });
}

/// The name on the bus of a portal that can choose files; none where none answers.
std::optional<std::string> FindPortal(dbus::Bus& bus) {
    const dbus::MessagePtr version =
        bus.Call(kPortal, "org.freedesktop.DBus.Properties", "Get", kPatience,
                 [](dbus::Writer& arguments) { arguments.Text(kFileChooser).Text("version"); });
    const char* sender = version ? dbus::Load()->dbus_message_get_sender(version.get()) : nullptr;
    return sender ? std::optional<std::string>(sender) : std::nullopt;
}

/// Has the answers of this portal delivered, and word of its end.
bool ListenTo(dbus::Bus& bus, const std::string& portal) {
    const std::string answers =
        "type='signal',interface='org.freedesktop.portal.Request',member='Response',sender='";
    const std::string ends =
        "type='signal',sender='org.freedesktop.DBus',member='NameOwnerChanged',arg1='";
    return bus.Listen(answers + portal + "'", kPatience) &&
           bus.Listen(ends + portal + "'", kPatience);
}

/// Asks this portal, and none that may have followed it, for the panel. Returns the path of the
/// object that will answer.
std::optional<std::string> Show(dbus::Bus& bus, const std::string& portal, WindowId parent,
                                Purpose purpose, const FileRequest& request) {
    const bool isSave = purpose == Purpose::kSave;
    const dbus::MessagePtr reply = bus.Call(
        {portal.c_str(), kPortal.path}, kFileChooser, isSave ? "SaveFile" : "OpenFile", kPatience,
        [&](dbus::Writer& arguments) {
            arguments.Text(ParentHandle(parent)).Text(TitleOf(purpose));
            arguments.In('a', "{sv}",
                         [&](dbus::Writer& options) { WriteOptions(options, purpose, request); });
        });
    return reply ? dbus::Reader(*reply).Text() : std::nullopt;
}

/// The path in a response, whose arguments are a code and a dictionary with the URIs.
std::optional<std::string> PathOfResponse(dbus::Message& response) {
    dbus::Reader arguments(response);
    if (arguments.Number() != kConfirmed) return std::nullopt;
    auto results = arguments.In('a');
    while (auto entry = results ? results->In('e') : std::nullopt) {
        if (entry->Text() != "uris") continue;
        auto value = entry->In('v');
        auto uris = value ? value->In('a') : std::nullopt;
        const auto uri = uris ? uris->Text() : std::nullopt;
        return uri ? PathOfURI(*uri) : std::nullopt;
    }
    return std::nullopt;
}

/// Whether a message tells that `name` has left the bus.
bool TellsEndOf(const std::string& name, dbus::Message& message) {
    if (!dbus::Load()->dbus_message_is_signal(&message, "org.freedesktop.DBus", "NameOwnerChanged"))
        return false;
    dbus::Reader arguments(message);
    arguments.Text();
    return arguments.Text() == name;
}

/// Others on the bus may send signals too; only the portal's on our request counts.
bool IsResponse(const std::string& portal, const std::string& handle, dbus::Message& message) {
    const dbus::Functions& f = *dbus::Load();
    if (!f.dbus_message_is_signal(&message, "org.freedesktop.portal.Request", "Response"))
        return false;
    const char* sender = f.dbus_message_get_sender(&message);
    const char* path = f.dbus_message_get_path(&message);
    return sender && path && sender == portal && path == handle;
}

}  // namespace

std::string SessionBusAddress(const char* addressVariable, const char* runtimeFolder) {
    if (addressVariable && *addressVariable) return addressVariable;
    if (!runtimeFolder || *runtimeFolder != '/') return {};
    const std::string socket = std::string(runtimeFolder) + "/bus";
    return IsSocket(socket) ? "unix:path=" + EscapedForAddress(socket) : "";
}

Attempt PortalChooser::Choose(WindowId parent, Purpose purpose, const FileRequest& request) {
    if (!IsUTF8(request.name) || !IsUTF8(request.extension)) return {};
    const std::string address =
        SessionBusAddress(std::getenv("DBUS_SESSION_BUS_ADDRESS"), std::getenv("XDG_RUNTIME_DIR"));
    if (address.empty()) return {};
    auto bus = dbus::Bus::Open(address, kPatience);
    if (!bus) return {};
    const auto portal = FindPortal(*bus);
    if (!portal) return {};

    // Heard before the question is put: the answer may come at once.
    if (!ListenTo(*bus, *portal)) return {};
    const auto handle = Show(*bus, *portal, parent, purpose, request);
    if (!handle) return {};

    while (const dbus::MessagePtr message = bus->Next()) {
        if (IsResponse(*portal, *handle, *message)) return {true, PathOfResponse(*message)};
        if (TellsEndOf(*portal, *message)) break;
    }
    return {true, std::nullopt};
}

}  // namespace brushworks
