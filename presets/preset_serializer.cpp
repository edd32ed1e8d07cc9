#include "presets/preset_serializer.h"

#include <tinyxml.h>

#include <algorithm>
#include <charconv>
#include <clocale>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "presets/document_guard.h"
#include "presets/whole_file.h"

namespace brushworks {
namespace {

constexpr char kStarterText[] =
    "<?xml version=\"1.0\"  standalone='no' >\n<!-- Effect's Preset File -->\n<Preset>\n</Preset>";

using Name = char[CEffectPreset::kNameBytes];

struct NameAttribute {
    const char* attribute;
    Name CEffectPreset::*field;
};
constexpr NameAttribute kNames[] = {
    {"Name", &CEffectPreset::szName},
    {"LibraryName", &CEffectPreset::szLibraryName},
    {"EffectName", &CEffectPreset::szEffectName},
};

/// The double of a slider or a coordinate, as the nearest float that a control could show.
float Narrow(double value) {
    constexpr double kGreatest = std::numeric_limits<float>::max();
    return std::isnan(value) ? 0.0f : static_cast<float>(std::clamp(value, -kGreatest, kGreatest));
}

/// Widened, since that is what the files hold; in the shortest form that reads as the same number.
std::string Text(float value) {
    char text[32];
    const double wide = Narrow(value);
    return {text, std::to_chars(std::begin(text), std::end(text), wide).ptr};
}

/// The number that a text begins with; 0 for none. A host's locale may want a comma in it.
double Real(const std::string& text) {
    static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
    return strtod_l(text.c_str(), nullptr, plain);
}

/// The nearest Integer to the one that a text begins with; 0 for none.
template <class Integer>
Integer Whole(const std::string& text) {
    using Limits = std::numeric_limits<Integer>;
    const long long value = std::strtoll(text.c_str(), nullptr, 10);
    return static_cast<Integer>(std::clamp<long long>(value, Limits::min(), Limits::max()));
}

/// 32 bits, which some write with a sign.
std::uint32_t Bits(const std::string& text) {
    return text.find('-') == text.npos ? Whole<std::uint32_t>(text)
                                       : static_cast<std::uint32_t>(Whole<std::int32_t>(text));
}

std::string Attribute(const TiXmlElement& element, const char* name) {
    const std::string* text = element.Attribute(std::string(name));
    return text ? *text : std::string();
}

void AddValue(TiXmlElement& element, const CEffectPreset::Param& param) {
    switch (param.nType) {
        case kParamPoint:
            element.SetAttribute("x", Text(param.value.point.x));
            element.SetAttribute("y", Text(param.value.point.y));
            break;
        case kParamList:
            element.SetAttribute("value", param.value.index);
            break;
        case kParamFloat:
            element.SetAttribute("value", Text(param.value.value));
            break;
        case kParamColor:
            element.SetAttribute("value", std::to_string(param.value.color));
            break;
        case kParamCheckBox:
            element.SetAttribute("value", param.value.on ? 1 : 0);
            break;
        default:  // a panel of controls has no value
            break;
    }
}

EffectParam GetValue(const TiXmlElement& element, std::uint32_t type) {
    EffectParam param;
    param.word = 0;
    switch (type) {
        case kParamPoint:
            param.point.x = Narrow(Real(Attribute(element, "x")));
            param.point.y = Narrow(Real(Attribute(element, "y")));
            break;
        case kParamList:
            param.index = Whole<std::int32_t>(Attribute(element, "value"));
            break;
        case kParamFloat:
            param.value = Narrow(Real(Attribute(element, "value")));
            break;
        case kParamColor:
            param.color = Bits(Attribute(element, "value"));
            break;
        case kParamCheckBox:
            param.on = Whole<std::int32_t>(Attribute(element, "value")) != 0 ? 1 : 0;
            break;
        default:
            break;
    }
    return param;
}

/// Clears the names and fills in those that there are; false for one that does not fit.
bool GetNames(const TiXmlElement& element, CEffectPreset& preset) {
    for (const auto& [attribute, field] : kNames) {
        const std::string name = Attribute(element, attribute);
        if (name.size() >= sizeof(Name) || !IsXmlText(name)) return false;
        std::memset(preset.*field, 0, sizeof(Name));
        std::memcpy(preset.*field, name.data(), name.size());
    }
    return true;
}

bool SameNames(const CEffectPreset& a, const CEffectPreset& b) {
    return std::ranges::all_of(kNames, [&](const NameAttribute& name) {
        return std::strncmp(a.*name.field, b.*name.field, sizeof(Name)) == 0;
    });
}

/// What `text` holds, its parameters or none; nothing for what is no preset document.
std::optional<CEffectPreset> Read(std::string_view text) {
    if (!IsSafeToParse(text)) return std::nullopt;
    TiXmlDocument document;
    document.Parse(std::string(text).c_str());
    if (document.Error()) return std::nullopt;
    TiXmlElement* element = document.FirstChildElement("Preset");
    CEffectPreset preset = {};
    if (!element || !GetNames(*element, preset)) return std::nullopt;
    CPresetSerializer::Get(element, &preset, nullptr);
    return preset;
}

}  // namespace

void CPresetSerializer::Add(TiXmlElement* element, CEffectPreset* preset, IEffectData*) {
    if (!element || !preset) return;
    const int count = std::min(preset->nParamCount, CEffectPreset::kMaxParams);
    for (int i = 0; i < count; ++i) {
        const CEffectPreset::Param& param = preset->params[i];
        TiXmlElement child("parameter");
        child.SetAttribute("type", std::to_string(param.nType));
        AddValue(child, param);
        element->InsertEndChild(child);
    }
}

bool CPresetSerializer::Get(TiXmlElement* element, CEffectPreset* preset, IEffectData*) {
    if (!element || !preset) return false;
    for (const TiXmlElement* child = element->FirstChildElement("parameter"); child;
         child = child->NextSiblingElement("parameter")) {
        if (preset->nParamCount >= CEffectPreset::kMaxParams) break;
        const std::uint32_t type = Bits(Attribute(*child, "type"));
        preset->params[preset->nParamCount++] = {GetValue(*child, type), type};
    }
    return preset->nParamCount != 0;
}

std::optional<std::string> CPresetSerializer::Print(CEffectPreset* preset) {
    if (!preset || preset->nParamCount < 0 || preset->nParamCount > CEffectPreset::kMaxParams)
        return std::nullopt;
    TiXmlDocument document;
    document.Parse(kStarterText);
    TiXmlElement* element = document.FirstChildElement("Preset");
    if (!element) return std::nullopt;
    for (const auto& [attribute, field] : kNames) {
        const char* name = preset->*field;
        element->SetAttribute(attribute, std::string(name, strnlen(name, sizeof(Name))));
    }
    Add(element, preset, nullptr);
    TiXmlPrinter printer;
    document.Accept(&printer);
    const std::optional<CEffectPreset> back = Read(printer.Str());
    if (!back || !SameNames(*back, *preset)) return std::nullopt;
    return printer.Str();
}

bool CPresetSerializer::Parse(std::string_view text, CEffectPreset* preset) {
    if (!preset) return false;
    const std::optional<CEffectPreset> read = Read(text);
    if (!read) return false;
    *preset = *read;
    return preset->nParamCount != 0;
}

bool CPresetSerializer::Save(const char* path, CEffectPreset* preset) {
    if (!path) return false;
    const std::optional<std::string> text = Print(preset);
    return text && ReplaceWholeFile(path, *text);
}

bool CPresetSerializer::Load(const char* path, CEffectPreset* preset) {
    if (!path) return false;
    const std::optional<std::string> text = ReadWholeFile(path, kMaxDocumentBytes);
    return text && Parse(*text, preset);
}

}  // namespace brushworks
