#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>

#include "support/main_window.h"

namespace qublet {
namespace {

// The rename window as it is reached from the menus.
class RenameTest : public testing::Test {
 protected:
  RenameTest() {
    for (const char* name : {"a_1.mp3", "a_2.mp3"}) window.drives.Write(name, name);
    window.Start();
    window.drives.Write("list.m3u", "c:\\a_1.mp3\r\nc:\\a_2.mp3\r\n");
    window.dialogs.open_names.push_back("c:\\list.m3u");
    window.Run("MFileOpen");
    window.Run("MEditSelAll");
  }

  // Opens the window by its entry and has `look` work in it; what it leaves open is closed.
  void Open(const std::function<void(QWidget& form)>& look) {
    bool seen = false;
    QTimer::singleShot(0, window.main, [&] {
      QWidget* form = QApplication::activeModalWidget();
      ASSERT_NE(form, nullptr);
      const auto* report = form->findChild<QLabel*>(QStringLiteral("lbReport"));
      EXPECT_TRUE(QTest::qWaitFor([&] { return report->text() == u"2 Items Selected."; }));
      seen = true;
      look(*form);
      form->close();
    });
    window.Run("MToolsRename");
    EXPECT_TRUE(seen);
  }
  static void Click(const QWidget& form, const char* name) {
    QTest::mouseClick(form.findChild<QPushButton*>(QString::fromUtf8(name)), Qt::LeftButton);
  }
  std::string Names() { return window.Rows().At(1).cells[kFileName] + "|" + window.Rows().At(2).cells[kFileName]; }

  MainWindow window;
};

TEST_F(RenameTest, TheEntryOpensTheWindowThatRenames) {
  window.dialogs.answers = {MessageAnswer::kYes};
  Open([&](QWidget& form) {
    EXPECT_EQ(form.objectName().toStdString(), "RenameForm");
    Click(form, "CmdProcess");
  });
  EXPECT_EQ(Names(), "A 1.mp3|A 2.mp3");
  EXPECT_EQ(window.drives.Read("A 1.mp3"), "a_1.mp3");
  EXPECT_TRUE(window.document->PlaylistChanged);
}

TEST_F(RenameTest, TheWindowKeepsItsStateAndItsUndo) {
  window.dialogs.answers = {MessageAnswer::kYes};
  QWidget* first = nullptr;
  Open([&](QWidget& form) {
    first = &form;
    Click(form, "CmdProcess");
  });
  Open([&](QWidget& form) {
    EXPECT_EQ(&form, first);
    Click(form, "cmdUndo");
  });
  EXPECT_EQ(Names(), "a_1.mp3|a_2.mp3");
  EXPECT_EQ(window.drives.Read("a_1.mp3"), "a_1.mp3");
}

TEST_F(RenameTest, AnUnsavedListIsAskedAboutAfterARun) {
  window.dialogs.answers = {MessageAnswer::kYes, MessageAnswer::kCancel};
  Open([&](QWidget& form) { Click(form, "CmdProcess"); });
  window.Run("MFileNew");
  EXPECT_EQ(window.dialogs.messages.size(), 2u);
  EXPECT_EQ(window.Rows().Count(), 2);
}

}  // namespace
}  // namespace qublet
