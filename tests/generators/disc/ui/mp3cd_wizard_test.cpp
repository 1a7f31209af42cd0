#include "generators/disc/ui/MP3CDWizard.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QLineEdit>
#include <QMimeData>
#include <QTest>

#include "generators/disc/disc_icons.h"
#include "support/editor_test_base.h"

namespace qublet {
namespace {

class MP3CDWizardTest : public EditorTestBase {
 protected:
  MP3CDWizardTest() {
    drives_.Write("program/QUBBROWS.exe", "browser");
    drives_.Write("discs/mine/one.mp3", "music");
  }
  void Open() {
    wizard_ = std::make_unique<MP3CDWizard>(engine_, nullptr);
    wizard_->show();
    wizard_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(wizard_.get()));
  }
  template <typename Control>
  Control& Find(const char* name) {
    auto* control = wizard_->findChild<Control*>(QString::fromUtf8(name));
    if (control == nullptr) throw std::runtime_error(std::string("no control ") + name);
    return *control;
  }
  void Click(const char* name) {
    auto& button = Find<QAbstractButton>(name);
    QTest::mouseClick(&button, Qt::LeftButton, Qt::NoModifier, QPoint(8, button.height() / 2));
  }
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(wizard_->windowHandle(), key, modifiers);
  }
  bool Usable(const char* name) { return Find<QWidget>(name).isEnabled(); }
  bool Ticked(const char* name) { return Find<QCheckBox>(name).isChecked(); }
  int Frame() { return Find<QStackedWidget>("FrameStep").currentIndex(); }
  std::string Name() { return Find<QComboBox>("CDROMLoc").currentText().toStdString(); }
  void ChooseRoot() {
    fakes_.dialogs.folders = {"c:\\discs"};
    Click("BrowseAssembleLoc");
  }
  void TypeName(const char* text) {
    Find<QComboBox>("CDROMLoc").setFocus();
    QTest::keyClicks(&Find<QComboBox>("CDROMLoc"), QString::fromUtf8(text));
  }
  // The wizard with the folder "mine", at this step from 0.
  void OpenAt(int step) {
    Open();
    ChooseRoot();
    TypeName("mine");
    for (int i = 0; i < step; ++i) Click("CmdNext");
    ASSERT_EQ(Frame(), step);
  }
  void Choose(const char* list, int row) {
    auto& box = Find<QComboBox>(list);
    box.setFocus();
    box.setCurrentIndex(row);
    emit box.activated(row);
  }

  std::unique_ptr<MP3CDWizard> wizard_;
};

TEST_F(MP3CDWizardTest, HasItsCaptionsAndLists) {
  Open();
  const char* const headings[] = {"Step 1 - Select Folders", "Step 2 - Copy Files", "Step 3 - CDROM Files",
                                  "Step 4 - Finish"};
  for (int i = 0; i < 4; ++i) {
    const QByteArray name = "Heading" + QByteArray::number(i);
    EXPECT_EQ(Find<QLabel>(name.constData()).text().toStdString(), headings[i]);
  }
  EXPECT_EQ(Find<QComboBox>("ImSize").count(), 16);
  EXPECT_EQ(Find<QComboBox>("ImSize").currentText().toStdString(), "680Mb");
  EXPECT_EQ(Find<QComboBox>("IconChooser").count(), 51);
  EXPECT_EQ(Find<QComboBox>("IconChooser").itemText(0).toStdString(), "Custom");
  EXPECT_EQ(Find<QComboBox>("IconChooser").currentText().toStdString(), "8");
  EXPECT_TRUE(wizard_->windowFlags().testFlag(Qt::FramelessWindowHint));
}

TEST_F(MP3CDWizardTest, AsksForTheFoldersOneAfterTheOther) {
  Open();
  EXPECT_FALSE(Usable("CDROMLoc") || Usable("BrowseImageLoc") || Usable("CmdNext"));
  ChooseRoot();
  EXPECT_EQ(Find<QLineEdit>("AssembleLoc").text().toStdString(), "c:\\discs\\");
  EXPECT_TRUE(Usable("CDROMLoc") && Usable("BrowseImageLoc"));
  EXPECT_FALSE(Usable("CmdNext"));
  TypeName("mine");
  EXPECT_TRUE(Usable("CmdNext"));
}

TEST_F(MP3CDWizardTest, DropsWhatWouldMakeAPathAsItIsTyped) {
  Open();
  ChooseRoot();
  TypeName("a:b\\c/d");
  EXPECT_EQ(Name(), "abcd");
  QTest::keyClick(&Find<QComboBox>("CDROMLoc"), Qt::Key_Left);
  TypeName(":x");
  EXPECT_EQ(Name(), "abcxd");
  fakes_.dialogs.folders = {"c:\\discs\\a\\b"};
  Click("BrowseImageLoc");
  EXPECT_EQ(Name(), "a\\b");
}

TEST_F(MP3CDWizardTest, PastesNoPathEither) {
  Open();
  ChooseRoot();
  QApplication::clipboard()->setText(QStringLiteral("c:\\x\\y"));
  Find<QComboBox>("CDROMLoc").setFocus();
  QTest::keySequence(&Find<QComboBox>("CDROMLoc"), QKeySequence::Paste);
  EXPECT_EQ(Name(), "cxy");
}

