#include "generators/report/report_wizard.h"

#include <gtest/gtest.h>

#include <deque>

#include "support/editor_test_base.h"
#include "support/own_file.h"

namespace qublet {
namespace {

class ReportWizardTest : public EditorTestBase {
 protected:
  ReportWizardTest() {
    qublet::LoadDefaults(form_);
    drives_.Write("music/a.mp3", "aa");
    drives_.Write("music/b.mp3", "bb");
    drives_.Write("program/x", "");
    AddRows({"music\\a.mp3", "music\\b.mp3"});
    wizard_.Load();
    wizard_.Activate();
    watch_.view = [this] { reports_.push_back(wizard_.view.lblReport); };
  }

  void Next(int times = 1) {
    for (int i = 0; i < times; ++i) wizard_.CmdNext_Click(form_, watch_);
  }
  void Back() { wizard_.CmdBack_Click(form_); }
  // From the start to the end.
  void Run() { Next(4); }
  void Answer(MessageAnswer answer) { fakes_.dialogs.answers.push_back(answer); }
  bool IsThere(const std::string& path) const { return files_->Attributes(path).has_value(); }
  std::string LastMessage() const {
    return fakes_.dialogs.messages.empty() ? "" : fakes_.dialogs.messages.back().text;
  }

  ReportSettings form_;
  ReportWizard wizard_{engine_};
  ReportWizard::Watch watch_;
  std::vector<std::string> reports_;
};

constexpr const char* kStart = "Click 'Next>' to generate the report.";
constexpr const char* kDone = "Done: Report Generator. Click 'Next>' to restart...";

TEST_F(ReportWizardTest, BeginsWithTheOptions) {
  EXPECT_EQ(wizard_.view.frame, 0);
  EXPECT_FALSE(wizard_.view.back);
  EXPECT_TRUE(wizard_.view.next);
  EXPECT_EQ(wizard_.view.lblReport, kStart);
  EXPECT_EQ(wizard_.FolderTitle(), "music");
}

TEST_F(ReportWizardTest, PassesOverTheOtherKindOfSettings) {
  std::vector<int> frames;
  const auto go = [&](auto step) {
    step();
    frames.push_back(wizard_.view.frame);
  };
  for (int i = 0; i < 3; ++i) go([&] { Next(); });
  for (int i = 0; i < 3; ++i) go([&] { Back(); });
  EXPECT_EQ(frames, (std::vector<int>{1, 2, 4, 2, 1, 0}));
  EXPECT_FALSE(wizard_.view.back);
  frames.clear();
  form_.RepType = kTextReport;
  for (int i = 0; i < 3; ++i) go([&] { Next(); });
  EXPECT_TRUE(wizard_.view.back);
  for (int i = 0; i < 3; ++i) go([&] { Back(); });
  EXPECT_EQ(frames, (std::vector<int>{1, 3, 4, 3, 1, 0}));
}

TEST_F(ReportWizardTest, RunsOnTheListAndStartsAnew) {
  Answer(MessageAnswer::kNo);
  Run();
  EXPECT_EQ(wizard_.view.frame, 4);
  EXPECT_EQ(wizard_.view.lblReport, kDone);
  EXPECT_TRUE(wizard_.view.next);
  EXPECT_FALSE(wizard_.view.back);
  EXPECT_TRUE(wizard_.view.closes_next);
  EXPECT_EQ(reports_, (std::vector<std::string>{kStart, "Writing file: tmp.htm",
                                                "Writing file: tmp.htm to the relative folder...", kDone}));
  Next();
  EXPECT_EQ(wizard_.view.frame, 0);
  EXPECT_EQ(wizard_.view.lblReport, kStart);
}

TEST_F(ReportWizardTest, ShowsTheReportAndThrowsItAway) {
  Answer(MessageAnswer::kNo);
  Run();
  EXPECT_EQ(fakes_.shell.opened, std::vector<std::string>{"c:\\music\\tmp.htm"});
  EXPECT_EQ(
      fakes_.dialogs.messages.back(),
      (ScriptedDialogs::Message{"Do you want to keep the file?", MessageIcon::kQuestion, MessageButtons::kYesNo}));
  EXPECT_FALSE(IsThere("c:\\music\\tmp.htm"));
}

TEST_F(ReportWizardTest, KeepsTheReportUnderAnotherName) {
  Answer(MessageAnswer::kYes);
  fakes_.dialogs.save_names.emplace_back("d:\\kept.htm");
  Run();
  EXPECT_EQ(fakes_.dialogs.save_requests.back().file_name, "c:\\music\\playlist.htm");
  EXPECT_EQ(fakes_.dialogs.save_requests.back().filter, "HTM Document (*.htm)|*.htm|");
  EXPECT_EQ(fakes_.dialogs.save_requests.back().default_extension, "htm");
  EXPECT_TRUE(IsThere("d:\\kept.htm"));
  drives_.WriteAt(drives_.D() / "any.htm", "");
  EXPECT_EQ(std::filesystem::status(drives_.D() / "kept.htm").permissions(),
            std::filesystem::status(drives_.D() / "any.htm").permissions());
  EXPECT_FALSE(IsThere("c:\\music\\tmp.htm"));
  EXPECT_EQ(wizard_.view.lblReport, kDone);
}

TEST_F(ReportWizardTest, WritesATextIntoTheProgramFolder) {
  form_.RepType = kTextReport;
  form_.SaveRel = false;
  Answer(MessageAnswer::kYes);
  fakes_.dialogs.save_names.emplace_back(std::nullopt);
  Run();
  EXPECT_EQ(fakes_.shell.opened, std::vector<std::string>{engine_.program_folder + "\\tmp.txt"});
  EXPECT_EQ(reports_[2], "Writing file: tmp.txt to the application folder...");
  EXPECT_EQ(fakes_.dialogs.save_requests.back().file_name, "c:\\music\\playlist.txt");
  EXPECT_EQ(fakes_.dialogs.save_requests.back().filter, "TXT Document (*.txt)|*.txt|");
  EXPECT_EQ(fakes_.dialogs.save_requests.back().default_extension, "txt");
}

TEST_F(ReportWizardTest, LeavesTheFileWhereTheNameIsCancelled) {
  Answer(MessageAnswer::kYes);
  fakes_.dialogs.save_names.emplace_back(std::nullopt);
  Run();
  EXPECT_TRUE(IsThere("c:\\music\\tmp.htm"));
  EXPECT_TRUE(IsForThisUserAlone(drives_.C() / "music/tmp.htm"));
  EXPECT_EQ(wizard_.view.lblReport, kDone);
}

TEST_F(ReportWizardTest, ShowsNoFileThatALinkOfOthersLeadsTo) {
  drives_.Write("home/.profile", "export A=1");
  std::filesystem::create_symlink("../home/.profile", drives_.C() / "music/tmp.htm");
  std::filesystem::permissions(drives_.C() / "music", std::filesystem::perms::all);
  Run();
  EXPECT_EQ(drives_.Read("home/.profile"), "export A=1");
  EXPECT_EQ(fakes_.shell.opened, std::vector<std::string>());
  EXPECT_EQ(LastMessage(), "The file :c:\\music\\tmp.htm could not be written.");
}

TEST_F(ReportWizardTest, KeepsNothingOverAFileThatIsToStay) {
  drives_.Write("old.htm", "old");
  Answer(MessageAnswer::kYes);
  Answer(MessageAnswer::kNo);
  fakes_.dialogs.save_names.emplace_back("c:\\old.htm");
  Run();
  EXPECT_EQ(LastMessage(), "c:\\old.htm exists, do you want to replace it?");
  EXPECT_EQ(drives_.Read("old.htm"), "old");
  EXPECT_FALSE(IsThere("c:\\music\\tmp.htm"));
}

TEST_F(ReportWizardTest, KeepsAReportThatIsToStayWhereItIs) {
  Answer(MessageAnswer::kYes);
  fakes_.dialogs.save_names.emplace_back("c:\\music\\.\\tmp.htm");
  Run();
  EXPECT_TRUE(IsThere("c:\\music\\tmp.htm"));
  EXPECT_EQ(fakes_.dialogs.messages.size(), 1U);
}

TEST_F(ReportWizardTest, SaysThatAReportCouldNotBeKept) {
  Answer(MessageAnswer::kYes);
  fakes_.dialogs.save_names.emplace_back("c:\\none\\a.htm");
  Run();
  EXPECT_EQ(LastMessage(), "Could not save the file!");
  EXPECT_FALSE(IsThere("c:\\music\\tmp.htm"));
}

TEST_F(ReportWizardTest, SaysThatAReportCouldNotBeWritten) {
  std::filesystem::remove_all(drives_.C() / "music");
  Run();
  EXPECT_EQ(fakes_.dialogs.messages.back(),
            (ScriptedDialogs::Message{"The file :c:\\music\\tmp.htm could not be written.", MessageIcon::kStop,
                                      MessageButtons::kOk}));
  EXPECT_TRUE(fakes_.shell.opened.empty());
  EXPECT_EQ(wizard_.view.lblReport, kDone);
}

TEST_F(ReportWizardTest, WritesToTheRootOfTheCurrentDriveWhereThereIsNoCommonFolder) {
  drives_.Write("other.mp3", "o");
  std::filesystem::rename(drives_.C() / "other.mp3", drives_.D() / "other.mp3");
  engine_.items.AddFile("d:\\other.mp3", 0, 0);
  Answer(MessageAnswer::kYes);
  fakes_.dialogs.save_names.emplace_back(std::nullopt);
  Run();
  EXPECT_EQ(fakes_.shell.opened, std::vector<std::string>{"\\tmp.htm"});
  EXPECT_TRUE(IsThere("c:\\tmp.htm"));
  EXPECT_EQ(fakes_.dialogs.save_requests.back().file_name, "playlist.htm");
}

TEST_F(ReportWizardTest, KeepsSettingsInAFile) {
  form_.Title = "Mine";
  fakes_.dialogs.save_names.emplace_back("c:\\mine.rpt");
  wizard_.SaveCurrent_Click(form_);
  EXPECT_EQ(fakes_.dialogs.save_requests.back().file_name, engine_.program_folder + "\\*.rpt");
  EXPECT_EQ(fakes_.dialogs.save_requests.back().filter, "Report Settings (*.rpt)|*.rpt|");
  fakes_.dialogs.open_names.emplace_back("c:\\mine.rpt");
  EXPECT_EQ(wizard_.LoadCurrent_Click(), form_);
  EXPECT_EQ(fakes_.dialogs.open_requests.back().default_extension, "rpt");
}

TEST_F(ReportWizardTest, AsksBeforeItReplacesSettings) {
  drives_.Write("mine.rpt", "old");
  fakes_.dialogs.save_names.emplace_back("c:\\mine.rpt");
  Answer(MessageAnswer::kNo);
  wizard_.SaveCurrent_Click(form_);
  EXPECT_EQ(LastMessage(), "c:\\mine.rpt exists, do you want to replace it?");
  EXPECT_EQ(drives_.Read("mine.rpt"), "old");
}

TEST_F(ReportWizardTest, TellsFailuresWithFilesOfSettings) {
  fakes_.dialogs.open_names.emplace_back("c:\\none.rpt");
  EXPECT_FALSE(wizard_.LoadCurrent_Click());
  EXPECT_EQ(fakes_.dialogs.messages.back(),
            (ScriptedDialogs::Message{"Could not read the file!", MessageIcon::kExclamation, MessageButtons::kOk}));
  fakes_.dialogs.save_names.emplace_back("c:\\none\\a.rpt");
  wizard_.SaveCurrent_Click(form_);
  EXPECT_EQ(LastMessage(), "Could not save the file!");
  const std::size_t told = fakes_.dialogs.messages.size();
  EXPECT_FALSE(wizard_.LoadCurrent_Click());
  wizard_.SaveCurrent_Click(form_);
  EXPECT_EQ(fakes_.dialogs.messages.size(), told);
}

}  // namespace
}  // namespace qublet
