#include "platform/shell.h"

#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "support/child_process.h"
#include "support/temporary_desktop.h"

namespace qublet {
namespace {

class ShellTest : public testing::Test {
 protected:
  // A program that notes its arguments, one a line, and then the end.
  void AddLogger(const std::string& name) const {
    desktop_.AddProgram(name, "{ for word; do echo \"$word\"; done; echo end; } >'" + Log().string() + "'\n");
  }
  std::filesystem::path Log() const { return desktop_.Drives().Root() / "log"; }

  // What was noted; "" after a time in which any program would have come.
  std::string Noted() const {
    for (int tenths = 0; tenths < 50; ++tenths) {
      const std::string text = TemporaryDrives::ReadAt(Log());
      if (text.ends_with("end\n")) return text;
      std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    return "";
  }
  bool NothingComes() const {
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    return !std::filesystem::exists(Log());
  }

  TemporaryDesktop desktop_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
  std::unique_ptr<Shell> shell_ = OpenShell(*files_);
};

TEST_F(ShellTest, OpensAPlaylistInItsOwnProgram) {
  AddLogger("play");
  TemporaryDesktop::AddEntry(desktop_.Data(), "play", "Exec=play -- %U\nMimeType=audio/x-mpegurl;\n");
  shell_->Open("c:\\a b & c.m3u8");
  EXPECT_EQ(Noted(), "--\n" + (desktop_.Drives().C() / "a b & c.m3u8").string() + "\nend\n");
}

TEST_F(ShellTest, DoesNothingForAPlaylistThatNobodyOwns) {
  AddLogger("xdg-open");
  shell_->Open("c:\\a.m3u");
  shell_->Open("c:\\a.mp3");
  EXPECT_TRUE(NothingComes());
}

TEST_F(ShellTest, OpensAddressesOfTheWebAndNothingElse) {
  AddLogger("xdg-open");
  for (const char* other : {"", "calc http://x", "file:///etc/passwd", "/bin/true", "c:\\a.exe"})
    shell_->OpenAddress(other);
  EXPECT_TRUE(NothingComes());
  shell_->OpenAddress("http://x.org/?q=a b&c#d");
  EXPECT_EQ(Noted(), "http://x.org/?q=a b&c#d\nend\n");
}

TEST_F(ShellTest, StartsAProgramWithOneWord) {
  const std::string name = "a tool \"'100%$HOME.sh";
  const std::string word = "/m/b c \"d' 50%25 $x;.m3u8";
  AddLogger(name);
  const std::string program = files_->FromNative((desktop_.Programs() / name).string());
  EXPECT_TRUE(shell_->CanStart(program));
  shell_->Start(program, word);
  EXPECT_EQ(Noted(), word + "\nend\n");
}

TEST_F(ShellTest, StartsAProgramInTheCurrentFolderNotItsNamesakeInThePath) {
  AddLogger("tool");
  const std::filesystem::path here = desktop_.Drives().C() / "tool";
  TemporaryDrives::WriteAt(here,
                           "#!/bin/sh\necho here >'" + Log().string() + "'; echo end >>'" + Log().string() + "'");
  std::filesystem::permissions(here, std::filesystem::perms::owner_all);
  files_->SetCurrentFolder("c:\\");
  shell_->Start("tool", "word");
  EXPECT_EQ(Noted(), "here\nend\n");
}

TEST_F(ShellTest, OpensWhatItCantStart) {
  AddLogger("xdg-open");
  desktop_.Drives().Write("page.html", "<p>");
  EXPECT_FALSE(shell_->CanStart("c:\\page.html"));
  shell_->Start("c:\\page.html", "word");
  EXPECT_EQ(Noted(), (desktop_.Drives().C() / "page.html").string() + "\nend\n");
}

TEST_F(ShellTest, StartsNoProgramForWindowsAndNoFolder) {
  const std::filesystem::path tool = desktop_.Drives().C() / "tool.exe";
  TemporaryDrives::WriteAt(tool, "MZ\x90");
  std::filesystem::permissions(tool, std::filesystem::perms::owner_all);
  EXPECT_FALSE(shell_->CanStart("c:\\tool.exe"));
  TemporaryDrives::WriteAt(tool, "#!/bin/sh\n");
  EXPECT_TRUE(shell_->CanStart("c:\\tool.exe")) << "what a file is called doesn't count";
  std::filesystem::permissions(tool, std::filesystem::perms::owner_read);
  EXPECT_FALSE(shell_->CanStart("c:\\tool.exe"));
  for (const char* path : {"c:\\", "c:\\gone", "q:\\a", ""}) EXPECT_FALSE(shell_->CanStart(path)) << path;
}

TEST_F(ShellTest, SaysNothingOfAProgramThatCantRun) {
  const std::filesystem::path tool = desktop_.Drives().C() / "tool";
  TemporaryDrives::WriteAt(tool, "#!/no/such/interpreter\n");
  std::filesystem::permissions(tool, std::filesystem::perms::owner_all);
  shell_->Start("c:\\tool", "word");
  EXPECT_TRUE(NothingComes());
}

TEST_F(ShellTest, LeavesOtherFilesAndFoldersToTheSystem) {
  AddLogger("xdg-open");
  shell_->Open("c:\\folder");
  EXPECT_EQ(Noted(), (desktop_.Drives().C() / "folder").string() + "\nend\n");
}

TEST_F(ShellTest, SaysWhetherAProgramWasStarted) {
  EXPECT_FALSE(shell_->Open("c:\\a.m3u")) << "nobody owns it";
  EXPECT_FALSE(shell_->Open("c:\\page.html")) << "there is no opener";
  EXPECT_FALSE(shell_->Open("q:\\a.m3u"));
  AddLogger("play");
  TemporaryDesktop::AddEntry(desktop_.Data(), "play", "Exec=play %U\nMimeType=audio/x-mpegurl;\n");
  EXPECT_TRUE(shell_->Open("c:\\a.m3u"));
  EXPECT_NE(Noted(), "");
  TemporaryDrives::WriteAt(desktop_.Programs() / "play", "#!/no/such/interpreter\n");
  EXPECT_FALSE(shell_->Open("c:\\a.m3u"));
}

TEST_F(ShellTest, OpensNothingButAudioFilesOfAList) {
  AddLogger("xdg-open");
  AddLogger("play");
  TemporaryDesktop::AddEntry(desktop_.Data(), "play", "Exec=play %U\nMimeType=audio/mpeg;audio/x-mpegurl;\n");
  for (const char* other : {"c:\\a.desktop", "c:\\a.sh", "c:\\a", "c:\\a.mp3\\b", "c:\\a.m3u", "c:\\a.m3u8"})
    EXPECT_FALSE(shell_->OpenAudio(other)) << other;
  EXPECT_TRUE(NothingComes());
  EXPECT_TRUE(shell_->OpenAudio("c:\\a.MP3"));
  EXPECT_EQ(Noted(), (desktop_.Drives().C() / "a.MP3").string() + "\nend\n");
}

TEST_F(ShellTest, BeginsNoProgramInThePlaylistsFolder) {
  const std::filesystem::path home = desktop_.Drives().Root() / "home";
  std::filesystem::create_directory(home);
  const Variable at_home("HOME", home.string());
  desktop_.Drives().Write("m/a.m3u", "");
  files_->SetCurrentFolder("c:\\m");
  desktop_.AddProgram("play", "{ pwd; echo \"$1\"; echo end; } >'" + Log().string() + "'\n");
  const std::string entry = "Exec=play %f\nMimeType=audio/x-mpegurl;\n";
  const std::string file = (desktop_.Drives().C() / "m/a.m3u").string() + "\nend\n";
  const auto noted_with = [&](const std::string& keys) {
    std::filesystem::remove(Log());
    TemporaryDesktop::AddEntry(desktop_.Data(), "play", entry + keys);
    shell_->Open("a.m3u");
    return Noted();
  };
  EXPECT_EQ(noted_with(""), home.string() + "\n" + file);
  EXPECT_EQ(noted_with("Path=" + desktop_.Programs().string() + "\n"), desktop_.Programs().string() + "\n" + file);
  EXPECT_EQ(noted_with("Path=/no/such/folder\n"), home.string() + "\n" + file);
  EXPECT_EQ(noted_with("Path=.\n"), home.string() + "\n" + file);
}

TEST_F(ShellTest, StartsTheProgramThatWasFoundAndNoNamesakeInTheCurrentFolder) {
  AddLogger("play");
  AddLogger("xdg-open");
  const Variable with_here("PATH", ":." + (":" + desktop_.Programs().string()));
  for (const char* name : {"play", "xdg-open"}) {
    TemporaryDrives::WriteAt(desktop_.Drives().C() / name, "#!/bin/sh\necho wrong >'" + Log().string() + "'\n");
    std::filesystem::permissions(desktop_.Drives().C() / name, std::filesystem::perms::owner_all);
  }
  TemporaryDesktop::AddEntry(desktop_.Data(), "play", "Exec=play %U\nMimeType=audio/x-mpegurl;\n");
  for (const char* path : {"c:\\a.m3u", "c:\\page.html"}) {
    std::filesystem::remove(Log());
    shell_->Open(path);
    EXPECT_EQ(Noted(), files_->ToNative(path) + "\nend\n");
  }
}

TEST_F(ShellTest, StartsAProgramWithoutAWindowInATerminal) {
  const std::string play = desktop_.AddProgram("play").string();
  TemporaryDesktop::AddEntry(desktop_.Data(), "play", "Exec=play -q %f\nTerminal=true\nMimeType=audio/x-mpegurl;\n");
  const std::string native = (desktop_.Drives().C() / "a b.m3u").string();
  AddLogger("xdg-open");
  shell_->Open("c:\\a b.m3u");
  EXPECT_EQ(Noted(), native + "\nend\n") << "where there is no terminal";
  std::filesystem::remove(Log());
  AddLogger("xterm");
  shell_->Open("c:\\a b.m3u");
  EXPECT_EQ(Noted(), "-e\n" + play + "\n-q\n" + native + "\nend\n");
  std::filesystem::remove(Log());
  AddLogger("x-terminal-emulator");
  shell_->Open("c:\\a b.m3u");
  EXPECT_EQ(Noted(), "-e\n" + play + "\n-q\n" + native + "\nend\n");
}

TEST_F(ShellTest, LeavesNothingOfAProgramThatHasEnded) {
  desktop_.AddProgram("xdg-open", "echo $$ >'" + Log().string() + "'\n");
  shell_->Open("c:\\folder");
  std::string number;
  ASSERT_TRUE(Eventually([&] { return (number = TemporaryDrives::ReadAt(Log())).ends_with('\n'); }));
  number.pop_back();
  EXPECT_TRUE(Eventually([&] { return !std::filesystem::exists("/proc/" + number); }));
}

TEST_F(ShellTest, HandsOnAnIdForEachStartAndNeverItsOwn) {
  const Variable own("DESKTOP_STARTUP_ID", "of the start of this program");
  const Variable token("XDG_ACTIVATION_TOKEN", "of this program too");
  desktop_.AddProgram("xdg-open",
                      "{ echo \"$DESKTOP_STARTUP_ID$XDG_ACTIVATION_TOKEN\"; echo end; } >'" + Log().string() + "'\n");
  shell_->Open("c:\\folder");
  EXPECT_EQ(Noted(), "\nend\n");
  std::filesystem::remove(Log());
  int starts = 0;
  OpenShell(*files_, [&] { return "start-" + std::to_string(++starts); })->Open("c:\\folder");
  EXPECT_EQ(Noted(), "start-1\nend\n");
}

TEST_F(ShellTest, MindsNeitherAMissingOpenerNorAMissingDrive) {
  shell_->Open("c:\\folder");
  shell_->Open("q:\\a.m3u");
  shell_->Open("");
  EXPECT_TRUE(NothingComes());
}

TEST_F(ShellTest, ShowsAFolderByTheSystemsOpener) {
  AddLogger("xdg-open");
  shell_->Explore("c:\\folder");
  EXPECT_EQ(Noted(), (desktop_.Drives().C() / "folder").string() + "\nend\n");
}

TEST_F(ShellTest, SearchesByTheFirstProgramThatIsThere) {
  AddLogger("mate-search-tool");
  shell_->Find("c:\\a folder");
  EXPECT_EQ(Noted(), "--path=" + (desktop_.Drives().C() / "a folder").string() + "\nend\n");
  std::filesystem::remove(Log());
  AddLogger("kfind");
  shell_->Find("c:\\a folder");
  EXPECT_EQ(Noted(), (desktop_.Drives().C() / "a folder").string() + "\nend\n");
}

TEST_F(ShellTest, ShowsTheFolderWhereNoProgramSearches) {
  AddLogger("xdg-open");
  shell_->Find("c:\\folder");
  EXPECT_EQ(Noted(), (desktop_.Drives().C() / "folder").string() + "\nend\n");
}

TEST_F(ShellTest, ShowsTheFolderOfAFileWhosePropertiesNobodyShows) {
  AddLogger("xdg-open");
  shell_->ShowFileProperties("c:\\folder\\a.mp3");
  EXPECT_EQ(Noted(), (desktop_.Drives().C() / "folder").string() + "/\nend\n");
}

TEST_F(ShellTest, OpensTheVolumeControlThatIsThere) {
  AddLogger("gnome-control-center");
  EXPECT_TRUE(shell_->OpenVolumeControl());
  EXPECT_EQ(Noted(), "sound\nend\n");
}

TEST_F(ShellTest, SaysThatThereIsNoVolumeControl) {
  EXPECT_FALSE(shell_->OpenVolumeControl());
}

TEST_F(ShellTest, HandsPlaylistsOverInTheUsersRuntimeFolder) {
  EXPECT_EQ(files_->ToNative(shell_->HandOverFolder()), (desktop_.Runtime() / "velmora").string());
  EXPECT_TRUE(std::filesystem::is_directory(desktop_.Runtime() / "velmora"));
}

TEST_F(ShellTest, HandsThemOverInTheCacheWithoutARuntimeFolder) {
  const Variable runtime("XDG_RUNTIME_DIR", (desktop_.Drives().Root() / "none").string());
  const Variable cache("XDG_CACHE_HOME", (desktop_.Drives().Root() / "cache").string());
  EXPECT_EQ(files_->ToNative(shell_->HandOverFolder()), (desktop_.Drives().Root() / "cache/velmora").string());
}

}  // namespace
}  // namespace qublet
