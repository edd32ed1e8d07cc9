// A plug-in as it is in memory once, whatever the number of its instances.
#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "frei0r/instance.h"
#include "frei0r/plugin_parameters.h"
#include "host/effect.h"

namespace brushworks::frei0r {

/// The effect behind a plug-in. Hosts may begin it several times and end it as often, or never.
/// [any thread]
class Plugin {
  public:
    explicit Plugin(std::string_view effectId);
    ~Plugin();
    Plugin(const Plugin&) = delete;
    Plugin& operator=(const Plugin&) = delete;

    /// Loads the library. Throws host::Error.
    void begin();
    void end();

    const std::string& name() const { return m_sName; }
    const std::string& explanation() const { return m_sExplanation; }
    /// None before the first begin; from then on the same ones, for hosts that keep pointers to
    /// them.
    const std::vector<PluginParameter>& parameters() const { return m_parameters; }

    /// A new instance. Throws host::Error where no picture can have that size or there is no
    /// effect.
    std::unique_ptr<Instance> construct(unsigned int width, unsigned int height) const;

  private:
    const std::string m_sEffectId;
    const std::string m_sName;
    const std::string m_sExplanation;
    mutable std::mutex m_mutex;
    int m_nBegun = 0;
    std::unique_ptr<host::Effect> m_pEffect;  ///< the one that instances are cloned from
    host::EffectInfo m_info;
    std::vector<PluginParameter> m_parameters;
};

/// Tells the user on standard error, who sees nothing else of the plug-in; the same words only
/// once.
void warnOnce(std::string_view effectId, std::string_view message) noexcept;

}  // namespace brushworks::frei0r
