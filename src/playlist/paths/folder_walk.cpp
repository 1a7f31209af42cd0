#include "playlist/paths/folder_walk.h"

#include <algorithm>
#include <map>
#include <optional>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

struct ListedName {
  std::string name;
  std::string folded;
  bool is_folder = false;
  bool hidden = false;
};

using Listing = std::vector<ListedName>;

Listing ListNames(const FileSystem& files, const std::string& folder) {
  Listing listing;
  for (FolderEntry& entry : files.ReadFolder(folder)) {
    std::string folded = FoldCase(entry.name);
    listing.push_back({std::move(entry.name), std::move(folded), entry.is_folder, entry.hidden});
  }
  std::sort(listing.begin(), listing.end(), [](const ListedName& a, const ListedName& b) {
    return std::tie(a.folded, a.name) < std::tie(b.folded, b.name);
  });
  return listing;
}

std::string WithSlash(std::string folder) {
  if (!folder.ends_with('\\')) folder += '\\';
  return folder;
}

bool HasWildcard(std::string_view name) {
  return name.find_first_of("*?") != name.npos;
}

bool FitsPattern(const ListedName& entry, std::string_view folded_pattern) {
  return !entry.is_folder && !entry.hidden && MatchesFoldedWildcard(entry.folded, folded_pattern);
}

// How many files a path stands for: more than one only when its last piece is a pattern.
std::size_t CountFilesAt(const FileSystem& files, const std::string& path) {
  const std::string name = GetFileName(path);
  if (!HasWildcard(name)) {
    const std::optional<unsigned> attributes = files.Attributes(path);
    return attributes && (*attributes & (kFolder | kVolumeLabel)) == 0 ? 1 : 0;
  }
  std::size_t count = 0;
  ResumeNext([&] {
    const Listing listing = ListNames(files, path.substr(0, path.size() - name.size()));
    count = static_cast<std::size_t>(std::count_if(
        listing.begin(), listing.end(), [&](const ListedName& entry) { return FitsPattern(entry, FoldCase(name)); }));
  });
  return count;
}

// Filters made ready to be held against many folders. The cost for a folder grows with its names and the patterns
// only: plain names, of which a search for missing files has thousands, are looked up.
class FilterSet {
 public:
  explicit FilterSet(const Collection& filters) : filters_(filters) {
    for (std::size_t i = 0; i < filters.size(); ++i) {
      const std::size_t end = filters[i].find('\\');
      const std::string first = FoldCase(std::string_view(filters[i]).substr(0, end));
      if (end == std::string::npos && HasWildcard(first))
        patterns_.push_back({i, first, IsKnown(filters[i])});
      else if (first.empty() || first == "." || first == "..")
        always_probed_.push_back(i);
      else
        by_first_name_[first].push_back(i);
    }
  }

  // `folder` ends in "\", and `listing` is what it holds.
  void AppendMatches(const FileSystem& files, const std::string& folder, const Listing& listing,
                     Collection& results) const {
    std::vector<Match> matches;
    std::vector<std::size_t> candidates = always_probed_;
    for (const ListedName& entry : listing) {
      AppendPatternMatches(entry, matches);
      const auto found = by_first_name_.find(entry.folded);
      if (found != by_first_name_.end())
        candidates.insert(candidates.end(), found->second.begin(), found->second.end());
    }
    // Two names that differ only in case make the same filter a candidate twice.
    std::sort(candidates.begin(), candidates.end());
    candidates.erase(std::unique(candidates.begin(), candidates.end()), candidates.end());
    for (const std::size_t filter : candidates)
      matches.insert(matches.end(), CountFilesAt(files, folder + filters_[filter]), Match{filter, nullptr});

    std::stable_sort(matches.begin(), matches.end(),
                     [](const Match& a, const Match& b) { return a.filter < b.filter; });
    for (const Match& match : matches)
      results.push_back(folder + (match.entry != nullptr ? match.entry->name : filters_[match.filter]));
  }

 private:
  struct Pattern {
    std::size_t filter;
    std::string folded;
    bool known;
  };
  struct Match {
    std::size_t filter;
    const ListedName* entry;  // whose name is given; the filter's own text when there is none
  };

