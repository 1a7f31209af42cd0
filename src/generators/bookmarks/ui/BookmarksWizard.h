#pragma once

#include <functional>

#include "desk/barless_dialog.h"
#include "desk/commands.h"
#include "generators/bookmarks/bookmarker.h"
#include "ui_BookmarksWizard.h"

namespace qublet {

// The window of bookmarks: it keeps the selected items in a category and is modal then, or adds categories to the
// list while the user works in the main window.
class BookmarksWizard : public BarlessDialog, private Ui::BookmarksWizard {
  Q_OBJECT

 public:
  // What the user presses runs through `commands`, which refuse it while a batch runs.
  BookmarksWizard(Engine& engine, const Commands& commands, bool AddMode, QWidget* parent);

 private:
  void OnClick(QPushButton* button, std::function<void()> command);
  void AddKey(Qt::Key key, QPushButton* button);
  void CmdNext_Click();
  void Render();

  const Commands& commands_;
  Bookmarker bookmarker_;
};

}  // namespace qublet
