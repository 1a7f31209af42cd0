#include <gtest/gtest.h>

#include <QStackedWidget>

#include "support/main_window.h"
#include "support/modal_work.h"

namespace qublet {
namespace {

// The report wizard as it is reached from the menus.
class ReportTest : public testing::Test {
 protected:
  ReportTest() { window.Start(); }
  void OpenList() {
    window.drives.Write("one/a.mp3", "abc");
    window.drives.Write("list.m3u", "c:\\one\\a.mp3\r\nc:\\one\\gone.mp3\r\n");
    window.dialogs.open_names.push_back("c:\\list.m3u");
    window.Run("MFileOpen");
  }
  // Has `look` work in the window that the entry opens; True when there was one.
  bool Open(const std::function<void(QWidget& form)>& look) {
    return WorkInModal([this] { window.Run("MToolsReport"); }, look);
  }

  MainWindow window;
};

TEST_F(ReportTest, ComesFromTheMenuAndGoesToItsEndByTheKeyboard) {
  OpenList();
  window.dialogs.answers = {MessageAnswer::kNo};
  EXPECT_TRUE(Open([&](QWidget& form) {
    EXPECT_EQ(form.objectName().toStdString(), "ReportForm");
    auto& steps = *form.findChild<QStackedWidget*>(QStringLiteral("FrameStep"));
    for (const int step : {1, 2, 4}) {
      QTest::keyClick(&form, Qt::Key_Return);
      EXPECT_EQ(steps.currentIndex(), step);
    }
    QTest::keyClick(&form, Qt::Key_Return);
  }));
  EXPECT_EQ(window.shell.opened, std::vector<std::string>{"c:\\one\\tmp.htm"});
  ASSERT_EQ(window.dialogs.messages.size(), 1U);
  EXPECT_EQ(window.dialogs.messages[0].text, "Do you want to keep the file?");
  EXPECT_EQ(window.drives.Read("one/tmp.htm"), "");
}

TEST_F(ReportTest, StaysAwayFromAnEmptyList) {
  EXPECT_FALSE(Open([](QWidget&) {}));
  ASSERT_EQ(window.dialogs.messages.size(), 1U);
}

}  // namespace
}  // namespace qublet
