#pragma once

#include <string>
#include <vector>

#include "engine/closing.h"
#include "engine/recovery.h"
#include "engine/session.h"
#include "platform/services.h"
#include "player/player_link.h"
#include "player/preview.h"
#include "playlist/document.h"
#include "playlist/items.h"
#include "playlist/list_commands.h"
#include "playlist/main_view.h"
#include "playlist/playlist_files.h"
#include "settings/app_settings.h"

namespace qublet {

// Passes on to the window what it is asked to show; without a window nothing is shown.
class ViewRelay : public MainView {
 public:
  void Show(MainView& window) { window_ = &window; }

  void ShowList(bool shown) override { window_->ShowList(shown); }
  void ShowCaption() override { window_->ShowCaption(); }
  void RefreshRecentMenu() override { window_->RefreshRecentMenu(); }

 protected:
  void ListView1_Click() override { window_->Refresh(); }

 private:
  MainView nobody_;
  MainView* window_ = &nobody_;
};

// The program without its windows: the document and everything that works on it, made once, for the window and for
// `qublet` alike.
class Engine {
 public:
  // `thousands_separator` stands in sizes. The settings are the defaults until a session brings others.
  Engine(const Services& system, const Session::Places& places, std::string thousands_separator);
  Engine(const Engine&) = delete;
  Engine& operator=(const Engine&) = delete;

  // From now on this window shows the document. It outlives all use of the engine.
  void Show(MainView& window, Session::Window& state);

  // A file that came with the program ("ReadMe.txt"), from the first that has it of the program folder, the place
  // beside the executable and the installed data; "" when there is none. Never throws.
  std::string CompanionFile(const std::string& name) const;

  const Services services;
  const std::string program_folder;       // drive form, no trailing "\"; "" when there is none
  const std::string program;              // QUBLET20 itself, drive form; "" when it isn't known
  const std::string thousands_separator;  // of this user
  Document document;
  AppSettings settings;
  ViewRelay view;
  Items items;
  PlaylistFiles playlist_files;
  ListCommands list_commands;
  PlayerLink player;
  Preview preview;
  Recovery recovery;
  Session session;
  Closing closing;

 private:
  std::vector<std::string> companion_folders_;
};

}  // namespace qublet
