// An opened effect: its description, its current values and its render.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "brushworks/effect.h"
#include "brushworks/frame.h"
#include "brushworks/render.h"
#include "host/parameter_info.h"
#include "host/video_host.h"

namespace brushworks::host {

class LoadedLibrary;

/// One effect object with the values of its parameters. Serves one render at a time; for each
/// further thread, make a clone. [one thread at a time]
class Effect {
  public:
    /// A new effect object with the same values.
    Effect clone() const;

    const EffectInfo& info() const { return *m_pInfo; }
    /// The name of the collection that the effect is from.
    std::string libraryName() const;

    EffectParam value(const ParameterInfo& parameter) const;
    void setValue(const ParameterInfo& parameter, EffectParam value);
    /// Takes all values from a preset of this effect.
    void apply(const Preset& preset);

    /// The same by names and texts as people type them; these throw UsageError.
    void applyPreset(std::string_view presetName) { apply(info().preset(presetName)); }
    void set(std::string_view address, std::string_view text);
    std::string text(std::string_view address) const;

    /// Renders `source` into `destination`, which has the same pixel format; their overlap where
    /// the sizes differ. False when the effect rendered nothing useful.
    bool render(const FrameParams& source, const FrameParams& destination, const RenderInfo& info);

    /// The effect object itself, for callers that use more of it. Never null.
    IVideoEffect* object() const { return m_pObject.get(); }
    /// The host object that serves it. Never null.
    VideoHost* host() const { return m_pHost.get(); }

  private:
    friend class Library;
    Effect(std::shared_ptr<const LoadedLibrary> loaded, unsigned int index);
    Effect(std::shared_ptr<const LoadedLibrary> loaded, std::shared_ptr<const EffectInfo> info,
           Ref<IVideoEffect> object, std::vector<EffectParam> values);

    // The order matters: the code of the object is unloaded after the object is gone.
    std::shared_ptr<const LoadedLibrary> m_pLoaded;
    std::shared_ptr<const EffectInfo> m_pInfo;
    Ref<VideoHost> m_pHost;
    Ref<IVideoEffect> m_pObject;
};

}  // namespace brushworks::host
