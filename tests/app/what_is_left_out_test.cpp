#include <QDropEvent>
#include <QMimeData>

#include <filesystem>

#include "playlist/paths/playlist_bounds.h"
#include "support/list_mouse_test.h"
#include "support/ordinary_user.h"

namespace qublet {
namespace {

// What the window says in passing of folders and playlists that it couldn't take in as a whole.
class WhatIsLeftOutInTheWindow : public ListMouseTest {
 protected:
  WhatIsLeftOutInTheWindow() {
    for (const char* name : {"one/1.mp3", "one/shut/2.mp3", "two/3.mp3"}) window.drives.Write(name, "abc");
    Shut(std::filesystem::perms::none);
  }
  ~WhatIsLeftOutInTheWindow() override { Shut(std::filesystem::perms::owner_all); }

  void Shut(std::filesystem::perms mode) const {
    std::filesystem::permissions(window.drives.C() / "one" / "shut", mode);
  }
  void Drop(const std::vector<std::string>& names) {
    QList<QUrl> addresses;
    for (const std::string& name : names)
      addresses << QUrl::fromLocalFile(QString::fromStdString((window.drives.C() / name).string()));
    QMimeData data;
    data.setUrls(addresses);
    QDragEnterEvent enter(On(1), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&View(), &enter);
    QDropEvent drop(On(1), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&View(), &drop);
  }
};

TEST_F(WhatIsLeftOutInTheWindow, FoldersThatCanNotBeListedAreRemarkedOnAfterADrop) {
  const OrdinaryUser user(window.drives.Root());
  Drop({"one", "two"});
  EXPECT_EQ(window.Names(), "1.mp3 3.mp3 a.mp3 b.mp3 c.mp3 d.mp3 e.mp3");
  EXPECT_EQ(window.Panel(4), "1 folder can't be listed");
  EXPECT_TRUE(window.dialogs.messages.empty());
  Drop({"two"});
  EXPECT_EQ(window.Panel(4), "");
}

TEST_F(WhatIsLeftOutInTheWindow, FoldersThatCanNotBeListedAreRemarkedOnAfterTheMenu) {
  const OrdinaryUser user(window.drives.Root());
  window.Add("c:\\one");
  EXPECT_EQ(window.Panel(4), "1 folder can't be listed");
}

TEST_F(WhatIsLeftOutInTheWindow, FoldersThatCanNotBeListedAreRemarkedOnAfterAStart) {
  const OrdinaryUser user(window.drives.Root());
  window.Restart("\"c:\\one\" \"c:\\two\"");
  EXPECT_EQ(window.Names(), "1.mp3 3.mp3");
  EXPECT_EQ(window.Panel(4), "1 folder can't be listed");
}

TEST_F(WhatIsLeftOutInTheWindow, LongLinesAreRemarkedOn) {
  window.drives.Write("list.m3u", std::string(PlaylistBounds::kMostLineBytes, 'x') + ".mp3\r\nc:\\two\\3.mp3\r\n");
  window.Add("c:\\list.m3u");
  EXPECT_EQ(window.Panel(4), "1 line is longer than 32 KiB and left out");
}

}  // namespace
}  // namespace qublet
