// The contract as a host of another house would write it down: nothing of the project is included,
// so that a change of ours which moves an operation or a field is seen here.
#pragma once

#include <cstdint>

namespace other {

struct Guid {
    uint64_t a;
    uint16_t b, c;
    uint8_t d[8];
};

struct Unknown {
    virtual uint32_t QueryInterface(const Guid&, void**) = 0;
    virtual uint32_t AddRef() = 0;
    virtual uint32_t Release() = 0;
    virtual ~Unknown() {}
};

struct Frame {
    uint8_t* pixels;
    int32_t width, height, span, depth, zero0, zero1, format;
    bool flipped;
};

struct Info {
    uint32_t flags;
    double aspect;
    int32_t seed;
    int16_t fieldMode;
    char hostsOwn[100];
};

struct Control {
    uint64_t value;
    uint32_t type;
    union {
        uint32_t options;
        float low;
    };
    union {
        char texts[10][20];
        float high;
    };
    char name[40];
    int32_t top, left, width, height;
    bool active;
};

struct HostInfo {
    const char* name;
    void* more[2];
};

struct Host : Unknown {
    virtual void GetParam(unsigned, uint64_t*, unsigned) = 0;
    virtual void Six() {}
    virtual void Seven() {}
    virtual void Eight() {}
    virtual void Nine() {}
    virtual HostInfo GetHostInfo() = 0;
};

struct Memory : Unknown {
    virtual void Allocate(void**, unsigned long) = 0;
    virtual void Free(void*) = 0;
    virtual void AllocatePicture(uint8_t**, int, int, int, int*) = 0;
    virtual void FreePicture(uint8_t*) = 0;
};

struct Caps {
    int32_t zero, supported;
    bool allowed;
};

struct Effect : Unknown {
    virtual const char* GetName() = 0;
    virtual unsigned GetCaps() = 0;
    virtual bool EnumParam(unsigned, Control*) = 0;
    virtual bool Render(Host*, Frame*, Frame*, Frame*, Info*) = 0;
    virtual const char* EnumPreset(unsigned) = 0;
    virtual bool EnumPresetData(unsigned, unsigned, uint64_t*) = 0;
    virtual bool GetGPUCaps(Host*, void*, Caps*, unsigned) = 0;
    virtual bool RenderGPU(int, Host*, void*, void*, void*, void*, Info*) = 0;
    virtual bool GetGPUCapsGL(Host*, Caps*, unsigned) = 0;
    virtual bool RenderGL(Host*, void*, void*, void*, Info*) = 0;
    virtual const char* EnumToolTip(unsigned) = 0;
};

struct ToolTips : Unknown {
    virtual const char* EnumToolTip(unsigned) = 0;
};

struct Rect {
    int32_t left, top, right, bottom;
};

struct FrameService : Unknown {
    virtual bool Copy(Frame*, Frame*) = 0;
    virtual bool Resize(Frame*, Frame*, int) = 0;
    virtual bool ReverseChannels(Frame*, Frame*) = 0;
    virtual bool UnpackYUY2(Frame*, Frame*, uint8_t, Memory*) = 0;
    virtual bool PackYUY2(Frame*, Frame*, Memory*) = 0;
    virtual bool SetChannelValue(Frame*, unsigned, unsigned) = 0;
    virtual bool AlphaBlend(Frame*, Frame*, Frame*, bool) = 0;
    virtual bool SwapChannels(Frame*, unsigned*) = 0;
    virtual bool AlphaPremul(Frame*) = 0;
    virtual bool AppleR4FLToARGB32(Frame*, Frame*) = 0;
    virtual bool ARGB32ToAppleR4FL(Frame*, Frame*) = 0;
    virtual bool FlipInto(Frame*, Frame*) = 0;
    virtual bool FlipInPlace(Frame*) = 0;
    virtual bool CopyChannel(Frame*, Frame*, int, int) = 0;
    virtual bool InvertChannel(Frame*, int) = 0;
    virtual bool Square(Frame*) = 0;
    virtual bool SquareRoot(Frame*) = 0;
    virtual bool RaiseToBounds(Frame*, const float*) = 0;
    virtual bool ResizeCrop(Frame*, Rect*, Frame*, int) = 0;
};

struct Library : Unknown {
    virtual const char* GetName() = 0;
    virtual Effect* CreateEffect(unsigned) = 0;
    virtual bool OpenHelp(void*, unsigned) = 0;
    virtual Unknown* GetActivationManager() = 0;
    virtual FrameService* GetFrameProcessor() = 0;
    virtual Unknown* GetPresetSaver() = 0;
};

// clang-format off
inline const Guid kUnknown    = {0x00000000, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
inline const Guid kLibrary    = {0x9B8D0B5F, 0x065A, 0x46B1, {0x88, 0x9C, 0xF0, 0x57, 0x93, 0x4C, 0xE8, 0xA4}};
inline const Guid kLanguages  = {0xF6E85D4E, 0xDC38, 0x476C, {0xAC, 0x59, 0xEB, 0x50, 0x0B, 0xA9, 0x3C, 0xDC}};
inline const Guid kMemory     = {0x9F635B81, 0x506A, 0x4DEE, {0x9D, 0xC7, 0x9E, 0x0B, 0xAB, 0xA2, 0xD5, 0xA2}};
inline const Guid kFrames     = {0xB9D19C11, 0x28CC, 0x4C17, {0x80, 0xC6, 0x23, 0x5D, 0xAD, 0x31, 0x68, 0x4A}};
inline const Guid kToolTips   = {0xC40A4523, 0xECE1, 0x493B, {0xA7, 0x3D, 0xEC, 0xF1, 0x15, 0x38, 0xF6, 0x00}};
inline const Guid kEffect     = {0x0BCF7FCD, 0x6BE5, 0x4A40, {0x9A, 0x49, 0xA6, 0x8D, 0x6B, 0xF6, 0x60, 0x26}};
inline const Guid kGPUEffect  = {0x418A60D9, 0xFCA6, 0x434F, {0x9F, 0xE8, 0xEB, 0x6B, 0xC1, 0x1C, 0x5C, 0x13}};
inline const Guid kHostGL     = {0x3C31DE30, 0x7F89, 0x4A56, {0xAB, 0x76, 0xB0, 0x50, 0xB2, 0x9F, 0x29, 0xCB}};
// clang-format on

}  // namespace other
