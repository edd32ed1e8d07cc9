// The page of a gallery: what it shows, and its HTML.
#pragma once

#include <string>
#include <vector>

#include "host/parameter_info.h"

namespace brushworks::tools {

/// One painted picture.
struct GalleryCard {
    std::string title;                 ///< the preset's name
    std::string file;                  ///< of the picture, in the gallery's folder
    std::vector<EffectParam> values;   ///< by parameter index
    std::vector<std::string> command;  ///< that paints it in full size, in pieces for lines
    double seconds = 0;                ///< that the render took
};

/// An effect and its pictures.
struct GallerySection {
    host::EffectInfo effect;
    std::vector<GalleryCard> cards;
};

struct GalleryPage {
    std::string input;          ///< what was painted, by the name of its file
    std::string originalFacts;  ///< about it, in a few words
    std::string originalFile;   ///< as the pictures show it
    int width = 0;              ///< of all pictures
    int height = 0;
    bool transparent = false;
    std::vector<GallerySection> sections;
};

/// The whole page, with its style and its script.
std::string galleryHtml(const GalleryPage& page);

}  // namespace brushworks::tools
