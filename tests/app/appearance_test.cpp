#include <gtest/gtest.h>

#include <QHeaderView>
#include <QHelpEvent>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QStatusTipEvent>
#include <QTest>
#include <QToolButton>
#include <QToolTip>

#include "app/appearance.h"
#include "desk/placement.h"
#include "platform/qt/colours.h"
#include "support/main_window.h"

namespace qublet {
namespace {

class Appearance : public testing::Test {
 protected:
  // Starts the program with these values in the store, as if an earlier session had left them.
  void StartWith(const std::vector<Setting>& values) {
    window.drives.Write("a.mp3", kNoise);
    window.drives.Write("b.mp3", kNoise);
    window.store.SaveSetting("QUBLET2021", "Startup", "insl", "c:\\program\\QUBLET20.exe");
    window.store.SaveSettings("QUBLET2021", values);
    window.Restart("\"c:\\a.mp3\" \"c:\\b.mp3\"");
  }

  std::string Stored(const char* section, const char* key) {
    return window.store.GetSetting("QUBLET2021", section, key);
  }

  // Colours in the picture of the list's first rows, the frame left out.
  bool Shows(const QColor& colour) {
    const QImage picture = window.List().viewport()->grab().toImage();
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) {
        if (picture.pixelColor(x, y) == colour) return true;
      }
    }
    return false;
  }

  MainWindow window;
};

TEST_F(Appearance, ReadsColoursWithRedInTheLowByte) {
  EXPECT_EQ(ColourFromSetting(21306), QColor(0x3A, 0x53, 0x00));
  EXPECT_EQ(ColourFromSetting(0xFF8001), QColor(0x01, 0x80, 0xFF));
}

TEST_F(Appearance, PaintsTheListInItsColours) {
  StartWith({{"TableB", "BC", "255"}, {"TableB", "FC", "65280"}});
  EXPECT_TRUE(Shows(QColor(255, 0, 0)));
  EXPECT_EQ(window.List().palette().color(QPalette::Text), QColor(0, 255, 0));
}

TEST_F(Appearance, SetsTheListsFontAndLeavesTheHeadersAlone) {
  StartWith({{"TableFont", "Name", "Liberation Serif"},
             {"TableFont", "Size", "14"},
             {"TableFont", "Italic", "True"},
             {"TableFont", "Bold", "True"},
             {"TableFont", "Strikethrough", "True"},
             {"TableFont", "Underline", "True"}});
  const QFont font = window.List().font();
  EXPECT_EQ(font.family(), QStringLiteral("Liberation Serif"));
  EXPECT_EQ(font.pointSize(), 14);
  EXPECT_TRUE(font.italic() && font.bold() && font.strikeOut() && font.underline());
  EXPECT_FALSE(window.List().header()->font().strikeOut());
}

TEST_F(Appearance, DrawsGridLinesOnlyWhenTheyAreWanted) {
  StartWith({{"TableB", "BC", "0"}, {"TableB", "FC", "16777215"}});
  const QImage without = window.List().viewport()->grab().toImage();
  window.List().SetGridLines(true);
  const QImage with = window.List().viewport()->grab().toImage();
  const int right = window.List().columnWidth(kFileName) - 1;
  const int middle = window.List().visualRect(window.List().model()->index(1, 0)).center().y();
  EXPECT_EQ(without.pixelColor(right, middle), QColor(0, 0, 0));
  EXPECT_GT(with.pixelColor(right, middle).lightness(), 40);
}

TEST_F(Appearance, GivesEachColumnItsWidthAndHidesTheUnticked) {
  StartWith({{"TableB", "TX4", "False"}, {"TableB", "TV4", "123"}, {"TableB", "TV1", "99"}});
  QHeaderView* header = window.List().header();
  EXPECT_EQ(header->sectionSize(kFileName), 99);
  EXPECT_TRUE(header->isSectionHidden(kPath));
  window.main->close();
  EXPECT_EQ(Stored("TableB", "TV4"), "123") << "a hidden column keeps its width in the record";
}

