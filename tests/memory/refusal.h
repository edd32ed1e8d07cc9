// Memory that runs out when a test says so: the program's own operators new and delete.
#pragma once

namespace brushworks::testing {

/// Blocks that are out.
long LiveBlocks();

/// While it lives, the requests `first` to `last`, counted from 1 since it was made, are refused.
/// One at a time, in a program of one thread.
class Refusal {
  public:
    Refusal(long first, long last);
    ~Refusal();
    Refusal(const Refusal&) = delete;
    Refusal& operator=(const Refusal&) = delete;

    /// Something was refused.
    bool WasMet() const;
};

}  // namespace brushworks::testing
