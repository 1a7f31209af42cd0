#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace qublet {

// What has to be read of a file for a column.
enum class ColumnGroup { kNothing, kMedia, kId3v1, kId3v2, kLink };

struct ReportColumn {
  std::string_view key;  // also the text of its header
  std::int16_t width;    // in a space-aligned text, characters
  ColumnGroup group;
};

inline constexpr std::size_t kReportColumns = 21;
// All but the link are texts, called cells.
inline constexpr std::size_t kReportCells = 20;

// The columns by number, from 1. Null for any other number.
const ReportColumn* FindReportColumn(int number);

// Cells by their place.
enum ReportCell : std::size_t {
  kNameCell = 0,
  kFolderCell = 1,
  kTimeCell = 2,
  kSizeCell = 3,
  kIdCell = 4,
  kLayerCell = 5,
  kBitrateCell = 6,
  kSamplerateCell = 7,
  kModeCell = 8,
  kCrcCell = 9,
  kEmphasisCell = 10,
  kCopyrightedCell = 11,
  kV1TitleCell = 12,
  kV1ArtistCell = 13,
  kV1AlbumCell = 14,
  kV1YearCell = 15,
  kV2TitleCell = 16,
  kV2ArtistCell = 17,
  kV2AlbumCell = 18,
  kV2YearCell = 19,
};
using ReportCells = std::array<std::string, kReportCells>;

}  // namespace qublet
