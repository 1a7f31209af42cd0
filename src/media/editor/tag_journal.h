#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "media/tag_write.h"
#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/held_file.h"

namespace qublet {

// Runs that changed tags, kept so that they can be undone: a file a run, in a folder of this user. It holds the old
// bytes of each file's tags and a sum of the new ones, never audio.

// Who made a run.
inline constexpr const char* kWindowRun = "window";
inline constexpr const char* kCommandRun = "qublet";

struct TagRunFacts {
  int number = 0;
  std::string time;  // "2026-11-22 03:19:43"
  int files = 0;
  std::string origin;
  bool undone = false;
};

// Bytes of all runs together; the oldest go first.
inline constexpr std::int64_t kMostOfTagRuns = std::int64_t{256} << 20;

// The record of one run while it goes on. Nothing is made before the first file. Nothing here throws: a run that
// outgrows the room, or whose record can't be written, goes on without one.
class TagRunRecord {
 public:
  TagRunRecord(const FileSystem& files, const Clock& clock, std::string origin, std::int64_t most = kMostOfTagRuns)
      : files_(files), clock_(clock), origin_(std::move(origin)), most_(most) {}

  // Puts down what a change takes away.
  void Note(const TagWrite& write);
  // Everything noted is on the disk, unless the record is lost. Comes before a noted file is changed.
  void Flush();
  // A noted file has been changed.
  void Changed() { ++changed_; }
  // The run has ended. One that changed nothing was none.
  void End();
  // Why this run can't be undone; "" while it can.
  const std::string& Lost() const { return lost_; }

 private:
  struct Older {
    std::string path;
    std::int64_t size;
  };
  void Begin();
  void MakeRoom(std::int64_t more);
  void Append(const Bytes& bytes);
  void Lose(const std::string& why);

  const FileSystem& files_;
  const Clock& clock_;
  std::string origin_;
  std::int64_t most_;
  std::string path_;
  std::unique_ptr<HeldFile> lock_;
  std::unique_ptr<InPlaceFile> file_;
  std::int64_t size_ = 0;
  std::vector<Older> older_;  // the oldest last
  std::int64_t older_size_ = 0;
  std::size_t noted_ = 0, changed_ = 0;  // files
  bool waiting_ = false;                 // something isn't on the disk yet
  std::string lost_;
};

// Every run that is kept, the newest first. Never throws.
std::vector<TagRunFacts> TagRuns(const FileSystem& files);
// The newest run that isn't undone, of that origin unless it is "".
std::optional<int> NewestTagRun(const FileSystem& files, const std::string& origin);

struct TagUndo {
  struct Left {
    std::string path;
    std::string reason;
  };
  std::vector<std::string> restored;  // paths
  std::vector<Left> left;
};

// Gives each file whose tags still are what the run wrote exactly its old bytes back, and leaves the others. The run
// counts as undone, unless a file that is there couldn't be written, or files have gone and nothing was restored.
// Throws Failure when there is no such run.
TagUndo UndoTagRun(const FileSystem& files, int number);

}  // namespace qublet
