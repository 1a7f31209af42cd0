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
    {1, "MEditPlay", "Play.."},
    {2, "MEditPlaySel", "&Play Selected", "", "Play the selected items", &Main::MEditPlaySel_Click},
    {2, "MEditPlayFol", "Play Folder", "", "Play everything in the folders of the selected items",
     &Main::MEditPlayFol_Click},
    {2, "MEditPlayLoc", "Play From", "", "Play from the first selected item to the end of the list",
     &Main::MEditPlayLoc_Click},
    {2, "MEditPlayList", "Play List", "Ctrl+P", "Play the whole list", &Main::MEditPlayList_Click},
    {1},
    {1, "MEditAddDir", "&Add Item", "Ins", "Add a file, a folder or a playlist", &Main::MEditAddDir_Click},
    {1, "MEditRemove", "&Remove Item", "Del", "Remove the selected items from the list; the files stay",
     &Main::MEditRemove_Click},
    {1},
    {1, "MEditMoveUp", "Move &Up", "Alt+Up", "Move the selected items up", &Main::MEditMoveUp_Click},
    {1, "MEditMoveDown", "Move &Down", "Alt+Down", "Move the selected items down", &Main::MEditMoveDown_Click},
    {1},
    {1, "MEditSel", "&Selection.."},
    {2, "MEditSelAll", "Select &All", "Ctrl+A", "Select every item", &Main::MEditSelAll_Click},
    {2, "MEditSelNone", "Select &None", "Ctrl+Shift+A", "Select no item", &Main::MEditSelNone_Click},
    {2, "MEditSelFol", "Select in Folder", "", "Select every item in the folders of the selected ones",
     &Main::MEditSelFol_Click},
    {2},
    {2, "MEditSelTop", "Move to &Top", "Alt+Home", "Move the selected items to the top", &Main::MEditSelTop_Click},
    {2, "MEditSelBottom", "Move to &Bottom", "Alt+End", "Move the selected items to the bottom",
     &Main::MEditSelBottom_Click},
    {2},
    {2, "MEditSelInv", "In&vert Selection", "Ctrl+I", "Select what isn't selected, and nothing else",
     &Main::MEditSelInv_Click},
    {2, "MEditSelAlt", "Alternate Selection", "", "Keep every second one of the selected items",
     &Main::MEditSelAlt_Click},
    {2, "MEditSelRnd", "&Random Selection", "", "Select about half of the items by chance", &Main::MEditSelRnd_Click},
    {2, "MEditSelShuffle", "Shuffle Selection", "", "Put the selected items into an order by chance",
     &Main::MEditSelShuffle_Click},
    {2},
    {2, "MEditSelLoc", "Open &Folder..", "", "Show the folder of the selected items", &Main::MEditSelLoc_Click},
    {2, "MEditSelImpFol", "Im&port Folder", "", "Add all that is in the folders of the selected items",
     &Main::MEditSelImpFol_Click},
    {2},
    {2, "MEditSeMark", "Add &Check Mark..."},
    {3, "MEditSeMarkBlue", "Blue..", "", "Mark the selected items blue", &Main::MEditSeMarkBlue_Click},
    {3, "MEditSeMarkGreen", "Green...", "", "Mark the selected items green", &Main::MEditSeMarkGreen_Click},
    {3, "MEditSeMarkRed", "Red...", "", "Mark the selected items red", &Main::MEditSeMarkRed_Click},
    {2, "MEditSeUnMark", "Remove Check Mark...", "", "Take the marks off the selected items",
     &Main::MEditSeUnMark_Click},
    {2, "MEditSelectMark", "Select Check Marked...", "", "Select every marked item, of any colour",
     &Main::MEditSelectMark_Click},
    {1, "Mrelocs"},
    {1, "Mreloc", "Replace/Relocate...", "", "Put another file in the place of a missing one", &Main::Mreloc_Click},
    {0, "MView", "&View"},
    {1, "MViewToolbar", "&Toolbar", "", "Show or hide the toolbar", &Main::MViewToolbar_Click, true},
    {1, "MViewStatusBar", "&StatusBar", "", "Show or hide the status bar", &Main::MViewStatusBar_Click, true},
    {1},
    {1, "MViewSort", "Sort"},
    {2, "MViewSortFilename", "by &Filename", "", "Sort by name", &Main::MViewSort_Click<1>},
    {2, "MViewSortTime", "by &Length", "", "Sort by length", &Main::MViewSort_Click<2>},
    {2, "MViewSortSize", "by &Size", "", "Sort by size", &Main::MViewSort_Click<3>},
    {2, "MViewSortFolder", "by Fol&der", "", "Sort by folder", &Main::MViewSort_Click<4>},
    {2, "MViewSortID", "by &ID", "", "Sort by format", &Main::MViewSort_Click<5>},
    {2, "MViewSortLayer", "by La&yer", "", "Sort by layer", &Main::MViewSort_Click<6>},
    {2, "MViewSortBitrate", "by &Bitrate", "", "Sort by the text of the bit rate", &Main::MViewSort_Click<7>},
    {2, "MViewSortSamplerate", "by S&amplerate", "", "Sort by the text of the sample rate",
     &Main::MViewSort_Click<8>},
    {2, "MViewSortMode", "by &Mode", "", "Sort by channel mode", &Main::MViewSort_Click<9>},
    {2, "MViewSortOrig", "by &Original Order", "", "Sort by the order in which the items came",
     &Main::MViewSort_Click<12>},
    {1},
    {1, "MViewDetails", "Playlist Properties...", "", "Show counts, sizes and times of the whole list",
     &Main::MViewDetails_Click},
    {1},
    {1, "MViewRefresh", "Refresh", "F5", "Read every file from disk again", &Main::MViewRefresh_Click},
    {0, "MTools", "&Tools"},
    {1, "MToolsWinamp", "W&inAmp..."},
    {1, "s101"},
};

namespace {

bool IsSeparator(const Command& command) {
  return command.caption[0] == '\0';
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

MenuEntries BuildMenus(QMenuBar& bar, Main& main) {
  MenuEntries entries;
  std::vector<QMenu*> open;  // the menus that lead to the present depth
  for (const Command& command : kCommands) {
    open.resize(static_cast<std::size_t>(command.depth));
    if (IsSeparator(command)) {
      QAction* separator = open.back()->addSeparator();
      separator->setObjectName(QString::fromUtf8(command.name));
      entries[separator->objectName()] = separator;
    } else if (command.handler == nullptr) {
      const QString caption = QString::fromUtf8(command.caption);
      QMenu* menu = open.empty() ? bar.addMenu(caption) : open.back()->addMenu(caption);
      menu->setObjectName(QString::fromUtf8(command.name));
      entries[menu->objectName()] = menu->menuAction();
      open.push_back(menu);
    } else {
      QAction* action = MakeAction(command, main);
      open.back()->addAction(action);
      entries[action->objectName()] = action;
    }
  }
  return entries;
}

}  // namespace qublet
