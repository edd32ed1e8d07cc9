// Preset files: numbers and names that survive, and texts that do not get in.
#include "presets/preset_serializer.h"

#include <gmock/gmock.h>

#include <bit>
#include <chrono>
#include <clocale>
#include <cmath>
#include <cstring>
#include <random>

#include "presets/preset_extension.h"

namespace brushworks {
namespace {

using ::testing::HasSubstr;

constexpr float kGreatest = std::numeric_limits<float>::max();

CEffectPreset Preset(std::initializer_list<CEffectPreset::Param> params) {
    CEffectPreset preset = {};
    std::strcpy(preset.szName, "Mine");
    std::strcpy(preset.szLibraryName, "Lumenfold Brushworks");
    std::strcpy(preset.szEffectName, "Oil");
    for (const CEffectPreset::Param& param : params) preset.params[preset.nParamCount++] = param;
    return preset;
}

CEffectPreset::Param Float(float value) {
    return {{.value = value}, kParamFloat};
}

/// The preset after a save and a load.
CEffectPreset ThereAndBack(CEffectPreset preset) {
    const auto text = CPresetSerializer::Print(&preset);
    EXPECT_TRUE(text);
    CEffectPreset back = {};
    EXPECT_TRUE(text && CPresetSerializer::Parse(*text, &back));
    return back;
}

std::string Document(const std::string& parameters) {
    return "<Preset Name=\"Mine\">" + parameters + "</Preset>";
}

/// The one entry of a document with this "parameter".
CEffectPreset::Param Read(const std::string& attributes) {
    CEffectPreset preset = {};
    EXPECT_TRUE(CPresetSerializer::Parse(Document("<parameter " + attributes + "/>"), &preset));
    EXPECT_EQ(preset.nParamCount, 1);
    return preset.params[0];
}

bool Loads(const std::string& text) {
    CEffectPreset preset = {};
    return CPresetSerializer::Parse(text, &preset);
}

void ExpectFloatsSurvive() {
    std::mt19937 random(7);
    for (int round = 0; round < 50; ++round) {
        CEffectPreset preset =
            Preset({Float(-0.0f), Float(std::numeric_limits<float>::denorm_min()), Float(kGreatest),
                    Float(std::numeric_limits<float>::min()), Float(0.1f)});
        while (preset.nParamCount < CEffectPreset::kMaxParams) {
            const float x = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
            const float y = static_cast<float>(random()) / 4294967296.0f;
            if (!std::isfinite(x)) continue;
            preset.params[preset.nParamCount++] = {{.point = {x, y}}, kParamPoint};
        }
        const CEffectPreset back = ThereAndBack(preset);
        ASSERT_EQ(back.nParamCount, preset.nParamCount);
        for (int i = 0; i < back.nParamCount; ++i)
            ASSERT_EQ(back.params[i].value.word, preset.params[i].value.word) << i;
    }
}

TEST(PresetSerializer, EveryFloatComesBackBitForBit) {
    ExpectFloatsSurvive();
}

TEST(PresetSerializer, TheLocaleDoesNotReachTheNumbers) {
    for (const char* locale : {"de_DE.UTF-8", "fr_FR.UTF-8", "ru_RU.UTF-8"})
        if (std::setlocale(LC_NUMERIC, locale)) break;
    ExpectFloatsSurvive();
    EXPECT_EQ(Read("type=\"2\" value=\"0.5\"").value.value, 0.5f);
    EXPECT_EQ(Read("type=\"2\" value=\"0,5\"").value.value, 0.0f);
    std::setlocale(LC_NUMERIC, "C");
}

TEST(PresetSerializer, WritesAsTold) {
    CEffectPreset preset = Preset({{{.point = {0.1f, 1.0f}}, kParamPoint},
                                   {{.index = -4}, kParamList},
                                   Float(0.3f),
                                   {{.color = 16777215}, kParamColor},
                                   {{.on = 7}, kParamCheckBox},
                                   {{.word = 7}, kParamGroupClose}});
    EXPECT_EQ(CPresetSerializer::Print(&preset),
              "<?xml version=\"1.0\" standalone=\"no\" ?>\n"
              "<!-- Effect's Preset File -->\n"
              "<Preset Name=\"Mine\" LibraryName=\"Lumenfold Brushworks\" EffectName=\"Oil\">\n"
              "    <parameter type=\"0\" x=\"0.10000000149011612\" y=\"1\" />\n"
              "    <parameter type=\"1\" value=\"-4\" />\n"
              "    <parameter type=\"2\" value=\"0.30000001192092896\" />\n"
              "    <parameter type=\"3\" value=\"16777215\" />\n"
              "    <parameter type=\"4\" value=\"1\" />\n"
              "    <parameter type=\"6\" />\n"
              "</Preset>\n");
    const CEffectPreset back = ThereAndBack(preset);
    EXPECT_EQ(back.params[3].value.word, 16777215u);
    EXPECT_EQ(back.params[4].value.word, 1u);
    EXPECT_EQ(back.params[5].nType, kParamGroupClose);
}

TEST(PresetSerializer, NumbersThatNoFloatHoldsComeToTheNearest) {
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    const CEffectPreset back =
        ThereAndBack(Preset({Float(std::nanf("")), Float(kInfinity), Float(-kInfinity)}));
    EXPECT_EQ(back.params[0].value.word, 0u);
    EXPECT_EQ(back.params[1].value.value, kGreatest);
    EXPECT_EQ(back.params[2].value.value, -kGreatest);
    EXPECT_EQ(Read("type=\"2\" value=\"1e39\"").value.value, kGreatest);
    EXPECT_EQ(Read("type=\"2\" value=\"-1e9999\"").value.value, -kGreatest);
    EXPECT_EQ(Read("type=\"2\" value=\"1e-9999\"").value.value, 0.0f);
    EXPECT_EQ(Read("type=\"2\" value=\"nan\"").value.word, 0u);
    EXPECT_EQ(Read("type=\"1\" value=\"-99999999999\"").value.index, INT32_MIN);
    EXPECT_EQ(Read("type=\"1\" value=\"99999999999\"").value.index, INT32_MAX);
    EXPECT_EQ(Read("type=\"3\" value=\"-1\"").value.color, 0xFFFFFFFFu);
    EXPECT_EQ(Read("type=\"3\" value=\"4294967295\"").value.color, 0xFFFFFFFFu);
}

TEST(PresetSerializer, WhatIsMissingReadsAsZero) {
    const CEffectPreset::Param point = Read("x=\"0.5\"");
    EXPECT_EQ(point.nType, kParamPoint);
    EXPECT_EQ(point.value.point.x, 0.5f);
    EXPECT_EQ(point.value.point.y, 0.0f);
    EXPECT_EQ(Read("type=\"4\" value=\"-3\"").value.word, 1u);
    EXPECT_EQ(Read("type=\"4\"").value.word, 0u);
    EXPECT_EQ(Read("type=\"7\" value=\"1\"").nType, 7u);
}

TEST(PresetSerializer, EntriesBeyondTheHundredthAreSkipped) {
    std::string parameters;
    for (int i = 0; i < 1000; ++i)
        parameters += "<parameter type=\"1\" value=\"" + std::to_string(i) + "\"/>";
    CEffectPreset preset = {};
    ASSERT_TRUE(CPresetSerializer::Parse(Document(parameters), &preset));
    EXPECT_EQ(preset.nParamCount, 100);
    EXPECT_EQ(preset.params[99].value.index, 99);
    for (const std::int32_t count : {101, INT32_MAX, -1}) {
        preset.nParamCount = count;
        EXPECT_FALSE(CPresetSerializer::Print(&preset)) << count;
    }
}

TEST(PresetSerializer, NamesSurviveOrAreRefused) {
    CEffectPreset preset = Preset({Float(0)});
    for (const std::string& name :
         {std::string(), std::string("<a b='c'>&\"&#x41;&amp;"), std::string(" \t\n\r "),
          std::string("M\u00E4rz \u2603"), std::string(259, 'n')}) {
        std::strcpy(preset.szName, name.c_str());
        EXPECT_EQ(ThereAndBack(preset).szName, name);
    }
    for (const char* name : {"\xFC", "\xED\xA0\x80", "\xC0\x80", "\xF5\x80\x80\x80", "\x01"}) {
        std::strcpy(preset.szName, name);
        EXPECT_FALSE(CPresetSerializer::Print(&preset));
    }
    std::memset(preset.szName, 'n', sizeof preset.szName);
    EXPECT_FALSE(CPresetSerializer::Print(&preset));
}

TEST(PresetSerializer, ARefusedTextLeavesThePresetAlone) {
    CEffectPreset preset = Preset({Float(1)});
    const std::string parameter = "<parameter/>";
    EXPECT_FALSE(CPresetSerializer::Parse("<Other>" + parameter + "</Other>", &preset));
    EXPECT_FALSE(CPresetSerializer::Parse(
        "<Preset Name=\"" + std::string(260, 'n') + "\">" + parameter + "</Preset>", &preset));
    EXPECT_EQ(preset.nParamCount, 1);
    EXPECT_STREQ(preset.szEffectName, "Oil");
    EXPECT_FALSE(CPresetSerializer::Parse(Document(""), &preset));
    EXPECT_EQ(preset.nParamCount, 0);
    EXPECT_STREQ(preset.szName, "Mine");
    EXPECT_STREQ(preset.szEffectName, "");
    EXPECT_FALSE(CPresetSerializer::Parse(Document(parameter), nullptr));
    EXPECT_FALSE(CPresetSerializer::Load(nullptr, &preset));
    EXPECT_FALSE(CPresetSerializer::Save(nullptr, &preset));
    EXPECT_FALSE(CPresetSerializer::Save("/tmp/never-made", nullptr));
}

TEST(PresetSerializer, LargeHostileTextsEndSoon) {
    const auto repeated = [](const char* text, int times) {
        std::string all;
        for (int i = 0; i < times; ++i) all += text;
        return all;
    };
    const auto start = std::chrono::steady_clock::now();
    // Each would nest or compare far too often if the scan let it through.
    EXPECT_FALSE(Loads(repeated("<Preset>", 30000)));
    EXPECT_FALSE(
        Loads(Document("<parameter/>" + repeated("<a>", 30000) + repeated("</a>", 30000))));
    EXPECT_FALSE(Loads(Document("<parameter/>" + repeated("<a b='/></'>", 9000))));
    EXPECT_FALSE(Loads(Document("<parameter/>" + repeated("<a b=\"'/>'\">", 9000))));
    EXPECT_FALSE(Loads(Document("<parameter/>" + repeated("<a b=\"/><a b=\"/>", 9000))));
    EXPECT_FALSE(Loads(Document("<parameter/>" + repeated("<a><!--></a><!-- -->", 9000))));
    std::string attributes = "<parameter";
    for (int i = 0; i < 20000; ++i) attributes += " a" + std::to_string(i) + "=''";
    EXPECT_FALSE(Loads(Document(attributes + "/>")));
    EXPECT_FALSE(Loads(Document("<parameter/>" + std::string(1 << 20, ' '))));
    EXPECT_TRUE(Loads(Document("<parameter/>" + repeated("<a/>", 50000))));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST(PresetExtension, EachEffectHasItsOwn) {
    const auto extension = [](const char* library, unsigned int effect) {
        char text[kExtensionBytes];
        std::memset(text, '#', sizeof text);
        GetEffectExtension(library, effect, text);
        return std::string(text);
    };
    EXPECT_EQ(extension("Lumenfold Brushworks", 0), "fxpbwka");
    EXPECT_EQ(extension("Lumenfold Brushworks", 10), "fxpbwkk");
    EXPECT_EQ(extension("Lumenfold Brushworks", 25), "fxpbwkz");
    EXPECT_EQ(extension("Lumenfold Brushworks", 26), "fxpbwk");
    EXPECT_EQ(extension("Lumenfold Brushworks", ~0u), "fxpbwk");
    EXPECT_EQ(extension("Others", 1), "fxpunkb");
    EXPECT_EQ(extension(nullptr, 1), "prs");
    GetEffectExtension("Others", 1, nullptr);
}

}  // namespace
}  // namespace brushworks
