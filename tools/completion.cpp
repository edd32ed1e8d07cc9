// Follows the line as the parser would, then lists what the table and the library have there.
#include "completion.h"

#include <set>

#include "command_table.h"
#include "host/error.h"
#include "host/names.h"
#include "host/value_text.h"
#include "media/encoder.h"

namespace brushworks::tools {
namespace {

using Candidate = Completion::Candidate;
using Candidates = std::vector<Candidate>;

/// The first line of a text, short enough for a list.
std::string brief(const std::string& text) {
    constexpr std::size_t kMost = 72;
    std::string line = text.substr(0, text.find('\n'));
    if (line.size() > kMost) line.replace(line.rfind(' ', kMost), std::string::npos, " ...");
    return line;
}

/// Where the line stands in front of the word to complete.
class Place {
  public:
    explicit Place(const CLI::App& app) : m_pCommand(&app) {}

    void pass(const std::string& word) {
        if (m_pOpen != nullptr) {
            note(*m_pOpen, word);
            m_pOpen = nullptr;
        } else if (!m_bBare && word == "--") {
            m_bBare = true;
        } else if (!m_bBare && word.starts_with("--")) {
            passLong(word);
        } else if (!m_bBare && word.size() > 1 && word[0] == '-') {
            passShort(word);
        } else if (const CLI::App* command = findCommand(*m_pCommand, word)) {
            m_pCommand = command;
            m_nOperands = 0;
        } else {
            if (operand() != nullptr) note(*operand(), word);
            ++m_nOperands;
        }
    }

    const CLI::App& command() const { return *m_pCommand; }
    /// The option whose value comes next, or null.
    const CLI::Option* open() const { return m_pOpen; }
    /// The operand that a word without a hyphen is, or null.
    const CLI::Option* operand() const {
        const auto all = operands(*m_pCommand);
        if (m_nOperands < all.size()) return all[m_nOperands];
        const bool more = !all.empty() && all.back()->get_expected_max() > 1;
        return more ? all.back() : nullptr;
    }
    bool takesOptions() const { return !m_bBare; }
    bool isFree(const CLI::Option& option) const {
        return m_given.count(&option) == 0 || option.get_expected_max() > 1;
    }
    const std::string& effect() const { return m_sEffect; }

  private:
    void note(const CLI::Option& option, const std::string& value) {
        if (valueKind(option) == kEffectKind) m_sEffect = value;
    }

    void passLong(const std::string& word) {
        const std::size_t sign = word.find('=');
        const CLI::Option* option = findOption(*m_pCommand, word.substr(0, sign));
        if (option == nullptr) return;
        m_given.insert(option);
        if (sign != std::string::npos) {
            note(*option, word.substr(sign + 1));
        } else if (takesWord(*option)) {
            m_pOpen = option;
        }
    }

    /// Flags may share a hyphen; the last letter may be followed by its value.
    void passShort(const std::string& word) {
        for (std::size_t i = 1; i < word.size(); ++i) {
            const CLI::Option* option = findOption(*m_pCommand, std::string("-") + word[i]);
            if (option == nullptr) return;
            m_given.insert(option);
            if (!takesWord(*option)) continue;
            if (i + 1 == word.size()) {
                m_pOpen = option;
            } else {
                note(*option, word.substr(i + 1));
            }
            return;
        }
    }

