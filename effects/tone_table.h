// A tone curve as a table: what each byte of a colour becomes.
#pragma once

#include <array>

#include "frames/frame.h"

namespace brushworks {

using ToneTable = std::array<unsigned char, 256>;

/// Puts every colour byte of the common region through the table; the fourth byte of a pixel is
/// copied. For bytes with alpha last, and for planes of bytes, whose every byte goes through. False
/// where frames have no data or differ in bytes per pixel. The frames may be one.
bool LookUp(const CFrame& src, CFrame& dst, const ToneTable& table);

}  // namespace brushworks
