#include <QBuffer>
#include <QPlainTextEdit>
#include <QTreeWidget>

#include "media/editor/ui/PictureView.h"
#include "support/id3_info_test_base.h"

namespace qublet {
namespace {

std::string PngOf(int width, int height) {
  QImage image(width, height, QImage::Format_RGB32);
  image.fill(Qt::red);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  image.save(&buffer, "png");
  return bytes.toStdString();
}

std::string PictureFrameBytes(const std::string& description, const std::string& data) {
  return FrameBytes(3, "APIC", std::string("\0image/png\0\3", 12) + description + std::string(1, '\0') + data);
}

// The pages "Comments", "Images", "Misc" and "TPSI" as a user works with them.
class Id3InfoListsTest : public Id3InfoTestBase {
 protected:
  enum SubPage { kComments = 1, kImages = 3, kMisc = 4, kTpsi = 5 };

  Id3InfoListsTest() {
    drives_.Write("rich.mp3", TagBytes(3, TextFrameBytes(3, "TIT2", "T") + CommentBytes(3, "eng", "one", "1st text") +
                                              CommentBytes(3, "eng", "two", "2nd text") +
                                              CommentBytes(3, "eng", "QUBLET_tpsidata", "000001000000120000") +
                                              PictureFrameBytes("front", PngOf(400, 300)) +
                                              PictureFrameBytes("broken", "no picture")) +
                                  AudioBytes(20));
    AddRows({"rich.mp3"});
  }

