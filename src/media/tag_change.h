#pragma once

#include <string>
#include <utility>
#include <vector>

#include "media/tag_fields.h"
#include "playlist/paths/collections.h"

namespace qublet {

// What is to become of a file's tags.
struct TagChange {
  std::vector<std::pair<const TagField*, std::string>> settings;
  bool remove_v1 = false;
  bool remove_v2 = false;
  // What comes behind the comments, pictures and places in time (see tpsi.h) that are there.
  std::vector<TagComment> comments = {};
  std::vector<TagPicture> pictures = {};
  Collection positions = {};

  bool Adds() const { return !comments.empty() || !pictures.empty() || !positions.empty(); }
  bool IsNone() const { return settings.empty() && !remove_v1 && !remove_v2 && !Adds(); }
};

// Works out how to set the fields one after the other, each in a tag that is made where it is missing, to add
// what is to be added, and to remove what isn't set again; everything else in the tags stays. Throws Failure with the
// reason: another file than an .mp3, a text that a field can't hold, and whatever keeps tags from being read or
// written.
TagWrite PlanTagChange(const FileSystem& files, const std::string& path, const TagChange& change);

// Does so. Throws Failure; the file isn't touched then.
inline void ChangeTags(const FileSystem& files, const std::string& path, const TagChange& change) {
  CommitTags(files, PlanTagChange(files, path, change));
}

}  // namespace qublet
