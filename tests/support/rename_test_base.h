#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "support/editor_test_base.h"
#include "tools/rename/renamer.h"

namespace qublet {

// The rename window without its window, over songs of the drive c:.
class RenameTestBase : public EditorTestBase {
 protected:
  // Files that hold their own name, as selected rows.
  void AddSongs(const std::vector<std::string>& names) {
    for (const std::string& name : names) {
      std::string native = name;
      std::ranges::replace(native, '\\', '/');
      drives_.Write(native, name);
    }
    AddRows(names);
    Rows().SelectWhere([](int, const Row&) { return true; });
  }
  // Names of all files below c:, folders with "/", in ascending order.
  std::string FilesOfC() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(drives_.C())) {
      if (entry.is_regular_file()) {
        const std::u8string name = std::filesystem::relative(entry.path(), drives_.C()).generic_u8string();
        names.emplace(name.begin(), name.end());
      }
    }
    std::string text;
    for (const std::string& name : names) text += (text.empty() ? "" : "|") + name;
    return text;
  }
  std::string RowNames() {
    std::string text;
    for (int i = 1; i <= Rows().Count(); ++i) text += (i > 1 ? "|" : "") + Rows().At(i).cells[kFileName];
    return text;
  }
};

}  // namespace qublet
