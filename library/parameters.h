// The host's values, as a render reads them.
#pragma once

#include <cstdint>

#include "brushworks/host.h"
#include "library/effect_tables.h"

namespace brushworks {

/// One read is one GetParam call, so an effect reads each value once, at the top of its render.
/// What no control could have sent is brought to the nearest that one could: a host's slip stays
/// harmless.
class Parameters {
  public:
    /// Both are borrowed.
    Parameters(IVideoHost& host, const EffectTables& tables) : m_host(host), m_tables(tables) {}

    /// A slider's position, 0 to 1; tables go a hair above. NaN is 0.
    float Slider(unsigned int index) const;
    /// The option of a list, -1 for one that does not exist.
    std::int32_t Option(unsigned int index) const;
    /// Red in bits 0 to 7, green in 8 to 15, blue in 16 to 23.
    std::uint32_t Color(unsigned int index) const;
    bool IsOn(unsigned int index) const;

  private:
    EffectParam Read(unsigned int index, ParamType type) const;

    IVideoHost& m_host;
    const EffectTables& m_tables;
};

}  // namespace brushworks
