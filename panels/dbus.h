// Messages on the session bus, through libdbus where the machine has it. The library is looked for
// when a bus is first opened; the declarations are ours, so that building needs none of its own.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace brushworks::dbus {

struct Connection;
struct Message;

/// A place in a message. libdbus keeps nine words there; it asks callers only for the room.
struct Place {
    void* words[16];
};

/// The functions of libdbus in use, under their names there. Its errors are not asked for.
struct Functions {
    Connection* (*dbus_connection_open_private)(const char* address, void* error);
    void (*dbus_connection_close)(Connection*);
    void (*dbus_connection_unref)(Connection*);
    Message* (*dbus_connection_send_with_reply_and_block)(Connection*, Message*, int milliseconds,
                                                          void* error);
    std::uint32_t (*dbus_connection_read_write)(Connection*, int milliseconds);
    Message* (*dbus_connection_pop_message)(Connection*);
    Message* (*dbus_message_new_method_call)(const char* destination, const char* path,
                                             const char* interface, const char* method);
    void (*dbus_message_unref)(Message*);
    std::uint32_t (*dbus_message_is_signal)(Message*, const char* interface, const char* name);
    const char* (*dbus_message_get_sender)(Message*);
    const char* (*dbus_message_get_path)(Message*);
    void (*dbus_message_iter_init_append)(Message*, Place*);
    std::uint32_t (*dbus_message_iter_append_basic)(Place*, int type, const void* value);
    std::uint32_t (*dbus_message_iter_append_fixed_array)(Place*, int type, const void* value,
                                                          int count);
    std::uint32_t (*dbus_message_iter_open_container)(Place*, int type, const char* signature,
                                                      Place* inner);
    std::uint32_t (*dbus_message_iter_close_container)(Place*, Place* inner);
    std::uint32_t (*dbus_message_iter_init)(Message*, Place*);
    std::uint32_t (*dbus_message_iter_next)(Place*);
    int (*dbus_message_iter_get_arg_type)(Place*);
    void (*dbus_message_iter_get_basic)(Place*, void* value);
    void (*dbus_message_iter_recurse)(Place*, Place* inner);
};

/// Loads libdbus with the first call and keeps it. Null on a machine without. [any thread]
const Functions* Load();

struct Unref {
    void operator()(Message* message) const;
    void operator()(Connection* connection) const;  // closes it too
};
using MessagePtr = std::unique_ptr<Message, Unref>;

/// Appends values to a message, or to a container in it. Texts must be UTF-8.
class Writer {
  public:
    explicit Writer(Message& message);
    Writer& Text(const std::string& text);
    Writer& Flag(bool flag);
    Writer& Number(std::uint32_t number);
    Writer& Bytes(const char* first, std::size_t count);  ///< the elements of an array of bytes

    /// A container, filled by `fill(Writer&)`. Types: 'a' array, 'v' variant, 'r' structure, 'e'
    /// entry; `signature` is that of the elements, null for the last two.
    template <class Fill>
    Writer& In(int type, const char* signature, Fill fill) {
        Writer inner;
        if (!Open(type, signature, inner)) return *this;
        fill(inner);
        Close(inner);
        return *this;
    }
    /// An entry of a dictionary from texts to variants.
    template <class Fill>
    Writer& Entry(const char* key, const char* signature, Fill fill) {
        return In('e', nullptr, [&](Writer& entry) { entry.Text(key).In('v', signature, fill); });
    }

  private:
    Writer() = default;
    bool Open(int type, const char* signature, Writer& inner);
    void Close(Writer& inner);

    Place m_place{};
};

/// Reads values one after the other. A value of another type is none, and stays to be read.
class Reader {
  public:
    explicit Reader(Message& message);
    std::optional<std::string> Text();      ///< or an object's path
    std::optional<std::uint32_t> Number();  ///< or a byte
    /// What is in the container of that type, which is passed over.
    std::optional<Reader> In(int type);

  private:
    Reader() = default;
    int Type();
    void Pass();

    Place m_place{};
    bool m_isAtEnd = false;
};

/// An object on the bus that methods are called on.
struct Object {
    const char* name;
    const char* path;
};

/// A connection of our own, not shared with the host's use of libdbus.
class Bus {
  public:
    /// None where libdbus is missing or the bus does not answer in time.
    static std::optional<Bus> Open(const std::string& address, int milliseconds);

    /// The name by which the bus knows this connection.
    const std::string& name() const { return m_name; }

    /// Null for an error as for no answer in time. `write(Writer&)` appends the arguments.
    template <class Write>
    MessagePtr Call(const Object& object, const char* interface, const char* method,
                    int milliseconds, Write write) {
        const MessagePtr request = NewCall(object, interface, method);
        if (!request) return nullptr;
        Writer writer(*request);
        write(writer);
        return Send(*request, milliseconds);
    }
    /// Has signals that match the rule delivered to Next.
    bool Listen(const std::string& rule, int milliseconds);
    /// Waits for the next message as long as it takes. Null when the connection is gone.
    MessagePtr Next();

  private:
    explicit Bus(Connection* connection) : m_connection(connection) {}
    static MessagePtr NewCall(const Object& object, const char* interface, const char* method);
    MessagePtr Send(Message& request, int milliseconds);

    std::unique_ptr<Connection, Unref> m_connection;
    std::string m_name;
};

}  // namespace brushworks::dbus
