#include "tools/purge/restoration.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

// The path behind its drive.
std::string WithoutDrive(const std::string& path) {
  const std::size_t colon = path.find(':');
  const std::string rest = colon == path.npos ? path : path.substr(std::min(colon + 2, path.size()));
  return rest.starts_with('\\') ? rest.substr(1) : rest;
}

}  // namespace

Restoration::Restoration(Engine& engine, const Collection& MissingPaths, bool UseFolderInfo)
    : engine_(engine), UseFolderInfo_(UseFolderInfo) {
  CollectFolders(MissingPaths, folders_);
  Collection terms;
  for (const std::string& path : MissingPaths) {
    names_[GetFolderPath(path)].push_back(GetFileName(path));
    const std::string term = UseFolderInfo ? WithoutDrive(path) : GetFileName(path);
    const auto [place, fresh] = term_at_.try_emplace(term, terms.size());
    if (fresh) {
      terms.push_back(term);
      times_.push_back(0);
    }
    ++times_[place->second];
  }
  search_.emplace(engine.services.files, engine.services.feedback, terms);
}

void Restoration::SearchDrive(const std::string& root) {
  if (root.empty() || folders_.empty()) return;
  std::vector<FoundName> found;
  gaps_ += search_->Walk(root, found);
  for (FoundName& file : found) {
    found_count_ += times_[file.name];
    FoundFiles.push_back(std::move(file.path));
  }
}

const Collection& Restoration::NamesOf(const std::string& folder) const {
  static const Collection none;
  const auto found = names_.find(folder);
  return found == names_.end() ? none : found->second;
}

Restoration::Step Restoration::ShowMissingFolder(int n) const {
  const std::string& Folder = OldFolder(n);
  const std::string& name = NamesOf(Folder).front();
  Step step{Folder + name, {}, ""};
  std::vector<int> Matches;
  FilterLinesContaining(FoundFiles, Matches, UseFolderInfo_ ? step.MissingPath : name);
  std::unordered_set<std::string> listed;
  for (const int match : Matches) {
    std::string folder = GetFolderPath(FoundFiles[static_cast<std::size_t>(match - 1)]);
    if (listed.insert(folder).second) step.FoundPaths.push_back(std::move(folder));
  }
  const auto term = term_at_.find(UseFolderInfo_ ? WithoutDrive(step.MissingPath) : name);
  if (step.FoundPaths.empty() && term != term_at_.end()) step.similar = search_->SimilarTo(term->second);
  return step;
}

std::string Restoration::HeldOf(int n, const std::string& folder) const {
  Collection paths;
  ListFolderFiles(engine_.services.files, folder, "*.*", paths);
  const std::unordered_set<std::string> present(paths.begin(), paths.end());
  const Collection& names = NamesOf(OldFolder(n));
  const std::unordered_set<std::string> missing(names.begin(), names.end());
  const auto held = std::ranges::count_if(missing, [&](const auto& name) { return present.contains(folder + name); });
  return std::to_string(held) + " of " + std::to_string(missing.size());
}

int Restoration::ApplyFoundFolder(int n, const std::vector<Choice>& choices) {
  RowStore& rows = engine_.document.ListView1;
  const RowStore::Bulk bulk(rows);
  const int focused = rows.FocusedRow();
  int restored = 0;
  for (const Choice& choice : choices) {
    if (choice.selected)
      restored += Restore(OldFolder(n), choice.folder);
    else if (choice.ticked)
      AddAll(choice.folder);
  }
  engine_.services.feedback.ShowActivity("");
  ResumeNext([&] { rows.SetFocusedRow(focused); });
  return restored;
}

int Restoration::Restore(const std::string& Folder, const std::string& New) {
  const Collection& names = NamesOf(Folder);
  const std::unordered_set<std::string> missing(names.begin(), names.end());
  int restored = 0;
  for (const std::string& filter : FileFilters()) {
    Collection paths;
    ListFolderFiles(engine_.services.files, New, filter, paths);
    for (const std::string& path : paths) {
      const std::string file = path.substr(New.size());
      engine_.services.feedback.ShowActivity(New);
      if (missing.contains(file)) restored += PutInPlace(Folder + file, path);
    }
  }
  return restored;
}

int Restoration::PutInPlace(const std::string& old_path, const std::string& path) {
  RowStore& rows = engine_.document.ListView1;
  if (!rows_) rows_.emplace(rows);
  const std::vector<int> places = rows_->All(old_path);
  for (const int row : places) {
    rows.Remove(row);
    engine_.items.AddFile(path, row, 0);
    rows_->Move(row, old_path, path);
    engine_.document.PlaylistChanged = true;
  }
  return static_cast<int>(places.size());
}

void Restoration::AddAll(const std::string& New) {
  for (const std::string& filter : FileFilters()) {
    Collection paths;
    ListFolderFiles(engine_.services.files, New, filter, paths);
    for (const std::string& path : paths) {
      engine_.services.feedback.ShowActivity(New);
      const int before = engine_.document.ListView1.Count();
      engine_.items.AddFile(path, 0, 0);
      if (engine_.document.ListView1.Count() > before) engine_.document.PlaylistChanged = true;
    }
  }
}

}  // namespace qublet
