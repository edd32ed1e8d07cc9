// One instance of a plug-in: an effect of its own, its size, and the texts that it lends its host.
#pragma once

#include <frei0r.h>

#include <cstdint>
#include <string>
#include <vector>

#include "frei0r/plugin_parameters.h"
#include "host/effect.h"

namespace brushworks::frei0r {

/// What a host paints frames with. What an instance makes of a frame depends on the picture and the
/// values alone: neither on the time nor on earlier frames. [one thread at a time]
class Instance {
  public:
    /// `parameters` outlive the instance.
    Instance(host::Effect effect, const std::vector<PluginParameter>& parameters,
             unsigned int width, unsigned int height);

    /// Takes the value that `value` points to; throws host::UsageError for a wrong one, which
    /// changes nothing. An index or a pointer that leads nowhere is passed over.
    void setValue(int index, f0r_param_t value);
    /// Writes the value to where `target` points. A text stays until the next call for it.
    void getValue(int index, f0r_param_t target);

    /// Paints `source` into `destination`; throws host::Error when the effect cannot, and then
    /// `destination` is a copy of `source`.
    void update(const std::uint32_t* source, std::uint32_t* destination);

  private:
    const PluginParameter* parameter(int index) const;
    void setText(const PluginParameter& target, const char* text);
    std::uint8_t* writableSource(const std::uint32_t* source, const std::uint32_t* destination);
    std::size_t pixelCount() const { return std::size_t{m_nWidth} * m_nHeight; }

    host::Effect m_effect;
    const std::vector<PluginParameter>& m_parameters;
    const unsigned int m_nWidth;
    const unsigned int m_nHeight;
    std::string m_sPreset;              ///< as it was last set
    std::vector<std::string> m_lent;    ///< the texts that the host points to, by index
    std::vector<std::uint32_t> m_copy;  ///< of a source, for effects that write there
};

}  // namespace brushworks::frei0r
