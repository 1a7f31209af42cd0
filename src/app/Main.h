#pragma once

#include <QAction>
#include <QMainWindow>
#include <QTimer>
#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/StatusPanel.h"
#include "app/Toolbar.h"
#include "app/appearance.h"
#include "app/list_events.h"
#include "desk/commands.h"
#include "desk/menus.h"
#include "desk/normal_place.h"
#include "desk/window_feedback.h"
#include "engine/engine.h"
#include "player/plugins/ui/PluginMenu.h"
#include "playlist/recent_files.h"
#include "ui_Main.h"

namespace qublet {

// The one window people live in: list, menus, toolbar, status bar. It shows what the engine holds and hands on what
// the user does; the commands themselves are bound from outside.
class Main : public QMainWindow, private Ui::Main, private MainView, private Session::Window {
  Q_OBJECT

 public:
  Main(Engine& engine, Commands& commands, WindowFeedback& feedback);
  ~Main() override;

  // Brings the program up to its first picture: stored state, then what the command line names or else the list of
  // the last session. `splash` is hidden on the way. All commands are bound by then.
  void Load(const std::string& command_line, QWidget* splash);

  // The system ends the program and waits for no answer: all is stored that closing stores, nobody is asked, and the
  // process ends, also in the middle of a command.
  void EndUnasked();
  // The system asks whether the program can come to its end. `may_ask` tells whether the user can be asked, and is
  // asked itself only when that is needed. True when all is stored; False when the user refused.
  bool PrepareEnd(const std::function<bool()>& may_ask);

 signals:
  // All that is to be stored is: the process ends now, other windows aren't asked.
  void ended();
  // Some time after a start, where the settings want it.
  void updateCheckDue();

 protected:
  bool event(QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildList();
  void BuildStatusBar();
  void BuildRecentMenu();
  void BuildToolbar();
  void ShowBars();
  void BindOwnCommands();
  void Connect();

  void DetectPlayer();
  void OpenCommandLine(const std::string& command_line);
  void Form_Unload();
  void ListView1_KeyDown(int key);
  void ListView1_DblClick();
  void Toolbar1_ButtonClick(CommandName command);
  void Toolbar1_Customise();
  void TipTimer_Timer();

  // MainView
  void ListView1_Click() override;
  void ShowList(bool shown) override;
  void ShowCaption() override;
  void RefreshRecentMenu() override;
  // Session::Window
  void ApplyQUBLETSettings() override;
  void CopyState(AppSettings& settings) override;
  bool Maximised() const override { return isMaximized(); }
  ColumnWidths DefColumnWidths() const override;
  ScreenSize Screen() const override;
  void Relayout() override;
  void EndUnsaved() override { emit ended(); }

  Engine& engine_;
  Commands& commands_;
  WindowFeedback& feedback_;
  RowModel rows_;
  Toolbar* Toolbar1 = nullptr;
  std::array<StatusPanel*, 4> Panels{};
  std::array<QAction*, kRecentMenuRoom> MFileRecent{};
  NormalPlace normal_place_{*this};
  std::optional<RecordedPlace> copied_place_;  // what the record got when the window's state was copied last
  std::optional<Menus> menus_;
  std::optional<PluginMenu> plugin_menu_;
  std::unique_ptr<ListEvents> list_events_;
  QTimer RecoveryTimer;
  bool list_had_focus_ = false;  // when it was hidden
  bool loaded_ = false;
};

}  // namespace qublet
