#pragma once

#include <functional>
#include <optional>

#include "engine/engine.h"
#include "settings/schemes/look.h"

namespace qublet {

// The preferences without their window: what its controls are filled from, and what its buttons do.
class Preferences {
 public:
  explicit Preferences(Engine& engine) : engine_(engine) {}

  // The record for the controls, with the main window's present state taken in.
  const AppSettings& Open();
  // `take` puts the controls into the record, which the main window then follows. What isn't on the controls (place,
  // widths, bars) stays as the window has it now.
  void StoreOptionControls(const std::function<void(AppSettings& settings)>& take);
  // "Restore Defaults": a record for the controls, nothing when the user says no. Nothing else changes.
  std::optional<AppSettings> cmdDefault_Click();
  // "Flush Registry": after two questions the recent files, the startup entry and the program's own files go, and the
  // program ends at once.
  void cmdFlushReg_Click();

  // Whether the menu is to be shown: also where it wasn't wanted, when the toolbar isn't either, which the user is
  // told.
  bool MenuStays(bool menu, bool toolbar);
  // The folder that imports begin in, "\" at its end; nothing when the user cancels.
  std::optional<std::string> Command1_Click(const std::string& present);

  // Looks as files. A failure is silent: what was set until then stays.
  void schLoad_Click(Look& look);
  void schSave_Click(const Look& look);

 private:
  MessageAnswer Ask(const char* text, MessageIcon icon, MessageButtons buttons) const;
  void RemoveOwnFiles();

  Engine& engine_;
};

}  // namespace qublet
