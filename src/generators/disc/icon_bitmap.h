#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "generators/disc/icon_picture.h"

namespace qublet {

// A bitmap as it stands in an icon file: a BITMAPINFOHEADER of twice the height, colours, the rows from the lowest,
// and in the same way a mask in which a set bit is a transparent pixel.

// Of 32 bits a pixel. The mask hides what is transparent altogether.
std::string IconBitmap(const IconPicture& picture);

// Nothing unless it has 1, 4, 8, 24 or 32 bits a pixel, isn't compressed, and is within the bounds of a picture.
std::optional<IconPictureFacts> FactsOfIconBitmap(std::string_view bytes);
// Also nothing when bytes are missing or a pixel's colour isn't there. Where 32 bits say that everything is
// transparent the mask counts alone, and without a mask everything is opaque.
std::optional<IconPicture> ReadIconBitmap(std::string_view bytes);

}  // namespace qublet
