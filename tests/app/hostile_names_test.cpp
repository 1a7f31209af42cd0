#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocument>

#include "media/tag_object.h"
#include "support/main_window.h"
#include "support/modal_work.h"
#include "support/tag_bytes.h"

namespace qublet {
namespace {

const std::string kMarkup = "<img src='pipe'><b>bold</b><a href='x'>link</a>";
const char* const kNames[] = {"<img src='pipe'>.mp3", "<b>bold<b> <a href='x'>link<a>.mp3",
                              "<b>\u202E3pm.exe\u202C.mp3"};

// A picture, a link or an emphasis that this document would show.
bool ShowsMarkup(const QTextDocument& document) {
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    for (auto part = block.begin(); !part.atEnd(); ++part) {
      const QTextCharFormat format = part.fragment().charFormat();
      if (format.isImageFormat() || format.isAnchor() || format.fontWeight() > QFont::Normal) return true;
    }
  }
  return false;
}

// What a tip or a label makes of a text whose format is left to it.
bool ShowsMarkup(const QString& text) {
  if (!Qt::mightBeRichText(text)) return false;
  QTextDocument document;
  document.setHtml(text);
  return ShowsMarkup(document);
}

// Whether characters steer the order of others. The isolates that messages set around what runs from right to left
// don't: they end where they began.
bool TurnsOthers(const QString& text) {
  return std::any_of(text.begin(), text.end(), [](QChar letter) {
    return (letter >= QChar(0x202A) && letter <= QChar(0x202E)) || letter == QChar(0x2066) ||
           letter == QChar(0x2067) || letter == QChar(0x200E) || letter == QChar(0x200F) || letter == QChar(0x061C);
  });
}

// All that a window shows and that could hold a name; says where one is taken for markup, or turns what is beside it.
class Sweep {
 public:
  explicit Sweep(const QWidget& form) {
    Look(form);
    for (const QWidget* widget : form.findChildren<QWidget*>()) Look(*widget);
  }
  // How often one of the names, or the tag, was come by.
  int hostile = 0;

 private:
  void Look(const QWidget& widget) {
    const std::string where = widget.objectName().toStdString();
    CheckTip(widget.toolTip(), where);
    CheckTip(widget.whatsThis(), where);
    Count(widget.windowTitle(), where);
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
      Count(label->text(), where);
      if (label->textFormat() != Qt::PlainText) CheckTip(label->text(), where);
    }
    if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) {
      // What can be edited is what the file holds.
      line->isReadOnly() ? Count(line->text(), where) : Count(line->text());
    }
    if (const auto* browser = qobject_cast<const QTextBrowser*>(&widget)) {
      Count(browser->toPlainText(), where);
      EXPECT_FALSE(ShowsMarkup(*browser->document())) << where;
    }
    if (const auto* view = qobject_cast<const QAbstractItemView*>(&widget);
        view != nullptr && view->model() != nullptr)
      Look(*view->model(), {}, where);
  }
  void Look(const QAbstractItemModel& model, const QModelIndex& parent, const std::string& where) {
    for (int row = 0; row < model.rowCount(parent); ++row) {
      for (int column = 0; column < model.columnCount(parent); ++column) {
        const QModelIndex index = model.index(row, column, parent);
        Count(index.data().toString(), where);
        CheckTip(index.data(Qt::ToolTipRole).toString(), where);
        if (column == 0) Look(model, index, where);
      }
    }
  }
  void Count(const QString& text) {
    if (text.contains(u"<img") || text.contains(u"<b>")) ++hostile;
  }
  void Count(const QString& text, const std::string& where) {
    Count(text);
    EXPECT_FALSE(TurnsOthers(text)) << where << ": " << text.toStdString();
  }
  void CheckTip(const QString& text, const std::string& where) {
    EXPECT_FALSE(ShowsMarkup(text)) << where << ": " << text.toStdString();
    EXPECT_FALSE(TurnsOthers(text)) << where << ": " << text.toStdString();
  }
};

// Every tool over files whose names and tags are markup.
class HostileNames : public testing::Test {
 protected:
  HostileNames() {
    std::string list;
    for (const char* name : kNames) {
      const std::string path = std::string("<b>music<b>/") + name;
      window.drives.Write(path, AudioBytes(40));
      TagObject tag(*window.files);
      tag.ReadTags("c:\\<b>music<b>\\" + std::string(name), false);
      tag.SetV1Title(kMarkup.substr(0, 30));
      tag.SetFrame("TIT2", kMarkup);
      tag.Write("c:\\<b>music<b>\\" + std::string(name), TagStep::kWrite, TagStep::kWrite);
      list += std::string("<b>music<b>\\") + name + "\r\n<b>gone<b>\\" + name + "\r\n";
    }
    for (const char* category : {"<b>bold<b>", "<img src='pipe'>"})
      window.drives.Write(std::string("program/Bookmarks/") + category + ".bm", "");
    window.drives.Write("<b>list<b>.m3u", list);
    window.Start();
    window.dialogs.open_names = {"c:\\<b>list<b>.m3u"};
    window.Run("MFileOpen");
    window.Run("MEditSelAll");
  }

