#pragma once

namespace qublet {

// What the rules ask of the window that shows the document.
class MainView {
 public:
  virtual ~MainView() = default;

  // To be called when rows or the selection have changed: the window works out its state anew, now or at the end of
  // the outermost RefreshOnce.
  void Refresh() {
    if (!Dropping()) ListView1_Click();
  }
  // True while the refresh waits for the end of a command that adds much.
  bool Dropping() const { return held_ > 0; }

  // Hides the list or shows it again, in its place.
  virtual void ShowList(bool /*shown*/) {}
  // The caption after a change of `CurrentPlaylist`.
  virtual void ShowCaption() {}
  // The menu of recent files after a change of `RecentFiles`.
  virtual void RefreshRecentMenu() {}

 protected:
  // The general refresh: status bar and enabled states from the rows.
  virtual void ListView1_Click() {}

 private:
  friend class RefreshOnce;
  int held_ = 0;
};

// While one lives, the window refreshes for nothing; at the end of the outermost it does so once.
class RefreshOnce {
 public:
  explicit RefreshOnce(MainView& view) : view_(view) { ++view_.held_; }
  ~RefreshOnce() {
    --view_.held_;
    view_.Refresh();
  }
  RefreshOnce(const RefreshOnce&) = delete;
  RefreshOnce& operator=(const RefreshOnce&) = delete;

 private:
  MainView& view_;
};

// The list can't be seen for as long as one lives.
class HiddenList {
 public:
  explicit HiddenList(MainView& view) : view_(view) { view_.ShowList(false); }
  ~HiddenList() { view_.ShowList(true); }
  HiddenList(const HiddenList&) = delete;
  HiddenList& operator=(const HiddenList&) = delete;

 private:
  MainView& view_;
};

}  // namespace qublet
