// Paints the pictures of a gallery.
#pragma once

#include <filesystem>
#include <vector>

#include "gallery_page.h"
#include "host/effect.h"
#include "progress.h"
#include "still_picture.h"

namespace brushworks::tools {

/// Paints the cards of all sections, whose effects stand in the same order, into files in `folder`,
/// and fills in their times. A section whose effect renders none of them is left without cards;
/// when it renders only some, throws std::runtime_error.
void paintSections(const std::vector<host::Effect>& effects, const StillPicture& original,
                   const std::filesystem::path& folder, int jobs, ProgressStyle style,
                   std::vector<GallerySection>& sections);

}  // namespace brushworks::tools
