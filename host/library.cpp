// Finds, loads and unloads the library, and lists its effects.
#include "host/library.h"

#include <dlfcn.h>

#include <charconv>
#include <cstdlib>

#include "host/error.h"
#include "host/loaded_library.h"
#include "host/names.h"

namespace brushworks::host {
namespace {

constexpr char kPathVariable[] = "BRUSHWORKS_LIBRARY";

/// What to load, and in words where that name comes from.
struct Place {
    std::string path;
    std::string origin;
};

Place choosePlace(const std::string& path) {
    if (!path.empty()) return {path, ""};
    const char* fromEnvironment = std::getenv(kPathVariable);
    if (fromEnvironment != nullptr && *fromEnvironment != '\0') {
        return {fromEnvironment, std::string(" (from ") + kPathVariable + ")"};
    }
    return {BRUSHWORKS_SONAME, ""};
}

std::string loaderMessage() {
    const char* message = dlerror();
    return message != nullptr ? message : "unknown reason";
}

template <class Function>
Function* findFunction(void* file, const char* name) {
    return reinterpret_cast<Function*>(dlsym(file, name));
}

std::vector<EffectEntry> listEffects(const LoadedLibrary& loaded) {
    std::vector<EffectEntry> effects;
    for (unsigned int index = 0; const Ref<IVideoEffect> effect = loaded.create(index); ++index) {
        const std::string name = effect->GetName();
        effects.push_back({index, effectId(name), name});
    }
    return effects;
}

}  // namespace

LoadedLibrary::LoadedLibrary(const std::string& path, HostOptions options)
    : m_options(std::move(options)) {
    const Place place = choosePlace(path);
    m_pFile = dlopen(place.path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (m_pFile == nullptr) {
        throw Error("cannot load the effect library" + place.origin + ": " + loaderMessage() +
                    "; set " + kPathVariable + " to its path");
    }
    const auto getLibrary = findFunction<GetEffectsLibraryFunction>(m_pFile, "GetEffectsLibrary");
    m_pfCanUnload = findFunction<CanUnloadDLLNowFunction>(m_pFile, "CanUnloadDLLNow");
    if (getLibrary != nullptr && m_pfCanUnload != nullptr) {
        m_pCollection = Ref<IEffectLibrary>::adopt(getLibrary());
    }
    if (!m_pCollection) {
        dlclose(m_pFile);
        throw Error(place.path + place.origin + " is not an effect library");
    }
}

LoadedLibrary::~LoadedLibrary() {
    m_pCollection = {};
    // Somebody else in this process may still hold a library object of the same file.
    if (m_pfCanUnload()) dlclose(m_pFile);
}

Library::Library(std::shared_ptr<const LoadedLibrary> loaded)
    : m_pLoaded(std::move(loaded)),
      m_pEffects(std::make_shared<const std::vector<EffectEntry>>(listEffects(*m_pLoaded))) {}

Library Library::load(const std::string& path, HostOptions options) {
    return Library(std::make_shared<const LoadedLibrary>(path, std::move(options)));
}

std::string Library::name() const {
    return m_pLoaded->collection().GetName();
}

const std::vector<EffectEntry>& Library::effects() const {
    return *m_pEffects;
}

Effect Library::open(std::string_view effect) const {
    std::vector<std::string> right;
    std::vector<std::string> displayNames;
    for (const EffectEntry& entry : *m_pEffects) {
        if (sameName(effect, entry.id) || sameName(effect, entry.name)) return open(entry.index);
        right.push_back(entry.id);
        displayNames.push_back(entry.name);
    }
    unsigned int index = 0;
    const auto [end, error] = std::from_chars(effect.data(), effect.data() + effect.size(), index);
    if (error == std::errc() && end == effect.data() + effect.size()) return open(index);
    throw UsageError(unknownName("effect", effect, right, displayNames));
}

Effect Library::open(unsigned int index) const {
    if (index >= m_pEffects->size()) {
        throw UsageError("no effect " + std::to_string(index) + "; the last is " +
                         std::to_string(m_pEffects->size() - 1));
    }
    return Effect(m_pLoaded, index);
}

}  // namespace brushworks::host
