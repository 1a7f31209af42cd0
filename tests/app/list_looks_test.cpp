#include <gtest/gtest.h>

#include <QDropEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMimeData>
#include <QToolTip>

#include "app/appearance.h"
#include "platform/qt/colours.h"
#include "support/main_window.h"

namespace qublet {
namespace {

struct Scheme {
  const char* name;
  std::int32_t background;
  std::int32_t text;
};

constexpr std::int32_t SystemNumber(int number) {
  return static_cast<std::int32_t>(0x80000000U + static_cast<unsigned>(number));
}

constexpr std::array<Scheme, 7> kSchemes{{{"Default", SystemNumber(5), SystemNumber(8)},
                                          {"Green LCD", 0x00533A, 0x00DFC4},
                                          {"Blue Studio", 0x800000, 0xFF0000},
                                          {"Pastel", 0xFFE8E8, 0x000000},
                                          {"Old Skool", 0x00002B, 0x0000FF},
                                          {"DJ", 0x37371C, 0xFF5151},
                                          {"Clear", 0x974B00, 0xFFCF6A}}};

QPalette LightDesktop() {
  return QPalette(QColor(0xEF, 0xEF, 0xEF), QColor(0xEF, 0xEF, 0xEF));
}

QPalette DarkDesktop() {
  QPalette dark(QColor(0x35, 0x37, 0x3a), QColor(0x2b, 0x2d, 0x30));
  dark.setColor(QPalette::Base, QColor(0x1f, 0x20, 0x22));
  dark.setColor(QPalette::Highlight, QColor(0x2f, 0x65, 0xca));
  dark.setColor(QPalette::HighlightedText, Qt::white);
  return dark;
}

// A desktop that hardly shows what is selected in a window that isn't active.
QPalette PaleDesktop() {
  QPalette pale = LightDesktop();
  pale.setColor(QPalette::Inactive, QPalette::Highlight, QColor(0xF0, 0xF0, 0xF0));
  pale.setColor(QPalette::Inactive, QPalette::HighlightedText, Qt::black);
  return pale;
}

// Row 1 is selected, row 2 isn't; rows 3 and 4 are missing, and 3 is selected.
class ListLooks : public testing::Test {
 protected:
  ListLooks() {
    window.drives.Write("a.mp3", kNoise);
    window.drives.Write("b.mp3", kNoise);
    window.drives.Write("list.m3u", "a.mp3\r\nb.mp3\r\nMMMM.mp3\r\nMMMM.mp3\r\n");
    window.Start();
    window.Add("c:\\list.m3u");
    window.settings->Size = 24;
    window.settings->Bold = true;
    window.Rows().SelectWhere([](int row, const Row&) { return row == 1 || row == 3; });
    window.Rows().SetFocusedRow(4);
  }
  ~ListLooks() override { QGuiApplication::setPalette(QPalette()); }

  void Wear(const Scheme& scheme, const QPalette& desktop) {
    QApplication::setPalette(desktop);
    window.settings->BC = scheme.background;
    window.settings->FC = scheme.text;
    ApplyListLook(*window.settings, window.List());
    window.List().setColumnWidth(kFileName, 300);
    QCoreApplication::processEvents();
  }
  QImage Picture() { return window.List().viewport()->grab().toImage(); }
  QRect Cell(int row, int column) { return window.List().visualRect(window.List().model()->index(row - 1, column)); }
  // A pixel beside the text of the name.
  QColor Ground(const QImage& picture, int row) {
    return picture.pixelColor(Cell(row, kFileName).right() - 4, Cell(row, kFileName).center().y());
  }
  // The strongest contrast of any pixel of the name to its ground; the icon is left out.
  double TextContrast(const QImage& picture, int row) {
    const QRect cell = Cell(row, kFileName).adjusted(30, 2, -4, -2);
    const QColor ground = Ground(picture, row);
    double most = 1;
    for (int y = cell.top(); y <= cell.bottom(); ++y) {
      for (int x = cell.left(); x <= cell.right(); ++x)
        most = std::max(most, Contrast(picture.pixelColor(x, y), ground));
    }
    return most;
  }

