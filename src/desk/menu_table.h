#pragma once

#include <array>
#include <string_view>

#include "playlist/list_status.h"

namespace qublet {

// When a command can be used, from what the list is like.
namespace when {

constexpr bool Always(const ListFacts& /*list*/) {
  return true;
}
constexpr bool Selected(const ListFacts& list) {
  return list.selected > 0;
}
// One selected row whose file is there, or several of whatever kind.
constexpr bool SelectedAndThere(const ListFacts& list) {
  return list.selected > 1 || (list.selected == 1 && list.file_there);
}
constexpr bool OneThere(const ListFacts& list) {
  return list.selected == 1 && list.file_there;
}
constexpr bool OneMissing(const ListFacts& list) {
  return list.selected == 1 && !list.file_there;
}
// One row of a list of one counts as not all of them.
constexpr bool NotAllSelected(const ListFacts& list) {
  return list.selected < 2 || list.selected < list.rows;
}
constexpr bool CanMoveUp(const ListFacts& list) {
  return list.selected > 0 && !list.first_selected;
}
constexpr bool CanMoveDown(const ListFacts& list) {
  return list.selected > 0 && !list.last_selected;
}
constexpr bool CanGoToTop(const ListFacts& list) {
  return list.selected == 1 ? !list.first_selected : list.selected > 0 && list.selected < list.rows;
}
constexpr bool CanGoToBottom(const ListFacts& list) {
  return list.selected == 1 ? !list.last_selected : list.selected > 0 && list.selected < list.rows;
}

}  // namespace when

// One entry of the menus: data only. The rows of one table, in menu order, feed menus, shortcuts, toolbar and context
// menus alike; what a command runs is bound to its name from outside (commands.h).
struct MenuRow {
  int depth = 0;               // 0 for the top-level menus
  std::string_view name = {};  // object name; few separators have one
  const char* caption = "";    // "" for a separator
  const char* shortcut = "";   // portable text of a key sequence
  const char* tip = "";        // shown in the status bar; "" for a submenu
  const char* picture = "";    // of Picture()
  bool (*available)(const ListFacts& list) = when::Always;
  bool checkable = false;

