#pragma once

#include <string>

#include "platform/feedback.h"
#include "platform/file_system.h"
#include "playlist/left_out.h"
#include "playlist/paths/collections.h"
#include "playlist/paths/file_details.h"

namespace qublet {

// What something that the user names means for the list.
enum class StuffKind { kNothing, kAudioFile, kFolder, kPlaylist };
StuffKind KindOfStuff(const FileDetails& details);

// The folder of a playlist, which becomes the current one while its lines are read.
std::string FolderOfPlaylist(const std::string& path);

// Appends the full paths of the rows that `filename` stands for, without reading the files. Given up when there are
// none or the user stops it. After a playlist its folder is the current one. Adds to `left_out` what can't be had,
// lines beyond PlaylistBounds among it.
Outcome ExpandStuff(FileSystem& files, Feedback& feedback, std::string filename, Collection& paths,
                    LeftOut& left_out);

}  // namespace qublet
