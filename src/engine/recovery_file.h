#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "platform/held_file.h"
#include "playlist/paths/collections.h"

namespace qublet {

// A recovery list on the disk ("recovery-1.m3u") that belongs to this process: beside it lies a file that is held
// ("recovery-1.lock") for as long as one of these lives. The list itself stays when its owner goes.
class RecoveryFile {
 public:
  // One under the first number that is free; nothing is written yet. Throws Failure.
  static std::unique_ptr<RecoveryFile> Begin(const FileSystem& files, const std::string& folder);
  // One that is there. Nothing when another process owns it, or when it has gone. Throws Failure.
  static std::unique_ptr<RecoveryFile> TakeOver(const FileSystem& files, const std::string& path);

  const std::string& Path() const { return path_; }
  // Replaces the list, in the form of "last.m3u"; on a failure the present one stays.
  Outcome Write(const Collection& paths) const;
  // Throws Failure, but not when there is none.
  void Delete() const;

 private:
  RecoveryFile(const FileSystem& files, std::string path, std::unique_ptr<HeldFile> lock);
  static std::unique_ptr<RecoveryFile> Own(const FileSystem& files, const std::string& path, bool present);

  const FileSystem& files_;
  std::string path_;
  std::unique_ptr<HeldFile> lock_;
};

struct FoundList {
  std::string path;
  std::filesystem::file_time_type written;
};

// All recovery lists in a folder, owned or not, the newest first. None when the folder can't be read.
std::vector<FoundList> FindRecoveryLists(const FileSystem& files, const std::string& folder);

}  // namespace qublet
