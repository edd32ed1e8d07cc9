// Puts the facts of a gallery into words and into its template.
#include "gallery_page.h"

#include <cmath>
#include <cstdio>

#include "gallery_texts.h"
#include "host/value_text.h"
#include "html_template.h"

namespace brushworks::tools {
namespace {

std::string timeText(double seconds) {
    char text[32];
    if (seconds < 1) {
        std::snprintf(text, sizeof text, seconds < 0.01 ? "%.1f ms" : "%.0f ms", seconds * 1000);
    } else {
        std::snprintf(text, sizeof text, "%.1f s", seconds);
    }
    return text;
}

std::string countText(std::size_t count, const std::string& thing) {
    return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

std::string summary(const GalleryPage& page) {
    std::size_t pictures = 0;
    for (const GallerySection& section : page.sections) pictures += section.cards.size();
    return countText(pictures, "picture") + " by " + countText(page.sections.size(), "effect") +
           ": the defaults and every preset.";
}

TemplateValues parameterValues(const host::ParameterInfo& parameter) {
    TemplateValues values;
    values.texts = {{"name", parameter.address},
                    {"toolTip", parameter.toolTip},
                    {"range", "Takes " + host::expectedText(parameter) + "."}};
    return values;
}

/// The value as an editor's panel shows it: presets hold sliders finer than anybody sets them.
std::string valueText(const host::ParameterInfo& parameter, EffectParam value) {
    if (parameter.type != kParamFloat) return host::printValue(parameter, value);
    const double shown = host::displayValue(parameter, value.value);
    return host::printNumber(static_cast<float>(std::round(shown * 100) / 100));
}

TemplateValues settingValues(const host::ParameterInfo& parameter, EffectParam value) {
    TemplateValues values;
    const std::string text = valueText(parameter, value);
    const bool changed = text != valueText(parameter, parameter.defaultValue);
    values.texts = {
        {"name", parameter.address}, {"text", text}, {"kind", changed ? "changed" : "same"}};
    values.lists["swatch"];
    if (parameter.type == kParamColor) values.lists["swatch"] = {{{{"color", text}}, {}}};
    return values;
}

TemplateValues cardValues(const host::EffectInfo& effect, const GalleryCard& card) {
    TemplateValues values;
    values.texts = {{"name", card.title},
                    {"effect", effect.name},
                    {"file", card.file},
                    {"time", timeText(card.seconds)}};
    for (const std::string& piece : card.command) {
        values.lists["piece"].push_back({{{"text", piece}}, {}});
    }
    std::vector<TemplateValues>& settings = values.lists["value"];
    for (const host::ParameterInfo& parameter : effect.parameters) {
        if (!parameter.hasValue()) continue;
        settings.push_back(settingValues(parameter, card.values.at(parameter.index)));
    }
    return values;
}

TemplateValues sectionValues(const GallerySection& section) {
    TemplateValues values;
    values.texts = {{"id", section.effect.id},
                    {"name", section.effect.name},
                    {"presetCount", std::to_string(section.effect.presets.size())}};
    std::vector<TemplateValues>& parameters = values.lists["parameter"];
    for (const host::ParameterInfo& parameter : section.effect.parameters) {
        if (parameter.hasValue()) parameters.push_back(parameterValues(parameter));
    }
    std::vector<TemplateValues>& cards = values.lists["card"];
    for (const GalleryCard& card : section.cards) {
        cards.push_back(cardValues(section.effect, card));
    }
    return values;
}

}  // namespace

std::string galleryHtml(const GalleryPage& page) {
    TemplateValues values;
    values.texts = {{"input", page.input},
                    {"summary", summary(page)},
                    {"original", page.originalFile},
                    {"originalFacts", page.originalFacts},
                    {"width", std::to_string(page.width)},
                    {"height", std::to_string(page.height)},
                    {"backing", page.transparent ? "alpha" : "opaque"},
                    {"version", BRUSHWORKS_VERSION},
                    {"style", std::string(kGalleryStyle)},
                    {"script", std::string(kGalleryScript)}};
    std::vector<TemplateValues>& effects = values.lists["effect"];
    for (const GallerySection& section : page.sections) effects.push_back(sectionValues(section));
    return fillTemplate(kGalleryPage, values);
}

}  // namespace brushworks::tools
