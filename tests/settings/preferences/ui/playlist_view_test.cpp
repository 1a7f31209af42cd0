#include <gtest/gtest.h>

#include <QColorDialog>
#include <QFontDialog>
#include <QPushButton>
#include <QTimer>

#include "desk/report_line.h"
#include "platform/qt/colours.h"
#include "settings/preferences/ui/SampleList.h"
#include "settings/preferences/ui/frmOptions.h"
#include "settings/schemes/look_file.h"
#include "support/options_hand.h"
#include "support/preferences_test_base.h"

namespace qublet {
namespace {

// The page of the list's look: what is chosen is seen on the sample.
class PlaylistView : public PreferencesTestBase {
 protected:
  void SetUp() override {
    PreferencesTestBase::SetUp();
    Open();
  }
  void Open() {
    hand_.reset();
    form_ = std::make_unique<frmOptions>(engine_, nullptr);
    form_->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(form_.get()));
    hand_.emplace(*form_);
    hand_->Turn("Playlist");
  }
  SampleList& Sample() { return hand_->Find<SampleList>("lblTestArea"); }
  QColor Background() { return Sample().palette().color(QPalette::Base); }
  QColor Text() { return Sample().palette().color(QPalette::Text); }
  std::string Face(const char* button) { return hand_->Find<QPushButton>(button).text().toStdString(); }
  std::string FontShown() { return hand_->Find<ReportLine>("FontText").Reported().toStdString(); }
  // Has `answer` work in the dialog that a click on the button opens.
  template <typename Dialog>
  void Answer(const char* button, const std::function<void(Dialog& dialog)>& answer) {
    bool seen = false;
    QTimer::singleShot(0, form_.get(), [&] {
      auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
      ASSERT_NE(dialog, nullptr);
      seen = true;
      answer(*dialog);
    });
    hand_->Click(button);
    EXPECT_TRUE(seen);
  }
  bool Shows(const QColor& colour) {
    const QImage picture = Sample().viewport()->grab().toImage();
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) {
        if (picture.pixelColor(x, y) == colour) return true;
      }
    }
    return false;
  }

  std::unique_ptr<frmOptions> form_;
  std::optional<OptionsHand> hand_;
};

TEST_F(PlaylistView, HasTwoItemsInFourColumns) {
  std::string text;
  const QAbstractItemModel& model = *Sample().model();
  for (int column = 0; column < model.columnCount(); ++column) {
    if (Sample().isColumnHidden(column)) continue;
    text += model.headerData(column, Qt::Horizontal).toString().toStdString() + ": " +
            model.index(0, column).data().toString().toStdString() + ", " +
            model.index(1, column).data().toString().toStdString() + "\n";
  }
  EXPECT_EQ(text,
            "FileName: 01-Untitled.mp3, 04-Untitled.mp3\nTime: 5.40, 3.10\nSize: 4,785Kb, 5,668Kb\n"
            "Path: c:\\mp3\\electronic, c:\\wav\\samples\n");
  EXPECT_EQ(model.rowCount(), 2);
}

TEST_F(PlaylistView, ShowsTheRecordsLook) {
  EXPECT_EQ(Background(), QColor(0x3A, 0x53, 0x00));
  EXPECT_EQ(Text(), QColor(0xC4, 0xDF, 0x00));
  EXPECT_GE(Contrast(Text(), Background()), 4.5);
  EXPECT_EQ(Sample().font().family().toStdString(), "Arial Narrow");
  EXPECT_EQ(Sample().font().pointSizeF(), 8);
  EXPECT_EQ(Face("BackColorChange"), "#3A5300");
  EXPECT_EQ(Face("ForeColorChange"), "#C4DF00");
  EXPECT_EQ(FontShown(), "Arial Narrow 8");
}

