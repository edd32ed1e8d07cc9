// Looking for OpenGL where there may be none.
#include "gpu/gl_lookup.h"

#include <gtest/gtest.h>

namespace brushworks {
namespace {

TEST(Extensions, MatchWholeWordsAlone) {
    EXPECT_TRUE(ListHoldsExtension("GL_EXT_blend_color", "GL_EXT_blend_color"));
    EXPECT_TRUE(ListHoldsExtension("GL_a GL_EXT_blend_color GL_b", "GL_EXT_blend_color"));
    EXPECT_TRUE(
        ListHoldsExtension("GL_EXT_blend_color_more GL_EXT_blend_color", "GL_EXT_blend_color"));
    EXPECT_FALSE(ListHoldsExtension("GL_EXT_blend_color_more", "GL_EXT_blend_color"));
    EXPECT_FALSE(ListHoldsExtension("XGL_EXT_blend_color", "GL_EXT_blend_color"));
    EXPECT_FALSE(ListHoldsExtension("", "GL_EXT_blend_color"));
    EXPECT_FALSE(ListHoldsExtension(nullptr, "GL_EXT_blend_color"));
    EXPECT_FALSE(ListHoldsExtension("GL_a", ""));
}

TEST(Extensions, NoContextAnswersNone) {
    EXPECT_FALSE(IsExtensionSupported("GL_ARB_shader_objects"));
    ARBHelper features{};
    EXPECT_FALSE(RefreshFeatures(features));
    EXPECT_FALSE(features.bShaderObjects);
}

}  // namespace
}  // namespace brushworks
