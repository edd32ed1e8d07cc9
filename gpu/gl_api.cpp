#include "gpu/gl_api.h"

#include "gpu/gl_lookup.h"

namespace brushworks {
namespace {

/// Looks up one entry point of whatever type; false if the machine lacks it.
template <typename Function>
bool Look(const char* name, Function& function) {
    function = reinterpret_cast<Function>(FindGLProcedure(name));
    return function != nullptr;
}

bool LookUpAll(GLApi& gl) {
    return Look("glBegin", gl.glBegin) && Look("glClear", gl.glClear) &&
           Look("glClearColor", gl.glClearColor) && Look("glClearDepth", gl.glClearDepth) &&
           Look("glColor3f", gl.glColor3f) && Look("glDepthFunc", gl.glDepthFunc) &&
           Look("glDisableVertexAttribArrayARB", gl.glDisableVertexAttribArrayARB) &&
           Look("glDrawArrays", gl.glDrawArrays) &&
           Look("glEnableVertexAttribArrayARB", gl.glEnableVertexAttribArrayARB) &&
           Look("glEnd", gl.glEnd) && Look("glLoadIdentity", gl.glLoadIdentity) &&
           Look("glMatrixMode", gl.glMatrixMode) &&
           Look("glMultiTexCoord2fARB", gl.glMultiTexCoord2fARB) && Look("glOrtho", gl.glOrtho) &&
           Look("glPixelStorei", gl.glPixelStorei) && Look("glReadBuffer", gl.glReadBuffer) &&
           Look("glReadPixels", gl.glReadPixels) && Look("glTexCoord2f", gl.glTexCoord2f) &&
           Look("glTranslated", gl.glTranslated) &&
           Look("glUseProgramObjectARB", gl.glUseProgramObjectARB) &&
           Look("glVertex3f", gl.glVertex3f) &&
           Look("glVertexAttribPointerARB", gl.glVertexAttribPointerARB);
}

}  // namespace

const GLApi* GLApi::Find() {
    static GLApi table{};
    static const bool complete = LookUpAll(table);
    return complete ? &table : nullptr;
}

}  // namespace brushworks
