#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include "support/main_window.h"

namespace qublet {
namespace {

// The purge window as it is reached from the menus.
class PurgeTest : public testing::Test {
 protected:
  PurgeTest() {
    window.drives.Write("a.mp3", kNoise);
    window.drives.Write("new/b.mp3", kNoise);
    window.Start();
    window.drives.Write("list.m3u", "c:\\a.mp3\r\nc:\\old\\b.mp3\r\nc:\\a.mp3\r\n");
    window.dialogs.open_names.push_back("c:\\list.m3u");
    window.Run("MFileOpen");
  }

  // Opens the window by its entry and has `look` work in it; what it leaves open is closed.
  void Open(const std::function<void(QWidget& form)>& look) {
    bool seen = false;
    QTimer::singleShot(0, window.main, [&] {
      QWidget* form = QApplication::activeModalWidget();
      ASSERT_NE(form, nullptr);
      const auto* report = form->findChild<QLabel*>(QStringLiteral("lbReport"));
      EXPECT_TRUE(QTest::qWaitFor([&] { return report->text() == u"Done: No items were restored..."; }));
      seen = true;
      look(*form);
      form->close();
    });
    window.Run("MToolsFilter");
    EXPECT_TRUE(seen);
  }
  static void Click(const QWidget& form, const char* name) {
    QTest::mouseClick(form.findChild<QPushButton*>(QString::fromUtf8(name)), Qt::LeftButton);
  }

  MainWindow window;
};

TEST_F(PurgeTest, TheEntryOpensTheWindowThatRemovesMissingItems) {
  Open([&](QWidget& form) {
    EXPECT_EQ(form.objectName().toStdString(), "FilterForm");
    Click(form, "CmdSearch");
  });
  EXPECT_EQ(window.Names(), "a.mp3 a.mp3");
  EXPECT_TRUE(window.document->PlaylistChanged);
}

TEST_F(PurgeTest, TheWindowBeginsAnewEachTime) {
  int first = -1;
  Open([&](QWidget& form) {
    auto* action = form.findChild<QComboBox*>(QStringLiteral("MissAction"));
    first = action->currentIndex();
    QTest::keyClick(action, Qt::Key_Home);
    EXPECT_NE(action->currentIndex(), first);
    Click(form, "CmdSearch");
  });
  EXPECT_EQ(window.Selected(), "-x-");
  EXPECT_EQ(window.Panel(1), "Track: 2/3");
  Open([&](QWidget& form) {
    EXPECT_EQ(form.findChild<QComboBox*>(QStringLiteral("MissAction"))->currentIndex(), first);
  });
}

TEST_F(PurgeTest, AnUnsavedListIsAskedAboutAfterwards) {
  window.dialogs.answers = {MessageAnswer::kCancel};
  Open([&](QWidget& form) { Click(form, "CmdSearch"); });
  window.Run("MFileNew");
  EXPECT_EQ(window.dialogs.messages.size(), 1u);
  EXPECT_EQ(window.Rows().Count(), 2);
}

}  // namespace
}  // namespace qublet