  constexpr bool IsSeparator() const { return *caption == '\0'; }
  constexpr bool IsSubmenu() const { return !IsSeparator() && *tip == '\0'; }
};

inline constexpr auto kMenu = std::to_array<MenuRow>({
    {0, "MFile", "&File"},
    {1, "MFileNew", "&New", "Ctrl+N", "Start an empty playlist", "new"},
    {1, "MFileOpen", "&Open", "Ctrl+O", "Open a playlist", "open"},
    {1, "MFileImport", "&Import..", "", "Add the items of a playlist to the list"},
    {1},
    {1, "MFileSave", "&Save", "Ctrl+S", "Save the playlist with full paths", "save"},
    {1, "MFileSaveAs", "Save &As", "Ctrl+Shift+S", "Save the playlist under another name", "save"},
    {1},
    {1, "MFileSaveRel", "Save to Relative Folder..", "", "Save the playlist with paths relative to its own folder",
     "purge"},
    {1},
    {1, "MFileRec", "&Recent Files.."},
    {1},
    {1, "MFileExit", "E&xit", "Ctrl+Q", "End the program"},
    {0, "MEdit", "&Edit"},
    {1, "MEditPlay", "Play..", "", "", "play"},
    {2, "MEditPlaySel", "&Play Selected", "", "Play the selected items", "", when::SelectedAndThere},
    {2, "MEditPlayFol", "Play Folder", "", "Play everything in the folders of the selected items", "",
     when::Selected},
    {2, "MEditPlayLoc", "Play From", "", "Play from the first selected item to the end of the list", "",
     when::Selected},
    {2, "MEditPlayList", "Play List", "Ctrl+P", "Play the whole list"},
    {1},
    {1, "MEditAddDir", "&Add Item", "Ins", "Add a file, a folder or a playlist", "add"},
    {1, "MEditRemove", "&Remove Item", "Del", "Remove the selected items from the list; the files stay", "remove",
     when::Selected},
    {1},
    {1, "MEditMoveUp", "Move &Up", "Alt+Up", "Move the selected items up", "move-up", when::CanMoveUp},
    {1, "MEditMoveDown", "Move &Down", "Alt+Down", "Move the selected items down", "move-down", when::CanMoveDown},
    {1},
    {1, "MEditSel", "&Selection.."},
    {2, "MEditSelAll", "Select &All", "Ctrl+A", "Select every item", "", when::NotAllSelected},
    {2, "MEditSelNone", "Select &None", "Ctrl+Shift+A", "Select no item", "", when::Selected},
    {2, "MEditSelFol", "Select in Folder", "", "Select every item in the folders of the selected ones", "",
     when::Selected},
    {2},
    {2, "MEditSelTop", "Move to &Top", "Alt+Home", "Move the selected items to the top", "", when::CanGoToTop},
    {2, "MEditSelBottom", "Move to &Bottom", "Alt+End", "Move the selected items to the bottom", "",
     when::CanGoToBottom},
    {2},
    {2, "MEditSelInv", "In&vert Selection", "Ctrl+I", "Select what isn't selected, and nothing else"},
    {2, "MEditSelAlt", "Alternate Selection", "", "Keep every second one of the selected items", "", when::Selected},
    {2, "MEditSelRnd", "&Random Selection", "", "Select about half of the items by chance"},
    {2, "MEditSelShuffle", "Shuffle Selection", "", "Put the selected items into an order by chance", "",
     when::Selected},
    {2},
    {2, "MEditSelLoc", "Open &Folder..", "", "Show the folder of the selected items", "", when::Selected},
    {2, "MEditSelImpFol", "Im&port Folder", "", "Add all that is in the folders of the selected items"},
    {2},
    {2, "MEditSeMark", "Add &Check Mark...", "", "", "", when::Selected},
    {3, "MEditSeMarkBlue", "Blue..", "", "Mark the selected items blue"},
    {3, "MEditSeMarkGreen", "Green...", "", "Mark the selected items green"},
    {3, "MEditSeMarkRed", "Red...", "", "Mark the selected items red"},
    {2, "MEditSeUnMark", "Remove Check Mark...", "", "Take the marks off the selected items", "", when::Selected},
    {2, "MEditSelectMark", "Select Check Marked...", "", "Select every marked item, of any colour"},
    {1},
    {1, "MEditId3", "Edit ID3 &Tag..", "Ctrl+T", "Edit the tags of the selected files", "tag",
     when::SelectedAndThere},
    {1},
    {1, "MEditFileInfo", "&Properties", "Alt+Return", "Show what the system knows of the file", "", when::OneThere},
    {1, "Mrelocs", "", "", "", "", when::OneMissing},
    {1, "Mreloc", "Replace/Relocate...", "", "Put another file in the place of a missing one", "", when::OneMissing},
    {0, "MView", "&View"},
    {1, "MViewToolbar", "&Toolbar", "", "Show or hide the toolbar", "", when::Always, true},
    {1, "MViewStatusBar", "&StatusBar", "", "Show or hide the status bar", "", when::Always, true},
    {1},
    {1, "MViewSort", "Sort"},
    {2, "MViewSortFilename", "by &Filename", "", "Sort by name"},
    {2, "MViewSortTime", "by &Length", "", "Sort by length"},
    {2, "MViewSortSize", "by &Size", "", "Sort by size"},
    {2, "MViewSortFolder", "by Fol&der", "", "Sort by folder"},
    {2, "MViewSortID", "by &ID", "", "Sort by format"},
    {2, "MViewSortLayer", "by La&yer", "", "Sort by layer"},
    {2, "MViewSortBitrate", "by &Bitrate", "", "Sort by the text of the bit rate"},
    {2, "MViewSortSamplerate", "by S&amplerate", "", "Sort by the text of the sample rate"},
    {2, "MViewSortMode", "by &Mode", "", "Sort by channel mode"},
    {2, "MViewSortOrig", "by &Original Order", "", "Sort by the order in which the items came"},
    {1},
    {1, "MViewDetails", "Playlist Properties...", "", "Show counts, sizes and times of the whole list", "tag"},
    {1},
    {1, "MViewRefresh", "Refresh", "F5", "Read every file from disk again"},
    {0, "MTools", "&Tools"},
    {1, "MToolsSearch", "&Search Playlist...", "Ctrl+F", "Find items in the list", "search"},
    {1, "MToolsFilter", "&Purge Playlist Entries...", "", "Remove duplicates and missing items", "purge"},
    {1, "MToolsRename", "&Rectify MP3 Filenames...", "", "Rename many files by rules", "rename"},
    {1},
    {1, "MToolsWizards", "&Wizards..."},
    {2, "MToolsReport", "&Generate Report...", "", "Write a report of the list"},
    {2, "MToolsM3UWiz", "&Autocreate M3U's...", "", "Make a playlist for every folder"},
    {2, "MToolsMP3CDWiz", "&Create MP3 CD-ROM...", "", "Gather files for a disc"},
    {1},
    {1, "MToolsPlugins", "&Plugins"},
    {1},
    {1, "MToolsBookmark", "Bookmarks"},
    {2, "MToolsBookmarkAdd", "Add Selected Items...", "", "Keep the selected items", "", when::Selected},
    {2},
    {2, "MToolsBookmarkImport", "Import/Edit Category", "", "Add kept items to the list"},
    {1, "splug"},
    {1, "MToolsWinamp", "W&inAmp..."},
    {2, "MToolsLoadWinamp", "Import WinAmp Bookmark File", "", "Add the player's bookmarks to the list"},
    {2, "MToolsSaveWinamp", "Save As WinAmp Bookmark File", "", "Make the list the player's bookmarks"},
    {2, "MToolsLocWinamp", "Use different Bookmark File", "", "Say where the player keeps its bookmarks"},
    {2},
    {2, "MToolsWinampShutDown", "Shutdown PC when WinAmp stops playing...", "",
     "Switch the computer off at the end of the music"},
    {1, "s101"},
    {1, "MToolsShortCut", "Shortcuts..."},
    {2, "MToolsShortCutFind", "Find Files...", "", "Search files, starting at the folder of the selected items"},
    {2, "MToolsShortCutExplore", "Explorer...", "", "Show the folder of the selected items"},
    {2, "MToolsShortCutVolume", "Volume Control...", "", "Open the system's volume control"},
    {1},
    {1, "MToolOptions", "Preferences...", "", "Change the program's settings"},
    {0, "MHelp", "&Help"},
    {1, "MHelpHelp", "&Help", "F1", "Read the help", "help"},
    {1, "MHelpQuickguide", "Quick Guide...", "", "Read the quick guide", "help"},
    {1, "MHelpReadme", "Read Me File...", "", "Read the latest remarks"},
    {1},
    {1, "MHelpTip", "&Tip of the Day", "", "Show a tip"},
    {1},
    {1, "MHelpWebsite", "Visit Velmora &Website", "", "Open the maker's home page"},
    {1},
    {1, "MHelpUpdate", "Check for an Update...", "", "Ask for a newer version"},
    {1},
    {1, "MHelpAbout", "&About", "", "Say what this program is"},
    {0, "MHidOption", "GUI Options"},
    {1, "MHidOptionShow", "Preferences...", "", "Change the program's settings"},
});

}  // namespace qublet
