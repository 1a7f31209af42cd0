#include "generators/bookmarks/ui/BookmarksWizard.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include "platform/qt/qt_dialogs.h"
#include "platform/qt/shown_text.h"
#include "support/bookmarks_test_base.h"

namespace qublet {
namespace {

class BookmarksWizardTest : public BookmarksTestBase {
 protected:
  void Open(bool AddMode) { OpenOver(engine_, AddMode); }
  void OpenOver(Engine& engine, bool AddMode) {
    form_ = std::make_unique<BookmarksWizard>(engine, commands_, AddMode, nullptr);
    ComeForward(*form_);
    ASSERT_TRUE(QTest::qWaitFor([this] { return List().topLevelItemCount() > 0; }));
  }
  static void ComeForward(QWidget& window) {
    window.show();
    window.raise();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  }
  template <typename Control>
  Control& Find(const char* name) {
    auto* control = form_->findChild<Control*>(QString::fromUtf8(name));
    if (control == nullptr) throw std::runtime_error(std::string("no control ") + name);
    return *control;
  }
  QTreeWidget& List() { return Find<QTreeWidget>("lstCategory"); }
  // A key of the keyboard, which goes to the control that has the focus.
  void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(form_->windowHandle(), key, modifiers);
  }
  void Click(const char* name) { QTest::mouseClick(&Find<QPushButton>(name), Qt::LeftButton); }
  // The rows, the selected one in brackets.
  std::string Shown() {
    std::string text;
    for (int row = 0; row < List().topLevelItemCount(); ++row) {
      const std::string name = List().topLevelItem(row)->text(0).toStdString();
      text += (row > 0 ? "|" : "") + (List().topLevelItem(row)->isSelected() ? "[" + name + "]" : name);
    }
    return text;
  }