TEST_F(Appearance, KeepsPlaceSizeAndColumnsForTheNextStart) {
  StartWith({});
  window.main->resize(700, 450);
  window.main->move(90, 60);
  window.List().setColumnWidth(kTime, 77);
  window.main->close();
  EXPECT_EQ(Stored("PS", "W"), "10500");
  EXPECT_EQ(Stored("PS", "H"), "6750");
  EXPECT_EQ(Stored("PS", "L"), "1350");
  EXPECT_EQ(Stored("PS", "T"), "900");
  EXPECT_EQ(Stored("TableB", "TV2"), "77");
  window.Restart();
  EXPECT_EQ(window.main->size(), QSize(700, 450));
  EXPECT_EQ(window.main->pos(), QPoint(90, 60));
  EXPECT_EQ(window.List().columnWidth(kTime), 77);
}

TEST_F(Appearance, TogglesTheBarsWithTheirTicksAndTheRecord) {
  StartWith({});
  auto* toolbar = window.main->findChild<Toolbar*>("Toolbar1");
  auto* status_bar = window.main->findChild<QStatusBar*>("StatusBar1");
  EXPECT_TRUE(toolbar->isVisible());
  EXPECT_TRUE(window.Action("MViewToolbar")->isChecked());
  window.Run("MViewToolbar");
  window.Run("MViewStatusBar");
  EXPECT_FALSE(toolbar->isVisible());
  EXPECT_FALSE(status_bar->isVisible());
  EXPECT_FALSE(window.Action("MViewToolbar")->isChecked());
  EXPECT_FALSE(window.settings->TA);
  EXPECT_FALSE(window.settings->SA);
  window.main->close();
  window.Restart();
  EXPECT_FALSE(window.main->findChild<Toolbar*>("Toolbar1")->isVisible());
  EXPECT_FALSE(window.Action("MViewStatusBar")->isChecked());
}

TEST_F(Appearance, StandsTheToolbarAtTheWantedEdge) {
  StartWith({{"ToolB", "Align", "1"}});
  EXPECT_EQ(window.main->toolBarArea(window.main->findChild<Toolbar*>("Toolbar1")), Qt::TopToolBarArea);
  window.main->close();
  window.store.SaveSetting("QUBLET2021", "ToolB", "Align", "2");
  window.Restart();
  EXPECT_EQ(window.main->toolBarArea(window.main->findChild<Toolbar*>("Toolbar1")), Qt::BottomToolBarArea);
}

TEST_F(Appearance, GivesTheListAllThatTheBarsLeave) {
  StartWith({{"ToolB", "Align", "1"}});
  auto* toolbar = window.main->findChild<Toolbar*>("Toolbar1");
  auto* status_bar = window.main->findChild<QStatusBar*>("StatusBar1");
  const auto place_of_list = [&] {
    QCoreApplication::processEvents();
    return QRect(window.List().mapTo(window.main, QPoint()), window.List().size());
  };
  EXPECT_EQ(place_of_list().top(), toolbar->geometry().bottom() + 1);
  EXPECT_EQ(place_of_list().bottom() + 1, status_bar->geometry().top());
  EXPECT_EQ(place_of_list().width(), window.main->width());
  window.Run("MViewToolbar");
  EXPECT_EQ(place_of_list().top(), window.main->menuBar()->height() + 2);
  window.Run("MViewStatusBar");
  EXPECT_EQ(place_of_list().bottom() + 1, window.main->height());
}

