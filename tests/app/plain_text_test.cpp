#include <gtest/gtest.h>

#include <QAccessible>
#include <QClipboard>
#include <QHelpEvent>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QStyledItemDelegate>
#include <QTextDocument>
#include <QTimer>
#include <QToolTip>
#include <QTreeView>
#include <QWindow>
#include <algorithm>

#include "desk/Status.h"
#include "platform/qt/BrowseForm.h"
#include "platform/qt/ShownLabel.h"
#include "platform/qt/qt_dialogs.h"
#include "platform/qt/shown_text.h"
#include "playlist/ui/PlaylistStats.h"
#include "support/main_window.h"

namespace qublet {
namespace {

// Names that would be markup, a picture, a link, or would turn the text around them.
const std::vector<std::string> kHostile{"<img src='file:///dev/zero'>.mp3", "<b>bold</b>.mp3",
                                        "<a href='http://example.org'>link</a>.mp3", "&lt;i&gt; &amp; &x.mp3",
                                        "gpj.\xE2\x80\xAE"
                                        "3pm.mp3"};
const std::vector<std::string> kShown{"<img src='file:///dev/zero'>.mp3", "<b>bold</b>.mp3",
                                      "<a href='http://example.org'>link</a>.mp3", "&lt;i&gt; &amp; &x.mp3",
                                      "gpj.\xEF\xBF\xBD"
                                      "3pm.mp3"};

// What a person reads in a text that the toolkit takes for markup or not, as it sees fit.
std::string Read(const QString& text) {
  if (!Qt::mightBeRichText(text)) return WithoutBreaks(text).toStdString();
  QTextDocument document;
  document.setHtml(text);
  return WithoutBreaks(document.toPlainText().replace(QChar::Nbsp, u' ')).toStdString();
}

std::string FileOf(const std::string& name) {
  const std::size_t slash = name.rfind('/');
  return slash == std::string::npos ? name : name.substr(slash + 1);
}

class PlainText : public testing::Test {
 protected:
  PlainText() {
    std::string lines;
    for (const std::string& name : kHostile) {
      // A "/" can't stand in a name.
      lines += "c:\\gone\\" + FileOf(name) + "\r\n";
    }
    window.drives.Write("list.m3u8", lines);
    window.Start();
    window.Add("c:\\list.m3u8");
    window.Run("MEditSelNone");
  }
  std::string Shown(std::size_t i) { return FileOf(kShown.at(i)); }
  // The tip over a cell, as text; "" when none comes.
  QString TipOver(int row, int column) {
    const QModelIndex index = window.List().model()->index(row - 1, column);
    window.List().scrollTo(index);
    return TipAt(window.List().viewport(), window.List().visualRect(index).center());
  }
  static QString TipAt(QWidget* widget, QPoint point) {
    QToolTip::hideText();
    QTest::qWait(400);  // it fades
    QHelpEvent help(QEvent::ToolTip, point, widget->mapToGlobal(point));
    QCoreApplication::sendEvent(widget, &help);
    return QToolTip::isVisible() ? QToolTip::text() : QString();
  }