TEST_F(MP3CDWizardTest, GoesThroughItsStepsByTheKeyboard) {
  Open();
  ChooseRoot();
  TypeName("mine");
  Press(Qt::Key_Return);
  EXPECT_EQ(Frame(), 1);
  Press(Qt::Key_O, Qt::AltModifier);
  EXPECT_TRUE(
      QTest::qWaitFor([this] { return fakes_.shell.explored == std::vector<std::string>{"c:\\discs\\mine"}; }));
  Press(Qt::Key_Return);
  EXPECT_EQ(Frame(), 2);
  Press(Qt::Key_A, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return Ticked("chkCreateAutorun"); }));
  Press(Qt::Key_Escape);
  EXPECT_FALSE(wizard_->isVisible());
}

TEST_F(MP3CDWizardTest, EnablesWhatABoxNeeds) {
  OpenAt(2);
  for (const char* name : {"chkAutoIcon", "IconChooser", "CDIcon", "chkAutoIndex", "chkAutoBigList", "LoadReportSet",
                           "DefReportSet", "PrevReportSet"})
    EXPECT_FALSE(Usable(name)) << name;
  Click("chkCreateAutorun");
  EXPECT_TRUE(Usable("chkAutoIcon") && Usable("chkAutoBigList"));
  EXPECT_FALSE(Usable("IconChooser") || Usable("chkAutoIndex"));
  Click("chkCopyBrowser");
  EXPECT_TRUE(Usable("chkAutoIndex"));
  Click("chkAutoIcon");
  EXPECT_TRUE(Usable("IconChooser") && Usable("CDIcon"));
  Click("chkCreateTable");
  EXPECT_TRUE(Usable("LoadReportSet") && Usable("DefReportSet") && Usable("PrevReportSet"));
  Click("chkCreateAutorun");
  EXPECT_FALSE(Usable("IconChooser") || Usable("chkAutoIndex") || Usable("chkAutoIcon"));
}

TEST_F(MP3CDWizardTest, OffersNoBrowserThatIsNotThere) {
  std::filesystem::remove(drives_.C() / "program/QUBBROWS.exe");
  OpenAt(2);
  EXPECT_FALSE(Usable("chkCopyBrowser") || Usable("ShowSoftware"));
}

TEST_F(MP3CDWizardTest, ShowsEachIconThatIsChosen) {
  OpenAt(2);
  Click("chkCreateAutorun");
  Click("chkAutoIcon");
  const QImage eighth = Find<QLabel>("CDIcon").pixmap().toImage();
  EXPECT_EQ(eighth.size(), QSize(48, 48));
  Choose("IconChooser", 9);
  EXPECT_NE(Find<QLabel>("CDIcon").pixmap().toImage(), eighth);
  Choose("IconChooser", 0);  // the dialog is cancelled
  EXPECT_EQ(Find<QComboBox>("IconChooser").currentIndex(), 8);
  EXPECT_EQ(Find<QLabel>("CDIcon").pixmap().toImage(), eighth);
}

TEST_F(MP3CDWizardTest, GivesTheDiscToOtherPrograms) {
  OpenAt(3);
  EXPECT_EQ(Find<QListWidget>("DragToBurn").count(), 0);
  Click("CmdNext");
  auto& disc = Find<QListWidget>("DragToBurn");
  ASSERT_EQ(disc.count(), 1);
  EXPECT_EQ(disc.item(0)->text().toStdString(), "mine");
  EXPECT_TRUE(Find<QPushButton>("CmdClose").hasFocus());
  EXPECT_FALSE(Usable("CmdBack"));
  disc.setFocus();
  QTest::keySequence(&disc, QKeySequence::Copy);
  const QList<QUrl> addresses = QApplication::clipboard()->mimeData()->urls();
  ASSERT_EQ(addresses.size(), 1);
  EXPECT_TRUE(addresses[0].toLocalFile().endsWith(QStringLiteral("one.mp3")));
  Click("OpenFol");
  EXPECT_EQ(fakes_.shell.explored, std::vector<std::string>{"c:\\discs\\mine"});
}

TEST_F(MP3CDWizardTest, BeginsWithAnotherDiscBehindTheLast) {
  OpenAt(3);
  Click("CmdNext");
  Click("CmdNext");
  EXPECT_EQ(Frame(), 0);
  EXPECT_EQ(Name(), "");
  EXPECT_EQ(Find<QComboBox>("CDROMLoc").itemText(0).toStdString(), "mine");
  EXPECT_FALSE(Usable("CmdNext"));
  Choose("CDROMLoc", 0);
  EXPECT_TRUE(Usable("CmdNext"));
}

TEST_F(MP3CDWizardTest, GivesNoDiscThatFailed) {
  OpenAt(2);
  Click("chkCreateTable");
  std::filesystem::create_directories(drives_.C() / "discs/mine/autorun.inf");
  Click("chkCreateAutorun");
  Click("chkAutoBigList");
  Click("CmdNext");
  Click("CmdNext");
  EXPECT_EQ(Find<QListWidget>("DragToBurn").count(), 0);
  EXPECT_TRUE(Find<QLabel>("Label7").text().startsWith(QStringLiteral("The process failed")));
  EXPECT_FALSE(files_->Attributes("c:\\discs\\mine\\MP3Index.htm"));
}

}  // namespace
}  // namespace qublet
