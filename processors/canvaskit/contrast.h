// The kernel that sharpens local contrast.
#pragma once

namespace brushworks {

class CContrast {
  public:
    /// Fills `size` by `size` weights that sum to 1: `amount` + 1 in the middle, and around it
    /// `amount` taken away in inverse proportion to the squared distance. `size` is odd. A null
    /// kernel is left alone. Always 0.
    int fillCore(float* kernel, int size, double amount);
};

}  // namespace brushworks
