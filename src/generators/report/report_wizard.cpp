#include "generators/report/report_wizard.h"

#include "playlist/paths/file_details.h"
#include "playlist/paths/playlist_name.h"
#include "playlist/paths/text.h"
#include "playlist/row_paths.h"

namespace qublet {
namespace {

constexpr int kMaxStep = 4;
constexpr const char* kFilter = "Report Settings (*.rpt)|*.rpt|";
constexpr const char* kExtension = "rpt";
constexpr const char* kStart = "Click 'Next>' to generate the report.";

bool IsText(const ReportSettings& settings) {
  return settings.RepType == kTextReport;
}

// Unlike a copy it is no file for this user alone.
Outcome WriteCopy(const FileSystem& files, const std::string& own_file, const std::string& name) {
  return Attempt([&] {
    const auto source = files.OwnFiles().OpenForReading(own_file);
    const auto target = files.BeginReplacement(name);
    target->CopyFrom(*source, 0, source->Size());
    target->Commit();
  });
}

}  // namespace

ReportWizard::ReportWizard(Engine& engine) : engine_(engine) {
  Restart();
}

void ReportWizard::Load() {
  const Collection files = RealPathsOf(engine_.document.ListView1, WhichRows::kAll);
  std::string format = "%0";
  FolderTitle_ = ReplaceAll(MakePlaylistName(format, FindCommonFolder(files), engine_.services.clock), ".m3u", "");
}

void ReportWizard::Activate() {
  Restart();
}

void ReportWizard::Restart() {
  Step = 0;
  view = {};
  view.lblReport = kStart;
}

void ReportWizard::Show(int frame) {
  view.frame = frame;
  view.back = frame != kOptionsFrame;
}

void ReportWizard::CmdNext_Click(const ReportSettings& form, const Watch& watch) {
  ++Step;
  if (!IsText(form) && Step == kTextFrame) Step = kRunFrame;
  if (IsText(form) && Step == kHtmlFrame) Step = kTextFrame;
  if (Step == kMaxStep + 2) {
    Restart();
  } else if (Step == kMaxStep + 1) {
    view.next = view.back = false;
    watch.view();
    RunReport(form, watch);
    view.next = view.closes_next = true;
  } else {
    Show(Step);
  }
}

void ReportWizard::CmdBack_Click(const ReportSettings& form) {
  --Step;
  if (!IsText(form) && Step == kTextFrame) Step = kHtmlFrame;
  if (IsText(form) && Step == kHtmlFrame) Step = kColumnsFrame;
  Show(Step);
}

std::optional<ReportSettings> ReportWizard::LoadCurrent_Click() {
  const auto path = engine_.services.dialogs.ShowOpen({engine_.program_folder + "\\*.rpt", kFilter, kExtension});
  if (!path) return std::nullopt;
  ReportSettings buffer;
  if (LoadReportSettings(engine_.services.files, *path, buffer)) return buffer;
  Tell("Could not read the file!", MessageIcon::kExclamation);
  return std::nullopt;
}

void ReportWizard::SaveCurrent_Click(const ReportSettings& form) {
  const auto path = engine_.services.dialogs.ShowSave({engine_.program_folder + "\\*.rpt", kFilter, kExtension});
  if (!path || engine_.playlist_files.CheckExists(*path)) return;
  if (!SaveReportSettings(engine_.services.files, *path, form))
    Tell("Could not save the file!", MessageIcon::kExclamation);
}

void ReportWizard::Report(const Watch& watch, const std::string& text) {
  view.lblReport = text;
  watch.view();
}

void ReportWizard::Tell(const std::string& text, MessageIcon icon) {
  engine_.services.dialogs.ShowMessage(text, icon, MessageButtons::kOk);
}

void ReportWizard::RunReport(ReportSettings settings, const Watch& watch) {
  const FileSystem& files = engine_.services.files;
  const Collection paths = RealPathsOf(engine_.document.ListView1, WhichRows::kAll);
  const std::string name = IsText(settings) ? "tmp.txt" : "tmp.htm";
  const std::string folder = settings.SaveRel ? FindCommonFolder(paths) : engine_.program_folder;
  const std::string temporary = folder + "\\" + name;
  Report(watch, "Writing file: " + name);
  Report(watch, "Writing file: " + name +
                    (settings.SaveRel ? " to the relative folder..." : " to the application folder..."));
  const ReportServices services{files, engine_.services.clock, engine_.thousands_separator, true};
  if (GenerateReport(services, temporary, paths, settings, watch.progress).exists) {
    engine_.services.shell.Open(temporary);
    OfferToKeep(settings, temporary, paths);
  } else {
    Tell("The file :" + temporary + " could not be written.", MessageIcon::kStop);
  }
  Report(watch, "Done: Report Generator. Click 'Next>' to restart...");
}

// Who cancels the dialog for the name keeps the file where it is.
void ReportWizard::OfferToKeep(const ReportSettings& settings, const std::string& temporary,
                               const Collection& files) {
  Dialogs& dialogs = engine_.services.dialogs;
  if (dialogs.ShowMessage("Do you want to keep the file?", MessageIcon::kQuestion, MessageButtons::kYesNo) !=
      MessageAnswer::kYes) {
    DeleteFileSafe(engine_.services.files, temporary);
    return;
  }
  const std::string base = FindCommonFolder(files);
  const std::string start = base.empty() ? "" : base + "\\";
  const std::optional<std::string> chosen =
      IsText(settings) ? dialogs.ShowSave({start + "playlist.txt", "TXT Document (*.txt)|*.txt|", "txt"})
                       : dialogs.ShowSave({start + "playlist.htm", "HTM Document (*.htm)|*.htm|", "htm"});
  if (chosen) KeepAs(*chosen, temporary);
}

void ReportWizard::KeepAs(const std::string& name, const std::string& temporary) {
  const FileSystem& files = engine_.services.files;
  const auto file = files.IdentityOfFile(temporary);
  if (file && file == files.IdentityOfFile(name)) {
    view.lblReport = "File copied to: " + name;  // it is there already
    return;
  }
  if (!engine_.playlist_files.CheckExists(name)) {
    if (WriteCopy(files, temporary, name))
      view.lblReport = "File copied to: " + name;
    else
      Tell("Could not save the file!", MessageIcon::kExclamation);
  }
  DeleteFileSafe(files, temporary);
}

}  // namespace qublet
