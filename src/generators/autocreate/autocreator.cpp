#include "generators/autocreate/autocreator.h"

#include "playlist/paths/playlist_name.h"
#include "playlist/row_paths.h"

namespace qublet {
namespace {

constexpr int kMaxStep = 3;
constexpr const char* kWelcome =
    "Welcome to the 'Autocreate M3U's Wizard'. This Wizard will automatically create M3U files in the folders of all "
    "the folders listed in the current playlist. Please choose where you would like this process to create the "
    "files... ";
constexpr const char* kReady = "The process is now ready to begin. Click Next> to begin creating the M3U files...";
constexpr const char* kComplete =
    "Process Complete, Click Next> to repeat the Wizard. If you wish to delete the files created click Undo.";
constexpr const char* kSamplePath = "c:\\test\\mp3s\\artist\\title";

}  // namespace

AutoCreator::AutoCreator(Engine& engine) : engine_(engine) {
  PrepareAutoCreate();
}

// Mode, format and folder stay as they were.
void AutoCreator::PrepareAutoCreate() {
  Step = 0;
  ShowFrame();
  view.closes_next = false;
  view.TestOutput.clear();
  view.lstReport.clear();
  view.lstPaths.clear();
  view.Label5 = kReady;
  view.undo = false;
  Written_.clear();
  FileArray_ = RealPathsOf(engine_.document.ListView1, WhichRows::kAll);
  for (std::string& folder : FoldersThatExist(engine_.services.files, FileArray_))
    view.lstPaths.push_back({std::move(folder), true});
  const bool any = !view.lstPaths.empty();
  FirstFolder_ = any ? view.lstPaths.front().path : "";
  view.Label1 = any ? kWelcome : kNoFolderToAutoCreate;
  view.modes = view.next = any;
}

void AutoCreator::ShowFrame() {
  view.frame = Step;
  view.back = Step != kModeFrame;
}

void AutoCreator::CmdNext_Click(const Watch& watch) {
  ++Step;
  if (Step == kMaxStep + 2) {
    PrepareAutoCreate();
  } else if (Step == kMaxStep + 1) {
    view.next = view.back = false;
    watch();
    Run(watch);
    view.next = view.closes_next = true;
  } else {
    ShowFrame();
  }
}

void AutoCreator::CmdBack_Click() {
  --Step;
  ShowFrame();
}

void AutoCreator::Mode_Click(AutoCreateMode mode) {
  view.mode = mode;
  if (mode == AutoCreateMode::kMyFolderOnly) MyFolderOnly_Click();
}

void AutoCreator::MyFolderOnly_Click() {
  const auto folder = engine_.services.dialogs.BrowseForFolder("Select Folder...", MyFolder_, false);
  MyFolder_ = folder.value_or("");
  if (folder && !MyFolder_.ends_with('\\')) MyFolder_ += '\\';
  if (!folder) view.mode = AutoCreateMode::kBaseFolderOnly;
}

void AutoCreator::lstPaths_DblClick(int row) {
  if (row < 0 || row >= static_cast<int>(view.lstPaths.size())) return;
  engine_.services.shell.Explore(view.lstPaths[static_cast<std::size_t>(row)].path);
}

// A folder of the list ends in "\", the sample doesn't: so levels count one higher in the sample.
bool AutoCreator::CmdTest_Click() {
  std::string format = view.Parameters;
  const std::string name =
      MakePlaylistName(format, FirstFolder_.empty() ? kSamplePath : FirstFolder_, engine_.services.clock);
  if (!name.empty()) {
    view.TestOutput = name;
    return true;
  }
  engine_.services.dialogs.ShowMessage("The resultant File name will not be valid.", MessageIcon::kExclamation,
                                       MessageButtons::kOk);
  view.Parameters = kDefaultNamingFormat;
  return false;
}

void AutoCreator::cmdUndo_Click(const Watch& watch) {
  if (engine_.services.dialogs.ShowMessage("Delete all files created?", MessageIcon::kQuestion,
                                           MessageButtons::kYesNoCancel) != MessageAnswer::kYes)
    return;
  if (UndoPlaylists(Written_, engine_.services.files, Reporting(watch))) view.undo = false;
  view.progress = 0;
}

void AutoCreator::Run(const Watch& watch) {
  AutoCreateResult result =
      CreatePlaylists(Order(), engine_.services.files, engine_.services.clock, Reporting(watch));
  view.mode = result.mode;
  view.progress = 0;
  Written_ = std::move(result.Written);
  if (result.end != AutoCreateEnd::kWritten) return;
  view.Label5 = kComplete;
  view.undo = !Written_.empty();
  if (view.mode == AutoCreateMode::kMyFolderOnly) view.mode = AutoCreateMode::kBaseFolderOnly;
}

AutoCreateOrder AutoCreator::Order() const {
  AutoCreateOrder order;
  order.FileArray = FileArray_;
  for (const TickedFolder& folder : view.lstPaths) {
    if (folder.ticked) order.Paths.push_back(folder.path);
  }
  order.mode = view.mode;
  order.MyFolder = MyFolder_;
  order.Parameters = view.Parameters;
  return order;
}

AutoCreateWatch AutoCreator::Reporting(const Watch& watch) {
  AutoCreateWatch reporting;
  reporting.report = [this, &watch](const std::string& line) {
    view.lstReport.push_back(line);
    watch();
  };
  reporting.progress = [this, &watch](int value, int maximum) {
    view.progress = value;
    view.maximum = maximum;
    watch();
  };
  return reporting;
}

}  // namespace qublet