  static bool IsKnown(const std::string& filter) {
    const Collection& known = FileFilters();
    return filter == "*.*" || std::find(known.begin(), known.end(), filter) != known.end();
  }

  void AppendPatternMatches(const ListedName& entry, std::vector<Match>& matches) const {
    for (const Pattern& pattern : patterns_)
      if (FitsPattern(entry, pattern.folded)) matches.push_back({pattern.filter, pattern.known ? &entry : nullptr});
  }

  const Collection& filters_;
  std::vector<Pattern> patterns_;
  std::unordered_map<std::string, std::vector<std::size_t>> by_first_name_;
  std::vector<std::size_t> always_probed_;  // what they begin with stands in no listing
};

class Walk {
 public:
  Walk(const FileSystem& files, Feedback& feedback, const Collection& filters, Collection& results,
       const std::function<void()>& folder_done)
      : files_(files), feedback_(feedback), filters_(filters), results_(results), folder_done_(folder_done) {}

  void Run(const std::string& folder, bool recurse, bool quiet) {
    Enter(folder, quiet);
    while (!levels_.empty() && !feedback_.Stopped()) {
      Level& level = levels_.back();
      if (recurse && level.next < level.subfolders.size()) {
        Enter(level.folder + level.subfolders[level.next++], false);
      } else {
        if (!level.quiet) feedback_.ShowActivity("");
        levels_.pop_back();
      }
    }
    if (!levels_.empty()) feedback_.ShowActivity("");
  }

 private:
  // A folder on the way from the first one to the present one.
  struct Level {
    std::string folder;  // ends in "\"
    bool quiet = false;
    std::optional<FolderIdentity> identity;
    std::vector<std::string> subfolders;  // names
    std::size_t next = 0;
  };

  void Enter(const std::string& folder, bool quiet) {
    if (!quiet) feedback_.ShowActivity(folder);
    Level level{WithSlash(folder), quiet, files_.IdentityOf(WithSlash(folder)), {}, 0};
    if (MayEnter(level)) ResumeNext([&] { Collect(level); });
    if (folder_done_) folder_done_();
    levels_.push_back(std::move(level));
  }

  bool MayEnter(const Level& level) {
    constexpr int kMostWays = 8;  // links among neighbours would else multiply the walk without end
    if (!level.identity) return false;
    for (const Level& parent : levels_)
      if (parent.identity == level.identity) return false;
    return ++ways_[{level.identity->device, level.identity->number}] <= kMostWays;
  }

  void Collect(Level& level) {
    const Listing listing = ListNames(files_, level.folder);
    for (const ListedName& entry : listing)
      if (entry.is_folder && !entry.hidden) level.subfolders.push_back(entry.name);
    filters_.AppendMatches(files_, level.folder, listing, results_);
  }

  const FileSystem& files_;
  Feedback& feedback_;
  const FilterSet filters_;
  Collection& results_;
  const std::function<void()>& folder_done_;
  std::vector<Level> levels_;
  std::map<std::pair<std::uint64_t, std::uint64_t>, int> ways_;  // times each folder has been entered
};

}  // namespace

const Collection& FileFilters() {
  static const Collection filters = {"*.mp3", "*.wav", "*.ogg", "*.wma"};
  return filters;
}

const Collection& PlaylistFilters() {
  static const Collection filters = {"*.m3u", "*.m3u8", "*.bm"};
  return filters;
}

void ListFolderFiles(const FileSystem& files, const std::string& folder, const std::string& filter,
                     Collection& results) {
  ResumeNext([&] {
    const std::string place = WithSlash(folder);
    const Collection filters = {filter};
    FilterSet(filters).AppendMatches(files, place, ListNames(files, place), results);
  });
}

void WalkFolder(const FileSystem& files, Feedback& feedback, const std::string& folder, const Collection& filters,
                Collection& results, bool Recurse, bool Quiet, const std::function<void()>& folder_done) {
  ResumeNext([&] { Walk(files, feedback, filters, results, folder_done).Run(folder, Recurse, Quiet); });
}

}  // namespace qublet
