#include "generators/disc/disc_wizard.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "generators/disc/disc_icons.h"
#include "generators/disc/icon_file.h"
#include "support/editor_test_base.h"
#include "support/own_file.h"

namespace qublet {
namespace {

class DiscWizardTest : public EditorTestBase {
 protected:
  DiscWizardTest() {
    drives_.Write("program/QUBBROWS.exe", "browser");
    drives_.Write("discs/x", "");
    drives_.Write("discs/mine/one.mp3", "music");
    wizard_.Load();
  }

  void ChooseFolders(const std::string& name = "mine") {
    fakes_.dialogs.folders = {"c:\\discs"};
    wizard_.BrowseAssembleLoc_Click();
    wizard_.CDROMLoc_Change(name);
  }
  void Next(int times = 1) {
    for (int i = 0; i < times; ++i) wizard_.CmdNext_Click(watch_);
  }
  void Browse(const std::string& folder) {
    fakes_.dialogs.folders = {folder};
    wizard_.BrowseImageLoc_Click();
  }
  void Tick(bool DiscExtras::*box) { wizard_.Box_Click(box, true); }
  std::string LastMessage() const {
    return fakes_.dialogs.messages.empty() ? "" : fakes_.dialogs.messages.back().text;
  }
  MessageIcon LastIcon() const { return fakes_.dialogs.messages.back().icon; }
  std::string Stored(const char* key) const { return fakes_.store.GetSetting("QUBLET2021", "MP3CDWiz", key); }
  void Store(const char* key, const char* value) {
    fakes_.store.SaveSettings("QUBLET2021", {{"MP3CDWiz", key, value}});
  }
  DiscView& View() { return wizard_.view; }

