#include "app/commands.h"

#include "app/Main.h"

namespace qublet {

const std::vector<Command> kCommands{
    {0, "MFile", "&File"},
    {1, "MFileNew", "&New", "Ctrl+N", "Start an empty playlist", &Main::MFileNew_Click},
    {1, "MFileOpen", "&Open", "Ctrl+O", "Open a playlist", &Main::MFileOpen_Click},
    {1, "MFileImport", "&Import..", "", "Add the items of a playlist to the list", &Main::MFileImport_Click},
    {1},
    {1, "MFileSave", "&Save", "Ctrl+S", "Save the playlist with full paths", &Main::MFileSave_Click},
    {1, "MFileSaveAs", "Save &As", "Ctrl+Shift+S", "Save the playlist under another name", &Main::MFileSaveAs_Click},
    {1},
    {1, "MFileSaveRel", "Save to Relative Folder..", "", "Save the playlist with paths relative to its own folder",
     &Main::MFileSaveRel_Click},
    {1},
    {1, "MFileRec", "&Recent Files.."},
    {1},
    {1, "MFileExit", "E&xit", "Ctrl+Q", "End the program", &Main::MFileExit_Click},
    {0, "MEdit", "&Edit"},
    {1, "MEditAddDir", "&Add Item", "Ins", "Add a file, a folder or a playlist", &Main::MEditAddDir_Click},
    {1, "MEditRemove", "&Remove Item", "Del", "Remove the selected items from the list; the files stay",
     &Main::MEditRemove_Click},
    {1},
    {1, "MEditSelAll", "Select &All", "Ctrl+A", "Select every item", &Main::MEditSelAll_Click},
    {1, "MEditSelNone", "Select &None", "Ctrl+Shift+A", "Select no item", &Main::MEditSelNone_Click},
    {0, "MView", "&View"},
    {1, "MViewToolbar", "&Toolbar", "", "Show or hide the toolbar", &Main::MViewToolbar_Click, true},
    {1, "MViewStatusBar", "&StatusBar", "", "Show or hide the status bar", &Main::MViewStatusBar_Click, true},
    {1},
    {1, "MViewRefresh", "Refresh", "F5", "Read every file from disk again", &Main::MViewRefresh_Click},
};

namespace {

bool IsSeparator(const Command& command) {
  return command.name[0] == '\0';
}

QAction* MakeAction(const Command& command, Main& main) {
  auto* action = new QAction(QString::fromUtf8(command.caption), &main);
  action->setObjectName(QString::fromUtf8(command.name));
  action->setShortcut(QKeySequence(QString::fromUtf8(command.shortcut), QKeySequence::PortableText));
  action->setStatusTip(QString::fromUtf8(command.tip));
  action->setCheckable(command.checkable);
  QObject::connect(action, &QAction::triggered, &main, [&main, handler = command.handler] { (main.*handler)(); });
  return action;
}

}  // namespace

void BuildMenus(QMenuBar& bar, Main& main) {
  std::vector<QMenu*> open;  // the menus that lead to the present depth
  for (const Command& command : kCommands) {
    open.resize(static_cast<std::size_t>(command.depth));
    if (IsSeparator(command)) {
      open.back()->addSeparator();
    } else if (command.handler == nullptr) {
      const QString caption = QString::fromUtf8(command.caption);
      QMenu* menu = open.empty() ? bar.addMenu(caption) : open.back()->addMenu(caption);
      menu->setObjectName(QString::fromUtf8(command.name));
      open.push_back(menu);
    } else {
      open.back()->addAction(MakeAction(command, main));
    }
  }
}

}  // namespace qublet
