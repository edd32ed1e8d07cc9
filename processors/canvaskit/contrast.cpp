#include "processors/canvaskit/contrast.h"

#include <cmath>
#include <cstddef>

namespace brushworks {

int CContrast::fillCore(float* kernel, int size, double amount) {
    if (!kernel || size < 1) return 0;
    const int h = size / 2;
    const std::size_t count = static_cast<std::size_t>(size) * size;
    const std::size_t centre = static_cast<std::size_t>(h) * (static_cast<std::size_t>(size) + 1);
    float total = 0.0f;
    for (std::size_t i = 0; i < count; ++i) {
        const double dx = static_cast<double>(i % size) - h, dy = static_cast<double>(i / size) - h;
        if (i == centre) continue;
        const double w = 1.0 / (dx * dx + dy * dy);
        kernel[i] = static_cast<float>(-w);
        total = static_cast<float>(total + w);
    }
    if (std::fabs(total) > 1e-6f)
        for (std::size_t i = 0; i < count; ++i)
            if (i != centre) kernel[i] = static_cast<float>(kernel[i] / double{total} * amount);
    kernel[centre] = static_cast<float>(amount + 1.0);
    return 0;
}

}  // namespace brushworks
