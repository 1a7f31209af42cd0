#pragma once

#include <string>

#include "platform/feedback.h"
#include "platform/file_system.h"
#include "playlist/paths/collections.h"

namespace qublet {

// A player's bookmark file: plain text, two lines an item, its full path and its title.

// Replaces `path` by the items `files_listed`, in their order. A title is in proper case: what the file's tags say,
// else its name without its extension. Tags are read by several threads; the progress is shown. Given up when the
// user stops it; the present file is then as it was, as on any error.
Outcome BuildBookmarkTitles(const FileSystem& files, const std::string& path, const Collection& files_listed,
                            Feedback& feedback);

// What the file is copied to before it is replaced.
inline std::string BackupOf(const std::string& path) {
  return path + ".bak";
}

}  // namespace qublet
