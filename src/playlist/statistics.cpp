#include "playlist/statistics.h"

#include <cmath>

#include "playlist/own_playlists.h"
#include "playlist/paths/collections.h"
#include "playlist/paths/existing_files.h"
#include "playlist/paths/formats.h"
#include "playlist/paths/numbers.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text_files.h"
#include "playlist/row_paths.h"

namespace qublet {
namespace {

void GatherNames(Statistics& found, const Collection& paths, const std::string& current_playlist,
                 const Associations& associations, const std::string& program_folder) {
  ResumeNext([&] {
    found.RelativeFolder = FindCommonFolder(paths);
    found.OpensWith = GetFileName(associations.FindAssociatedProgram(LastPlaylist(program_folder)));
  });
  found.RelativeFolder = found.RelativeFolder.empty() ? "'Not found...'" : found.RelativeFolder + "\\";
  found.ListFileName = GetFileName(current_playlist);
  if (found.ListFileName.empty()) found.ListFileName = "'Unsaved Playlist'";
}

void AddSize(Statistics& found, const FileSystem& files, const ExistingFiles& existing, const std::string& path) {
  if (existing.Has(path)) {
    found.TotalSize += static_cast<double>(files.FileLength(path));
  } else {
    found.SizePrefix = ">";
    ++found.MissingCount;
  }
}

void AddTime(Statistics& found, const std::string& length) {
  if (length.empty() || length == "0") {
    found.TimePrefix = ">";
  } else {
    const std::int32_t whole = RoundHalfEven(std::trunc(LeadingNumber(length)));
    found.TotalTime = ToInteger32(std::int64_t{found.TotalTime} + whole);
  }
}

void WorkOutAverages(Statistics& found) {
  const std::int32_t present = found.FileCount - found.MissingCount;
  if (present == 0) return;
  found.AverageTime = RoundHalfEven(static_cast<double>(found.TotalTime) / present);
  found.AverageSize = found.TotalSize / present;
}

std::string Counted(std::int64_t count, const std::string& noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

}  // namespace

Statistics GatherStatistics(const Document& document, const FileSystem& files, const Associations& associations,
                            const std::string& program_folder) {
  Statistics found;
  const Collection paths = PathsOf(document.ListView1, WhichRows::kAll);
  Collection folders;
  CollectFolders(paths, folders);
  found.FileCount = static_cast<std::int16_t>(paths.size());
  found.FolderCount = static_cast<std::int16_t>(folders.size());
  GatherNames(found, paths, document.CurrentPlaylist, associations, program_folder);
  const ExistingFiles existing(files);
  for (int i = 1; i <= document.ListView1.Count(); ++i) {
    const Row& row = document.ListView1.At(i);
    ResumeNext([&] { AddSize(found, files, existing, row.RealPath()); });
    ResumeNext([&] { AddTime(found, row.cells[kHiddenLen]); });
  }
  ResumeNext([&] { found.ListFileSize = ToInteger32(static_cast<std::int64_t>(EncodeLines(paths).size())); });
  WorkOutAverages(found);
  return found;
}

std::vector<StatisticsLine> StatisticsLines(const Statistics& found, std::string_view separator) {
  const auto bytes = [&](double amount) { return GroupedNumber(NearestWhole(amount), separator) + " bytes"; };
  const auto time = [&](std::int32_t seconds) {
    return seconds == 0 ? kUnknownStatistic : found.TimePrefix + FormatTime(seconds) + " [hms]";
  };
  const std::string total = found.TotalSize == 0 ? kUnknownStatistic : found.SizePrefix + bytes(found.TotalSize);
  const std::string average =
      found.AverageSize == 0 ? kUnknownStatistic : found.SizePrefix + FormatSize(found.AverageSize, separator);
  const std::string missing = found.MissingCount == 0 ? "None" : Counted(found.MissingCount, "item");
  return {
      {"Playlist filename:", "lblplaylistfilename", found.ListFileName},
      {"Size on disk:", "lblPlaylistsize", bytes(found.ListFileSize)},
      {"Relative Folder:", "lblRelativeFolder", found.RelativeFolder},
      {"Opens with:", "lblOpenwith", found.OpensWith},
      {"File count:", "lblFilecount", Counted(found.FileCount, "item")},
      {"Folders pointed to:", "lblFoldercount", Counted(found.FolderCount, "folder")},
      {"Total size of items:", "lblTotalsize", total},
      {"Files missing:", "lblMissingItems", missing},
      {"Playing time:", "lblTotaltime", time(found.TotalTime)},
      {"Av. track length:", "lblAvtracklength", time(found.AverageTime)},
      {"Av. track size:", "lblAvtracksize", average},
  };
}

std::string StatisticsNote(const Statistics& found) {
  return found.SizePrefix.empty() && found.TimePrefix.empty() ? "" : "' > ' sign indicates 'More than'..";
}

}  // namespace qublet
