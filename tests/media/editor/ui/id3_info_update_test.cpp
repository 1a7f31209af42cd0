#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <QToolBar>

#include "support/id3_info_test_base.h"

namespace qublet {
namespace {

// Does something at the n-th painting of a widget.
class AtPainting : public QObject {
 public:
  AtPainting(QWidget& widget, std::function<void(int)> act) : QObject(&widget), act_(std::move(act)) {
    widget.installEventFilter(this);
  }
  int paintings = 0;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) act_(++paintings);
    return QObject::eventFilter(watched, event);
  }

 private:
  std::function<void(int)> act_;
};

class Id3InfoUpdateTest : public Id3InfoTestBase {
 protected:
  void AddMany(int count) {
    std::vector<std::string> names;
    for (int i = 0; i < count; ++i) names.push_back("many" + std::to_string(i) + ".mp3");
    for (const std::string& name : names) drives_.Write(name, TaggedSong(name));
    AddRows(names);
  }
  int Stripped(int count) const {
    int stripped = 0;
    for (int i = 0; i < count; ++i)
      stripped += drives_.Read("many" + std::to_string(i) + ".mp3") == AudioBytes(20) ? 1 : 0;
    return stripped;
  }
  // Posts it as the window system does.
  void Press(Qt::Key key) {
    QCoreApplication::postEvent(editor_->windowHandle(), new QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier));
    QCoreApplication::postEvent(editor_->windowHandle(), new QKeyEvent(QEvent::KeyRelease, key, Qt::NoModifier));
  }
};

TEST_F(Id3InfoUpdateTest, WritesWhatTheBoxesHold) {
  Open("x----");
  Box("ID3v1Title").setText(QStringLiteral("Été"));
  Box("ID3v1Track").setText(QStringLiteral("12"));
  Find<QComboBox>("ID3v1Genre").setCurrentIndex(1);
  Box("ID3v2Artist").clear();
  Find<QComboBox>("ID3v2Genre").setEditText(QStringLiteral("(17)Odd"));
  Box("ID3v2Mood").setText(QStringLiteral("Wild"));
  Find<QPlainTextEdit>("ID3v2Lyrics").setPlainText(QStringLiteral("la\nla"));
  Click("CmdUpdate");
  const TagObject tag = Loaded("1.mp3");
  EXPECT_EQ(tag.V1Title(), "Été");
  EXPECT_EQ(tag.V1Track(), 12);
  EXPECT_EQ(tag.V1Genre(), 0);
  EXPECT_EQ(tag.Frame("TPE1"), "");
  EXPECT_EQ(tag.Frame("TCON"), "(17)Odd");
  EXPECT_EQ(tag.Mood(), "Wild");
  EXPECT_EQ(tag.Frame("USLT"), "la\nla");
  EXPECT_EQ(Find<QProgressBar>("ProgressBar1").value(), 0);
  EXPECT_EQ(Find<QProgressBar>("ProgressBar1").maximum(), 2);
}

TEST_F(Id3InfoUpdateTest, KeepsATextByteForByteThatNobodyTouched) {
  const std::string lyrics =
      "one\r\ntwo\xC2\xA0"
      "three";
  TagObject tag = Loaded("1.mp3");
  tag.SetFrame("USLT", lyrics);
  tag.SetFrame("TALB", "two\nlines");
  tag.SetV1Genre(0);
  tag.Write("c:\\1.mp3", TagStep::kWrite, TagStep::kWrite);
  const std::string before = drives_.Read("1.mp3");
  Open("x----");
  Click("CmdUpdate");
  EXPECT_EQ(drives_.Read("1.mp3"), before);
}

TEST_F(Id3InfoUpdateTest, TellsAFailureAndLeavesTheWindowOpen) {
  SetReadOnly("1.mp3", true);
  Open("x----");
  Box("ID3v2Title").setText(QStringLiteral("New"));
  Click("CmdUpdate");
  ASSERT_EQ(fakes_.dialogs.messages.size(), 1u);
  EXPECT_EQ(fakes_.dialogs.messages[0].text,
            "Failed to update the file!, check that it is not in use or set as Read-Only.");
  EXPECT_TRUE(editor_->isVisible());
  EXPECT_EQ(Text("ID3v2Title"), "1.mp3") << "the file is read again";
}

