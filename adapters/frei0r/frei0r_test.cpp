// The plug-ins as a host meets them: loaded from their files, by frei0r's functions alone.
#include <dlfcn.h>
#include <gmock/gmock.h>

#include <cmath>
#include <set>
#include <thread>

#include "frei0r/picture_seed.h"
#include "frei0r/plugin_parameters.h"
#include "host/frame_params.h"
#include "host/library.h"
#include "host/names.h"

extern "C" {
#include <frei0r.h>
}

namespace brushworks::frei0r {
namespace {

using Pixels = std::vector<std::uint32_t>;

// A function of frei0r's, by its name in the file.
#define FREI0R(function) find<decltype(function)>(#function)

/// A loaded file, begun.
struct Loaded {
    explicit Loaded(const std::string& effectId) {
        const std::string name = pluginFileName(effectId) + ".so";
        file = dlopen((BRUSHWORKS_FREI0R_PLUGINS "/" + name).c_str(), RTLD_NOW | RTLD_LOCAL);
        if (file == nullptr) throw std::runtime_error(dlerror());
        FREI0R(f0r_init)();
        FREI0R(f0r_get_plugin_info)(&info);
    }
    ~Loaded() {
        FREI0R(f0r_deinit)();
        dlclose(file);
    }
    template <class Function>
    Function* find(const char* name) const {
        return reinterpret_cast<Function*>(dlsym(file, name));
    }
    f0r_param_info_t parameter(int index) const {
        f0r_param_info_t found = {"", -1, ""};
        FREI0R(f0r_get_param_info)(&found, index);
        return found;
    }

    void* file;
    f0r_plugin_info_t info = {};
};

/// An instance, with its values by the names of its parameters.
struct Painter {
    Painter(const Loaded& from, unsigned int width, unsigned int height)
        : plugin(from), object(plugin.FREI0R(f0r_construct)(width, height)) {}
    ~Painter() { plugin.FREI0R(f0r_destruct)(object); }

    int indexOf(std::string_view name) const {
        int index = 0;
        while (index < plugin.info.num_params && name != plugin.parameter(index).name) ++index;
        return index;
    }
    template <class Value>
    void set(std::string_view name, Value value) const {
        plugin.FREI0R(f0r_set_param_value)(object, &value, indexOf(name));
    }
    template <class Value>
    Value get(std::string_view name) const {
        Value value = {};
        plugin.FREI0R(f0r_get_param_value)(object, &value, indexOf(name));
        return value;
    }
    std::string text(std::string_view name) const { return get<const char*>(name); }
    void paint(const std::uint32_t* from, std::uint32_t* to) const {
        plugin.FREI0R(f0r_update)(object, std::nan(""), from, to);
    }

