#include "gpu/image_scanner.h"

#include <algorithm>

namespace brushworks {

GPUImageDiagonalScanner::GPUImageDiagonalScanner(GPUHelper* pHelper, int nWidth, int nHeight)
    : m_pHelper(pHelper), m_nWidth(nWidth), m_nHeight(nHeight), m_nCount(nWidth + nHeight - 1) {}

void GPUImageDiagonalScanner::Reset() {
    m_nCurrent = 0;
}

int GPUImageDiagonalScanner::MaxDiagonalLength() const {
    return std::min(m_nWidth, m_nHeight);
}

bool GPUImageDiagonalScanner::Iterate() {
    if (m_nCurrent >= m_nCount) return false;
    const int i = m_nCurrent;
    const int longest = MaxDiagonalLength();
    const int remaining = m_nCount - i;
    const int length = i < longest - 1 ? i + 1 : std::min(longest, remaining);
    const bool grows = remaining > longest;
    const int last = grows ? m_nHeight - i : m_nHeight;
    const int start = grows ? std::max(m_nHeight - i - 1, 0) : 0;
    const bool done = ProcessDiagonal(i, start, length, last, remaining);
    ++m_nCurrent;
    return done;
}

}  // namespace brushworks
