#include "panels/dbus.h"

#include <dlfcn.h>

namespace brushworks::dbus {
namespace {

constexpr Object kDaemon = {"org.freedesktop.DBus", "/org/freedesktop/DBus"};

template <class Function>
bool Find(void* library, const char* name, Function*& function) {
    function = reinterpret_cast<Function*>(dlsym(library, name));
    return function;
}

bool FindAll(void* library, Functions& f) {
#define BRUSHWORKS_FIND(name) Find(library, #name, f.name)
    return BRUSHWORKS_FIND(dbus_connection_open_private) &&
           BRUSHWORKS_FIND(dbus_connection_close) && BRUSHWORKS_FIND(dbus_connection_unref) &&
           BRUSHWORKS_FIND(dbus_connection_send_with_reply_and_block) &&
           BRUSHWORKS_FIND(dbus_connection_read_write) &&
           BRUSHWORKS_FIND(dbus_connection_pop_message) &&
           BRUSHWORKS_FIND(dbus_message_new_method_call) && BRUSHWORKS_FIND(dbus_message_unref) &&
           BRUSHWORKS_FIND(dbus_message_is_signal) && BRUSHWORKS_FIND(dbus_message_get_sender) &&
           BRUSHWORKS_FIND(dbus_message_get_path) &&
           BRUSHWORKS_FIND(dbus_message_iter_init_append) &&
           BRUSHWORKS_FIND(dbus_message_iter_append_basic) &&
           BRUSHWORKS_FIND(dbus_message_iter_append_fixed_array) &&
           BRUSHWORKS_FIND(dbus_message_iter_open_container) &&
           BRUSHWORKS_FIND(dbus_message_iter_close_container) &&
           BRUSHWORKS_FIND(dbus_message_iter_init) && BRUSHWORKS_FIND(dbus_message_iter_next) &&
           BRUSHWORKS_FIND(dbus_message_iter_get_arg_type) &&
           BRUSHWORKS_FIND(dbus_message_iter_get_basic) &&
           BRUSHWORKS_FIND(dbus_message_iter_recurse);
#undef BRUSHWORKS_FIND
}

}  // namespace

const Functions* Load() {
    static const std::optional<Functions> functions = []() -> std::optional<Functions> {
        void* library = dlopen("libdbus-1.so.3", RTLD_NOW | RTLD_LOCAL);
        Functions found{};
        if (!library || !FindAll(library, found)) return std::nullopt;
        return found;
    }();
    return functions ? &*functions : nullptr;
}

void Unref::operator()(Message* message) const {
    Load()->dbus_message_unref(message);
}
void Unref::operator()(Connection* connection) const {
    Load()->dbus_connection_close(connection);
    Load()->dbus_connection_unref(connection);
}

Writer::Writer(Message& message) {
    Load()->dbus_message_iter_init_append(&message, &m_place);
}
Writer& Writer::Text(const std::string& text) {
    const char* value = text.c_str();
    Load()->dbus_message_iter_append_basic(&m_place, 's', &value);
    return *this;
}
Writer& Writer::Flag(bool flag) {
    const std::uint32_t value = flag;
    Load()->dbus_message_iter_append_basic(&m_place, 'b', &value);
    return *this;
}
Writer& Writer::Number(std::uint32_t number) {
    Load()->dbus_message_iter_append_basic(&m_place, 'u', &number);
    return *this;
}
Writer& Writer::Bytes(const char* first, std::size_t count) {
    Load()->dbus_message_iter_append_fixed_array(&m_place, 'y', &first, static_cast<int>(count));
    return *this;
}
bool Writer::Open(int type, const char* signature, Writer& inner) {
    return Load()->dbus_message_iter_open_container(&m_place, type, signature, &inner.m_place);
}
void Writer::Close(Writer& inner) {
    Load()->dbus_message_iter_close_container(&m_place, &inner.m_place);
}

Reader::Reader(Message& message) {
    m_isAtEnd = !Load()->dbus_message_iter_init(&message, &m_place);
}
int Reader::Type() {
    return m_isAtEnd ? 0 : Load()->dbus_message_iter_get_arg_type(&m_place);
}
void Reader::Pass() {
    m_isAtEnd = !Load()->dbus_message_iter_next(&m_place);
}
std::optional<std::string> Reader::Text() {
    if (Type() != 's' && Type() != 'o') return std::nullopt;
    const char* value = nullptr;
    Load()->dbus_message_iter_get_basic(&m_place, &value);
    std::string text = value;
    Pass();
    return text;
}
std::optional<std::uint32_t> Reader::Number() {
    std::uint32_t number = 0;
    std::uint8_t byte = 0;
    const int type = Type();
    if (type != 'u' && type != 'y') return std::nullopt;
    Load()->dbus_message_iter_get_basic(
        &m_place, type == 'u' ? static_cast<void*>(&number) : static_cast<void*>(&byte));
    Pass();
    return type == 'u' ? number : byte;
}
std::optional<Reader> Reader::In(int type) {
    if (Type() != type) return std::nullopt;
    Reader inner;
    Load()->dbus_message_iter_recurse(&m_place, &inner.m_place);
    Pass();
    return inner;
}

std::optional<Bus> Bus::Open(const std::string& address, int milliseconds) {
    const Functions* f = Load();
    if (!f) return std::nullopt;
    Connection* connection = f->dbus_connection_open_private(address.c_str(), nullptr);
    if (!connection) return std::nullopt;
    Bus bus(connection);
    // By hand: libdbus's own greeting waits without a limit of ours, and has the process end with
    // the bus.
    const MessagePtr greeting =
        bus.Call(kDaemon, "org.freedesktop.DBus", "Hello", milliseconds, [](Writer&) {});
    const auto name = greeting ? Reader(*greeting).Text() : std::nullopt;
    if (!name) return std::nullopt;
    bus.m_name = *name;
    return bus;
}

MessagePtr Bus::NewCall(const Object& object, const char* interface, const char* method) {
    return MessagePtr(
        Load()->dbus_message_new_method_call(object.name, object.path, interface, method));
}

MessagePtr Bus::Send(Message& request, int milliseconds) {
    return MessagePtr(Load()->dbus_connection_send_with_reply_and_block(
        m_connection.get(), &request, milliseconds, nullptr));
}

bool Bus::Listen(const std::string& rule, int milliseconds) {
    return Call(kDaemon, "org.freedesktop.DBus", "AddMatch", milliseconds,
                [&](Writer& arguments) { arguments.Text(rule); }) != nullptr;
}

MessagePtr Bus::Next() {
    do {
        if (MessagePtr message{Load()->dbus_connection_pop_message(m_connection.get())})
            return message;
    } while (Load()->dbus_connection_read_write(m_connection.get(), -1));
    return nullptr;
}

}  // namespace brushworks::dbus
