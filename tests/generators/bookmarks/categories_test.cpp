#include "generators/bookmarks/categories.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>
#include <vector>

#include "support/own_file.h"
#include "support/scripted_dialogs.h"
#include "support/temporary_drives.h"

namespace qublet {
namespace {

class CategoriesTest : public testing::Test {
 protected:
  CategoriesTest() { std::filesystem::create_directory(drives_.C() / "program"); }

  using Messages = std::vector<ScriptedDialogs::Message>;
  static Messages Stop(const char* text) { return {{text, MessageIcon::kStop, MessageButtons::kOk}}; }
  void Write(const std::string& name, const std::string& content) const {
    drives_.Write("program/Bookmarks/" + name, content);
  }
  std::string Read(const std::string& name) const { return drives_.Read("program/Bookmarks/" + name); }
  bool Add(const std::string& category, const Collection& paths) const {
    return static_cast<bool>(categories_.AddBookmarks(categories_.PathOf(category), paths));
  }

  TemporaryDrives drives_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
  ScriptedDialogs dialogs_;
  const Categories categories_{*files_, dialogs_, "c:\\program"};
};

TEST_F(CategoriesTest, MakesTheFolderAndAnEmptyDefault) {
  EXPECT_TRUE(categories_.CreateDefaultCategory());
  EXPECT_TRUE(std::filesystem::is_regular_file(drives_.C() / "program/Bookmarks/Default.bm"));
  EXPECT_EQ(Read("Default.bm"), "");
  EXPECT_EQ(categories_.ListCategories(), Collection{"Default"});
  EXPECT_TRUE(dialogs_.messages.empty());
}

TEST_F(CategoriesTest, MakesDefaultInAFolderThatIsThere) {
  Write("Rock.bm", "c:\\a.mp3\r\n");
  EXPECT_TRUE(categories_.ProvideDefault());
  EXPECT_EQ(categories_.ListCategories(), (Collection{"Default", "Rock"}));
  EXPECT_EQ(Read("Rock.bm"), "c:\\a.mp3\r\n");
}

TEST_F(CategoriesTest, HoldsAddressesBare) {
  EXPECT_TRUE(categories_.ProvideDefault());
  EXPECT_TRUE(Add("Radio", {"\\http://host/a.mp3", "c:\\a.mp3"}));
  EXPECT_EQ(Read("Radio.bm"), "http://host/a.mp3\r\nc:\\a.mp3\r\n");
}

TEST_F(CategoriesTest, LeavesADefaultThatIsThereAsItIs) {
  Write("Default.bm", "c:\\a.mp3\r\n");
  EXPECT_TRUE(categories_.ProvideDefault());
  EXPECT_EQ(Read("Default.bm"), "c:\\a.mp3\r\n");
}

TEST_F(CategoriesTest, SaysThatDefaultCouldNotBeMade) {
  drives_.Write("program/Bookmarks", "a file");
  EXPECT_FALSE(categories_.ProvideDefault());
  EXPECT_EQ(dialogs_.messages, Stop("Could not create the bookmarks system."));
  EXPECT_EQ(drives_.Read("program/Bookmarks"), "a file");
}

TEST_F(CategoriesTest, LosesNothingWhereManyAddToOneCategoryAtOnce) {
  constexpr int kWriters = 6;
  constexpr int kEach = 8;
  Write("Rock.bm", "");
  std::vector<std::jthread> writers;
  for (int i = 0; i < kWriters; ++i) {
    writers.emplace_back([&] {
      for (int song = 0; song < kEach; ++song) EXPECT_TRUE(Add("Rock", {"c:\\a.mp3"}));
    });
  }
  writers.clear();
  EXPECT_EQ(std::ranges::count(Read("Rock.bm"), '\n'), kWriters * kEach);
  EXPECT_EQ(categories_.ListCategories(), Collection{"Rock"});
  EXPECT_FALSE(files_->Exists("c:\\program\\Bookmarks\\Rock.bm.lock"));
}

TEST_F(CategoriesTest, MakesNothingWithoutAProgramFolder) {
  const Categories nowhere(*files_, dialogs_, "");
  EXPECT_FALSE(nowhere.ProvideDefault());
  EXPECT_EQ(dialogs_.messages, Stop("Could not create the bookmarks system."));
  EXPECT_FALSE(std::filesystem::exists(drives_.C() / "Bookmarks"));
}

TEST_F(CategoriesTest, AreListedAscendingWhateverTheirCase) {
  for (const char* name : {"zoo.bm", "Default.bm", "apes.bm", "Bears.bm", "a.b.bm", "x.bm.bm"}) Write(name, "");
  EXPECT_EQ(categories_.ListCategories(), (Collection{"a.b", "apes", "Bears", "Default", "x.bm", "zoo"}));
}

TEST_F(CategoriesTest, AreFilesOfTheirKindThatCanBeSeen) {
  for (const char* name : {"a.bm", "b.txt", "c.bmx", "d.bm.bak", ".hidden.bm", "folder.bm/e.bm"}) Write(name, "");
  EXPECT_EQ(categories_.ListCategories(), Collection{"a"});
}

TEST_F(CategoriesTest, AreCalledSoThatTheirNamesLeadToThem) {
  Write("UPPER.BM", "");
  Write("a.bm", "");
  for (const std::string& name : categories_.ListCategories()) EXPECT_TRUE(files_->Exists(categories_.PathOf(name)));
}

TEST_F(CategoriesTest, AreNoneWhereThereIsNoFolder) {
  EXPECT_EQ(categories_.ListCategories(), Collection{});
}

TEST_F(CategoriesTest, AreForThisUserAlone) {
  std::filesystem::create_directory(drives_.C() / "program");
  EXPECT_TRUE(categories_.ProvideDefault());
  EXPECT_TRUE(Add("Rock", {"c:\\a.mp3"}));
  for (const char* name : {"Bookmarks", "Bookmarks/Default.bm", "Bookmarks/Rock.bm"})
    EXPECT_TRUE(IsForThisUserAlone(drives_.C() / "program" / name)) << name;
}

TEST_F(CategoriesTest, StandInTheProgramFolder) {
  EXPECT_EQ(categories_.PathOf("Rock"), "c:\\program\\Bookmarks\\Rock.bm");
}

TEST_F(CategoriesTest, KnowDefaultFromTheOthers) {
  Write("Default.bm", "");
  EXPECT_TRUE(categories_.IsDefault("Default"));
  EXPECT_FALSE(categories_.IsDefault("Defaults"));
  EXPECT_FALSE(categories_.IsDefault("x\\Default"));
}

TEST_F(CategoriesTest, ABookmarkGoesToTheEndEachTime) {
  Write("Rock.bm", "c:\\old.mp3\r\n");
  EXPECT_TRUE(Add("Rock", {"c:\\b.mp3", "c:\\a.mp3"}));
  EXPECT_EQ(Read("Rock.bm"), "c:\\old.mp3\r\nc:\\b.mp3\r\nc:\\a.mp3\r\n");
  EXPECT_TRUE(Add("Rock", {"c:\\b.mp3", "c:\\a.mp3"}));
  EXPECT_EQ(Read("Rock.bm"), "c:\\old.mp3\r\nc:\\b.mp3\r\nc:\\a.mp3\r\nc:\\b.mp3\r\nc:\\a.mp3\r\n");
}

TEST_F(CategoriesTest, AnotherCategoryIsMade) {
  Write("Default.bm", "");
  EXPECT_TRUE(Add("New one", {"c:\\a.mp3"}));
  EXPECT_EQ(Read("New one.bm"), "c:\\a.mp3\r\n");
  EXPECT_TRUE(Add("Empty", {}));
  EXPECT_EQ(categories_.ListCategories(), (Collection{"Default", "Empty", "New one"}));
}

TEST_F(CategoriesTest, LinesAreKeptWhateverTheyHold) {
  Write("Rock.bm", "c:\\a.mp3\n\n# remark\rnot a path");
  EXPECT_TRUE(Add("Rock", {"c:\\b.mp3"}));
  EXPECT_EQ(Read("Rock.bm"), "c:\\a.mp3\r\n\r\n# remark\r\nnot a path\r\nc:\\b.mp3\r\n");
}

TEST_F(CategoriesTest, NoLetterOfAPathIsLost) {
  Write("Rock.bm", "c:\\Bj\xF6rk.mp3\r\n");
  EXPECT_TRUE(Add("Rock", {"c:\\\u97f3\u697d.mp3"}));
  EXPECT_EQ(Read("Rock.bm"), "c:\\Bj\u00f6rk.mp3\r\nc:\\\u97f3\u697d.mp3\r\n");
}

TEST_F(CategoriesTest, AFileThatCannotBeReadIsTold) {
  Write("folder.bm/inside", "");
  EXPECT_FALSE(Add("folder", {"c:\\a.mp3"}));
  EXPECT_EQ(dialogs_.messages, Stop("Could not open the bookmarks file for writing."));
}

TEST_F(CategoriesTest, APatternThatFitsAnotherCategoryIsReadFirst) {
  Write("Rock.bm", "c:\\a.mp3\r\n");
  EXPECT_FALSE(Add("R*", {"c:\\b.mp3"}));
  EXPECT_EQ(dialogs_.messages, Stop("Could not open the bookmarks file for writing."));
  EXPECT_EQ(Read("Rock.bm"), "c:\\a.mp3\r\n");
}

TEST_F(CategoriesTest, ANameThatHoldsABackslashCannotBeWritten) {
  Write("Default.bm", "");
  EXPECT_FALSE(Add("AC\\DC", {"c:\\a.mp3"}));
  EXPECT_EQ(dialogs_.messages, Stop("Could not update the bookmarks file."));
  EXPECT_FALSE(Add("AC/DC", {"c:\\a.mp3"}));
  EXPECT_EQ(dialogs_.messages.size(), 2U);
  EXPECT_EQ(categories_.ListCategories(), Collection{"Default"});
}

TEST_F(CategoriesTest, AFailureLeavesTheFileAsItWas) {
  Write("Rock.bm", "c:\\a.mp3\r\n");
  files_->SetAttributes("c:\\program\\Bookmarks\\Rock.bm", kReadOnly);
  EXPECT_FALSE(Add("Rock", {"c:\\b.mp3"}));
  EXPECT_EQ(dialogs_.messages, Stop("Could not update the bookmarks file."));
  EXPECT_EQ(Read("Rock.bm"), "c:\\a.mp3\r\n");
}

}  // namespace
}  // namespace qublet
