#include "tools/rename/preview.h"

#include <gtest/gtest.h>

#include "support/rename_test_base.h"

namespace qublet {
namespace {

class PreviewTest : public RenameTestBase {
 protected:
  PreviewTest() {
    config_.Capitalise = false;
    ClearSlot(config_, 0);
  }
  void Rule(const std::string& from, const std::string& to) { PutRule(config_, next_slot_++, {from, to}, true); }
  std::vector<PreviewRow> Preview(const Collection& names, bool ResetPerFolder = true) {
    Collection paths;
    for (const std::string& name : names) paths.push_back("c:\\" + name);
    Numbering numbering(*files_, paths.size(), ResetPerFolder);
    std::vector<PreviewRow> rows = PlanNames(
        RenameRules(config_), paths, numbering, [&](const std::string& path) { return TagTitle(*files_, path); },
        [] { return false; });
    WorkOutFates(*files_, rows, [] { return false; });
    return rows;
  }
  // "a.mp3: renamed" and so on, and checks each word against a real run.
  std::string Fates(const Collection& names) {
    std::string text;
    const std::vector<PreviewRow> rows = Preview(names);
    for (const PreviewRow& row : rows) text += GetName(row.new_path) + ": " + FateText(row) + "\n";
    for (const PreviewRow& row : rows) {
      const RenameResult real = RenameTo(*files_, row.old_path, row.new_path);
      EXPECT_EQ(real.path, Fails(row) ? row.old_path : row.new_path) << row.old_path;
      EXPECT_TRUE(row.new_path == row.old_path || real.outcome.Reason() == row.reason) << real.outcome.Reason();
    }
    return text;
  }
  static std::string GetName(const std::string& path) { return path.substr(3); }
  void Songs(const std::vector<std::string>& names) {
    for (const std::string& name : names) drives_.Write(name, name);
  }

