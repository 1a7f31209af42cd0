#pragma once

#include <functional>
#include <string>

#include "engine/engine.h"
#include "generators/bookmarks/categories.h"

namespace qublet {

// What the window of bookmarks shows.
struct BookmarksView {
  std::string CmdNext;
  std::string lblInfo;
  Collection lstCategory;  // the categories, a row each
  int selected = -1;       // row, from 0; -1 for none
};

// The window of bookmarks without its window: the selected items are kept in a category, or a category's items added
// to the list.
class Bookmarker {
 public:
  struct Window {
    std::function<void()> render;
    std::function<void()> close;
  };

  // `AddMode` True keeps items, False imports.
  Bookmarker(Engine& engine, bool AddMode, Window window);

  BookmarksView view;

  // The window comes to the front. It goes away at once where items are to be kept and none is selected.
  void Activate();
  void lstCategory_ItemClick(int row) { view.selected = row; }
  void CmdNext_Click();
  void cmdAddCategory_Click();
  void cmdDelCategory_Click();

 private:
  const std::string& SelectedCategory() const;
  Collection SelectedPaths() const;
  void ImportFrom(const std::string& path);

  Engine& engine_;
  const bool AddMode;
  const Window window_;
  const Categories categories_;
};

}  // namespace qublet