  MainWindow window;
};

TEST_F(ListLooks, TellSelectedRowsApartInEverySchemeOnEveryDesktop) {
  for (const QPalette& desktop : {LightDesktop(), DarkDesktop(), PaleDesktop()}) {
    for (const Scheme& scheme : kSchemes) {
      Wear(scheme, desktop);
      const QImage picture = Picture();
      EXPECT_GE(Contrast(Ground(picture, 1), Ground(picture, 2)), 3) << scheme.name;
      EXPECT_GE(TextContrast(picture, 1), 4.5) << scheme.name;
      EXPECT_EQ(Ground(picture, 2), window.List().palette().color(QPalette::Base)) << scheme.name;
    }
  }
}

TEST_F(ListLooks, TellSelectedRowsApartWhileTheWindowIsNotActive) {
  QWidget other;
  other.show();
  other.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  ASSERT_FALSE(window.List().isActiveWindow());
  for (const QPalette& desktop : {LightDesktop(), DarkDesktop(), PaleDesktop()}) {
    for (const Scheme& scheme : kSchemes) {
      Wear(scheme, desktop);
      const QImage picture = Picture();
      EXPECT_GE(Contrast(Ground(picture, 1), Ground(picture, 2)), 3) << scheme.name;
      EXPECT_GE(TextContrast(picture, 1), 4.5) << scheme.name;
    }
  }
}

TEST_F(ListLooks, LeaveMissingRowsLegibleAndPaler) {
  for (const QPalette& desktop : {LightDesktop(), DarkDesktop()}) {
    for (const Scheme& scheme : kSchemes) {
      Wear(scheme, desktop);
      const QImage picture = Picture();
      EXPECT_GE(TextContrast(picture, 4), 2.5) << scheme.name;
      EXPECT_GE(TextContrast(picture, 3), 2.5) << scheme.name << ", selected";
    }
  }
  Wear(kSchemes[1], LightDesktop());
  EXPECT_LT(TextContrast(Picture(), 4), TextContrast(Picture(), 2));
}

TEST_F(ListLooks, TakeTheSystemsColoursFromTheDesktopAndFollowIt) {
  Wear(kSchemes[0], LightDesktop());
  EXPECT_EQ(window.List().palette().color(QPalette::Base), LightDesktop().color(QPalette::Base));
  EXPECT_EQ(window.List().palette().color(QPalette::Text), LightDesktop().color(QPalette::Text));
  QApplication::setPalette(DarkDesktop());
  QCoreApplication::processEvents();
  EXPECT_EQ(window.List().palette().color(QPalette::Base), DarkDesktop().color(QPalette::Base));
  EXPECT_EQ(Ground(Picture(), 2), DarkDesktop().color(QPalette::Base));
  EXPECT_GE(Contrast(Ground(Picture(), 1), Ground(Picture(), 2)), 3);
  Wear({"", SystemNumber(13), SystemNumber(14)}, LightDesktop());
  EXPECT_EQ(window.List().palette().color(QPalette::Base), QGuiApplication::palette().color(QPalette::Highlight));
  EXPECT_EQ(window.List().palette().color(QPalette::Text),
            QGuiApplication::palette().color(QPalette::HighlightedText));
}

TEST_F(ListLooks, UnderlineTheRowUnderThePointerWhereWanted) {
  const auto picture_with_pointer = [&](bool hot) {
    window.settings->HOTTRACK = hot;
    Wear(kSchemes[3], LightDesktop());
    const QRect cell = Cell(2, kFileName);
    QHoverEvent move(QEvent::HoverMove, cell.center(), window.List().viewport()->mapToGlobal(cell.center()),
                     QPointF(1, 1));
    // Only a widget that asks for it is told of the pointer.
    EXPECT_EQ(window.List().viewport()->testAttribute(Qt::WA_Hover), hot);
    QCoreApplication::sendEvent(window.List().viewport(), &move);
    return Picture().copy(cell);
  };
  EXPECT_NE(picture_with_pointer(true), picture_with_pointer(false));
}

TEST_F(ListLooks, SayWhatWouldFillAnEmptyList) {
  const QImage filled = Picture();
  for (const Scheme& scheme : kSchemes) {
    window.Run("MFileNew");
    Wear(scheme, LightDesktop());
    const QImage picture = Picture();
    const QColor ground = window.List().palette().color(QPalette::Base);
    double most = 1;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) most = std::max(most, Contrast(picture.pixelColor(x, y), ground));
    }
    EXPECT_GE(most, 4.4) << scheme.name;
  }
  EXPECT_EQ(RowList::EmptyHint().toStdString(), "Drop music files, folders or playlists here, or press Insert");
}

