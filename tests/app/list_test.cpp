#include <gtest/gtest.h>

#include <QDropEvent>
#include <QHeaderView>
#include <QMimeData>
#include <QUrl>

#include "support/main_window.h"

namespace qublet {
namespace {

class ListTest : public testing::Test {
 protected:
  ListTest() {
    window.drives.Write("one/a.mp3", kNoise);
    window.drives.Write("one/b.mp3", kNoise);
    window.drives.Write("two/c.mp3", kNoise);
    window.drives.Write("two/d.wav", kNoise);
    window.Start();
  }

  // Drops native names at a row, from 1; a row past the last is the free room below.
  void Drop(const std::vector<std::filesystem::path>& names, int row) {
    QMimeData data;
    QList<QUrl> urls;
    for (const auto& name : names) urls << QUrl::fromLocalFile(QString::fromStdString(name.string()));
    data.setUrls(urls);
    const QModelIndex index = window.List().model()->index(row - 1, 0);
    const QPointF point = index.isValid() ? window.List().visualRect(index).center()
                                          : window.List().viewport()->rect().bottomLeft() - QPoint(0, 2);
    // Qt hands a drop to whoever took the drag that came before it.
    QDragEnterEvent enter(point.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window.List().viewport(), &enter);
    QDropEvent drop(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window.List().viewport(), &drop);
  }

  void Click(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    const QModelIndex index = window.List().model()->index(row - 1, 0);
    QTest::mouseClick(window.List().viewport(), Qt::LeftButton, modifiers, window.List().visualRect(index).center());
  }

