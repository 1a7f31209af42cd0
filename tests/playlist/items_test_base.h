#pragma once

#include "support/list_test_base.h"

namespace qublet {

class ItemsTest : public ListTestBase {
 protected:
  // All cells of a row with "|" between.
  std::string Line(int index) {
    std::string line;
    for (const std::string& cell : Rows().At(index).cells) line += (line.empty() ? "" : "|") + cell;
    return line;
  }
  // Rows that stand in the list already, "1.mp3" and so on.
  void Stock(int count) {
    for (int i = 1; i <= count; ++i) {
      Touch({"old/" + std::to_string(i) + ".mp3"});
      ASSERT_TRUE(items_.AddFile("c:\\old\\" + std::to_string(i) + ".mp3", 0, 0));
    }
  }
  Outcome Add(const std::string& path, bool reselect, int insert_point = 0) {
    return items_.AddStuff(path, reselect, insert_point);
  }
};

}  // namespace qublet
