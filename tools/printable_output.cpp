// Collects lines; a flush ends a piece of one, too.
#include "printable_output.h"

#include <utility>

#include "host/printable.h"

namespace brushworks::tools {

PrintableOutput::PrintableOutput(std::ostream& stream)
    : m_stream(stream), m_pTarget(stream.rdbuf()) {
    stream.rdbuf(this);
}

PrintableOutput::~PrintableOutput() {
    PrintableOutput::sync();
    m_stream.rdbuf(m_pTarget);
}

PrintableOutput::int_type PrintableOutput::overflow(int_type character) {
    if (traits_type::eq_int_type(character, traits_type::eof())) return character;
    const char c = traits_type::to_char_type(character);
    return xsputn(&c, 1) == 1 ? character : traits_type::eof();
}

std::streamsize PrintableOutput::xsputn(const char* text, std::streamsize count) {
    for (std::streamsize i = 0; i < count; ++i) {
        if (text[i] != '\n') {
            m_sLine += text[i];
        } else if (!putOut(host::printable(std::exchange(m_sLine, {})) + '\n')) {
            return i;
        }
    }
    return count;
}

int PrintableOutput::sync() {
    const bool done = putOut(host::printable(std::exchange(m_sLine, {})));
    return done && m_pTarget->pubsync() == 0 ? 0 : -1;
}

bool PrintableOutput::putOut(const std::string& text) {
    const auto size = static_cast<std::streamsize>(text.size());
    return m_pTarget->sputn(text.data(), size) == size;
}

}  // namespace brushworks::tools
