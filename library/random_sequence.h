// The C library's random numbers, without the process's shared stream.
#pragma once

#include <cstdint>
#include <cstdlib>

namespace brushworks {

/// After a seed it draws what std::rand would draw after std::srand with that seed, from a state of
/// its own: renders side by side keep their strokes, and the host's own stream is left alone.
class RandomSequence {
  public:
    /// The largest number drawn.
    static constexpr std::int32_t kMax = RAND_MAX;

    explicit RandomSequence(unsigned int seed);
    RandomSequence(const RandomSequence&) = delete;  // the generator points into its own state
    RandomSequence& operator=(const RandomSequence&) = delete;

    /// 0 to kMax.
    std::int32_t Next();

  private:
    random_data m_generator = {};
    char m_state[128] = {};  // as many bytes as std::rand has: the size decides the sequence
};

}  // namespace brushworks