  void OpenAt(SubPage page, const std::string& letters = "-----x") {
    std::filesystem::create_directories(drives_.C() / "program");
    Open(letters);
    Turn(2);
    Find<QTabWidget>("Id3v2SubTab").setCurrentIndex(page);
  }
  QTreeWidget& List(const char* name) { return Find<QTreeWidget>(name); }
  // Cells of a row parted by "|".
  std::string Row(const char* list, int row) {
    QStringList cells;
    for (int i = 0; i < List(list).columnCount(); ++i) cells << List(list).topLevelItem(row)->text(i);
    return cells.join(u'|').remove(QChar(0x200B)).toStdString();
  }
  int Count(const char* list) { return List(list).topLevelItemCount(); }
  int Current(const char* list) { return List(list).indexOfTopLevelItem(List(list).currentItem()); }
  void ClickRow(const char* list, int row) {
    QTreeWidget& tree = List(list);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, Qt::NoModifier,
                      tree.visualItemRect(tree.topLevelItem(row)).center());
  }
  QPlainTextEdit& CommentBox() { return Find<QPlainTextEdit>("ID3v2Comment"); }
  void Choose(const char* box, int entry) { Find<QComboBox>(box).setCurrentIndex(entry); }
  bool Shown(const char* name) { return Find<QWidget>(name).isVisible(); }
  bool Focused(const char* name) { return QApplication::focusWidget() == &Find<QWidget>(name); }
};

TEST_F(Id3InfoListsTest, ShowsTheTextOfTheCommentThatIsSelected) {
  OpenAt(kComments);
  EXPECT_EQ(Row("ID3v2LstComments", 0), "one|1st text");
  EXPECT_EQ(Row("ID3v2LstComments", 2), "QUBLET_tpsidata|000001000000120000");
  EXPECT_EQ(Current("ID3v2LstComments"), 0);
  EXPECT_EQ(CommentBox().toPlainText(), u"1st text"_qs);
  ClickRow("ID3v2LstComments", 1);
  EXPECT_EQ(CommentBox().toPlainText(), u"2nd text"_qs);
  List("ID3v2LstComments").setFocus();
  Key(Qt::Key_Up);
  EXPECT_EQ(CommentBox().toPlainText(), u"1st text"_qs);
  EXPECT_EQ(Current("ID3v2LstComments"), 0);
}

TEST_F(Id3InfoListsTest, AddsChangesAndRemovesComments) {
  OpenAt(kComments);
  CommentBox().setFocus();
  CommentBox().selectAll();
  QTest::keyClicks(&CommentBox(), u"new"_qs);
  Click("ID3v2EditComment");
  EXPECT_EQ(Row("ID3v2LstComments", 0), "one|new");
  EXPECT_EQ(Row("ID3v2LstComments", 1), "two|2nd text");
  fakes_.dialogs.texts = {"mine"};
  Click("ID3v2AddComment");
  EXPECT_EQ(Row("ID3v2LstComments", 3), "mine|new");
  for (int i = 0; i < 4; ++i) Click("ID3v2RemoveComment");
  EXPECT_EQ(Count("ID3v2LstComments"), 0);
  EXPECT_EQ(CommentBox().toPlainText(), u""_qs);
  EXPECT_FALSE(Enabled("ID3v2RemoveComment") || Enabled("ID3v2EditComment"));
  EXPECT_TRUE(Enabled("ID3v2AddComment"));
}

TEST_F(Id3InfoListsTest, PutsTheFocusIntoAnEmptyCommentBoxInsteadOfAdding) {
  OpenAt(kComments, "x-----");
  Button("ID3v2AddComment").setFocus();
  Key(Qt::Key_Space);
  EXPECT_TRUE(Focused("ID3v2Comment"));
  EXPECT_TRUE(fakes_.dialogs.text_prompts.empty());
}

TEST_F(Id3InfoListsTest, WritesWhatStandsInTheLists) {
  OpenAt(kComments);
  ClickRow("ID3v2LstComments", 1);
  Click("ID3v2RemoveComment");
  Click("CmdUpdate");
  const TagObject after = Loaded("rich.mp3");
  ASSERT_EQ(after.Comments().Count(), 2u);
  EXPECT_EQ(after.Comments().At(1).description, "one");
  ASSERT_EQ(after.Images().Count(), 2u);
  EXPECT_EQ(after.Images().At(1).mime_type, "image/bmp");
  EXPECT_EQ(after.Images().At(1).data.size(), 54u + 400 * 300 * 3);
  EXPECT_EQ(after.Images().At(1).type, 3);
  EXPECT_EQ(after.Images().At(2).data, BytesOf("no picture"));
  EXPECT_EQ(after.Images().At(2).mime_type, "image/png");
  const std::string once = drives_.Read("rich.mp3");
  Click("CmdUpdate");
  EXPECT_EQ(drives_.Read("rich.mp3"), once);
}

TEST_F(Id3InfoListsTest, ShowsTheSignaturesButtonsWhileACommentIsWritten) {
  OpenAt(kComments);
  EXPECT_FALSE(Shown("ID3v2SigSave") || Shown("ID3v2SigGet") || Shown("ID3v2SigClose"));
  CommentBox().setFocus();
  EXPECT_TRUE(Shown("ID3v2SigSave") && Shown("ID3v2SigGet") && Shown("ID3v2SigClose"));
  Click("ID3v2SigSave");
  EXPECT_EQ(fakes_.store.GetSetting("QUBLET2021", "ID3", "SIG"), "1st text");
  EXPECT_FALSE(Shown("ID3v2SigSave") || Shown("ID3v2SigGet") || Shown("ID3v2SigClose"));
  Turn(1);
  Click("ID3v1Present");
  Box("ID3v1Comment").setFocus();
  EXPECT_TRUE(Shown("ID3v1SigSave") && Shown("ID3v1SigGet") && Shown("ID3v1SigClose"));
  Click("ID3v1SigClose");
  EXPECT_FALSE(Shown("ID3v1SigSave") || Shown("ID3v1SigGet") || Shown("ID3v1SigClose"));
}

TEST_F(Id3InfoListsTest, LoadsTheSignatureIntoEitherBoxByKeyboard) {
  fakes_.store.SaveSetting("QUBLET2021", "ID3", "SIG", "my signature");
  OpenAt(kComments);
  CommentBox().setFocus();
  Key(Qt::Key_Tab);
  Key(Qt::Key_Tab);
  EXPECT_TRUE(Focused("ID3v2SigGet"));
  Key(Qt::Key_Space);
  EXPECT_EQ(CommentBox().toPlainText(), u"my signature"_qs);
  EXPECT_FALSE(Shown("ID3v2SigGet"));
  EXPECT_TRUE(Focused("ID3v2AddComment")) << "the box would show them again";
  Turn(1);
  Click("ID3v1Present");
  Box("ID3v1Comment").setFocus();
  Click("ID3v1SigGet");
  EXPECT_EQ(Text("ID3v1Comment"), "my signature");
}

TEST_F(Id3InfoListsTest, ShowsAPictureWithItsSizeAsATip) {
  OpenAt(kImages);
  auto& view = Find<PictureView>("ID3v2Image");
  EXPECT_TRUE(QTest::qWaitFor([&] { return !view.IsReading(); }));
  EXPECT_TRUE(view.toolTip().startsWith(u"400 x 300 pixels, "_qs)) << view.toolTip().toStdString();
  EXPECT_EQ(view.grab().toImage().pixelColor(view.rect().center()), QColor(Qt::red));
  ClickRow("ID3v2LstImages", 1);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !view.IsReading(); }));
  EXPECT_EQ(view.toolTip(), u""_qs);
  EXPECT_NE(view.grab().toImage().pixelColor(view.rect().center()), QColor(Qt::red));
}

