#include "media/editor/tag_editor.h"

#include "support/editor_test_base.h"
#include "support/vorbis_bytes.h"

namespace qublet {
namespace {

const std::string kWav = [] {
  std::string wav = "RIFF____WAVEfmt ____";
  wav += std::string{1, 0, 2, 0, '\x44', '\xAC', 0, 0, 0, 0, 0, 0, 4, 0, 16, 0};
  return wav + std::string(176'400 - wav.size(), '\0');
}();

class TagEditorTest : public EditorTestBase {
 protected:
  TagEditorTest() {
    drives_.Write("one.mp3", TaggedSong("One"));
    drives_.Write("two.mp3", TaggedSong("Two"));
    drives_.Write("bare.mp3", AudioBytes());
    drives_.Write("a.wav", kWav);
    drives_.Write("b.wav", kWav);
    drives_.Write("a.ogg", VorbisFile({"TITLE=Tune", "ARTIST=Band"}));
    drives_.Write("b.ogg", VorbisFile({"TITLE=Tune"}));
    drives_.Write("a.vqf", "abc");
    drives_.Write("b.vqf", "abc");
    drives_.Write("a.wma", "abc");
    AddRows({"one.mp3", "two.mp3", "bare.mp3", "a.wav", "b.wav", "a.ogg", "b.ogg", "a.vqf", "b.vqf", "a.wma"});
  }
  void Load(const std::string& letters) {
    Select(letters);
    editor_.LoadSelection();
  }
  std::string First() const { return editor_.view.file.FileInfo[0]; }
  std::string Second() const { return editor_.view.file.FileInfo[1]; }

  EditorSurroundings around_;
  TagEditor editor_{engine_, around_.codec, around_.background};
  EditorView& view_ = editor_.view;
};

TEST_F(TagEditorTest, ShowsPlaceHoldersBeforeTheFirstFile) {
  for (const std::string& label : view_.mpeg) EXPECT_EQ(label, "????");
  for (const std::string& label : view_.ogg) EXPECT_EQ(label, "????");
  for (const std::string& label : view_.file.FileInfo) EXPECT_EQ(label, "????");
}

TEST_F(TagEditorTest, ShowsOneMp3File) {
  editor_.page = EditorPage::kId3v2;
  Load("x---------");
  EXPECT_EQ(First(), "one.mp3");
  EXPECT_TRUE(view_.update && view_.copy && view_.next && view_.tag_pages && view_.presence_boxes);
  EXPECT_FALSE(view_.prev || view_.paste || view_.unusable || view_.ogg_shown);
  EXPECT_TRUE(view_.mpeg_shown && view_.attributes_shown && view_.v1_enabled && view_.v2_enabled);
  EXPECT_EQ(view_.mpeg_caption, "MPEG Info");
  EXPECT_EQ(view_.mpeg[2], "Encoding: 128 Kbit ");
  EXPECT_EQ(view_.form.v2[kV2Title], "One");
  EXPECT_EQ(editor_.page, EditorPage::kId3v2) << "stays where the user was";
  EXPECT_EQ(std::count(window_.shown.begin(), window_.shown.end(), "click"), 1)
      << "the main window's state is current";
}

TEST_F(TagEditorTest, OffersNoCopyOfAFileWithoutTags) {
  Load("--x-------");
  EXPECT_TRUE(view_.update);
  EXPECT_FALSE(view_.copy || view_.v1_enabled || view_.v2_enabled);
}

TEST_F(TagEditorTest, ShowsABlankFormForSeveralMp3Files) {
  editor_.page = EditorPage::kId3v1;
  Load("xx--------");
  EXPECT_EQ(First(), "Multiple MP3 Files Selected...");
  EXPECT_EQ(Second(), "Click 'Paste' then 'Update' to update all items.");
  EXPECT_FALSE(view_.form.id3v1_present || view_.form.id3v2_present || view_.copy);
  EXPECT_TRUE(view_.update && view_.tag_pages && view_.mpeg_shown);
  for (const std::string& label : view_.mpeg) EXPECT_EQ(label, "");
  EXPECT_EQ(editor_.page, EditorPage::kGeneral);
}

TEST_F(TagEditorTest, ShowsAWavFile) {
  editor_.page = EditorPage::kId3v1;
  Load("---x------");
  EXPECT_EQ(view_.mpeg_caption, "WAV File Info");
  EXPECT_TRUE(view_.mpeg_shown);
  EXPECT_EQ(view_.mpeg[0], "Length: 1 Seconds");
  EXPECT_EQ(view_.mpeg[9], "Stereo Interleaved");
  EXPECT_EQ(Second(), "File Size: 176,400 bytes");
  EXPECT_FALSE(view_.update || view_.tag_pages || view_.presence_boxes || view_.v1_enabled || view_.v2_enabled);
  EXPECT_EQ(editor_.page, EditorPage::kGeneral);
}

TEST_F(TagEditorTest, ShowsAnOggFile) {
  Load("-----x----");
  EXPECT_TRUE(view_.ogg_shown);
  EXPECT_FALSE(view_.mpeg_shown || view_.update);
  EXPECT_EQ(view_.ogg[0], "Title: Tune");
  EXPECT_EQ(view_.ogg[1], "Artist: Band");
  EXPECT_EQ(First(), "a.ogg");
}

TEST_F(TagEditorTest, ShowsAVqfFileUnderTheCaptionThatWasThere) {
  Load("---x------");
  Load("-------x--");
  EXPECT_EQ(view_.mpeg_caption, "WAV File Info");
  EXPECT_TRUE(view_.mpeg_shown);
  for (const std::string& label : view_.mpeg) EXPECT_EQ(label, "");
  EXPECT_EQ(First(), "a.vqf");
}

TEST_F(TagEditorTest, SaysWhatSeveralFilesOfOtherKindsMean) {
  Load("---xx-----");
  EXPECT_EQ(First() + Second(), "Multiple WAV Files Selected...Choose a single file to view the file info.");
  Load("-----xx---");
  EXPECT_EQ(First() + Second(), "Multiple OGG Files Selected...Updating OGG files is currently unsupported.");
  Load("-------xx-");
  EXPECT_EQ(First() + Second(), "Multiple VQF Files Selected...Choose a single file to view the file info.");
}

TEST_F(TagEditorTest, LeavesNoOtherFilesFactsStanding) {
  Load("x---------");
  Load("-----x----");
  Load("---------x");
  EXPECT_EQ(First() + Second(), "");
  EXPECT_FALSE(view_.file.read_only || view_.file.archive);
  EXPECT_TRUE(view_.file.attributes_enabled);
  EXPECT_EQ(view_.form.v1[kV1Title], "");
  for (const std::string& label : view_.mpeg) EXPECT_EQ(label, "");
  for (const std::string& label : view_.ogg) EXPECT_EQ(label, "????");
}

TEST_F(TagEditorTest, SaysWhenTheSelectionCanNotBeUsed) {
  Load("x---------");
  editor_.page = EditorPage::kId3v2;
  for (const char* letters : {"x--x------", "xx---x----"}) {
    Load(letters);
    EXPECT_EQ(First(), "Unable to Update/Read files...");
    EXPECT_EQ(Second(), "Check the item(s) exist and are of the same type.");
    EXPECT_TRUE(view_.unusable);
    EXPECT_FALSE(view_.update || view_.v1_enabled || view_.v2_enabled || view_.attributes_shown || view_.mpeg_shown);
    EXPECT_TRUE(view_.next);
    EXPECT_EQ(editor_.page, EditorPage::kGeneral);
  }
  std::filesystem::remove(drives_.C() / "one.mp3");
  Load("xx--------");
  EXPECT_TRUE(view_.unusable);
  Load("-x--------");
  EXPECT_FALSE(view_.unusable);
}

TEST_F(TagEditorTest, KeepsTheAttributeBoxesForSeveralFiles) {
  SetReadOnly("one.mp3", true);
  Load("x---------");
  EXPECT_TRUE(view_.file.read_only && view_.file.archive);
  Load("-xx-------");
  EXPECT_TRUE(view_.file.read_only && view_.file.archive && view_.file.attributes_enabled);
}

TEST_F(TagEditorTest, ChangesAnAttributeOfEverySelectedFile) {
  Load("xx--------");
  view_.file.read_only = true;
  editor_.FileInfoReadOnly_Click();
  EXPECT_TRUE(files_->IsReadOnly("c:\\one.mp3") && files_->IsReadOnly("c:\\two.mp3"));
  EXPECT_FALSE(files_->IsReadOnly("c:\\bare.mp3"));
  view_.file.read_only = false;
  editor_.FileInfoReadOnly_Click();
  EXPECT_FALSE(files_->IsReadOnly("c:\\one.mp3") || files_->IsReadOnly("c:\\two.mp3"));
  EXPECT_TRUE(fakes_.dialogs.messages.empty());
}

// --- commands ---

TEST_F(TagEditorTest, CopiesAndPastesFromOneFileToAnother) {
  Load("x---------");
  editor_.CmdCopy_Click();
  EXPECT_TRUE(view_.paste);
  Load("--x-------");
  EXPECT_TRUE(view_.paste);
  editor_.CmdPaste_Click();
  EXPECT_EQ(view_.form.v2[kV2Title], "One");
  EXPECT_EQ(view_.form.v1[kV1Artist], "Artist");
  EXPECT_TRUE(view_.copy && view_.update && view_.v1_enabled && view_.v2_enabled);
  EXPECT_EQ(drives_.Read("bare.mp3"), AudioBytes()) << "nothing has reached the file";
}

TEST_F(TagEditorTest, KeepsTheClipboardWhenNothingCanBeCopied) {
  Load("x---------");
  editor_.CmdCopy_Click();
  Load("--x-------");
  editor_.CmdCopy_Click();
  editor_.CmdPaste_Click();
  EXPECT_EQ(view_.form.v2[kV2Title], "One");
}

TEST_F(TagEditorTest, FollowsThePresenceBoxes) {
  Load("--x-------");
  editor_.ID3v1Present_Click(true);
  EXPECT_TRUE(view_.v1_enabled && view_.copy);
  editor_.ID3v2Present_Click(true);
  EXPECT_TRUE(view_.v2_enabled);
  editor_.ID3v1Present_Click(false);
  EXPECT_TRUE(!view_.v1_enabled && view_.copy);
  editor_.ID3v2Present_Click(false);
  EXPECT_FALSE(view_.v2_enabled || view_.copy);
}

TEST_F(TagEditorTest, PlaysPositionsOnlyWithAPlayer) {
  Load("x---------");
  EXPECT_FALSE(view_.positions_played);
  engine_.player.PlayerAssociated = true;
  Load("x---------");
  EXPECT_TRUE(view_.positions_played);
  editor_.ID3v2Present_Click(false);
  EXPECT_FALSE(view_.positions_played);
}

TEST_F(TagEditorTest, GoesToTheNextAndThePreviousRow) {
  Load("-x--------");
  editor_.CmdNext_Click();
  EXPECT_EQ(Selection(), "--x-------");
  EXPECT_EQ(Rows().FocusedRow(), 3);
  EXPECT_EQ(First(), "bare.mp3");
  Load("-xx-------");
  editor_.CmdPrev_Click();
  EXPECT_EQ(Selection(), "x---------");
  EXPECT_FALSE(view_.prev);
  editor_.CmdPrev_Click();
  EXPECT_EQ(Selection(), "x---------");
  Load("---------x");
  EXPECT_FALSE(view_.next);
  editor_.CmdNext_Click();
  EXPECT_EQ(Selection(), "---------x");
  Load("-x-x------");
  editor_.CmdNext_Click();
  EXPECT_EQ(Selection(), "----x-----") << "from a selection that can't be used as well";
}

TEST_F(TagEditorTest, PlaysTheSelectedFiles) {
  std::filesystem::create_directories(drives_.C() / "program");
  Load("-x--------");
  editor_.CmdListen_Click();
  EXPECT_EQ(fakes_.shell.opened, Collection{"c:\\program\\tmp.m3u"});
}

TEST_F(TagEditorTest, SearchesForTheNamesOfId3v1First) {
  Load("x---------");
  view_.form.v2[kV2Title] = "Two";
  view_.form.v2[kV2Album] = "Other";
  editor_.CmdInfo_Click();
  view_.form.id3v1_present = false;
  editor_.CmdInfo_Click();
  view_.form.id3v2_present = false;
  editor_.CmdInfo_Click();
  Load("xx--------");
  editor_.CmdInfo_Click();
  ASSERT_EQ(fakes_.shell.addresses.size(), 3u);
  EXPECT_TRUE(fakes_.shell.addresses[0].ends_with("q=Artist%20+%20One%20+%20Album"));
  EXPECT_TRUE(fakes_.shell.addresses[1].ends_with("q=Artist%20+%20Two%20+%20Other"));
  EXPECT_TRUE(fakes_.shell.addresses[2].ends_with("q=one"));
}

TEST_F(TagEditorTest, OpensAddressesAndSearchesTexts) {
  editor_.OpenUrl("");
  editor_.WebSearch("");
  EXPECT_TRUE(fakes_.shell.addresses.empty());
  editor_.OpenUrl("x.org");
  editor_.WebSearch("a b");
  EXPECT_EQ(fakes_.shell.addresses[0], "http://x.org");
  EXPECT_TRUE(fakes_.shell.addresses[1].ends_with("/search?hl=en&q=a%20b"));
}

TEST_F(TagEditorTest, KnowsTitleAndFolderOfOneFileOnly) {
  drives_.Write("music/my song.mp3", "abc");
  AddRows({"music\\my song.mp3"});
  Load("----------x");
  EXPECT_EQ(editor_.TitleOfFile(), "My Song");
  EXPECT_EQ(editor_.NameOfFolder(), "music");
  Load("xx---------");
  EXPECT_EQ(editor_.TitleOfFile(), std::nullopt);
  EXPECT_EQ(editor_.NameOfFolder(), std::nullopt);
}

}  // namespace
}  // namespace qublet