  RenameConfig config_;
  std::size_t next_slot_ = 0;
};

TEST_F(PreviewTest, TellsWhatIsRenamedAndWhatIsNot) {
  Songs({"a_b.mp3", "c.mp3"});
  Rule("_", " ");
  EXPECT_EQ(Fates({"a_b.mp3", "c.mp3"}), "a b.mp3: renamed\nc.mp3: unchanged\n");
}

TEST_F(PreviewTest, TellsThatANameIsTakenOnTheDisk) {
  Songs({"a_b.mp3", "a b.mp3"});
  Rule("_", " ");
  EXPECT_EQ(Fates({"a_b.mp3"}), "a b.mp3: name taken on disk\n");
}

TEST_F(PreviewTest, TellsWhoHasTheSameName) {
  Songs({"a_b.mp3", "a-b.mp3", "c d.mp3", "c_d.mp3"});
  Rule("_", " ");
  Rule("-", " ");
  EXPECT_EQ(Fates({"a_b.mp3", "a-b.mp3", "c d.mp3", "c_d.mp3"}),
            "a b.mp3: renamed\na b.mp3: same name as row 1\nc d.mp3: unchanged\nc d.mp3: same name as row 3\n");
}

TEST_F(PreviewTest, TellsOfMissingFiles) {
  Songs({"a.mp3"});
  Rule("_", " ");
  EXPECT_EQ(Fates({"gone_.mp3", "gone.mp3", "a.mp3"}), "gone.mp3: missing\ngone.mp3: missing\na.mp3: unchanged\n");
}

TEST_F(PreviewTest, TheSecondRowOfAFileIsMissingByThen) {
  Songs({"a_b.mp3"});
  Rule("_", " ");
  EXPECT_EQ(Fates({"a_b.mp3", "a_b.mp3"}), "a b.mp3: renamed\na b.mp3: missing\n");
}

TEST_F(PreviewTest, TellsWhatTheSystemRefuses) {
  Songs({"a.mp3", "b.mp3"});
  Rule("a", std::string(99, 'x'));
  Rule("x", "xxx");
  Rule("b", "AC/DC");
  EXPECT_EQ(Fates({"a.mp3", "b.mp3"}), std::string(297, 'x') + ".mp3: refused: the name is too long\n" +
                                           "AC/DC.mp3: refused: the name holds a forbidden character\n");
}

TEST_F(PreviewTest, TellsThatALimitBelowZeroIsRefused) {
  Songs({"a.mp3"});
  config_.Truncat = true;
  config_.Truncval = -1;
  const std::vector<PreviewRow> rows = Preview({"a.mp3"});
  EXPECT_EQ(FateText(rows[0]), "refused: the limit of its length is below 0");
  EXPECT_EQ(rows[0].new_path, "c:\\a.mp3");
}

TEST_F(PreviewTest, TellsWhichFileGoesToAnotherFolder) {
  Songs({"a+b.mp3", "c+d.mp3", "a/other.mp3"});
  Rule("+", "\\");
  EXPECT_EQ(Fates({"a+b.mp3", "c+d.mp3"}),
            "a\\b.mp3: goes to another folder\nc\\d.mp3: refused: no such file or folder\n");
}

TEST_F(PreviewTest, AFreedNameCanBeTaken) {
  Songs({"b.mp3", "a.mp3"});
  Rule("b", "c");
  Rule("a", "b");
  EXPECT_EQ(Fates({"b.mp3", "a.mp3"}), "c.mp3: renamed\nb.mp3: renamed\n");
}

TEST_F(PreviewTest, ShowsChainsThatTheRunCannotDo) {
  Songs({"a.mp3", "b.mp3"});
  Rule("b", "c");
  Rule("a", "b");
  EXPECT_EQ(Fates({"a.mp3", "b.mp3"}), "b.mp3: name taken by row 2, which is renamed later\nc.mp3: renamed\n");
}

TEST_F(PreviewTest, ShowsSwapsThatTheRunCannotDo) {
  Songs({"a.mp3", "b.mp3"});
  Rule("a", "x");
  Rule("b", "a");
  Rule("x", "b");
  EXPECT_EQ(Fates({"a.mp3", "b.mp3"}), "b.mp3: would swap names with row 2\na.mp3: would swap names with row 1\n");
}

TEST_F(PreviewTest, ACaseOnlyChangeIsARename) {
  Songs({"song.mp3"});
  config_.Capitalise = true;
  EXPECT_EQ(Fates({"song.mp3"}), "Song.mp3: renamed\n");
}

TEST_F(PreviewTest, NumbersAsTheRunWould) {
  Songs({"1/a.mp3", "1/b.mp3", "2/c.mp3"});
  config_.Increment = true;
  const std::vector<PreviewRow> by_folder = Preview({"1\\a.mp3", "2\\c.mp3", "1\\b.mp3"});
  EXPECT_EQ(by_folder[2].new_path, "c:\\1\\2 - b.mp3");
  EXPECT_EQ(by_folder[1].new_path, "c:\\2\\1 - c.mp3");
  const std::vector<PreviewRow> through = Preview({"1\\a.mp3", "2\\c.mp3", "1\\b.mp3"}, false);
  EXPECT_EQ(through[2].new_path, "c:\\1\\3 - b.mp3");
}

TEST_F(PreviewTest, NeverRenames) {
  Songs({"a_b.mp3"});
  Rule("_", " ");
  Preview({"a_b.mp3"});
  EXPECT_EQ(FilesOfC(), "a_b.mp3");
}

TEST_F(PreviewTest, StopsWhenToldTo) {
  Songs({"a_b.mp3"});
  int left = 2;
  const Collection paths(5, "c:\\a_b.mp3");
  Numbering numbering(*files_, paths.size(), true);
  std::vector<PreviewRow> rows = PlanNames(
      RenameRules(config_), paths, numbering, [](const std::string&) { return ""; }, [&] { return left-- == 0; });
  EXPECT_EQ(rows.size(), 2u);
  WorkOutFates(*files_, rows, [] { return true; });
  EXPECT_EQ(rows[0].fate, RenameFate::kUnknown);
}

}  // namespace
}  // namespace qublet
