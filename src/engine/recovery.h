#pragma once

#include <chrono>
#include <cstdint>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "engine/recovery_file.h"
#include "playlist/document.h"
#include "playlist/items.h"

namespace qublet {

// Keeps a list that is stored nowhere else in a file of this user's, for the case that the program doesn't come to
// its own end. Nobody is told when that can't be done; what was kept before stays.
class Recovery {
 public:
  using Time = std::chrono::steady_clock::time_point;
  // A list is written so long after its last change, and while changes go on, so often at least.
  static constexpr auto kAfterLastChange = std::chrono::seconds(3);
  static constexpr auto kAtLeastEvery = std::chrono::seconds(30);

  // `folder` is in drive form, "" when there is none: then nothing is ever kept. Nothing is looked for or made there
  // before the first call.
  Recovery(Document& document, const FileSystem& files, std::string folder);
  // What is being written is waited for. A list that is stored nowhere stays.
  ~Recovery();
  Recovery(const Recovery&) = delete;
  Recovery& operator=(const Recovery&) = delete;

  // To be called every second or so, between commands: begins on another thread what is due. What it has to do itself
  // is at most linear in the rows, and only when a list is to be written.
  void Tick(Time now);
  // Waits for what that began.
  void Finish();
  // Has the file as it should be before it comes back, whatever is due.
  void Settle();
  // The list as it is now is stored elsewhere, or isn't wanted any more: the file goes at once, until the next
  // change.
  void Drop();

  // What processes that have gone left, the newest first; some may have an owner.
  std::vector<FoundList> Find() const { return FindRecoveryLists(files_, folder_); }
  // Adds the rows of such a list, which is this process's own from now on. False, and the list is left alone, when
  // another process owns it or no row came.
  bool Restore(const std::string& path, Items& items);

 private:
  struct Job {
    std::future<bool> done;
    std::optional<std::uint64_t> writes;  // the changes that the file then holds; nothing when it goes
  };

  void Begin(std::optional<std::uint64_t> writes);
  bool Write(const Collection& paths);
  bool Delete();
  void LetGo();

  Document& document_;
  const FileSystem& files_;
  const std::string folder_;

  std::unique_ptr<RecoveryFile> file_;  // the job's while one runs
  bool written_ = false;                // there is a list of ours on the disk
  Job job_;
  std::optional<std::uint64_t> kept_;  // changes of the rows that need no writing any more
  std::optional<std::uint64_t> seen_;  // those of the last Tick
  Time seen_first_;                    // the time since which these are the last
  std::optional<Time> waiting_since_;  // since then something has been unwritten
  bool failed_ = false;                // the last job
};

}  // namespace qublet
