#include "playlist/paths/filter_set.h"

#include <algorithm>
#include <optional>
#include <tuple>
#include <utility>

#include "platform/code_page.h"
#include "playlist/paths/folder_walk.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"

namespace qublet {
namespace {

bool HasWildcard(std::string_view name) {
  return name.find_first_of("*?") != name.npos;
}

bool FitsPattern(std::string_view folded_name, bool is_folder, bool hidden, std::string_view folded_pattern) {
  return !is_folder && !hidden && MatchesFoldedWildcard(folded_name, folded_pattern);
}

bool IsKnown(const std::string& filter) {
  const Collection& known = FileFilters();
  return filter == "*.*" || std::find(known.begin(), known.end(), filter) != known.end();
}

// How many files fit the last piece of a path, a pattern.
std::size_t CountFitting(const FileSystem& files, const std::string& path) {
  std::size_t count = 0;
  ResumeNext([&] {
    const std::string pattern = FoldCase(GetFileName(path));
    for (const FolderEntry& entry : files.ReadFolder(FolderAsItStands(path)))
      if (FitsPattern(FoldCase(entry.name), entry.is_folder, entry.hidden, pattern)) ++count;
  });
  return count;
}

bool IsFile(const FileSystem& files, const std::string& path) {
  const std::optional<unsigned> attributes = files.Attributes(path);
  return attributes && (*attributes & (kFolder | kVolumeLabel)) == 0;
}

// A filter that a name of the listing may be the beginning of.
struct Candidate {
  std::size_t filter;
  bool unsure;  // whether the file system has to say what it finds there
  auto operator<=>(const Candidate&) const = default;
};

void SortByFilter(FilterSet::Matches& matches) {
  std::stable_sort(matches.begin(), matches.end(),
                   [](const FilterSet::Match& a, const FilterSet::Match& b) { return a.filter < b.filter; });
}

}  // namespace

FilterSet::FilterSet(const Collection& filters, Stars stars)
    : filters_(filters), stars_(stars), resembled_(2 * filters.size()) {
  for (std::size_t i = 0; i < filters.size(); ++i) {
    const std::size_t end = filters[i].find('\\');
    const std::string first = FoldCase(std::string_view(filters[i]).substr(0, end));
    if (stars == Stars::kAreLetters) {
      resembled_.Insert(Decomposed(first));
      resembled_.Insert(SimilarityKey(GetFileName(filters[i])));
    }
    if (stars == Stars::kMakePatterns && end == std::string::npos && HasWildcard(first))
      patterns_.push_back({i, first, IsKnown(filters[i])});
    else if (first.empty() || first == "." || first == "..")
      unlisted_.push_back(i);
    else
      by_first_name_[first].push_back(i);
  }
}

Listing FilterSet::ListingOf(std::vector<FolderEntry> entries) const {
  Listing listing;
  if (stars_ == Stars::kMakePatterns) listing.reserve(entries.size());
  for (FolderEntry& entry : entries) {
    std::string folded = FoldCase(entry.name);
    if (LeavesOut(entry, folded)) continue;
    listing.push_back({std::move(entry.name), std::move(folded), entry.is_folder, entry.hidden});
  }
  const auto ordered = patterns_.empty() ? std::partition(listing.begin(), listing.end(),
                                                          [](const ListedName& entry) { return entry.is_folder; })
                                         : listing.end();
  std::sort(listing.begin(), ordered, [](const ListedName& a, const ListedName& b) {
    return std::tie(a.folded, a.name) < std::tie(b.folded, b.name);
  });
  return listing;
}

bool FilterSet::LeavesOut(const FolderEntry& entry, const std::string& folded) const {
  return stars_ == Stars::kAreLetters && !entry.is_folder && !resembled_.Contains(folded) &&
         (IsAscii(folded) || !resembled_.Contains(Decomposed(folded)));
}

FilterSet::Matches FilterSet::MatchesIn(const FileSystem& files, const std::string& folder,
                                        const Listing& listing) const {
  Matches matches;
  std::vector<Candidate> candidates;
  for (const ListedName& entry : listing) {
    AppendPatternMatches(entry, matches);
    const auto found = by_first_name_.find(entry.folded);
    if (found == by_first_name_.end()) continue;
    for (const std::size_t filter : found->second)
      candidates.push_back({filter, entry.is_folder || entry.name != filters_[filter]});
  }
  std::sort(candidates.begin(), candidates.end());
  // Two names that differ only in case make the same filter a candidate twice.
  const auto same = [](const Candidate& a, const Candidate& b) { return a.filter == b.filter; };
  candidates.erase(std::unique(candidates.begin(), candidates.end(), same), candidates.end());
  for (const Candidate& candidate : candidates) {
    if (candidate.unsure)
      AppendFiles(files, folder, candidate.filter, matches);
    else
      matches.push_back({candidate.filter, filters_[candidate.filter]});
  }
  SortByFilter(matches);
  return matches;
}

void FilterSet::AddUnlisted(const FileSystem& files, const std::string& folder, Matches& matches) const {
  if (unlisted_.empty()) return;
  for (const std::size_t filter : unlisted_) AppendFiles(files, folder, filter, matches);
  SortByFilter(matches);
}

// What the file system finds there: more than one file only where the last piece is a pattern.
void FilterSet::AppendFiles(const FileSystem& files, const std::string& folder, std::size_t filter,
                            Matches& matches) const {
  const std::string path = folder + filters_[filter];
  const bool pattern = stars_ == Stars::kMakePatterns && HasWildcard(GetFileName(path));
  const std::size_t count = pattern ? CountFitting(files, path) : IsFile(files, path) ? 1 : 0;
  matches.insert(matches.end(), count, Match{filter, filters_[filter]});
}

void FilterSet::AppendPatternMatches(const ListedName& entry, Matches& matches) const {
  for (const Pattern& pattern : patterns_) {
    if (FitsPattern(entry.folded, entry.is_folder, entry.hidden, pattern.folded))
      matches.push_back({pattern.filter, pattern.known ? entry.name : filters_[pattern.filter]});
  }
}

}  // namespace qublet