    const CLI::App* m_pCommand;
    const CLI::Option* m_pOpen = nullptr;
    std::size_t m_nOperands = 0;
    bool m_bBare = false;  ///< behind "--" there are no options
    std::set<const CLI::Option*> m_given;
    std::string m_sEffect;
};

Candidates effectNames(const host::Library& library, const std::string& typed) {
    Candidates names;
    const std::string start = host::foldCase(typed);
    for (const host::EffectEntry& entry : library.effects()) {
        const bool byName = !host::foldCase(entry.id).starts_with(start) &&
                            host::foldCase(entry.name).starts_with(start);
        names.push_back(byName ? Candidate{entry.name, entry.id} : Candidate{entry.id, entry.name});
    }
    return names;
}

Candidates settings(const host::EffectInfo& effect, const std::string& typed) {
    Candidates words;
    const std::size_t sign = typed.find('=');
    if (sign == std::string::npos) {
        for (const host::ParameterInfo& parameter : effect.parameters) {
            if (!parameter.hasValue()) continue;
            words.push_back({parameter.address + "=", host::expectedText(parameter)});
        }
        return words;
    }
    const host::ParameterInfo& parameter = effect.parameter(typed.substr(0, sign));
    std::vector<std::string> values = parameter.options;
    if (parameter.type == kParamCheckBox) values = {"on", "off"};
    const std::string usual = host::printValue(parameter, parameter.defaultValue);
    if (values.empty()) values = {usual};
    for (const std::string& value : values) {
        words.push_back({typed.substr(0, sign + 1) + value, value == usual ? "default" : ""});
    }
    return words;
}

Candidates presetNames(const host::EffectInfo& effect) {
    Candidates names;
    for (const host::Preset& preset : effect.presets) names.push_back({preset.name, ""});
    return names;
}

Candidates codecNames() {
    Candidates names;
    for (const media::EncoderRow& row : media::encoderRows()) {
        names.push_back({row.common, row.name});
    }
    return names;
}

Candidates optionNames(const Place& place) {
    Candidates names;
    for (const CLI::Option* option : namedOptions(place.command())) {
        if (!place.isFree(*option)) continue;
        names.push_back({longName(*option), brief(option->get_description())});
    }
    return names;
}

Candidates commandNames(const Place& place) {
    Candidates names;
    for (const CLI::App* command : shownCommands(place.command())) {
        names.push_back({command->get_name(), brief(command->get_description())});
    }
    return names;
}

/// Keeps the candidates that `typed` begins, in any letter case.
void keepFitting(Candidates& candidates, const std::string& typed) {
    const std::string start = host::foldCase(typed);
    std::erase_if(candidates, [&](const Candidate& candidate) {
        return !host::foldCase(candidate.word).starts_with(start);
    });
}

class Values {
  public:
    Values(const std::function<host::Library()>& library, const std::string& effect)
        : m_library(library), m_sEffect(effect) {}

    /// For the value of `option`, of which `typed` is there, behind `front` in the same word.
    Completion of(const CLI::Option& option, const std::string& front,
                  const std::string& typed) const {
        const std::string kind = valueKind(option);
        if (kind == kFileKind || kind == kInputKind) return {Completion::Kind::Files, {}};
        if (kind == kFolderKind) return {Completion::Kind::Folders, {}};
        Completion completion = {Completion::Kind::Words, words(option, kind, typed)};
        keepFitting(completion.candidates, typed);
        for (Candidate& candidate : completion.candidates) candidate.word.insert(0, front);
        return completion;
    }

  private:
    Candidates words(const CLI::Option& option, const std::string& kind,
                     const std::string& typed) const {
        if (kind == kEffectKind) return effectNames(m_library(), typed);
        if (kind == kCodecKind) return codecNames();
        if (kind == kPresetKind && !m_sEffect.empty()) {
            return presetNames(m_library().open(m_sEffect).info());
        }
        if (kind == kSettingKind && !m_sEffect.empty()) {
            return settings(m_library().open(m_sEffect).info(), typed);
        }
        Candidates chosen;
        for (const std::string& word : choices(option)) chosen.push_back({word, ""});
        return chosen;
    }

    const std::function<host::Library()>& m_library;
    const std::string& m_sEffect;
};

}  // namespace

Completion complete(const CLI::App& app, const std::function<host::Library()>& library,
                    const std::vector<std::string>& words) {
    if (words.empty()) return {};
    Place place(app);
    for (std::size_t i = 0; i + 1 < words.size(); ++i) place.pass(words[i]);
    const std::string& typed = words.back();
    const Values values(library, place.effect());
    if (place.open() != nullptr) return values.of(*place.open(), "", typed);

    const bool hyphen = place.takesOptions() && typed.starts_with("-");
    if (hyphen && typed.starts_with("--") && typed.find('=') != std::string::npos) {
        const std::string front = typed.substr(0, typed.find('=') + 1);
        const CLI::Option* option = findOption(place.command(), front.substr(0, front.size() - 1));
        if (option == nullptr) return {};
        return values.of(*option, front, typed.substr(front.size()));
    }
    Completion completion;
    if (!hyphen && !shownCommands(place.command()).empty()) {
        completion.candidates = commandNames(place);
    } else if (!hyphen && place.operand() != nullptr) {
        return values.of(*place.operand(), "", typed);
    } else if (place.takesOptions()) {
        completion.candidates = optionNames(place);
    }
    keepFitting(completion.candidates, typed);
    return completion;
}

}  // namespace brushworks::tools
