#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/file_system.h"

namespace qublet {

// What a playlist says for items relative to its own folder, in drive form. A playlist that is a symbolic link has
// two: that of its name, and that of the file which the link leads to.
class RelativeLines {
 public:
  // `parents` allows for lines that leave the folder ("..\").
  RelativeLines(const FileSystem& files, const std::string& playlist, bool parents);

  // Nothing for an item that can't be said so.
  std::optional<std::string> LineOf(const std::string& item);

 private:
  std::optional<std::string> Below(const std::string& item) const;
  bool IsOtherBesideTheLink(const std::string& line, const std::string& item) const;
  std::optional<std::string> Above(const std::string& item);
  bool LeadsUp(std::size_t steps);

  const FileSystem& files_;
  const std::string folder_;
  const std::string linked_folder_;  // "" where there is none
  const std::string file_folder_;    // of the file itself
  const bool parents_;
  std::vector<std::string> names_;  // of the folders in `file_folder_`
  std::vector<bool> leads_up_;      // by count of steps from 1, as far as it was asked for
};

}  // namespace qublet
