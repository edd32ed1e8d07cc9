#include "frames/lf_string.h"

#include <strings.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstring>
#include <new>
#include <utility>

#include "brushworks/guid.h"

namespace brushworks {
namespace {

/// The bytes of one character; what is none becomes U+FFFD.
std::size_t EncodeUTF8(std::uint32_t code, char (&out)[4]) {
    const bool none = code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF);
    if (none) code = 0xFFFD;
    if (code < 0x80) {
        out[0] = static_cast<char>(code);
        return 1;
    }
    const std::size_t length = code < 0x800 ? 2 : code < 0x10000 ? 3 : 4;
    constexpr std::uint32_t kFirst[] = {0, 0, 0xC0, 0xE0, 0xF0};
    for (std::size_t i = length - 1; i > 0; --i, code >>= 6)
        out[i] = static_cast<char>(0x80 | (code & 0x3F));
    out[0] = static_cast<char>(kFirst[length] | code);
    return length;
}

template <class... Values>
LFString Format(const char* format, Values... values) {
    char text[64];
    std::snprintf(text, sizeof text, format, values...);
    return LFString::FromText(text);
}

}  // namespace

LFString::LFString(const char* text, unsigned long length) {
    init(text, length);
}
LFString::LFString(char* text, unsigned long length) {
    init(text, length);
}
LFString::LFString(const wchar_t* text, unsigned long length)
    : LFString(LFUnicodeString(text, length).ToUTF8()) {}
LFString::LFString(const LFString& other) {
    init(other.m_pBuffer, other.m_nLength);
}
LFString::~LFString() {
    Clear();
}

LFString& LFString::operator=(const LFString& other) {
    if (this != &other) init(other.m_pBuffer, other.m_nLength);
    return *this;
}

LFString LFString::FromText(const char* text) {
    return {text, text ? std::strlen(text) : 0};
}

void LFString::Clear() {
    delete[] m_pBuffer;
    m_pBuffer = nullptr;
    m_nLength = 0;
}

bool LFString::Allocate(unsigned long length) {
    Clear();
    m_pBuffer = new (std::nothrow) char[length + 1];
    if (!m_pBuffer) return false;
    m_pBuffer[length] = '\0';
    m_nLength = length;
    return true;
}

void LFString::init(const char* text, unsigned long length) {
    if (!text)
        Clear();
    else if (Allocate(length))
        std::memcpy(m_pBuffer, text, length);
}

bool LFString::Equals(const LFString& other) const {
    return m_nLength == other.m_nLength &&
           (m_nLength == 0 || std::memcmp(m_pBuffer, other.m_pBuffer, m_nLength) == 0);
}

bool LFString::EqualsIgnoreCase(const LFString& other) const {
    return m_nLength == other.m_nLength &&
           (m_nLength == 0 || strncasecmp(m_pBuffer, other.m_pBuffer, m_nLength) == 0);
}

bool LFString::operator<(const LFString& other) const {
    if (m_nLength == other.m_nLength)
        return m_nLength != 0 && std::strncmp(m_pBuffer, other.m_pBuffer, m_nLength) < 0;
    return other.m_nLength < m_nLength;
}

LFString& LFString::Append(const LFString& other) {
    return *this = *this + other;
}

LFString LFString::operator+(const LFString& other) const {
    LFString joined;
    if (joined.Allocate(m_nLength + other.m_nLength)) {
        std::copy_n(m_pBuffer, m_nLength, joined.m_pBuffer);
        std::copy_n(other.m_pBuffer, other.m_nLength, joined.m_pBuffer + m_nLength);
    }
    return joined;
}

LFString LFString::Substr(unsigned long start, unsigned long count) const {
    if (start >= m_nLength) return {};
    const unsigned long rest = m_nLength - start;
    return {m_pBuffer + start, count < rest ? count : rest};
}

template <class Same>
long LFString::Find(const LFString& text, unsigned long start, Same same) const {
    if (text.IsEmpty() || text.m_nLength > m_nLength) return kNotFound;
    for (unsigned long at = start; at <= m_nLength - text.m_nLength; ++at)
        if (same(m_pBuffer + at, text.m_pBuffer, text.m_nLength) == 0) return static_cast<long>(at);
    return kNotFound;
}

long LFString::IndexOf(const LFString& text, unsigned long start) const {
    return Find(text, start,
                [](const char* a, const char* b, std::size_t n) { return std::memcmp(a, b, n); });
}

