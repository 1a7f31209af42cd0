#include <QPlainTextEdit>
#include <QTabBar>

#include "support/id3_info_test_base.h"

namespace qublet {
namespace {

class Id3InfoKeysTest : public Id3InfoTestBase {
 protected:
  // The page before the user, which a key has turned to.
  int Page() { return Pages().currentIndex(); }
  void Focus(int page, const char* name) {
    Turn(page);
    Find<QWidget>(name).setFocus();
  }
};

TEST_F(Id3InfoKeysTest, TurnThePages) {
  Open("x----");
  Key(Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(Page(), 1);
  Key(Qt::Key_PageDown, Qt::ControlModifier);
  Key(Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(Page(), 0);
  Key(Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_EQ(Page(), 2);
  Key(Qt::Key_PageDown, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Find<QTabWidget>("Id3v2SubTab").currentIndex(), 1);
  Key(Qt::Key_PageUp, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Find<QTabWidget>("Id3v2SubTab").currentIndex(), 0);
  EXPECT_EQ(Page(), 2);
}

TEST_F(Id3InfoKeysTest, PassOverPagesThatCanNotBeUsed) {
  Open("----x");
  Key(Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(Page(), 0);
}

TEST_F(Id3InfoKeysTest, GoToTheNextAndPreviousFile) {
  Open("x----");
  Focus(1, "ID3v1Title");
  Key(Qt::Key_Right, Qt::AltModifier);
  EXPECT_EQ(Selection(), "-x---");
  Key(Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(Selection(), "x----");
  Key(Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(Selection(), "x----");
}

TEST_F(Id3InfoKeysTest, TurnNoPageByTheKeysForFilesThatAreNotThere) {
  Open("x----");
  Focus(1, "ID3v1Present");
  Pages().tabBar()->setFocus();
  Key(Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(Page(), 1);
  EXPECT_EQ(Selection(), "x----");
}

TEST_F(Id3InfoKeysTest, UpdateByCtrlReturnFromAnyBox) {
  Open("x----");
  Focus(2, "ID3v2Title");
  Box("ID3v2Title").setText(QStringLiteral("New"));
  Key(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(Loaded("1.mp3").Frame("TIT2"), "New");
  Find<QTabWidget>("Id3v2SubTab").setCurrentIndex(2);
  auto& lyrics = Find<QPlainTextEdit>("ID3v2Lyrics");
  lyrics.setFocus();
  QTest::keyClicks(&lyrics, QStringLiteral("la"));
  Key(Qt::Key_Enter, Qt::ControlModifier);
  EXPECT_EQ(Loaded("1.mp3").Frame("USLT"), "la");
}

TEST_F(Id3InfoKeysTest, DoNothingByEnterInABoxOfOneLine) {
  Open("x----");
  for (const QPushButton* button : editor_->findChildren<QPushButton*>())
    EXPECT_FALSE(button->isDefault() || button->autoDefault()) << button->objectName().toStdString();
  Box("ID3v1Title").setText(QStringLiteral("New"));
  for (const char* name : {"ID3v1Title", "ID3v1Track"}) {
    Focus(1, name);
    Key(Qt::Key_Return);
    Key(Qt::Key_Enter);
    EXPECT_TRUE(editor_->isVisible());
  }
  EXPECT_EQ(Text("ID3v1Title"), "New");
  EXPECT_EQ(drives_.Read("1.mp3"), TaggedSong("1.mp3"));
}

TEST_F(Id3InfoKeysTest, CloseByEscape) {
  Open("x----");
  Focus(1, "ID3v1Title");
  Key(Qt::Key_Escape);
  EXPECT_FALSE(editor_->isVisible());
}

TEST_F(Id3InfoKeysTest, WriteOnlyDigitsIntoTheTrack) {
  Open("x----");
  Focus(1, "ID3v1Track");
  Box("ID3v1Track").clear();
  QTest::keyClicks(&Box("ID3v1Track"), QStringLiteral("a1-2. 34"));
  EXPECT_EQ(Text("ID3v1Track"), "123");
  Key(Qt::Key_Backspace);
  EXPECT_EQ(Text("ID3v1Track"), "12");
  Key(Qt::Key_Home);
  Key(Qt::Key_Delete);
  EXPECT_EQ(Text("ID3v1Track"), "2");
}

TEST_F(Id3InfoKeysTest, WriteNoMoreThanTheTagHolds) {
  Open("x----");
  for (const char* name : {"ID3v1Title", "ID3v1Artist", "ID3v1Album", "ID3v1Comment"}) {
    Focus(1, name);
    Box(name).clear();
    QTest::keyClicks(&Box(name), QString(40, u'x'));
    EXPECT_EQ(Text(name).size(), 30u) << name;
  }
  EXPECT_EQ(Box("ID3v1Track").maxLength(), 3);
  EXPECT_GT(Box("ID3v1Year").maxLength(), 1000);
  EXPECT_GT(Box("ID3v2Title").maxLength(), 1000);
}

TEST_F(Id3InfoKeysTest, ReachEveryControlOfAPageInItsOrder) {
  Open("x----");
  Focus(1, "ID3v1Present");
  QStringList order;
  for (int i = 0; i < 12; ++i) {
    order << QApplication::focusWidget()->objectName();
    Key(Qt::Key_Tab);
  }
  EXPECT_EQ(
      order.join(u' ').toStdString(),
      "ID3v1Present ID3v1Title ID3v1Artist ID3v1Album ID3v1Year ID3v1Comment ID3v1SigSave ID3v1SigGet ID3v1SigClose "
      "ID3v1Track ID3v1Genre ID3v2Duplicate");
}

// The toolkit shows a button go down before it acts.
TEST_F(Id3InfoKeysTest, RunCommandsByTheirLetters) {
  std::filesystem::create_directories(drives_.C() / "program");
  Open("x----");
  Box("ID3v2Title").setText(QStringLiteral("New"));
  Key(Qt::Key_U, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([&] { return Loaded("1.mp3").Frame("TIT2") == "New"; }));
  Key(Qt::Key_I, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([&] { return fakes_.shell.addresses.size() == 1; }));
  Key(Qt::Key_P, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([&] { return fakes_.shell.opened.size() == 1; }));
  Key(Qt::Key_C, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !editor_->isVisible(); }));
}

// --- double clicks ---

TEST_F(Id3InfoKeysTest, FillABoxFromTheFileByADoubleClickOrF4) {
  drives_.Write("the band/my song.MP3", TaggedSong("x"));
  AddRows({"the band\\my song.MP3"});
  Open("-----x");
  Turn(1);
  QTest::mouseDClick(&Box("ID3v1Title"), Qt::LeftButton);
  EXPECT_EQ(Text("ID3v1Title"), "My Song");
  QTest::mouseDClick(&Box("ID3v1Artist"), Qt::LeftButton);
  EXPECT_EQ(Text("ID3v1Artist"), "the band");
  Focus(2, "ID3v2Album");
  Key(Qt::Key_F4);
  EXPECT_EQ(Text("ID3v2Album"), "the band");
  Focus(2, "ID3v2Title");
  Key(Qt::Key_F4);
  EXPECT_EQ(Text("ID3v2Title"), "My Song");
}

TEST_F(Id3InfoKeysTest, FillNothingForSeveralFiles) {
  Open("xx---");
  Turn(1);
  Click("ID3v1Present");
  QTest::mouseDClick(&Box("ID3v1Title"), Qt::LeftButton);
  EXPECT_EQ(Text("ID3v1Title"), "");
}

TEST_F(Id3InfoKeysTest, OpenAddressesAndSearches) {
  Open("x----");
  Turn(1);
  QTest::mouseDClick(&Box("ID3v1Comment"), Qt::LeftButton);
  Turn(2);
  Box("ID3v2URL").setText(QStringLiteral("x.org"));
  QTest::mouseDClick(&Box("ID3v2URL"), Qt::LeftButton);
  Find<QTabWidget>("Id3v2SubTab").setCurrentIndex(4);
  Box("ID3v2ArtistURL").setText(QStringLiteral("http://y.org"));
  QTest::mouseDClick(&Box("ID3v2ArtistURL"), Qt::LeftButton);
  QTest::mouseDClick(&Box("ID3v2ArtistURL"), Qt::LeftButton);
  ASSERT_GE(fakes_.shell.addresses.size(), 3u);
  EXPECT_TRUE(fakes_.shell.addresses[0].ends_with("q=Comment"));
  EXPECT_EQ(fakes_.shell.addresses[1], "http://x.org");
  EXPECT_EQ(fakes_.shell.addresses[2], "http://y.org");
}

}  // namespace
}  // namespace qublet
