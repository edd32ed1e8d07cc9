// Named per-user values in sections, kept in a text file under the user's configuration folder.
#pragma once

#include <map>
#include <string>

#include "frames/lf_string.h"

namespace brushworks {

/// A store is one file, read and written whole. Values are text; names hold no '=', sections no
/// ']', and neither line breaks nor blanks at their ends. Two processes may write at once: each
/// change is made to what is in the file at that moment, under a lock, and the file is replaced in
/// one step. An object belongs to one thread.
class Settings {
  public:
    /// The store of that name for this user: $XDG_CONFIG_HOME/brushworks/NAME.ini, or the same
    /// below
    /// ~/.config.
    static Settings ForUser(const char* name = "settings");
    explicit Settings(std::string path) : m_path(std::move(path)) {}

    /// False, with `value` untouched, where there is no such value.
    bool Get(const LFString& section, const LFString& name, LFString& value) const;
    /// False for a name that cannot be kept, or when the file cannot be written.
    bool Set(const LFString& section, const LFString& name, const LFString& value);
    /// False when the file cannot be written; a value that does not exist is gone already.
    bool Remove(const LFString& section, const LFString& name);

    const std::string& path() const { return m_path; }

  private:
    using Section = std::map<LFString, LFString>;
    using Sections = std::map<LFString, Section>;

    Sections Read() const;
    bool Write(const Sections& sections) const;
    template <class Change>
    bool Update(Change change) const;

    std::string m_path;
};

}  // namespace brushworks