TEST_F(Appearance, KeepsTheWidthsOfThePanels) {
  StartWith({});
  const auto panel = [&](int number) {
    return window.main->findChild<QLabel*>(QStringLiteral("Panel%1").arg(number));
  };
  const auto widths = [&] {
    QCoreApplication::processEvents();
    std::vector<int> of_each;
    for (int i = 1; i <= 4; ++i) of_each.push_back(panel(i)->parentWidget()->width());
    return of_each;
  };
  const std::vector<int> at_first = widths();
  window.Run("MEditSelAll");
  EXPECT_EQ(widths(), at_first);
  window.Run("MEditSelNone");
  window.Rows().SetSelected(1, true);
  window.program->engine.view.Refresh();
  EXPECT_EQ(window.Panel(1), "Track: 1/2");
  EXPECT_EQ(widths(), at_first);
  window.Rows().SetCell(1, kHiddenLen, "3599999");
  window.Rows().SetCell(2, kHiddenLen, "3599999");
  window.program->engine.view.Refresh();
  const std::vector<int> with_more = widths();
  EXPECT_GE(panel(2)->width(), panel(2)->fontMetrics().horizontalAdvance(panel(2)->text())) << "nothing is cut";
  window.Run("MEditSelNone");
  EXPECT_EQ(widths(), with_more) << "it never gets narrower";
}

TEST_F(Appearance, ShowsWhatAnEntryDoesInTheLastPanelAndLeavesTheTotals) {
  StartWith({});
  window.feedback.ShowActivity("news");
  QStatusTipEvent tip(window.Action("MViewRefresh")->statusTip());
  QCoreApplication::sendEvent(window.main, &tip);
  QCoreApplication::processEvents();
  EXPECT_EQ(window.Panel(4), "Read every file from disk again");
  for (int i = 1; i <= 4; ++i)
    EXPECT_TRUE(window.main->findChild<QLabel*>(QStringLiteral("Panel%1").arg(i))->isVisible()) << i;
  QStatusTipEvent none{QString()};
  QCoreApplication::sendEvent(window.main, &none);
  EXPECT_EQ(window.Panel(4), "news");
}

TEST_F(Appearance, ElidesALongFolderInTheLastPanelInTheMiddleWithATip) {
  StartWith({});
  auto* panel = window.main->findChild<QLabel*>("Panel4");
  const QString begin = QStringLiteral("c:\\begin\\"), end = QStringLiteral("\\the very end");
  const int before = window.main->width();
  window.feedback.ShowActivity((begin + QString(300, u'x') + end).toStdString());
  QCoreApplication::processEvents();
  EXPECT_EQ(window.main->width(), before);
  const QImage long_text = panel->grab().toImage();
  window.feedback.ShowActivity((begin + QString(400, u'x') + end).toStdString());
  EXPECT_EQ(panel->grab().toImage(), long_text) << "what differs is in the middle";
  window.feedback.ShowActivity((begin + QString(300, u'x') + end + u'!').toStdString());
  EXPECT_NE(panel->grab().toImage(), long_text) << "its end can be seen";
  QHelpEvent help(QEvent::ToolTip, QPoint(3, 3), panel->mapToGlobal(QPoint(3, 3)));
  QCoreApplication::sendEvent(panel, &help);
  EXPECT_TRUE(QToolTip::text().replace(QChar::Nbsp, u' ').contains(QStringLiteral("the very end!")));
  QToolTip::hideText();
}

TEST_F(Appearance, StoresTheNormalPlaceOfAMaximisedWindowAndComesBackMaximised) {
  StartWith({{"PS", "W", "9000"}, {"PS", "H", "6001"}, {"PS", "L", "1200"}, {"PS", "T", "2000"}});
  window.main->showMaximized();
  QTest::qWait(500);
  const QSize large = window.main->size();
  EXPECT_NE(large, QSize(600, 400));
  for (int session = 1; session <= 3; ++session) {
    window.main->close();
    EXPECT_EQ(Stored("PS", "W") + " " + Stored("PS", "H") + " " + Stored("PS", "L") + " " + Stored("PS", "T"),
              "9000 6001 1200 2000")
        << session;
    EXPECT_EQ(Stored("PS", "Maximised"), "1");
    window.Restart();
    EXPECT_TRUE(window.main->isMaximized()) << session;
    EXPECT_TRUE(QTest::qWaitFor([&] { return window.main->size() == large; })) << session;
    QTest::qWait(500);
  }
  window.main->showNormal();
  const auto place = [&] { return QRect(window.main->pos(), window.main->size()); };
  EXPECT_TRUE(QTest::qWaitFor([&] { return place() == QRect(80, 133, 600, 400); }));
  window.main->close();
  EXPECT_EQ(Stored("PS", "Maximised"), "0");
}