TEST_F(Id3InfoUpdateTest, GoesOnPaintingAndTakesNoOtherInput) {
  AddMany(120);
  Open("-----" + std::string(120, 'x'));
  std::vector<int> values;
  auto& bar = Find<QProgressBar>("ProgressBar1");
  AtPainting painting(bar, [&](int) {
    values.push_back(bar.value());
    Press(Qt::Key_Return);
    Press(Qt::Key_Space);
    QCoreApplication::postEvent(editor_.get(), new QCloseEvent);
  });
  Button("CmdClose").setFocus();
  Click("CmdUpdate");
  EXPECT_EQ(Stripped(120), 120);
  EXPECT_GE(painting.paintings, 3);
  EXPECT_TRUE(std::is_sorted(values.begin(), values.end() - 1));
  EXPECT_TRUE(editor_->isVisible());
}

TEST_F(Id3InfoUpdateTest, IsStoppedByEscapeAndStaysOpen) {
  AddMany(200);
  Open("-----" + std::string(200, 'x'));
  AtPainting painting(Find<QProgressBar>("ProgressBar1"), [&](int count) {
    if (count == 3) Press(Qt::Key_Escape);
  });
  Click("CmdUpdate");
  const int stripped = Stripped(200);
  EXPECT_GT(stripped, 0);
  EXPECT_LT(stripped, 200);
  EXPECT_TRUE(editor_->isVisible());
  EXPECT_TRUE(fakes_.dialogs.messages.empty());
  for (int i = 0; i < 200; ++i) {
    const std::string name = "many" + std::to_string(i) + ".mp3";
    const std::string content = drives_.Read(name);
    EXPECT_TRUE(content == AudioBytes(20) || content == TaggedSong(name)) << name;
  }
}

TEST_F(Id3InfoUpdateTest, CanBeUndoneFromTheToolbar) {
  Open("x----");
  QAction& undo = *Find<QToolBar>("Toolbar1").actions().constLast();
  EXPECT_FALSE(undo.isEnabled());
  Box("ID3v2Title").setText(QStringLiteral("New"));
  Click("CmdUpdate");
  EXPECT_TRUE(undo.isEnabled());
  Key(Qt::Key_Z, Qt::ControlModifier | Qt::AltModifier);
  EXPECT_EQ(drives_.Read("1.mp3"), TaggedSong("1.mp3"));
  EXPECT_EQ(Text("ID3v2Title"), "1.mp3");
  EXPECT_EQ(Label("lblReport"), "Update undone: 1 file.");
  EXPECT_FALSE(undo.isEnabled());
}

TEST_F(Id3InfoUpdateTest, RunsTheSameFromTheToolbar) {
  std::filesystem::create_directories(drives_.C() / "program");
  Open("x----");
  const auto actions = Find<QToolBar>("Toolbar1").actions();
  Box("ID3v2Title").setText(QStringLiteral("New"));
  actions[0]->trigger();
  EXPECT_EQ(Text("ID3v2Title"), "1.mp3");
  actions[1]->trigger();
  EXPECT_TRUE(actions[2]->isEnabled());
  Box("ID3v2Title").setText(QStringLiteral("New"));
  actions[2]->trigger();
  EXPECT_EQ(Text("ID3v2Title"), "1.mp3");
  Box("ID3v2Title").setText(QStringLiteral("New"));
  actions[3]->trigger();
  EXPECT_EQ(Loaded("1.mp3").Frame("TIT2"), "New");
  actions[5]->trigger();
  EXPECT_EQ(fakes_.shell.opened.size(), 1u);
  actions[6]->trigger();
  EXPECT_EQ(fakes_.shell.addresses.size(), 1u);
  actions[9]->trigger();
  EXPECT_EQ(Selection(), "-x---");
  actions[8]->trigger();
  EXPECT_EQ(Selection(), "x----");
}

}  // namespace
}  // namespace qublet
