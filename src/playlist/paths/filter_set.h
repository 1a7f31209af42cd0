#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/file_system.h"
#include "playlist/paths/collections.h"

namespace qublet {

struct ListedName {
  std::string name;
  std::string folded;
  bool is_folder = false;
  bool hidden = false;
};

// What a folder holds.
using Listing = std::vector<ListedName>;

// Filters as WalkFolder takes them, made ready to be held against many folders. The cost for a folder grows with its
// names and the patterns only: plain names, of which a search for missing files has thousands, are looked up.
class FilterSet {
 public:
  // "*" and "?" make a pattern, or stand for themselves.
  enum class Stars { kMakePatterns, kAreLetters };

  // `filters` outlives this.
  explicit FilterSet(const Collection& filters, Stars stars = Stars::kMakePatterns);

  struct Match {
    std::size_t filter;
    std::string name;  // behind the folder
  };
  using Matches = std::vector<Match>;

  // Reads a folder: subfolders in ascending order ignoring case, and files too where a pattern is to fit them. Throws
  // Failure.
  Listing ReadListing(const FileSystem& files, const std::string& folder) const;
  // A match for each file that a filter fits, filter by filter. `folder` ends in "\", and `listing` is what it holds.
  // What the listing can't tell (see AddUnlisted) is left out.
  Matches MatchesIn(const FileSystem& files, const std::string& folder, const Listing& listing) const;
  // Adds what filters that begin with a "." or ".." find from there, in its place.
  void AddUnlisted(const FileSystem& files, const std::string& folder, Matches& matches) const;

 private:
  struct Pattern {
    std::size_t filter;
    std::string folded;
    bool known;
  };

  void AppendFiles(const FileSystem& files, const std::string& folder, std::size_t filter, Matches& matches) const;
  void AppendPatternMatches(const ListedName& entry, Matches& matches) const;

  const Collection& filters_;
  const Stars stars_;
  std::vector<Pattern> patterns_;
  std::unordered_map<std::string, std::vector<std::size_t>> by_first_name_;
  std::vector<std::size_t> unlisted_;
};

}  // namespace qublet
