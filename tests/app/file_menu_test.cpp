#include <gtest/gtest.h>

#include <QFileDialog>
#include <QLineEdit>
#include <QTimer>

#include "platform/qt/qt_dialogs.h"
#include "support/main_window.h"

namespace qublet {
namespace {

using Message = ScriptedDialogs::Message;

constexpr const char* kSaveFirst = "Do you want to save the current playlist first?";
constexpr const char* kNoCommonRoot =
    "This playlist cannot be saved to a relative directory because it points to files at different Root locations or "
    "items that are pointed to incorrectly.";
constexpr const char* kTitle = "[Velmora] M3U Playlist Editor v2.1b";

Message SaveFirst() {
  return {kSaveFirst, MessageIcon::kQuestion, MessageButtons::kYesNoCancel};
}
Message Replace(const std::string& path) {
  return {path + " exists, do you want to replace it?", MessageIcon::kQuestion, MessageButtons::kYesNoCancel};
}

class FileMenu : public testing::Test {
 protected:
  FileMenu() {
    window.drives.Write("m/a/1.mp3", kNoise);
    window.drives.Write("m/b/2.mp3", kNoise);
    TemporaryDrives::WriteAt(window.drives.D() / "other.mp3", kNoise);
    window.Start();
  }

  void Open(const std::string& path) {
    window.dialogs.open_names.push_back(path);
    window.Run("MFileOpen");
  }

