// The files of tools/gallery as constants, embedded when the tool is built.
#pragma once

#include <string_view>

namespace brushworks::tools {

extern const std::string_view kGalleryPage;    ///< a template of fillTemplate
extern const std::string_view kGalleryStyle;   ///< CSS
extern const std::string_view kGalleryScript;  ///< JavaScript

}  // namespace brushworks::tools
