#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "generators/report/report_columns.h"
#include "platform/file_system.h"
#include "playlist/paths/existing_files.h"

namespace qublet {

// What is to be read of each file.
struct ReportNeeds {
  bool media = false;
  bool id3v1 = false;
  bool id3v2 = false;
  bool link = false;
};

// Where folders and links begin.
struct ReportBase {
  bool relative = false;
  std::string folder;  // without "\" at the end
};

// What a file adds to the sums. The length in seconds isn't here when nothing gives one: it is then that of the file
// before.
struct ReportFacts {
  bool found = false;
  std::optional<std::int32_t> size;  // bytes
  std::optional<std::int32_t> seconds;
  bool shows_time = false;
};

// What one file has to say.
struct ReportItem {
  ReportFacts facts;
  ReportCells cells;  // all but the time
  std::string link;
};

// `existing` is that of the whole report. Never throws: a step that fails leaves what it was to fill.
ReportItem ReadReportItem(const FileSystem& files, const std::string& path, const ReportNeeds& needs,
                          const ReportBase& base, const std::string& thousands_separator,
                          const ExistingFiles& existing);

}  // namespace qublet
