// The effects by index. A further effect is one folder and one line at the end of this table.
#include "library/class_table.h"

#include <iterator>

#include "effects/cartoon/cartoon.h"
#include "effects/charcoal/charcoal.h"
#include "effects/colored_pencil/colored_pencil.h"
#include "effects/halo/halo.h"
#include "effects/impressionist/impressionist.h"
#include "effects/mosaic/mosaic.h"
#include "effects/mural/mural.h"
#include "effects/oil/oil.h"
#include "effects/paper_collage/paper_collage.h"
#include "effects/pencil_rubbing/pencil_rubbing.h"
#include "effects/posterize/posterize.h"
#include "effects/water_color/water_color.h"

namespace brushworks {
namespace {

template <class Effect>
IVideoEffect* New() {
    return new Effect;
}

constexpr IVideoEffect* (*kClasses[])() = {
    New<CCartoonPro>,    New<CCharcoal>,      New<CColoredPencil>, New<CAurascope>,
    New<CImpressionist>, New<CStainedGlass>,  New<CSmoother>,      New<COilPaint>,
    New<CEmbossedPaper>, New<CPencilRubbing>, New<CPosterize>,     New<CWaterColor>,
};

}  // namespace

IVideoEffect* NewEffect(unsigned int index) {
    return index < std::size(kClasses) ? kClasses[index]() : nullptr;
}

}  // namespace brushworks
