#pragma once

#include <QAction>
#include <QLabel>
#include <QMainWindow>
#include <array>
#include <memory>
#include <string>

#include "app/Toolbar.h"
#include "app/session.h"
#include "app/window_feedback.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/file_system.h"
#include "platform/settings_store.h"
#include "playlist/document.h"
#include "playlist/items.h"
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
  };

  Main(Document& document, AppSettings& settings, Services services, Session::Places places);
  ~Main() override;

  // Brings the program up to its first picture: stored state, then what the command line names or else the list of
  // the last session. `splash` is hidden on the way.
  void Load(const std::string& command_line, QWidget* splash);

  void MFileNew_Click();
  void MFileOpen_Click();
  void MFileImport_Click();
  void MFileSave_Click();
  void MFileSaveAs_Click();
  void MFileSaveRel_Click();
  void MFileExit_Click();
  void MEditAddDir_Click();
  void MEditRemove_Click();
  void MEditSelAll_Click();
  void MEditSelNone_Click();
  void MViewToolbar_Click();
  void MViewStatusBar_Click();
  void MViewRefresh_Click();
  // Saves relative or absolute, as the user has chosen for this button.
  void ToolbarSave_Click();

 signals:
  // Everything is stored: the process ends now, other windows aren't asked.
  void ended();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildList();
  void BuildStatusBar();
  void BuildRecentMenu();
  void ShowBars();
  void Connect();

  void DetectPlayer() {}
  void LoadPluginMenu() {}
  void SetMenuBitmaps() {}
  void RegisterAccessoryTools() {}
  void OpenCommandLine(const std::string& command_line);
  void Form_Unload();
  void ListView1_FilesDropped(const QStringList& native_paths, QPoint point);
  void ListView1_KeyDown(int key);

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
  void Relayout() override {}

  Document& document_;
  AppSettings& settings_;
  Services services_;
  std::string thousands_separator_;
  Toolbar* Toolbar1 = nullptr;
  std::array<QLabel*, 4> Panels{};
  std::array<QAction*, kRecentMenuRoom> MFileRecent{};
  std::unique_ptr<RowModel> rows_;
  std::unique_ptr<WindowFeedback> feedback_;
  std::unique_ptr<Items> items_;
  std::unique_ptr<PlaylistFiles> playlist_files_;
  std::unique_ptr<Session> session_;
};

}  // namespace qublet
