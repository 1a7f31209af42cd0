#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "tools/rename/rename_config.h"

namespace qublet {

// The artist and title of an ".mp3" or ".ogg" by its tags, "" for any other file and where there are none.
using TitleReader = std::function<std::string(const std::string& path)>;
std::string TagTitle(const FileSystem& files, const std::string& path);

// A configuration made ready for many names.
class RenameRules {
 public:
  explicit RenameRules(const RenameConfig& config);

  // The path that a file is to get, `path` itself when no name is left. `Index` of `Total` is its number. Throws
  // Failure for a limit below 0 and for rules that make a name of more than 32,766 bytes. Reads nothing but, by
  // `title`, the tags, and these only when names come from them.
  std::string NewPath(const std::string& path, std::int16_t Index, std::int16_t Total,
                      const TitleReader& title) const;
  bool CountsFiles() const { return config_.Increment; }

 private:
  void ApplyTo(std::string& name, std::int16_t index, std::int16_t total) const;

  RenameConfig config_;
  std::vector<RenameRule> active_;
};

// What came of one file.
struct RenameResult {
  std::string path;  // that it has now
  Outcome outcome;   // done also where there was nothing to do
};

// Whether somebody has looked at what a path leads to: the line of a playlist may name a folder.
enum class PathIs { kNotKnown, kFile };

// Renames a file, and never replaces another; folders are refused. A new name with "/" in it is refused on every
// system. Never throws.
RenameResult RenameTo(const FileSystem& files, const std::string& path, const std::string& new_path,
                      PathIs known = PathIs::kNotKnown);
RenameResult RenameByRules(const FileSystem& files, const RenameRules& rules, const std::string& path,
                           std::int16_t Index, std::int16_t Total, PathIs known = PathIs::kNotKnown);

// The path that the file has afterwards: `path` itself if nothing could be done. Never throws.
std::string ApplyRenameRules(const FileSystem& files, const RenameConfig& config, const std::string& path,
                             std::int16_t Index, std::int16_t Total, bool DoRename);

}  // namespace qublet