TEST_F(PlaylistView, WearsEachScheme) {
  struct Worn {
    const char* button;
    const char* caption;
    const char* background;
    const char* text;
    const char* font;
    bool grid;
  };
  for (const Worn& worn : {Worn{"schDefault", "Default", "System", "System", "Tahoma 8", false},
                           {"schGreenLCD", "Green LCD", "#3A5300", "#C4DF00", "Arial Narrow 8", false},
                           {"schBlueStudio", "Blue Studio", "#000080", "#0000FF", "Arial 8", false},
                           {"schPastel", "Pastel", "#E8E8FF", "#000000", "Arial Narrow 9", false},
                           {"schOldSkool", "Old Skool", "#2B0000", "#FF0000", "Verdana 6.75", true},
                           {"schDJ", "DJ", "#1C3737", "#5151FF", "Verdana 6.75", true},
                           {"schClear", "Clear", "#004B97", "#6ACFFF", "Arial Narrow 8", false}}) {
    hand_->Click(worn.button);
    EXPECT_EQ(Face(worn.button), worn.caption);
    EXPECT_EQ(Face("BackColorChange"), worn.background) << worn.caption;
    EXPECT_EQ(Face("ForeColorChange"), worn.text) << worn.caption;
    EXPECT_EQ(FontShown(), worn.font);
    EXPECT_EQ(hand_->Ticked("chkShowGrid"), worn.grid) << worn.caption;
    const bool system = std::string(worn.background) == "System";
    EXPECT_EQ(Background(), system ? QApplication::palette().color(QPalette::Base) : QColor(worn.background));
    EXPECT_EQ(Text(), system ? QApplication::palette().color(QPalette::Text) : QColor(worn.text));
    EXPECT_TRUE(Shows(Background())) << worn.caption;
    const QFont& font = Sample().font();
    EXPECT_FALSE(font.bold() || font.italic() || font.underline() || font.strikeOut());
  }
  EXPECT_EQ(Settings().BC, 21306) << "nothing is applied";
}

TEST_F(PlaylistView, MovesNothingBelowTheSample) {
  const auto places = [this] {
    QList<QRect> rects{form_->geometry()};
    for (const char* name :
         {"lblTestArea", "BackColorChange", "FontChange", "chkHotTracking", "schDefault", "schSave"}) {
      auto& control = hand_->Find<QWidget>(name);
      rects << QRect(control.mapToGlobal(QPoint()), control.size());
    }
    return rects;
  };
  hand_->Click("schGreenLCD");
  const QList<QRect> before = places();
  for (const Scheme& scheme : Schemes()) {
    hand_->Click(scheme.name);
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    EXPECT_EQ(places(), before) << scheme.caption;
  }
}

TEST_F(PlaylistView, ShowsAFractionAndStoresItRounded) {
  hand_->Click("schDJ");
  EXPECT_EQ(Sample().font().pointSizeF(), 6.75);
  hand_->Click("cmdApply");
  EXPECT_EQ(Settings().Size, 7);
  EXPECT_EQ(Settings().Name, "Verdana");
  EXPECT_TRUE(Settings().GRID);
  EXPECT_EQ(Sample().font().pointSizeF(), 6.75);
}

TEST_F(PlaylistView, KeepsTheNumbersOfSystemColours) {
  hand_->Click("schDefault");
  hand_->Click("cmdApply");
  EXPECT_EQ(Settings().BC, -0x7FFFFFFB);
  EXPECT_EQ(Settings().FC, -0x7FFFFFF8);
  Answer<QColorDialog>("BackColorChange", [](QColorDialog& dialog) { dialog.accept(); });
  hand_->Click("cmdApply");
  EXPECT_EQ(Settings().BC, -0x7FFFFFFB) << "chosen as it was";
}

TEST_F(PlaylistView, FollowsTheDesktopInItsColours) {
  const QPalette before = QApplication::palette();
  hand_->Click("schDefault");
  QPalette dark = before;
  dark.setColor(QPalette::Base, QColor(1, 2, 3));
  QApplication::setPalette(dark);
  QCoreApplication::processEvents();
  EXPECT_EQ(Background(), QColor(1, 2, 3));
  QApplication::setPalette(before);
}

TEST_F(PlaylistView, TakesColoursFromTheDialog) {
  Answer<QColorDialog>("BackColorChange", [](QColorDialog& dialog) {
    EXPECT_EQ(dialog.currentColor(), QColor(0x3A, 0x53, 0x00));
    dialog.setCurrentColor(QColor(0x12, 0x34, 0x56));
    dialog.accept();
  });
  Answer<QColorDialog>("ForeColorChange", [](QColorDialog& dialog) {
    EXPECT_EQ(dialog.currentColor(), QColor(0xC4, 0xDF, 0x00));
    dialog.setCurrentColor(Qt::white);
    dialog.accept();
  });
  EXPECT_EQ(Background(), QColor(0x12, 0x34, 0x56));
  EXPECT_EQ(Face("BackColorChange"), "#123456");
  EXPECT_EQ(Text(), QColor(Qt::white));
  EXPECT_EQ(Face("ForeColorChange"), "#FFFFFF");
  EXPECT_EQ(Settings().BC, 21306);
  hand_->Click("cmdApply");
  EXPECT_EQ(Settings().BC, 0x563412);
  EXPECT_EQ(Settings().FC, 0xFFFFFF);
}