TEST_F(Id3InfoListsTest, GoesOnWhileALargePictureIsRead) {
  drives_.Write("large.mp3", TagBytes(3, PictureFrameBytes("large", PngOf(6000, 5000))) + AudioBytes(20));
  AddRows({"large.mp3"});
  OpenAt(kImages, "------x");
  auto& view = Find<PictureView>("ID3v2Image");
  EXPECT_TRUE(view.IsReading()) << "the window doesn't wait for it";
  EXPECT_TRUE(QTest::qWaitFor([&] { return !view.IsReading(); }, 20000));
  EXPECT_TRUE(view.toolTip().startsWith(u"6000 x 5000 pixels, "_qs)) << view.toolTip().toStdString();
}

TEST_F(Id3InfoListsTest, AddsSavesOpensAndRemovesPictures) {
  drives_.Write("new.PNG", PngOf(8, 4));
  OpenAt(kImages);
  fakes_.dialogs.open_names = {"c:\\new.PNG"};
  fakes_.dialogs.texts = {"new one"};
  Click("ID3v2ImageAdd");
  ASSERT_EQ(Count("ID3v2LstImages"), 3);
  EXPECT_TRUE(Row("ID3v2LstImages", 2).starts_with("new one|")) << Row("ID3v2LstImages", 2);
  EXPECT_TRUE(Row("ID3v2LstImages", 2).ends_with("|image/PNG")) << Row("ID3v2LstImages", 2);
  EXPECT_EQ(Current("ID3v2LstImages"), 2);
  fakes_.dialogs.save_names = {"c:\\saved.bmp"};
  Click("ID3v2ImageSave");
  EXPECT_EQ(drives_.Read("saved.bmp").size(), 54u + 8 * 4 * 3);
  Click("ID3v2ImageOpen");
  EXPECT_EQ(drives_.Read("program/tmp.bmp"), drives_.Read("saved.bmp"));
  EXPECT_EQ(fakes_.shell.opened, (std::vector<std::string>{"c:\\program\\tmp.bmp"}));
  for (int i = 0; i < 3; ++i) Click("ID3v2ImageRemove");
  EXPECT_FALSE(Enabled("ID3v2ImageRemove") || Enabled("ID3v2ImageSave") || Enabled("ID3v2ImageOpen"));
  EXPECT_TRUE(Enabled("ID3v2ImageAdd"));
}

