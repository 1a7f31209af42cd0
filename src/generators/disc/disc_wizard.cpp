#include "generators/disc/disc_wizard.h"

#include <algorithm>
#include <array>

#include "generators/disc/compilation.h"
#include "generators/disc/disc_icons.h"
#include "generators/disc/icon_file.h"
#include "playlist/paths/file_details.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"
#include "playlist/paths/text_files.h"

namespace qublet {
namespace {

constexpr int kMaxStep = 3;
constexpr int kShownIconSide = 48;
constexpr const char* kPreview = "tmp.htm";
constexpr const char* kSelectFolder = "Select Folder...";
constexpr const char* kStart = "Click 'Next>' to build the compilation.";
constexpr const char* kReady =
    "The compilation is now ready to burn. You can either drag the Icon below into any CD-Writing software that "
    "supports drag and drop, or click 'Open Folder' and copy the contents of that folder into to the new CD's "
    "Root...Click 'Next>' to create another CD or 'X' to close the Wizard.";
constexpr const char* kFailed =
    "The process failed, possibly due to a read/write error, check that there are no 'autorun', 'htm' files etc set "
    "as read only in the compilation root and then click 'Next>' to try again...";

}  // namespace

DiscWizard::DiscWizard(Engine& engine) : engine_(engine) {}

void DiscWizard::Load() {
  Step = 0;
  view.choices.ImSize = kUsualDiscSize;
  view.choices.IconChooser = kUsualDiscIcon;
  ShowNumberedIcon(kUsualDiscIcon);
  if (LoadWizardSettings(engine_.session, engine_.services.files, view.choices)) view.CDROMLoc.clear();
  if (view.choices.IconChooser != kCustomIcon) ShowNumberedIcon(view.choices.IconChooser);
  view.lblReport = kStart;
  view.Label7.clear();
  view.drag = view.closes_next = false;
  BurnList_.clear();
  Show(kFoldersFrame);
  EnableNext();
}

void DiscWizard::Show(int frame) {
  view.frame = frame;
  view.back = frame != kFoldersFrame;
}

void DiscWizard::EnableNext() {
  view.next = !view.choices.AssembleLoc.empty() && !view.CDROMLoc.empty();
}

void DiscWizard::Tell(const std::string& text, MessageIcon icon) {
  engine_.services.dialogs.ShowMessage(text, icon, MessageButtons::kOk);
}

DiscServices DiscWizard::Services() const {
  return {engine_.services.files, engine_.services.feedback, engine_.services.clock, engine_.thousands_separator,
          engine_.program_folder};
}

void DiscWizard::CmdNext_Click(const Watch& watch) {
  if (!LeaveStep()) return;
  ++Step;
  if (Step == kMaxStep + 2) {
    Load();
  } else if (Step == kMaxStep + 1) {
    view.next = view.back = false;
    watch.view();
    BuildCompilation(watch);
    view.next = view.closes_next = true;
  } else {
    Show(Step);
  }
}

void DiscWizard::CmdBack_Click() {
  Show(--Step);
}

bool DiscWizard::LeaveStep() {
  const FileSystem& files = engine_.services.files;
  switch (Step) {
    case kFoldersFrame:
      if (PrepareBuildFolder()) return true;
      Tell("Could not create a new folder for the Image.", MessageIcon::kStop);
      return false;
    case kFilesFrame:
      if (!CheckCompilation()) return false;
      PrepareExtras();
      return true;
    case kExtrasFrame:
      // What the two previews leave. The build copies the program again if it is wanted.
      DeleteFileSafe(files, CDRoot() + "\\" + kPreview);
      DeleteFileSafe(files, CDRoot() + "\\" + kBrowserOnDisc);
      return true;
    default:
      return true;
  }
}

bool DiscWizard::PrepareBuildFolder() {
  const FileSystem& files = engine_.services.files;
  std::string folder = CDRoot();
  FileDetails details;
  GetFileDetails(files, folder, details);
  if (!details.Exists && !details.IsFolder && !Attempt([&] { files.CreateFolder(folder); })) return false;
  AddRecentFolder();
  return true;
}

void DiscWizard::AddRecentFolder() {
  Collection& recent = view.choices.recent;
  if (view.CDROMLoc.empty() || std::ranges::find(recent, view.CDROMLoc) != recent.end()) return;
  recent.insert(recent.begin(), view.CDROMLoc);
  if (recent.size() > kRecentDiscs) recent.resize(kRecentDiscs);
}

bool DiscWizard::CheckCompilation() {
  const CompilationCheck check =
      qublet::CheckCompilation(engine_.services.files, engine_.services.feedback, CDRoot(), view.choices.ImSize,
                               engine_.thousands_separator, CompileFiles_);
  if (!check.refusal.empty()) Tell(check.refusal, MessageIcon::kExclamation);
  return check.fits;
}

void DiscWizard::PrepareExtras() {
  view.browser_usable =
      FileExists(engine_.services.files, BrowserProgram(engine_.services.files, engine_.program_folder));
  if (!view.browser_usable) GiveUpBrowser();
  PrepareReport();
  if (!view.choices.IconFile.empty()) ShowIconFile();
}

void DiscWizard::GiveUpBrowser() {
  view.browser_usable = false;
  view.choices.extras.chkCopyBrowser = view.choices.extras.chkAutoIndex = false;
}

void DiscWizard::PrepareReport() {
  std::string& file = view.choices.ReportFile;
  if (!file.empty()) {
    if (LoadReportSettings(engine_.services.files, file, ReportRec)) {
      ReportRec.SaveRel = true;
      return;
    }
    Tell("Could not load the Report Settings used in the previous session, using default.",
         MessageIcon::kExclamation);
    file.clear();
  }
  SetDefaultReport(view.CDROMLoc, ReportRec);
}

void DiscWizard::BrowseAssembleLoc_Click() {
  std::optional<std::string> folder =
      engine_.services.dialogs.BrowseForFolder(kSelectFolder, view.choices.AssembleLoc, false);
  if (!folder) return;
  if (!folder->ends_with('\\')) *folder += '\\';
  view.choices.AssembleLoc = *folder;
  EnableNext();
}

void DiscWizard::BrowseImageLoc_Click() {
  const std::string& root = view.choices.AssembleLoc;
  std::optional<std::string> folder = engine_.services.dialogs.BrowseForFolder(kSelectFolder, root, false);
  if (!folder) return;
  // The root itself comes back without the "\" at its end.
  if (*folder + "\\" == root) *folder = root;
  const std::string rest = ReplaceAll(*folder, root, "");
  if (rest == *folder) {
    Tell("The build folder must be a sub-folder of the Root specified...", MessageIcon::kInformation);
    return;
  }
  CDROMLoc_Change(rest);
}

void DiscWizard::CDROMLoc_Change(const std::string& text) {
  view.CDROMLoc = text;
  EnableNext();
}

void DiscWizard::OpenImageLoc_Click() {
  engine_.services.shell.Explore(CDRoot());
}

void DiscWizard::OpenFol_Click() {
  engine_.services.shell.Explore(CDRoot());
}

void DiscWizard::ShowSoftware_Click() {
  const std::string copy = CDRoot() + "\\" + kBrowserOnDisc;
  if (CopyFileSafe(engine_.services.files, BrowserProgram(engine_.services.files, engine_.program_folder), copy)) {
    engine_.services.shell.Open(copy);
    return;
  }
  Tell(
      "Failed to locate the browser software, it may not be installed correctly or not packaged with this program, "
      "please contact the program vendor...",
      MessageIcon::kStop);
  GiveUpBrowser();
}

void DiscWizard::IconChooser_Click(int row) {
  view.choices.IconChooser = row;
  if (row != kCustomIcon) {
    ShowNumberedIcon(row);
    return;
  }
  const auto path = engine_.services.dialogs.ShowOpen({"*.ico", "Icons (*.ico)|*.ico|", "rpt"});
  if (path) view.choices.IconFile = *path;
  if (path && ShowIconFile()) return;
  view.choices.IconChooser = kUsualDiscIcon;
  ShowNumberedIcon(kUsualDiscIcon);
}

void DiscWizard::ShowNumberedIcon(int number) {
  number_ = number;
  view.CDIcon = ReadIcon(DiscIcon(number), kShownIconSide).value_or(IconPicture());
}

bool DiscWizard::ShowIconFile() {
  std::string bytes;
  if (!ReadTextFile(engine_.services.files, view.choices.IconFile, bytes)) return false;
  std::optional<IconPicture> picture = ReadIcon(bytes, kShownIconSide);
  if (!picture) return false;
  view.CDIcon = std::move(*picture);
  number_ = kCustomIcon;
  return true;
}

void DiscWizard::LoadReportSet_Click() {
  const auto path = engine_.services.dialogs.ShowOpen({"*.rpt", "Report Settings (*.rpt)|*.rpt|", "rpt"});
  if (!path) return;
  if (!LoadReportSettings(engine_.services.files, *path, ReportRec)) {
    Tell("Could not read the file!", MessageIcon::kExclamation);
    return;
  }
  view.choices.ReportFile = *path;
  ReportRec.Title = view.CDROMLoc;
  ReportRec.Description.clear();
}

void DiscWizard::DefReportSet_Click() {
  SetDefaultReport(view.CDROMLoc, ReportRec);
  view.choices.ReportFile.clear();
}

void DiscWizard::PrevReportSet_Click(const Watch& watch) {
  const std::string page = CDRoot() + "\\" + kPreview;
  ReportSettings record = ReportRec;
  record.Title = DiscTitle(view.CDROMLoc, engine_.services.clock);
  const ReportServices services{engine_.services.files, engine_.services.clock, engine_.thousands_separator, true};
  if (!GenerateReport(services, page, CompileFiles_, record, watch.ProgressBar1).exists) return;
  engine_.document.TempFiles.push_back(page);
  engine_.services.shell.Open(page);
}

DiscPlan DiscWizard::Plan() const {
  const DiscChoices& choices = view.choices;
  DiscPlan plan{choices.AssembleLoc, view.CDROMLoc, choices.extras, "", "", ReportRec};
  const bool own = choices.IconChooser == kCustomIcon && LowerCase(GetExtension(choices.IconFile)) == ".ico";
  if (own) plan.icon_file = choices.IconFile;
  plan.icon =
      number_ != kCustomIcon ? std::string(DiscIcon(number_)) : IconFileOf(std::array{view.CDIcon}).value_or("");
  return plan;
}

void DiscWizard::BuildCompilation(const Watch& watch) {
  DiscWatch shown{[&](const std::string& text) {
                    view.lblReport = text;
                    watch.view();
                  },
                  watch.ProgressBar2, watch.ProgressBar1};
  const BuiltDisc disc =
      qublet::BuildCompilation(Services(), Plan(), shown, [&] { SaveWizardSettings(engine_.session, view.choices); });
  BurnList_ = disc.BurnList;
  view.drag = disc.BuildOk;
  view.Label7 = disc.BuildOk ? kReady : kFailed;
}

std::string TypedFolderName(std::string_view before, std::string_view now) {
  constexpr std::size_t kMost = 230;  // characters
  const auto starts_a_letter = [&](std::size_t place) { return place == now.size() || (now[place] & 0xC0) != 0x80; };
  std::size_t head = 0;
  while (head < std::min(before.size(), now.size()) && before[head] == now[head]) ++head;
  while (!starts_a_letter(head)) --head;
  std::size_t tail = 0;
  while (tail < std::min(before.size(), now.size()) - head &&
         before[before.size() - 1 - tail] == now[now.size() - 1 - tail])
    ++tail;
  while (!starts_a_letter(now.size() - tail)) --tail;

  const std::string kept_head(now.substr(0, head)), kept_tail(now.substr(now.size() - tail));
  std::string typed(now.substr(head, now.size() - tail - head));
  std::erase_if(typed, [](char letter) { return letter == '\\' || letter == '/' || letter == ':'; });
  const std::size_t length = CharacterCount(kept_head + kept_tail);
  return kept_head + FirstCharacters(typed, length < kMost ? kMost - length : 0) + kept_tail;
}

}  // namespace qublet
