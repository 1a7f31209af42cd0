#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "generators/disc/icon_picture.h"

namespace qublet {

// PNG files (RFC 2083, ISO/IEC 15948), as far as icons hold them.

bool IsIconPng(std::string_view bytes);

// 8 bits a sample, with alpha.
std::string IconPng(const IconPicture& picture);

// Nothing unless it isn't interlaced, has 8 bits a sample or up to 8 a pixel with a palette, and is within the bounds
// of a picture.
std::optional<IconPictureFacts> FactsOfIconPng(std::string_view bytes);
// Also nothing when bytes are missing or broken, or one colour is declared transparent. The sums of chunks aren't
// checked, zlib's own is.
std::optional<IconPicture> ReadIconPng(std::string_view bytes);

}  // namespace qublet