long LFString::IndexOfIgnoreCase(const LFString& text, unsigned long start) const {
    return Find(text, start,
                [](const char* a, const char* b, std::size_t n) { return strncasecmp(a, b, n); });
}

long LFString::IndexLastOf(const LFString& text) const {
    long last = kNotFound;
    for (long at = IndexOf(text); at != kNotFound;
         at = IndexOf(text, static_cast<unsigned long>(at) + 1))
        last = at;
    return last;
}

LFString& LFString::Replace(const LFString& what, const LFString& with) {
    const auto placeFrom = [&](unsigned long from) {
        const long at = IndexOf(what, from);
        return at == kNotFound ? m_nLength : static_cast<unsigned long>(at);
    };
    unsigned long count = 0;
    for (unsigned long at = placeFrom(0); at < m_nLength; at = placeFrom(at + what.m_nLength))
        ++count;
    if (count == 0) return *this;

    LFString result;
    if (result.Allocate(m_nLength - count * what.m_nLength + count * with.m_nLength)) {
        char* to = result.m_pBuffer;
        for (unsigned long from = 0; from < m_nLength;) {
            const unsigned long at = placeFrom(from);
            to = std::copy(m_pBuffer + from, m_pBuffer + at, to);
            if (at < m_nLength) to = std::copy_n(with.m_pBuffer, with.m_nLength, to);
            from = at + what.m_nLength;
        }
    }
    std::swap(m_pBuffer, result.m_pBuffer);
    std::swap(m_nLength, result.m_nLength);
    return *this;
}

LFString LFString::ToUpper() const {
    LFString upper(*this);
    for (std::uint64_t i = 0; i < upper.m_nLength; ++i)
        upper.m_pBuffer[i] =
            static_cast<char>(std::toupper(static_cast<unsigned char>(m_pBuffer[i])));
    return upper;
}

long LFString::GetLong(int fallback) const {
    long value = 0;
    return IsSet() && std::sscanf(m_pBuffer, "%ld", &value) == 1 ? value : fallback;
}

unsigned long LFString::GetULong(unsigned int fallback) const {
    unsigned int value = 0;
    return IsSet() && std::sscanf(m_pBuffer, "%ud", &value) == 1 ? value : fallback;
}

LFString LFString::FromInt(int value) {
    return Format("%d", value);
}
LFString LFString::FromDword(unsigned int value) {
    return Format("%u", value);
}

LFString LFString::FromGUID(const _GUID& guid) {
    const std::uint8_t* d = guid.Data4;
    return Format("%08x-%04x-%04x-%02x%02x-%02x%02x%02x%02x%02x%02x",
                  static_cast<unsigned>(guid.Data1), guid.Data2, guid.Data3, d[0], d[1], d[2], d[3],
                  d[4], d[5], d[6], d[7]);
}

LFString::__CFString LFString::GetCFString() const {
    return m_pBuffer ? std::string(m_pBuffer, m_nLength) : std::string();
}

LFString LFString::FromCFString(const __CFString* text) {
    return text ? LFString(text->c_str(), text->size()) : LFString();
}

LFUnicodeString::LFUnicodeString(const wchar_t* text, unsigned long length) {
    init(text, length);
}
LFUnicodeString::~LFUnicodeString() {
    delete[] m_pBuffer;
}

void LFUnicodeString::init(const wchar_t* text, unsigned long length) {
    if (!text) return;
    m_pBuffer = new (std::nothrow) wchar_t[length + 1];
    if (!m_pBuffer) return;
    std::memcpy(m_pBuffer, text, length * sizeof(wchar_t));
    m_pBuffer[length] = L'\0';
    m_nLength = length;
}

LFString LFUnicodeString::ToUTF8() const {
    char bytes[4];
    std::size_t length = 0;
    for (std::uint64_t i = 0; i < m_nLength; ++i)
        length += EncodeUTF8(static_cast<std::uint32_t>(m_pBuffer[i]), bytes);
    LFString text;
    if (!text.Allocate(length)) return text;
    char* to = text.m_pBuffer;
    for (std::uint64_t i = 0; i < m_nLength; ++i)
        to = std::copy_n(bytes, EncodeUTF8(static_cast<std::uint32_t>(m_pBuffer[i]), bytes), to);
    return text;
}

}  // namespace brushworks