TEST_F(Appearance, LeavesASizeBelowWhatTheWindowNeedsInTheRecord) {
  StartWith({{"PS", "W", "1500"}, {"PS", "H", "300"}});
  EXPECT_GT(window.main->height(), 20);
  for (int session = 1; session <= 2; ++session) {
    window.main->close();
    EXPECT_EQ(Stored("PS", "W") + " " + Stored("PS", "H"), "1500 300");
    window.Restart();
  }
  window.main->resize(700, 450);
  window.main->close();
  EXPECT_EQ(Stored("PS", "W") + " " + Stored("PS", "H"), "10500 6750");
}

TEST_F(Appearance, FallsBackForASizeThatTheScreenDoesNotExceed) {
  const QSize screen = window.main->screen()->size() * kTwipsPerPixel;
  const auto text = [](int twips) { return std::to_string(twips); };
  StartWith({{"PS", "W", text(screen.width())}, {"PS", "H", text(screen.height())}});
  EXPECT_EQ(window.main->size(), QSize(7920, 6000) / kTwipsPerPixel);
  window.main->close();
  // With room for the frame, which some systems don't let over the edge.
  StartWith({{"PS", "W", text(screen.width() - 1500)}, {"PS", "H", text(screen.height() - 1500)}});
  EXPECT_EQ(window.main->size(), screen / kTwipsPerPixel - QSize(100, 100));
}

TEST_F(Appearance, PutsASecondInstanceWhereTheFirstStands) {
  StartWith({{"PS", "L", "3000"}, {"PS", "T", "2250"}});
  MainWindow second;
  second.store = window.store;
  second.Restart();
  EXPECT_EQ(window.main->pos(), QPoint(200, 150));
  EXPECT_EQ(second.main->pos(), QPoint(200, 150));
}

TEST_F(Appearance, PutsNewWindowsBesideTheMainWindow) {
  StartWith({});
  window.main->setGeometry(400, 40, 200, 200);
  QCoreApplication::processEvents();
  QWidget frm;
  frm.resize(120, 90);
  PositionForm(*window.main, frm);
  const QSize frame = window.main->frameGeometry().size() - window.main->size();
  EXPECT_EQ(frm.pos(), PlaceBeside(window.main->frameGeometry(), frm.size() + frame,
                                   window.main->screen()->geometry(), QPoint()));
  EXPECT_NE(frm.pos(), QPoint());
}

TEST_F(Appearance, RaisesTheButtonsWhenTheyAreNotFlat) {
  StartWith({{"ToolB", "Flat", "False"}});
  EXPECT_FALSE(window.main->findChild<Toolbar*>("Toolbar1")->findChild<QToolButton*>()->autoRaise());
  window.main->findChild<Toolbar*>("Toolbar1")->SetLook(true, false);
  EXPECT_TRUE(window.main->findChild<Toolbar*>("Toolbar1")->findChild<QToolButton*>()->autoRaise());
}

TEST_F(Appearance, HidesTheTopMenusButNeverTheToolbarWithThem) {
  StartWith({{"Menu", "Visible", "False"}, {"VE", "TA", "0"}});
  EXPECT_TRUE(window.main->findChild<QMenu*>("MFile")->menuAction()->isVisible());
  window.main->close();
  window.store.SaveSettings("QUBLET2021", {{"Menu", "Visible", "False"}, {"VE", "TA", "1"}});
  window.Restart();
  EXPECT_FALSE(window.main->findChild<QMenu*>("MFile")->menuAction()->isVisible());
  EXPECT_TRUE(window.main->findChild<Toolbar*>("Toolbar1")->isVisible());
}

}  // namespace
}  // namespace qublet
