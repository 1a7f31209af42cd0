#include <gtest/gtest.h>

#include <QMessageBox>
#include <QTimer>

#include "support/filter_form_test_base.h"

namespace qublet {
namespace {

constexpr const char* kNone = "Done: No items were restored...";

// Missing items are looked for and restored, as a user does it.
class RestoringTest : public FilterFormTestBase {
 protected:
  void Search() {
    Open();
    Choose("MissAction", 2);
    Process();
  }
  // "folder held" a row, ">" the selected one, "+" a ticked one, "~" one that can't be chosen.
  std::string Shown() {
    std::string text;
    for (int row = 0; row < Folders().topLevelItemCount(); ++row) {
      const QTreeWidgetItem& item = *Folders().topLevelItem(row);
      text += row > 0 ? "|" : "";
      text += item.isSelected() ? ">" : "";
      text += item.flags() == Qt::NoItemFlags ? "~" : "";
      text += item.checkState(0) == Qt::Checked ? "+" : "";
      text += item.text(0).toStdString() + (item.text(1).isEmpty() ? "" : " " + item.text(1).toStdString());
    }
    return text;
  }
};

TEST_F(RestoringTest, TheListSaysWhatWouldFillIt) {
  Open();
  Choose("MissAction", 2);
  EXPECT_TRUE(Find<QLabel>("EmptyFoundPaths").isVisible());
}

TEST_F(RestoringTest, IsWalkedThroughByKeyboard) {
  Touch({"new/1.mp3", "new/2.mp3", "else/9.mp3"});
  TouchOnD({"copy/1.mp3", "copy/5.mp3", "1.mp3"});
  AddPaths({"c:\\a\\1.mp3", "c:\\a\\2.mp3", "c:\\b\\9.mp3", "c:\\c\\7.mp3"});
  Search();
  EXPECT_EQ(Report(), "5 Items were returned by the Search...");
  EXPECT_EQ(Missing(), "c:\\a\\1.mp3");
  EXPECT_EQ(Shown(), ">c:\\new\\ 2 of 2|d:\\ 1 of 2|d:\\copy\\ 1 of 2");
  EXPECT_EQ(QApplication::focusWidget(), &Folders());
  EXPECT_FALSE(Find<QLabel>("EmptyFoundPaths").isVisible());
  Press(Qt::Key_End);
  Press(Qt::Key_Space);
  Press(Qt::Key_Home);
  EXPECT_EQ(Shown(), ">c:\\new\\ 2 of 2|d:\\ 1 of 2|+d:\\copy\\ 1 of 2");
  Press(Qt::Key_Return);
  EXPECT_EQ(Paths(), "c:\\new\\1.mp3|c:\\new\\2.mp3|c:\\b\\9.mp3|c:\\c\\7.mp3|d:\\copy\\1.mp3|d:\\copy\\5.mp3");
  EXPECT_EQ(Missing(), "c:\\b\\9.mp3");
  EXPECT_EQ(Shown(), ">c:\\else\\ 1 of 1");
  Press(Qt::Key_Return);
  EXPECT_EQ(Missing(), "c:\\c\\7.mp3");
  EXPECT_EQ(Shown(), "~No Suggestions...");
  Press(Qt::Key_Return);
  EXPECT_EQ(Report(), "Done: Restored 3 Items...");
  EXPECT_EQ(Missing(), "");
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(Rows().At(3).FullPath(), "c:\\else\\9.mp3");
  EXPECT_EQ(Rows().At(4).FullPath(), "c:\\c\\7.mp3");
  EXPECT_TRUE(engine_.document.PlaylistChanged);
  Press(Qt::Key_Return);
  EXPECT_TRUE(form_->isVisible());
}

TEST_F(RestoringTest, LocksThePassWhileItSteps) {
  Touch({"new/1.mp3"});
  AddPaths({"c:\\a\\1.mp3"});
  Search();
  const auto pass = {"EnbPurge", "MissAction", "DontUsePath", "Label3", "CmdSearch"};
  const auto steps = {"NxtPath", "SkipPath", "AbortPath"};
  EXPECT_EQ(Usable(pass), "-----");
  EXPECT_EQ(Usable(steps), "xxx");
  EXPECT_FALSE(Pages().isTabEnabled(1));
  Press(Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(Pages().currentIndex(), 0);
  Click("AbortPath");
  EXPECT_EQ(Usable(pass), "xxxxx");
  EXPECT_EQ(Usable(steps), "---");
  EXPECT_TRUE(Pages().isTabEnabled(1));
  EXPECT_EQ(Report(), kNone);
  EXPECT_EQ(Paths(), "c:\\a\\1.mp3");
}

TEST_F(RestoringTest, TheFirstTabComesToTheFront) {
  Touch({"new/1.mp3"});
  AddPaths({"c:\\a\\1.mp3"});
  Open();
  Choose("MissAction", 2);
  Pages().setCurrentIndex(1);
  Click("CmdSearch");
  EXPECT_EQ(Pages().currentIndex(), 0);
  EXPECT_TRUE(Folders().isVisible());
}

TEST_F(RestoringTest, SkipsAndEndsWithTheCountSoFar) {
  Touch({"new/1.mp3"});
  AddPaths({"c:\\a\\1.mp3", "c:\\b\\1.mp3"});
  Search();
  Click("NxtPath");
  Click("SkipPath");
  EXPECT_EQ(Report(), "Done: Restored 1 Items...");
  EXPECT_EQ(Paths(), "c:\\new\\1.mp3|c:\\b\\1.mp3");
  EXPECT_TRUE(Enabled("CmdSearch"));
}

TEST_F(RestoringTest, NothingSelectedRestoresNothing) {
  Touch({"new/1.mp3"});
  AddPaths({"c:\\a\\1.mp3"});
  Search();
  Folders().clearSelection();
  Click("NxtPath");
  EXPECT_EQ(Report(), kNone);
  EXPECT_EQ(Paths(), "c:\\a\\1.mp3");
}

TEST_F(RestoringTest, ATickDoesntStayForTheNextStep) {
  Touch({"new/1.mp3"});
  TouchOnD({"1.mp3"});
  AddPaths({"c:\\a\\1.mp3", "c:\\b\\9.mp3", "c:\\a\\2.mp3"});
  Search();
  Press(Qt::Key_Down);
  Press(Qt::Key_Space);
  EXPECT_EQ(Shown(), "c:\\new\\ 1 of 2|>+d:\\ 1 of 2");
  Click("SkipPath");
  Click("SkipPath");
  EXPECT_EQ(Missing(), "c:\\a\\1.mp3");
  EXPECT_EQ(Shown(), ">c:\\new\\ 1 of 2|d:\\ 1 of 2");
}

TEST_F(RestoringTest, AGhostedRowNamesAFileThatDiffersInCaseOrAccents) {
  Touch({"new/caf\u00E9.mp3", "new/2.mp3"});
  AddPaths({"c:\\a\\cafe\u0301.mp3", "c:\\b\\2.mp3"});
  Search();
  EXPECT_EQ(Report(), "1 Items were returned by the Search...");
  EXPECT_EQ(Shown(), "~No Suggestions...|~Only letter case or accents differ: c:\\new\\caf\u00E9.mp3");
  EXPECT_TRUE(Folders().accessibleDescription().startsWith(u"No Suggestions... Only letter case"));
  for (int row = 0; row < 2; ++row) {
    const QRect place = Folders().visualItemRect(Folders().topLevelItem(row));
    QTest::mouseClick(Folders().viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
    QTest::mouseDClick(Folders().viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
    QTest::mouseClick(Folders().viewport(), Qt::LeftButton, Qt::NoModifier, place.topLeft() + QPoint(8, 8));
  }
  Press(Qt::Key_Space);
  EXPECT_EQ(Shown(), "~No Suggestions...|~Only letter case or accents differ: c:\\new\\caf\u00E9.mp3");
  EXPECT_TRUE(fakes_.shell.explored.empty());
  Press(Qt::Key_Return);
  EXPECT_EQ(Missing(), "c:\\b\\2.mp3");
  EXPECT_EQ(Folders().accessibleDescription(), QString());
}

TEST_F(RestoringTest, ADoubleClickOrF4OpensAFolderAndTheStepsGoOn) {
  Touch({"new/1.mp3"});
  TouchOnD({"1.mp3"});
  AddPaths({"c:\\a\\1.mp3"});
  Search();
  const QRect place = Folders().visualItemRect(Folders().topLevelItem(1));
  QTest::mouseClick(Folders().viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
  QTest::mouseDClick(Folders().viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
  Press(Qt::Key_Home);
  Press(Qt::Key_F4);
  EXPECT_EQ(fakes_.shell.explored, (std::vector<std::string>{"d:\\", "c:\\new\\"}));
  EXPECT_TRUE(Enabled("NxtPath"));
}

TEST_F(RestoringTest, AMessageBoxOrAnotherProgramAbortsNothing) {
  Touch({"new/1.mp3"});
  AddPaths({"c:\\a\\1.mp3"});
  Search();
  QMessageBox box(form_.get());
  QTimer::singleShot(0, &box, [&box] { box.accept(); });
  box.exec();
  ASSERT_TRUE(QTest::qWaitForWindowActive(form_.get()));
  QWindow* const window = form_->windowHandle();
  emit qApp->focusWindowChanged(nullptr);
  emit qApp->focusWindowChanged(window);
  EXPECT_EQ(Missing(), "c:\\a\\1.mp3");
  EXPECT_TRUE(Enabled("NxtPath"));
}

TEST_F(RestoringTest, ComingBackFromAnotherWindowOfTheProgramAborts) {
  Touch({"new/1.mp3"});
  AddPaths({"c:\\a\\1.mp3"});
  Search();
  main_.show();
  main_.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&main_));
  form_->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(form_.get()));
  EXPECT_EQ(Missing(), "");
  EXPECT_FALSE(Enabled("NxtPath"));
  EXPECT_EQ(Report(), kNone);
}

TEST_F(RestoringTest, ClosingAborts) {
  Touch({"new/1.mp3"});
  AddPaths({"c:\\a\\1.mp3"});
  Search();
  Press(Qt::Key_Escape);
  EXPECT_FALSE(form_->isVisible());
  Open();
  EXPECT_EQ(Shown(), "");
  EXPECT_EQ(Report(), kNone);
  EXPECT_TRUE(Enabled("CmdSearch"));
  EXPECT_EQ(Paths(), "c:\\a\\1.mp3");
}

TEST_F(RestoringTest, ShowsTheFolderThatIsSearched) {
  Touch({"m/x"});
  AddPaths({"c:\\a\\1.mp3"});
  Search();
  EXPECT_EQ(std::ranges::count(activities_, "c:\\m"), 1);
  ASSERT_FALSE(activities_.empty());
  EXPECT_EQ(activities_.back(), "");
  EXPECT_EQ(Report(), "No Items were found to match...");
  EXPECT_TRUE(Enabled("CmdSearch"));
}

// Counts how often a widget is painted.
class Paints : public QObject {
 public:
  explicit Paints(QWidget& widget) { widget.installEventFilter(this); }
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    count += event->type() == QEvent::Paint ? 1 : 0;
    return false;
  }
  int count = 0;
};

TEST_F(RestoringTest, PaintsGoOnAndKeysAreThrownAwayWhileItSearches) {
  for (int i = 0; i < 10; ++i) Touch({std::to_string(i) + "/x"});
  AddPaths({"c:\\a\\1.mp3"});
  Open();
  Choose("MissAction", 2);
  Paints paints(*form_);
  files_.delay = std::chrono::milliseconds(25);
  bool could_process = false;
  on_activity_ = [&](const std::string& text) {
    if (text.empty()) return;
    could_process = could_process || Enabled("CmdSearch");
    form_->update();
    QCoreApplication::postEvent(&Find<QWidget>("EnbPurge"),
                                new QKeyEvent(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier));
    QCoreApplication::postEvent(form_.get(), new QCloseEvent);
  };
  Click("CmdSearch");
  on_activity_ = {};
  QCoreApplication::processEvents();
  EXPECT_GE(paints.count, 8);
  EXPECT_FALSE(could_process);
  EXPECT_TRUE(form_->isVisible());
  EXPECT_TRUE(Find<QCheckBox>("EnbPurge").isChecked());
  EXPECT_EQ(Report(), "No Items were found to match...");
}

TEST_F(RestoringTest, EscapeEndsTheSearchAndWhatWasFoundCounts) {
  Touch({"a/1.mp3", "b/1.mp3", "c/1.mp3", "e/1.mp3"});
  AddPaths({"c:\\old\\1.mp3"});
  Open();
  Choose("MissAction", 2);
  files_.delay = std::chrono::milliseconds(25);
  on_activity_ = [&](const std::string& text) {
    if (text != "c:\\b") return;
    QCoreApplication::postEvent(form_.get(), new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
  };
  Click("CmdSearch");
  on_activity_ = {};
  EXPECT_TRUE(form_->isVisible());
  EXPECT_EQ(Report(), "2 Items were returned by the Search...");
  EXPECT_EQ(Shown(), ">c:\\a\\ 1 of 1|c:\\b\\ 1 of 1");
  EXPECT_EQ(std::ranges::count(activities_, "d:\\"), 0);
  Press(Qt::Key_Return);
  EXPECT_EQ(Paths(), "c:\\a\\1.mp3");
}

TEST_F(RestoringTest, NamesAreShownAsTheyAre) {
  Touch({"<b>new/a&b.mp3"});
  AddPaths({"c:\\old\\a&b.mp3"});
  Search();
  EXPECT_EQ(Missing(), "c:\\old\\a&b.mp3");
  EXPECT_EQ(Shown(), ">c:\\<b>new\\ 1 of 1");
  EXPECT_TRUE(Folders().topLevelItem(0)->toolTip(0).contains(u"&lt;b&gt;"));
}

}  // namespace
}  // namespace qublet
