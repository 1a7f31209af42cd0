#pragma once

#include <functional>
#include <string>
#include <vector>

#include "media/editor/tag_journal.h"
#include "playlist/paths/collections.h"

namespace qublet {

// Changes the tags of many files, one after the other, and keeps what they were. The record of a file is on the disk
// before the file is changed; one flush serves several files.
class TagRun {
 public:
  // How a file is to change; throws Failure.
  using Plan = std::function<TagWrite(const std::string& path)>;

  struct Watch {
    std::function<void()> step = [] {};  // twice for each file
    std::function<bool()> stopped = [] { return false; };
    std::function<void(const std::string& path, const Outcome& outcome)> done = [](const std::string&,
                                                                                   const Outcome&) {};
  };

  TagRun(const FileSystem& files, TagRunRecord& record, Plan plan, Watch watch)
      : files_(files), record_(record), plan_(std::move(plan)), watch_(std::move(watch)) {}

  // In their order. A file that can't be changed costs only itself; when stopped, the files so far stay changed and
  // the rest is left alone.
  void Over(const Collection& paths);

 private:
  struct Planned {
    std::string path;
    TagWrite write;
    Outcome outcome;
  };
  Planned PlanOne(const std::string& path) const;
  bool MustFinishBefore(const Planned& next) const;
  void Finish();
  void Commit(Planned& planned);

  const FileSystem& files_;
  TagRunRecord& record_;
  Plan plan_;
  Watch watch_;
  std::vector<Planned> group_;
};

}  // namespace qublet
