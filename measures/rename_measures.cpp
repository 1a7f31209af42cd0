#include "rename_measures.h"

#include <dirent.h>
#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>

#include <memory>
#include <stdexcept>
#include <string>

#include "engine/engine.h"
#include "engine/system.h"
#include "playlist/paths/path_text.h"
#include "tools/rename/preview_worker.h"
#include "tools/rename/renamer.h"
#include "workplace.h"

namespace qublet::measures {
namespace {

class AgreeingDialogs : public Dialogs {
 public:
  MessageAnswer ShowMessage(const std::string&, MessageIcon, MessageButtons) override { return MessageAnswer::kYes; }
  std::optional<std::string> ShowOpen(const FileRequest&) override { return std::nullopt; }
  std::optional<std::string> ShowSave(const FileRequest&) override { return std::nullopt; }
  std::optional<std::string> AskText(const std::string&, const std::string&) override { return {}; }
  std::optional<std::string> BrowseForFolder(const std::string&, const std::string&, bool) override {
    return std::nullopt;
  }
};

// The collection as selected rows, in the order of its folders, and rules that change every name.
class RenameJob {
  AgreeingDialogs dialogs_;
  Feedback feedback_;
  System system_{System::Traces::kLeavesNothing};
  Engine engine_{system_.With(dialogs_, feedback_), {"measures", "", ""}, ","};

 public:
  explicit RenameJob(const std::vector<std::string>& tracks) {
    std::vector<Row> rows;
    for (const std::string& track : tracks) {
      const std::string path = system_.files->FromNative(track);
      Row row;
      row.cells[kFileName] = GetFileName(path);
      row.cells[kPath] = GetFolderPath(path);
      row.selected = true;
      rows.push_back(std::move(row));
    }
    engine_.document.ListView1.Insert(1, std::move(rows));
    renamer_.Option_Click(&RenameConfig::Increment, true);
  }

  double Run() {
    const double seconds = SecondsOf([&] { renamer_.CmdProcess_Click({}); });
    Demand("Processed");
    return seconds;
  }
  double Undo() {
    const double seconds = SecondsOf([&] { renamer_.cmdUndo_Click({}); });
    Demand("Restored");
    engine_.document.ListView1.SelectWhere([](int, const Row&) { return true; });
    return seconds;
  }

 private:
  void Demand(const std::string& done) const {
    const std::string count = std::to_string(Workplace::kTracks);
    if (renamer_.view.report != "Done: " + count + "/" + count + " Items were " + done)
      throw std::runtime_error(renamer_.view.report);
  }

  Renamer renamer_{engine_};
};

void ListFolder(const std::string& folder) {
  DIR* listing = opendir(folder.c_str());
  if (listing == nullptr) throw std::runtime_error("can't read a folder");
  while (readdir(listing) != nullptr) continue;
  closedir(listing);
}

// Asks for each file's attributes, lists each folder, renames each file.
void RenameBare(const std::vector<std::string>& tracks, const char* from, const char* to) {
  struct stat status {};
  for (const std::string& track : tracks) {
    if (stat((track + from).c_str(), &status) != 0) throw std::runtime_error("a file is missing");
  }
  std::string folder;
  for (const std::string& track : tracks) {
    if (track.substr(0, track.rfind('/')) != folder) ListFolder(folder = track.substr(0, track.rfind('/')));
    if (renameat2(AT_FDCWD, (track + from).c_str(), AT_FDCWD, (track + to).c_str(), RENAME_NOREPLACE) != 0)
      throw std::runtime_error("a file can't be renamed");
  }
}

Contest RunAgainstBareCalls(Workplace& workplace) {
  const std::vector<std::string> tracks = workplace.Tracks(Workplace::kTracks);
  const auto job = std::make_shared<RenameJob>(tracks);
  const auto run = [job] {
    const double seconds = job->Run();
    job->Undo();
    return seconds;
  };
  const auto bare = [tracks] {
    const double seconds = SecondsOf([&] { RenameBare(tracks, "", ".x"); });
    RenameBare(tracks, ".x", "");
    return seconds;
  };
  return {run, bare};
}

Contest UndoAgainstBareCalls(Workplace& workplace) {
  const std::vector<std::string> tracks = workplace.Tracks(Workplace::kTracks);
  const auto job = std::make_shared<RenameJob>(tracks);
  const auto undo = [job] {
    job->Run();
    return job->Undo();
  };
  const auto bare = [tracks] {
    RenameBare(tracks, "", ".x");
    return SecondsOf([&] { RenameBare(tracks, ".x", ""); });
  };
  return {undo, bare};
}

PreviewRequest RequestFor(const FileSystem& files, const std::vector<std::string>& tracks, bool tags) {
  PreviewRequest request;
  request.config.Increment = true;
  request.config.RenID3 = tags;
  for (const std::string& track : tracks) request.paths.push_back(files.FromNative(track));
  return request;
}

// From the change of an option to the finished table of a full list, against one second.
Contest PreviewAgainstASecond(Workplace& workplace) {
  const std::shared_ptr<FileSystem> files = OpenFileSystem();
  const PreviewRequest request = RequestFor(*files, workplace.Tracks(RowStore::MaxRows), false);
  const auto preview = [files, request] {
    return SecondsOf([&] {
      if (WorkOutPreview(*files, request).size() != request.paths.size())
        throw std::runtime_error("rows are missing");
    });
  };
  return {preview, [] { return 1.0; }};
}

Contest TitlesAgainstReadingTags(Workplace& workplace) {
  const std::shared_ptr<FileSystem> files = OpenFileSystem();
  const PreviewRequest request = RequestFor(*files, workplace.Tagged(), true);
  const auto preview = [files, request] { return SecondsOf([&] { WorkOutPreview(*files, request); }); };
  const auto read = [files, request] {
    return SecondsOf([&] {
      for (const std::string& path : request.paths) {
        if (TagTitle(*files, path).empty()) throw std::runtime_error("a title is missing");
      }
    });
  };
  return {preview, read};
}

}  // namespace

std::vector<Measure> RenameMeasures() {
  return {{"rename_10000", 1.5, RunAgainstBareCalls},
          {"rename_undo_10000", 1.5, UndoAgainstBareCalls},
          {"rename_preview_32767", 1.0, PreviewAgainstASecond},
          {"rename_preview_tags_1000", 1.5, TitlesAgainstReadingTags}};
}

}  // namespace qublet::measures