TEST_F(ListLooks, LeaveRoomBetweenANumberAndTheNextColumn) {
  window.settings->Size = 9;
  Wear(kSchemes[3], LightDesktop());
  window.Run("MEditSelNone");
  window.Rows().SetCell(2, kSize, "3 Bytes");
  window.Rows().SetCell(2, kPath, "MMM");
  window.List().scrollTo(window.List().model()->index(1, kPath));
  const QImage picture = Picture();
  const int middle = Cell(2, kSize).right();
  const int y = Cell(2, kSize).center().y();
  const auto is_text = [&](int x) {
    for (int dy = -3; dy <= 3; ++dy) {
      if (Contrast(picture.pixelColor(x, y + dy), Ground(picture, 2)) > 2) return true;
    }
    return false;
  };
  int before = middle;
  while (before > 0 && !is_text(before)) --before;
  int behind = middle;
  while (behind + 1 < picture.width() && !is_text(behind)) ++behind;
  EXPECT_GE(behind - before, 10);
}

class DropLine : public ListLooks {
 protected:
  DropLine() {
    Wear(kSchemes[3], LightDesktop());
    window.Run("MEditSelNone");
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString((window.drives.C() / "a.mp3").string()))});
    before = Picture();
  }
  void Enter(QPoint point) {
    QDragEnterEvent enter(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window.List().viewport(), &enter);
  }
  // The lines of pixels, across the whole list, that differ from how it was before.
  std::pair<int, int> Changed() {
    const QImage now = Picture();
    std::pair<int, int> lines(-1, -1);
    for (int y = 0; y < now.height(); ++y) {
      if (now.pixelColor(5, y) == before.pixelColor(5, y)) continue;
      if (lines.first < 0) lines.first = y;
      lines.second = y;
    }
    return lines;
  }

  QMimeData data;
  QImage before;
};

TEST_F(DropLine, ShowsWhereADropWillLand) {
  Enter(Cell(3, kFileName).center());
  EXPECT_LE(std::abs(Changed().first - Cell(3, kFileName).top()), 2);
  EXPECT_LE(std::abs(Changed().second - Cell(3, kFileName).top()), 2);
  Enter(window.List().viewport()->rect().bottomLeft() - QPoint(-3, 3));
  EXPECT_LE(std::abs(Changed().first - Cell(4, kFileName).bottom()), 2) << "behind the last row";
  QDragLeaveEvent leave;
  QCoreApplication::sendEvent(window.List().viewport(), &leave);
  EXPECT_EQ(Picture(), before);
}

TEST_F(DropLine, GoesWithTheDrop) {
  const QPoint point = Cell(3, kFileName).center();
  Enter(point);
  QDropEvent drop(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(window.List().viewport(), &drop);
  ASSERT_EQ(window.Names(), "a.mp3 b.mp3 a.mp3 MMMM.mp3 MMMM.mp3");
  before = Picture();
  Enter(point);
  EXPECT_NE(Picture(), before) << "there was no line any more";
}

TEST_F(DropLine, IsNotThereForWhatCannotBeDropped) {
  data.setUrls({QUrl(QStringLiteral("http://example.org/x.mp3"))});
  Enter(Cell(3, kFileName).center());
  EXPECT_EQ(Picture(), before);
}

class Header : public ListLooks {
 protected:
  QString TipOver(int column) {
    QHeaderView& header = *window.List().header();
    window.List().scrollTo(window.List().model()->index(0, column));
    const QPoint point(header.sectionViewportPosition(column) + 5, header.height() / 2);
    QToolTip::hideText();
    QTest::qWait(400);  // it fades
    QHelpEvent help(QEvent::ToolTip, point, header.viewport()->mapToGlobal(point));
    QCoreApplication::sendEvent(header.viewport(), &help);
    return QToolTip::isVisible() ? QToolTip::text() : QString();
  }
};

TEST_F(Header, HasATipWhereACaptionIsCutOff) {
  window.settings->Size = 8;
  window.settings->Bold = false;
  Wear(kSchemes[0], LightDesktop());
  ASSERT_EQ(window.List().columnWidth(kOriginalOrder), 50);
  EXPECT_EQ(TipOver(kOriginalOrder).toStdString(), "Original Order");
  EXPECT_EQ(TipOver(kFileName).toStdString(), "");
  QToolTip::hideText();
}

TEST_F(Header, HasTheListsSize) {
  for (const double size : {8.0, 15.0}) {
    window.settings->Size = static_cast<std::int16_t>(size);
    Wear(kSchemes[0], LightDesktop());
    EXPECT_EQ(window.List().header()->font().pointSizeF(), size);
    EXPECT_EQ(window.List().header()->font().family(), QGuiApplication::font().family());
  }
}

}  // namespace
}  // namespace qublet