  MainWindow window;
};

TEST_F(ListTest, ShowsTheFilesOfADropAtOnce) {
  int told = 0;
  QObject::connect(window.List().model(), &QAbstractItemModel::rowsInserted, [&] { ++told; });
  Drop({window.drives.C() / "one/b.mp3", window.drives.C() / "two", window.drives.C() / "one/a.mp3"}, 1);
  EXPECT_EQ(window.List().model()->rowCount(), 4);
  EXPECT_EQ(told, 1);
}

TEST_F(ListTest, HasTwelveColumnsOfWhichTwoAreHidden) {
  const std::vector<std::string> headers{"FileName", "Time",      "Size",       "Path",
                                         "ID",       "Layer",     "Bitrate",    "Samplerate",
                                         "Mode",     "HiddenLen", "HiddenSize", "Original Order"};
  QHeaderView* header = window.List().header();
  ASSERT_EQ(header->count(), 12);
  for (int i = 0; i < header->count(); ++i) {
    EXPECT_EQ(header->model()->headerData(i, Qt::Horizontal).toString().toStdString(),
              headers[static_cast<std::size_t>(i)]);
    EXPECT_EQ(header->isSectionHidden(i), i == kHiddenLen || i == kHiddenSize);
  }
  EXPECT_EQ(header->sectionSize(kFileName), 255);
  EXPECT_EQ(header->sectionSize(kPath), 400);
  EXPECT_EQ(header->sectionSize(kOriginalOrder), 50);
}

TEST_F(ListTest, ShowsTheTotalsOfAnEmptyList) {
  EXPECT_EQ(window.Panel(1), "Total: 0");
  EXPECT_EQ(window.Panel(2), "0:00");
  EXPECT_EQ(window.Panel(3), "0 Bytes");
  EXPECT_EQ(window.Panel(4), "");
}

TEST_F(ListTest, TakesADroppedFolderAtTheEndAndSelectsItsRows) {
  Drop({window.drives.C() / "one"}, 99);
  EXPECT_EQ(window.Names(), "a.mp3 b.mp3");
  EXPECT_EQ(window.Selected(), "xx");
  EXPECT_TRUE(window.document->PlaylistChanged);
  EXPECT_FALSE(window.program->engine.view.Dropping());
  EXPECT_EQ(window.Panel(1), "2 Items");
}

TEST_F(ListTest, PutsTwoFoldersDroppedOnARowInTheirOrderBeforeIt) {
  Drop({window.drives.C() / "one"}, 99);
  Drop({window.drives.C() / "two", window.drives.C() / "one"}, 2);
  EXPECT_EQ(window.Names(), "a.mp3 c.mp3 d.wav a.mp3 b.mp3 b.mp3");
}

TEST_F(ListTest, TakesADroppedPlaylistByItsLines) {
  window.drives.Write("list.m3u", "two\\c.mp3\r\none\\gone.mp3\r\n");
  Drop({window.drives.C() / "list.m3u"}, 99);
  EXPECT_EQ(window.Names(), "c.mp3 gone.mp3");
  EXPECT_EQ(window.Rows().At(2).icon, RowIcon::kMissing);
  EXPECT_TRUE(window.Rows().At(2).ghosted);
}

TEST_F(ListTest, SelectsByMouseAsPeopleExpect) {
  window.Add("c:\\one");
  window.Add("c:\\two");
  Click(1);
  EXPECT_EQ(window.Selected(), "x---");
  EXPECT_EQ(window.Panel(1), "Track: 1/4");
  Click(3, Qt::ControlModifier);
  EXPECT_EQ(window.Selected(), "x-x-");
  EXPECT_EQ(window.Panel(1), "2 Items");
  Click(3, Qt::ControlModifier);
  EXPECT_EQ(window.Selected(), "x---");
  Click(2);
  Click(4, Qt::ShiftModifier);
  EXPECT_EQ(window.Selected(), "-xxx");
  Click(3);
  EXPECT_EQ(window.Selected(), "--x-") << "a click on one of several selected rows leaves it alone";
}

TEST_F(ListTest, SelectsByKeyboard) {
  window.Add("c:\\one");
  window.Add("c:\\two");
  Click(1);
  QTest::keyClick(&window.List(), Qt::Key_Down);
  EXPECT_EQ(window.Selected(), "-x--");
  QTest::keyClick(&window.List(), Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(window.Selected(), "-xx-");
  QTest::keyClick(&window.List(), Qt::Key_Up, Qt::ShiftModifier);
  EXPECT_EQ(window.Selected(), "-x--");
  window.Run("MEditSelAll");
  EXPECT_EQ(window.Selected(), "xxxx");
  window.Run("MEditSelNone");
  EXPECT_EQ(window.Selected(), "----");
}

TEST_F(ListTest, ShowsDashesForOneSelectedMissingRow) {
  window.drives.Write("list.m3u", "c:\\gone.mp3\r\n");
  window.Add("c:\\list.m3u");
  EXPECT_EQ(window.Selected(), "x");
  EXPECT_EQ(window.Panel(1), "Track: 1/1");
  EXPECT_EQ(window.Panel(2), "-");
  EXPECT_EQ(window.Panel(3), "-");
}

TEST_F(ListTest, DeleteRemovesTheSelectedRowsAndLeavesTheFiles) {
  window.Add("c:\\one");
  window.document->PlaylistChanged = false;
  Click(1);
  QTest::keyClick(&window.List(), Qt::Key_Delete);
  EXPECT_EQ(window.Names(), "b.mp3");
  EXPECT_EQ(window.drives.Read("one/a.mp3"), kNoise);
  EXPECT_TRUE(window.document->PlaylistChanged);
  EXPECT_EQ(window.Panel(1), "Total: 1");
}

TEST_F(ListTest, InsertAsksForAnItemStartingAtTheLastPick) {
  window.dialogs.folders = {"c:\\one", "c:\\two\\c.mp3"};
  QTest::keyClick(&window.List(), Qt::Key_Insert);
  QTest::keyClick(&window.List(), Qt::Key_Insert);
  EXPECT_EQ(window.Names(), "a.mp3 b.mp3 c.mp3");
  EXPECT_EQ(window.dialogs.browse_titles[0], "Select Folder...");
  EXPECT_EQ(window.dialogs.browse_starts[1], "c:\\one");
  EXPECT_EQ(window.document->WorkFolder, "c:\\two\\c.mp3");
}

TEST_F(ListTest, RefreshReadsTheFilesAgainAndNumbersTheRows) {
  window.Add("c:\\one");
  window.document->PlaylistChanged = false;
  std::filesystem::remove(window.drives.C() / "one/a.mp3");
  window.Run("MViewRefresh");
  EXPECT_EQ(window.Rows().At(1).icon, RowIcon::kMissing);
  EXPECT_EQ(window.Rows().At(2).cells[kOriginalOrder], "2");
  EXPECT_EQ(window.Selected(), "--");
  EXPECT_FALSE(window.document->PlaylistChanged);
}

TEST_F(ListTest, SpeaksTheStateOfAMissingRow) {
  window.drives.Write("list.m3u", "c:\\gone.mp3\r\n");
  window.Add("c:\\list.m3u");
  const QModelIndex index = window.List().model()->index(0, kFileName);
  EXPECT_EQ(index.data(Qt::AccessibleTextRole).toString().toStdString(), "gone.mp3, missing");
}

TEST_F(ListTest, KeepsTheFocusedRowAndTheViewsCurrentRowTogether) {
  window.Add("c:\\one");
  window.Add("c:\\two");
  EXPECT_EQ(window.Rows().FocusedRow(), 3);
  EXPECT_EQ(window.List().currentIndex().row(), 2);
  Click(2);
  EXPECT_EQ(window.Rows().FocusedRow(), 2);
  window.Run("MEditRemove");
  EXPECT_EQ(window.Rows().FocusedRow(), 2);
  EXPECT_EQ(window.List().currentIndex().row(), 1);
}

}  // namespace
}  // namespace qublet
