#include "library/settings.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>

namespace brushworks {
namespace {

namespace fs = std::filesystem;

/// Holds the store's lock file for the length of a change.
class StoreLock {
  public:
    explicit StoreLock(const std::string& path)
        : m_file(open((path + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
        if (m_file >= 0 && flock(m_file, LOCK_EX) != 0) {
            close(m_file);
            m_file = -1;
        }
    }
    ~StoreLock() {
        if (m_file >= 0) close(m_file);
    }
    StoreLock(const StoreLock&) = delete;
    StoreLock& operator=(const StoreLock&) = delete;
    explicit operator bool() const { return m_file >= 0; }

  private:
    int m_file;
};

/// Values may hold anything: what would break a line is written with a backslash.
std::string Escape(const std::string& text) {
    std::string out;
    for (const char c : text) {
        if (c == '\\')
            out += "\\\\";
        else if (c == '\n')
            out += "\\n";
        else if (c == '\r')
            out += "\\r";
        else
            out += c;
    }
    return out;
}

std::string Unescape(const std::string& text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            out += text[i];
            continue;
        }
        const char c = text[++i];
        out += c == 'n' ? '\n' : c == 'r' ? '\r' : c;
    }
    return out;
}

bool CanBeName(const LFString& name, char stop) {
    const std::string text = name.GetCFString();
    if (text.empty() || text.find_first_of(std::string("\r\n\0", 3) + stop) != std::string::npos)
        return false;
    return text.front() != ' ' && text.back() != ' ' && text.front() != '[' && text.front() != '#';
}

LFString ToLF(const std::string& text) {
    return LFString::FromCFString(&text);
}

/// All of `text` in a new file that is safely on the disk.
bool WriteWhole(const std::string& path, const std::string& text) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (file < 0) return false;
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t wrote = write(file, text.data() + done, text.size() - done);
        if (wrote <= 0) break;
        done += static_cast<std::size_t>(wrote);
    }
    const bool synced = done == text.size() && fsync(file) == 0;
    return close(file) == 0 && synced;
}

}  // namespace

Settings Settings::ForUser(const char* name) {
    const char* config = std::getenv("XDG_CONFIG_HOME");
    const char* home = std::getenv("HOME");
    fs::path folder =
        config && *config ? fs::path(config) : fs::path(home && *home ? home : "/") / ".config";
    return Settings((folder / "brushworks" / (std::string(name) + ".ini")).string());
}

Settings::Sections Settings::Read() const {
    Sections sections;
    std::ifstream file(m_path, std::ios::binary);
    LFString section;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line[0] == '#') continue;
        if (line.front() == '[' && line.back() == ']') {
            section = ToLF(line.substr(1, line.size() - 2));
            continue;
        }
        const std::size_t equals = line.find('=');
        if (equals == std::string::npos) continue;
        sections[section][ToLF(line.substr(0, equals))] = ToLF(Unescape(line.substr(equals + 1)));
    }
    return sections;
}

bool Settings::Write(const Sections& sections) const {
    std::ostringstream text;
    for (const auto& [section, values] : sections) {
        if (values.empty()) continue;
        text << '[' << section.GetCFString() << "]\n";
        for (const auto& [name, value] : values)
            text << name.GetCFString() << '=' << Escape(value.GetCFString()) << '\n';
    }
    const std::string temporary = m_path + ".new";  // the lock makes it ours alone
    std::error_code failed;
    if (WriteWhole(temporary, text.str())) {
        fs::rename(temporary, m_path, failed);
        if (!failed) return true;
    }
    fs::remove(temporary, failed);
    return false;
}

template <class Change>
bool Settings::Update(Change change) const {
    std::error_code failed;
    fs::create_directories(fs::path(m_path).parent_path(), failed);
    const StoreLock lock(m_path);
    if (!lock) return false;
    Sections sections = Read();
    change(sections);
    return Write(sections);
}

bool Settings::Get(const LFString& section, const LFString& name, LFString& value) const {
    const Sections sections = Read();
    const auto values = sections.find(section);
    if (values == sections.end()) return false;
    const auto found = values->second.find(name);
    if (found == values->second.end()) return false;
    value = found->second;
    return true;
}

bool Settings::Set(const LFString& section, const LFString& name, const LFString& value) {
    if (!CanBeName(section, ']') || !CanBeName(name, '=')) return false;
    return Update([&](Sections& sections) { sections[section][name] = value; });
}

bool Settings::Remove(const LFString& section, const LFString& name) {
    return Update([&](Sections& sections) {
        if (const auto values = sections.find(section); values != sections.end())
            values->second.erase(name);
    });
}

}  // namespace brushworks
