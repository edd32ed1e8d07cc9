// Compares what a file says with what the effect says of itself, entry by entry.
#include "host/preset_file.h"

#include <cstring>
#include <filesystem>
#include <optional>
#include <string_view>

#include "host/error.h"
#include "host/printable.h"
#include "presets/document_guard.h"
#include "presets/preset_extension.h"
#include "presets/preset_serializer.h"
#include "presets/whole_file.h"

namespace brushworks::host {
namespace {

namespace fs = std::filesystem;

/// Why ReadWholeFile gave nothing, as well as one can tell afterwards.
std::string reasonNotRead(const std::string& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (!fs::exists(status)) return error.message();
    if (fs::is_directory(status)) return "it is a folder";
    if (!fs::is_regular_file(status)) return "it is not a plain file";
    const std::uintmax_t bytes = fs::file_size(path, error);
    if (!error && bytes > kMaxDocumentBytes) return "it is too large for a preset file";
    return "access is refused, or the disk failed";
}

std::string kindOf(std::uint32_t type) {
    switch (type) {
        case kParamGroupOpen:
            return "the start of a group";
        case kParamGroupClose:
            return "the end of a group";
        default:
            if (type > kParamGroupClose)
                return "a parameter of the unknown type " + std::to_string(type);
            return "a " + std::string(typeName(static_cast<ParamType>(type)));
    }
}

std::string placeOf(const ParameterInfo& parameter) {
    std::string place = "parameter " + std::to_string(parameter.index + 1);
    if (!parameter.address.empty()) place += ", \"" + parameter.address + "\",";
    return place;
}

/// What keeps the entries from being those of the effect's parameters, or "".
std::string differenceOf(const CEffectPreset& record, const EffectInfo& info) {
    const auto count = static_cast<std::size_t>(record.nParamCount);
    for (const ParameterInfo& parameter : info.parameters) {
        if (parameter.index >= count) {
            return "it ends after " + std::to_string(count) + " of " +
                   std::to_string(info.parameters.size()) + " parameters; " + placeOf(parameter) +
                   " is missing";
        }
        const std::uint32_t type = record.params[parameter.index].nType;
        if (type != parameter.type) {
            return placeOf(parameter) + " is " + kindOf(parameter.type) + ", but the file has " +
                   kindOf(type) + " there";
        }
    }
    return "";
}

template <std::size_t bytes>
void setName(char (&field)[bytes], const std::string& name, const char* what) {
    if (name.size() < bytes && IsXmlText(name)) {
        std::memcpy(field, name.data(), name.size());
        return;
    }
    throw UsageError(std::string("the name of ") + what + ", \"" + printable(name) +
                     "\", does not go into a preset file; names there are UTF-8 of at most " +
                     std::to_string(bytes - 1) + " bytes, without control characters");
}

}  // namespace

PresetFile PresetFile::load(const std::string& path) {
    const std::optional<std::string> text = ReadWholeFile(path, kMaxDocumentBytes);
    if (!text) throw Error("cannot read " + path + ": " + reasonNotRead(path));
    PresetFile file;
    file.m_sPath = path;
    constexpr std::int32_t kUntouched = -1;
    file.m_record.nParamCount = kUntouched;
    if (!CPresetSerializer::Parse(*text, &file.m_record)) {
        throw Error(path + (file.m_record.nParamCount == kUntouched
                                ? " is no preset file, or it is damaged"
                                : " is a preset file without any parameters"));
    }
    return file;
}

Preset PresetFile::presetFor(const Effect& effect) const {
    const EffectInfo& info = effect.info();
    const std::string library = effect.libraryName();
    if (m_record.szLibraryName != library) {
        throw UsageError(m_sPath + " is a preset for the effect library \"" +
                         printable(m_record.szLibraryName) + "\", not for \"" + library + "\"");
    }
    if (m_record.szEffectName != info.name) {
        throw UsageError(m_sPath + " is a preset for the effect \"" +
                         printable(m_record.szEffectName) + "\", not for \"" + info.name + "\"");
    }
    const std::string difference = differenceOf(m_record, info);
    if (!difference.empty()) {
        throw Error(m_sPath + " does not fit this version of " + info.name + ": " + difference);
    }
    Preset preset{m_record.szName, {}};
    for (const ParameterInfo& parameter : info.parameters) {
        preset.values.push_back(m_record.params[parameter.index].value);
    }
    return preset;
}

void savePresetFile(const std::string& path, const Effect& effect, const std::string& presetName) {
    const EffectInfo& info = effect.info();
    CEffectPreset record = {};
    setName(record.szName, presetName, "the preset");
    setName(record.szLibraryName, effect.libraryName(), "the effect library");
    setName(record.szEffectName, info.name, "the effect");
    if (info.parameters.size() > CEffectPreset::kMaxParams) {
        throw Error(info.name + " has more parameters than the " +
                    std::to_string(CEffectPreset::kMaxParams) + " of a preset file");
    }
    for (const ParameterInfo& parameter : info.parameters) {
        record.params[record.nParamCount++] = {effect.value(parameter), parameter.type};
    }
    if (!CPresetSerializer::Save(path.c_str(), &record))
        throw Error("cannot write the preset file");
}

std::string presetExtension(const Effect& effect) {
    char extension[kExtensionBytes];
    GetEffectExtension(effect.libraryName().c_str(), effect.info().index, extension);
    return extension;
}

}  // namespace brushworks::host
