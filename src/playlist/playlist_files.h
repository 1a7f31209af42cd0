#pragma once

#include <string>

#include "platform/services.h"
#include "playlist/items.h"
#include "settings/app_settings.h"

namespace qublet {

// The commands of the file menu: new, open, import, save, the recent list, and the questions they ask.
class PlaylistFiles {
 public:
  // How the lines of a playlist name their files.
  enum class LineForm { kFull, kRelative };

  PlaylistFiles(Document& document, Items& items, const AppSettings& settings, const Services& services,
                MainView& view)
      : document_(document), items_(items), settings_(settings), services_(services), view_(view) {}

  // Asks for a file and opens it, or adds its rows to the list (`Import`). True when rows came. When the user stops
  // it, all is as it was.
  bool OpenPlaylistFile(bool Import);
  // Saves under the open file's name, or asks for one (`AsNew`, or no open file). `Relative` cuts the folder of the
  // playlist from each line, and is cleared when the items have no common folder. True when the file was written.
  bool SavePlaylistFile(bool AsNew, bool Relative);
  // The rest of a save, once the target's name is known: asks before it replaces a file, writes, tells when it can't.
  Outcome SaveTo(std::string target, LineForm form);
  // How many items of the last save in relative form have got their full paths.
  int LeftAbsolute() const { return left_absolute_; }
  // Offers to save a changed list that has rows. True tells the caller to proceed.
  bool PromptSaveFirst();
  // Whether that would ask at present.
  bool WouldAsk() const { return document_.PlaylistChanged && document_.ListView1.Count() > 0; }
  // True when the file is there and the user refused to replace it, or when no drive leads there.
  bool CheckExists(const std::string& filename);

  void MFileNew_Click();
  void MFileOpen_Click();
  void MFileImport_Click() { OpenPlaylistFile(true); }
  void MFileSave_Click() { SavePlaylistFile(false, false); }
  void MFileSaveAs_Click() { SavePlaylistFile(true, false); }
  void MFileSaveRel_Click() { SavePlaylistFile(true, true); }
  // Opens the recent file with that number in the menu, 1 for the newest.
  void MFileRecent_Click(int Index);

 private:
  enum class Into { kEmptyList, kPresentList };

  bool Load(const std::string& path, Into into, bool ReSelect);
  bool AskForTarget(bool& Relative, std::string& target);
  std::string ProposeRelativeName(const std::string& common, bool& Relative);
  std::string ProposeName(const std::string& common);
  std::string NameFor(const std::string& common);
  Outcome WriteTo(const std::string& path, LineForm form);
  Outcome WriteRows(const std::string& path, LineForm form);
  void TakeOpened(const std::string& path);
  void TellWhatIsLeftOut();
  void TellAboutLines(bool new_name);
  void AddRecent();

  Document& document_;
  Items& items_;
  const AppSettings& settings_;
  Services services_;
  MainView& view_;
  int left_absolute_ = 0;
  bool told_of_players_ = false;  // in this session
};

// Caption of the main window: the title, and the open file's name in brackets.
std::string CaptionText(const std::string& AppTitle, const std::string& CurrentPlaylist);

// What is said about items of a relative playlist that have got their full paths.
std::string FullPathsText(int items);

}  // namespace qublet
