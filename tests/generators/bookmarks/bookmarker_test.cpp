#include "generators/bookmarks/bookmarker.h"

#include <gtest/gtest.h>

#include <optional>

#include "support/bookmarks_test_base.h"

namespace qublet {
namespace {

constexpr const char* kAsk = "Add New Category...: Enter Name of the new category...";

// What the window is asked to do is noted.
class BookmarkerTest : public BookmarksTestBase {
 protected:
  void Open(bool AddMode) {
    bookmarker_.emplace(engine_, AddMode,
                        Bookmarker::Window{[this] { rendered_ = bookmarker_->view.lstCategory; },
                                           [this] {
                                             ++closed_;
                                             said_before_ = dialogs_.messages.size();
                                           }});
    bookmarker_->Activate();
  }
  void OpenToAdd() { Open(true); }
  void OpenToImport() { Open(false); }
  BookmarksView& View() { return bookmarker_->view; }
  void Choose(const std::string& category) {
    const auto place = std::ranges::find(View().lstCategory, category);
    ASSERT_NE(place, View().lstCategory.end());
    bookmarker_->lstCategory_ItemClick(static_cast<int>(place - View().lstCategory.begin()));
  }
  void AddCategory(const std::string& name) {
    dialogs_.texts.emplace_back(name);
    bookmarker_->cmdAddCategory_Click();
  }
  void Remove(const std::string& category, MessageAnswer answer) {
    Choose(category);
    dialogs_.answers = {answer};
    bookmarker_->cmdDelCategory_Click();
  }

