// The OpenGL functions that the library itself calls. Everything else GL goes through the host.
#pragma once

#define GL_GLEXT_PROTOTYPES  // for the types of the functions; none of them is linked
#include <GL/gl.h>
#include <GL/glext.h>

namespace brushworks {

/// A table of entry points, named as in OpenGL. They act on whatever context is current.
struct GLApi {
    decltype(&::glBegin) glBegin;
    decltype(&::glClear) glClear;
    decltype(&::glClearColor) glClearColor;
    decltype(&::glClearDepth) glClearDepth;
    decltype(&::glColor3f) glColor3f;
    decltype(&::glDepthFunc) glDepthFunc;
    decltype(&::glDisableVertexAttribArrayARB) glDisableVertexAttribArrayARB;
    decltype(&::glDrawArrays) glDrawArrays;
    decltype(&::glEnableVertexAttribArrayARB) glEnableVertexAttribArrayARB;
    decltype(&::glEnd) glEnd;
    decltype(&::glLoadIdentity) glLoadIdentity;
    decltype(&::glMatrixMode) glMatrixMode;
    decltype(&::glMultiTexCoord2fARB) glMultiTexCoord2fARB;
    decltype(&::glOrtho) glOrtho;
    decltype(&::glPixelStorei) glPixelStorei;
    decltype(&::glReadBuffer) glReadBuffer;
    decltype(&::glReadPixels) glReadPixels;
    decltype(&::glTexCoord2f) glTexCoord2f;
    decltype(&::glTranslated) glTranslated;
    decltype(&::glUseProgramObjectARB) glUseProgramObjectARB;
    decltype(&::glVertex3f) glVertex3f;
    decltype(&::glVertexAttribPointerARB) glVertexAttribPointerARB;

    /// The table, or null where the machine has no OpenGL with all of them. [any thread]
    static const GLApi* Find();
};

}  // namespace brushworks
