// Values go through the host layer both ways; here they get their names and their looks.
#include "preset_command.h"

#include <filesystem>
#include <optional>

#include "host/error.h"
#include "host/preset_file.h"
#include "host/printable.h"
#include "host/value_text.h"
#include "notes.h"
#include "output_file.h"
#include "parameter_table.h"
#include "value_json.h"

namespace brushworks::tools {
namespace {

namespace fs = std::filesystem;

std::string presetName(const host::EffectInfo& effect, const PresetSaveOptions& options) {
    if (!options.name.empty()) return options.name;
    const std::string& start = options.choice.preset;
    return start.empty() ? fs::path(options.output).stem().string() : effect.preset(start).name;
}

/// What a preset file says, with descriptions of its values.
struct Shown {
    host::EffectInfo effect;  ///< without an id where the file fits none of the library
    host::Preset preset;
};

std::optional<host::Effect> effectNamed(const host::Library& library, const std::string& name) {
    for (const host::EffectEntry& entry : library.effects()) {
        if (entry.name == name) return library.open(entry.index);
    }
    return std::nullopt;
}

/// Its values as those of the effect that it names; nothing, and a note, where they do not fit.
std::optional<Shown> asEffect(const host::Library& library, const host::PresetFile& file,
                              const Notes& note) {
    const std::optional<host::Effect> effect = effectNamed(library, file.record().szEffectName);
    if (!effect) {
        note("there is no such effect here; the values are shown as the file has them");
        return std::nullopt;
    }
    try {
        return Shown{effect->info(), file.presetFor(*effect)};
    } catch (const host::Error& error) {
        note(std::string(error.what()) + "; the values are shown as the file has them");
        return std::nullopt;
    }
}

/// Its values by their places in the file, as they stand.
Shown asStored(const CEffectPreset& record) {
    Shown shown;
    shown.effect.name = record.szEffectName;
    shown.preset.name = record.szName;
    for (unsigned int index = 0; index < static_cast<unsigned int>(record.nParamCount); ++index) {
        host::ParameterInfo parameter;
        parameter.index = index;
        parameter.address = std::to_string(index + 1);
        parameter.type = static_cast<ParamType>(record.params[index].nType);
        parameter.displayMax = 1;
        shown.effect.parameters.push_back(std::move(parameter));
        shown.preset.values.push_back(record.params[index].value);
    }
    return shown;
}

void describe(const Shown& shown, const std::string& library, std::ostream& out) {
    const host::EffectInfo& effect = shown.effect;
    out << "Preset   " << host::printable(shown.preset.name) << '\n'
        << "Effect   " << host::printable(effect.name);
    if (!effect.id.empty()) out << " (" << effect.id << ')';
    out << "\nLibrary  " << host::printable(library) << "\n\n"
        << (effect.id.empty() ? "Parameters: place, type, stored value\n"
                              : "Parameters: name, type, value\n");
    writeParameterTable(effect.parameters, out, [&](const host::ParameterInfo& parameter) {
        return std::vector<std::string>{
            parameter.address, std::string(host::typeName(parameter.type)),
            host::printValue(parameter, shown.preset.values.at(parameter.index))};
    });
}

void describeAsJson(const Shown& shown, const std::string& library, std::ostream& out) {
    const host::EffectInfo& effect = shown.effect;
    Json json = {{"name", shown.preset.name}, {"library", library}, {"effect", effect.name}};
    if (!effect.id.empty()) {
        json["id"] = effect.id;
        json["values"] = valuesAsJson(effect, shown.preset);
    } else {
        json["parameters"] = Json::array();
        for (const host::ParameterInfo& parameter : effect.parameters) {
            Json entry = {{"type", host::typeName(parameter.type)}};
            if (parameter.hasValue()) {
                entry["value"] = valueAsJson(parameter, shown.preset.values.at(parameter.index));
            }
            json["parameters"].push_back(std::move(entry));
        }
    }
    out << json.dump(2) << '\n';
}

}  // namespace

void savePreset(const host::Library& library, const PresetSaveOptions& options) {
    const host::Effect effect = openEffect(library, options.choice);
    OutputFile file(options.output, options.force, /*inputs=*/{});
    host::savePresetFile(file.temporaryPath(), effect, presetName(effect.info(), options));
    file.commit();
    const std::string extension = "." + host::presetExtension(effect);
    if (fs::path(options.output).extension() != extension) {
        const Notes note(false);
        note("hosts look for presets of " + effect.info().name + " in files that end in " +
             extension);
    }
}

void showPreset(const host::Library& library, const std::string& path, bool json,
                std::ostream& out) {
    const host::PresetFile file = host::PresetFile::load(path);
    const std::optional<Shown> fitting = asEffect(library, file, Notes(false));
    const Shown shown = fitting ? *fitting : asStored(file.record());
    (json ? describeAsJson : describe)(shown, file.record().szLibraryName, out);
}

}  // namespace brushworks::tools