  std::optional<Bookmarker> bookmarker_;
  Collection rendered_;
  int closed_ = 0;
  std::size_t said_before_ = 0;
};

TEST_F(BookmarkerTest, SaysWhatIsToBeChosen) {
  FillList("x--");
  OpenToImport();
  EXPECT_EQ(View().CmdNext, "&Import>");
  EXPECT_EQ(View().lblInfo,
            "Choose the category in which files will be imported into the main playlist. Click 'X' to close when "
            "done...");
  OpenToAdd();
  EXPECT_EQ(View().CmdNext, "&Finish>");
  EXPECT_EQ(View().lblInfo, "Choose category in which to save the selected items as bookmarks into...");
}

TEST_F(BookmarkerTest, MakesDefaultAndListsTheCategories) {
  WriteCategory("Rock", "");
  WriteCategory("blues", "");
  OpenToImport();
  EXPECT_EQ(View().lstCategory, (Collection{"blues", "Default", "Rock"}));
  EXPECT_EQ(View().selected, 0);
  EXPECT_EQ(rendered_, View().lstCategory);
  EXPECT_EQ(ReadCategory("Default"), "");
  EXPECT_TRUE(HasCategory("Default"));
  EXPECT_TRUE(dialogs_.messages.empty());
}

TEST_F(BookmarkerTest, ReadsThemAnewEachTimeItComesToTheFront) {
  WriteCategory("Rock", "");
  OpenToImport();
  Choose("Rock");
  WriteCategory("Blues", "");
  std::filesystem::remove(drives_.C() / "program/Bookmarks/Default.bm");
  bookmarker_->Activate();
  EXPECT_EQ(View().lstCategory, (Collection{"Blues", "Default", "Rock"}));
  EXPECT_EQ(View().selected, 0);
}

TEST_F(BookmarkerTest, TellsThatThereIsNoPlaceForThem) {
  drives_.Write("program/Bookmarks", "a file");
  OpenToImport();
  EXPECT_EQ(dialogs_.messages, Messages{Told("Could not create the bookmarks system.", MessageIcon::kStop)});
  EXPECT_EQ(View().selected, -1);
  EXPECT_EQ(closed_, 0);
}

TEST_F(BookmarkerTest, GoesAwayWhereNothingIsSelectedToKeep) {
  FillList("---");
  OpenToAdd();
  EXPECT_EQ(closed_, 1);
  EXPECT_EQ(said_before_, 0U) << "it is told once the window is gone";
  EXPECT_EQ(dialogs_.messages,
            Messages{Told("Please select the items you wish to add as bookmarks.", MessageIcon::kExclamation)});
}

TEST_F(BookmarkerTest, NeedsNoSelectionToImport) {
  OpenToImport();
  EXPECT_EQ(closed_, 0);
  EXPECT_TRUE(dialogs_.messages.empty());
}

TEST_F(BookmarkerTest, KeepsTheSelectedItems) {
  FillList("x-x");
  WriteCategory("Rock", "c:\\old.mp3\r\n");
  OpenToAdd();
  Choose("Rock");
  bookmarker_->CmdNext_Click();
  EXPECT_EQ(ReadCategory("Rock"), "c:\\old.mp3\r\nc:\\m\\a.mp3\r\nc:\\m\\c.mp3\r\n");
  EXPECT_EQ(closed_, 1);
  EXPECT_TRUE(dialogs_.messages.empty());
  EXPECT_FALSE(engine_.document.PlaylistChanged);
  EXPECT_EQ(Names(), "a.mp3 b.mp3 c.mp3");
}

TEST_F(BookmarkerTest, KeepsTheNamesThatTheDiskHas) {
  AddRows({"M\\A.MP3"});
  Select("x");
  OpenToAdd();
  bookmarker_->CmdNext_Click();
  EXPECT_EQ(ReadCategory("Default"), "c:\\m\\a.mp3\r\n");
}

TEST_F(BookmarkerTest, KeepsThemTwiceWhenAskedTwice) {
  FillList("-x-");
  for (int i = 0; i < 2; ++i) {
    OpenToAdd();
    bookmarker_->CmdNext_Click();
  }
  EXPECT_EQ(ReadCategory("Default"), "c:\\m\\b.mp3\r\nc:\\m\\b.mp3\r\n");
}

TEST_F(BookmarkerTest, StaysOpenWhenTheyCouldNotBeKept) {
  FillList("-x-");
  OpenToAdd();
  files_->SetAttributes("c:\\program\\Bookmarks\\Default.bm", kReadOnly);
  bookmarker_->CmdNext_Click();
  EXPECT_EQ(closed_, 0);
  EXPECT_EQ(dialogs_.messages, Messages{Told("Could not update the bookmarks file.", MessageIcon::kStop)});
}

TEST_F(BookmarkerTest, ImportsToTheEndOfTheListAndStaysOpen) {
  FillList("x--");
  WriteCategory("Rock", "c:\\m\\b.mp3\r\nc:\\m\\gone.mp3\r\n");
  WriteCategory("Soul", "c:\\m\\a.mp3\r\n");
  OpenToImport();
  Choose("Rock");
  bookmarker_->CmdNext_Click();
  EXPECT_EQ(Names(), "a.mp3 b.mp3 c.mp3 b.mp3 gone.mp3");
  EXPECT_EQ(Selection(), "---xx");
  EXPECT_TRUE(engine_.document.PlaylistChanged);
  Choose("Soul");
  bookmarker_->CmdNext_Click();
  EXPECT_EQ(Names(), "a.mp3 b.mp3 c.mp3 b.mp3 gone.mp3 a.mp3");
  EXPECT_EQ(Selection(), "-----x");
  EXPECT_EQ(closed_, 0);
}

TEST_F(BookmarkerTest, ImportsNothingFromAnEmptyCategory) {
  FillList("x--");
  OpenToImport();
  bookmarker_->CmdNext_Click();
  EXPECT_EQ(Names(), "a.mp3 b.mp3 c.mp3");
  EXPECT_EQ(Selection(), "x--");
  EXPECT_FALSE(engine_.document.PlaylistChanged);
  EXPECT_TRUE(dialogs_.messages.empty());
}

TEST_F(BookmarkerTest, MakesACategoryOfTheSelectedItems) {
  FillList("xx-");
  OpenToAdd();
  AddCategory("Ambient");
  EXPECT_EQ(dialogs_.text_prompts, std::vector<std::string>{kAsk});
  EXPECT_EQ(View().lstCategory, (Collection{"Default", "Ambient"}));
  EXPECT_EQ(View().selected, 1);
  EXPECT_EQ(rendered_, View().lstCategory);
  EXPECT_EQ(ReadCategory("Ambient"), "c:\\m\\a.mp3\r\nc:\\m\\b.mp3\r\n");
  EXPECT_EQ(closed_, 0);
}

TEST_F(BookmarkerTest, MakesOneOfThoseThatAreSelectedNowWhileItImports) {
  FillList("xx-");
  WriteCategory("Default", "c:\\m\\c.mp3\r\nc:\\m\\c.mp3\r\n");
  OpenToImport();
  bookmarker_->CmdNext_Click();
  Select("--xx-");
  AddCategory("Later");
  EXPECT_EQ(ReadCategory("Later"), "c:\\m\\c.mp3\r\nc:\\m\\c.mp3\r\n");
  Select("-----");
  AddCategory("None");
  EXPECT_TRUE(HasCategory("None"));
  EXPECT_EQ(ReadCategory("None"), "");
}

TEST_F(BookmarkerTest, MakesNoneWithoutAName) {
  FillList("xx-");
  OpenToAdd();
  AddCategory("");
  bookmarker_->cmdAddCategory_Click();
  EXPECT_EQ(View().lstCategory, Collection{"Default"});
  EXPECT_FALSE(HasCategory(""));
  EXPECT_TRUE(dialogs_.messages.empty());
}

TEST_F(BookmarkerTest, ANameThatNoFileCanHaveIsToldByTheWrite) {
  FillList("xx-");
  OpenToAdd();
  AddCategory("AC\\DC");
  EXPECT_EQ(dialogs_.messages, Messages{Told("Could not update the bookmarks file.", MessageIcon::kStop)});
  bookmarker_->Activate();
  EXPECT_EQ(View().lstCategory, Collection{"Default"});
}

TEST_F(BookmarkerTest, DefaultCannotBeRemoved) {
  WriteCategory("Default", "c:\\m\\a.mp3\r\n");
  OpenToImport();
  bookmarker_->cmdDelCategory_Click();
  EXPECT_EQ(dialogs_.messages, Messages{Told("This category cannot be removed.", MessageIcon::kExclamation)});
  EXPECT_EQ(ReadCategory("Default"), "c:\\m\\a.mp3\r\n");
}

TEST_F(BookmarkerTest, AsksBeforeItRemovesACategory) {
  for (const char* name : {"Blues", "Rock"}) WriteCategory(name, "c:\\m\\a.mp3\r\n");
  OpenToImport();
  Remove("Rock", MessageAnswer::kNo);
  EXPECT_EQ(dialogs_.messages,
            (Messages{{"Are you sure you want to remove the bookmarks file 'Rock.bm'? You will lose ALL bookmarks "
                       "contained within it.",
                       MessageIcon::kQuestion, MessageButtons::kYesNo}}));
  EXPECT_EQ(ReadCategory("Rock"), "c:\\m\\a.mp3\r\n");
  EXPECT_EQ(View().selected, 2) << "the row stays the selected one";
  Remove("Rock", MessageAnswer::kYes);
  EXPECT_FALSE(HasCategory("Rock"));
  EXPECT_EQ(dialogs_.messages.size(), 2U);
  EXPECT_EQ(View().lstCategory, (Collection{"Blues", "Default"}));
  EXPECT_EQ(View().selected, 0);
  EXPECT_EQ(rendered_, View().lstCategory);
}

TEST_F(BookmarkerTest, TellsThatACategoryCouldNotBeRemoved) {
  WriteCategory("Rock", "");
  OpenToImport();
  std::filesystem::remove(drives_.C() / "program/Bookmarks/Rock.bm");
  Remove("Rock", MessageAnswer::kYes);
  ASSERT_EQ(dialogs_.messages.size(), 2U);
  EXPECT_EQ(dialogs_.messages[1], Told("The bookmarks file could not be removed.", MessageIcon::kExclamation));
  EXPECT_EQ(View().lstCategory, Collection{"Default"});
}

}  // namespace
}  // namespace qublet
