#include "library/random_sequence.h"

namespace brushworks {

RandomSequence::RandomSequence(unsigned int seed) {
    initstate_r(seed, m_state, sizeof m_state, &m_generator);
}

std::int32_t RandomSequence::Next() {
    std::int32_t drawn = 0;
    random_r(&m_generator, &drawn);
    return drawn;
}

}  // namespace brushworks
