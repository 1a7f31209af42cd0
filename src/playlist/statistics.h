#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/associations.h"
#include "playlist/document.h"

namespace qublet {

// What a summary of the whole list tells, from the rows and from the disk as it is now.
struct Statistics {
  std::int16_t FileCount = 0;
  std::int16_t FolderCount = 0;   // changes of folder from row to row
  std::int32_t ListFileSize = 0;  // bytes of a playlist of these items
  double TotalSize = 0;           // bytes of the files that are there
  std::int32_t MissingCount = 0;
  std::int32_t TotalTime = 0;    // seconds
  std::string RelativeFolder;    // common folder with a "\" behind, or "'Not found...'"
  std::int32_t AverageTime = 0;  // of the files that are there, also of those whose length isn't known
  double AverageSize = 0;
  std::string SizePrefix;  // ">" when a file is missing: the sums are lower bounds
  std::string TimePrefix;  // ">" when a length isn't known
  std::string ListFileName;
  std::string OpensWith;
};

// Walks the rows once, with one look at the disk a row. A value that can't be worked out stays 0; nothing is thrown.
Statistics GatherStatistics(const Document& document, const FileSystem& files, const Associations& associations,
                            const std::string& program_folder);

inline constexpr const char* kUnknownStatistic = "????";

// One line of the summary as it is shown. Sums and averages of 0 are not known.
struct StatisticsLine {
  const char* caption;
  const char* control;  // name of the label that shows it
  std::string text;
};

std::vector<StatisticsLine> StatisticsLines(const Statistics& statistics, std::string_view thousands_separator);
// "' > ' sign indicates 'More than'.." if it stands before any value, else "".
std::string StatisticsNote(const Statistics& statistics);

}  // namespace qublet
