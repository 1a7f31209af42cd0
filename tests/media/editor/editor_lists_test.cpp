#include "support/editor_lists_test_base.h"
#include "support/own_file.h"

namespace qublet {
namespace {

class EditorListsTest : public EditorListsTestBase {};

TEST_F(EditorListsTest, SelectsTheFirstCommentOfATagAndShowsItsText) {
  ShowComments({{"a", "one"}, {"b", "two"}});
  EXPECT_EQ(comments_.Selected(), 1);
  EXPECT_EQ(comments_.ID3v2Comment, "one");
  comments_.Select(2);
  EXPECT_EQ(comments_.ID3v2Comment, "two");
  ShowComments({});
  EXPECT_EQ(comments_.Selected(), 0);
  EXPECT_EQ(comments_.ID3v2Comment, "");
}

TEST_F(EditorListsTest, AsksForNoDescriptionOfAnEmptyComment) {
  EXPECT_FALSE(comments_.ID3v2AddComment_Click()) << "the box wants the focus";
  EXPECT_TRUE(fakes_.dialogs.text_prompts.empty());
}

TEST_F(EditorListsTest, AddsACommentUnderTheDescriptionAskedFor) {
  comments_.ID3v2Comment = "text";
  fakes_.dialogs.texts = {std::nullopt, "", "mine"};
  EXPECT_TRUE(comments_.ID3v2AddComment_Click());
  EXPECT_TRUE(comments_.ID3v2AddComment_Click());
  EXPECT_EQ(comments_.Rows(), Comments{}) << "cancelled, and none given";
  comments_.ID3v2AddComment_Click();
  EXPECT_EQ(comments_.Rows(), (Comments{{"mine", "text"}}));
  EXPECT_EQ(fakes_.dialogs.text_prompts.back(), "Add Comment: Enter description.");
}

TEST_F(EditorListsTest, ChangesTheTextOfTheSelectedCommentOnly) {
  ShowComments({{"a", "one"}, {"b", "two"}});
  comments_.Select(2);
  comments_.ID3v2Comment = "new";
  comments_.ID3v2EditComment_Click();
  EXPECT_EQ(comments_.Rows(), (Comments{{"a", "one"}, {"b", "new"}}));
}

TEST_F(EditorListsTest, SelectsTheCommentBeforeARemovedOne) {
  ShowComments({{"a", "one"}, {"b", "two"}, {"c", "three"}});
  comments_.Select(3);
  comments_.ID3v2RemoveComment_Click();
  EXPECT_EQ(comments_.Selected(), 2);
  EXPECT_EQ(comments_.ID3v2Comment, "two");
  comments_.Select(1);
  comments_.ID3v2RemoveComment_Click();
  EXPECT_EQ(comments_.Selected(), 1);
  EXPECT_EQ(comments_.ID3v2Comment, "two");
  comments_.ID3v2RemoveComment_Click();
  EXPECT_EQ(comments_.Selected(), 0);
  EXPECT_EQ(comments_.ID3v2Comment, "") << "the only one removed empties the box";
  comments_.ID3v2RemoveComment_Click();
  EXPECT_TRUE(comments_.Rows().empty());
}

TEST_F(EditorListsTest, WritesTheCommentsInTheirOrderWithAnUpdate) {
  const std::string before = drives_.Read("a.mp3");
  ShowComments({{"b", "two"}, {"a", "one"}});
  EXPECT_EQ(drives_.Read("a.mp3"), before) << "nothing reaches a file ahead of an update";
  Update();
  EXPECT_EQ(Loaded("a.mp3").Comments().All(), (Comments{{"b", "two"}, {"a", "one"}}));
  EXPECT_EQ(comments_.Rows(), (Comments{{"b", "two"}, {"a", "one"}}));
}

TEST_F(EditorListsTest, KeepsOneSignatureForBothPages) {
  EXPECT_EQ(editor_.Signature(), "");
  editor_.KeepSignature("me");
  EXPECT_EQ(editor_.Signature(), "me");
  EXPECT_EQ(fakes_.store.GetSetting("QUBLET2021", "ID3", "SIG"), "me");
}

TEST_F(EditorListsTest, WritesEveryPictureAsABitmap) {
  pictures_.Show({{"front", "image/jpeg", BytesOf("PICone")}, {"back", "image/png", BytesOf("PICtwo")}});
  EXPECT_EQ(pictures_.Selected(), 1);
  Update();
  const std::vector<TagPicture> written = Loaded("a.mp3").Images().All();
  EXPECT_EQ(written, (std::vector<TagPicture>{{"front", "image/bmp", BytesOf("BMone")},
                                              {"back", "image/bmp", BytesOf("BMtwo")}}));
  const std::string once = drives_.Read("a.mp3");
  Update();
  EXPECT_EQ(drives_.Read("a.mp3"), once) << "a second update changes nothing";
}

TEST_F(EditorListsTest, EncodesAPictureOnceForAllFiles) {
  drives_.Write("b.mp3", TaggedSong("b"));
  drives_.Write("c.mp3", TaggedSong("c"));
  AddRows({"b.mp3", "c.mp3"});
  pictures_.Show({{"front", "image/jpeg", BytesOf("PICone")}});
  editor_.CmdCopy_Click();
  Select("xxx");
  editor_.LoadSelection();
  editor_.CmdPaste_Click();
  around_.codec.encoded = 0;
  Update();
  EXPECT_EQ(around_.codec.encoded, 1);
  EXPECT_EQ(Loaded("c.mp3").Images().At(1).data, BytesOf("BMone"));
}

TEST_F(EditorListsTest, PassesOnPicturesThatCannotBeBitmaps) {
  around_.codec.longest = 10;
  const std::vector<TagPicture> odd = {{"broken", "image/png", BytesOf("what")},
                                       {"link", "-->", BytesOf("http://x/a.jpg")},
                                       {"none", "image/gif", {}},
                                       {"long", "image/jpeg", BytesOf("PIC of many letters")}};
  pictures_.Show(odd);
  Update();
  const std::vector<TagPicture> written = Loaded("a.mp3").Images().All();
  EXPECT_EQ(written, odd);
}

TEST_F(EditorListsTest, AddsAPictureUnderItsExtension) {
  drives_.Write("Cover.JPG", "PIC jpeg");
  AddPicture("Cover.JPG", "");
  ASSERT_EQ(pictures_.Rows().size(), 1u) << "a description may be empty";
  EXPECT_EQ(pictures_.Rows()[0].mime_type, "image/JPG");
  EXPECT_EQ(pictures_.Rows()[0].size, 8);
  EXPECT_EQ(pictures_.Selected(), 1);
  ASSERT_TRUE(pictures_.Shown());
  EXPECT_EQ(pictures_.Shown()->data, BytesOf("PIC jpeg"));
  EXPECT_EQ(fakes_.dialogs.open_requests.back().filter,
            "Bitmap Files (*.bmp)|*.bmp|JPEG Files (*.jpg)|*.jpg|GIF Files (*.gif)|*.gif");
  EXPECT_EQ(fakes_.dialogs.text_prompts.back(), "Add Image: Enter description.");
}

TEST_F(EditorListsTest, AddsNoPictureWhenADialogIsCancelled) {
  pictures_.ID3v2ImageAdd_Click();
  EXPECT_TRUE(fakes_.dialogs.text_prompts.empty());
  drives_.Write("a.jpg", "PIC");
  AddPicture("a.jpg", std::nullopt);
  AddPicture("vanished.jpg", "d");
  EXPECT_TRUE(pictures_.Rows().empty());
}

TEST_F(EditorListsTest, KeepsARowWhosePictureCannotBeLoadedAndWritesNothingForIt) {
  drives_.Write("bad.bmp", "no picture");
  drives_.Write("good.bmp", "PIC");
  AddPicture("bad.bmp", "bad");
  EXPECT_EQ(pictures_.Shown(), nullptr);
  AddPicture("good.bmp", "good");
  ASSERT_EQ(pictures_.Rows().size(), 2u);
  EXPECT_EQ(pictures_.Shown()->data, BytesOf("PIC"));
  Update();
  EXPECT_EQ(Loaded("a.mp3").Images().All(), (std::vector<TagPicture>{{"good", "image/bmp", BytesOf("BM")}}));
}

TEST_F(EditorListsTest, RemovesRowAndPictureTogether) {
  pictures_.Show({{"a", "image/bmp", BytesOf("BMa")}, {"b", "image/bmp", BytesOf("BMb")}, {"c", "", BytesOf("BMc")}});
  pictures_.Select(2);
  pictures_.ID3v2ImageRemove_Click();
  EXPECT_EQ(pictures_.Selected(), 1);
  EXPECT_EQ(pictures_.Shown()->data, BytesOf("BMa"));
  EXPECT_EQ(pictures_.Rows()[1].picture->data, BytesOf("BMc"));
  pictures_.ID3v2ImageRemove_Click();
  EXPECT_EQ(pictures_.Selected(), 1);
  pictures_.ID3v2ImageRemove_Click();
  EXPECT_EQ(pictures_.Shown(), nullptr);
  pictures_.ID3v2ImageRemove_Click();
}

TEST_F(EditorListsTest, SavesAndOpensNothingWithoutAPicture) {
  pictures_.ID3v2ImageSave_Click();
  pictures_.ID3v2ImageOpen_Click();
  EXPECT_TRUE(fakes_.dialogs.save_requests.empty());
  EXPECT_TRUE(fakes_.shell.opened.empty());
}

TEST_F(EditorListsTest, SavesThePictureShownAsABitmapAfterAskingForAnExistingFile) {
  pictures_.Show({{"a", "image/png", BytesOf("PICx")}});
  drives_.Write("there.bmp", "old");
  fakes_.dialogs.save_names = {"c:\\new.bmp", "c:\\there.bmp", "c:\\there.bmp"};
  fakes_.dialogs.answers = {MessageAnswer::kNo, MessageAnswer::kYes};
  pictures_.ID3v2ImageSave_Click();
  EXPECT_EQ(drives_.Read("new.bmp"), "BMx");
  EXPECT_EQ(fakes_.dialogs.save_requests.back().filter, "Bitmap Files (*.bmp)|*.bmp");
  pictures_.ID3v2ImageSave_Click();
  EXPECT_EQ(drives_.Read("there.bmp"), "old");
  pictures_.ID3v2ImageSave_Click();
  EXPECT_EQ(drives_.Read("there.bmp"), "BMx");
}

TEST_F(EditorListsTest, OpensAPictureThroughTheScratchFileUntilItsNextUse) {
  drives_.Write("program/x", "");
  pictures_.Show({{"a", "image/png", BytesOf("PICx")}, {"b", "image/png", BytesOf("PICy")}});
  pictures_.ID3v2ImageOpen_Click();
  EXPECT_EQ(fakes_.shell.opened, (std::vector<std::string>{"c:\\program\\tmp.bmp"}));
  EXPECT_EQ(drives_.Read("program/tmp.bmp"), "BMx");
  EXPECT_TRUE(IsForThisUserAlone(drives_.C() / "program/tmp.bmp"));
  pictures_.Select(2);
  pictures_.ID3v2ImageOpen_Click();
  EXPECT_EQ(drives_.Read("program/tmp.bmp"), "BMy");
  Update();
  EXPECT_FALSE(std::filesystem::exists(drives_.C() / "program/tmp.bmp")) << "an update uses it";
}

TEST_F(EditorListsTest, CopiesId3v1ToId3v2AndAddsItsCommentEachTime) {
  view_.form.id3v2_present = false;
  view_.form.v1 = {"T", "R", "L", "1990", "C"};
  view_.form.v1_track = "7";
  view_.form.v1_genre = 18;
  comments_.Show({});
  editor_.ID3v1Duplicate_Click();
  EXPECT_TRUE(view_.form.id3v2_present);
  EXPECT_TRUE(view_.v2_enabled);
  const auto text = [this](Id3v2Box box) { return view_.form.v2[box]; };
  EXPECT_EQ(text(kV2Title) + text(kV2Artist) + text(kV2Album) + text(kV2Year) + text(kV2Track), "TRL19907");
  EXPECT_EQ(text(kV2Genre), "Rock");
  editor_.ID3v1Duplicate_Click();
  EXPECT_EQ(comments_.Rows(), (Comments{{"", "C"}, {"", "C"}}));
  view_.form.v1[kV1Comment] = "";
  view_.form.v1_genre = 0;
  editor_.ID3v1Duplicate_Click();
  EXPECT_EQ(comments_.Rows().size(), 2u);
  EXPECT_EQ(text(kV2Genre), "");
}

TEST_F(EditorListsTest, CopiesNothingFromATagThatIsNotPresent) {
  view_.form.id3v1_present = false;
  view_.form.v1[kV1Title] = "other";
  editor_.ID3v1Duplicate_Click();
  EXPECT_EQ(view_.form.v2[kV2Title], "Title");
  view_.form.id3v2_present = false;
  editor_.ID3v2Duplicate_Click();
  EXPECT_EQ(view_.form.v1[kV1Title], "other");
  EXPECT_FALSE(view_.form.id3v1_present);
}

TEST_F(EditorListsTest, CopiesId3v2ToId3v1) {
  view_.form.id3v1_present = false;
  view_.form.v2[kV2Year] = "2001";
  view_.form.v2[kV2Genre] = "Some Hard Rock";
  comments_.Show({{"x", "first"}, {"", "second"}});
  editor_.ID3v2Duplicate_Click();
  EXPECT_TRUE(view_.form.id3v1_present);
  EXPECT_TRUE(view_.v1_enabled);
  EXPECT_EQ(view_.form.v1, (std::array<std::string, kV1BoxCount>{"Title", "Artist", "", "2001", "first"}));
  EXPECT_EQ(GenreEntries()[static_cast<std::size_t>(view_.form.v1_genre)], "Rock")
      << "the first match, not the longest";
}

TEST_F(EditorListsTest, KeepsGenreAndCommentWhereNothingMatches) {
  view_.form.v1_genre = 5;
  view_.form.v1[kV1Comment] = "mine";
  view_.form.v2[kV2Genre] = "zzz";
  comments_.Show({});
  editor_.ID3v2Duplicate_Click();
  EXPECT_EQ(view_.form.v1_genre, 5);
  EXPECT_EQ(view_.form.v1[kV1Comment], "mine");
}

TEST_F(EditorListsTest, CopiesATrackThatIsANumberOrBeginsWithOneAheadOfASlash) {
  const auto copied = [this](const std::string& track) {
    view_.form.v1_track = "0";
    view_.form.v2[kV2Track] = track;
    editor_.ID3v2Duplicate_Click();
    return view_.form.v1_track;
  };
  EXPECT_EQ(copied("3"), "3");
  EXPECT_EQ(copied("3/12"), "3");
  EXPECT_EQ(copied(" 3"), " 3");
  EXPECT_EQ(copied("3.5"), "3.5");
  EXPECT_EQ(copied("4/5/6"), "4");
  EXPECT_EQ(copied("x/12"), "0");
  EXPECT_EQ(copied("A3"), "0");
  EXPECT_EQ(copied(""), "0");
}

TEST_F(EditorListsTest, BlanksEveryListForAFileWithoutATag) {
  ShowComments({{"QUBLET_tpsidata", "000001000"}});
  pictures_.Show({{"a", "", BytesOf("PIC")}});
  drives_.Write("bare.mp3", AudioBytes());
  AddRows({"bare.mp3"});
  Select("-x");
  editor_.LoadSelection();
  EXPECT_TRUE(comments_.Rows().empty());
  EXPECT_TRUE(pictures_.Rows().empty());
  EXPECT_TRUE(positions_.Records().empty());
}

}  // namespace
}  // namespace qublet
