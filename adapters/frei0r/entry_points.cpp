// The functions of a frei0r plug-in, the same for all effects.
#pragma GCC visibility push(default)
extern "C" {
#include <frei0r.h>
}
#pragma GCC visibility pop

#include <exception>

#include "frei0r/plugin.h"

namespace brushworks::frei0r {

/// The plug-in's effect: a line that CMake writes.
extern const char kEffectId[];

}  // namespace brushworks::frei0r

namespace {

using brushworks::frei0r::Instance;
using brushworks::frei0r::kEffectId;
using brushworks::frei0r::Plugin;
using brushworks::frei0r::PluginParameter;

Plugin& plugin() {
    static Plugin only(kEffectId);
    return only;
}

/// Makes the call; false, and words for the user, where it throws: hosts are written in C.
template <class Call>
bool succeeds(Call call) noexcept {
    try {
        call();
        return true;
    } catch (const std::exception& error) {
        brushworks::frei0r::warnOnce(kEffectId, error.what());
    } catch (...) {
        brushworks::frei0r::warnOnce(kEffectId, "unknown error");
    }
    return false;
}

}  // namespace

/// Hosts differ in what they take for a failure. With 0 GStreamer leaves the plug-in out, and the
/// others fail when they ask for an instance.
int f0r_init() {
    return succeeds([] { plugin().begin(); }) ? 1 : 0;
}

void f0r_deinit() {
    succeeds([] { plugin().end(); });
}

void f0r_get_plugin_info(f0r_plugin_info_t* info) {
    if (info == nullptr) return;
    succeeds([&] {
        info->name = plugin().name().c_str();
        info->author = "Brushworks";
        info->plugin_type = F0R_PLUGIN_TYPE_FILTER;
        info->color_model = F0R_COLOR_MODEL_BGRA8888;
        info->frei0r_version = FREI0R_MAJOR_VERSION;
        info->major_version = BRUSHWORKS_VERSION_MAJOR;
        info->minor_version = BRUSHWORKS_VERSION_MINOR;
        info->num_params = static_cast<int>(plugin().parameters().size());
        info->explanation = plugin().explanation().c_str();
    });
}

void f0r_get_param_info(f0r_param_info_t* info, int param_index) {
    succeeds([&] {
        const auto index = static_cast<std::size_t>(param_index);
        if (info == nullptr || param_index < 0 || index >= plugin().parameters().size()) return;
        const PluginParameter& parameter = plugin().parameters()[index];
        *info = {parameter.name.c_str(), parameter.type, parameter.explanation.c_str()};
    });
}

f0r_instance_t f0r_construct(unsigned int width, unsigned int height) {
    f0r_instance_t instance = nullptr;
    succeeds([&] { instance = plugin().construct(width, height).release(); });
    return instance;
}

void f0r_destruct(f0r_instance_t instance) {
    delete static_cast<Instance*>(instance);
}

void f0r_set_param_value(f0r_instance_t instance, f0r_param_t param, int param_index) {
    if (instance == nullptr) return;
    succeeds([&] { static_cast<Instance*>(instance)->setValue(param_index, param); });
}

void f0r_get_param_value(f0r_instance_t instance, f0r_param_t param, int param_index) {
    if (instance == nullptr) return;
    succeeds([&] { static_cast<Instance*>(instance)->getValue(param_index, param); });
}

/// The time plays no part: hosts count it in units of their own.
void f0r_update(f0r_instance_t instance, double /*time*/, const std::uint32_t* inframe,
                std::uint32_t* outframe) {
    if (instance == nullptr || inframe == nullptr || outframe == nullptr) return;
    succeeds([&] { static_cast<Instance*>(instance)->update(inframe, outframe); });
}