  Commands commands_{feedback_};
  std::unique_ptr<BookmarksWizard> form_;
};

TEST_F(BookmarksWizardTest, HasItsCaptions) {
  FillList("x--");
  for (const auto& [mode, caption, info] :
       {std::tuple{true, "&Finish>", "Choose category in which to save the selected items as bookmarks into..."},
        {false, "&Import>",
         "Choose the category in which files will be imported into the main playlist. Click 'X' to close when "
         "done..."}}) {
    Open(mode);
    EXPECT_EQ(Find<QPushButton>("CmdNext").text().toStdString(), caption);
    EXPECT_EQ(Find<QLabel>("lblInfo").text().toStdString(), info);
    EXPECT_EQ(Find<QPushButton>("CmdClose").text().toStdString(), "&X");
    EXPECT_EQ(List().headerItem()->text(0).toStdString(), "Category");
    EXPECT_EQ(List().columnCount(), 1);
    EXPECT_EQ(form_->windowTitle(), Find<QLabel>("Label6").text());
    EXPECT_TRUE(form_->windowFlags().testFlag(Qt::FramelessWindowHint));
  }
}

TEST_F(BookmarksWizardTest, ShowsTheCategoriesWithTheirPictureAndTheFirstSelected) {
  WriteCategory("Rock", "");
  WriteCategory("blues", "");
  Open(false);
  EXPECT_EQ(Shown(), "[blues]|Default|Rock");
  for (int row = 0; row < 3; ++row) EXPECT_FALSE(List().topLevelItem(row)->icon(0).isNull());
  EXPECT_EQ(QApplication::focusWidget(), &List());
}

TEST_F(BookmarksWizardTest, ShowsNamesAsPlainTextAndWholeAsATip) {
  const std::string name = "R&amp;B " + std::string(100, 'n') + "\u202E";
  FillList("x--");
  WriteCategory(name, "");
  Open(true);
  Press(Qt::Key_End);
  EXPECT_EQ(List().currentItem()->text(0).toStdString(), "R&amp;B " + std::string(100, 'n') + "\uFFFD");
  EXPECT_EQ(List().currentItem()->toolTip(0), ShownTip(name));
  Press(Qt::Key_Return);
  EXPECT_EQ(ReadCategory(name), "c:\\m\\a.mp3\r\n") << "the file is found by its own name";
}

TEST_F(BookmarksWizardTest, EnterKeepsTheSelectedItemsAndCloses) {
  FillList("x-x");
  WriteCategory("Rock", "");
  Open(true);
  Press(Qt::Key_R);
  EXPECT_EQ(Shown(), "Default|[Rock]") << "found by its first letter";
  Press(Qt::Key_Return);
  EXPECT_FALSE(form_->isVisible());
  EXPECT_EQ(ReadCategory("Rock"), "c:\\m\\a.mp3\r\nc:\\m\\c.mp3\r\n");
}

TEST_F(BookmarksWizardTest, ImportsAndStaysOpen) {
  WriteCategory("Rock", "c:\\m\\a.mp3\r\nc:\\m\\b.mp3\r\n");
  WriteCategory("Soul", "c:\\m\\c.mp3\r\n");
  Open(false);
  Press(Qt::Key_Down);
  Click("CmdNext");
  EXPECT_EQ(Names(), "a.mp3 b.mp3");
  QTest::qWait(100);
  EXPECT_EQ(Shown(), "Default|[Rock]|Soul");
  List().setFocus();
  Press(Qt::Key_Down);
  Press(Qt::Key_I, Qt::AltModifier);
  ASSERT_TRUE(QTest::qWaitFor([this] { return Names() == "a.mp3 b.mp3 c.mp3"; }));
  EXPECT_TRUE(form_->isVisible());
  Click("CmdClose");
  EXPECT_FALSE(form_->isVisible());
}

TEST_F(BookmarksWizardTest, EscapeClosesItAndChangesNothing) {
  FillList("x--");
  Open(true);
  Press(Qt::Key_Escape);
  EXPECT_FALSE(form_->isVisible());
  EXPECT_EQ(ReadCategory("Default"), "");
}

TEST_F(BookmarksWizardTest, GoesAwayBeforeItsFirstMomentWhereNothingIsSelected) {
  FillList("---");
  form_ = std::make_unique<BookmarksWizard>(engine_, commands_, true, nullptr);
  QTimer::singleShot(10'000, form_.get(), &QDialog::reject);  // not for ever
  form_->exec();
  EXPECT_EQ(dialogs_.messages,
            Messages{Told("Please select the items you wish to add as bookmarks.", MessageIcon::kExclamation)});
  EXPECT_FALSE(form_->isVisible());
}

TEST_F(BookmarksWizardTest, TheKeyInsertMakesACategory) {
  FillList("-x-");
  Open(true);
  dialogs_.texts.emplace_back("Ambient");
  Press(Qt::Key_Insert);
  EXPECT_EQ(Shown(), "Default|[Ambient]");
  EXPECT_EQ(ReadCategory("Ambient"), "c:\\m\\b.mp3\r\n");
  dialogs_.texts.emplace_back("More");
  Click("cmdAddCategory");
  EXPECT_EQ(Shown(), "Default|Ambient|[More]");
}

TEST_F(BookmarksWizardTest, TheKeyDeleteRemovesOne) {
  WriteCategory("Rock", "");
  WriteCategory("Soul", "");
  Open(false);
  dialogs_.answers = {MessageAnswer::kYes, MessageAnswer::kYes};
  Press(Qt::Key_Down);
  Press(Qt::Key_Delete);
  EXPECT_EQ(Shown(), "[Default]|Soul");
  EXPECT_FALSE(HasCategory("Rock"));
  Press(Qt::Key_Down);
  Click("cmdDelCategory");
  EXPECT_EQ(Shown(), "[Default]");
}

TEST_F(BookmarksWizardTest, OffersNothingWhereThereIsNoCategory) {
  drives_.Write("program/Bookmarks", "a file");
  form_ = std::make_unique<BookmarksWizard>(engine_, commands_, false, nullptr);
  ComeForward(*form_);
  ASSERT_TRUE(QTest::qWaitFor([this] { return !dialogs_.messages.empty(); }));
  EXPECT_FALSE(Find<QPushButton>("CmdNext").isEnabled());
  EXPECT_FALSE(Find<QPushButton>("cmdDelCategory").isEnabled());
  EXPECT_TRUE(Find<QPushButton>("cmdAddCategory").isEnabled());
}

TEST_F(BookmarksWizardTest, ReadsTheFolderAnewWhenTheUserComesBack) {
  QWidget other;
  ComeForward(other);
  Open(false);
  Press(Qt::Key_Down);
  WriteCategory("Ambient", "");
  ComeForward(other);
  ComeForward(*form_);
  ASSERT_TRUE(QTest::qWaitFor([this] { return Shown() == "[Ambient]|Default"; })) << Shown();
}

// The prompt for a name and a box that says that its file can't be made are real ones.
TEST_F(BookmarksWizardTest, ANewRowOutlivesThePromptAndTheMessage) {
  QtDialogs real(nullptr, *files_, QStringLiteral("Title"), {});
  Engine engine(fakes_.Over(*files_, feedback_, real), {"QUBLET2021", "c:\\program", ""}, ",");
  OpenOver(engine, false);
  QStringList seen;
  QTimer hand;
  QObject::connect(&hand, &QTimer::timeout, form_.get(), [&] {
    QWidget* modal = QApplication::activeModalWidget();
    if (auto* prompt = qobject_cast<QInputDialog*>(modal)) {
      seen << prompt->labelText();
      prompt->setTextValue(QStringLiteral("AC\\DC"));
      prompt->accept();
    } else if (auto* box = qobject_cast<QMessageBox*>(modal)) {
      EXPECT_EQ(box->parentWidget(), form_.get());
      EXPECT_EQ(Shown(), "Default|[AC\\DC]") << "the row is there already";
      seen << box->text();
      box->accept();
    }
  });
  hand.start(100);
  Press(Qt::Key_Insert);
  hand.stop();
  EXPECT_EQ(seen.join(u'|').toStdString(), "Enter Name of the new category...|Could not update the bookmarks file.");
  QTest::qWait(300);
  EXPECT_EQ(Shown(), "Default|[AC\\DC]");
  form_.reset();
}

}  // namespace
}  // namespace qublet