  MainWindow window;
};

TEST_F(PlainText, StandsInCellsAndIsSpokenSo) {
  for (std::size_t i = 0; i < kHostile.size(); ++i) {
    const QModelIndex index = window.List().model()->index(static_cast<int>(i), kFileName);
    EXPECT_EQ(index.data().toString().toStdString(), Shown(i));
    EXPECT_EQ(index.data(Qt::AccessibleTextRole).toString().toStdString(), Shown(i) + ", missing");
  }
}

TEST_F(PlainText, StandsInTipsOfCellsThatAreCutOff) {
  window.List().setColumnWidth(kFileName, 30);
  for (std::size_t i = 0; i < kHostile.size(); ++i) {
    const QString tip = TipOver(static_cast<int>(i) + 1, kFileName);
    EXPECT_EQ(Read(tip), Shown(i));
  }
  QToolTip::hideText();
}

TEST_F(PlainText, HasNoTipWhereTheCellShowsAll) {
  window.List().setColumnWidth(kFileName, 400);
  window.List().setColumnWidth(kPath, 200);
  window.main->resize(1400, 400);
  QCoreApplication::processEvents();
  EXPECT_EQ(TipOver(1, kFileName).toStdString(), "");
  EXPECT_EQ(TipOver(1, kPath).toStdString(), "");
  window.List().setColumnWidth(kPath, 20);
  EXPECT_EQ(Read(TipOver(1, kPath)), "c:\\gone\\");
  window.List().setColumnWidth(kLayer, 4);
  window.Rows().SetCell(1, kLayer, "Layer III");
  EXPECT_EQ(Read(TipOver(1, kLayer)), "Layer III") << "of any column";
  QToolTip::hideText();
}

TEST_F(PlainText, StandsInThePanelOfActivity) {
  auto& panel = *window.main->findChild<QLabel*>("Panel4");
  EXPECT_EQ(panel.textFormat(), Qt::PlainText);
  for (std::size_t i = 0; i < kHostile.size(); ++i) {
    window.feedback.ShowActivity(kHostile[i]);
    EXPECT_EQ(panel.text().toStdString(), kShown[i]);
  }
}

TEST_F(PlainText, StandsInTheCaption) {
  for (std::size_t i = 0; i < kHostile.size(); ++i) {
    window.dialogs.save_names = {"c:\\" + FileOf(kHostile[i]) + ".m3u"};
    window.Run("MFileSaveAs");
    EXPECT_NE(window.Caption().find("[" + Shown(i) + ".m3u]"), std::string::npos) << window.Caption();
  }
  window.dialogs.save_names = {"c:\\mix[*].m3u"};
  window.Run("MFileSaveAs");
  const QString title = window.main->windowHandle()->title();
  EXPECT_TRUE(title.contains(QStringLiteral("[mix[*].m3u]"))) << title.toStdString();
}

TEST_F(PlainText, StandsInTheMenuOfRecentFiles) {
  window.document->RecentFiles.clear();
  for (const std::string& name : kHostile) window.document->RecentFiles.push_back("c:\\" + FileOf(name) + "\tx");
  window.dialogs.save_names = {"c:\\newest.m3u"};
  window.Run("MFileSaveAs");
  // The newest is the first.
  for (std::size_t i = 0; i < kHostile.size(); ++i) {
    const QAction* entry = window.Action(("MFileRecent" + std::to_string(kHostile.size() + 1 - i)).c_str());
    const QString wanted = QString::fromStdString(Shown(i)).replace(u'&', QStringLiteral("&&"));
    EXPECT_TRUE(entry->text().contains(wanted + QChar(0x2409) + u'x')) << entry->text().toStdString();
    EXPECT_FALSE(entry->text().contains(u'\t'));
  }
}

TEST_F(PlainText, StandsInTheProgressWindow) {
  Status status(window.main);
  WindowFeedback feedback;
  feedback.ShowIn(*window.main, [](const QString&) {});
  for (std::size_t i = 0; i < kHostile.size(); ++i) {
    feedback.BeginProgress(kHostile[i], 3);
    const auto progress = window.main->findChildren<Status*>();
    EXPECT_TRUE(std::ranges::any_of(progress, [&](const Status* each) {
      return each->windowTitle().toStdString() == kShown[i];
    })) << kShown[i];
    for (const Status* each : progress) {
      EXPECT_NE(each->findChild<QLabel*>("ProgressText")->textFormat(), Qt::RichText);
    }
    feedback.EndProgress();
  }
}

// Real message boxes, looked at while they are open.
class PlainMessages : public testing::Test {
 protected:
  template <typename Look>
  void Show(const std::string& text, Look look) {
    bool seen = false;
    QTimer::singleShot(50, QCoreApplication::instance(), [&] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      ASSERT_NE(box, nullptr);
      look(*box);
      seen = true;
      box->accept();
    });
    dialogs.ShowMessage(text, MessageIcon::kQuestion, MessageButtons::kYesNoCancel);
    EXPECT_TRUE(seen);
  }

