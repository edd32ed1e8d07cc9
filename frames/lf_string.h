// The library's own strings, for text that crosses from settings, statistics, reports and
// licensing. No render touches them.
#pragma once

#include <cstdint>
#include <string>

namespace brushworks {

struct _GUID;

/// An 8-bit string. An object belongs to one thread. Without memory a result is empty; nothing is
/// thrown, but by GetCFString.
class LFString {
  public:
    /// What searches answer when there is nothing to find.
    static constexpr long kNotFound = -1;

    LFString() = default;
    LFString(const char* text, unsigned long length);
    LFString(char* text, unsigned long length);
    /// Wide text becomes UTF-8.
    LFString(const wchar_t* text, unsigned long length);
    LFString(const LFString& other);
    LFString& operator=(const LFString& other);
    virtual ~LFString();

    /// Null-terminated text, measured.
    static LFString FromText(const char* text);

    bool IsEmpty() const { return m_nLength == 0; }
    bool IsSet() const { return m_nLength != 0; }
    unsigned long Size() const { return m_nLength; }
    char* Data() { return m_pBuffer; }
    /// Null-terminated; null for a string that never held text.
    const char* ConstData() const { return m_pBuffer; }
    void Clear();
    char& operator[](unsigned long index) { return m_pBuffer[index]; }
    char operator[](unsigned long index) const { return m_pBuffer[index]; }
    /// `index` lies below the length.
    bool HasOf(unsigned long index) const { return index < m_nLength; }

    bool Equals(const LFString& other) const;
    bool EqualsIgnoreCase(const LFString& other) const;
    bool operator==(const LFString& other) const { return Equals(other); }
    /// The order of maps keyed by this string, which is not the alphabet's: longer strings come
    /// first, and only strings of one length compare by their letters.
    bool operator<(const LFString& other) const;

    LFString& Append(const LFString& other);
    LFString& operator+=(const LFString& other) { return Append(other); }
    LFString operator+(const LFString& other) const;

    /// A `start` at or past the end gives an empty string; `count` is cut to what remains.
    LFString Substr(unsigned long start, unsigned long count) const;
    /// The first place of `text` at or behind `start`, or kNotFound; an empty text is nowhere.
    long IndexOf(const LFString& text, unsigned long start = 0) const;
    long IndexOfIgnoreCase(const LFString& text, unsigned long start = 0) const;
    long IndexLastOf(const LFString& text) const;
    /// Replaces all occurrences, from the left, with no second look at what was put in.
    LFString& Replace(const LFString& what, const LFString& with);
    /// A copy, byte by byte through toupper.
    LFString ToUpper() const;

    /// The number that the text begins with; `fallback` when it begins with none.
    long GetLong(int fallback) const;
    unsigned long GetULong(unsigned int fallback) const;
    static LFString FromInt(int value);
    static LFString FromDword(unsigned int value);
    /// 8-4-4-4-12 digits in lower case.
    static LFString FromGUID(const _GUID& guid);

    /// The string object of this platform, in UTF-8.
    using __CFString = std::string;
    __CFString GetCFString() const;
    static LFString FromCFString(const __CFString* text);

  private:
    friend class LFUnicodeString;

    /// Replaces the text by one of that length, yet to be written; false, and empty, when no memory
    /// is to be had.
    bool Allocate(unsigned long length);
    /// Replaces the text by a copy.
    void init(const char* text, unsigned long length);
    template <class Same>
    long Find(const LFString& text, unsigned long start, Same same) const;

    std::uint64_t m_nLength = 0;  // bytes, without the terminator
    char* m_pBuffer = nullptr;    // owned, null-terminated
};

/// The wide companion, kept for conversion.
class LFUnicodeString {
  public:
    LFUnicodeString(const wchar_t* text, unsigned long length);
    virtual ~LFUnicodeString();
    LFUnicodeString(const LFUnicodeString&) = delete;
    LFUnicodeString& operator=(const LFUnicodeString&) = delete;

    /// Code points that are none (surrogates, past 0x10FFFF) become U+FFFD.
    LFString ToUTF8() const;

  private:
    void init(const wchar_t* text, unsigned long length);

    std::uint64_t m_nLength = 0;  // characters, without the terminator
    wchar_t* m_pBuffer = nullptr;
};

}  // namespace brushworks
