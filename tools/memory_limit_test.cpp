// The memory that is free by what the kernel tells, and how it is shared.
#include "memory_limit.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "host/error.h"
#include "memory_gate.h"
#include "testing_command.h"

namespace brushworks::tools {
namespace {

constexpr std::int64_t kMega = 1 << 20;

/// A folder that stands for "/".
class FreeMemory : public testing::CommandTest {
  protected:
    void tell(const std::string& file, const std::string& text) const {
        const std::filesystem::path whole = path(file);
        std::filesystem::create_directories(whole.parent_path());
        testing::writeFile(whole, text);
    }
    std::int64_t found() const { return freeMemory(path("")) / kMega; }
};

TEST_F(FreeMemory, IsTheLeastOfMachineAndGroups) {
    tell("proc/meminfo", "MemTotal: 16384000 kB\nMemFree: 1 kB\nMemAvailable:    8192000 kB\n");
    EXPECT_EQ(found(), 8000);
    // The group around ours has the limit; what was read from files can be dropped.
    tell("proc/self/cgroup", "0::/user/session\n");
    tell("sys/fs/cgroup/user/session/memory.max", "max\n");
    tell("sys/fs/cgroup/user/memory.max", std::to_string(1000 * kMega));
    tell("sys/fs/cgroup/user/memory.current", std::to_string(700 * kMega));
    EXPECT_EQ(found(), 300);
    tell("sys/fs/cgroup/user/memory.stat",
         "anon 1\nfile 2\ninactive_file " + std::to_string(200 * kMega) + "\nactive_file 9\n");
    EXPECT_EQ(found(), 500);
    // A container of the older kind sees its own group as the outermost one.
    tell("proc/self/cgroup", "3:cpu,memory:/docker/0123\n2:cpuset:/\n0::/\n");
    tell("sys/fs/cgroup/memory/memory.limit_in_bytes", std::to_string(600 * kMega));
    tell("sys/fs/cgroup/memory/memory.usage_in_bytes", std::to_string(550 * kMega));
    EXPECT_EQ(found(), 50);
    tell("sys/fs/cgroup/memory/memory.limit_in_bytes", "9223372036854771712");
    EXPECT_EQ(found(), 8000);
}

TEST(MemoryLimit, FollowsTheWrittenSize) {
    EXPECT_EQ(memoryLimit("", 1000), 500);
    EXPECT_EQ(memoryLimit("25%", 1000), 250);
    EXPECT_EQ(memoryLimit("1.5G", 1000), 1536 * kMega);
    EXPECT_EQ(memoryLimit("800M", 1000), 800 * kMega);
    for (const char* text : {"0M", "-1G", "2", "G", "2X", "2GB", "101%", "nanG", " 2G", "2 G"}) {
        EXPECT_THROW(memoryLimit(text, 1000), host::UsageError) << text;
    }
}

TEST(MemoryGate, NeverLendsMoreThanThereIs) {
    MemoryGate gate(100);
    std::atomic<std::int64_t> lent = 0;
    std::atomic<bool> exceeded = false;
    {
        std::vector<std::jthread> workers;
        for (int worker = 0; worker < 4; ++worker) {
            workers.emplace_back([&, worker] {
                for (int i = 0; i < 200; ++i) {
                    // One of them asks for more than there will ever be.
                    const auto share = gate.take(worker == 0 ? 1000 : 20 * worker);
                    if ((lent += share.bytes()) > 100) exceeded = true;
                    lent -= share.bytes();
                }
            });
        }
    }
    EXPECT_FALSE(exceeded);
    EXPECT_EQ(gate.take(100).bytes(), 100);
}

}  // namespace
}  // namespace brushworks::tools
