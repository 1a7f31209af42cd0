#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTextBrowser>

#include "support/help_book.h"
#include "support/modal_work.h"

namespace qublet {
namespace {

constexpr int kPatience = 20'000;  // milliseconds

// The help as a person uses it beside a modal window, with keys and clicks that come from the display.
class HelpOnADisplay : public testing::Test {
 protected:
  HelpOnADisplay() {
    window.drives.Write("m/a.mp3", kNoise);
    window.drives.Write("list.m3u", "c:\\m\\a.mp3\r\n");
    PutBookInto(window);
    window.Start("\"c:\\list.m3u\"");
  }

  void SetUp() override {
    ASSERT_EQ(QGuiApplication::platformName(), QStringLiteral("xcb")) << "these tests need a display";
    window.main->activateWindow();
    ASSERT_TRUE(ComesForward(*window.main));
  }

  static void Tool(const QStringList& words) {
    QProcess tool;
    tool.start("xdotool", words);
    EXPECT_TRUE(QTest::qWaitFor([&] { return tool.state() == QProcess::NotRunning; }, kPatience));
    EXPECT_EQ(tool.exitCode(), 0) << tool.readAllStandardError().toStdString();
  }
  static void Press(const char* key) { Tool({"key", QString::fromUtf8(key)}); }
  // With the pointer on the middle of it, whatever window is in front there.
  static void Click(const QWidget& widget) {
    const QPoint place = widget.mapToGlobal(widget.rect().center());
    Tool({"mousemove", QString::number(place.x()), QString::number(place.y()), "click", "1"});
  }

  // Over the modal window, so that only the one in front can be clicked.
  static void PutOver(QWidget& help, const QWidget& form) {
    help.move(form.pos());
    EXPECT_TRUE(QTest::qWaitFor([&] { return (help.pos() - form.pos()).manhattanLength() < 60; }));
    QTest::qWait(200);  // the window manager moves it
  }

  static void ReadBeside(QWidget& form, const char* title) {
    Press("F1");
    ASSERT_TRUE(HelpShows(title));
    QWidget& help = *ShownHelp();
    ASSERT_TRUE(ComesForward(help));
    PutOver(help, form);
    Click(*help.findChild<QPushButton*>("cmdContents"));
    EXPECT_TRUE(HelpShows("Contents"));
    Press("alt+Left");
    EXPECT_TRUE(HelpShows(title));
    Press("Escape");
    EXPECT_TRUE(QTest::qWaitFor([] { return ShownHelp() == nullptr; }));
    EXPECT_TRUE(ComesForward(form)) << "the keyboard goes back to the window";
  }

  MainWindow window;
};

TEST_F(HelpOnADisplay, IsReadBesideAModalWindowWhichTakesTheKeyboardAfterwards) {
  EXPECT_TRUE(WorkInModal([&] { window.Run("MToolsSearch"); },
                          [&](QWidget& form) {
                            ReadBeside(form, "Searching the list");
                            Tool({"type", "mp3"});
                            auto& box = *form.findChild<QComboBox*>("txtSearch");
                            EXPECT_TRUE(QTest::qWaitFor([&] { return box.currentText() == QStringLiteral("mp3"); }));
                          }));
}

TEST_F(HelpOnADisplay, IsReadBesideAWindowWithoutATitleBar) {
  EXPECT_TRUE(
      WorkInModal([&] { window.Run("MToolsReport"); }, [&](QWidget& form) { ReadBeside(form, "Writing a report"); }));
}

TEST_F(HelpOnADisplay, ThatIsOpenAlreadyIsReadBesideAModalWindowAndAfterIt) {
  Press("F1");
  ASSERT_TRUE(HelpShows("Contents"));
  QWidget& help = *ShownHelp();
  ASSERT_TRUE(ComesForward(help));
  EXPECT_TRUE(WorkInModal([&] { window.Run("MToolsSearch"); },
                          [&](QWidget& form) {
                            help.move(form.frameGeometry().bottomLeft() + QPoint(0, 40));
                            QTest::qWait(200);
                            Click(*help.findChild<QLineEdit*>("txtFind"));
                            EXPECT_TRUE(ComesForward(help));
                            Tool({"type", "guide"});
                            EXPECT_TRUE(QTest::qWaitFor([&] {
                              return help.findChild<QTextBrowser*>()->textCursor().selectedText() ==
                                     QStringLiteral("guide");
                            }));
                            form.activateWindow();
                            EXPECT_TRUE(ComesForward(form));
                            Press("F1");
                            EXPECT_TRUE(HelpShows("Searching the list"));
                            EXPECT_TRUE(ComesForward(help));
                          }));
  EXPECT_TRUE(help.isVisible());
  Click(*help.findChild<QPushButton*>("cmdContents"));
  EXPECT_TRUE(HelpShows("Contents"));
  window.main->activateWindow();
  EXPECT_TRUE(ComesForward(*window.main));
}

}  // namespace
}  // namespace qublet
