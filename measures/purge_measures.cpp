#include "purge_measures.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <fstream>
#include <memory>
#include <stdexcept>

#include "engine/engine.h"
#include "engine/system.h"
#include "full_list.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"
#include "tools/purge/duplicates.h"
#include "tools/purge/missing_items.h"
#include "tools/purge/restoration.h"
#include "workplace.h"

namespace qublet::measures {
namespace {

Row RowOf(const std::string& path) {
  Row row;
  row.cells[kFileName] = GetFileName(path);
  row.cells[kPath] = GetFolderPath(path);
  return row;
}

// A full list of which one row in ten stands a second time.
std::vector<Row> RowsWithDuplicates() {
  std::vector<Row> rows = FullListRows();
  for (std::size_t i = 10; i < rows.size(); i += 10) rows[i].cells = rows[i / 2].cells;
  return rows;
}

Contest DuplicatesAgainstOneSort(Workplace&) {
  const auto rows = std::make_shared<RowStore>();
  rows->Insert(1, RowsWithDuplicates());
  const auto folded = std::make_shared<std::vector<std::string>>();
  for (int i = 1; i <= rows->Count(); ++i) folded->push_back(FoldCase(rows->At(i).FullPath()));
  const auto find = [rows] {
    std::size_t found = 0;
    const double seconds = SecondsOf(
        [&] { found = FindDuplicates(BuildDuplicateKeys(*rows, DuplicateKey::kPath, false), false).size(); });
    if (found < 3000) throw std::runtime_error("duplicates are missing");
    return seconds;
  };
  const auto sort = [folded] {
    std::vector<const std::string*> pointers;
    for (const std::string& text : *folded) pointers.push_back(&text);
    return SecondsOf([&] {
      std::stable_sort(pointers.begin(), pointers.end(),
                       [](const std::string* a, const std::string* b) { return *a < *b; });
    });
  };
  return {find, sort};
}

Contest MissingAgainstBareCalls(Workplace& workplace) {
  const std::vector<std::string> tracks = workplace.Tracks(RowStore::MaxRows);
  const std::shared_ptr<FileSystem> files = OpenFileSystem();
  const auto list = std::make_shared<RowStore>();
  std::vector<Row> rows;
  for (const std::string& track : tracks) rows.push_back(RowOf(files->FromNative(track)));
  rows.back().cells[kFileName] = "gone.mp3";
  list->Insert(1, std::move(rows));
  const auto check = [files, list] {
    std::size_t missing = 0;
    const double seconds = SecondsOf([&] { missing = FindMissingItems(*list, *files, [] {}).MissingRows.size(); });
    if (missing != 1) throw std::runtime_error("rows are missing that are there");
    return seconds;
  };
  const auto bare = [tracks] {
    return SecondsOf([&] {
      struct stat status {};
      for (const std::string& track : tracks)
        if (stat(track.c_str(), &status) != 0) throw std::runtime_error("a file is missing");
    });
  };
  return {check, bare};
}

constexpr int kFolders = 4000, kFilesInEach = 25, kMissing = 2000;

// 100,000 files in 4,000 folders, of which 2,000 in 80 folders bear the names of missing ones.
std::string MakeTree(const Workplace& workplace) {
  const std::filesystem::path root = workplace.Root() / "tree";
  for (int folder = 0; folder < kFolders; ++folder) {
    const std::filesystem::path place =
        root / ("artist " + std::to_string(folder / 20)) / ("album " + std::to_string(folder));
    std::filesystem::create_directories(place);
    for (int file = 0; file < kFilesInEach; ++file)
      std::ofstream(place / ("Track " + std::to_string(folder * kFilesInEach + file) + ".mp3")) << "abc";
  }
  return root.string();
}

int CountFiles(const std::string& folder) {
  DIR* listing = opendir(folder.c_str());
  if (listing == nullptr) throw std::runtime_error("can't read a folder");
  int count = 0;
  while (const dirent* entry = readdir(listing)) {
    const std::string name = entry->d_name;
    if (entry->d_type != DT_DIR)
      ++count;
    else if (name != "." && name != "..")
      count += CountFiles(folder + "/" + name);
  }
  closedir(listing);
  return count;
}

class QuietDialogs : public Dialogs {
 public:
  MessageAnswer ShowMessage(const std::string&, MessageIcon, MessageButtons) override { return MessageAnswer::kOk; }
  std::optional<std::string> ShowOpen(const FileRequest&) override { return std::nullopt; }
  std::optional<std::string> ShowSave(const FileRequest&) override { return std::nullopt; }
  std::optional<std::string> AskText(const std::string&, const std::string&) override { return {}; }
  std::optional<std::string> BrowseForFolder(const std::string&, const std::string&, bool) override {
    return std::nullopt;
  }
};

// A list of missing files, as many as a folder of the tree has to each old folder.
class RestoreJob {
  QuietDialogs dialogs_;
  Feedback feedback_;
  System system_{System::Traces::kLeavesNothing};

 public:
  double Run(const std::string& root) {
    Engine engine(system_.With(dialogs_, feedback_), {"measures", "", ""}, ",");
    RowStore& list = engine.document.ListView1;
    std::vector<Row> rows;
    for (int i = 0; i < kMissing; ++i)
      rows.push_back(
          RowOf("c:\\gone\\" + std::to_string(i / kFilesInEach) + "\\Track " + std::to_string(i) + ".mp3"));
    list.Insert(1, std::move(rows));
    const MissingItems missing = FindMissingItems(list, *system_.files, [] {});
    const std::string drive_form = system_.files->FromNative(root);
    std::size_t found = 0;
    const double seconds = SecondsOf([&] {
      Restoration restoration(engine, missing.MissingPaths, false);
      restoration.SearchDrive(drive_form);
      found = restoration.FoundCount();
      for (int n = 1; n <= restoration.FolderCount(); ++n)
        if (restoration.ShowMissingFolder(n).FoundPaths.size() != 1)
          throw std::runtime_error("a suggestion is missing");
    });
    if (found != kMissing) throw std::runtime_error("files are missing");
    return seconds;
  }
};

Contest RestoreAgainstABareWalk(Workplace& workplace) {
  const std::string root = MakeTree(workplace);
  const auto job = std::make_shared<RestoreJob>();
  const auto walk = [root] {
    int count = 0;
    const double seconds = SecondsOf([&] { count = CountFiles(root); });
    if (count != kFolders * kFilesInEach) throw std::runtime_error("files are missing");
    return seconds;
  };
  return {[job, root] { return job->Run(root); }, walk};
}

}  // namespace

std::vector<Measure> PurgeMeasures() {
  return {{"duplicates_32767", 3.0, DuplicatesAgainstOneSort},
          {"missing_32767", 1.3, MissingAgainstBareCalls},
          {"restore_2000_in_100000", 1.5, RestoreAgainstABareWalk}};
}

}  // namespace qublet::measures
