#pragma once

#include <QAction>
#include <QHash>
#include <QKeySequence>
#include <QMenuBar>
#include <string_view>
#include <vector>

namespace qublet {

class Main;

// One entry of the menus: its given name, its caption, what it runs. The rows of one table, in menu order, feed
// menus, shortcuts, toolbar and context menus alike.
//
// A submenu has neither handler nor tip. A tip without a handler is an entry whose tool isn't there yet: it stays
// disabled.
struct Command {
  int depth = 0;              // 0 for the top-level menus
  const char* name = "";      // object name; few separators have one
  const char* caption = "";   // "" for a separator
  const char* shortcut = "";  // portable text of a key sequence
  const char* tip = "";       // shown in the status bar
  void (Main::*handler)() = nullptr;
  bool checkable = false;

  bool IsSeparator() const { return *caption == '\0'; }
  bool IsSubmenu() const { return !IsSeparator() && handler == nullptr && *tip == '\0'; }
};

extern const std::vector<Command> kCommands;

// The row of a given name, which must be one of the table.
const Command& CommandNamed(std::string_view name);

// The entries of the menus by their given names; a submenu is its action.
using MenuEntries = QHash<QString, QAction*>;

// Lays out the table below `bar`. Every entry becomes an action or a submenu that bears its name. The toolbar's
// context menu `MHidOption` is made too, but stands nowhere in the bar.
MenuEntries BuildMenus(QMenuBar& bar, Main& main);

// An entry whose tool isn't there stays disabled.
void EnableEntry(QAction& entry, bool enabled);

// Puts the pictures beside the entries that have one.
void SetMenuBitmaps(const MenuEntries& entries);

}  // namespace qublet
