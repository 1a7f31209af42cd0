#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "generators/disc/icon_picture.h"

namespace qublet {

// Icon files (.ico) as Microsoft describes them in "Icons in Win32" (1995): a directory of pictures, each of them a
// bitmap without its file header and with a mask of one bit a pixel behind it, or, since Windows Vista, a whole PNG
// file.

// A file of these pictures in their order: those of up to 48 pixels on both sides as bitmaps of 32 bits, larger ones
// as PNG. Nothing when there are none or more than 64, a side is out of bounds, or the pixels aren't as many as the
// sides tell.
std::optional<std::string> IconFileOf(std::span<const IconPicture> pictures);

// The picture of an icon file that is best shown at `side` pixels: one as large as that, else the next larger one,
// else the largest; among these the one of most bits. What can't be read is passed over, and so is what stands behind
// the first 64 entries. Nothing when no entry can be read.
std::optional<IconPicture> ReadIcon(std::string_view bytes, int side);

}  // namespace qublet
