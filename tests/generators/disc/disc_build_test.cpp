#include "generators/disc/disc_build.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/forwarding_file_system.h"
#include "support/editor_test_base.h"

namespace qublet {
namespace {

// Doesn't write one file.
class RefusingFileSystem : public ForwardingFileSystem {
 public:
  using ForwardingFileSystem::ForwardingFileSystem;
  std::string refused;

  std::unique_ptr<FileReplacement> BeginReplacement(const std::string& path) const override {
    if (path.ends_with(refused) && !refused.empty()) throw Failure("refused");
    return ForwardingFileSystem::BeginReplacement(path);
  }
  void CopyFile(const std::string& source, const std::string& target) const override {
    if (target.ends_with(refused) && !refused.empty()) throw Failure("refused");
    ForwardingFileSystem::CopyFile(source, target);
  }
};

class DiscBuildTest : public EditorTestBase {
 protected:
  DiscBuildTest() {
    drives_.Write("program/QUBBROWS.exe", "browser");
    drives_.Write("discs/mine/one.mp3", "music");
    drives_.Write("discs/mine/album/two.ogg", "music");
    drives_.Write("discs/mine/notes.txt", "text");
    plan_.AssembleLoc = "c:\\discs\\";
    plan_.CDROMLoc = "mine";
    plan_.icon = "icon";
    SetDefaultReport("mine", plan_.ReportRec);
  }

  void WithEverything() { plan_.extras = {true, true, true, true, true, true}; }
  BuiltDisc Build() {
    DiscWatch watch;
    watch.lblReport = [this](const std::string& text) { reports_.push_back(text); };
    watch.ProgressBar2 = [this](int value) { bar_.push_back(value); };
    return BuildCompilation({refusing_, feedback_, fakes_.clock, separator_, folder_}, plan_, watch,
                            [this] { ++kept_; });
  }
  Collection Top() const {
    Collection names;
    for (const auto& entry : std::filesystem::directory_iterator(drives_.C() / "discs/mine"))
      names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    return names;
  }
  std::string Content(const std::string& name) const { return drives_.Read("discs/mine/" + name); }