    const Loaded& plugin;
    f0r_instance_t object;
};

struct Size {
    unsigned int width;
    unsigned int height;
};

Pixels noise(Size size) {
    Pixels pixels(std::size_t{size.width} * size.height);
    std::uint32_t state = 1;
    for (std::uint32_t& pixel : pixels) pixel = state = state * 1664525 + 1013904223;
    return pixels;
}

/// What the effect itself makes of a picture that it may write to.
Pixels painted(host::Effect& effect, Pixels source, Size size) {
    Pixels result(source.size());
    const auto record = [&](Pixels& pixels) {
        const int columns = static_cast<int>(size.width);
        return host::frameParams(reinterpret_cast<std::uint8_t*>(pixels.data()), columns,
                                 static_cast<int>(size.height), columns * 4, PixelFormatBGRA8);
    };
    RenderInfo info = {kRenderHasFieldMode, 0, 0, kFieldModeFrame};
    info.nRandomSeed = pictureSeed(source.data(), size.width, size.height);
    EXPECT_TRUE(effect.render(record(source), record(result), info));
    return result;
}

TEST(Frei0r, NamesAreUniqueInTheSpellingOfEveryHost) {
    const host::Library library = host::Library::load();
    for (const host::EffectEntry& entry : library.effects()) {
        const Loaded plugin(entry.id);
        std::string file = host::foldCase(plugin.info.name);
        std::replace(file.begin(), file.end(), ' ', '_');
        EXPECT_EQ(file, pluginFileName(entry.id));

        // GStreamer has properties of its own, and makes three of a colour.
        std::set<std::string> names = {"name", "parent", "qos"};
        const int count = plugin.info.num_params;
        for (int index = 0; index < count; ++index) {
            const f0r_param_info_t parameter = plugin.parameter(index);
            std::vector<std::string> parts = {""};
            if (parameter.type == F0R_PARAM_COLOR) parts = {" r", " g", " b"};
            for (const std::string& part : parts) {
                const std::string name = host::foldCase(parameter.name + part);
                EXPECT_TRUE(names.insert(name).second) << entry.id << ", " << name;
            }
        }
        EXPECT_STREQ(plugin.parameter(count - 1).name, "Preset");
        EXPECT_EQ(plugin.parameter(count).type, -1);
        EXPECT_EQ(plugin.parameter(-1).type, -1);
    }
}

TEST(Frei0r, KeepsGoodValuesAndPassesOverBadOnes) {
    const Loaded posterize("posterize");
    const Painter painter(posterize, 8, 8);
    painter.set("Preset", "offset printing");
    EXPECT_EQ(painter.text("Dither"), "Option D");
    painter.set("Dither", "2");
    EXPECT_EQ(painter.text("Dither"), "Option B");
    painter.set("Levels", "2");
    EXPECT_EQ(painter.text("Levels"), "2") << "a name goes before an index";
    painter.set("Color", 0.25);
    for (const double wrong : {-60.0, 2.5, std::nan("")}) painter.set("Color", wrong);
    for (const char* wrong : {"Option E", "5", "-1", "", static_cast<const char*>(nullptr)}) {
        painter.set("Dither", wrong);
        painter.set("Preset", wrong);
    }
    painter.set("no such name", 0.5);
    EXPECT_EQ(painter.get<double>("Color"), 0.25);
    painter.set("Color", 1.0625);
    EXPECT_EQ(painter.get<double>("Color"), 1) << "an animation that swings past the end";
    EXPECT_EQ(painter.text("Dither"), "Option B");
    EXPECT_EQ(painter.text("Preset"), "");

    const Loaded collage("paper-collage");
    const Painter other(collage, 8, 8);
    other.set("Shadow", f0r_param_color{1, 0.5F, 0});
    other.set("Shadow Amount", 0.75);
    EXPECT_NEAR(other.get<f0r_param_color>("Shadow").g, 0.5, 1 / 255.0);
    EXPECT_EQ(other.get<double>("Shadow Amount"), 0.75);
    other.set("Preset", "Silhouette");
    EXPECT_EQ(other.get<double>("Blend Colors"), 1) << "a hair past the end of a slider is its end";
}

TEST(Frei0r, PaintsAsTheEffectDoesAndLeavesTheSourceAlone) {
    const host::Library library = host::Library::load();
    for (const host::EffectEntry& entry : library.effects()) {
        const Loaded plugin(entry.id);
        host::Effect effect = library.open(entry.index);
        if (entry.id == "impressionist") effect.set("lock variations", "off");
        for (const Size size : {Size{1, 1}, {9, 1}, {61, 47}}) {
            const Pixels source = noise(size);
            const auto paint = [&](const Pixels& from, Pixels& to) {
                const Painter painter(plugin, size.width, size.height);
                painter.set("Lock Variations", 0.0);
                painter.paint(from.data(), to.data());
            };
            // Two instances share the frames of a clip, and their pictures.
            std::vector<Pixels> results(3, source);
            {
                const std::jthread second([&] { paint(source, results[1]); });
                paint(source, results[0]);
            }
            paint(results[2], results[2]);
            EXPECT_EQ(source, noise(size)) << entry.id;
            EXPECT_THAT(results, ::testing::Each(painted(effect, source, size))) << entry.id;
        }
    }
}

TEST(Frei0r, AnotherPictureHasAnotherSeed) {
    std::set<std::int32_t> seeds = {pictureSeed(noise({20, 10}).data(), 20, 10)};
    for (std::size_t i = 0; i < 200; ++i) {
        Pixels changed = noise({20, 10});
        changed[i] ^= 0x100;
        seeds.insert(pictureSeed(changed.data(), 20, 10));
    }
    EXPECT_EQ(seeds.size(), 201U);
}

TEST(Frei0r, WarnsInShortLinesOfText) {
    const Loaded oil("oil");
    const std::string wrong = "\x1B[2J\n\x9B" + std::string(100000, 'x');
    ::testing::internal::CaptureStderr();
    Painter(oil, 8, 8).set("Preset", wrong.c_str());
    const std::string warning = ::testing::internal::GetCapturedStderr();
    EXPECT_LT(warning.size(), 700U);
    EXPECT_THAT(warning,
                ::testing::StartsWith("brushworks_oil: oil has no preset \"\\x1b[2J\\x0a\\x9bxxx"));
    EXPECT_THAT(warning, ::testing::EndsWith("\n"));
    EXPECT_EQ(std::count_if(warning.begin(), warning.end(), [](char c) { return c < ' '; }), 1);
}

TEST(Frei0r, RefusesWhatCannotBe) {
    const Loaded oil("oil");
    const Painter none(oil, 8, 0);
    EXPECT_EQ(none.object, nullptr);
    none.set("Color", 0.5);
    EXPECT_EQ(none.get<double>("Color"), 0);
    none.paint(nullptr, nullptr);
    EXPECT_EQ(Painter(oil, 1U << 31, 1U << 31).object, nullptr);
    Painter(oil, 8, 8).paint(nullptr, nullptr);
}

}  // namespace
}  // namespace brushworks::frei0r