  static void Click(const QWidget& form, const char* name) {
    auto* button = form.findChild<QAbstractButton*>(QString::fromUtf8(name));
    if (button == nullptr) throw std::runtime_error(std::string("no control ") + name);
    button->click();
  }
  // Opens the tool, looks at it, at each of its tabs, and behind each of these buttons.
  int LookThrough(const char* command, const std::vector<const char*>& buttons,
                  const std::function<void(QWidget& form)>& prepare = {}) {
    int hostile = 0;
    EXPECT_TRUE(WorkInModal([&] { window.Run(command); },
                            [&](QWidget& form) {
                              if (prepare) prepare(form);
                              hostile += LookAtTabs(form);
                              for (const char* button : buttons) {
                                Click(form, button);
                                QTest::qWait(50);  // what is worked out beside the window
                                hostile += LookAtTabs(form);
                              }
                            }));
    return hostile;
  }
  static int LookAtTabs(QWidget& form) {
    int hostile = Sweep(form).hostile;
    for (auto* tabs : form.findChildren<QTabWidget*>()) {
      const int chosen = tabs->currentIndex();
      for (int tab = 0; tab < tabs->count(); ++tab) {
        tabs->setCurrentIndex(tab);
        hostile += Sweep(form).hostile;
      }
      tabs->setCurrentIndex(chosen);
    }
    return hostile;
  }

  MainWindow window;
};

TEST_F(HostileNames, StandAsTheyAreInTheList) {
  EXPECT_GE(Sweep(*window.main).hostile, 4);
}

TEST_F(HostileNames, StandAsTheyAreInTheTagEditor) {
  LookThrough("MEditId3", {});  // of several files
  QTest::keyClick(&window.List(), Qt::Key_Home);
  EXPECT_GT(LookThrough("MEditId3", {}), 0);
}

TEST_F(HostileNames, StandAsTheyAreInTheSearch) {
  EXPECT_GT(LookThrough("MToolsSearch", {},
                        [](QWidget& form) {
                          auto* text = form.findChild<QComboBox*>(QStringLiteral("txtSearch"));
                          QTest::keyClicks(text, QStringLiteral("<b>"));
                          QTest::keyClick(text, Qt::Key_Return);
                        }),
            0);
}

TEST_F(HostileNames, StandAsTheyAreInThePurge) {
  for (const char* name : kNames) window.drives.Write(std::string("<b>moved<b>/") + name, kNoise);
  EXPECT_GT(LookThrough("MToolsFilter", {"CmdSearch", "SkipPath"},
                        [](QWidget& form) {
                          const auto* report = form.findChild<QLabel*>(QStringLiteral("lbReport"));
                          EXPECT_TRUE(QTest::qWaitFor([&] { return report->text().startsWith(u"Done"); }));
                          QTest::keyClick(form.findChild<QComboBox*>(QStringLiteral("MissAction")), Qt::Key_End);
                        }),
            0);
}

TEST_F(HostileNames, StandAsTheyAreInTheRenamer) {
  EXPECT_GT(LookThrough("MToolsRename", {"RenTest"},
                        [](QWidget& form) {
                          form.findChild<QLineEdit*>(QStringLiteral("ToReplace"))->setText(QStringLiteral("<b>"));
                          Click(form, "AddRule");
                        }),
            0);
}

TEST_F(HostileNames, StandAsTheyAreInTheWizards) {
  EXPECT_GT(LookThrough("MToolsM3UWiz", {"CmdNext", "CmdNext", "CmdNext", "CmdNext", "cmdUndo"}), 0);
  LookThrough("MToolsReport", {"CmdNext", "CmdNext", "CmdNext"});
  window.dialogs.folders = {"c:\\", "c:\\<b>music<b>"};
  EXPECT_GT(LookThrough("MToolsMP3CDWiz", {"BrowseAssembleLoc", "BrowseImageLoc", "CmdNext", "CmdNext",
                                           "chkCreateTable", "CmdNext", "CmdNext"}),
            0);
}

TEST_F(HostileNames, StandAsTheyAreInBookmarks) {
  EXPECT_GT(LookThrough("MToolsBookmarkAdd", {"CmdNext"}), 0);
}

}  // namespace
}  // namespace qublet
