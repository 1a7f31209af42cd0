#pragma once

#include <string>

#include "engine/engine.h"

namespace qublet {

// The commands about the bookmark file of the player: it is read into the list, and overwritten from it. Where it is,
// the document knows, or the user is asked.
class PlayerBookmarks {
 public:
  explicit PlayerBookmarks(Engine& engine) : engine_(engine), document_(engine.document) {}

  void MToolsLoadWinamp_Click();
  // The file as it was is kept beside it. A file that isn't there is never made.
  void MToolsSaveWinamp_Click();
  void MToolsLocWinamp_Click() { LocateBookmarkFile(); }

  // True when the user has named a file, of whatever kind.
  bool LocateBookmarkFile();

 private:
  bool FindBookmarkFile();
  void Tell(const std::string& text, MessageIcon icon);

  Engine& engine_;
  Document& document_;
};

}  // namespace qublet
