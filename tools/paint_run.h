// What all tasks of one run of the command share.
#pragma once

#include <algorithm>
#include <cstdint>
#include <mutex>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "frame_memory.h"
#include "host/library.h"
#include "input_files.h"
#include "memory_gate.h"
#include "memory_limit.h"
#include "notes.h"
#include "paint_command.h"
#include "paint_plan.h"
#include "progress.h"
#include "renderer_choice.h"

namespace brushworks::tools {

/// [one thread at a time]
class PaintRun {
  public:
    /// With `single` there is one task alone, whose number of frames is that of all.
    PaintRun(const host::Library& library, const PaintOptions& options, const InputFiles& inputs,
             std::ostream& out, bool single)
        : m_library(library),
          m_options(options),
          m_inputs(inputs),
          m_out(out),
          m_note(options.quiet),
          m_bSingle(single),
          m_nMemory(memoryLimit(options.memory, freeMemory())),
          m_gate(std::max<std::int64_t>(m_nMemory - kProgramMemory, 0)),
          m_renderers(options.gpu) {}

    const host::Library& library() const { return m_library; }
    const PaintOptions& options() const { return m_options; }
    /// On what frames render. [any thread]
    RendererChoice& renderers() { return m_renderers; }
    /// How much memory may be used, in bytes.
    std::int64_t memory() const { return m_nMemory; }
    /// The same, but for the program, as workers share it. [any thread]
    MemoryGate& gate() { return m_gate; }
    Scaled scaled() const;
    /// What may be decoded. [any thread]
    media::FrameLimit decodingLimit() const { return tools::decodingLimit(m_nMemory, scaled()); }
    /// Opens a picture of its own. Some decoders decode all of it to learn its size, so that one is
    /// opened at a time. [any thread]
    media::Reader openPicture(const std::string& path);
    /// Where a dry run tells.
    std::ostream& out() const { return m_out; }

    /// What no output may be.
    const InputFiles& inputs() const { return m_inputs; }

    /// Tells the user, once.
    void tell(const std::vector<std::string>& notes);
    /// A task begins whose frames are so many, 0 if not known.
    void begin(std::int64_t frames);
    /// Makes a file whole at once; that is a frame done.
    void writePicture(const std::string& output, const std::string& bytes);
    /// A frame is done.
    void step() { m_progress->step(); }
    /// All is done.
    void finish();
    /// Whether the output is there from a run before, and that is well. Throws std::runtime_error
    /// when it is one of the inputs.
    bool isDone(const std::string& output) const;
    /// Throws std::runtime_error when the output cannot be made.
    void checkOutput(const std::string& output) const;

  private:
    const host::Library& m_library;
    const PaintOptions& m_options;
    const InputFiles& m_inputs;
    std::ostream& m_out;
    const Notes m_note;
    const bool m_bSingle;
    const std::int64_t m_nMemory;
    MemoryGate m_gate;
    std::mutex m_opening;
    RendererChoice m_renderers;
    std::optional<Progress> m_progress;
    std::vector<std::string> m_told;
};

/// What the user set, with `usualRate` where a rate is needed and none is asked for, or 0/1. Throws
/// host::UsageError.
PlanWishes wishesOf(const PaintOptions& options, AVRational usualRate);

/// Lets writing to a closed pipe or past a limit of size fail, where a signal would end the program
/// without a word.
void failOnWriting();

}  // namespace brushworks::tools
