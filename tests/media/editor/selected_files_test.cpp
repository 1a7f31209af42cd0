#include "media/editor/selected_files.h"

#include "support/editor_test_base.h"

namespace qublet {
namespace {

class SelectedFilesTest : public EditorTestBase {
 protected:
  SelectedFilesTest() {
    for (const char* name : {"a.mp3", "B.MP3", "c.wav", "d.ogg", "e", "f.wma"}) drives_.Write(name, "abc");
    AddRows({"a.mp3", "B.MP3", "c.wav", "d.ogg", "e", "f.wma", "gone.mp3"});
  }
  bool Build(const std::string& letters) {
    Select(letters);
    return BuildSelection(Rows(), *files_, selection_);
  }
  bool IsEmpty() const {
    return selection_.SelectedPaths.empty() && selection_.SelectedIndexes.empty() &&
           selection_.SelectedExtension.empty();
  }

  SelectedFiles selection_;
};

TEST_F(SelectedFilesTest, TakesMp3FilesWhateverTheCaseOfTheirExtension) {
  EXPECT_TRUE(Build("xx-----"));
  EXPECT_EQ(selection_.SelectedPaths, (Collection{"c:\\a.mp3", "c:\\B.MP3"}));
  EXPECT_EQ(selection_.SelectedIndexes, (std::vector<int>{1, 2}));
  EXPECT_EQ(selection_.SelectedExtension, ".mp3");
  EXPECT_EQ(selection_.FirstSelected, 1);
  EXPECT_EQ(selection_.LastSelected, 2);
}

TEST_F(SelectedFilesTest, KeepsFilesOfAnotherKindButAnswersThatTheyCanNotBeUpdated) {
  EXPECT_FALSE(Build("--x----"));
  EXPECT_EQ(selection_.SelectedPaths, Collection{"c:\\c.wav"});
  EXPECT_EQ(selection_.SelectedExtension, ".wav");
  EXPECT_FALSE(Build("-----x-"));
  EXPECT_EQ(selection_.SelectedExtension, ".wma");
}

TEST_F(SelectedFilesTest, HoldsNothingWhenKindsMixOrAFileIsMissing) {
  for (const char* letters :
       {"x-x----", "-x-x---", "x-x--x-", "x-----x", "------x", "x---x--", "----x--", "-------"}) {
    EXPECT_FALSE(Build(letters)) << letters;
    EXPECT_TRUE(IsEmpty()) << letters;
  }
}

TEST_F(SelectedFilesTest, HoldsNothingWhenAFileWithoutExtensionComesFirst) {
  Rows().Reorder({5, 1, 2, 3, 4, 6, 7});
  EXPECT_FALSE(Build("xx-----"));
  EXPECT_TRUE(IsEmpty());
}

TEST_F(SelectedFilesTest, KnowsFirstAndLastOfASelectionThatCanNotBeUsed) {
  EXPECT_FALSE(Build("-xx----"));
  EXPECT_EQ(selection_.FirstSelected, 2);
  EXPECT_EQ(selection_.LastSelected, 3);
}

#ifndef _WIN32
TEST_F(SelectedFilesTest, AreTheFilesAsTheDiskHasThem) {
  drives_.Write("Music/Song.mp3", "abc");
  AddRows({"MUSIC\\SONG.MP3"});
  EXPECT_TRUE(Build("x------x"));
  EXPECT_EQ(selection_.SelectedPaths, (Collection{"c:\\a.mp3", "c:\\Music\\Song.mp3"}));
}
#endif

}  // namespace
}  // namespace qublet
