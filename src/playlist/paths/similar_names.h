#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "playlist/paths/filter_set.h"

namespace qublet {

// Watches for files whose names differ from wanted ones in nothing but letter case, or in whether accents are written
// with their letters or apart from them. A wanted name may have folders in front, which are compared alike.
class SimilarNames {
 public:
  // `names` outlives this.
  explicit SimilarNames(const Collection& names);

  // `folder` ends in "\", and `listing` is what it holds.
  void Look(const std::string& folder, const Listing& listing);
  // The path of the first such file for the name in this place, "" where there was none.
  const std::string& Of(std::size_t place) const { return found_[place]; }

 private:
  void Compare(const std::string& path, std::size_t place);

  const Collection& names_;
  std::unordered_map<std::string, std::vector<std::size_t>> by_last_name_;
  Collection found_;
};

}  // namespace qublet
