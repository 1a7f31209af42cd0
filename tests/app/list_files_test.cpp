#include <QDialog>
#include <QDrag>
#include <QDropEvent>
#include <QMimeData>
#include <QStyleHints>
#include <QTimer>
#include <QUrl>

#include "support/list_mouse_test.h"

namespace qublet {
namespace {

class ListDrags : public ListMouseTest {
 protected:
  // Takes hold of a row by a cell and moves the pointer away. What is dragged is noted and let go of.
  void DragAway(int row, int column = kFileName, Qt::KeyboardModifiers modifiers = {}) {
    QTimer::singleShot(0, &window.List(), [this] {
      auto* drag = window.List().findChild<QDrag*>();
      if (drag == nullptr) return;
      offered = drag->mimeData()->data("text/uri-list").toStdString();
      actions = drag->supportedActions();
      QDrag::cancel();
    });
    Press(On(row, column), Qt::LeftButton, modifiers);
    Move(On(row, column) + QPoint(2, 0), Qt::LeftButton);
    EXPECT_EQ(offered, "") << "not before the pointer has really moved";
    Move(On(row, column) + QPoint(2 * QGuiApplication::styleHints()->startDragDistance(), 0), Qt::LeftButton);
    QCoreApplication::processEvents();
  }
  std::string AddressOf(const std::string& name) {
    return "file://" + (window.drives.C() / "m").string() + "/" + name + "\r\n";
  }

