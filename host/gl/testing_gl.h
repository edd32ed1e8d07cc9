// For tests of what draws with OpenGL: a context in debug mode that all cases of a program share,
// and a fixture that fails when something was used wrongly or left behind.
#pragma once

#include <gtest/gtest.h>

#include "host/gl/refusing_host.h"
#include "host/gl/renderer.h"
#include "host/gl/testing_picture.h"

namespace brushworks::host::gl {

/// A case with a current context. Where no context can be had it is skipped, or fails when the
/// environment variable BRUSHWORKS_REQUIRE_GL is set. At its end it fails for every problem that
/// was collected and for every GL object that is not freed.
class GLTest : public ::testing::Test {
  protected:
    void SetUp() override;
    void TearDown() override;

    static Renderer& renderer();
    static HostGL& hostGL() { return renderer().hostGL(); }
    static GLContext& context() { return renderer().context(); }

  private:
    std::uint64_t m_nMark = 0;
};

}  // namespace brushworks::host::gl
