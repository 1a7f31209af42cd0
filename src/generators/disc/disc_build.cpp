#include "generators/disc/disc_build.h"

#include <algorithm>

#include "playlist/m3u_lines.h"
#include "playlist/paths/file_details.h"
#include "playlist/paths/folder_walk.h"
#include "playlist/paths/text.h"
#include "playlist/paths/text_files.h"

namespace qublet {
namespace {

constexpr const char* kPlaylist = "playlist.m3u";
constexpr const char* kIcon = "setup.ico";

// One run. Each part reports whether it was made; what was not fails the disc.
class DiscRun {
 public:
  DiscRun(const DiscServices& services, const DiscPlan& plan, const DiscWatch& watch)
      : services_(services), plan_(plan), watch_(watch), root_(plan.CDRoot() + "\\") {}

  BuiltDisc disc;

  void Build() {
    WalkFolder(services_.files, services_.feedback, plan_.CDRoot(), FileFilters(), CompileFiles_, true, false);
    watch_.ProgressBar2(1);
    watch_.lblReport("Copying MP3 browser Software...");
    if (plan_.extras.chkCopyBrowser) CopyBrowser();
    watch_.ProgressBar2(2);
    watch_.lblReport("Creating a table of MP3 Data...");
    if (plan_.extras.chkCreateTable) CreateTable();
    watch_.ProgressBar2(3);
    watch_.lblReport("Creating the Autorun file...");
    if (plan_.extras.chkCreateAutorun) CreateAutorun();
    watch_.ProgressBar2(4);
    watch_.lblReport("Building list of files to be copied...");
    ListTop();
    watch_.ProgressBar2(kDiscStages);
  }

  // One that can't be written to isn't ours to delete, whatever the system allows.
  void CleanUp() {
    for (const std::string& file : disc.CreatedFiles) {
      bool kept = false;
      ResumeNext([&] { kept = services_.files.IsReadOnly(file); });
      if (!kept) DeleteFileSafe(services_.files, file);
    }
  }

 private:
  void Take(bool made, const std::string& name) {
    if (made)
      disc.CreatedFiles.push_back(root_ + name);
    else
      disc.BuildOk = false;
  }

  void CopyBrowser() {
    Take(static_cast<bool>(CopyFileSafe(services_.files, BrowserProgram(services_.files, services_.program_folder),
                                        root_ + kBrowserOnDisc)),
         kBrowserOnDisc);
  }

  void CreateTable() {
    const std::string page = "MP3Index.htm";
    ReportSettings record = plan_.ReportRec;
    record.SaveRel = true;
    record.RepType = kHtmlReport;
    record.Title = DiscTitle(plan_.CDROMLoc, services_.clock);
    record.Description.clear();
    const ReportServices services{services_.files, services_.clock, services_.thousands_separator};
    const ReportResult made = GenerateReport(services, root_ + page, CompileFiles_, record, watch_.ProgressBar1);
    Take(made.exists && made.written, page);
  }

  void CreateAutorun() {
    const DiscExtras& extras = plan_.extras;
    Collection lines = {"[autorun]"};
    if (extras.chkAutoIcon) {
      WriteIcon();
      disc.CreatedFiles.push_back(root_ + kIcon);
      lines.push_back(std::string("icon=") + kIcon);
    }
    watch_.lblReport("Creating CD playlist...");
    MakeLinesRelative(CompileFiles_, plan_.CDRoot());
    const bool listed = static_cast<bool>(WritePlainLines(services_.files, root_ + kPlaylist, CompileFiles_));
    Take(listed, kPlaylist);
    if (listed && extras.chkAutoBigList) lines.push_back(std::string("open=start ") + kPlaylist);
    if (extras.chkAutoIndex && extras.chkCopyBrowser) lines.push_back(std::string("open=start ") + kBrowserOnDisc);
    const std::string name = "autorun.inf";
    if (lines.size() >= 2)
      Take(static_cast<bool>(WriteLinesToFileChecked(services_.files, lines, root_ + name)), name);
  }

  // A disc without its icon is a disc all the same.
  void WriteIcon() {
    const std::string target = root_ + kIcon;
    if (plan_.icon_file.empty() || !CopyFileSafe(services_.files, plan_.icon_file, target))
      WriteTextFile(services_.files, target, plan_.icon);
  }

  void ListTop() {
    ResumeNext([&] {
      for (const FolderEntry& entry : services_.files.ReadFolder(plan_.CDRoot())) {
        if (!entry.hidden) disc.BurnList.push_back(root_ + entry.name);
      }
    });
    std::ranges::sort(disc.BurnList, {}, LowerCase);
  }

  const DiscServices& services_;
  const DiscPlan& plan_;
  const DiscWatch& watch_;
  const std::string root_;
  Collection CompileFiles_;
};

}  // namespace

BuiltDisc BuildCompilation(const DiscServices& services, const DiscPlan& plan, const DiscWatch& watch,
                           const std::function<void()>& keep) {
  DiscRun run(services, plan, watch);
  run.Build();
  if (run.disc.BuildOk) {
    watch.lblReport("Saving your settings...");
    keep();
    watch.lblReport("Done: The process completed successfully.");
  } else {
    watch.lblReport("Process failed, cleaning up...");
    run.CleanUp();
    watch.lblReport("Done: Process failed, any files created were removed.");
  }
  watch.ProgressBar2(0);
  return run.disc;
}

void SetDefaultReport(const std::string& title, ReportSettings& record) {
  const std::int16_t type = record.RepType;
  LoadDefaults(record);
  record.RepType = type;
  record.Title = title;
  record.Description.clear();
  record.ColumnChecked.fill(true);
}

std::string BrowserProgram(const FileSystem& files, const std::string& program_folder) {
  std::string name = kBrowserOnDisc;
  ResumeNext([&] {
    for (const FolderEntry& entry : files.ReadFolder(program_folder)) {
      if (LowerCase(entry.name) == kBrowserOnDisc) name = entry.name;
    }
  });
  return program_folder + "\\" + name;
}

std::string DiscTitle(const std::string& name, const Clock& clock) {
  return name + " - Created: " + TimeAndDate(clock.Now());
}

}  // namespace qublet
