// The plug-ins as a host meets them: loaded from their files, by frei0r's functions alone.
#include <dlfcn.h>
#include <gmock/gmock.h>
#include <sys/mman.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
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

/// A loaded file, begun.
struct Loaded {
    explicit Loaded(const std::string& effectId)
        : file(
              dlopen((std::string(BRUSHWORKS_FREI0R_PLUGINS "/") + pluginFileName(effectId) + ".so")
                         .c_str(),
                     RTLD_NOW | RTLD_LOCAL)) {
        if (file == nullptr) throw std::runtime_error(dlerror());
        begun = find<decltype(f0r_init)>("f0r_init")();
        find<decltype(f0r_get_plugin_info)>("f0r_get_plugin_info")(&info);
    }
    ~Loaded() {
        find<decltype(f0r_deinit)>("f0r_deinit")();
        dlclose(file);
    }
    Loaded(const Loaded&) = delete;
    Loaded& operator=(const Loaded&) = delete;

    template <class Function>
    Function* find(const char* name) const {
        return reinterpret_cast<Function*>(dlsym(file, name));
    }
    f0r_param_info_t parameter(int index) const {
        f0r_param_info_t found = {"", -1, ""};
        find<decltype(f0r_get_param_info)>("f0r_get_param_info")(&found, index);
        return found;
    }

    void* file;
    int begun = 0;
    f0r_plugin_info_t info = {};
};

/// An instance, with its values by the names of its parameters.
struct Painter {
    Painter(const Loaded& from, unsigned int width, unsigned int height)
        : plugin(from),
          object(plugin.find<decltype(f0r_construct)>("f0r_construct")(width, height)) {}
    ~Painter() { plugin.find<decltype(f0r_destruct)>("f0r_destruct")(object); }
    Painter(const Painter&) = delete;
    Painter& operator=(const Painter&) = delete;

    int indexOf(std::string_view name) const {
        int index = 0;
        while (index < plugin.info.num_params && name != plugin.parameter(index).name) ++index;
        return index;
    }
    template <class Value>
    void set(int index, Value value) const {
        plugin.find<decltype(f0r_set_param_value)>("f0r_set_param_value")(object, &value, index);
    }
    void set(std::string_view name, const char* text) const {
        set(indexOf(name), const_cast<char*>(text));
    }
    void set(std::string_view name, double number) const { set(indexOf(name), number); }
    template <class Value>
    Value get(std::string_view name) const {
        Value value = {};
        plugin.find<decltype(f0r_get_param_value)>("f0r_get_param_value")(object, &value,
                                                                          indexOf(name));
        return value;
    }
    std::string text(std::string_view name) const { return get<const char*>(name); }
    void paint(const std::uint32_t* from, std::uint32_t* to) const {
        plugin.find<decltype(f0r_update)>("f0r_update")(object, std::nan(""), from, to);
    }

    const Loaded& plugin;
    f0r_instance_t object;
};

Pixels noise(std::size_t count) {
    Pixels pixels(count);
    std::uint32_t state = 1;
    for (std::uint32_t& pixel : pixels) pixel = state = state * 1664525 + 1013904223;
    return pixels;
}

/// Pixels that end the program when someone writes there.
struct ReadOnly {
    explicit ReadOnly(const Pixels& pixels)
        : bytes(pixels.size() * sizeof pixels[0]),
          memory(mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0)) {
        std::memcpy(memory, pixels.data(), bytes);
        mprotect(memory, bytes, PROT_READ);
    }
    ~ReadOnly() { munmap(memory, bytes); }
    ReadOnly(const ReadOnly&) = delete;
    ReadOnly& operator=(const ReadOnly&) = delete;
    std::size_t bytes;
    void* memory;
};

/// What the effect itself makes of a picture that it may write to.
Pixels painted(host::Effect& effect, Pixels source, int width, int height) {
    Pixels result(source.size());
    const auto record = [&](Pixels& pixels) {
        return host::frameParams(reinterpret_cast<std::uint8_t*>(pixels.data()), width, height,
                                 width * 4, PixelFormatBGRA8);
    };
    RenderInfo info = {kRenderHasFieldMode, 0, 0, kFieldModeFrame};
    info.nRandomSeed =
        pictureSeed(source.data(), static_cast<unsigned>(width), static_cast<unsigned>(height));
    EXPECT_TRUE(effect.render(record(source), record(result), info));
    return result;
}

