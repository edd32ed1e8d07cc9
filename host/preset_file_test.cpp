// Preset files of the real library: what comes back, and what is said where nothing does.
#include "host/preset_file.h"

#include <gmock/gmock.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <limits>

#include "host/library.h"
#include "host/testing_message.h"

namespace brushworks::host {
namespace {

namespace fs = std::filesystem;
using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

class PresetFiles : public ::testing::Test {
  protected:
    PresetFiles() {
        std::string name = (fs::temp_directory_path() / "brushworks-test-XXXXXX").string();
        m_folder = mkdtemp(name.data());
        m_file = (m_folder / "mine.fxp").string();
    }
    ~PresetFiles() override { fs::remove_all(m_folder); }

    std::string text() const {
        std::ifstream file(m_file, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }
    void write(const std::string& text) const { std::ofstream(m_file, std::ios::binary) << text; }
    /// Saves the effect's values with `from` replaced by `to` in the text, once.
    void saveEdited(const Effect& effect, const std::string& from, const std::string& to) const {
        savePresetFile(m_file, effect, "Mine");
        std::string edited = text();
        const std::size_t place = edited.find(from);
        ASSERT_NE(place, std::string::npos) << edited;
        write(edited.replace(place, from.size(), to));
    }
    /// What is said when the file is loaded for the effect.
    std::string refusal(const Effect& effect) const {
        return messageOf([&] { PresetFile::load(m_file).presetFor(effect); });
    }
    /// Saves the values of one effect object and expects them in another, with the name.
    void expectThereAndBack(const Effect& effect, const std::string& name) const {
        savePresetFile(m_file, effect, name);
        const Preset preset = PresetFile::load(m_file).presetFor(effect);
        EXPECT_EQ(preset.name, name);
        for (const ParameterInfo& parameter : effect.info().parameters) {
            if (!parameter.hasValue()) continue;
            EXPECT_EQ(preset.values.at(parameter.index).word, effect.value(parameter).word)
                << effect.info().id << ", " << name << ", " << parameter.address;
        }
    }

    fs::path m_folder;
    std::string m_file;
    Library m_library = Library::load();
};

TEST_F(PresetFiles, EveryEffectAndPresetComesBackBitForBit) {
    for (const EffectEntry& entry : m_library.effects()) {
        Effect effect = m_library.open(entry.index);
        expectThereAndBack(effect, "defaults");
        for (const Preset& preset : effect.info().presets) {
            effect.apply(preset);
            expectThereAndBack(effect, preset.name);
        }
    }
}

TEST_F(PresetFiles, ValuesThatNoControlShowsAndNamesWithMarkupComeBackToo) {
    Effect collage = m_library.open("paper-collage");
    for (const ParameterInfo& parameter : collage.info().parameters) {
        EffectParam value = {.word = 0};
        if (parameter.type == kParamFloat) value.value = -std::numeric_limits<float>::denorm_min();
        if (parameter.type == kParamColor) value.color = 0xFFFFFFFE;
        if (parameter.type == kParamList) value.index = std::numeric_limits<std::int32_t>::min();
        if (parameter.type == kParamCheckBox) value.on = 1;
        collage.setValue(parameter, value);
    }
    expectThereAndBack(collage, "\"Öl\" & <it's>\n\ttwo  lines ");

    Effect moody = Library::load(BRUSHWORKS_TESTING_LIBRARY).open("stubborn-brush");
    moody.set("centre", "0.1,1e-40");
    expectThereAndBack(moody, std::string(259, 'x'));
}

TEST_F(PresetFiles, SaysWhichEffectAndLibraryAFileIsFor) {
    const Effect oil = m_library.open("oil");
    savePresetFile(m_file, oil, "Mine");
    EXPECT_THAT(refusal(m_library.open("mural")),
                AllOf(StartsWith("usage: " + m_file),
                      EndsWith(" is a preset for the effect \"Oil\", not for \"Mural\"")));
    EXPECT_EQ(refusal(oil), "");

    // Names are compared exactly, and a stranger's name gives a terminal no orders.
    saveEdited(oil, "EffectName=\"Oil\"", "EffectName=\"oil\"");
    EXPECT_THAT(refusal(oil), EndsWith("the effect \"oil\", not for \"Oil\""));
    saveEdited(oil, "EffectName=\"Oil\"", "EffectName=\"Oil&#x9B;1m\"");
    EXPECT_THAT(refusal(oil), HasSubstr("the effect \"Oil\\u009b1m\""));
    saveEdited(oil, "LibraryName=\"Lumenfold", "LibraryName=\"Other");
    EXPECT_THAT(refusal(oil), AllOf(StartsWith("usage: " + m_file),
                                    EndsWith("the effect library \"Other Brushworks\", not for "
                                             "\"Lumenfold Brushworks\"")));
    saveEdited(oil, " LibraryName=\"Lumenfold Brushworks\"", "");
    EXPECT_THAT(refusal(oil), HasSubstr("the effect library \"\""));
}

TEST_F(PresetFiles, SaysWhichParameterDiffers) {
    const Effect posterize = m_library.open("posterize");
    saveEdited(posterize, "type=\"1\"", "type=\"4\"");
    EXPECT_EQ(refusal(posterize),
              m_file +
                  " does not fit this version of Posterize: parameter 4, \"Levels\", is a "
                  "list, but the file has a check box there");
    saveEdited(posterize, "type=\"1\"", "type=\"77\"");
    EXPECT_THAT(refusal(posterize), EndsWith("has a parameter of the unknown type 77 there"));
    const Effect cartoon = m_library.open("cartoon");
    saveEdited(cartoon, "type=\"5\"", "type=\"6\"");
    EXPECT_THAT(refusal(cartoon), EndsWith("parameter 1, \"Lines\", is the start of a group, but "
                                           "the file has the end of a group there"));

    savePresetFile(m_file, posterize, "Mine");
    std::string shorter = text();
    shorter.erase(shorter.rfind("<parameter"), shorter.find("</Preset>") - shorter.rfind("<para"));
    write(shorter);
    EXPECT_THAT(refusal(posterize),
                EndsWith("it ends after 4 of 5 parameters; parameter 5, \"Dither\", is missing"));
}

TEST_F(PresetFiles, EntriesBeyondTheParametersPass) {
    Effect posterize = m_library.open("posterize");
    posterize.applyPreset("Dots");
    saveEdited(posterize, "</Preset>", "<parameter type=\"0\" x=\"1\"/></Preset>");
    const Preset preset = PresetFile::load(m_file).presetFor(posterize);
    EXPECT_EQ(preset.values.size(), posterize.info().parameters.size());
    EXPECT_EQ(preset.values.back().word, posterize.value(posterize.info().parameters.back()).word);
}

TEST_F(PresetFiles, WhatIsNoPresetFileIsToldWithItsName) {
    const auto loading = [](const std::string& path) {
        return messageOf([&] { PresetFile::load(path); });
    };
    EXPECT_EQ(loading(m_file), "cannot read " + m_file + ": No such file or directory");
    EXPECT_THAT(loading(m_folder), EndsWith("it is a folder"));
    EXPECT_THAT(loading("/dev/zero"), EndsWith("it is not a plain file"));
    write(std::string(1 << 20, ' '));
    EXPECT_THAT(loading(m_file), EndsWith("it is too large for a preset file"));
    write("<Preset/>");
    EXPECT_EQ(loading(m_file), m_file + " is a preset file without any parameters");

    int damaged = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator(BRUSHWORKS_PRESET_CORPUS)) {
        const bool bad = entry.path().filename().string().starts_with("bad-");
        const std::string said = loading(entry.path());
        EXPECT_EQ(said.find(entry.path().string()) != std::string::npos, bad) << entry << said;
        damaged += bad ? 1 : 0;
    }
    EXPECT_GT(damaged, 10);
}

TEST_F(PresetFiles, AFailedSaveLeavesTheOldFile) {
    const Effect oil = m_library.open("oil");
    savePresetFile(m_file, oil, "Mine");
    const std::string before = text();
    for (const std::string& name : {std::string(260, 'x'), std::string("a\x1B[2J"),
                                    std::string("\xFC"), std::string("a\0b", 3)}) {
        EXPECT_THAT(messageOf([&] { savePresetFile(m_file, oil, name); }),
                    AllOf(StartsWith("usage: the name of the preset"), Not(HasSubstr("\x1B"))));
    }
    EXPECT_EQ(text(), before);
    EXPECT_EQ(messageOf([&] { savePresetFile(m_folder, oil, "Mine"); }),
              "cannot write the preset file");
}

TEST_F(PresetFiles, EachEffectHasAnExtensionOfItsOwn) {
    EXPECT_EQ(presetExtension(m_library.open("cartoon")), "fxpbwka");
    EXPECT_EQ(presetExtension(m_library.open("posterize")), "fxpbwkk");
    EXPECT_EQ(presetExtension(Library::load(BRUSHWORKS_TESTING_LIBRARY).open(1)), "fxpunkb");
}

}  // namespace
}  // namespace brushworks::host
