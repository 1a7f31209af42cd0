#include "playlist/paths/folder_walk.h"

#include <cstdint>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "playlist/paths/filter_set.h"
#include "playlist/paths/similar_names.h"

namespace qublet {
namespace {

std::string WithSlash(std::string folder) {
  if (!folder.ends_with('\\')) folder += '\\';
  return folder;
}

// What stands in a folder for the filters of a walk.
struct FolderContent {
  std::vector<std::string> subfolders;  // names
  FilterSet::Matches matches;
};

struct IdentityHash {
  std::size_t operator()(const FolderIdentity& identity) const {
    return std::hash<std::uint64_t>()(identity.device * 0x9E3779B97F4A7C15U ^ identity.number);
  }
};

// The folders that a search has read.
using ReadFolders = std::unordered_map<FolderIdentity, std::shared_ptr<const FolderContent>, IdentityHash>;

class Walk {
 public:
  // Takes what one folder gives; the folder ends in "\".
  using Take = std::function<void(const std::string& folder, FilterSet::Matches matches)>;

  Walk(const FileSystem& files, Feedback& feedback, const FilterSet& filters, Take take)
      : files_(files), feedback_(feedback), filters_(filters), take_(std::move(take)) {}

  // Folders that are among these aren't read again; the others come to them. `similar` sees each once.
  void Remember(ReadFolders& read, SimilarNames& similar) {
    read_ = &read;
    similar_ = &similar;
  }

  void Run(const std::string& folder, bool recurse, bool quiet) {
    Enter(folder, quiet);
    while (!levels_.empty() && !feedback_.Stopped()) {
      Level& level = levels_.back();
      if (recurse && level.next < level.content->subfolders.size()) {
        const std::string subfolder = level.folder + level.content->subfolders[level.next++];
        if (levels_.size() > WalkBounds::kMostDepth || subfolder.size() > WalkBounds::kMostPathBytes)
          ++gaps_.too_far;
        else
          Enter(subfolder, false);
      } else {
        if (!level.quiet) feedback_.ShowActivity("");
        levels_.pop_back();
      }
    }
    if (!levels_.empty()) feedback_.ShowActivity("");
  }

  const WalkGaps& Gaps() const { return gaps_; }

 private:
  // A folder on the way from the first one to the present one.
  struct Level {
    std::string folder;  // ends in "\"
    bool quiet = false;
    std::optional<FolderIdentity> identity;
    std::shared_ptr<const FolderContent> content = std::make_shared<FolderContent>();
    std::size_t next = 0;
  };

  void Enter(const std::string& folder, bool quiet) {
    if (!quiet) feedback_.ShowActivity(folder);
    Level level;
    level.folder = WithSlash(folder);
    level.quiet = quiet;
    FilterSet::Matches matches;
    const Outcome listed = Attempt([&] {
      const std::unique_ptr<OpenedFolder> open = files_.Open(level.folder);
      if (!open) throw Failure("it can't be listed", level.folder);
      if (!MayEnter(open->Identity())) return;
      level.identity = open->Identity();
      level.content = ContentOf(level.folder, *open);
      matches = level.content->matches;
      filters_.AddUnlisted(files_, level.folder, matches);
    });
    listed.MindMemory();
    if (!listed) ++gaps_.unlisted;
    gaps_.too_far += std::erase_if(matches, [&](const FilterSet::Match& match) {
      return level.folder.size() + match.name.size() > WalkBounds::kMostPathBytes;
    });
    take_(level.folder, std::move(matches));
    levels_.push_back(std::move(level));
  }

  bool MayEnter(const FolderIdentity& identity) {
    constexpr int kMostWays = 8;  // links among neighbours would else multiply the walk without end
    for (const Level& parent : levels_)
      if (parent.identity == identity) return false;
    return ++ways_[identity] <= kMostWays;
  }

  std::shared_ptr<const FolderContent> ContentOf(const std::string& folder, OpenedFolder& open) {
    if (read_ == nullptr) return Read(folder, open);
    const auto [place, fresh] = read_->try_emplace(open.Identity(), std::make_shared<FolderContent>());
    if (fresh) place->second = Read(folder, open);
    return place->second;
  }

  std::shared_ptr<const FolderContent> Read(const std::string& folder, OpenedFolder& open) {
    auto content = std::make_shared<FolderContent>();
    const Listing listing = filters_.ListingOf(open.Read());
    for (const ListedName& entry : listing)
      if (entry.is_folder && !entry.hidden) content->subfolders.push_back(entry.name);
    content->matches = filters_.MatchesIn(files_, folder, listing);
    if (similar_ != nullptr) similar_->Look(folder, listing);
    return content;
  }

  const FileSystem& files_;
  Feedback& feedback_;
  const FilterSet& filters_;
  const Take take_;
  ReadFolders* read_ = nullptr;
  SimilarNames* similar_ = nullptr;
  std::vector<Level> levels_;
  std::unordered_map<FolderIdentity, int, IdentityHash> ways_;  // times each folder has been entered
  WalkGaps gaps_;
};

void AppendPaths(const std::string& folder, const FilterSet::Matches& matches, Collection& results) {
  for (const FilterSet::Match& match : matches) results.push_back(folder + match.name);
}

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
    const FilterSet set(filters);
    FilterSet::Matches matches = set.MatchesIn(files, place, set.ListingOf(files.ReadFolder(place)));
    set.AddUnlisted(files, place, matches);
    AppendPaths(place, matches, results);
  });
}

WalkGaps WalkFolder(const FileSystem& files, Feedback& feedback, const std::string& folder, const Collection& filters,
                    Collection& results, bool Recurse, bool Quiet, const std::function<void()>& folder_done) {
  WalkGaps gaps;
  const Outcome walked = Attempt([&] {
    const FilterSet set(filters);
    Walk walk(files, feedback, set, [&](const std::string& place, const FilterSet::Matches& matches) {
      AppendPaths(place, matches, results);
      if (folder_done) folder_done();
    });
    walk.Run(folder, Recurse, Quiet);
    gaps = walk.Gaps();
  });
  walked.MindMemory();
  return gaps;
}

struct FolderSearch::State {
  State(const FileSystem& all_files, Feedback& shown_by, const Collection& wanted)
      : files(all_files), feedback(shown_by), names(wanted) {}

  const FileSystem& files;
  Feedback& feedback;
  const Collection names;
  const FilterSet filters{names, FilterSet::Stars::kAreLetters};
  SimilarNames similar{names};
  ReadFolders read;
};

FolderSearch::FolderSearch(const FileSystem& files, Feedback& feedback, const Collection& names)
    : state_(std::make_unique<State>(files, feedback, names)) {}

FolderSearch::~FolderSearch() = default;

WalkGaps FolderSearch::Walk(const std::string& folder, std::vector<FoundName>& results) {
  WalkGaps gaps;
  if (state_->feedback.Stopped()) return gaps;
  ResumeNext([&] {
    qublet::Walk walk(state_->files, state_->feedback, state_->filters,
                      [&](const std::string& place, const FilterSet::Matches& matches) {
                        for (const FilterSet::Match& match : matches)
                          results.push_back({match.filter, place + match.name});
                      });
    walk.Remember(state_->read, state_->similar);
    walk.Run(folder, true, false);
    gaps = walk.Gaps();
  });
  return gaps;
}

const std::string& FolderSearch::SimilarTo(std::size_t name) const {
  return state_->similar.Of(name);
}

}  // namespace qublet
