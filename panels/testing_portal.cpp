#include "panels/testing_portal.h"

#include <dlfcn.h>
#include <signal.h>

#include <array>
#include <fstream>
#include <memory>
#include <utility>

#include "panels/dbus.h"

namespace brushworks::testing {
namespace {

using dbus::Message;
using dbus::MessagePtr;
using dbus::Reader;
using dbus::Writer;

constexpr char kName[] = "org.freedesktop.portal.Desktop";
constexpr int kPatience = 10000;

/// A function that only portals need.
template <class Function>
Function* Extra(const char* name) {
    return reinterpret_cast<Function*>(dlsym(dlopen("libdbus-1.so.3", RTLD_NOW), name));
}

/// Someone on the bus who answers calls.
class Peer {
  public:
    explicit Peer(const std::string& address)
        : m_connection(dbus::Load()->dbus_connection_open_private(address.c_str(), nullptr)) {
        Ask("Hello", [](Writer&) {});
    }

    template <class Write>
    void Ask(const char* method, Write write) {
        const MessagePtr call(dbus::Load()->dbus_message_new_method_call(
            "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", method));
        Writer writer(*call);
        write(writer);
        const MessagePtr reply(dbus::Load()->dbus_connection_send_with_reply_and_block(
            m_connection.get(), call.get(), kPatience, nullptr));
    }

    MessagePtr Next() {
        do {
            if (MessagePtr message{dbus::Load()->dbus_connection_pop_message(m_connection.get())})
                return message;
        } while (dbus::Load()->dbus_connection_read_write(m_connection.get(), -1));
        return nullptr;
    }

    void Send(Message& message) {
        static auto* send = Extra<std::uint32_t(dbus::Connection*, Message*, std::uint32_t*)>(
            "dbus_connection_send");
        static auto* flush = Extra<void(dbus::Connection*)>("dbus_connection_flush");
        send(m_connection.get(), &message, nullptr);
        flush(m_connection.get());
    }

