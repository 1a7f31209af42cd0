#pragma once

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

#include "playlist/columns.h"
#include "playlist/row_store.h"

namespace qublet {

// A column that can be searched: its entry in the menu of options, its name for `qublet`, and whether it is searched
// unless the user says otherwise.
struct SearchColumn {
  const char* entry;
  const char* caption;
  std::string_view word;
  Column column;
  bool starts_ticked;
};

inline constexpr std::array<SearchColumn, 9> kSearchColumns{{
    {"MFilename", "Filename", "filename", kFileName, true},
    {"Mfolder", "Folder", "folder", kPath, true},
    {"Mtime", "Time", "time", kTime, false},
    {"MSize", "Size", "size", kSize, false},
    {"Mid", "Id", "id", kId, false},
    {"MLayer", "Layer", "layer", kLayer, false},
    {"Mbitrate", "Bitrate", "bitrate", kBitrate, false},
    {"Msamplerate", "Sample Rate", "samplerate", kSamplerate, false},
    {"Mmode", "Mode", "mode", kMode, false},
}};

struct SearchOptions {
  SearchOptions();

  bool Mselonly = false;
  bool Mcasesensitive = false;
  std::array<bool, kSearchColumns.size()> columns{};  // ticked, by the place in kSearchColumns
};

// Numbers of rows, from 1.
using RowNumbers = std::vector<std::int16_t>;

// The rows, ascending, in which a ticked column holds `text`; only selected ones unless `allRows`.
RowNumbers SearchRows(const RowStore& rows, std::string_view text, const SearchOptions& options, bool allRows);

}  // namespace qublet