  std::string offered;
  Qt::DropActions actions;
};

TEST_F(ListDrags, OfferTheSelectedRowsAsFilesToCopy) {
  Select({1, 3, 4});
  DragAway(3);
  EXPECT_EQ(offered, AddressOf("a.mp3") + AddressOf("c.mp3") + AddressOf("d.mp3"));
  EXPECT_EQ(actions, Qt::CopyAction);
  EXPECT_EQ(window.Selected(), "x-xx-") << "the selection outlives the drag";
  EXPECT_EQ(window.document->FileArray, (Collection{"c:\\m\\a.mp3", "c:\\m\\c.mp3", "c:\\m\\d.mp3"}));
  EXPECT_EQ(Order(), "abcde");
  EXPECT_FALSE(window.document->PlaylistChanged);
}

TEST_F(ListDrags, BeginOnAnyCellOfASelectedRow) {
  Select({1, 3});
  DragAway(3, kTime);
  EXPECT_EQ(offered, AddressOf("a.mp3") + AddressOf("c.mp3"));
}

TEST_F(ListDrags, TakeARowByItsNameWithoutAClickBefore) {
  Select({1});
  DragAway(3);
  EXPECT_EQ(offered, AddressOf("c.mp3"));
  EXPECT_EQ(window.Selected(), "--x--");
}

TEST_F(ListDrags, KeepASelectedRowThatIsTakenWithCtrl) {
  Select({1, 3});
  DragAway(3, kFileName, Qt::ControlModifier);
  EXPECT_EQ(offered, AddressOf("a.mp3") + AddressOf("c.mp3"));
  EXPECT_EQ(window.Selected(), "x-x--");
}

TEST_F(ListDrags, DontBeginElsewhereOnAnUnselectedRow) {
  DragAway(3, kTime);
  EXPECT_EQ(offered, "");
  Release(On(3), Qt::LeftButton);
}

TEST_F(ListDrags, EncodeOddNamesAndKeepMissingFilesAndLeaveOutMissingDrives) {
  window.drives.Write("odd/100% #1?.mp3", kNoise);
  window.drives.Write("odd/\xE9.mp3", kNoise);
  window.drives.Write("list.m3u", "c:\\gone.mp3\r\nq:\\no drive.mp3\r\n");
  window.Add("c:\\odd");
  window.Add("c:\\list.m3u");
  ASSERT_EQ(window.Rows().Count(), 9);
  Select({6, 7, 8, 9});
  DragAway(6);
  const std::string c = "file://" + window.drives.C().string();
  EXPECT_EQ(offered, c + "/odd/100%25%20%231%3F.mp3\r\n" + c + "/odd/%E9.mp3\r\n" + c + "/gone.mp3\r\n");
}

TEST_F(ListDrags, DontBeginWhenNoRowHasAPlace) {
  window.drives.Write("list.m3u", "q:\\no drive.mp3\r\n");
  window.Add("c:\\list.m3u");
  Select({6});
  DragAway(6);
  EXPECT_EQ(offered, "");
  EXPECT_EQ(window.Selected(), "-----x");
}

class ListDrops : public ListMouseTest {
 protected:
  // Offers the addresses at a row and lets go there; true when the list took them.
  bool Drop(const QMimeData& data, int row) {
    const QPoint point = On(row);
    QDragEnterEvent enter(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&View(), &enter);
    QDragMoveEvent move(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&View(), &move);
    if (!enter.isAccepted() || !move.isAccepted()) return false;
    QDropEvent drop(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&View(), &drop);
    return drop.isAccepted() && drop.dropAction() == Qt::CopyAction;
  }
  std::unique_ptr<QMimeData> Addresses(const std::vector<std::filesystem::path>& places) {
    auto data = std::make_unique<QMimeData>();
    QByteArray list;
    for (const auto& place : places) {
      const QByteArray path = QByteArray::fromStdString(place.generic_string());
      list += (path.startsWith('/') ? "file://" : "file:///") + path.toPercentEncoding("/:") + "\r\n";
    }
    data->setData("text/uri-list", list);
    return data;
  }
};

TEST_F(ListDrops, KeepTheOrderOfFilesFoldersAndPlaylistsAtTheRowUnderThePointer) {
  window.drives.Write("two/x.mp3", kNoise);
  window.drives.Write("two/sub/y.mp3", kNoise);
  window.drives.Write("list.m3u", "c:\\two\\x.mp3\r\nc:\\gone.mp3\r\n");
  window.drives.Write("z.wav", kNoise);
  const auto c = window.drives.C();
  EXPECT_TRUE(Drop(*Addresses({c / "two", c / "z.wav", c / "list.m3u", c / "notes.txt"}), 3));
  EXPECT_EQ(window.Names(), "a.mp3 b.mp3 x.mp3 y.mp3 z.wav x.mp3 gone.mp3 c.mp3 d.mp3 e.mp3");
  EXPECT_FALSE(window.program->engine.view.Dropping());
  EXPECT_TRUE(window.document->PlaylistChanged);
  EXPECT_EQ(window.Panel(1), "2 Items") << "the first name's rows are the selected ones";
}

TEST_F(ListDrops, TakeNamesOfEveryKind) {
  const std::vector<std::string> names{"100% #1?.mp3",          "a;b&c=d.mp3",  "two  blanks .mp3",
                                       "\xC3\xA9t\xC3\xA9.mp3", "\xE9\xFF.mp3", "line\nend.mp3"};
  std::vector<std::filesystem::path> places;
  for (const std::string& name : names) {
    window.drives.Write("odd/" + name, kNoise);
    places.push_back(window.drives.C() / "odd" / name);
  }
  EXPECT_TRUE(Drop(*Addresses(places), 99));
  ASSERT_EQ(window.Rows().Count(), 5 + static_cast<int>(names.size()));
  for (std::size_t i = 0; i < names.size(); ++i) {
    const Row& row = window.Rows().At(6 + static_cast<int>(i));
    EXPECT_EQ(row.icon, RowIcon::kNormal) << row.FullPath();
    EXPECT_EQ(window.files->ToNative(row.FullPath()), places[i].string());
  }
}

TEST_F(ListDrops, LeaveOutAddressesElsewhere) {
  QMimeData data;
  data.setUrls({QUrl("http://example.org/x.mp3"),
                QUrl::fromLocalFile(QString::fromStdString((window.drives.C() / "m/a.mp3").string()))});
  EXPECT_TRUE(Drop(data, 99));
  EXPECT_EQ(Order(), "abcdea");
}

TEST_F(ListDrops, RefuseWhatHoldsNoFile) {
  QMimeData remote;
  remote.setUrls({QUrl("http://example.org/x.mp3")});
  EXPECT_FALSE(Drop(remote, 1));
  QMimeData text;
  text.setText("c:\\m\\a.mp3");
  EXPECT_FALSE(Drop(text, 1));
  EXPECT_EQ(Order(), "abcde");
}

TEST_F(ListDrops, WaitForTheAnswerToAModalWindow) {
  QDialog question(window.main);
  question.open();
  const auto data = Addresses({window.drives.C() / "m/a.mp3"});
  EXPECT_FALSE(Drop(*data, 1));
  EXPECT_EQ(Order(), "abcde");
  question.close();
  EXPECT_TRUE(Drop(*data, 1));
  EXPECT_EQ(Order(), "aabcde");
}

TEST_F(ListDrops, OfNamesThatLeadNowhereChangeNothing) {
  EXPECT_TRUE(Drop(*Addresses({"/nowhere/a.mp3", window.drives.C() / "gone.mp3"}), 1));
  EXPECT_EQ(Order(), "abcde");
  EXPECT_FALSE(window.document->PlaylistChanged);
  EXPECT_FALSE(window.program->engine.view.Dropping());
}

}  // namespace
}  // namespace qublet
