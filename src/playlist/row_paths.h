#pragma once

#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "playlist/paths/collections.h"
#include "playlist/row_store.h"

namespace qublet {

enum class WhichRows { kAll, kSelected };

// Appends the full paths of those rows, in their order.
void AppendPaths(const RowStore& rows, WhichRows which, Collection& paths);
Collection PathsOf(const RowStore& rows, WhichRows which);
// The same as the disk has them (see Row::RealPath).
Collection RealPathsOf(const RowStore& rows, WhichRows which);

// The rows by their paths, kept up to date while names change.
class RowsByPath {
 public:
  explicit RowsByPath(const RowStore& rows);

  // The rows of this path, ascending.
  std::vector<int> All(const std::string& path) const;
  // The uppermost of them; 0 when there is none.
  int First(const std::string& path) const;
  void Move(int row, const std::string& from, const std::string& to);

 private:
  std::unordered_map<std::string, std::set<int>> rows_;
};

}  // namespace qublet
