#pragma once

#include <optional>
#include <string>

#include "cli/arguments.h"

namespace qublet {

// The playlist that a command writes the list into (.m3u or .m3u8). An existing file is replaced only where the user
// wants that.
class SavedPlaylist {
 public:
  // Throws Failure for a name that no playlist bears.
  SavedPlaylist(std::string out, bool relative, bool replace);

  // Before anything is read, since playlists change the current folder: gives kDone, or tells what is in the way.
  int Check(CommandContext& context);
  // Writes the list; gives the exit code, and tells why it couldn't be done.
  int Save(CommandContext& context) const;

 private:
  std::string out_;
  bool relative_;
  bool replace_;
  std::string target_;  // `out_` in drive form
};

// Takes "--save OUT [--relative] [--replace]" out of the arguments. Throws Failure for wrong use.
std::optional<SavedPlaylist> TakeSavedPlaylist(Arguments& arguments);

}  // namespace qublet
