#include "playlist/ui/row_model.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QScrollBar>

#include "support/main_window.h"
#include "support/row_texts.h"

namespace qublet {
namespace {

class RowModelTest : public testing::Test {
 protected:
  RowModelTest() {
    for (int i = 1; i <= 500; ++i) lines_ += "c:\\gone\\" + std::to_string(1000 + i) + ".mp3\r\n";
    window.drives.Write("long.m3u", lines_);
    window.Start();
    window.Add("c:\\long.m3u");
    window.Run("MEditSelNone");
    QObject::connect(window.List().model(), &QAbstractItemModel::modelReset, [this] { ++resets; });
  }

  void SelectFrom(int first, int last) {
    window.Rows().SelectWhere([&](int row, const Row&) { return row >= first && row <= last; });
    emit window.List().rowsSelected();
  }
  std::string Shown(int row) {
    return window.List().model()->index(row - 1, kFileName).data().toString().toStdString();
  }
  int ScrolledTo() {
    QCoreApplication::processEvents();
    return window.List().verticalScrollBar()->value();
  }

  std::string lines_;
  int resets = 0;
  MainWindow window;
};

TEST_F(RowModelTest, KeepsThePromisesThatViewsRelyOn) {
  RowStore rows;
  RowModel model(rows);
  const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
  rows.Insert(1, NamedRows({"a", "b", "c", "d"}));
  rows.Insert(2, NamedRows({"e", "f"}));
  rows.Reorder({6, 5, 4, 3, 2, 1});
  rows.Remove(3);
  rows.RemoveIf([](const Row& row) { return row.cells[kFileName] < "c"; });
  {
    const RowStore::Bulk bulk(rows);
    rows.Clear();
    rows.Insert(1, NamedRows({"g", "h", "i", "j", "k", "l"}));
    rows.Remove(1);
  }
  EXPECT_EQ(model.rowCount(), 5);
  EXPECT_EQ(model.index(4, 0).data().toString(), QStringLiteral("l"));
  EXPECT_FALSE(model.index(5, 0).isValid());
  EXPECT_FALSE(model.index(0, kColumnCount).isValid());
  EXPECT_FALSE(model.index(-1, 0).isValid());
  EXPECT_FALSE(model.index(0, 0, model.index(0, 0)).isValid());
  rows.Clear();
  EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(RowModelTest, ShowsTheRowsThatStayWithoutLayingTheListAnew) {
  SelectFrom(3, 400);
  window.Run("MEditRemove");
  EXPECT_EQ(window.List().model()->rowCount(), 102);
  EXPECT_EQ(Shown(2), "1002.mp3");
  EXPECT_EQ(Shown(3), "1401.mp3");
  EXPECT_EQ(Shown(102), "1500.mp3");
  EXPECT_EQ(resets, 0);
}

TEST_F(RowModelTest, StaysWhereItIsWhenTheFocusedRowGoesFarBelow) {
  window.Rows().SetFocusedRow(450);
  window.List().scrollToTop();
  SelectFrom(300, 500);
  window.Run("MEditRemove");
  EXPECT_EQ(ScrolledTo(), 0);
  EXPECT_EQ(window.Rows().FocusedRow(), 299);
  EXPECT_EQ(window.List().currentIndex().row(), 298);
}

TEST_F(RowModelTest, StaysWhereItIsWhenRowsComeAbove) {
  window.Rows().EnsureVisible(250);
  const int before = ScrolledTo();
  window.Rows().Insert(1, NamedRows({"x", "y"}));
  EXPECT_EQ(ScrolledTo(), before);
  EXPECT_EQ(window.Rows().FocusedRow(), 252);
  EXPECT_EQ(window.List().currentIndex().row(), 251);
  EXPECT_EQ(Shown(252), "1250.mp3");
}

TEST_F(RowModelTest, HasNoCurrentRowWhenAllAreGone) {
  window.Rows().SetFocusedRow(450);
  window.Run("MEditSelAll");
  window.Run("MEditRemove");
  EXPECT_EQ(window.List().model()->rowCount(), 0);
  EXPECT_FALSE(window.List().currentIndex().isValid());
  EXPECT_EQ(resets, 0);
}

}  // namespace
}  // namespace qublet
