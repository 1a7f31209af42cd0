#pragma once

#include <memory>
#include <optional>
#include <string>

namespace qublet {

class FileSystem;

// What a path in drive form leads to. It means what it means where names have no case: on a system that tells names
// apart by case, a step that isn't there exactly is looked for ignoring case, then ignoring where accents stand; one
// match counts, several don't. Each folder is listed once at most, and what was found holds as long as this lives.
class RealNames {
 public:
  virtual ~RealNames() = default;

  // The path of the existing file or folder, as the disk has it; nothing when there is none, or several could be
  // meant. For who has looked for the path itself already. Never throws. Safe to call from several threads.
  virtual std::optional<std::string> Of(const std::string& path) = 0;
};

// For a file system that tells names apart by case.
std::unique_ptr<RealNames> FindNamesInAnyCase(const FileSystem& files);

}  // namespace qublet
