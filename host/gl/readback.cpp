// Reads through a pixel-pack buffer, so that the processor need not wait for the graphics card.
#include "host/gl/readback.h"

#include <epoxy/gl.h>

#include <utility>

namespace brushworks::host::gl {

Readback::Readback(unsigned int texture, const Region& region, const PixelLayout& layout,
                   const FrameParams& frame)
    : m_layout(layout), m_frame(frame), m_nBytes(region.width * region.height * layout.bytes) {
    glCreateBuffers(1, &m_nBuffer);
    glNamedBufferData(m_nBuffer, m_nBytes, nullptr, GL_STREAM_READ);
    glBindBuffer(GL_PIXEL_PACK_BUFFER, m_nBuffer);
    readPixelsIntoBuffer(texture, region, layout);
    glBindBuffer(GL_PIXEL_PACK_BUFFER, 0);
    m_pFence = glFenceSync(GL_SYNC_GPU_COMMANDS_COMPLETE, 0);
    glFlush();
}

Readback::Readback(Readback&& other) noexcept
    : m_layout(other.m_layout),
      m_frame(other.m_frame),
      m_nBytes(other.m_nBytes),
      m_nBuffer(std::exchange(other.m_nBuffer, 0)),
      m_pFence(std::exchange(other.m_pFence, nullptr)) {}

Readback::~Readback() {
    if (m_nBuffer == 0) return;
    glDeleteSync(static_cast<GLsync>(m_pFence));
    glDeleteBuffers(1, &m_nBuffer);
}

bool Readback::finish() {
    glClientWaitSync(static_cast<GLsync>(m_pFence), GL_SYNC_FLUSH_COMMANDS_BIT, GL_TIMEOUT_IGNORED);
    const void* pixels = glMapNamedBufferRange(m_nBuffer, 0, m_nBytes, GL_MAP_READ_BIT);
    if (pixels == nullptr) return false;
    const int rowBytes = m_frame.nWidth * m_layout.bytes;
    copyRows(m_frame.pBuffer, m_frame.nByteSpan, static_cast<const std::uint8_t*>(pixels), rowBytes,
             rowBytes, m_frame.nHeight);
    return glUnmapNamedBuffer(m_nBuffer) == GL_TRUE;
}

}  // namespace brushworks::host::gl
