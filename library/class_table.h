// The effects of the collection by index. The index is part of the contract.
#pragma once

#include "brushworks/effect.h"

namespace brushworks {

/// A new effect with one reference, or null past the last index. Throws where memory runs out: null
/// would say that the collection ends here.
IVideoEffect* NewEffect(unsigned int index);

}  // namespace brushworks
