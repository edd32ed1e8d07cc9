// An opened effect: values by name, and the call to render.
#include "host/effect.h"

#include "host/error.h"
#include "host/loaded_library.h"
#include "host/value_text.h"

namespace brushworks::host {
namespace {

std::vector<EffectParam> defaultValues(const EffectInfo& info) {
    std::vector<EffectParam> values;
    for (const ParameterInfo& parameter : info.parameters) values.push_back(parameter.defaultValue);
    return values;
}

Ref<IVideoEffect> createEffect(const LoadedLibrary& loaded, unsigned int index) {
    Ref<IVideoEffect> object = loaded.create(index);
    if (!object) throw Error("the library makes no effect " + std::to_string(index));
    return object;
}

}  // namespace

Effect::Effect(std::shared_ptr<const LoadedLibrary> loaded, unsigned int index)
    : m_pLoaded(std::move(loaded)), m_pObject(createEffect(*m_pLoaded, index)) {
    m_pInfo = std::make_shared<const EffectInfo>(describeEffect(index, *m_pObject));
    m_pHost = VideoHost::create(m_pLoaded->options(), defaultValues(*m_pInfo));
}

Effect::Effect(std::shared_ptr<const LoadedLibrary> loaded, std::shared_ptr<const EffectInfo> info,
               Ref<IVideoEffect> object, std::vector<EffectParam> values)
    : m_pLoaded(std::move(loaded)),
      m_pInfo(std::move(info)),
      m_pHost(VideoHost::create(m_pLoaded->options(), std::move(values))),
      m_pObject(std::move(object)) {}

Effect Effect::clone() const {
    return Effect(m_pLoaded, m_pInfo, createEffect(*m_pLoaded, m_pInfo->index), m_pHost->values());
}

std::string Effect::libraryName() const {
    return m_pLoaded->collection().GetName();
}

EffectParam Effect::value(const ParameterInfo& parameter) const {
    return m_pHost->value(parameter.index);
}

void Effect::setValue(const ParameterInfo& parameter, EffectParam value) {
    m_pHost->setValue(parameter.index, value);
}

void Effect::apply(const Preset& preset) {
    for (const ParameterInfo& parameter : m_pInfo->parameters) {
        if (parameter.hasValue()) setValue(parameter, preset.values.at(parameter.index));
    }
}

void Effect::set(std::string_view address, std::string_view text) {
    const ParameterInfo& parameter = m_pInfo->parameter(address);
    setValue(parameter, parseValue(parameter, text));
}

std::string Effect::text(std::string_view address) const {
    const ParameterInfo& parameter = m_pInfo->parameter(address);
    return printValue(parameter, value(parameter));
}

bool Effect::render(const FrameParams& source, const FrameParams& destination,
                    const RenderInfo& info) {
    // The library may write to none of these records, but takes them as if it might.
    FrameParams sourceRecord = source;
    FrameParams destinationRecord = destination;
    RenderInfo infoRecord = info;
    return m_pObject->Render(m_pHost.get(), &sourceRecord, nullptr, &destinationRecord,
                             &infoRecord);
}

}  // namespace brushworks::host
