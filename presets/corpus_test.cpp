// The fuzzer's corpus as a test: every file does no harm, and its name says whether it loads.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "presets/preset_serializer.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace brushworks {
namespace {

TEST(PresetCorpus, LoadsWhatIsGoodAndRefusesWhatIsBad) {
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(BRUSHWORKS_PRESET_CORPUS)) {
        const std::string name = entry.path().filename();
        SCOPED_TRACE(name);
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string text((std::istreambuf_iterator<char>(file)), {});
        EXPECT_EQ(
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(text.data()), text.size()),
            0);
        CEffectPreset preset = {};
        EXPECT_EQ(CPresetSerializer::Parse(text, &preset), name.starts_with("good-"));
        EXPECT_EQ(CPresetSerializer::Load(entry.path().c_str(), &preset),
                  name.starts_with("good-"));
        ++files;
    }
    EXPECT_GE(files, 30);
}

}  // namespace
}  // namespace brushworks
