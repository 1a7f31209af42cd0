#include "playlist/row_paths.h"

namespace qublet {

void AppendPaths(const RowStore& rows, WhichRows which, Collection& paths) {
  const bool all = which == WhichRows::kAll;
  if (all) paths.reserve(paths.size() + static_cast<std::size_t>(rows.Count()));
  for (int i = 1; i <= rows.Count(); ++i) {
    if (all || rows.At(i).selected) paths.push_back(rows.At(i).WholePath());
  }
}

Collection PathsOf(const RowStore& rows, WhichRows which) {
  Collection paths;
  AppendPaths(rows, which, paths);
  return paths;
}

Collection RealPathsOf(const RowStore& rows, WhichRows which) {
  Collection paths;
  for (int i = 1; i <= rows.Count(); ++i) {
    if (which == WhichRows::kAll || rows.At(i).selected) paths.push_back(rows.At(i).RealPath());
  }
  return paths;
}

RowsByPath::RowsByPath(const RowStore& rows) {
  for (int i = 1; i <= rows.Count(); ++i) rows_[rows.At(i).FullPath()].insert(i);
}

std::vector<int> RowsByPath::All(const std::string& path) const {
  const auto found = rows_.find(path);
  return found == rows_.end() ? std::vector<int>() : std::vector<int>(found->second.begin(), found->second.end());
}

int RowsByPath::First(const std::string& path) const {
  const auto found = rows_.find(path);
  return found == rows_.end() || found->second.empty() ? 0 : *found->second.begin();
}

void RowsByPath::Move(int row, const std::string& from, const std::string& to) {
  rows_[from].erase(row);
  rows_[to].insert(row);
}

}  // namespace qublet