  private:
    std::unique_ptr<dbus::Connection, dbus::Unref> m_connection;
};

MessagePtr ReplyTo(Message& call) {
    static auto* make = Extra<Message*(Message*)>("dbus_message_new_method_return");
    return MessagePtr(make(&call));
}

MessagePtr ErrorTo(Message& call) {
    static auto* make =
        Extra<Message*(Message*, const char*, const char*)>("dbus_message_new_error");
    return MessagePtr(make(&call, "org.freedesktop.DBus.Error.UnknownInterface", "no chooser"));
}

std::string MemberOf(Message& message) {
    static auto* get = Extra<const char*(Message*)>("dbus_message_get_member");
    const char* member = get(&message);
    return member ? member : "";
}

MessagePtr Response(Message& call, const std::string& handle, unsigned int code,
                    const std::string& uri) {
    static auto* make =
        Extra<Message*(const char*, const char*, const char*)>("dbus_message_new_signal");
    static auto* address =
        Extra<std::uint32_t(Message*, const char*)>("dbus_message_set_destination");
    MessagePtr signal(make(handle.c_str(), "org.freedesktop.portal.Request", "Response"));
    address(signal.get(), dbus::Load()->dbus_message_get_sender(&call));
    Writer(*signal).Number(code).In('a', "{sv}", [&](Writer& results) {
        results.Entry("choices", "s", [](Writer& value) { value.Text("other"); });
        results.Entry("uris", "as", [&](Writer& value) {
            value.In('a', "s", [&](Writer& uris) { uris.Text(uri); });
        });
    });
    return signal;
}

/// The bytes of an array, without the NUL at its end.
std::string Bytes(std::optional<Reader> array) {
    std::string bytes;
    while (const auto byte = array ? array->Number() : std::nullopt)
        bytes += static_cast<char>(*byte);
    return bytes.substr(0, bytes.find('\0'));
}

std::string Token(Message& call, PortalRequest& request) {
    request.method = MemberOf(call);
    Reader arguments(call);
    request.parent = arguments.Text().value_or("");
    request.title = arguments.Text().value_or("");
    auto options = arguments.In('a');
    std::string token;
    while (auto entry = options ? options->In('e') : std::nullopt) {
        const std::string key = entry->Text().value_or("");
        auto value = entry->In('v');
        if (!value) continue;
        if (key == "handle_token") token = value->Text().value_or("");
        if (key == "current_name") request.name = value->Text().value_or("");
        if (key == "current_folder") request.folder = Bytes(value->In('a'));
        if (key != "filters") continue;
        auto filters = value->In('a');
        auto filter = filters ? filters->In('r') : std::nullopt;
        if (filter) filter->Text();
        auto patterns = filter ? filter->In('a') : std::nullopt;
        auto pattern = patterns ? patterns->In('r') : std::nullopt;
        if (pattern && pattern->Number() == 0U) request.pattern = pattern->Text().value_or("");
    }
    return token;
}

void Serve(Peer& portal, const std::string& address, Reaction reaction, unsigned int code,
           const std::string& uri, PortalRequest& request) {
    while (const MessagePtr call = portal.Next()) {
        const std::string member = MemberOf(*call);
        if (reaction == Reaction::kIsSilent) continue;
        if (member == "Get" && reaction == Reaction::kHasNoChooser) portal.Send(*ErrorTo(*call));
        if (member == "Get" && reaction != Reaction::kHasNoChooser) {
            const MessagePtr version = ReplyTo(*call);
            Writer(*version).In('v', "u", [](Writer& value) { value.Number(3); });
            portal.Send(*version);
        }
        if (member != "SaveFile" && member != "OpenFile") continue;

        const std::string handle =
            "/org/freedesktop/portal/desktop/request/1_2/" + Token(*call, request);
        const MessagePtr accepted = ReplyTo(*call);
        dbus::Place place;
        const char* text = handle.c_str();
        dbus::Load()->dbus_message_iter_init_append(accepted.get(), &place);
        dbus::Load()->dbus_message_iter_append_basic(&place, 'o', &text);
        if (reaction == Reaction::kIsImitated)
            Peer(address).Send(*Response(*call, handle, 0, "file:///not/the/portal"));
        portal.Send(*accepted);
        if (reaction == Reaction::kLeaves) return;
        if (reaction == Reaction::kIsImitated) {
            Peer(address).Send(*Response(*call, handle, 0, "file:///not/the/portal"));
            portal.Send(*Response(*call, handle + "other", 0, "file:///another/request"));
        }
        portal.Send(*Response(*call, handle, code, uri));
    }
}

}  // namespace

TestingBus::TestingBus(const std::string& daemon, const std::string& folder) {
    const std::string configuration = folder + "/bus.conf";
    std::ofstream(configuration)
        << "<busconfig><type>session</type><listen>unix:dir=" << folder << "</listen>"
        << "<auth>EXTERNAL</auth><policy context=\"default\"><allow send_destination=\"*\"/>"
        << "<allow receive_sender=\"*\"/><allow own=\"*\"/></policy></busconfig>";
    const std::string command = "exec '" + daemon + "' --nofork --nopidfile --config-file='" +
                                configuration + "' --print-pid=1 --print-address=1 2>/dev/null";
    m_daemon = popen(command.c_str(), "re");
    std::array<char, 512> line;
    for (int i = 0; m_daemon && i < 2 && fgets(line.data(), line.size(), m_daemon); ++i) {
        std::string text = line.data();
        text.erase(text.find_last_not_of('\n') + 1);
        if (text.starts_with("unix:")) {
            m_address = text;
        } else {
            m_process = std::stoi(text);
        }
    }
}

void TestingBus::Stop() {
    if (!m_daemon) return;
    if (m_process > 0) kill(m_process, SIGTERM);
    pclose(std::exchange(m_daemon, nullptr));
}

TestingPortal::TestingPortal(const std::string& address, Reaction reaction, unsigned int code,
                             const std::string& uri) {
    auto peer = std::make_unique<Peer>(address);
    peer->Ask("RequestName", [](Writer& arguments) { arguments.Text(kName).Number(0); });
    m_thread = std::thread([this, address, reaction, code, uri, peer = std::move(peer)]() mutable {
        Serve(*peer, address, reaction, code, uri, m_request);
        peer.reset();
    });
}

const PortalRequest& TestingPortal::Requested() {
    if (m_thread.joinable()) m_thread.join();
    return m_request;
}

TestingPortal::~TestingPortal() {
    if (m_thread.joinable()) m_thread.join();
}

}  // namespace brushworks::testing