  MainWindow window;
};

TEST_F(FileMenu, CarriesItsCaptionsLetterForLetter) {
  const std::vector<std::pair<const char*, const char*>> captions{
      {"MFileNew", "&New"},       {"MFileOpen", "&Open"},       {"MFileImport", "&Import.."},
      {"MFileSave", "&Save"},     {"MFileSaveAs", "Save &As"},  {"MFileSaveRel", "Save to Relative Folder.."},
      {"MFileExit", "E&xit"},     {"MEditAddDir", "&Add Item"}, {"MEditRemove", "&Remove Item"},
      {"MViewRefresh", "Refresh"}};
  for (const auto& [name, caption] : captions) {
    ASSERT_NE(window.Action(name), nullptr) << name;
    EXPECT_EQ(window.Action(name)->text().toStdString(), caption);
  }
  EXPECT_EQ(window.main->findChild<QMenu*>("MFileRec")->title().toStdString(), "&Recent Files..");
}

TEST_F(FileMenu, SavesOpensAndShowsTheNameInTheCaption) {
  window.Add("c:\\m");
  window.dialogs.save_names.push_back("c:\\list.m3u");
  window.Run("MFileSave");
  EXPECT_EQ(window.drives.Read("list.m3u"), "c:\\m\\a\\1.mp3\r\nc:\\m\\b\\2.mp3\r\n");
  EXPECT_EQ(window.Caption(), std::string(kTitle) + "[list.m3u]");
  EXPECT_FALSE(window.document->PlaylistChanged);

  window.Run("MFileNew");
  EXPECT_EQ(window.Caption(), kTitle);
  EXPECT_EQ(window.Rows().Count(), 0);

  Open("C:\\list.m3u");
  EXPECT_EQ(window.Names(), "1.mp3 2.mp3");
  EXPECT_EQ(window.document->CurrentPlaylist, "c:\\list.m3u");
  EXPECT_EQ(window.Caption(), std::string(kTitle) + "[list.m3u]");
  EXPECT_EQ(window.Selected(), "--");
  EXPECT_TRUE(window.dialogs.messages.empty());
}

TEST_F(FileMenu, AsksBeforeEachReplacement) {
  window.Add("c:\\m");
  window.dialogs.save_names.push_back("c:\\list.m3u");
  window.Run("MFileSave");
  window.dialogs.answers = {MessageAnswer::kNo};
  window.Run("MFileSave");
  EXPECT_EQ(window.dialogs.save_requests.size(), 1U);
  EXPECT_EQ(window.dialogs.messages, std::vector{Replace("c:\\list.m3u")});
}

TEST_F(FileMenu, OffersToSaveAChangedListFirst) {
  window.Add("c:\\m");
  window.Run("MFileNew");
  EXPECT_EQ(window.dialogs.messages, std::vector{SaveFirst()});
  EXPECT_EQ(window.Rows().Count(), 2) << "Cancel keeps the list";
  window.dialogs.answers = {MessageAnswer::kNo};
  window.Run("MFileNew");
  EXPECT_EQ(window.Rows().Count(), 0);
}

TEST_F(FileMenu, SavesRelativeIntoTheCommonFolderAndReopens) {
  window.Add("c:\\m");
  window.dialogs.save_names.push_back("c:\\m\\m.m3u");
  window.Run("MFileSaveRel");
  ASSERT_EQ(window.dialogs.save_requests.size(), 1U);
  EXPECT_EQ(window.drives.Read("m/m.m3u"), "a\\1.mp3\r\nb\\2.mp3\r\n");
  window.Run("MFileNew");
  Open("c:\\m\\m.m3u");
  EXPECT_EQ(window.Rows().At(1).FullPath(), "c:\\m\\a\\1.mp3");
  EXPECT_EQ(window.Rows().At(2).FullPath(), "c:\\m\\b\\2.mp3");
}

TEST_F(FileMenu, SaysWhenTheItemsHaveNoCommonRoot) {
  window.Add("c:\\m\\a\\1.mp3");
  window.Add("d:\\other.mp3");
  window.Run("MFileSaveRel");
  EXPECT_EQ(window.dialogs.messages,
            (std::vector{Message{kNoCommonRoot, MessageIcon::kInformation, MessageButtons::kOk}}));
  ASSERT_EQ(window.dialogs.save_requests.size(), 1U);
  EXPECT_EQ(window.dialogs.save_requests[0].file_name, "c:\\playlist.m3u");
  EXPECT_EQ(window.dialogs.save_requests[0].default_extension, "m3u");
}

TEST_F(FileMenu, AsksAboutTheFileThatAnIncompleteNameStandsFor) {
  window.drives.Write("Vol. 1.m3u", "old");
  window.Add("c:\\m");
  QtDialogs real(window.main, *window.files, QString(), {});
  window.dialogs.real_save = &real;
  QTimer::singleShot(50, window.main, [] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    auto* name = dialog->findChild<QLineEdit*>();
    name->clear();
    QTest::keyClicks(name, "Vol. 1");
    QTest::keyClick(name, Qt::Key_Return);
  });
  window.Run("MFileSaveAs");
  EXPECT_EQ(window.dialogs.messages, std::vector{Replace("c:\\Vol. 1.m3u")});
  EXPECT_EQ(window.drives.Read("Vol. 1.m3u"), "old");
}

TEST_F(FileMenu, SaysWhenTheFileCannotBeWritten) {
  window.drives.Write("list.m3u", "old");
  std::filesystem::permissions(window.drives.C() / "list.m3u", std::filesystem::perms::owner_read);
  window.Add("c:\\m");
  window.dialogs.save_names.push_back("c:\\list.m3u");
  window.dialogs.answers = {MessageAnswer::kYes};
  window.Run("MFileSave");
  EXPECT_EQ(window.dialogs.messages,
            (std::vector{Replace("c:\\list.m3u"), Message{"Unable to write to the specified file.",
                                                          MessageIcon::kStop, MessageButtons::kOk}}));
  EXPECT_EQ(window.drives.Read("list.m3u"), "old");
  EXPECT_EQ(window.Caption(), kTitle);
  EXPECT_TRUE(window.document->PlaylistChanged);
}

TEST_F(FileMenu, ImportsIntoTheOpenListAndLeavesTheRowsUnselected) {
  window.drives.Write("one.m3u", "c:\\m\\a\\1.mp3\r\n");
  window.drives.Write("two.m3u", "c:\\m\\b\\2.mp3\r\n");
  Open("c:\\one.m3u");
  window.dialogs.open_names.push_back("c:\\two.m3u");
  window.Run("MFileImport");
  EXPECT_EQ(window.Names(), "1.mp3 2.mp3");
  EXPECT_EQ(window.Selected(), "--");
  EXPECT_EQ(window.Caption(), std::string(kTitle) + "[one.m3u]");
  EXPECT_TRUE(window.document->PlaylistChanged);
}

TEST_F(FileMenu, ListsRecentFilesNewestFirstAndOpensThemSelected) {
  EXPECT_FALSE(window.main->findChild<QMenu*>("MFileRec")->isEnabled());
  window.drives.Write("one.m3u", "c:\\m\\a\\1.mp3\r\n");
  window.drives.Write("two & more.m3u", "c:\\m\\b\\2.mp3\r\n");
  Open("c:\\one.m3u");
  Open("c:\\two & more.m3u");
  EXPECT_TRUE(window.main->findChild<QMenu*>("MFileRec")->isEnabled());
  EXPECT_EQ(window.Action("MFileRecent1")->text().toStdString(), "01: two && more.m3u");
  EXPECT_EQ(window.Action("MFileRecent2")->text().toStdString(), "02: one.m3u");
  EXPECT_FALSE(window.Action("MFileRecent3")->isVisible());
  window.Run("MFileRecent2");
  EXPECT_EQ(window.Names(), "1.mp3");
  EXPECT_EQ(window.Selected(), "x");
  EXPECT_EQ(window.Caption(), std::string(kTitle) + "[one.m3u]");
}

TEST_F(FileMenu, SaysWhenARecentFileIsGone) {
  window.drives.Write("one.m3u", "c:\\m\\a\\1.mp3\r\n");
  Open("c:\\one.m3u");
  std::filesystem::remove(window.drives.C() / "one.m3u");
  window.Run("MFileRecent1");
  EXPECT_EQ(window.dialogs.messages,
            (std::vector{Message{"Could not open the file, check that it hasnt been moved, renamed or deleted!",
                                 MessageIcon::kStop, MessageButtons::kOk}}));
  EXPECT_EQ(window.Names(), "1.mp3");
}

// A playlist with this many lines that lead nowhere.
std::string LongList(int lines) {
  std::string text;
  for (int i = 0; i < lines; ++i) text += "c:\\gone\\" + std::to_string(i) + ".mp3\r\n";
  return text;
}

TEST_F(FileMenu, SaysWhatAListHasNoRoomForAndForgetsItsName) {
  const Message left_out{"The list ends at 32,767 items: 2 lines of this file were left out.",
                         MessageIcon::kExclamation, MessageButtons::kOk};
  window.drives.Write("long.m3u", LongList(32'769));
  Open("c:\\long.m3u");
  EXPECT_EQ(window.dialogs.messages, std::vector<Message>{left_out});
  EXPECT_EQ(window.Caption(), kTitle);
  EXPECT_EQ(window.Rows().Count(), 32'767);

  window.main->findChild<QMenu*>("MFileRec")->actions().front()->trigger();
  EXPECT_EQ(window.dialogs.messages, std::vector<Message>(2, left_out));
  EXPECT_EQ(window.document->CurrentPlaylist, "");
  // A plain save asks for a name now.
  window.Run("MFileSave");
  EXPECT_EQ(window.dialogs.save_requests.size(), 1u);
}

TEST_F(FileMenu, GivesMissingLinesBackAsTheyCame) {
  window.drives.Write("list.m3u", "C:\\m\\a\\1.mp3\r\nC:/Gone\\\xF6.mp3\r\nsub/gone.mp3\r\n");
  Open("c:\\list.m3u");
  window.Run("MViewRefresh");
  window.dialogs.answers = {MessageAnswer::kYes};
  window.Run("MFileSave");
  EXPECT_EQ(window.drives.Read("list.m3u"), "c:\\m\\a\\1.mp3\r\nC:/Gone\\\xF6.mp3\r\nsub/gone.mp3\r\n");
}

TEST_F(FileMenu, RemarksOnceThatPlayersHereWantTheOtherType) {
  window.Add("c:\\m");
  window.dialogs.save_names = {"c:\\new.m3u"};
  window.Run("MFileSaveAs");
  EXPECT_EQ(window.Panel(4), "players of this system want .m3u8");
  window.dialogs.save_names = {"c:\\newer.m3u"};
  window.Run("MFileSaveAs");
  EXPECT_EQ(window.Panel(4), "");
}

}  // namespace
}  // namespace qublet
