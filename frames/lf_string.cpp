#include "frames/lf_string.h"

#include <strings.h>

#include <cctype>
#include <cstdio>
#include <cstring>
#include <new>

#include "brushworks/guid.h"

namespace brushworks {
namespace {

void AppendUTF8(std::string& out, std::uint32_t code) {
    const bool none = code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF);
    if (none) code = 0xFFFD;
    auto tail = [&](int shift) { out += static_cast<char>(0x80 | (code >> shift & 0x3F)); };
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | code >> 6);
        tail(0);
    } else if (code < 0x10000) {
        out += static_cast<char>(0xE0 | code >> 12);
        tail(6);
        tail(0);
    } else {
        out += static_cast<char>(0xF0 | code >> 18);
        tail(12);
        tail(6);
        tail(0);
    }
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

void LFString::init(const char* text, unsigned long length) {
    Clear();
    if (!text) return;
    m_pBuffer = new (std::nothrow) char[length + 1];
    if (!m_pBuffer) return;
    std::memcpy(m_pBuffer, text, length);
    m_pBuffer[length] = '\0';
    m_nLength = length;
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
    std::string joined = GetCFString() + other.GetCFString();
    return {joined.c_str(), joined.size()};
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
    std::string result;
    unsigned long from = 0;
    for (long at; (at = IndexOf(what, from)) != kNotFound;
         from = static_cast<unsigned long>(at) + what.m_nLength)
        result +=
            Substr(from, static_cast<unsigned long>(at) - from).GetCFString() + with.GetCFString();
    if (from == 0) return *this;
    result += Substr(from, m_nLength).GetCFString();
    init(result.c_str(), result.size());
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
    std::string out;
    for (std::uint64_t i = 0; i < m_nLength; ++i)
        AppendUTF8(out, static_cast<std::uint32_t>(m_pBuffer[i]));
    return {out.c_str(), out.size()};
}

}  // namespace brushworks
