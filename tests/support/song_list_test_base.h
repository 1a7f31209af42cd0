#pragma once

#include <string>

#include "playlist/list_status.h"
#include "support/list_test_base.h"

namespace qublet {

// Four songs in a list, and what the window would show of it.
class SongListTestBase : public ListTestBase {
 protected:
  // A row of this length and size; its file is there if `present`.
  void AddRow(const std::string& name, const std::string& length, const std::string& size, bool present = true) {
    if (present) Touch({name});
    Row row = NamedRow(name);
    row.cells[kPath] = "c:\\";
    row.cells[kHiddenLen] = length;
    row.cells[kHiddenSize] = size;
    Rows().Insert(Rows().Count() + 1, {row});
  }
  // Three songs of 1:00, 2:05 and 1:01:01 and a missing one between them.
  void AddSongs() {
    AddRow("1.mp3", "60", "1000");
    AddRow("2.mp3", "125", "20000");
    AddRow("gone.mp3", "", "", false);
    AddRow("3.mp3", "3661", "20000000");
  }
  void Select(const std::string& letters, int focused) {
    Rows().SelectWhere([&](int index, const Row&) { return letters.at(static_cast<std::size_t>(index - 1)) == 'x'; });
    Rows().SetFocusedRow(focused);
  }
  ListStatus Status() { return WorkOutStatus(Rows(), *files_, settings_, ","); }

  AppSettings settings_;
};

}  // namespace qublet
