#pragma once

#include <map>
#include <mutex>
#include <numeric>
#include <string>
#include <vector>

#include "platform/forwarding_file_system.h"

namespace qublet {

// Notes which folders are listed, and how often.
class CountedListings : public ForwardingFileSystem {
 public:
  using ForwardingFileSystem::ForwardingFileSystem;

  std::vector<FolderEntry> ReadFolder(const std::string& folder) const override {
    {
      const std::lock_guard lock(mutex_);
      ++times_[folder];
    }
    return files_.ReadFolder(folder);
  }

  int Of(const std::string& folder) const {
    const std::lock_guard lock(mutex_);
    const auto found = times_.find(folder);
    return found == times_.end() ? 0 : found->second;
  }
  int OfAll() const {
    const std::lock_guard lock(mutex_);
    return std::accumulate(times_.begin(), times_.end(), 0,
                           [](int sum, const auto& folder) { return sum + folder.second; });
  }

 private:
  mutable std::mutex mutex_;
  mutable std::map<std::string, int> times_;
};

}  // namespace qublet
