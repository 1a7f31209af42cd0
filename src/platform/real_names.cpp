#include "platform/real_names.h"

#include <algorithm>
#include <mutex>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/drive_form.h"
#include "platform/file_system.h"
#include "platform/folded_text.h"

namespace qublet {
namespace {

constexpr std::size_t kLongestPath = 4096;  // of any system that tells names apart by case

// Where the system itself finds names in any case.
class NamesAsGiven : public RealNames {
 public:
  explicit NamesAsGiven(const FileSystem& files) : files_(files) {}
  std::optional<std::string> Of(const std::string& path) override {
    return files_.Exists(path) ? std::optional(path) : std::nullopt;
  }

 private:
  const FileSystem& files_;
};

class NamesInAnyCase : public RealNames {
 public:
  explicit NamesInAnyCase(const FileSystem& files) : files_(files) {}

  std::optional<std::string> Of(const std::string& path) override {
    if (!HasDrive(path) || path.find('/') != path.npos || path.size() > kLongestPath) return std::nullopt;
    const std::lock_guard lock(mutex_);
    std::optional<std::string> real;
    ResumeNext([&] { real = Entry(path); });
    return real;
  }

 private:
  using Listing = std::unordered_map<std::string, std::vector<std::string>>;  // names by what they resemble

  // Paths here have no "\" at their end: a drive is "c:".
  std::optional<std::string> Entry(std::string_view path);
  std::optional<std::string> Folder(std::string_view path);
  const Listing& ListingOf(const std::string& folder);
  static std::optional<std::string> Match(const Listing& listing, std::string_view name);

  const FileSystem& files_;
  std::mutex mutex_;  // of what stands below
  std::unordered_map<std::string, std::optional<std::string>> folders_;
  std::unordered_map<std::string, Listing> listings_;
};

std::optional<std::string> NamesInAnyCase::Match(const Listing& listing, std::string_view name) {
  const auto found = listing.find(SimilarityKey(name));
  if (found == listing.end()) return std::nullopt;
  const std::vector<std::string>& names = found->second;
  const std::string folded = FoldCase(name);
  const std::string* in_other_case = nullptr;
  int count = 0;
  for (const std::string& candidate : names) {
    if (candidate == name) return candidate;
    if (FoldCase(candidate) != folded) continue;
    in_other_case = &candidate;
    ++count;
  }
  if (count == 1) return *in_other_case;
  return count == 0 && names.size() == 1 ? std::optional(names.front()) : std::nullopt;
}

const NamesInAnyCase::Listing& NamesInAnyCase::ListingOf(const std::string& folder) {
  const auto known = listings_.find(folder);
  if (known != listings_.end()) return known->second;
  Listing& listing = listings_[folder];
  ResumeNext([&] {
    for (FolderEntry& entry : files_.ReadFolder(folder + "\\"))
      listing[SimilarityKey(entry.name)].push_back(std::move(entry.name));
  });
  return listing;
}

std::optional<std::string> NamesInAnyCase::Folder(std::string_view path) {
  if (path.size() <= 2) return std::string(path);
  const auto known = folders_.find(std::string(path));
  if (known != folders_.end()) return known->second;
  const std::string folder(path);
  std::optional<std::string> real = files_.Exists(folder) ? folder : Entry(path);
  return folders_.emplace(folder, std::move(real)).first->second;
}

std::optional<std::string> NamesInAnyCase::Entry(std::string_view path) {
  const std::size_t last = path.rfind('\\');
  if (last == path.npos) return std::nullopt;
  const std::string_view name = path.substr(last + 1);
  const std::size_t end = path.find_last_not_of('\\', last);
  const auto folder = Folder(path.substr(0, end == path.npos ? 0 : end + 1));
  if (!folder) return std::nullopt;
  if (name.empty() || name == ".") return folder;
  if (name == "..")
    return folder->size() > 2 ? Folder(std::string_view(*folder).substr(0, folder->rfind('\\'))) : folder;
  const auto match = Match(ListingOf(*folder), name);
  return match ? std::optional(*folder + "\\" + *match) : std::nullopt;
}

}  // namespace

std::unique_ptr<RealNames> FindNamesInAnyCase(const FileSystem& files) {
  return std::make_unique<NamesInAnyCase>(files);
}

std::unique_ptr<RealNames> FileSystem::FindRealNames() const {
  return std::make_unique<NamesAsGiven>(*this);
}

std::string FileSystem::RealName(const std::string& path) const {
  return Exists(path) ? path : FindRealNames()->Of(path).value_or(path);
}

}  // namespace qublet
