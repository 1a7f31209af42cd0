#include <gtest/gtest.h>

#include <QLineEdit>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>

#include "media/tag_object.h"
#include "support/main_window.h"
#include "support/tag_bytes.h"

namespace qublet {
namespace {

constexpr int kPatience = 20'000;  // milliseconds

// The tag editor opened from the menus, with keys that come from the display as a person's do, while a window manager
// is at work and other programs have windows.
class EditorOnADisplay : public testing::Test {
 protected:
  EditorOnADisplay() {
    for (const char* name : {"a", "b"}) {
      const std::string title = name;
      window.drives.Write(title + ".mp3", TagBytes(3, TextFrameBytes(3, "TIT2", title)) + AudioBytes(20));
    }
    window.drives.Write("list.m3u", "c:\\a.mp3\r\nc:\\b.mp3\r\n");
    window.Start();
    window.dialogs.open_names.push_back("c:\\list.m3u");
    window.Run("MFileOpen");
    window.Rows().SelectWhere([](int index, const Row&) { return index == 1; });
    window.List().setFocus();
    emit window.List().rowsSelected();
  }

  void SetUp() override {
    ASSERT_EQ(QGuiApplication::platformName(), QStringLiteral("xcb")) << "these tests need a display";
    window.main->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.main));
  }

  static void Tool(const QStringList& words) {
    QProcess tool;
    tool.start("xdotool", words);
    EXPECT_TRUE(QTest::qWaitFor([&] { return tool.state() == QProcess::NotRunning; }, kPatience));
    EXPECT_EQ(tool.exitCode(), 0) << tool.readAllStandardError().toStdString();
  }
  static void Press(const QString& key) { Tool({"key", key}); }
  static void Type(const QString& text) { Tool({"type", text}); }

  static QWidget* Editor() {
    QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr && modal->objectName() == u"Id3Info" ? modal : nullptr;
  }
  static QLineEdit& Title() { return *Editor()->findChild<QLineEdit*>(QStringLiteral("ID3v2Title")); }

  // Opens the editor by the keys and has `look` work in it; what it leaves open is closed.
  void Open(const QStringList& keys, const std::function<void()>& look) {
    bool seen = false;
    QTimer::singleShot(0, window.main, [&] {
      for (const QString& key : keys) Press(key);
    });
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, window.main, [&] {
      if (seen || Editor() == nullptr || !Editor()->isActiveWindow()) return;
      seen = true;
      look();
      if (QWidget* editor = Editor()) editor->close();
    });
    watch.start(50);
    EXPECT_TRUE(QTest::qWaitFor([&] { return seen && Editor() == nullptr; }, kPatience));
  }

  void TurnToTitle() {
    Press("ctrl+Page_Down");
    Press("ctrl+Page_Down");
    ASSERT_TRUE(QTest::qWaitFor([] { return Title().isVisible(); }));
    Title().setFocus();
    Title().selectAll();
  }
  std::string TitleOf(const std::string& name) {
    TagObject tag(*window.files);
    tag.ReadTags("c:\\" + name, false);
    return tag.Frame("TIT2");
  }

  MainWindow window;
};

TEST_F(EditorOnADisplay, OpensByItsKeyAndUpdatesByKeysAlone) {
  Open({"ctrl+t"}, [&] {
    TurnToTitle();
    Type("New");
    Press("ctrl+Return");
    EXPECT_TRUE(QTest::qWaitFor([&] { return TitleOf("a.mp3") == "New"; }, kPatience));
    Press("alt+Right");
    EXPECT_TRUE(QTest::qWaitFor([] { return Title().text() == u"b"; }));
    Press("Escape");
    EXPECT_TRUE(QTest::qWaitFor([] { return Editor() == nullptr; }));
  });
  EXPECT_EQ(window.Selected(), "-x");
}

TEST_F(EditorOnADisplay, OpensFromTheMenu) {
  QStringList keys{"alt+e"};
  const QMenu& menu = *window.main->findChild<QMenu*>("MEdit");
  int downs = 0;
  for (const QAction* action : menu.actions()) {
    if (action->objectName() == u"MEditId3") break;
    if (!action->isSeparator() && action->isVisible() && action->isEnabled()) ++downs;
  }
  keys << "Home";
  for (int i = 0; i < downs; ++i) keys << "Down";
  keys << "Return";
  bool opened = false;
  Open(keys, [&] { opened = true; });
  EXPECT_TRUE(opened);
}

TEST_F(EditorOnADisplay, KeepsWhatWasWrittenWhenAMessageClosesOverIt) {
  Open({"ctrl+t"}, [&] {
    TurnToTitle();
    Type("Kept");
    QMessageBox box(Editor());
    box.setText(QStringLiteral("over it"));
    box.open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&box));
    // On a busy machine the window manager may give it the keyboard a little later.
    bool closed = false;
    for (int tries = 0; tries < 3 && !closed; ++tries) {
      Press("Return");
      closed = QTest::qWaitFor([&] { return !box.isVisible(); }, 2000);
    }
    ASSERT_NE(Editor(), nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !box.isVisible() && Editor()->isActiveWindow(); }, kPatience));
    QTest::qWait(300);
    EXPECT_EQ(Title().text().toStdString(), "Kept");
  });
  EXPECT_EQ(TitleOf("a.mp3"), "a");
}

TEST_F(EditorOnADisplay, KeepsWhatWasWrittenWhileAnotherProgramHasTheKeyboard) {
  Open({"ctrl+t"}, [&] {
    TurnToTitle();
    Type("Kept");
    QWidget* editor = Editor();
    QProcess other;
    other.start(QUBLET_DRAG_PEER, {"--in-front"});
    EXPECT_TRUE(QTest::qWaitFor([&] { return !editor->isActiveWindow(); }, kPatience));
    other.kill();
    other.waitForFinished();
    editor->activateWindow();
    Tool({"windowactivate", "--sync", QString::number(editor->winId())});
    EXPECT_TRUE(QTest::qWaitFor([&] { return editor->isActiveWindow(); }, kPatience));
    QTest::qWait(300);
    EXPECT_EQ(Title().text().toStdString(), "Kept");
  });
}

}  // namespace
}  // namespace qublet
