#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>

#include "platform/file_system.h"

namespace qublet {

// FileExists for the many paths of one command. A path with "*" or "?" that isn't there itself is held against the
// names of its folder, which are read from disk once, and at all only for such a path. Safe to use from several
// threads; what appears or goes while this lives may be overlooked.
class ExistingFiles {
 public:
  // `files` outlives this.
  explicit ExistingFiles(const FileSystem& files) : files_(files) {}
  ExistingFiles(const ExistingFiles&) = delete;
  ExistingFiles& operator=(const ExistingFiles&) = delete;

  // True for a file and for a folder, and for a path whose last piece holds "*" or "?" when a name that isn't hidden
  // fits it. False for "". Never throws.
  bool Has(const std::string& path) const;

 private:
  // What a folder holds that isn't hidden: folded names, each with a zero behind it.
  using Names = std::shared_ptr<const std::string>;

  Names NamesIn(const std::string& folder) const;

  const FileSystem& files_;
  mutable std::mutex mutex_;  // of what stands below
  mutable std::unordered_map<std::string, Names> listed_;
};

}  // namespace qublet
