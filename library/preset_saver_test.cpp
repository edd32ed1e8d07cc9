// The preset service with panels that answer by script.
#include "library/preset_saver.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "library/artistic_effects.h"
#include "library/panels.h"
#include "library/reference.h"
#include "presets/preset_serializer.h"

namespace brushworks {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;

/// Answers with one path, and notes what it was asked and told.
struct ScriptedPanels final : IPanels {
    ScriptedPanels() { SetPanels(this); }
    ~ScriptedPanels() override { SetPanels(nullptr); }

    std::optional<std::string> ChooseToSave(OpaqueWindowPtr* window,
                                            const FileRequest& request) override {
        return Answer("save", window, request);
    }
    std::optional<std::string> ChooseToOpen(OpaqueWindowPtr* window,
                                            const FileRequest& request) override {
        return Answer("open", window, request);
    }
    void Alert(OpaqueWindowPtr* window, const AlertTexts& texts) override {
        parent = window;
        said.push_back(texts.title + "|" + texts.text + "|" + texts.button);
    }
    std::optional<std::string> Answer(const char* panel, OpaqueWindowPtr* window,
                                      const FileRequest& request) {
        if (broken) throw std::runtime_error("no desktop");
        parent = window;
        said.push_back(std::string(panel) + "|" + request.folder + "|" + request.extension + "|" +
                       request.name);
        return path;
    }

    std::optional<std::string> path;
    bool broken = false;
    OpaqueWindowPtr* parent = nullptr;
    std::vector<std::string> said;
};

constexpr char kNotSaved[] =
    "Couldn't save preset|An unexpected error occured. Your preset was unable to be saved.";
constexpr char kNotLoaded[] =
    "Couldn't load preset|An unexpected error occured. The preset was unable to be loaded.|OK";
constexpr char kOtherEffect[] =
    "Couldn't load preset|The saved preset doesn't match the current version of the effect.|OK";
constexpr unsigned int kOil = 7, kNoEffect = ~0u;

class PresetSaver : public ::testing::Test {
  protected:
    void SetUp() override {
        char folder[] = "/tmp/brushworks-saver-XXXXXX";
        ASSERT_NE(mkdtemp(folder), nullptr);
        m_folder = folder;
        panels.path = m_folder / "mine.fxpbwkh";
        setenv("HOME", folder, 1);
    }
    void TearDown() override { fs::remove_all(m_folder); }

    int Save(CEffectPreset* preset, unsigned int effect = kOil) {
        panels.said.clear();
        return saver->Save(window, library.get(), effect, preset, nullptr);
    }
    int Load(CEffectPreset* preset, unsigned int effect = kOil) {
        panels.said.clear();
        return saver->Load(window, library.get(), effect, preset, nullptr);
    }
    std::string Home() const { return m_folder.string(); }

    /// A preset of an effect, as a host fills it in before a save.
    CEffectPreset PresetOf(unsigned int effect, unsigned int index) {
        CEffectPreset preset = {};
        const Reference<IVideoEffect> object(library->CreateEffect(effect));
        std::snprintf(preset.szName, sizeof preset.szName, "%s", object->EnumPreset(index));
        for (EffectParamSetup setup = {};
             object->EnumParam(static_cast<unsigned int>(preset.nParamCount), &setup); setup = {}) {
            CEffectPreset::Param& param = preset.params[preset.nParamCount];
            object->EnumPresetData(index, static_cast<unsigned int>(preset.nParamCount++),
                                   &param.value);
            param.nType = setup.nType;
        }
        return preset;
    }