  const std::string separator_ = ",", folder_ = "c:\\program";
  RefusingFileSystem refusing_{*files_};
  DiscPlan plan_;
  Collection reports_;
  std::vector<int> bar_;
  int kept_ = 0;
};

const Collection kUsersOwn = {"album", "notes.txt", "one.mp3"};

TEST_F(DiscBuildTest, MakesNothingWithoutABox) {
  const BuiltDisc disc = Build();
  EXPECT_TRUE(disc.BuildOk);
  EXPECT_EQ(disc.CreatedFiles, Collection());
  EXPECT_EQ(disc.BurnList,
            (Collection{"c:\\discs\\mine\\album", "c:\\discs\\mine\\notes.txt", "c:\\discs\\mine\\one.mp3"}));
  EXPECT_EQ(Top(), kUsersOwn);
  EXPECT_EQ(kept_, 1);
}

TEST_F(DiscBuildTest, TellsItsWayThroughTheStages) {
  Build();
  EXPECT_EQ(reports_, (Collection{"Copying MP3 browser Software...", "Creating a table of MP3 Data...",
                                  "Creating the Autorun file...", "Building list of files to be copied...",
                                  "Saving your settings...", "Done: The process completed successfully."}));
  EXPECT_EQ(bar_, (std::vector<int>{1, 2, 3, 4, 5, 0}));
}

TEST_F(DiscBuildTest, MakesEverything) {
  WithEverything();
  const BuiltDisc disc = Build();
  EXPECT_TRUE(disc.BuildOk);
  EXPECT_EQ(disc.CreatedFiles, (Collection{"c:\\discs\\mine\\qubbrows.exe", "c:\\discs\\mine\\MP3Index.htm",
                                           "c:\\discs\\mine\\setup.ico", "c:\\discs\\mine\\playlist.m3u",
                                           "c:\\discs\\mine\\autorun.inf"}));
  EXPECT_EQ(Content("qubbrows.exe"), "browser");
  EXPECT_EQ(Content("setup.ico"), "icon");
  EXPECT_EQ(Content("playlist.m3u"), "one.mp3\r\nalbum\\two.ogg\r\n");
  EXPECT_EQ(Content("autorun.inf"),
            "[autorun]\r\nicon=setup.ico\r\nopen=start playlist.m3u\r\nopen=start qubbrows.exe\r\n");
  EXPECT_EQ(disc.BurnList.size(), 8U);
  EXPECT_EQ(std::ranges::count(reports_, "Creating CD playlist..."), 1);
}

TEST_F(DiscBuildTest, GivesThePageItsTitleWhateverTheSettingsAre) {
  plan_.extras.chkCreateTable = true;
  plan_.ReportRec.RepType = kTextReport;
  plan_.ReportRec.SaveRel = false;
  plan_.ReportRec.Title = "another";
  plan_.ReportRec.Description = "description";
  Build();
  const std::string page = Content("MP3Index.htm");
  EXPECT_NE(page.find("<title>mine - Created: 07:05:01 [03-09-2004]"), std::string::npos);
  EXPECT_NE(page.find("<a href=album/two.ogg>"), std::string::npos);
  EXPECT_EQ(page.find("another"), std::string::npos);
  EXPECT_EQ(page.find("description"), std::string::npos);
  EXPECT_EQ(Top(), (Collection{"MP3Index.htm", "album", "notes.txt", "one.mp3"}));
}

TEST_F(DiscBuildTest, WritesThePlaylistButNoAutorunFileWithoutALineForIt) {
  plan_.extras.chkCreateAutorun = true;
  EXPECT_TRUE(Build().BuildOk);
  EXPECT_EQ(Top(), (Collection{"album", "notes.txt", "one.mp3", "playlist.m3u"}));
}

TEST_F(DiscBuildTest, OpensTheBrowserOnlyWhereItIsOnTheDisc) {
  plan_.extras.chkCreateAutorun = plan_.extras.chkAutoIndex = true;
  Build();
  EXPECT_EQ(Content("autorun.inf"), "");
  plan_.extras.chkCopyBrowser = true;
  Build();
  EXPECT_EQ(Content("autorun.inf"), "[autorun]\r\nopen=start qubbrows.exe\r\n");
}

TEST_F(DiscBuildTest, CopiesTheUsersOwnIconAsItIs) {
  drives_.Write("my.ico", "the user's");
  plan_.extras.chkCreateAutorun = plan_.extras.chkAutoIcon = true;
  plan_.icon_file = "c:\\my.ico";
  Build();
  EXPECT_EQ(Content("setup.ico"), "the user's");
  plan_.icon_file = "c:\\gone.ico";
  Build();
  EXPECT_EQ(Content("setup.ico"), "icon");
}

TEST_F(DiscBuildTest, LeavesHiddenFilesOffTheDisc) {
  drives_.Write("discs/mine/.hidden", "");
  EXPECT_EQ(Build().BurnList.size(), 3U);
}

TEST_F(DiscBuildTest, TakesEverythingBackWhereOneFileFails) {
  WithEverything();
  for (const char* name : {"qubbrows.exe", "MP3Index.htm", "playlist.m3u", "autorun.inf"}) {
    refusing_.refused = name;
    reports_.clear();
    EXPECT_FALSE(Build().BuildOk) << name;
    EXPECT_EQ(Top(), kUsersOwn) << name;
    EXPECT_EQ(reports_.back(), "Done: Process failed, any files created were removed.");
    EXPECT_EQ(reports_[reports_.size() - 2], "Process failed, cleaning up...");
  }
  EXPECT_EQ(kept_, 0);
}

TEST_F(DiscBuildTest, DoesWithoutAnIconThatFails) {
  WithEverything();
  refusing_.refused = "setup.ico";
  const BuiltDisc disc = Build();
  EXPECT_TRUE(disc.BuildOk);
  EXPECT_EQ(std::ranges::count(disc.CreatedFiles, "c:\\discs\\mine\\setup.ico"), 1);
}

TEST_F(DiscBuildTest, LeavesAReadOnlyFileOfAnEarlierDisc) {
  WithEverything();
  drives_.Write("discs/mine/autorun.inf", "old");
  drives_.Write("discs/mine/setup.ico", "old");
  SetReadOnly("discs/mine/autorun.inf", true);
  SetReadOnly("discs/mine/setup.ico", true);
  EXPECT_FALSE(Build().BuildOk);
  EXPECT_EQ(Content("autorun.inf"), "old");
  EXPECT_EQ(Content("setup.ico"), "old");
  EXPECT_EQ(Top(), (Collection{"album", "autorun.inf", "notes.txt", "one.mp3", "setup.ico"}));
}

TEST_F(DiscBuildTest, FailsWithAnOldPageThatCannotBeReplaced) {
  plan_.extras.chkCreateTable = true;
  drives_.Write("discs/mine/MP3Index.htm", "old");
  SetReadOnly("discs/mine/MP3Index.htm", true);
  EXPECT_FALSE(Build().BuildOk);
  EXPECT_EQ(Content("MP3Index.htm"), "old");
}

TEST_F(DiscBuildTest, FindsTheBrowserProgramInAnyCase) {
  plan_.extras.chkCopyBrowser = true;
  for (const char* name : {"qubbrows.exe", "QubBrows.EXE"}) {
    std::filesystem::remove(drives_.C() / "program/QUBBROWS.exe");
    drives_.Write(std::string("program/") + name, "browser");
    EXPECT_TRUE(Build().BuildOk) << name;
    EXPECT_EQ(Content("qubbrows.exe"), "browser");
    std::filesystem::remove(drives_.C() / "program" / name);
  }
}

TEST_F(DiscBuildTest, FailsWithoutTheBrowserProgramThatIsWanted) {
  plan_.extras.chkCopyBrowser = true;
  std::filesystem::remove(drives_.C() / "program/QUBBROWS.exe");
  EXPECT_FALSE(Build().BuildOk);
}

TEST_F(DiscBuildTest, GivesADiscWithoutMusicAnEmptyListAndPage) {
  std::filesystem::remove_all(drives_.C() / "discs/mine/album");
  std::filesystem::remove(drives_.C() / "discs/mine/one.mp3");
  plan_.extras.chkCreateAutorun = plan_.extras.chkCreateTable = true;
  EXPECT_TRUE(Build().BuildOk);
  EXPECT_TRUE(std::filesystem::exists(drives_.C() / "discs/mine/playlist.m3u"));
  EXPECT_EQ(Content("playlist.m3u"), "");
  EXPECT_NE(Content("MP3Index.htm").find(">0 Items"), std::string::npos);
}

TEST(SetDefaultReport, TakesEveryColumnAndLeavesTheKind) {
  ReportSettings record;
  record.RepType = kTextReport;
  record.CommaDelimited = true;
  SetDefaultReport("mine", record);
  ReportSettings expected;
  LoadDefaults(expected);
  expected.RepType = kTextReport;
  expected.Title = "mine";
  expected.Description.clear();
  expected.ColumnChecked.fill(true);
  EXPECT_EQ(record, expected);
  EXPECT_EQ(record.TableBorder, "0");
  EXPECT_TRUE(record.ColumnChecked[1]);
}

}  // namespace
}  // namespace qublet
