#include "tools/search/ui/frmSearch.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <memory>

#include "support/editor_test_base.h"
#include "support/row_texts.h"

namespace qublet {
namespace {

// The search window over five rows, three of which hold an "a".
class SearchFormTest : public EditorTestBase {
 protected:
  SearchFormTest() { Rows().Insert(1, NamedRows({"a1", "b1", "A2", "b2", "xa3"})); }

  void Open() {
    if (!form_) form_ = std::make_unique<frmSearch>(engine_, nullptr);
    form_->show();
    form_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(form_.get()));
  }
  template <typename Control>
  Control& Find(const char* name) {
    auto* control = form_->findChild<Control*>(QString::fromUtf8(name));
    if (control == nullptr) throw std::runtime_error(std::string("no control ") + name);
    return *control;
  }
  QComboBox& Box() { return Find<QComboBox>("txtSearch"); }
  std::string Text() { return Box().currentText().toStdString(); }
  std::string Caption() { return form_->windowTitle().toStdString(); }
  void Press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
  // As the keyboard sends it, to the window.
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(form_->windowHandle(), key, modifiers);
  }
  void Type(const char* text) {
    Box().setFocus();
    Box().lineEdit()->selectAll();
    QTest::keyClicks(&Box(), QString::fromUtf8(text));
  }
  void Click(const char* name) { QTest::mouseClick(&Find<QPushButton>(name), Qt::LeftButton); }
  // Pops up the menu of options and clicks the entry there.
  void Choose(const char* name) {
    Click("cmdOptions");
    ASSERT_TRUE(Find<QMenu>("Moptions").isVisible());
    auto& entry = Find<QAction>(name);
    auto* menu = qobject_cast<QMenu*>(entry.parent());
    ASSERT_NE(menu, nullptr);
    menu->popup(form_->mapToGlobal(QPoint(20, 20)));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(menu));
    QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(&entry).center());
    Find<QMenu>("Moptions").close();
  }
  std::string History() {
    QStringList texts;
    for (int i = 0; i < Box().count(); ++i) texts << Box().itemText(i);
    return texts.join(u'|').toStdString();
  }
  std::string Usable() {
    std::string letters;
    for (const char* name : {"cmdSelAl", "cmdNext", "cmdBack", "cmdPreview"})
      letters += Find<QPushButton>(name).isEnabled() ? 'x' : '-';
    return letters;
  }

  std::unique_ptr<frmSearch> form_;
};

TEST_F(SearchFormTest, HasTheGivenCaptionsAndHints) {
  Open();
  EXPECT_EQ(Caption(), "Search Playlist...");
  struct Button {
    const char* name;
    const char* text;
    const char* hint;
  };
  for (const Button& button : {Button{"cmdSelAl", "&Find All>", "Select all matching items"},
                               {"cmdNext", "Next>", "Step forward through matching items"},
                               {"cmdBack", "<Prev", "Step backward through matching items (Shift+F3)"},
                               {"cmdPreview", "Listen", "Preview the selected items"},
                               {"cmdOptions", "Options>", "What is searched, and how"},
                               {"cmdClose", "&Close", "Close this window (Esc)"}}) {
    EXPECT_EQ(Find<QPushButton>(button.name).text().toStdString(), button.text);
    EXPECT_EQ(Find<QPushButton>(button.name).toolTip().toStdString(), button.hint);
  }
}

TEST_F(SearchFormTest, HasTheMenuOfOptions) {
  Open();
  Click("cmdOptions");
  auto& menu = Find<QMenu>("Moptions");
  EXPECT_TRUE(menu.isVisible());
  EXPECT_EQ(menu.title().toStdString(), "Options>>");
  std::string text;
  const auto add = [&](const QMenu& entries) {
    for (const QAction* entry : entries.actions()) {
      const QString name = entry->menu() != nullptr ? entry->menu()->objectName() : entry->objectName();
      const char* tick = !entry->isCheckable() ? "   " : entry->isChecked() ? "[x]" : "[ ]";
      text += tick + (" " + name + " " + entry->text()).toStdString() + "\n";
    }
  };
  add(menu);
  add(Find<QMenu>("MColumns"));
  EXPECT_EQ(text,
            "[ ] Mselonly Search Only Selected...\n[ ] Mcasesensitive Case Sensitive...\n"
            "[x] Mkeepalive Keep Alive...\n    MColumns Search In..\n    MReselect Reselect Original Items...\n"
            "[x] MFilename Filename\n[x] Mfolder Folder\n[ ] Mtime Time\n[ ] MSize Size\n[ ] Mid Id\n"
            "[ ] MLayer Layer\n[ ] Mbitrate Bitrate\n[ ] Msamplerate Sample Rate\n[ ] Mmode Mode\n");
}

TEST_F(SearchFormTest, BeginsInItsBoxWithNothingToPress) {
  Open();
  EXPECT_EQ(Text(), "");
  EXPECT_EQ(QApplication::focusWidget(), &Box());
  EXPECT_EQ(Usable(), "----");
  Click("cmdNext");
  EXPECT_EQ(Caption(), "Search Playlist...");
  EXPECT_TRUE(form_->isVisible());
}

