#pragma once

#include <functional>
#include <string>

#include "app/commands.h"
#include "platform/dialogs.h"
#include "player/player_link.h"
#include "player/preview.h"
#include "settings/app_settings.h"

namespace qublet {

// The main window's commands about playing, and its summary of the list.
class PlayCommands {
 public:
  struct Services {
    FileSystem& files;
    Dialogs& dialogs;
    Feedback& feedback;
    Shell& shell;
    const Associations& associations;
    PlayerWindows& players;
  };

  PlayCommands(Document& document, const AppSettings& settings, Items& items, Services services,
               const std::string& program_folder);

  PlayerLink& Link() { return link_; }

  // Sets `PlayerAssociated`; the player's menu is there only with a player.
  void DetectPlayer(const MenuEntries& entries);
  void Play(PreviewMode mode);
  // The rows that a double click plays, as the user has chosen.
  void PlayDoubleClicked();
  // `MViewDetails`. `place` puts the window where it belongs before it is shown.
  void ShowProperties(QWidget* owner, const std::string& thousands_separator,
                      const std::function<void(QWidget&)>& place);

 private:
  Document& document_;
  const AppSettings& settings_;
  Items& items_;
  Services services_;
  std::string program_folder_;
  PlayerLink link_;
  Preview preview_;
};

}  // namespace qublet
