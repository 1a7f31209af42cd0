#include "generators/autocreate/autocreate_run.h"

#include <memory>
#include <string_view>
#include <unordered_set>

#include "playlist/m3u_lines.h"
#include "playlist/paths/file_details.h"

namespace qublet {
namespace {

std::string Counted(std::size_t count, const char* what) {
  return std::to_string(count) + what;
}

// May change the mode to one that needs no root.
std::string FindRoot(AutoCreateOrder& order, const AutoCreateWatch& watch) {
  watch.report("Searching for Root Folder...");
  std::string Root = FindCommonFolder(order.FileArray);
  if (!Root.empty()) {
    watch.report("Root Folder found as: " + Root);
    return Root;
  }
  watch.report("Could not parse Root Folder, Changing mode...");
  order.mode = AutoCreateMode::kBaseFolderOnly;
  watch.report("Set mode: Create M3Us in Base folder only...");
  return Root;
}

bool HasDuplicates(const Collection& targets) {
  return std::unordered_set<std::string_view>(targets.begin(), targets.end()).size() < targets.size();
}

void ReportDuplicates(const AutoCreateWatch& watch) {
  for (const char* line :
       {"Duplicate Filenames found...", "PROCESS FAILED!", "You need to check the filenaming format",
        "to make sure it does not result in", "duplicate files being created. Try",
        "adding lower-level folders to the", "name. E.G %1. Click Next> to continue."})
    watch.report(line);
}

void Write(const AutoCreatePlan& plan, const Collection& files, const FileSystem& system,
           const AutoCreateWatch& watch, AutoCreateResult& result) {
  const std::unique_ptr<ReplacementBatch> batch = system.BeginBatch();
  const NamesByFolder names(files);
  int position = 0;
  for (const PlannedFolder& folder : plan.folders) {
    for (const PlannedPlaylist& playlist : folder.playlists) {
      const Collection lines = LinesOf(playlist, names.In(folder.path));
      const bool written = static_cast<bool>(WritePlainLines(system, playlist.target, lines));
      if (written) result.Written.push_back(playlist.target);
      if (!written) ++result.failed;
      watch.report((written ? "> - " : "X - ") + playlist.target);
    }
    watch.progress(++position, static_cast<int>(plan.folders.size()));
  }
}

}  // namespace

AutoCreateResult CreatePlaylists(AutoCreateOrder order, const FileSystem& system, const Clock& clock,
                                 const AutoCreateWatch& watch, bool dry_run) {
  const std::string Root = order.mode == AutoCreateMode::kMyFolderOnly ? "" : FindRoot(order, watch);
  AutoCreateResult result;
  result.mode = order.mode;
  watch.report("Building a list of files to be created...");
  if (order.Paths.empty()) {
    for (const char* line : {"No files requested...", "PROCESS COMPLETE!"}) watch.report(line);
    return result;
  }
  const AutoCreatePlan plan = PlanPlaylists(order, Root, clock);
  for (const std::string& target : plan.Planned) watch.report(target);
  watch.report("Searching for duplicates...");
  if (HasDuplicates(plan.Planned)) {
    ReportDuplicates(watch);
    result.end = AutoCreateEnd::kDuplicates;
    return result;
  }
  watch.report("No duplicates found...");
  result.end = dry_run ? AutoCreateEnd::kChecked : AutoCreateEnd::kWritten;
  if (dry_run) return result;
  watch.report("Creating Files...");
  Write(plan, order.FileArray, system, watch, result);
  watch.report("PROCESS COMPLETE!");
  watch.report(Counted(plan.Planned.size(), " Files Requested"));
  watch.report(Counted(result.Written.size(), " Files written OK"));
  watch.report(Counted(static_cast<std::size_t>(result.failed), " Files could not be created"));
  return result;
}

bool UndoPlaylists(const Collection& Written, const FileSystem& system, const AutoCreateWatch& watch) {
  watch.report("User request UNDO....");
  std::size_t deleted = 0;
  int position = 0;
  for (const std::string& path : Written) {
    const bool gone = static_cast<bool>(DeleteFileSafe(system, path));
    if (gone) ++deleted;
    watch.report((gone ? "Successfully Deleted file: " : "Could not Delete file: ") + path);
    watch.progress(++position, static_cast<int>(Written.size()));
  }
  watch.report("PROCESS COMPLETE!");
  watch.report(Counted(Written.size(), " Files Requested"));
  watch.report(Counted(deleted, " Files deleted OK"));
  watch.report(Counted(Written.size() - deleted, " Files could not be deleted [in use, missing?]"));
  return deleted == Written.size();
}

}  // namespace qublet