  DiscWizard wizard_{engine_};
  DiscWizard::Watch watch_;
};

TEST_F(DiscWizardTest, BeginsWithNothingChosen) {
  EXPECT_EQ(View().frame, 0);
  EXPECT_FALSE(View().back);
  EXPECT_FALSE(View().next);
  EXPECT_EQ(View().choices.ImSize, 6);
  EXPECT_EQ(View().choices.IconChooser, 8);
  EXPECT_EQ(View().CDIcon, ReadIcon(DiscIcon(8), 48));
}

TEST_F(DiscWizardTest, WantsBothFolders) {
  wizard_.CDROMLoc_Change("mine");
  EXPECT_FALSE(View().next);
  ChooseFolders();
  EXPECT_EQ(View().choices.AssembleLoc, "c:\\discs\\");
  EXPECT_TRUE(View().next);
  EXPECT_EQ(fakes_.dialogs.browse_titles, Collection{"Select Folder..."});
  wizard_.CDROMLoc_Change("");
  EXPECT_FALSE(View().next);
}

TEST_F(DiscWizardTest, StaysWhereItIsWhenTheBrowserIsCancelled) {
  ChooseFolders();
  wizard_.BrowseAssembleLoc_Click();
  wizard_.BrowseImageLoc_Click();
  EXPECT_EQ(View().choices.AssembleLoc, "c:\\discs\\");
  EXPECT_EQ(View().CDROMLoc, "mine");
}

TEST_F(DiscWizardTest, TakesABuildFolderBelowTheRoot) {
  ChooseFolders();
  Browse("c:\\discs\\a\\b");
  EXPECT_EQ(View().CDROMLoc, "a\\b");
  Browse("c:\\elsewhere");
  EXPECT_EQ(View().CDROMLoc, "a\\b");
  EXPECT_EQ(LastMessage(), "The build folder must be a sub-folder of the Root specified...");
  EXPECT_EQ(LastIcon(), MessageIcon::kInformation);
}

TEST_F(DiscWizardTest, TakesTheRootItselfForNoFolder) {
  ChooseFolders();
  for (const char* root : {"c:\\discs", "c:\\discs\\"}) {
    Browse(root);
    EXPECT_EQ(View().CDROMLoc, "");
    EXPECT_FALSE(View().next);
  }
  EXPECT_EQ(LastMessage(), "");
}

TEST_F(DiscWizardTest, MakesTheBuildFolder) {
  ChooseFolders("new");
  Next();
  EXPECT_EQ(View().frame, 1);
  EXPECT_TRUE(View().back);
  EXPECT_TRUE(files_->Attributes("c:\\discs\\new").has_value());
  EXPECT_EQ(View().choices.recent, Collection{"new"});
}

TEST_F(DiscWizardTest, SaysWhenTheFolderCannotBeMade) {
  ChooseFolders("none\\new");
  Next();
  EXPECT_EQ(View().frame, 0);
  EXPECT_EQ(LastMessage(), "Could not create a new folder for the Image.");
  EXPECT_EQ(LastIcon(), MessageIcon::kStop);
  EXPECT_EQ(View().choices.recent, Collection());
}

TEST_F(DiscWizardTest, TakesAFileOfThatNameForTheFolder) {
  ChooseFolders("x");
  Next();
  EXPECT_EQ(View().frame, 1);
  Next();
  EXPECT_EQ(LastMessage(), "You must add at least one file to the compilation.");
}

TEST_F(DiscWizardTest, KeepsFiveRecentFoldersEachOnce) {
  for (const char* name : {"1", "2", "3", "4", "5", "6", "3"}) {
    ChooseFolders(name);
    Next();
    wizard_.CmdBack_Click();
  }
  EXPECT_EQ(View().choices.recent, (Collection{"6", "5", "4", "3", "2"}));
}

TEST_F(DiscWizardTest, GoesBackToTheFirstStep) {
  ChooseFolders();
  Next(2);
  EXPECT_EQ(View().frame, 2);
  wizard_.CmdBack_Click();
  EXPECT_EQ(View().frame, 1);
  EXPECT_TRUE(View().back);
  wizard_.CmdBack_Click();
  EXPECT_EQ(View().frame, 0);
  EXPECT_FALSE(View().back);
}

TEST_F(DiscWizardTest, StaysWhereTheFilesDoNotFit) {
  ChooseFolders("mine");
  Next();
  drives_.WriteSparse("discs/mine/big.mp3", "a", 104857600);
  wizard_.ImSize_Click(0);
  Next();
  EXPECT_EQ(View().frame, 1);
  EXPECT_TRUE(LastMessage().starts_with("The total size of all the files is 1,024 Kb more than"));
  EXPECT_EQ(LastIcon(), MessageIcon::kExclamation);
}

TEST_F(DiscWizardTest, StaysWithoutAWordOnASizeBeyondItsNumbers) {
  ChooseFolders();
  wizard_.ImSize_Click(10);
  Next(2);
  EXPECT_EQ(View().frame, 1);
  EXPECT_EQ(LastMessage(), "");
}

TEST_F(DiscWizardTest, OffersNoBrowserThatIsNotThere) {
  std::filesystem::remove(drives_.C() / "program/QUBBROWS.exe");
  Store("Init", "1");
  Store("CB", "1");
  Store("AX", "1");
  wizard_.Load();
  EXPECT_TRUE(View().choices.extras.chkCopyBrowser);
  ChooseFolders();
  Next(2);
  EXPECT_FALSE(View().browser_usable);
  EXPECT_FALSE(View().choices.extras.chkCopyBrowser);
  EXPECT_FALSE(View().choices.extras.chkAutoIndex);
}

TEST_F(DiscWizardTest, LetsBoxesDependOnEachOther) {
  EXPECT_FALSE(View().UsesAutorun() || View().UsesIcon() || View().UsesIndex());
  Tick(&DiscExtras::chkAutoIcon);
  Tick(&DiscExtras::chkCopyBrowser);
  EXPECT_FALSE(View().UsesIcon() || View().UsesIndex());
  Tick(&DiscExtras::chkCreateAutorun);
  EXPECT_TRUE(View().UsesAutorun() && View().UsesIcon() && View().UsesIndex());
  wizard_.Box_Click(&DiscExtras::chkCopyBrowser, false);
  EXPECT_FALSE(View().UsesIndex());
  wizard_.Box_Click(&DiscExtras::chkAutoIcon, false);
  EXPECT_FALSE(View().UsesIcon());
}

TEST_F(DiscWizardTest, ShowsTheBrowserWithThisDisc) {
  ChooseFolders();
  Next(2);
  wizard_.ShowSoftware_Click();
  EXPECT_EQ(fakes_.shell.opened, Collection{"c:\\discs\\mine\\qubbrows.exe"});
  EXPECT_EQ(drives_.Read("discs/mine/qubbrows.exe"), "browser");
}

TEST_F(DiscWizardTest, GivesTheBrowserUpWhenItCannotBeCopied) {
  ChooseFolders();
  Next(2);
  Tick(&DiscExtras::chkCopyBrowser);
  std::filesystem::remove(drives_.C() / "program/QUBBROWS.exe");
  wizard_.ShowSoftware_Click();
  EXPECT_EQ(LastMessage(),
            "Failed to locate the browser software, it may not be installed correctly or not packaged with this "
            "program, please contact the program vendor...");
  EXPECT_EQ(LastIcon(), MessageIcon::kStop);
  EXPECT_FALSE(View().browser_usable);
  EXPECT_FALSE(View().choices.extras.chkCopyBrowser);
}

TEST_F(DiscWizardTest, PreviewsThePageAndLetsItGoWithTheProgram) {
  ChooseFolders();
  Next(2);
  wizard_.PrevReportSet_Click(watch_);
  EXPECT_EQ(fakes_.shell.opened, Collection{"c:\\discs\\mine\\tmp.htm"});
  EXPECT_EQ(engine_.document.TempFiles, Collection{"c:\\discs\\mine\\tmp.htm"});
  EXPECT_TRUE(IsForThisUserAlone(drives_.C() / "discs/mine/tmp.htm"));
  EXPECT_NE(drives_.Read("discs/mine/tmp.htm").find("mine - Created: 07:05:01 [03-09-2004]"), std::string::npos);
}

TEST_F(DiscWizardTest, TakesThePreviewsAwayBeforeTheBuild) {
  ChooseFolders();
  Next(2);
  wizard_.ShowSoftware_Click();
  wizard_.PrevReportSet_Click(watch_);
  Next();
  EXPECT_EQ(View().frame, 3);
  EXPECT_FALSE(files_->Attributes("c:\\discs\\mine\\tmp.htm"));
  EXPECT_FALSE(files_->Attributes("c:\\discs\\mine\\qubbrows.exe"));
}

TEST_F(DiscWizardTest, LoadsSettingsForThePage) {
  ReportSettings settings;
  LoadDefaults(settings);
  settings.FontName = "Mine";
  settings.Title = "theirs";
  ASSERT_TRUE(SaveReportSettings(*files_, "c:\\my.rpt", settings));
  ChooseFolders();
  Next(2);
  fakes_.dialogs.open_names = {"c:\\my.rpt"};
  wizard_.LoadReportSet_Click();
  EXPECT_EQ(fakes_.dialogs.open_requests.back().filter, "Report Settings (*.rpt)|*.rpt|");
  EXPECT_EQ(View().choices.ReportFile, "c:\\my.rpt");
  wizard_.PrevReportSet_Click(watch_);
  EXPECT_NE(drives_.Read("discs/mine/tmp.htm").find("face='Mine'"), std::string::npos);
  EXPECT_EQ(drives_.Read("discs/mine/tmp.htm").find("theirs"), std::string::npos);
  wizard_.DefReportSet_Click();
  EXPECT_EQ(View().choices.ReportFile, "");
  wizard_.PrevReportSet_Click(watch_);
  EXPECT_NE(drives_.Read("discs/mine/tmp.htm").find("face='Verdana'"), std::string::npos);
}

TEST_F(DiscWizardTest, SaysWhenSettingsCannotBeRead) {
  ChooseFolders();
  Next(2);
  fakes_.dialogs.open_names = {"c:\\gone.rpt"};
  wizard_.LoadReportSet_Click();
  EXPECT_EQ(LastMessage(), "Could not read the file!");
  EXPECT_EQ(View().choices.ReportFile, "");
}

TEST_F(DiscWizardTest, DoesWithoutTheSettingsOfLastTimeThatAreGone) {
  Store("Init", "1");
  Store("RFL", "c:\\gone.rpt");
  wizard_.Load();
  ChooseFolders();
  Next(2);
  EXPECT_EQ(View().frame, 2);
  EXPECT_EQ(LastMessage(), "Could not load the Report Settings used in the previous session, using default.");
  EXPECT_EQ(View().choices.ReportFile, "");
}

TEST_F(DiscWizardTest, ShowsANumberedIcon) {
  wizard_.IconChooser_Click(50);
  EXPECT_EQ(View().CDIcon, ReadIcon(DiscIcon(50), 48));
}

TEST_F(DiscWizardTest, ShowsTheUsersOwnIcon) {
  IconPicture red{16, 16, std::vector<std::uint32_t>(256, 0xFFFF0000)};
  drives_.Write("my.ico", IconFileOf(std::array{red}).value());
  fakes_.dialogs.open_names = {"c:\\my.ico"};
  wizard_.IconChooser_Click(0);
  const FileRequest& request = fakes_.dialogs.open_requests.back();
  EXPECT_EQ(request.filter, "Icons (*.ico)|*.ico|");
  EXPECT_EQ(request.default_extension, "rpt");
  EXPECT_EQ(request.file_name, "*.ico");
  EXPECT_EQ(View().CDIcon, red);
  EXPECT_EQ(View().choices.IconChooser, 0);
  EXPECT_EQ(View().choices.IconFile, "c:\\my.ico");
}

TEST_F(DiscWizardTest, GoesBackToTheUsualIconWithoutOneToShow) {
  wizard_.IconChooser_Click(3);
  wizard_.IconChooser_Click(0);
  EXPECT_EQ(View().choices.IconChooser, 8);
  drives_.Write("bad.ico", "bad");
  fakes_.dialogs.open_names = {"c:\\bad.ico"};
  wizard_.IconChooser_Click(0);
  EXPECT_EQ(View().choices.IconChooser, 8);
  EXPECT_EQ(View().CDIcon, ReadIcon(DiscIcon(8), 48));
}

TEST_F(DiscWizardTest, BuildsADiscKeepsItsChoicesAndBeginsAnother) {
  ChooseFolders();
  Next(2);
  for (bool DiscExtras::*box : {&DiscExtras::chkCreateAutorun, &DiscExtras::chkAutoIcon, &DiscExtras::chkAutoBigList})
    Tick(box);
  wizard_.IconChooser_Click(5);
  Next(2);
  EXPECT_EQ(View().lblReport, "Done: The process completed successfully.");
  EXPECT_TRUE(View().Label7.starts_with("The compilation is now ready to burn. You can either drag the Icon below"));
  EXPECT_TRUE(View().drag);
  EXPECT_TRUE(View().next);
  EXPECT_FALSE(View().back);
  EXPECT_TRUE(View().closes_next);
  EXPECT_EQ(wizard_.BurnList().size(), 4U);
  EXPECT_EQ(drives_.Read("discs/mine/setup.ico"), DiscIcon(5));
  const std::vector<Setting> kept = {{"MP3CDWiz", "Init", "1"},   {"MP3CDWiz", "CB", "0"},
                                     {"MP3CDWiz", "CT", "1"},     {"MP3CDWiz", "AI", "1"},
                                     {"MP3CDWiz", "AB", "1"},     {"MP3CDWiz", "AX", "0"},
                                     {"MP3CDWiz", "CA", "0"},     {"MP3CDWiz", "AL", "c:\\discs\\"},
                                     {"MP3CDWiz", "SZ", "6"},     {"MP3CDWiz", "IC", "5"},
                                     {"MP3CDWiz", "IFL", ""},     {"MP3CDWiz", "RFL", ""},
                                     {"MP3CDWiz", "RI1", "mine"}, {"MP3CDWiz", "RI2", ""},
                                     {"MP3CDWiz", "RI3", ""},     {"MP3CDWiz", "RI4", ""},
                                     {"MP3CDWiz", "RI5", ""}};
  EXPECT_EQ(fakes_.store.AllSettings("QUBLET2021"), kept);

  Next();
  EXPECT_EQ(View().frame, 0);
  EXPECT_EQ(View().CDROMLoc, "");
  EXPECT_EQ(View().choices.AssembleLoc, "c:\\discs\\");
  EXPECT_EQ(View().choices.recent, Collection{"mine"});
  EXPECT_FALSE(View().next);
  EXPECT_FALSE(View().drag);
}

TEST_F(DiscWizardTest, KeepsNothingOfADiscThatFailed) {
  ChooseFolders();
  Next(2);
  Tick(&DiscExtras::chkCreateAutorun);
  drives_.Write("discs/mine/playlist.m3u", "old");
  SetReadOnly("discs/mine/playlist.m3u", true);
  Next(2);
  EXPECT_EQ(View().lblReport, "Done: Process failed, any files created were removed.");
  EXPECT_TRUE(View().Label7.starts_with("The process failed, possibly due to a read/write error"));
  EXPECT_FALSE(View().drag);
  EXPECT_EQ(Stored("Init"), "");
  Next();
  EXPECT_EQ(View().frame, 0);
  EXPECT_TRUE(View().next);
}

TEST_F(DiscWizardTest, BringsBackWhatTheLastDiscLeft) {
  for (const auto& [key, value] : {std::pair{"Init", "1"},
                                   {"CT", "1"},
                                   {"CA", "x"},
                                   {"AL", "c:\\discs\\"},
                                   {"SZ", "2"},
                                   {"IC", "99"},
                                   {"RI1", "new"},
                                   {"RI3", "old"}})
    Store(key, value);
  wizard_.Load();
  EXPECT_TRUE(View().choices.extras.chkCreateAutorun);
  EXPECT_FALSE(View().choices.extras.chkCreateTable);
  EXPECT_EQ(View().choices.AssembleLoc, "c:\\discs\\");
  EXPECT_EQ(View().choices.ImSize, 2);
  EXPECT_EQ(View().choices.IconChooser, 8);
  EXPECT_EQ(View().choices.recent, (Collection{"new", "old"}));
}

TEST_F(DiscWizardTest, ReadsNothingBeforeTheFirstDisc) {
  Store("AL", "c:\\discs\\");
  Store("CT", "1");
  wizard_.Load();
  EXPECT_EQ(View().choices.AssembleLoc, "");
  EXPECT_FALSE(View().choices.extras.chkCreateAutorun);
}

TEST_F(DiscWizardTest, ForgetsARootThatIsGone) {
  Store("Init", "1");
  Store("AL", "c:\\gone\\");
  wizard_.Load();
  EXPECT_EQ(View().choices.AssembleLoc, "");
}

TEST_F(DiscWizardTest, AsksForNoIconWhileItLoads) {
  Store("Init", "1");
  Store("IC", "0");
  Store("IFL", "c:\\gone.ico");
  wizard_.Load();
  EXPECT_EQ(View().choices.IconChooser, 0);
  EXPECT_TRUE(fakes_.dialogs.open_requests.empty());
  ChooseFolders();
  Next(2);
  EXPECT_EQ(View().frame, 2);
}

TEST_F(DiscWizardTest, OpensTheFolderOfTheDisc) {
  ChooseFolders();
  wizard_.OpenImageLoc_Click();
  wizard_.OpenFol_Click();
  EXPECT_EQ(fakes_.shell.explored, (Collection{"c:\\discs\\mine", "c:\\discs\\mine"}));
}

TEST(TypedFolderName, DropsWhatWouldMakeAPath) {
  EXPECT_EQ(TypedFolderName("ab", "a:b"), "ab");
  EXPECT_EQ(TypedFolderName("ab", "ab\\"), "ab");
  EXPECT_EQ(TypedFolderName("", "a/b:c\\d"), "abcd");
  EXPECT_EQ(TypedFolderName("a\\b", "a\\bc"), "a\\bc");
  EXPECT_EQ(TypedFolderName("abc", ""), "");
  EXPECT_EQ(TypedFolderName("aaa", "aa"), "aa");
}

TEST(TypedFolderName, TakesNoMoreThan230Characters) {
  const std::string full(230, 'a');
  EXPECT_EQ(TypedFolderName(full, full + "b"), full);
  EXPECT_EQ(TypedFolderName("", full + "b"), full);
  EXPECT_EQ(TypedFolderName(full, "b" + full), full);
  const std::string longer(240, 'a');
  EXPECT_EQ(TypedFolderName(longer, longer.substr(1)), longer.substr(1));
}

TEST(TypedFolderName, KeepsLettersWhole) {
  EXPECT_EQ(TypedFolderName("é", "è"), "è");
  EXPECT_EQ(TypedFolderName("aéb", "aè:b"), "aèb");
}

}  // namespace
}  // namespace qublet
