#pragma once

#include <QAction>
#include <QMenu>
#include <array>

#include "desk/commands.h"
#include "player/plugins/plugins.h"

namespace qublet {

// The entries `plug1` to `plug9` of a menu, one for each slot.
class PluginMenu {
 public:
  // They run through `commands`. Until plug-ins are read the menu says that there are none.
  PluginMenu(QMenu& menu, const Commands& commands, Engine& engine);
  PluginMenu(const PluginMenu&) = delete;
  PluginMenu& operator=(const PluginMenu&) = delete;

  void LoadPluginMenu();
  void RegisterAccessoryTools() { plugins_.RegisterAccessoryTools(); }

 private:
  void Show();

  Plugins plugins_;
  std::array<QAction*, kPluginCount> plug_{};
};

}  // namespace qublet
