#include "playlist/row_paths.h"

namespace qublet {

void AppendPaths(const RowStore& rows, WhichRows which, Collection& paths) {
  const bool all = which == WhichRows::kAll;
  if (all) paths.reserve(paths.size() + static_cast<std::size_t>(rows.Count()));
  for (int i = 1; i <= rows.Count(); ++i) {
    if (all || rows.At(i).selected) paths.push_back(rows.At(i).FullPath());
  }
}

Collection PathsOf(const RowStore& rows, WhichRows which) {
  Collection paths;
  AppendPaths(rows, which, paths);
  return paths;
}

}  // namespace qublet