TEST_F(SearchFormTest, EnterInTheBoxSelectsAllAndStaysOpen) {
  Open();
  Type("a");
  EXPECT_EQ(Usable(), "xxxx");
  Press(Qt::Key_Return);
  EXPECT_EQ(Selection(), "x-x-x");
  EXPECT_EQ(Caption(), "Found: 3 Items.");
  EXPECT_TRUE(form_->isVisible());
  Press(Qt::Key_Enter);
  EXPECT_EQ(Caption(), "Found: 3 Items.");
  EXPECT_TRUE(form_->isVisible());
}

TEST_F(SearchFormTest, EnterInAnEmptyBoxAsksForAText) {
  Open();
  Press(Qt::Key_Return);
  EXPECT_EQ(Caption(), "Enter a search string...");
  EXPECT_EQ(QApplication::focusWidget(), &Box());
  EXPECT_TRUE(form_->isVisible());
}

TEST_F(SearchFormTest, EnterNeverClosesTheWindow) {
  Open();
  Type("a");
  for (const char* name : {"cmdSelAl", "cmdBack", "cmdNext", "cmdPreview", "cmdOptions", "cmdClose"}) {
    Find<QPushButton>(name).setFocus();
    Press(Qt::Key_Return);
    EXPECT_TRUE(form_->isVisible()) << name;
  }
}

TEST_F(SearchFormTest, StepsByButtonsAndKeys) {
  Open();
  Type("a");
  std::string steps;
  const auto note = [&] { steps += Caption() + " " + Selection() + "\n"; };
  Click("cmdNext");
  note();
  Key(Qt::Key_F3);
  note();
  Click("cmdBack");
  note();
  Key(Qt::Key_F3, Qt::ShiftModifier);
  note();
  Find<QPushButton>("cmdNext").setFocus();
  Press(Qt::Key_Space);
  note();
  EXPECT_EQ(steps,
            "Selected: 1/3 Items. x----\nSelected: 2/3 Items. --x--\nSelected: 1/3 Items. x----\n"
            "Selected: 3/3 Items. ----x\nSelected: 1/3 Items. x----\n");
}

TEST_F(SearchFormTest, FindAllHasItsKey) {
  Open();
  Type("b");
  Key(Qt::Key_F, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return Selection() == "-x-x-"; }));
}

TEST_F(SearchFormTest, TypingBringsTheCaptionBack) {
  Open();
  Type("a");
  Press(Qt::Key_Return);
  QTest::keyClicks(&Box(), QStringLiteral("1"));
  EXPECT_EQ(Caption(), "Search Playlist...");
  EXPECT_EQ(Usable(), "xxxx");
  Box().lineEdit()->selectAll();
  Press(Qt::Key_Delete);
  EXPECT_EQ(Usable(), "----");
}

TEST_F(SearchFormTest, GoesBackToTheBoxWhenNothingIsFound) {
  Open();
  Type("zz");
  Click("cmdNext");
  EXPECT_EQ(Caption(), "Found: 0 Items.");
  EXPECT_EQ(Usable(), "----");
  EXPECT_EQ(QApplication::focusWidget(), &Box());
}

TEST_F(SearchFormTest, KeepsWhatWasFoundInItsList) {
  Open();
  for (const char* text : {"b1", "zz", "B1", "b1", "A"}) {
    Type(text);
    Press(Qt::Key_Return);
    EXPECT_EQ(Text(), text);
  }
  EXPECT_EQ(History(), "b1|B1|A");
  EXPECT_EQ(Caption(), "Found: 3 Items.");
}

TEST_F(SearchFormTest, TypingCompletesNothing) {
  Open();
  Type("xa3");
  Press(Qt::Key_Return);
  Type("x");
  EXPECT_EQ(Text(), "x");
  Press(Qt::Key_Return);
  EXPECT_EQ(History(), "xa3|x");
}

TEST_F(SearchFormTest, AnEntryOfItsListIsANewSearch) {
  Open();
  Type("b");
  Press(Qt::Key_Return);
  Type("a");
  Press(Qt::Key_Return);
  Press(Qt::Key_Up);
  EXPECT_EQ(Text(), "b");
  EXPECT_EQ(Caption(), "Search Playlist...");
  Press(Qt::Key_Return);
  EXPECT_EQ(Selection(), "-x-x-");
  EXPECT_EQ(History(), "b|a");
}

TEST_F(SearchFormTest, EachTickIsFlippedAndSeenToAct) {
  Open();
  Type("a2");
  Press(Qt::Key_Return);
  EXPECT_EQ(Caption(), "Found: 1 Items.");
  Choose("Mcasesensitive");
  EXPECT_TRUE(Find<QAction>("Mcasesensitive").isChecked());
  EXPECT_EQ(Caption(), "Search Playlist...");
  Press(Qt::Key_Return);
  EXPECT_EQ(Caption(), "Found: 0 Items.");
  Choose("Mcasesensitive");
  Choose("MFilename");
  Press(Qt::Key_Return);
  EXPECT_EQ(Caption(), "Found: 0 Items.");
  Choose("MFilename");
  Choose("Mselonly");
  Select("----x");
  Press(Qt::Key_Return);
  EXPECT_EQ(Caption(), "Found: 0 Items.");
}

