// Where the pixels of a job are computed.
#pragma once

#include <string>

#include "host/effect.h"

namespace brushworks::tools {

/// Renders as host::Effect::render() does, for all workers of a job. [any thread; an effect object
/// on one at a time]
class FrameRenderer {
  public:
    FrameRenderer() = default;
    virtual ~FrameRenderer() = default;
    FrameRenderer(const FrameRenderer&) = delete;
    FrameRenderer& operator=(const FrameRenderer&) = delete;

    virtual bool render(host::Effect& effect, const FrameParams& source,
                        const FrameParams& destination, const RenderInfo& info) = 0;
    /// For a message, behind what could not be rendered: " with ..." or "".
    virtual std::string withWhat() const = 0;
};

/// On the threads that ask, side by side.
class ProcessorRenderer final : public FrameRenderer {
  public:
    bool render(host::Effect& effect, const FrameParams& source, const FrameParams& destination,
                const RenderInfo& info) override {
        return effect.render(source, destination, info);
    }
    std::string withWhat() const override { return ""; }
};

}  // namespace brushworks::tools
