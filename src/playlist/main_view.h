#pragma once

namespace qublet {

// What the rules ask of the window that shows the document.
class MainView {
 public:
  virtual ~MainView() = default;
  // The general refresh after a command: status bar and enabled states from the rows.
  virtual void ListView1_Click() {}
  // The caption after a change of `CurrentPlaylist`.
  virtual void ShowCaption() {}
  // The menu of recent files after a change of `RecentFiles`.
  virtual void RefreshRecentMenu() {}
};

}  // namespace qublet
