#include "engine/recovery_file.h"

#include <algorithm>
#include <utility>

#include "platform/file_time.h"
#include "playlist/m3u_lines.h"

namespace qublet {
namespace {

constexpr std::string_view kStem = "recovery-";
constexpr std::string_view kList = ".m3u";
constexpr std::string_view kLock = ".lock";
constexpr int kMostLists = 999;

std::string ListOf(const std::string& folder, int number) {
  return folder + '\\' + std::string(kStem) + std::to_string(number) + std::string(kList);
}

std::string LockOf(const std::string& list) {
  return list.substr(0, list.size() - kList.size()) + std::string(kLock);
}

bool IsListName(std::string_view name) {
  if (!name.starts_with(kStem) || !name.ends_with(kList) || name.size() <= kStem.size() + kList.size()) return false;
  const std::string_view number = name.substr(kStem.size(), name.size() - kStem.size() - kList.size());
  return number.find_first_not_of("0123456789") == number.npos;
}

}  // namespace

RecoveryFile::RecoveryFile(const FileSystem& files, std::string path, std::unique_ptr<HeldFile> lock)
    : files_(files), path_(std::move(path)), lock_(std::move(lock)) {}

// Whether the list is there is certain only with the lock.
std::unique_ptr<RecoveryFile> RecoveryFile::Own(const FileSystem& files, const std::string& path, bool present) {
  std::unique_ptr<HeldFile> lock = HoldFile(files, LockOf(path));
  if (!lock || files.Attributes(path).has_value() != present) return nullptr;
  return std::unique_ptr<RecoveryFile>(new RecoveryFile(files, path, std::move(lock)));
}

std::unique_ptr<RecoveryFile> RecoveryFile::Begin(const FileSystem& files, const std::string& folder) {
  if (folder.empty()) throw Failure("this user has no folder for recovery lists");
  for (int number = 1; number <= kMostLists; ++number) {
    if (auto file = Own(files, ListOf(folder, number), false)) return file;
  }
  throw Failure("there are too many recovery lists");
}

std::unique_ptr<RecoveryFile> RecoveryFile::TakeOver(const FileSystem& files, const std::string& path) {
  return Own(files, path, true);
}

Outcome RecoveryFile::Write(const Collection& paths) const {
  return WritePlaylistLines(files_, path_, paths, false);
}

void RecoveryFile::Delete() const {
  if (files_.Attributes(path_)) files_.DeleteFile(path_);
}

std::vector<FoundList> FindRecoveryLists(const FileSystem& files, const std::string& folder) {
  std::vector<FoundList> lists;
  ResumeNext([&] {
    if (folder.empty()) return;
    for (const FolderEntry& entry : files.ReadFolder(folder)) {
      const std::string path = folder + '\\' + entry.name;
      const auto written = LastWrite(files, path);
      if (!entry.is_folder && IsListName(entry.name) && written) lists.push_back({path, *written});
    }
  });
  std::ranges::stable_sort(lists, std::ranges::greater(), &FoundList::written);
  return lists;
}

}  // namespace qublet
