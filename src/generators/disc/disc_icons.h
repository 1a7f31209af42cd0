#pragma once

#include <string_view>

#include "generators/disc/icon_picture.h"

namespace qublet {

// The icons that a disc can be given, numbered from 1. They are drawn while the program is built (icons/).
inline constexpr int kDiscIcons = 50;

// The whole icon file, with pictures of 16, 24, 32, 48 and 256 pixels. Empty for a number that no icon has.
std::string_view DiscIcon(int number);

// Its picture that is best shown at `side` pixels. One without pixels for a number that no icon has.
IconPicture DiscPicture(int number, int side);

}  // namespace qublet
