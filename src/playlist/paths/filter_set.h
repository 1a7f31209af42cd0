#pragma once

#include <bit>
#include <cstddef>
#include <functional>
#include <string>
#include <unordered_map>
#include <unordered_set>
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

// A set of names that is mostly asked for others. These it recognises by a table of bits, small enough to be at hand
// always.
class NameSet {
 public:
  explicit NameSet(std::size_t expected) : bits_(std::bit_ceil(kBitsPerName * expected + 1)) {}

  void Insert(const std::string& name) {
    names_.insert(name);
    bits_[BitOf(name)] = true;
  }
  bool Contains(const std::string& name) const { return bits_[BitOf(name)] && names_.contains(name); }

 private:
  static constexpr std::size_t kBitsPerName = 16;
  std::size_t BitOf(const std::string& name) const { return std::hash<std::string>()(name) & (bits_.size() - 1); }

  std::vector<bool> bits_;  // a power of two
  std::unordered_set<std::string> names_;
};

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

  // What a folder holds: subfolders in ascending order ignoring case, and files too where patterns are to fit them.
  // Where there are names only, files that none of them resembles are left out: most of what a search of a disk
  // meets.
  Listing ListingOf(std::vector<FolderEntry> entries) const;
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

  bool LeavesOut(const FolderEntry& entry, const std::string& folded) const;
  void AppendFiles(const FileSystem& files, const std::string& folder, std::size_t filter, Matches& matches) const;
  void AppendPatternMatches(const ListedName& entry, Matches& matches) const;

  const Collection& filters_;
  const Stars stars_;
  std::vector<Pattern> patterns_;
  std::unordered_map<std::string, std::vector<std::size_t>> by_first_name_;
  NameSet resembled_;  // keys of the first and last names where "*" and "?" are letters
  std::vector<std::size_t> unlisted_;
};

}  // namespace qublet
