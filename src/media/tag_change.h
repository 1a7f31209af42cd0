#pragma once

#include <string>
#include <utility>
#include <vector>

#include "media/tag_fields.h"

namespace qublet {

// What is to become of a file's tags.
struct TagChange {
  std::vector<std::pair<const TagField*, std::string>> settings;
  bool remove_v1 = false;
  bool remove_v2 = false;

  bool IsNone() const { return settings.empty() && !remove_v1 && !remove_v2; }
};

// Sets the fields one after the other, each in a tag that is made where it is missing, and removes what isn't set
// again; everything else in the tags stays. Throws Failure with the reason: another file than an .mp3, a text that a
// field can't hold (the file isn't touched then), and whatever keeps tags from being read or written.
void ChangeTags(const FileSystem& files, const std::string& path, const TagChange& change);

}  // namespace qublet
