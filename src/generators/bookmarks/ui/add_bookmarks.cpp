#include "generators/bookmarks/ui/add_bookmarks.h"

#include <QPointer>

#include "desk/placement.h"
#include "generators/bookmarks/player_bookmarks.h"
#include "generators/bookmarks/ui/BookmarksWizard.h"

namespace qublet {
namespace {

// One that is open stays where it is and comes to the front.
void ShowImport(const Commands& commands, const Desk& desk, QPointer<BookmarksWizard>& form) {
  if (!form || !form->isVisible()) {
    form = new BookmarksWizard(desk.engine, commands, false, &desk.main);
    form->setAttribute(Qt::WA_DeleteOnClose);
    PositionForm(desk.main, *form);
  }
  form->show();
  form->raise();
  form->activateWindow();
}

void AddPlayerBookmarks(Commands& commands, Engine& engine) {
  commands.Bind("MToolsLoadWinamp", [&engine] { PlayerBookmarks(engine).MToolsLoadWinamp_Click(); });
  commands.Bind("MToolsLocWinamp", [&engine] { PlayerBookmarks(engine).MToolsLocWinamp_Click(); });
  commands.Bind("MToolsSaveWinamp", [&engine] { PlayerBookmarks(engine).MToolsSaveWinamp_Click(); });
}

}  // namespace

void AddBookmarks(Commands& commands, const Desk& desk) {
  commands.Bind("MToolsBookmarkAdd", [&commands, &desk] {
    if (!desk.HasItems()) return;
    BookmarksWizard form(desk.engine, commands, true, &desk.main);
    desk.ShowModal(form);
  });
  commands.Bind("MToolsBookmarkImport", [&commands, &desk, form = QPointer<BookmarksWizard>()]() mutable {
    ShowImport(commands, desk, form);
  });
  AddPlayerBookmarks(commands, desk.engine);
}

}  // namespace qublet
