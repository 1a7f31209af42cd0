#pragma once

#include <string>

#include "platform/file_system.h"

namespace qublet {

// "Artist - Title" from a file's tags, every other character than letters, digits and blanks turned into a blank.
// "Unknown Artist - Title" without an artist, the artist alone without a title, "" when there is neither or the file
// can't be read. Never throws.

// From ID3v2; from ID3v1, both together, when one of the two is missing there.
std::string GetMp3TrackTitle(const FileSystem& files, const std::string& path);
std::string GetOggTrackTitle(const FileSystem& files, const std::string& path);

}  // namespace qublet
