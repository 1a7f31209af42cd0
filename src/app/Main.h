#pragma once

#include <QAction>
#include <QMainWindow>
#include <array>
#include <memory>
#include <string>

#include "app/StatusPanel.h"
#include "app/Toolbar.h"
#include "app/commands.h"
#include "app/list_events.h"
#include "app/play_commands.h"
#include "app/session.h"
#include "app/window_feedback.h"
#include "platform/clock.h"
#include "platform/collation.h"
#include "platform/dialogs.h"
#include "platform/file_system.h"
#include "platform/random.h"
#include "platform/settings_store.h"
#include "platform/shell.h"
#include "playlist/document.h"
#include "playlist/items.h"
#include "playlist/list_commands.h"
#include "playlist/main_view.h"
#include "playlist/playlist_files.h"
#include "playlist/recent_files.h"
#include "ui_Main.h"

namespace qublet {

// The one window people live in: list, menus, status bar. Its handlers hand each command on to the rules.
class Main : public QMainWindow, private Ui::Main, private MainView, private Session::Window {
  Q_OBJECT

 public:
  struct Services {
    FileSystem& files;
    SettingsStore& store;
    StartupEntries& startup;
    Dialogs& dialogs;
    const Clock& clock;
    Shell& shell;
    Random& random;
    const Collation& collation;
    const Associations& associations;
    PlayerWindows& players;
  };

  Main(Document& document, AppSettings& settings, Services services, Session::Places places);
  ~Main() override;

  // Brings the program up to its first picture: stored state, then what the command line names or else the list of
  // the last session. `splash` is hidden on the way.
  void Load(const std::string& command_line, QWidget* splash);

  // Runs a command's handler; not while a batch runs, however the command is reached.
  void Run(void (Main::*handler)());

  void MFileNew_Click();
  void MFileOpen_Click();
  void MFileImport_Click();
  void MFileSave_Click();
  void MFileSaveAs_Click();
  void MFileSaveRel_Click();
  void MFileExit_Click();
  void MEditPlaySel_Click() { play_->Play(kPlaySelected); }
  void MEditPlayFol_Click() { play_->Play(kPlayFolder); }
  void MEditPlayLoc_Click() { play_->Play(kPlayFrom); }
  void MEditPlayList_Click() { play_->Play(kPlayList); }
  void MEditAddDir_Click();
  void MEditRemove_Click() { list_commands_->MEditRemove_Click(); }
  void MEditMoveUp_Click() { list_commands_->MEditMoveUp_Click(); }
  void MEditMoveDown_Click() { list_commands_->MEditMoveDown_Click(); }
  void MEditSelAll_Click() { list_commands_->MEditSelAll_Click(); }
  void MEditSelNone_Click() { items_->MEditSelNone_Click(); }
  void MEditSelFol_Click() { list_commands_->MEditSelFol_Click(); }
  void MEditSelTop_Click() { list_commands_->MEditSelTop_Click(); }
  void MEditSelBottom_Click() { list_commands_->MEditSelBottom_Click(); }
  void MEditSelInv_Click() { list_commands_->MEditSelInv_Click(); }
  void MEditSelAlt_Click() { list_commands_->MEditSelAlt_Click(); }
  void MEditSelRnd_Click() { list_commands_->MEditSelRnd_Click(); }
  void MEditSelShuffle_Click() { list_commands_->MEditSelShuffle_Click(); }
  void MEditSelLoc_Click() { list_commands_->MEditSelLoc_Click(); }
  void MEditSelImpFol_Click() { list_commands_->MEditSelImpFol_Click(); }
  void MEditSeMarkBlue_Click() { list_commands_->MEditSeMarkBlue_Click(); }
  void MEditSeMarkGreen_Click() { list_commands_->MEditSeMarkGreen_Click(); }
  void MEditSeMarkRed_Click() { list_commands_->MEditSeMarkRed_Click(); }
  void MEditSeUnMark_Click() { list_commands_->MEditSeUnMark_Click(); }
  void MEditSelectMark_Click() { list_commands_->MEditSelectMark_Click(); }
  void MEditFileInfo_Click() { list_commands_->MEditFileInfo_Click(); }
  void Mreloc_Click() { list_commands_->Mreloc_Click(); }
  // As a click on the header of the column, counted from 1.
  template <int column>
  void MViewSort_Click() {
    list_commands_->ListView1_ColumnClick(column);
  }
  void MViewToolbar_Click();
  void MViewStatusBar_Click();
  void MViewDetails_Click();
  void MViewRefresh_Click();
  void MToolsShortCutFind_Click() { list_commands_->MToolsShortCutFind_Click(); }
  void MToolsShortCutExplore_Click() { list_commands_->MEditSelLoc_Click(); }
  void MToolsShortCutVolume_Click() { list_commands_->MToolsShortCutVolume_Click(); }

  // Puts a new window beside this one, so that both can be seen, or on its middle. The window isn't shown yet.
  void PositionForm(QWidget& frm) const;

 signals:
  // Everything is stored: the process ends now, other windows aren't asked.
  void ended();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildList();
  void BuildStatusBar();
  void BuildRecentMenu();
  void BuildPluginMenu();
  void BuildToolbar();
  void ShowBars();
  void Connect();

  void DetectPlayer() { play_->DetectPlayer(entries_); }
  void RegisterAccessoryTools() {}
  void OpenCommandLine(const std::string& command_line);
  void Form_Unload();
  void ListView1_KeyDown(int key);
  void Toolbar1_ButtonClick(const Command& command);
  void Toolbar1_Customise();
  void TipTimer_Timer();

  // MainView
  void ListView1_Click() override;
  void ShowCaption() override;
  void RefreshRecentMenu() override;
  // Session::Window
  void ApplyQUBLETSettings() override;
  void CopyState(AppSettings& settings) override;
  ColumnWidths DefColumnWidths() const override;
  ScreenSize Screen() const override;
  void ShowRecentFiles() override { RefreshRecentMenu(); }
  void Relayout() override;

  Document& document_;
  AppSettings& settings_;
  Services services_;
  std::string thousands_separator_;
  Toolbar* Toolbar1 = nullptr;
  std::array<StatusPanel*, 4> Panels{};
  MenuEntries entries_;
  std::array<QAction*, kRecentMenuRoom> MFileRecent{};
  std::unique_ptr<RowModel> rows_;
  std::unique_ptr<WindowFeedback> feedback_;
  std::unique_ptr<Items> items_;
  std::unique_ptr<PlaylistFiles> playlist_files_;
  std::unique_ptr<ListCommands> list_commands_;
  std::unique_ptr<PlayCommands> play_;
  std::unique_ptr<Session> session_;
  std::unique_ptr<ListEvents> list_events_;
};

}  // namespace qublet
