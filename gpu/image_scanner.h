// Walks over an image for work in which a pixel needs those above it and left of it.
#pragma once

#include <cstdint>

namespace brushworks {

class GPUHelper;

/// A walk in steps.
class GPUImageScanner {
  public:
    virtual ~GPUImageScanner() = default;
    GPUImageScanner(const GPUImageScanner&) = delete;
    GPUImageScanner& operator=(const GPUImageScanner&) = delete;

    /// Back to the first step.
    virtual void Reset() = 0;
    /// Does one step; false at the end, and where the step fails.
    virtual bool Iterate() = 0;

  protected:
    GPUImageScanner() = default;
};

/// Walks along the anti-diagonals: the pixels of one depend on none of their own.
class GPUImageDiagonalScanner : public GPUImageScanner {
  public:
    /// Borrows the helper, for subclasses.
    GPUImageDiagonalScanner(GPUHelper* pHelper, int nWidth, int nHeight);

    void Reset() override;
    bool Iterate() override;

    int DiagonalsNumber() const { return m_nCount; }
    int MaxDiagonalLength() const;

  protected:
    /// Diagonal `nDiagonal` of `nLength` pixels. `nRemaining` diagonals are left with this one;
    /// while they outnumber the longest diagonal's pixels, `nLast` is the height less the
    /// diagonal's number and `nStart` one less, at least 0, and from there on the height and 0.
    virtual bool ProcessDiagonal(int nDiagonal, int nStart, int nLength, int nLast,
                                 int nRemaining) = 0;

    GPUHelper* const m_pHelper;
    const std::int32_t m_nWidth;
    const std::int32_t m_nHeight;
    std::int32_t m_nCurrent = 0;
    const std::int32_t m_nCount;
};

}  // namespace brushworks
