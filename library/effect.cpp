#include "library/effect.h"

#include <string_view>

#include "library/field_mode.h"
#include "library/host_frames.h"
#include "library/licensing.h"
#include "processors/copy_plane.h"
#include "processors/region.h"

namespace brushworks {
namespace {

void RestoreAlpha(RenderJob& job) {
    const int plane = Processors::AlphaPlane(job.source);
    Processors::CCopyPlane().Process(&job.source, &job.destination, plane, plane);
}

/// The tables' texts fit their fields with a terminator: that is checked while they compile.
template <std::size_t N>
void CopyText(char (&field)[N], std::string_view text) {
    field[text.copy(field, N - 1)] = '\0';
}

void DescribeSlider(const ParamRow& row, EffectParamSetup& setup) {
    setup.fDisplayMin = row.range.min;
    setup.slider.fDisplayMax = row.range.max;
    setup.slider.nDisplayStep = row.range.step;
}

void DescribeList(const ParamRow& row, EffectParamSetup& setup) {
    setup.nOptionCount = row.optionCount;
    for (std::uint32_t i = 0; i < row.optionCount; ++i)
        CopyText(setup.szOptions[i], row.options[i]);
}

}  // namespace

std::uint32_t CEffect::QueryInterface(const _GUID& iid, void** face) {
    if (!face) return kNoInterface;
    if (iid == IID_IUnknown || iid == IID_VideoEffect || iid == IID_VideoGPUEffect)
        *face = static_cast<IVideoGPUEffect*>(this);
    else if (iid == IID_ParamToolTip)
        *face = static_cast<IParamToolTip*>(this);
    else
        *face = nullptr;
    if (!*face) return kNoInterface;
    AddRef();
    return kInterfaceFound;
}

std::uint32_t CEffect::Release() {
    const std::uint32_t left = m_references.Drop();
    if (left == 0) delete this;
    return left;
}

bool CEffect::EnumParam(unsigned int index, EffectParamSetup* setup) {
    if (index >= m_tables.paramCount || !setup) return false;
    const ParamRow& row = m_tables.params[index];
    setup->defaultValue.word = row.defaultWord;
    setup->nType = row.type;
    if (row.type == kParamFloat) DescribeSlider(row, *setup);
    if (row.type == kParamList) DescribeList(row, *setup);
    CopyText(setup->szName, row.name);
    setup->nLayoutTop = row.layout.top;
    setup->nLayoutLeft = row.layout.left;
    setup->nLayoutWidth = row.layout.width;
    setup->nLayoutHeight = row.layout.height;
    setup->bActive = true;
    return true;
}

const char* CEffect::EnumPreset(unsigned int index) {
    return index < m_tables.presetCount ? m_tables.presetNames[index] : nullptr;
}

bool CEffect::EnumPresetData(unsigned int preset, unsigned int param, EffectParam* value) {
    if (preset >= m_tables.presetCount || param >= m_tables.paramCount || !value) return false;
    value->word = m_tables.presetData[std::size_t{preset} * m_tables.paramCount + param];
    return true;
}

const char* CEffect::EnumToolTip(unsigned int index) {
    return index < m_tables.paramCount ? m_tables.toolTips[index] : nullptr;
}

bool CEffect::Render(IVideoHost* host, FrameParams* source, FrameParams*, FrameParams* destination,
                     RenderInfo* info) try {
    if (!host) return false;
    MemoryAllocator allocator(host);
    const Parameters parameters(*host, m_tables);
    HostFrames frames;
    if (!frames.Open(source, destination)) return false;

    RenderJob job{parameters, frames.source, frames.destination, info, AreFields(info), allocator};
    const bool painted = Paint(job);
    if (painted) {
        RestoreAlpha(job);
        if (AllowWatermark()) AddWatermark(host, destination, 1.0f);
    }
    if ((painted || TellsOfEveryRender()) && AllowUsageStatistics())
        AddUsageStatistics(GetName(), destination);
    return painted;
} catch (...) {  // memory ran out: no exception crosses the boundary
    return false;
}

bool CEffect::Paint(RenderJob&) {
    return false;
}

}  // namespace brushworks
