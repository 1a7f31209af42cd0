#pragma once

#include <string>

#include "platform/clock.h"
#include "platform/dialogs.h"
#include "playlist/items.h"
#include "settings/app_settings.h"

namespace qublet {

// The commands of the file menu: new, open, import, save, the recent list, and the questions they ask.
class PlaylistFiles {
 public:
  struct Services {
    FileSystem& files;
    Dialogs& dialogs;
    const Clock& clock;
    Feedback& feedback;
  };

  PlaylistFiles(Document& document, Items& items, const AppSettings& settings, Services services, MainView& view)
      : document_(document), items_(items), settings_(settings), services_(services), view_(view) {}

  // Asks for a file and opens it, or adds its rows to the list (`Import`). True when rows came.
  bool OpenPlaylistFile(bool Import);
  // Saves under the open file's name, or asks for one (`AsNew`, or no open file). `Relative` cuts the folder of the
  // playlist from each line, and is cleared when the items have no common folder. True when the file was written.
  bool SavePlaylistFile(bool AsNew, bool Relative);
  // Offers to save a changed list that has rows. True tells the caller to proceed.
  bool PromptSaveFirst();
  // True when the file is there and the user refused to replace it, or when no drive leads there.
  bool CheckExists(const std::string& filename);

  void MFileNew_Click();
  void MFileOpen_Click();
  // Opens the recent file with that number in the menu, 1 for the newest.
  void MFileRecent_Click(int Index);

 private:
  bool AskForTarget(bool& Relative, std::string& target);
  std::string ProposeRelativeName(bool& Relative);
  std::string ProposeName();
  std::string NameFor(const std::string& common);
  bool WriteTo(const std::string& path, bool Relative);
  bool WriteRows(const std::string& path, bool Relative);
  void AddRecent();

  Document& document_;
  Items& items_;
  const AppSettings& settings_;
  Services services_;
  MainView& view_;
};

// Caption of the main window: the title, and the open file's name in brackets.
std::string CaptionText(const std::string& AppTitle, const std::string& CurrentPlaylist);

}  // namespace qublet
