// The defaults of licensing, statistics and panels: an unrestricted product that reports to nobody
// and asks its user by the desktop's own panels.
#include <atomic>

#include "library/licensing.h"
#include "library/panels.h"
#include "library/statistics.h"
#include "panels/desktop_panels.h"

namespace brushworks {
namespace {

class Unrestricted final : public ILicensing {
  public:
    bool IsGPUAllowed() override { return true; }
    bool IsMarkRequired() override { return false; }
    void DrawMark(const char*, IVideoHost*, FrameParams*, float) override {}
    void DrawMarkGL(GPUHelper*, const char*, TextureParams*, TextureParams*, float) override {}
};

class KeepsNothing final : public IUsageStatistics {
  public:
    void SetEffects(const char* const*, unsigned int) override {}
    void ReportRender(const char*, const FrameParams*) override {}
};

Unrestricted g_unrestricted;
KeepsNothing g_keepsNothing;
DesktopPanels g_desktopPanels;
std::atomic<ILicensing*> g_licensing = &g_unrestricted;
std::atomic<IUsageStatistics*> g_statistics = &g_keepsNothing;
std::atomic<IPanels*> g_panels = &g_desktopPanels;

}  // namespace

ILicensing& Licensing() {
    return *g_licensing.load();
}
void SetLicensing(ILicensing* licensing) {
    g_licensing = licensing ? licensing : &g_unrestricted;
}

IUsageStatistics& Statistics() {
    return *g_statistics.load();
}
void SetStatistics(IUsageStatistics* statistics) {
    g_statistics = statistics ? statistics : &g_keepsNothing;
}

IPanels& Panels() {
    return *g_panels.load();
}
void SetPanels(IPanels* panels) {
    g_panels = panels ? panels : &g_desktopPanels;
}

}  // namespace brushworks
