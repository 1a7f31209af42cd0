#pragma once

#include <string>

#include "platform/clock.h"

namespace qublet {

// The file name, ".m3u" at its end, that a naming format gives for a path; "" when nothing usable is left.
//
//   %0         the last "\"-separated piece of the path: nothing when the path ends in "\"
//   %1 to %9   the piece so many places before the last; a level that the path doesn't have vanishes
//   %DATE      today as MM-DD-YYYY
//   %TIME      now as hh-mm-ss
//
// Tokens are replaced one after the other, the lower level first, in what the earlier ones have left: a folder named
// "%2" is open to level 2. An empty format stands for all ten levels with a "-" behind each. Blanks at the ends go,
// then every ":", "\" and "/"; nothing else that a file system may refuse.
//
// `format` holds the finished name without ".m3u" afterwards. A path or a name of more than 32,766 characters gives
// "".
std::string MakePlaylistName(std::string& format, const std::string& path, const Clock& clock);

}  // namespace qublet