TEST_F(PlaylistView, LeavesAllWhenADialogIsCancelled) {
  Answer<QColorDialog>("BackColorChange", [](QColorDialog& dialog) {
    dialog.setCurrentColor(Qt::white);
    dialog.reject();
  });
  Answer<QFontDialog>("FontChange", [](QFontDialog& dialog) {
    dialog.setCurrentFont(QFont(QStringLiteral("DejaVu Sans"), 20));
    dialog.reject();
  });
  hand_->Click("cmdApply");
  AppSettings defaults;
  LoadDefaultSettings(defaults, {});
  EXPECT_EQ(Settings(), defaults);
}

TEST_F(PlaylistView, TakesAFontFromTheDialog) {
  Answer<QFontDialog>("FontChange", [](QFontDialog& dialog) {
    QFont font(QStringLiteral("DejaVu Sans"), 13);
    font.setBold(true);
    font.setItalic(true);
    font.setStrikeOut(true);
    font.setUnderline(true);
    dialog.setCurrentFont(font);
    dialog.accept();
  });
  const QFont& font = Sample().font();
  EXPECT_TRUE(font.bold() && font.italic() && font.underline() && font.strikeOut());
  EXPECT_EQ(font.pointSizeF(), 13);
  hand_->Click("cmdApply");
  EXPECT_EQ(Settings().Name, "DejaVu Sans");
  EXPECT_EQ(Settings().Size, 13);
  EXPECT_TRUE(Settings().Bold && Settings().Italic && Settings().Strikethrough && Settings().Underline);
}

TEST_F(PlaylistView, KeepsTheNameOfAFontThatIsNotThere) {
  Settings().Name = "No Such Font";
  Settings().Size = 9;
  Open();
  EXPECT_EQ(FontShown(), "No Such Font 9");
  Answer<QFontDialog>("FontChange", [](QFontDialog& dialog) { dialog.accept(); });
  hand_->Click("cmdApply");
  EXPECT_EQ(Settings().Name, "No Such Font");
  EXPECT_EQ(Settings().Size, 9);
}

TEST_F(PlaylistView, KeepsAFractionThroughTheDialog) {
  hand_->Click("schDJ");
  Answer<QFontDialog>("FontChange", [](QFontDialog& dialog) { dialog.accept(); });
  EXPECT_EQ(Sample().font().pointSizeF(), 6.75);
}

TEST_F(PlaylistView, ShowsGridLinesAndHotTrackingAtOnce) {
  const QImage before = Sample().viewport()->grab().toImage();
  hand_->Click("chkShowGrid");
  EXPECT_NE(Sample().viewport()->grab().toImage(), before);
  hand_->Click("chkShowGrid");
  EXPECT_EQ(Sample().viewport()->grab().toImage(), before);
  const QImage cold = PictureUnderPointer(Sample());
  hand_->Click("chkHotTracking");
  EXPECT_NE(PictureUnderPointer(Sample()), cold);
  hand_->Click("chkHotTracking");
  EXPECT_EQ(PictureUnderPointer(Sample()), cold);
  EXPECT_FALSE(Settings().HOTTRACK);
}

TEST_F(PlaylistView, LoadsALookFromAFile) {
  Look look = LookOf(*FindScheme("Clear"));
  look.bold = look.underline = look.grid = true;
  ASSERT_TRUE(WriteLook(*files_, "c:\\my.dps", look));
  Asked().open_names = {"c:\\my.dps"};
  hand_->Click("schLoad");
  EXPECT_EQ(Background(), QColor(0x00, 0x4B, 0x97));
  EXPECT_TRUE(Sample().font().bold());
  EXPECT_TRUE(Sample().font().underline());
  EXPECT_TRUE(hand_->Ticked("chkShowGrid"));
  hand_->Click("cmdApply");
  EXPECT_EQ(LookOf(Settings()), look);
}

TEST_F(PlaylistView, SavesTheSampleNotTheRecord) {
  hand_->Click("schOldSkool");
  hand_->Click("chkShowGrid");
  Asked().save_names = {"c:\\my.dps"};
  hand_->Click("schSave");
  Look expected = LookOf(*FindScheme("Old Skool"));
  expected.grid = false;
  EXPECT_EQ(drives_.Read("my.dps"), LookRecord(expected));
  EXPECT_EQ(Settings().BC, 21306);
}

TEST_F(PlaylistView, SurvivesALookFileThatIsNone) {
  drives_.Write("short.dps", "x");
  drives_.Write("noise.dps", std::string(500, '\xFF'));
  for (const char* name : {"c:\\gone.dps", "c:\\short.dps", "c:\\noise.dps"}) {
    Asked().open_names = {name};
    hand_->Click("schLoad");
    hand_->Click("cmdApply");
    EXPECT_TRUE(form_->isVisible()) << name;
    EXPECT_GE(Settings().Size, 1) << name;
  }
  EXPECT_TRUE(Asked().messages.empty());
}

}  // namespace
}  // namespace qublet