TEST_F(Id3InfoListsTest, CopiesBetweenTheTags) {
  OpenAt(kMisc, "---x--");
  EXPECT_TRUE(Enabled("ID3v1Duplicate")) << "it makes the tag that it fills";
  Click("ID3v1Duplicate");
  EXPECT_FALSE(Check("ID3v2Present").isChecked()) << "there is nothing to copy";
  Turn(1);
  EXPECT_EQ(Button("ID3v2Duplicate").text(), u"<<Copy from ID3v2"_qs);
  Click("ID3v1Present");
  Box("ID3v1Title").setText(u"Copied"_qs);
  Turn(2);
  Find<QTabWidget>("Id3v2SubTab").setCurrentIndex(kMisc);
  EXPECT_EQ(Button("ID3v1Duplicate").text(), u"<<Copy from ID3v1"_qs);
  Click("ID3v1Duplicate");
  EXPECT_TRUE(Check("ID3v2Present").isChecked());
  EXPECT_EQ(Text("ID3v2Title"), "Copied");
  const QString longer = QString(40, u'x');
  Box("ID3v2Title").setText(longer);
  Turn(1);
  Click("ID3v2Duplicate");
  EXPECT_EQ(Text("ID3v1Title"), std::string(30, 'x'));
  Box("ID3v2Title").clear();
  Click("ID3v1Duplicate");
  EXPECT_EQ(Text("ID3v2Title"), std::string(30, 'x')) << "what the box shows";
}

TEST_F(Id3InfoListsTest, ListsThePositionsAndTellsTheNumberOfTheSelectedOne) {
  OpenAt(kTpsi);
  EXPECT_EQ(Row("TPSIlist", 0), "000001000|0:01");
  EXPECT_EQ(Row("TPSIlist", 1), "000120000|2:00");
  EXPECT_EQ(Label("TPSIlabel"), "");
  ClickRow("TPSIlist", 1);
  EXPECT_EQ(Label("TPSIlabel"), "2");
  Click("TPSIremove");
  EXPECT_EQ(Label("TPSIlabel"), "");
  EXPECT_EQ(Row("ID3v2LstComments", 2), "QUBLET_tpsidata|000001000");
}

TEST_F(Id3InfoListsTest, AddsThePositionOfTheBoxes) {
  OpenAt(kTpsi, "x-----");
  Choose("TPSIhour", 1);
  Choose("TPSImin", 2);
  Choose("TPSIsec", 3);
  Click("TPSIadd");
  Click("TPSIadd");
  ASSERT_EQ(Count("TPSIlist"), 1);
  EXPECT_EQ(Row("TPSIlist", 0), "003723000|1:02:03");
  fakes_.dialogs.answers = {MessageAnswer::kYes};
  Click("TPSIclrall");
  EXPECT_EQ(Count("TPSIlist"), 0);
  EXPECT_EQ(Count("ID3v2LstComments"), 0);
}

TEST_F(Id3InfoListsTest, GoesToAPositionByButtonEnterAndDoubleClick) {
  engine_.player.PlayerAssociated = true;
  fakes_.players.running = "p";
  fakes_.players.state = kPlaying;
  OpenAt(kTpsi);
  Click("TPSIgoto");
  EXPECT_EQ(fakes_.players.calls.back(), "jump p 1000");
  ClickRow("TPSIlist", 1);
  List("TPSIlist").setFocus();
  Key(Qt::Key_Return);
  EXPECT_EQ(fakes_.players.calls.back(), "jump p 120000");
  fakes_.players.calls.clear();
  QTreeWidget& list = List("TPSIlist");
  ClickRow("TPSIlist", 0);
  QTest::mouseDClick(list.viewport(), Qt::LeftButton, Qt::NoModifier,
                     list.visualItemRect(list.topLevelItem(0)).center());
  EXPECT_EQ(fakes_.players.calls.back(), "jump p 1000");
  EXPECT_EQ(fakes_.shell.opened.size(), 3u);
}

TEST_F(Id3InfoListsTest, FollowsThePlayerWhileTheBoxIsChecked) {
  engine_.player.PlayerAssociated = true;
  fakes_.players.running = "p";
  fakes_.players.position = 3723000;
  OpenAt(kTpsi);
  Click("TPSIautoupdate");
  EXPECT_TRUE(QTest::qWaitFor([&] { return Find<QComboBox>("TPSIsec").currentText() == u"03"_qs; }));
  EXPECT_EQ(Find<QComboBox>("TPSIhour").currentText(), u"01"_qs);
  EXPECT_EQ(Find<QComboBox>("TPSImin").currentText(), u"02"_qs);
  fakes_.players.running = "";
  EXPECT_TRUE(QTest::qWaitFor([&] { return !Check("TPSIautoupdate").isChecked(); }));
}

}  // namespace
}  // namespace qublet
