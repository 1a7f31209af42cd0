#include "platform/associations.h"

#include <gtest/gtest.h>

#include "support/temporary_desktop.h"

namespace qublet {
namespace {

class AssociationsTest : public testing::Test {
 protected:
  // Writes a mimeapps.list: lines below a group each.
  static void Write(const std::filesystem::path& file, const std::string& text) {
    TemporaryDrives::WriteAt(file, text);
  }

  AssociatedProgram Program(const std::string& path = "c:\\tmp.m3u") const { return associations_->ProgramFor(path); }
  std::string Id(const std::string& path = "c:\\tmp.m3u") const { return Program(path).id; }

  TemporaryDesktop desktop_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
  std::unique_ptr<Associations> associations_ = OpenAssociations(*files_);
};

TEST_F(AssociationsTest, GiveNothingWhereNothingIsInstalled) {
  EXPECT_EQ(Program().path, "");
  EXPECT_EQ(Program().id, "");
  EXPECT_FALSE(Program().player);
}

TEST_F(AssociationsTest, GiveTheUsersDefaultWithItsPathInDriveForm) {
  desktop_.Install("one", "MimeType=audio/x-mpegurl;\n");
  desktop_.Install("two", "MimeType=audio/x-mpegurl;\n");
  Write(desktop_.Config() / "mimeapps.list", "[Default Applications]\naudio/x-mpegurl=two.desktop\n");
  EXPECT_EQ(Id(), "two");
  EXPECT_EQ(Program().path, files_->FromNative((desktop_.Programs() / "two").string()));
  EXPECT_EQ(associations_->FindAssociatedProgram("c:\\tmp.m3u"), Program().path);
}

TEST_F(AssociationsTest, AskForTheOtherTypesOfAPlaylistToo) {
  desktop_.Install("apple");
  desktop_.Install("old");
  Write(desktop_.Config() / "mimeapps.list", "[Default Applications]\naudio/mpegurl=old.desktop\n");
  EXPECT_EQ(Id(), "old");
  Write(desktop_.Config() / "mimeapps.list",
        "[Default Applications]\naudio/mpegurl=old.desktop\napplication/vnd.apple.mpegurl=apple.desktop\n");
  EXPECT_EQ(Id(), "apple");
}

TEST_F(AssociationsTest, PreferTheSoundTypeOfAPlaylist) {
  desktop_.Install("sound");
  desktop_.Install("apple");
  Write(desktop_.Config() / "mimeapps.list",
        "[Default Applications]\napplication/vnd.apple.mpegurl=apple.desktop\naudio/x-mpegurl=sound.desktop\n");
  EXPECT_EQ(Id(), "sound");
  EXPECT_EQ(Id("c:\\LIST.M3U8"), "sound");
}

TEST_F(AssociationsTest, PreferWhatTheUserChoseForAnyTypeToWhatIsInstalled) {
  desktop_.Install("installed", "MimeType=audio/x-mpegurl;\n");
  desktop_.Install("chosen");
  Write(desktop_.SystemData() / "applications/mimeinfo.cache", "[MIME Cache]\naudio/x-mpegurl=installed.desktop;\n");
  Write(desktop_.Config() / "mimeapps.list",
        "[Default Applications]\napplication/vnd.apple.mpegurl=chosen.desktop\n");
  EXPECT_EQ(Id(), "chosen");
}

TEST_F(AssociationsTest, TakeTheFirstDefaultWhoseEntryAndProgramAreThere) {
  desktop_.Install("there");
  TemporaryDesktop::AddEntry(desktop_.SystemData(), "no-program", "Exec=nowhere %U\n");
  desktop_.AddProgram("wants-more");
  TemporaryDesktop::AddEntry(desktop_.SystemData(), "wants-more", "Exec=wants-more %U\nTryExec=/nowhere/more\n");
  Write(
      desktop_.Config() / "mimeapps.list",
      "[Default Applications]\naudio/x-mpegurl=gone.desktop;no-program.desktop;wants-more.desktop;there.desktop;\n");
  EXPECT_EQ(Id(), "there");
}

TEST_F(AssociationsTest, GoOnToTheNextListWhenNoDefaultOfOneIsThere) {
  desktop_.Install("system");
  Write(desktop_.Config() / "mimeapps.list", "[Default Applications]\naudio/x-mpegurl=gone.desktop\n");
  Write(desktop_.SystemData() / "applications/mimeapps.list",
        "[Default Applications]\naudio/x-mpegurl=system.desktop\n");
  EXPECT_EQ(Id(), "system");
}

TEST_F(AssociationsTest, ReadTheListsInTheirOrder) {
  const std::vector<std::pair<std::filesystem::path, std::string>> lists{
      {desktop_.SystemData() / "applications/mimeapps.list", "share"},
      {desktop_.SystemData() / "applications/gnome-mimeapps.list", "share-gnome"},
      {desktop_.Data() / "applications/mimeapps.list", "data"},
      {desktop_.SystemConfig() / "mimeapps.list", "etc"},
      {desktop_.SystemConfig() / "gnome-mimeapps.list", "etc-gnome"},
      {desktop_.Config() / "mimeapps.list", "config"},
      {desktop_.Config() / "gnome-mimeapps.list", "config-gnome"},
      {desktop_.Config() / "nearer-mimeapps.list", "config-nearer"}};
  desktop_.SetDesktop("Nearer:GNOME");
  for (const auto& [list, id] : lists) {
    desktop_.Install(id);
    Write(list, "[Default Applications]\naudio/x-mpegurl=" + id + ".desktop\n");
    EXPECT_EQ(Id(), id) << list;
  }
}

TEST_F(AssociationsTest, PutWhatAUserAddedBeforeWhatIsInstalled) {
  desktop_.Install("installed", "MimeType=audio/x-mpegurl;\n");
  desktop_.Install("added");
  Write(desktop_.SystemData() / "applications/mimeinfo.cache", "[MIME Cache]\naudio/x-mpegurl=installed.desktop;\n");
  EXPECT_EQ(Id(), "installed");
  Write(desktop_.Config() / "mimeapps.list", "[Added Associations]\naudio/x-mpegurl=added.desktop;\n");
  EXPECT_EQ(Id(), "added");
}

TEST_F(AssociationsTest, PassOverWhatWasRemoved) {
  desktop_.Install("first", "MimeType=audio/x-mpegurl;\n");
  desktop_.Install("second", "MimeType=application/vnd.apple.mpegurl;\n");
  Write(desktop_.SystemData() / "applications/mimeinfo.cache",
        "[MIME Cache]\naudio/x-mpegurl=first.desktop;\napplication/vnd.apple.mpegurl=second.desktop;\n");
  EXPECT_EQ(Id(), "first");
  Write(desktop_.Config() / "mimeapps.list", "[Removed Associations]\naudio/x-mpegurl=first.desktop;\n");
  EXPECT_EQ(Id(), "second");
  Write(desktop_.Config() / "mimeapps.list",
        "[Removed Associations]\naudio/x-mpegurl=first.desktop;second.desktop;\n");
  EXPECT_EQ(Id(), "");
}

TEST_F(AssociationsTest, PassOverASystemsDefaultThatTheUserRemoved) {
  desktop_.Install("default");
  Write(desktop_.SystemData() / "applications/mimeapps.list",
        "[Default Applications]\naudio/x-mpegurl=default.desktop\n");
  EXPECT_EQ(Id(), "default");
  Write(desktop_.Config() / "mimeapps.list", "[Removed Associations]\naudio/x-mpegurl=default.desktop;\n");
  EXPECT_EQ(Id(), "");
}

TEST_F(AssociationsTest, FindAnApplicationThatNoCacheKnows) {
  desktop_.AddProgram("player");
  TemporaryDesktop::AddEntry(desktop_.Data(), "kde/player", "Exec=player\nMimeType=audio/ogg;audio/mpegurl;\n");
  EXPECT_EQ(Id(), "kde-player");
}

TEST_F(AssociationsTest, FindAnEntryInAFolderByItsId) {
  desktop_.AddProgram("player");
  TemporaryDesktop::AddEntry(desktop_.SystemData(), "kde/player", "Exec=player\n");
  Write(desktop_.Config() / "mimeapps.list", "[Default Applications]\naudio/x-mpegurl=kde-player.desktop\n");
  EXPECT_EQ(Id(), "kde-player");
}

TEST_F(AssociationsTest, DoNotTakeATextEditorThatShowsPlaylistsAsText) {
  desktop_.Install("editor", "MimeType=text/plain;\n");
  Write(desktop_.SystemData() / "applications/mimeinfo.cache", "[MIME Cache]\ntext/plain=editor.desktop;\n");
  Write(desktop_.Config() / "mimeapps.list", "[Default Applications]\ntext/plain=editor.desktop\n");
  EXPECT_EQ(Id(), "");
}

TEST_F(AssociationsTest, PassOverThisProgramItself) {
  desktop_.Install("QUBLET20", "MimeType=audio/x-mpegurl;\nCategories=AudioVideo;Audio;\n");
  Write(desktop_.Config() / "mimeapps.list", "[Default Applications]\naudio/x-mpegurl=QUBLET20.desktop\n");
  EXPECT_EQ(Id(), "");
  desktop_.Install("player", "MimeType=audio/x-mpegurl;\n");
  EXPECT_EQ(Id(), "player");
}

TEST_F(AssociationsTest, LetTheUsersEntryHideTheSystemsOfTheSameId) {
  desktop_.Install("player", "MimeType=audio/x-mpegurl;\n");
  desktop_.AddProgram("own");
  TemporaryDesktop::AddEntry(desktop_.Data(), "player", "Exec=own %f\nMimeType=audio/x-mpegurl;\n");
  EXPECT_EQ(Program().path, files_->FromNative((desktop_.Programs() / "own").string()));
  TemporaryDesktop::AddEntry(desktop_.Data(), "player", "Hidden=true\n");
  EXPECT_EQ(Id(), "");
}

TEST_F(AssociationsTest, TellAPlayerByItsCategories) {
  const std::vector<std::pair<std::string, bool>> cases{{"AudioVideo;Audio;Video;Player;TV;", true},
                                                        {"Player;", true},
                                                        {"Audio", true},
                                                        {"AudioVideo;", true},
                                                        {"Utility;TextEditor;", false},
                                                        {"AudioVideoEditing;", false},
                                                        {"", false}};
  for (const auto& [categories, player] : cases) {
    desktop_.Install("program", "MimeType=audio/x-mpegurl;\nCategories=" + categories + "\n");
    EXPECT_EQ(Program().player, player) << categories;
  }
}

TEST_F(AssociationsTest, KnowTheKindsOfTheList) {
  for (const auto& [extension, type] : std::vector<std::pair<std::string, std::string>>{
           {"mp3", "audio/mpeg"}, {"ogg", "audio/x-vorbis+ogg"}, {"wav", "audio/x-wav"}, {"wma", "audio/x-ms-wma"}}) {
    desktop_.Install(extension, "MimeType=" + type + ";\n");
    EXPECT_EQ(Id("c:\\a." + extension), extension);
  }
  EXPECT_EQ(Id("c:\\a.txt"), "");
  EXPECT_EQ(Id("c:\\m3u"), "");
  EXPECT_EQ(Id("c:\\x.m3u\\m3u"), "");
}

TEST_F(AssociationsTest, TakeGarbageForNothing) {
  const std::string zeros(1000, '\0');
  Write(desktop_.Config() / "mimeapps.list", "[Default Applications]\naudio/x-mpegurl=../../x.desktop;;=;.desktop;" +
                                                 zeros + "\n[\n]\naudio/x-mpegurl\n" + zeros);
  std::filesystem::create_directories(desktop_.Data() / "applications/mimeinfo.cache");
  TemporaryDesktop::AddEntry(desktop_.Data(), "endless", "Exec=\"endless\nMimeType=audio/x-mpegurl;\n");
  TemporaryDesktop::AddEntry(desktop_.Data(), "empty", "Exec=\nMimeType=audio/x-mpegurl;\n");
  TemporaryDesktop::AddEntry(desktop_.Data(), "folder", "Exec=/\nMimeType=audio/x-mpegurl;\n");
  std::filesystem::create_directory_symlink(desktop_.Data() / "applications", desktop_.Data() / "applications/loop");
  EXPECT_EQ(Id(), "");
}

}  // namespace
}  // namespace qublet
