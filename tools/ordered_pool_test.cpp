// The pool keeps order, bounds what it holds, and stops at the first error.
#include "ordered_pool.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <stdexcept>

namespace brushworks::tools {
namespace {

using Pool = OrderedPool<int, int>;
using namespace std::chrono_literals;

TEST(OrderedPool, HandsOutResultsInTheOrderOfTheWork) {
    // Early items take longest, so that later ones overtake them.
    const auto work = [](int number) {
        std::this_thread::sleep_for(std::chrono::microseconds(number % 4 == 0 ? 3000 : 100));
        return number * number;
    };
    Pool pool({work, work, work}, 6);
    int submitted = 0;
    for (int expected = 0; expected < 60; ++expected) {
        while (submitted < 60 && pool.hasRoom()) pool.submit(submitted++);
        EXPECT_LE(submitted - expected, 6);
        ASSERT_EQ(pool.take(), expected * expected);
    }
    EXPECT_TRUE(pool.empty());
}

TEST(OrderedPool, ThrowsWhatAWorkerThrewWhenItsTurnComes) {
    const auto work = [](int number) -> int {
        if (number == 2) throw std::runtime_error("two");
        return number;
    };
    Pool pool({work, work}, 4);
    for (int i = 0; i < 4; ++i) pool.submit(i);
    EXPECT_EQ(pool.take(), 0);
    EXPECT_EQ(pool.take(), 1);
    EXPECT_THROW(pool.take(), std::runtime_error);
}

TEST(OrderedPool, DropsWaitingWorkAtItsEnd) {
    std::atomic<int> started = 0;
    {
        Pool pool({[&](int number) {
                      ++started;
                      std::this_thread::sleep_for(20ms);
                      return number;
                  }},
                  100);
        for (int i = 0; i < 100; ++i) pool.submit(i);
        EXPECT_EQ(pool.take(), 0);
    }
    EXPECT_GE(started, 1);
    EXPECT_LT(started, 50);
}

}  // namespace
}  // namespace brushworks::tools
