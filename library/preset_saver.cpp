#include "library/preset_saver.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "library/panels.h"
#include "library/reference.h"
#include "presets/document_guard.h"
#include "presets/preset_extension.h"
#include "presets/preset_serializer.h"

namespace brushworks {
namespace {

constexpr int kDone = 0;
constexpr int kNotDone = 1;

/// What a saved path may take.
constexpr std::size_t kMaxPathBytes = 255;

const AlertTexts kNotLoaded = {"Couldn't load preset",
                               "An unexpected error occured. The preset was unable to be loaded.",
                               "OK"};
const AlertTexts kOtherEffect = {
    "Couldn't load preset", "The saved preset doesn't match the current version of the effect.",
    "OK"};

std::string HomeFolder() {
    if (const char* home = std::getenv("HOME"); home && *home) return home;
    std::vector<char> texts(16 * 1024);
    passwd entry;
    passwd* found = nullptr;
    getpwuid_r(getuid(), &entry, texts.data(), texts.size(), &found);
    return found && found->pw_dir ? found->pw_dir : "/";
}

FileRequest RequestFor(IEffectLibrary* library, unsigned int effect) {
    char extension[kExtensionBytes];
    GetEffectExtension(library ? library->GetName() : nullptr, effect, extension);
    return {HomeFolder(), extension, ""};
}

/// What the user can mend about a save, as a sentence behind the alert's text; "" for the rest.
const char* ReasonNotSaved(const std::string& path, const CEffectPreset& preset) {
    if (path.empty() || path.size() > kMaxPathBytes)
        return " The file's path is longer than 255 bytes, or it is not UTF-8.";
    const std::size_t length = strnlen(preset.szName, sizeof preset.szName);
    if (length == sizeof preset.szName || !IsXmlText({preset.szName, length}))
        return " The preset's name is longer than 259 bytes, or it is not UTF-8, or it has control "
               "characters.";
    return "";
}

void TellNotSaved(OpaqueWindowPtr* parent, const std::string& reason) {
    Panels().Alert(
        parent,
        {"Couldn't save preset",
         "An unexpected error occured. Your preset was unable to be saved." + reason, "OK"});
}

/// Fills a name of a preset; false for one that has no room there.
bool SetName(char (&field)[CEffectPreset::kNameBytes], const char* name) {
    std::memset(field, 0, sizeof field);
    const std::size_t length = name ? std::strlen(name) : sizeof field;
    if (length >= sizeof field) return false;
    std::memcpy(field, name, length);
    return true;
}

bool IsName(const char (&field)[CEffectPreset::kNameBytes], const char* name) {
    return name && std::strncmp(field, name, sizeof field) == 0;
}

int SaveWithPanel(OpaqueWindowPtr* parent, IEffectLibrary& library, unsigned int effect,
                  CEffectPreset& preset) {
    FileRequest request = RequestFor(&library, effect);
    request.name = "MyPreset." + request.extension;
    const std::optional<std::string> path = Panels().ChooseToSave(parent, request);
    if (!path) return kNotDone;

    const Reference<IVideoEffect> described(library.CreateEffect(effect));
    const bool named = SetName(preset.szLibraryName, library.GetName());
    const bool saved = SetName(preset.szEffectName, described ? described->GetName() : nullptr) &&
                       named && path->size() <= kMaxPathBytes &&
                       CPresetSerializer::Save(path->c_str(), &preset);
    if (saved) return kDone;
    TellNotSaved(parent, ReasonNotSaved(*path, preset));
    return kNotDone;
}

int LoadWithPanel(OpaqueWindowPtr* parent, IEffectLibrary* library, unsigned int effect,
                  CEffectPreset* preset) {
    const std::optional<std::string> path =
        Panels().ChooseToOpen(parent, RequestFor(library, effect));
    if (!path) return kNotDone;

    if (!CPresetSerializer::Load(path->c_str(), preset)) {
        Panels().Alert(parent, kNotLoaded);
        return kNotDone;
    }
    if (ValidatePreset(library, effect, preset)) return kDone;
    Panels().Alert(parent, kOtherEffect);
    return kNotDone;
}

}  // namespace

std::uint32_t CPresetSaver::QueryInterface(const _GUID& iid, void** face) {
    if (!face) return kNoInterface;
    *face = nullptr;
    if (iid != IID_IUnknown && iid != IID_PresetSaver) return kNoInterface;
    *face = static_cast<IPresetSaver*>(this);
    AddRef();
    return kInterfaceFound;
}

std::uint32_t CPresetSaver::Release() {
    const std::uint32_t left = m_references.Drop();
    if (left == 0) delete this;
    return left;
}

int CPresetSaver::Load(OpaqueWindowPtr* parent, IEffectLibrary* library, unsigned int effect,
                       CEffectPreset* preset, char*) try {
    return LoadWithPanel(parent, library, effect, preset);
} catch (...) {  // a panel failed or memory ran out: no exception crosses the boundary
    return kNotDone;
}

int CPresetSaver::Save(OpaqueWindowPtr* parent, IEffectLibrary* library, unsigned int effect,
                       CEffectPreset* preset, char*) try {
    if (!preset || !library) return kNotDone;
    return SaveWithPanel(parent, *library, effect, *preset);
} catch (...) {
    return kNotDone;
}

bool ValidatePreset(IEffectLibrary* library, unsigned int effect, CEffectPreset* preset) {
    if (!preset) return false;
    if (!library) return preset->nParamCount > 0;
    const Reference<IVideoEffect> described(library->CreateEffect(effect));
    if (!described || !IsName(preset->szLibraryName, library->GetName()) ||
        !IsName(preset->szEffectName, described->GetName()))
        return false;
    const int count = std::min(preset->nParamCount, CEffectPreset::kMaxParams);
    for (int index = 0;; ++index) {
        EffectParamSetup setup = {};
        if (!described->EnumParam(static_cast<unsigned int>(index), &setup)) return true;
        if (index >= count || preset->params[index].nType != setup.nType) return false;
    }
}

}  // namespace brushworks
