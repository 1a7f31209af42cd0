#pragma once

#include <QAction>
#include <QMenuBar>
#include <array>

#include "desk/commands.h"

namespace qublet {

// The menus as Qt shows them: an action for each row of the table, which bears its name; a submenu is its action.
class Menus {
 public:
  // Lays out the table below `bar`. An action runs its command, also by its key while the menus are hidden: `window`
  // knows it too. The toolbar's context menu `MHidOption` is made, but stands nowhere in the bar.
  Menus(QMenuBar& bar, QWidget& window, const Commands& commands);

  QAction& operator[](CommandName command) const { return *actions_[command.Index()]; }
  QMenu& Submenu(CommandName command) const { return *(*this)[command].menu(); }

  // Enables what can be chosen with this list.
  void ShowState(const ListFacts& list) const;
  // Puts the pictures beside the entries that have one.
  void SetMenuBitmaps() const;

 private:
  QAction* MakeAction(CommandName command, QWidget& window) const;

  const Commands& commands_;
  std::array<QAction*, kMenu.size()> actions_{};
};

}  // namespace qublet