  TemporaryDrives drives;
  std::unique_ptr<FileSystem> files = OpenFileSystem();
  QtDialogs dialogs{nullptr, *files, QStringLiteral("Title"), {}};
};

TEST_F(PlainMessages, ShowNamesAsTheyAre) {
  for (std::size_t i = 0; i < kHostile.size(); ++i) {
    Show("c:\\" + kHostile[i] + " exists, do you want to replace it?", [&](QMessageBox& box) {
      EXPECT_EQ(box.textFormat(), Qt::PlainText);
      EXPECT_EQ(WithoutBreaks(box.text()).toStdString(), "c:\\" + kShown[i] + " exists, do you want to replace it?");
    });
  }
}

TEST_F(PlainMessages, StayOnTheScreenWithLongNamesWhole) {
  const std::string name = "The Last Song" + std::string(230, 'W') + ".m3u";
  for (const std::string& folders :
       {std::string("c:\\"), "c:\\" + std::string(200, 'x') + "\\" + std::string(200, 'y') + "\\",
        "c:\\" + std::string(4000, 'z') + "\\"}) {
    Show(folders + name + " exists, do you want to replace it?", [&](QMessageBox& box) {
      const QRect screen = box.screen()->availableGeometry();
      EXPECT_LE(box.width(), screen.width());
      EXPECT_LE(box.height(), screen.height());
      EXPECT_NE(WithoutBreaks(box.text()).toStdString().find(name), std::string::npos);
      // Each line of the text has room in its label.
      const auto* label = box.findChild<QLabel*>("qt_msgbox_label");
      ASSERT_NE(label, nullptr);
      const QRect wanted = label->fontMetrics().boundingRect(QRect(0, 0, label->contentsRect().width(), 100'000),
                                                             Qt::TextWordWrap, label->text());
      EXPECT_LE(wanted.width(), label->contentsRect().width());
      EXPECT_LE(wanted.height(), label->contentsRect().height());
    });
  }
}

TEST_F(PlainMessages, LetWritingFromRightToLeftTurnNothingBesideIt) {
  const std::string shalom = "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D";
  Show("c:\\" + shalom + " 12.m3u exists", [&](QMessageBox& box) {
    EXPECT_EQ(WithoutBreaks(box.text()).toStdString(), "c:\\\xE2\x81\xA8" + shalom + "\xE2\x81\xA9 12.m3u exists");
  });
}

TEST(ShownTextTest, MarksWhatCannotBeSeen) {
  EXPECT_EQ(ShownText("a\tb\x7F\n").toStdString(),
            "a\xE2\x90\x89"
            "b\xE2\x90\xA1\xE2\x90\x8A");
  EXPECT_EQ(ShownText("x\xC2\x85y").toStdString(), "x\xEF\xBF\xBDy");
  constexpr std::u16string_view kUnseen =
      u"\u061C\u200B\u200E\u200F\u2028\u2029\u202A\u202B"
      u"\u202C\u202D\u202E\u2066\u2067\u2068\u2069\uFEFF";
  for (const char16_t letter : kUnseen) {
    EXPECT_EQ(ShownText(QStringView(&letter, 1)), QString(QChar(0xFFFD))) << static_cast<int>(letter);
  }
  EXPECT_EQ(ShownText("\xFF").toStdString(), "\xEF\xBF\xBD");
}

TEST(ShownTextTest, ShowsWhatALetterStandsFor) {
  EXPECT_EQ(ShownText("Part 2\xEF\x80\xBA The \xEF\x81\x9C"
                      "Road")
                .toStdString(),
            "Part 2: The \\Road");
  EXPECT_EQ(ShownText("\xEF\x80\x8A").toStdString(), "\xE2\x90\x8A");
  EXPECT_EQ(ShownText("\xEF\x9F\xA9").toStdString(), "\xEF\xBF\xBD") << "a byte that is no text";
}

TEST(ShownTextTest, LeavesTheWritingOfAllLanguages) {
  for (const char* text : {"Caf\xC3\xA9", "\xE2\x80\x94\xE2\x80\xA6", "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D",
                           "\xE0\xB8\x94\xE0\xB8\x99", "\xF0\x9F\x8E\xB5", "\xD9\x86\xE2\x80\x8C\xD9\x87"}) {
    EXPECT_EQ(ShownText(text).toStdString(), text);
  }
}

TEST(ShownTextTest, KeepsStarsInBracketsInCaptions) {
  QWidget widget;
  for (const char* name : {"mix[*].m3u", "[*][*]", "[*]", "a [*] b [*] c", "plain"}) {
    widget.setWindowTitle(ShownCaption(name));
    widget.show();
    EXPECT_EQ(widget.windowHandle()->title().toStdString().substr(0, std::string(name).size()), name);
  }
}

TEST(ShownLabelTest, IsCopiedWithoutItsPlacesToBreak) {
  const std::string path = "c:\\music\\" + std::string(60, 'n') + "\\x.mp3";
  ShownLabel label;
  label.Show(path);
  EXPECT_NE(label.text().toStdString(), path);
  label.setSelection(0, static_cast<int>(label.text().size()));
  QGuiApplication::clipboard()->clear();
  QTest::keySequence(&label, QKeySequence::Copy);
  EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), path);
}

TEST(BrowseFormTest, ShowsNamesAsPlainText) {
  TemporaryDrives drives;
  drives.Write(
      "top/gpj.\xE2\x80\xAE"
      "3pm.mp3",
      "abc");
  BrowseForm form(QStringLiteral("Select"), {QStringLiteral("*.mp3")}, {}, nullptr);
  const QString file =
      QString::fromStdString(OpenFileSystem()->ToNative("c:\\top\\gpj.\xE2\x80\xAE"
                                                        "3pm.mp3"));
  form.Preselect(file);
  auto& tree = *form.findChild<QTreeView*>("FolderTree");
  auto* delegate = qobject_cast<QStyledItemDelegate*>(tree.itemDelegate());
  ASSERT_NE(delegate, nullptr);
  EXPECT_TRUE(QTest::qWaitFor([&] { return tree.currentIndex().isValid(); })) << "the tree fills by and by";
  EXPECT_EQ(delegate->displayText(tree.currentIndex().data(), QLocale()).toStdString(),
            "gpj.\xEF\xBF\xBD"
            "3pm.mp3");
  EXPECT_EQ(form.Chosen(), QDir::fromNativeSeparators(file)) << "what is chosen is the file";
}

}  // namespace
}  // namespace qublet
