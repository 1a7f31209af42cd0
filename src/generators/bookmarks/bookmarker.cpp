#include "generators/bookmarks/bookmarker.h"

#include <utility>

#include "playlist/paths/file_details.h"
#include "playlist/paths/path_text.h"
#include "playlist/row_paths.h"

namespace qublet {

Bookmarker::Bookmarker(Engine& engine, bool add_mode, Window window)
    : engine_(engine),
      AddMode(add_mode),
      window_(std::move(window)),
      categories_(engine.services.files, engine.services.dialogs, engine.program_folder) {
  view.CmdNext = AddMode ? "&Finish>" : "&Import>";
  view.lblInfo = AddMode ? "Choose category in which to save the selected items as bookmarks into..."
                         : "Choose the category in which files will be imported into the main playlist. "
                           "Click 'X' to close when done...";
}

const std::string& Bookmarker::SelectedCategory() const {
  return view.lstCategory.at(static_cast<std::size_t>(view.selected));
}

Collection Bookmarker::SelectedPaths() const {
  return RealPathsOf(engine_.document.ListView1, WhichRows::kSelected);
}

void Bookmarker::Activate() {
  categories_.ProvideDefault();
  view.lstCategory = categories_.ListCategories();
  view.selected = view.lstCategory.empty() ? -1 : 0;
  window_.render();
  if (!AddMode || !SelectedPaths().empty()) return;
  window_.close();
  engine_.services.dialogs.ShowMessage("Please select the items you wish to add as bookmarks.",
                                       MessageIcon::kExclamation, MessageButtons::kOk);
}

void Bookmarker::CmdNext_Click() {
  const std::string path = categories_.PathOf(SelectedCategory());
  if (!AddMode)
    ImportFrom(path);
  else if (categories_.AddBookmarks(path, SelectedPaths()))
    window_.close();
}

void Bookmarker::ImportFrom(const std::string& path) {
  const FileSystem& files = engine_.services.files.OwnFiles();
  if (Attempt([&] { files.OpenForReading(path); })) engine_.items.AddStuff(path, true);
}

void Bookmarker::cmdAddCategory_Click() {
  const std::optional<std::string> name =
      engine_.services.dialogs.AskText("Enter Name of the new category...", "Add New Category...");
  if (!name || name->empty()) return;
  view.lstCategory.push_back(*name);
  view.selected = static_cast<int>(view.lstCategory.size()) - 1;
  window_.render();
  categories_.AddBookmarks(categories_.PathOf(*name), SelectedPaths());
}

void Bookmarker::cmdDelCategory_Click() {
  Dialogs& dialogs = engine_.services.dialogs;
  const std::string category = SelectedCategory();
  if (categories_.IsDefault(category)) {
    dialogs.ShowMessage(Categories::kCannotBeRemoved, MessageIcon::kExclamation, MessageButtons::kOk);
    return;
  }
  const std::string question = "Are you sure you want to remove the bookmarks file '" + category +
                               ".bm'? You will lose ALL bookmarks contained within it.";
  if (dialogs.ShowMessage(question, MessageIcon::kQuestion, MessageButtons::kYesNo) != MessageAnswer::kYes) return;
  if (!DeleteFileSafe(engine_.services.files, categories_.PathOf(category)))
    dialogs.ShowMessage("The bookmarks file could not be removed.", MessageIcon::kExclamation, MessageButtons::kOk);
  Activate();
}

}  // namespace qublet