TEST_F(SearchFormTest, EachColumnCanBeSearched) {
  const std::vector<std::pair<const char*, Column>> columns{{"MFilename", kFileName},
                                                            {"Mfolder", kPath},
                                                            {"Mtime", kTime},
                                                            {"MSize", kSize},
                                                            {"Mid", kId},
                                                            {"MLayer", kLayer},
                                                            {"Mbitrate", kBitrate},
                                                            {"Msamplerate", kSamplerate},
                                                            {"Mmode", kMode}};
  Open();
  Choose("MFilename");
  Choose("Mfolder");
  Type("wanted");
  for (const auto& [name, column] : columns) {
    Rows().SetCell(2, column, "what is wanted");
    Choose(name);
    Press(Qt::Key_Return);
    EXPECT_EQ(Caption(), "Found: 1 Items.") << name;
    Choose(name);
    Press(Qt::Key_Return);
    EXPECT_EQ(Caption(), "Found: 0 Items.") << name;
  }
}

TEST_F(SearchFormTest, KeepAliveIsFlippedWithoutANewSearch) {
  Open();
  Type("a");
  Press(Qt::Key_Return);
  Choose("Mkeepalive");
  EXPECT_EQ(Caption(), "Found: 3 Items.");
  EXPECT_FALSE(form_->KeepsAlive());
  Choose("Mkeepalive");
  EXPECT_TRUE(form_->KeepsAlive());
}

TEST_F(SearchFormTest, TheMenuIsReachedByKeys) {
  Open();
  Find<QPushButton>("cmdOptions").setFocus();
  Press(Qt::Key_Space);
  auto& menu = Find<QMenu>("Moptions");
  ASSERT_TRUE(menu.isVisible());
  QTest::keyClick(&menu, Qt::Key_Down);
  QTest::keyClick(&menu, Qt::Key_Down);
  QTest::keyClick(&menu, Qt::Key_Return);
  EXPECT_TRUE(Find<QAction>("Mcasesensitive").isChecked());
  EXPECT_TRUE(form_->isVisible());
}

TEST_F(SearchFormTest, ReselectsWhatWasSelected) {
  Select("-x--x");
  Open();
  Type("A2");
  Press(Qt::Key_Return);
  EXPECT_EQ(Selection(), "--x--");
  Choose("MReselect");
  EXPECT_EQ(Selection(), "-x--x");
  EXPECT_FALSE(Find<QAction>("MReselect").isCheckable());
}

TEST_F(SearchFormTest, ItsMenuAndMessageBoxesDoNotActivateIt) {
  Open();
  Type("a");
  Press(Qt::Key_Return);
  Click("cmdOptions");
  QTest::keyClick(&Find<QMenu>("Moptions"), Qt::Key_Escape);
  QMessageBox box(form_.get());
  box.setText(QStringLiteral("a question"));
  box.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
  box.close();
  ASSERT_TRUE(QTest::qWaitForWindowActive(form_.get()));
  EXPECT_EQ(Caption(), "Found: 3 Items.");
}

TEST_F(SearchFormTest, ComesUpAgainWithItsTextOptionsAndHistory) {
  Open();
  Type("a");
  Press(Qt::Key_Return);
  Choose("Mcasesensitive");
  Find<QPushButton>("cmdNext").setFocus();
  Click("cmdClose");
  EXPECT_FALSE(form_->isVisible());
  Open();
  EXPECT_EQ(Caption(), "Search Playlist...");
  EXPECT_EQ(Text(), "a");
  EXPECT_EQ(Box().lineEdit()->selectedText().toStdString(), "a") << "so that another can be typed at once";
  EXPECT_EQ(QApplication::focusWidget(), &Box());
  EXPECT_EQ(History(), "a");
  EXPECT_TRUE(Find<QAction>("Mcasesensitive").isChecked());
  EXPECT_EQ(Usable(), "xxxx");
}

TEST_F(SearchFormTest, EscapeAndTheCloseBoxAreTheSameAsClose) {
  Open();
  Press(Qt::Key_Escape);
  EXPECT_FALSE(form_->isVisible());
  Open();
  form_->close();
  EXPECT_FALSE(form_->isVisible());
  Open();
  Key(Qt::Key_C, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return !form_->isVisible(); }));
}

TEST_F(SearchFormTest, TheTabKeyFollowsTheEye) {
  Open();
  Type("a");
  QStringList order;
  for (int step = 0; step < 7; ++step) {
    order << QApplication::focusWidget()->objectName();
    Press(Qt::Key_Tab);
  }
  EXPECT_EQ(order.join(u' ').toStdString(), "txtSearch cmdOptions cmdSelAl cmdBack cmdNext cmdPreview cmdClose");
  EXPECT_EQ(QApplication::focusWidget(), &Box());
}

}  // namespace
}  // namespace qublet
