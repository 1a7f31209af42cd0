#pragma once

#include <QAction>
#include <QHash>
#include <QKeySequence>
#include <QMenuBar>
#include <vector>

namespace qublet {

class Main;

// One entry of the menus: its given name, its caption, what it runs. The rows of one table, in menu order, feed
// menus, shortcuts and context menus alike.
struct Command {
  int depth = 0;                      // 0 for the top-level menus
  const char* name = "";              // object name; few separators have one
  const char* caption = "";           // "" for a separator
  const char* shortcut = "";          // portable text of a key sequence
  const char* tip = "";               // shown in the status bar
  void (Main::*handler)() = nullptr;  // nothing for a submenu
  bool checkable = false;
};

extern const std::vector<Command> kCommands;

// The entries of the menus by their given names; a submenu is its action.
using MenuEntries = QHash<QString, QAction*>;

// Lays out the table below `bar`. Every entry becomes an action or a submenu that bears its name.
MenuEntries BuildMenus(QMenuBar& bar, Main& main);

}  // namespace qublet
