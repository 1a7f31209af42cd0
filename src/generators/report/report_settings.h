#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "generators/report/report_columns.h"
#include "platform/file_system.h"

namespace qublet {

// What a report shows and how, and how that is kept as a file (.rpt): one record of fixed length, see record_file.h,
// with texts of fixed width. Here they stand without the blanks that fill them up.

inline constexpr std::size_t kTitleWidth = 200;         // characters
inline constexpr std::size_t kDescriptionWidth = 1000;  // with line breaks as CR LF
inline constexpr std::size_t kTableWidthWidth = 4;
inline constexpr std::size_t kTableNumberWidth = 3;
inline constexpr std::size_t kDelimiterWidth = 3;
inline constexpr std::size_t kFontNameWidth = 20;

inline constexpr std::int16_t kHtmlReport = 0;
inline constexpr std::int16_t kTextReport = 1;

// The fields in the order of the file.
struct ReportSettings {
  std::int16_t RepType = 0;
  std::string Title;
  std::string Description;
  bool Summary = false;
  bool ColumnHeaders = false;
  bool SaveRel =
      false;  // folders and links are relative to the files' common folder, where the report is meant to be
  std::string TableWidth;  // a number, or "Auto"
  std::string TableSpacing;
  std::string TablePadding;
  std::string TableBorder;
  std::array<std::int16_t, kReportColumns> ColumnOrder{};  // numbers of columns
  std::array<bool, kReportColumns> ColumnChecked{};        // those at the same place of the order are wanted
  std::string Delimiter;
  bool SpaceAligned = false;
  bool TabDelimited = false;
  bool CommaDelimited = false;
  bool CustomDelimited = false;
  std::string FontName;
  std::int16_t FontSize = 0;  // the place in the list of sizes, from 0; no size in points
  bool ColorTable = false;
  bool operator==(const ReportSettings&) const = default;
};

inline constexpr std::string_view kTitlePlaceholder = "Report Title";
inline constexpr std::string_view kDescriptionPlaceholder = "Report Description";

void LoadDefaults(ReportSettings& settings);

inline constexpr std::size_t kReportRecordSize = 1340;

std::string ReportRecord(const ReportSettings& settings);
// What the record lacks counts as zero. Column numbers are taken as they stand.
ReportSettings ReportSettingsOf(std::string_view record);

// False when the file isn't there or can't be read; `settings` is then as it was.
Outcome LoadReportSettings(const FileSystem& files, const std::string& path, ReportSettings& settings);
// Replaces the file, or makes it; what a longer one holds behind the record stays. On a failure it is as it was.
Outcome SaveReportSettings(const FileSystem& files, const std::string& path, const ReportSettings& settings);

}  // namespace qublet
