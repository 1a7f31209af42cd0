#include "media/editor/tag_form.h"

#include "support/editor_test_base.h"

namespace qublet {
namespace {

class TagFormTest : public EditorTestBase {
 protected:
  TagForm Shown(const std::string& content) {
    drives_.Write("a.mp3", content);
    TagForm form;
    ShowTag(Loaded("a.mp3"), form);
    return form;
  }
  TagObject tag_{*files_};
  TagForm form_;
};

TEST_F(TagFormTest, ShowsBothTags) {
  const TagForm form = Shown(TaggedSong("Title"));
  EXPECT_TRUE(form.id3v1_present && form.id3v2_present);
  EXPECT_EQ(form.v1, (std::array<std::string, kV1BoxCount>{"Title", "Artist", "Album", "1999", "Comment"}));
  EXPECT_EQ(form.v1_track, "0");
  EXPECT_EQ(form.v1_genre, 18);
  EXPECT_EQ(form.v2[kV2Title], "Title");
  EXPECT_EQ(form.v2[kV2Artist], "Artist");
}

TEST_F(TagFormTest, ClearsWhatAFileLacks) {
  form_ = Shown(TaggedSong("Title"));
  form_.comments = {{"a", "b"}};
  ShowTag(TagObject(*files_), form_);
  EXPECT_FALSE(form_.id3v1_present || form_.id3v2_present);
  for (const std::string& text : form_.v1) EXPECT_EQ(text, "");
  for (const std::string& text : form_.v2) EXPECT_EQ(text, "");
  EXPECT_EQ(form_.v1_track, "");
  EXPECT_EQ(form_.v1_genre, 0);
  EXPECT_TRUE(form_.comments.empty());
}

TEST_F(TagFormTest, KeepsTheGenreEntryWhenNoneStandsForTheNumber) {
  form_.v1_genre = 5;
  drives_.Write("a.mp3", AudioBytes() + Id3v1Bytes("T", "", "", "", "", 255));
  ShowTag(Loaded("a.mp3"), form_);
  EXPECT_EQ(form_.v1_genre, 5);
  drives_.Write("a.mp3", AudioBytes() + Id3v1Bytes("T", "", "", "", "", 254));
  ShowTag(Loaded("a.mp3"), form_);
  EXPECT_EQ(form_.v1_genre, 0);
  drives_.Write("a.mp3", AudioBytes() + Id3v1Bytes("T", "", "", "", "", 0));
  ShowTag(Loaded("a.mp3"), form_);
  EXPECT_EQ(form_.v1_genre, 1);
}

TEST_F(TagFormTest, OffersEveryGenreBehindAnEmptyEntry) {
  const std::vector<std::string> entries = GenreEntries();
  EXPECT_EQ(entries[0], "");
  EXPECT_EQ(entries[1], "Blues");
  EXPECT_EQ(entries[18], "Rock");
}

TEST_F(TagFormTest, WritesOnlyTracksFrom1To254) {
  struct Case {
    const char* text;
    int track;
  };
  for (const Case& c : {Case{"", 0},
                        {"0", 0},
                        {"1", 1},
                        {"254", 254},
                        {"255", 0},
                        {"300", 0},
                        {"x", 0},
                        {"-1", 0},
                        {" 7 ", 7},
                        {"1.5", 2},
                        {"2.5", 2},
                        {"0.5", 0},
                        {"254.5", 254},
                        {"254.6", 0},
                        {"1e1", 0}}) {
    form_.id3v1_present = true;
    form_.v1_track = c.text;
    CollectTag(form_, tag_);
    EXPECT_EQ(tag_.V1Track(), c.track) << c.text;
  }
}

TEST_F(TagFormTest, WritesGenre254ForAnEmptyEntryAndForNone) {
  form_.id3v1_present = true;
  for (const int entry : {0, -1}) {
    form_.v1_genre = entry;
    CollectTag(form_, tag_);
    EXPECT_EQ(tag_.V1Genre(), 254);
  }
  form_.v1_genre = 18;
  CollectTag(form_, tag_);
  EXPECT_EQ(tag_.V1Genre(), 17);
}

TEST_F(TagFormTest, PutsEachBoxIntoItsFrame) {
  form_.id3v2_present = true;
  for (std::size_t i = 0; i < kV2BoxCount; ++i) form_.v2[i] = "text " + std::to_string(i);
  CollectTag(form_, tag_);
  const char* const frames[] = {"TIT2", "TPE1", "TALB", "TYER", "TRCK", "TCOM", "TOPE",
                                "TCOP", "TENC", "WXXX", "USLT", "TXXX", "WOAR", "TCON"};
  for (std::size_t i = 0; i < std::size(frames); ++i) EXPECT_EQ(tag_.Frame(frames[i]), form_.v2[i]) << frames[i];
  EXPECT_EQ(tag_.Preference(), "text 14");
  EXPECT_EQ(tag_.Mood(), "text 15");
  EXPECT_EQ(tag_.Tempo(), "text 16");
  EXPECT_EQ(tag_.Situation(), "text 17");
}

TEST_F(TagFormTest, LeavesATagAloneThatIsNotPresent) {
  tag_.SetV1Title("old");
  tag_.SetFrame("TIT2", "old");
  form_.v1[kV1Title] = form_.v2[kV2Title] = "new";
  CollectTag(form_, tag_);
  EXPECT_EQ(tag_.V1Title() + tag_.Frame("TIT2"), "oldold");
}

TEST_F(TagFormTest, CarriesCommentsAndPicturesThroughTheClipboardByteForByte) {
  form_.id3v2_present = true;
  form_.comments = {{"QUBLET_tpsidata", "000001000"}, {"", "plain"}, {"empty", ""}, {"", "plain"}};
  form_.images = {{"front", "image/jpeg", {0xFF, 0xD8, 0xFF, 1, 2}}, {"", "image/", {0, 1}}};
  TagClipboard clipboard(*files_);
  CollectToClipboard(form_, clipboard);
  TagForm other;
  ShowClipboard(clipboard, other);
  EXPECT_EQ(other.comments, form_.comments);
  EXPECT_EQ(other.images, form_.images);
}

TEST_F(TagFormTest, PastesOnlyWhatWasPresentAtTheLastCopy) {
  TagClipboard clipboard(*files_);
  form_ = Shown(TaggedSong("Title"));
  form_.v2[kV2Mood] = "Wild";
  CollectToClipboard(form_, clipboard);
  form_.id3v1_present = false;
  form_.v2[kV2Title] = "Other";
  CollectToClipboard(form_, clipboard);
  TagForm pasted;
  ShowClipboard(clipboard, pasted);
  EXPECT_FALSE(pasted.id3v1_present);
  EXPECT_EQ(pasted.v1[kV1Title], "");
  EXPECT_EQ(pasted.v2[kV2Title], "Other");
  EXPECT_EQ(pasted.v2[kV2Mood], "Wild");
}

// --- into a file ---

TEST_F(TagFormTest, GivesAFileTheWholeFormAndKeepsItsHiddenFrames) {
  form_ = Shown(TaggedSong("Title"));
  form_.v2[kV2Title] = "New";
  form_.v2[kV2Artist] = "";
  form_.comments = {{"c", "text"}};
  form_.images = {{"p", "image/png", {1, 2, 3}}};
  CommitTags(*files_, PlanUpdate(*files_, "c:\\a.mp3", form_));
  const TagObject after = Loaded("a.mp3");
  EXPECT_EQ(after.Frame("TIT2"), "New");
  EXPECT_EQ(after.Frame("TPE1"), "");
  EXPECT_EQ(after.Comments().All(), form_.comments);
  EXPECT_EQ(after.Images().All()[0].data, (Bytes{1, 2, 3}));
  EXPECT_NE(drives_.Read("a.mp3").find("owner" + std::string(1, '\0') + "hidden"), std::string::npos);
  EXPECT_NE(drives_.Read("a.mp3").find(AudioBytes(20)), std::string::npos);
}

TEST_F(TagFormTest, CarriesWhatAPictureShowsAndACommentsLanguageIntoOtherFiles) {
  drives_.Write("a.mp3", TagBytes(3, CommentBytes(3, "deu", "c", "text") +
                                         FrameBytes(3, "APIC", std::string("\0image/png\0\4back\0abc", 20))) +
                             AudioBytes());
  drives_.Write("b.mp3", AudioBytes());
  TagForm form;
  ShowTag(Loaded("a.mp3"), form);
  CommitTags(*files_, PlanUpdate(*files_, "c:\\b.mp3", form));
  const std::string written = drives_.Read("b.mp3");
  EXPECT_NE(written.find("deu"), std::string::npos);
  EXPECT_NE(written.find(std::string("image/png\0\4back", 15)), std::string::npos);
}

TEST_F(TagFormTest, StripsTheCommentsAndPicturesOfAFileWhenTheFormHasNone) {
  drives_.Write("a.mp3",
                TagBytes(3, TextFrameBytes(3, "TIT2", "T") + CommentBytes(3, "eng", "c", "text")) + AudioBytes());
  form_.id3v2_present = true;
  CommitTags(*files_, PlanUpdate(*files_, "c:\\a.mp3", form_));
  EXPECT_EQ(Loaded("a.mp3").Comments().Count(), 0u);
}

TEST_F(TagFormTest, ABlankFormStripsBothTags) {
  drives_.Write("a.mp3", TaggedSong("Title"));
  CommitTags(*files_, PlanUpdate(*files_, "c:\\a.mp3", form_));
  EXPECT_EQ(drives_.Read("a.mp3"), AudioBytes(20));
}

TEST_F(TagFormTest, RefusesOtherFilesAndThoseThatCanNotBeWritten) {
  drives_.Write("a.wav", "abc");
  drives_.Write("a.mp3", "abc");
  SetReadOnly("a.mp3", true);
  EXPECT_THROW(PlanUpdate(*files_, "c:\\a.wav", form_), Failure);
  EXPECT_THROW(PlanUpdate(*files_, "c:\\a.mp3", form_), Failure);
  EXPECT_THROW(PlanUpdate(*files_, "c:\\gone.mp3", form_), Failure);
}

TEST_F(TagFormTest, RefusesAFileThatChangedSinceItWasLookedAt) {
  drives_.Write("a.mp3", TaggedSong("Title"));
  const TagWrite write = PlanUpdate(*files_, "c:\\a.mp3", form_);
  drives_.Write("a.mp3", TaggedSong("Other"));
  EXPECT_THROW(CommitTags(*files_, write), ChangedMeanwhile);
  EXPECT_EQ(drives_.Read("a.mp3"), TaggedSong("Other"));
}

}  // namespace
}  // namespace qublet
