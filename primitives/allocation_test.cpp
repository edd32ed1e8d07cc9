// Primitives that need memory of their own say so where there is none, leave the image alone and
// keep nothing. The allocator that they call is taken over for this program, so that it may fail.
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>

#include "primitives/filter_general.h"
#include "primitives/filter_row_column.h"
#include "primitives/median.h"
#include "primitives/morphology.h"
#include "primitives/resize.h"
#include "primitives/testing.h"

namespace {

constexpr int kNever = -1;
int allocationsLeft = kNever;

}  // namespace

extern "C" void* aligned_alloc(std::size_t alignment, std::size_t bytes) noexcept {
    if (allocationsLeft == 0) return nullptr;
    if (allocationsLeft > 0) --allocationsLeft;
    void* block = nullptr;
    return posix_memalign(&block, alignment, bytes) == 0 ? block : nullptr;
}

namespace brushworks {
namespace {

using testing::GuardedImage;

constexpr IppiSize kSize{20, 12};

template <class Sample>
void ExpectNoMemory(const char* name, int channels,
                    const std::function<int(const Sample* src, Sample* dst, int step)>& call) {
    SCOPED_TRACE(name);
    constexpr int kBorder = 16;  // of the source, for the windows
    GuardedImage<Sample> src({kSize.width + 2 * kBorder, kSize.height + 2 * kBorder}, channels);
    GuardedImage<Sample> dst(src.size(), channels);
    src.Randomize(1);
    dst.Randomize(2);
    const GuardedImage<Sample> before(dst);
    testing::ForEachVariant([&](Variant) {
        for (int had = 0; had < 10; ++had) {
            GuardedImage<Sample> result(before);
            allocationsLeft = had;
            const int status = call(&src.at(kBorder, kBorder), result.data(), src.step());
            allocationsLeft = kNever;
            if (status == kStatusOk) {
                EXPECT_GT(had, 0) << "takes no memory";
                return;
            }
            ASSERT_EQ(status, kStatusNoMemory) << "after " << had;
            ASSERT_TRUE(result == before) << "after " << had;
        }
        ADD_FAILURE() << "never succeeds";
    });
}

template <class Sample>
using FilterCall = int(const Sample*, int, Sample*, int, IppiSize, const float*, IppiSize,
                       IppiPoint);

template <class Sample>
void ExpectNoMemoryOfFilter(const char* name, int channels, FilterCall<Sample>* filter) {
    // The first is a column times a row, which is summed in two passes.
    for (const float centre : {1.0f, 2.0f}) {
        std::vector<float> kernel(25, 1.0f);
        kernel[12] = centre;
        ExpectNoMemory<Sample>(name, channels, [&](const Sample* src, Sample* dst, int step) {
            return filter(src, step, dst, step, kSize, kernel.data(), {5, 5}, {2, 2});
        });
    }
}

TEST(Allocation, OfFilters) {
    ExpectNoMemoryOfFilter("general, bytes", 4, ippiFilter32f_8u_C4R);
    ExpectNoMemoryOfFilter("general, floats", 4, ippiFilter_32f_C4R);
    constexpr std::int32_t kBytes[] = {1, 2, 3};
    constexpr float kFloats[] = {1, 2, 3};
    ExpectNoMemory<std::uint8_t>("row, bytes", 4, [&](const auto* src, auto* dst, int step) {
        return ippiFilterRow_8u_C4R(src, step, dst, step, kSize, kBytes, 3, 1, 6);
    });
    ExpectNoMemory<float>("column, floats", 4, [&](const auto* src, auto* dst, int step) {
        return ippiFilterColumn_32f_C4R(src, step, dst, step, kSize, kFloats, 3, 1);
    });
}

TEST(Allocation, OfMedians) {
    for (const int side : {5, 15})
        ExpectNoMemory<std::uint8_t>("median", 4, [&](const auto* src, auto* dst, int step) {
            return ippiFilterMedian_8u_C4R(src, step, dst, step, kSize, {side, side},
                                           {side / 2, side / 2});
        });
}

TEST(Allocation, OfResizes) {
    for (const int interpolation : {kResizeNearest, kResizeLanczos}) {
        const auto resize = [&](auto* function) {
            return [=](const auto* src, auto* dst, int step) {
                return function(src, kSize, step, {0, 0, kSize.width, kSize.height}, dst, step,
                                {30, 18}, 1.5, 1.5, interpolation);
            };
        };
        ExpectNoMemory<std::uint8_t>("resize, bytes", 4, resize(ippiResize_8u_C4R));
        ExpectNoMemory<float>("resize, floats", 4, resize(ippiResize_32f_C4R));
    }
}

TEST(Allocation, OfDilations) {
    const std::vector<std::uint8_t> mask(81, 1);
    IppiMorphologyState* state = nullptr;
    ASSERT_EQ(ippiMorphologyInitAlloc_8u_C4R(kSize.width, mask.data(), {9, 9}, {4, 4}, &state),
              kStatusOk);
    ExpectNoMemory<std::uint8_t>("dilation", 4, [&](const auto* src, auto* dst, int step) {
        return ippiDilateBorderReplicate_8u_C4R(src, step, dst, step, kSize, kBorderReplicate,
                                                state);
    });
    ippiMorphologyFree(state);
}

}  // namespace
}  // namespace brushworks
