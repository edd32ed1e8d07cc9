// The shared context of a test program.
#include "host/gl/testing_gl.h"

#include <cstdlib>
#include <optional>

#include "host/error.h"

namespace brushworks::host::gl {
namespace {

/// Makes the context when the first case asks, and ends it before the driver's own end.
class SharedRenderer final : public ::testing::Environment {
  public:
    void TearDown() override { m_renderer.reset(); }

    /// Null when there is none, and then whyNot() tells why.
    Renderer* get() {
        if (!m_renderer && m_sWhyNot.empty()) {
            try {
                m_renderer.emplace(
                    Renderer::create({.debug = true, .garbage = true, .overlap = true}));
            } catch (const Error& error) {
                m_sWhyNot = error.what();
            }
        }
        return m_renderer ? &*m_renderer : nullptr;
    }
    const std::string& whyNot() const { return m_sWhyNot; }

  private:
    std::optional<Renderer> m_renderer;
    std::string m_sWhyNot;
};

// GoogleTest owns and deletes it.
SharedRenderer* const s_pShared = new SharedRenderer;
[[maybe_unused]] ::testing::Environment* const s_pRegistered =
    ::testing::AddGlobalTestEnvironment(s_pShared);

}  // namespace

Renderer& GLTest::renderer() {
    return *s_pShared->get();
}

void GLTest::SetUp() {
    if (s_pShared->get() == nullptr) {
        if (std::getenv("BRUSHWORKS_REQUIRE_GL") != nullptr) FAIL() << s_pShared->whyNot();
        GTEST_SKIP() << s_pShared->whyNot();
    }
    ASSERT_TRUE(context().context().isCurrent() || renderer().makeCurrent());
    renderer().takeProblems();
    m_nMark = hostGL().mark();
}

void GLTest::TearDown() {
    if (s_pShared->get() == nullptr) return;
    ASSERT_TRUE(context().context().isCurrent() || renderer().makeCurrent());
    hostGL().SetRenderTarget(&context(), nullptr, 0, false, false);
    for (const std::string& alive : hostGL().aliveSince(m_nMark)) {
        ADD_FAILURE() << "not freed: " << alive;
    }
    for (const std::string& problem : renderer().takeProblems()) ADD_FAILURE() << problem;
}

}  // namespace brushworks::host::gl