TEST(Frei0r, NamesAreUniqueInTheSpellingOfEveryHost) {
    const host::Library library = host::Library::load();
    for (const host::EffectEntry& entry : library.effects()) {
        const Loaded plugin(entry.id);
        EXPECT_EQ(plugin.begun, 1);
        EXPECT_EQ(plugin.info.color_model, F0R_COLOR_MODEL_BGRA8888);
        std::string file = host::foldCase(plugin.info.name);
        std::replace(file.begin(), file.end(), ' ', '_');
        EXPECT_EQ(file, pluginFileName(entry.id));

        // GStreamer's own properties, and those that it makes of a colour.
        std::set<std::string> names = {"name", "parent", "qos"};
        for (int index = 0; index < plugin.info.num_params; ++index) {
            const f0r_param_info_t parameter = plugin.parameter(index);
            const bool color = parameter.type == F0R_PARAM_COLOR;
            for (const char* part : color ? std::vector{" r", " g", " b"} : std::vector{""}) {
                EXPECT_TRUE(names.insert(host::foldCase(std::string(parameter.name) + part)).second)
                    << entry.id << ", " << parameter.name;
            }
            EXPECT_STRNE(parameter.explanation, "");
        }
        EXPECT_STREQ(plugin.parameter(plugin.info.num_params - 1).name, "Preset");
        EXPECT_EQ(plugin.parameter(plugin.info.num_params).type, -1);
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
    for (const double wrong : {-0.1, 1.5, std::nan("")}) painter.set("Color", wrong);
    for (const char* wrong : {"Option E", "5", "-1", "", static_cast<const char*>(nullptr)}) {
        painter.set("Dither", wrong);
        painter.set("Preset", wrong);
    }
    painter.set(99, 0.5);
    painter.set(-1, 0.5);
    EXPECT_EQ(painter.get<double>("Color"), 0.25);
    EXPECT_EQ(painter.text("Dither"), "Option B");
    EXPECT_EQ(painter.text("Preset"), "");

    const Loaded collage("paper-collage");
    const Painter other(collage, 8, 8);
    other.set(other.indexOf("Shadow"), f0r_param_color{1, 0.5F, 0});
    other.set("Shadow Amount", 0.75);
    EXPECT_NEAR(other.get<f0r_param_color>("Shadow").g, 0.5, 1 / 255.0);
    EXPECT_EQ(other.get<double>("Shadow Amount"), 0.75);
    other.set("Preset", "Silhouette");
    EXPECT_EQ(other.get<double>("Blend Colors"), 1)
        << "what lies past the end of a slider is its end";

    const Loaded impressionist("impressionist");
    const Painter third(impressionist, 8, 8);
    third.set("Random Size", 0.5);
    third.set("Random Angle", 0.49);
    EXPECT_EQ(third.get<double>("Random Size"), 1);
    EXPECT_EQ(third.get<double>("Random Angle"), 0);
}

TEST(Frei0r, PaintsAsTheEffectDoesAndLeavesTheSourceAlone) {
    const host::Library library = host::Library::load();
    for (const host::EffectEntry& entry : library.effects()) {
        const Loaded plugin(entry.id);
        host::Effect effect = library.open(entry.index);
        if (entry.id == "impressionist") effect.set("lock variations", "off");
        for (const auto& [width, height] : {std::pair{1, 1}, {9, 1}, {61, 47}}) {
            const Pixels source = noise(std::size_t(width) * std::size_t(height));
            const ReadOnly shared(source);
            const Painter painter(plugin, static_cast<unsigned>(width),
                                  static_cast<unsigned>(height));
            if (entry.id == "impressionist") painter.set("Lock Variations", 0.0);
            const Pixels expected = painted(effect, source, width, height);
            // Two instances share the frames of a clip, and their picture.
            std::vector<Pixels> results(2, Pixels(source.size()));
            {
                const std::jthread second([&] {
                    const Painter own(plugin, static_cast<unsigned>(width),
                                      static_cast<unsigned>(height));
                    if (entry.id == "impressionist") own.set("Lock Variations", 0.0);
                    own.paint(static_cast<const std::uint32_t*>(shared.memory), results[1].data());
                });
                painter.paint(static_cast<const std::uint32_t*>(shared.memory), results[0].data());
            }
            Pixels inPlace = source;
            painter.paint(inPlace.data(), inPlace.data());
            EXPECT_THAT(results, ::testing::Each(expected)) << entry.id << ", " << width;
            EXPECT_EQ(inPlace, expected) << entry.id << ", " << width;
        }
    }
}

TEST(Frei0r, RefusesWhatCannotBe) {
    setenv("BRUSHWORKS_LIBRARY", "/nowhere/lib.so", 1);
    {
        const Loaded lost("oil");
        EXPECT_EQ(lost.begun, 0);
        EXPECT_EQ(lost.info.num_params, 0);
        EXPECT_EQ(Painter(lost, 8, 8).object, nullptr);
    }
    unsetenv("BRUSHWORKS_LIBRARY");
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
