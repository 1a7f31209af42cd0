#pragma once

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QTest>
#include <functional>
#include <memory>
#include <string>

#include "app/Main.h"
#include "support/fake_player.h"
#include "support/fake_settings_store.h"
#include "support/fake_startup_entries.h"
#include "support/scripted_dialogs.h"
#include "support/scripted_random.h"
#include "support/scripted_shell.h"
#include "support/temporary_drives.h"

namespace qublet {

// The main window over two temporary drives, a store in memory and scripted dialogs. Widgets are found by their
// names.
class MainWindow {
 public:
  explicit MainWindow(const std::function<std::unique_ptr<FileSystem>()>& open_files = OpenFileSystem)
      : files(open_files()) {
    Make();
  }

  TemporaryDrives drives;
  std::unique_ptr<FileSystem> files;
  FakeSettingsStore store;
  FakeStartupEntries startup;
  ScriptedDialogs dialogs;
  SystemClock clock;
  ScriptedShell shell;
  ScriptedRandom random;
  std::unique_ptr<Collation> collation = OpenCollation();
  FakeAssociations associations;
  FakePlayerWindows players;
  std::unique_ptr<Document> document;
  std::unique_ptr<AppSettings> settings;
  std::unique_ptr<Main> main;

  // The program is started anew: what the store and the program folder keep stays.
  void Restart(const std::string& command_line = "") {
    main.reset();
    Make();
    Start(command_line);
  }

  void Start(const std::string& command_line = "") {
    main->Load(command_line, nullptr);
    main->show();
    QCoreApplication::processEvents();
  }

  RowStore& Rows() { return document->ListView1; }
  RowList& List() { return *main->findChild<RowList*>("ListView1"); }
  std::string Panel(int number) {
    return main->findChild<QLabel*>(QStringLiteral("Panel%1").arg(number))->text().toStdString();
  }
  std::string Caption() { return main->windowTitle().toStdString(); }
  QAction* Action(const char* name) { return main->findChild<QAction*>(QString::fromUtf8(name)); }
  void Run(const char* name) { Action(name)->trigger(); }
  std::string Names() {
    std::string names;
    for (int i = 1; i <= Rows().Count(); ++i) names += (i > 1 ? " " : "") + Rows().At(i).cells[kFileName];
    return names;
  }
  std::string Selected() {
    std::string rows;
    for (int i = 1; i <= Rows().Count(); ++i) rows += Rows().At(i).selected ? 'x' : '-';
    return rows;
  }
  void Add(const std::string& path) {
    dialogs.folders.push_back(path);
    Run("MEditAddDir");
  }

 private:
  void Make() {
    document = std::make_unique<Document>();
    settings = std::make_unique<AppSettings>();
    drives.WriteAt(drives.C() / "program" / "here", "");
    const Main::Services services{*files, store,  startup,    dialogs,      clock,
                                  shell,  random, *collation, associations, players};
    main = std::make_unique<Main>(*document, *settings, services, Session::Places{"QUBLET2021", "c:\\program"});
  }
};

// 3 bytes that no reader takes for audio: enough for a row that isn't missing.
inline constexpr const char* kNoise = "abc";

}  // namespace qublet