    OpaqueWindowPtr* const window = reinterpret_cast<OpaqueWindowPtr*>(&m_folder);
    Reference<IEffectLibrary> library{new CArtisticEffects};
    Reference<IPresetSaver> saver{library->GetPresetSaver()};
    ScriptedPanels panels;
    fs::path m_folder;
};

TEST_F(PresetSaver, EachCallGivesANewObjectWithItsFaces) {
    const Reference<IPresetSaver> other(library->GetPresetSaver());
    EXPECT_NE(other, saver);
    for (const _GUID& id : {IID_IUnknown, IID_PresetSaver}) {
        void* face = nullptr;
        ASSERT_EQ(other->QueryInterface(id, &face), kInterfaceFound);
        EXPECT_EQ(face, other.get());
        EXPECT_EQ(other->Release(), 1u);
    }
    void* face = this;
    EXPECT_EQ(other->QueryInterface(IID_EffectLibrary, &face), kNoInterface);
    EXPECT_EQ(face, nullptr);
}

TEST_F(PresetSaver, EveryPresetOfEveryEffectSurvivesItsFile) {
    int presets = 0;
    for (unsigned int effect = 0;
         const Reference<IVideoEffect> object{library->CreateEffect(effect)}; ++effect) {
        const std::string extension = std::string("fxpbwk") + static_cast<char>('a' + effect);
        for (unsigned int index = 0; object->EnumPreset(index); ++index, ++presets) {
            SCOPED_TRACE(std::string(object->GetName()) + ", " + object->EnumPreset(index));
            CEffectPreset preset = PresetOf(effect, index), back = {};
            std::memset(preset.szEffectName, '#', sizeof preset.szEffectName);
            ASSERT_EQ(Save(&preset, effect), 0);
            std::string save = "save|" + Home();
            save.append("|").append(extension).append("|MyPreset.").append(extension);
            EXPECT_THAT(panels.said, ElementsAre(save));
            ASSERT_EQ(Load(&back, effect), 0);
            EXPECT_THAT(panels.said, ElementsAre("open|" + Home() + "|" + extension + "|"));
            EXPECT_STREQ(back.szName, preset.szName);
            EXPECT_STREQ(back.szLibraryName, "Lumenfold Brushworks");
            EXPECT_STREQ(back.szEffectName, object->GetName());
            ASSERT_EQ(back.nParamCount, preset.nParamCount);
            for (int i = 0; i < back.nParamCount; ++i) {
                EXPECT_EQ(back.params[i].nType, preset.params[i].nType) << i;
                if (preset.params[i].nType > kParamCheckBox) continue;  // which has no value
                EXPECT_EQ(back.params[i].value.word, preset.params[i].value.word) << i;
            }
        }
    }
    EXPECT_GT(presets, 60);
}

TEST_F(PresetSaver, NothingIsDoneWithoutAFile) {
    CEffectPreset preset = PresetOf(kOil, 0);
    EXPECT_EQ(saver->Save(window, nullptr, kOil, &preset, nullptr), 1);
    EXPECT_EQ(Save(nullptr), 1);
    EXPECT_TRUE(panels.said.empty());
    panels.path.reset();
    EXPECT_EQ(Save(&preset), 1);
    EXPECT_EQ(panels.said.size(), 1u);
    EXPECT_EQ(Load(&preset), 1);
    EXPECT_EQ(panels.said.size(), 1u);
    panels.broken = true;
    EXPECT_EQ(Save(&preset), 1);
    EXPECT_EQ(Load(&preset), 1);
    EXPECT_STREQ(preset.szEffectName, "");
}

TEST_F(PresetSaver, TellsWhatCouldNotBeSaved) {
    CEffectPreset preset = PresetOf(kOil, 0);
    ASSERT_EQ(Save(&preset), 0);
    const std::string good = *panels.path;
    const auto expectAlert = [&](unsigned int effect, const std::string& reason = "") {
        EXPECT_EQ(Save(&preset, effect), 1);
        ASSERT_EQ(panels.said.size(), 2u);
        EXPECT_EQ(panels.said[1], kNotSaved + reason + "|OK");
        EXPECT_EQ(panels.parent, window);
    };
    expectAlert(kNoEffect);
    preset.nParamCount = 101;
    expectAlert(kOil);
    preset.nParamCount = 1;
    panels.path = m_folder;
    expectAlert(kOil);
    // Cut to 255 bytes this would be another file in the same folder.
    fs::path longPath = m_folder / std::string(100, 'a') / "";
    longPath += std::string(256 - longPath.string().size(), 'b');
    fs::create_directory(longPath.parent_path());
    panels.path = longPath;
    ASSERT_EQ(panels.path->size(), 256u);
    const std::string badPath = " The file's path is longer than 255 bytes, or it is not UTF-8.";
    expectAlert(kOil, badPath);
    EXPECT_TRUE(fs::is_empty(longPath.parent_path()));
    panels.path->pop_back();
    EXPECT_EQ(Save(&preset), 0);
    panels.path = "";  // what the panel could not take
    expectAlert(kOil, badPath);
    panels.path = good;
    for (const std::string& name :
         {std::string("\xE9\0", 2), std::string("a\x1B\0", 3), std::string(260, 'n')}) {
        name.copy(preset.szName, sizeof preset.szName);
        expectAlert(kOil,
                    " The preset's name is longer than 259 bytes, or it is not UTF-8, or it has "
                    "control characters.");
    }
    EXPECT_EQ(Load(&preset), 0);
}

TEST_F(PresetSaver, TellsWhatCouldNotBeLoaded) {
    CEffectPreset preset = PresetOf(kOil, 0);
    const auto expectAlert = [&](unsigned int effect, const char* alert) {
        EXPECT_EQ(Load(&preset, effect), 1);
        ASSERT_EQ(panels.said.size(), 2u);
        EXPECT_EQ(panels.said[1], alert);
        EXPECT_EQ(panels.parent, window);
    };
    expectAlert(kOil, kNotLoaded);  // no file yet
    ASSERT_EQ(Save(&preset), 0);
    expectAlert(kOil + 1, kOtherEffect);
    expectAlert(kNoEffect, kOtherEffect);
    EXPECT_EQ(saver->Load(window, library.get(), kOil, nullptr, nullptr), 1);
    EXPECT_EQ(panels.said.back(), kNotLoaded);
    std::ofstream(*panels.path) << "<Other/>";
    expectAlert(kOil, kNotLoaded);
}

TEST_F(PresetSaver, WithoutALibraryAnyPresetLoads) {
    CEffectPreset preset = PresetOf(kOil, 0);
    ASSERT_EQ(Save(&preset), 0);
    panels.said.clear();
    EXPECT_EQ(saver->Load(nullptr, nullptr, kOil, &preset, nullptr), 0);
    EXPECT_THAT(panels.said, ElementsAre("open|" + Home() + "|prs|"));
}

TEST_F(PresetSaver, AHomeThatIsNotSetIsThatOfThePasswords) {
    unsetenv("HOME");
    CEffectPreset preset = PresetOf(kOil, 0);
    ASSERT_EQ(Save(&preset), 0);
    EXPECT_THAT(panels.said.front(), ::testing::StartsWith("save|/"));
}

TEST_F(PresetSaver, ValidationComparesNamesAndTypes) {
    CEffectPreset good = PresetOf(kOil, 0);
    ASSERT_EQ(Save(&good), 0);
    const auto passes = [&](auto change) {
        CEffectPreset preset = good;
        change(preset);
        return ValidatePreset(library.get(), kOil, &preset);
    };
    using P = CEffectPreset;
    EXPECT_TRUE(passes([](P&) {}));
    EXPECT_TRUE(passes([](P& p) { p.params[p.nParamCount++].nType = 77; }));
    EXPECT_TRUE(passes([](P& p) { p.params[0].value.word = ~0ull; }));
    EXPECT_FALSE(passes([](P& p) { --p.nParamCount; }));
    EXPECT_FALSE(passes([](P& p) { p.nParamCount = -1; }));
    EXPECT_FALSE(passes([](P& p) { p.params[p.nParamCount - 1].nType ^= 1; }));
    EXPECT_FALSE(passes([](P& p) { std::strcpy(p.szLibraryName, "lumenfold brushworks"); }));
    EXPECT_FALSE(passes([](P& p) { std::strcpy(p.szEffectName, "Oil "); }));
    EXPECT_FALSE(ValidatePreset(library.get(), kOil, nullptr));
    EXPECT_FALSE(ValidatePreset(library.get(), kNoEffect, &good));
    EXPECT_TRUE(ValidatePreset(nullptr, kOil, &good));
    good.nParamCount = 0;
    EXPECT_FALSE(ValidatePreset(nullptr, kOil, &good));
}

}  // namespace
}  // namespace brushworks
