#pragma once

#include <string>

#include "platform/services.h"
#include "playlist/paths/collections.h"

namespace qublet {

// Writes a playlist of `paths` for another program to "tmp.m3u" in the program's folder, and where programs don't
// read that form its twin, "tmp.m3u8" in the hand-over folder. Gives the one that is to be opened, in drive form: the
// twin if it could be written; "" when "tmp.m3u" couldn't.
std::string WriteTempPlaylist(const Services& services, const std::string& program_folder, const Collection& paths);

}  // namespace qublet
