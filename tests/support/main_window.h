#pragma once

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QTest>
#include <functional>
#include <memory>
#include <string>

#include "app/program.h"
#include "support/fake_services.h"
#include "support/temporary_drives.h"

namespace qublet {

// The main window over two temporary drives, a store in memory and scripted dialogs. Widgets are found by their
// names.
class MainWindow {
 public:
  explicit MainWindow(const std::function<std::unique_ptr<FileSystem>()>& open_files = OpenFileSystem)
      : files(open_files()) {
    // No tip comes up over what a test does.
    store.SaveSetting("QUBLET2021", "Options", "Show Tips at Startup", "0");
    Make();
  }

  TemporaryDrives drives;
  std::unique_ptr<FileSystem> files;
  FakeServices fakes;
  FakeSettingsStore& store = fakes.store;
  FakeStartupEntries& startup = fakes.startup;
  ScriptedDialogs& dialogs = fakes.dialogs;
  ScriptedShell& shell = fakes.shell;
  ScriptedRandom& random = fakes.random;
  FakeAssociations& associations = fakes.associations;
  FakePlayerWindows& players = fakes.players;
  WindowFeedback feedback;
  std::unique_ptr<Program> program;
  Document* document = nullptr;
  AppSettings* settings = nullptr;
  Main* main = nullptr;

  // The program is started anew: what the store and the program folder keep stays.
  void Restart(const std::string& command_line = "") {
    program.reset();
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
    drives.WriteAt(drives.C() / "program" / "here", "");
    std::filesystem::create_directory(drives.C() / "own");
    program = std::make_unique<Program>(fakes.Over(*files, feedback), feedback,
                                        Session::Places{"QUBLET2021", "c:\\program", "", "c:\\own"});
    document = &program->engine.document;
    settings = &program->engine.settings;
    main = &program->main;
  }
};

// 3 bytes that no reader takes for audio: enough for a row that isn't missing.
inline constexpr const char* kNoise = "abc";

}  // namespace qublet
