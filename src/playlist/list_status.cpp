#include "playlist/list_status.h"

#include <charconv>

#include "playlist/paths/file_details.h"
#include "playlist/paths/formats.h"

namespace qublet {
namespace {

std::int64_t WholePart(const std::string& cell) {
  std::int64_t value = 0;
  std::from_chars(cell.data(), cell.data() + cell.size(), value);
  return value;
}

struct Sums {
  std::int64_t length = 0, size = 0;
  std::int64_t selected_length = 0, selected_size = 0;
  std::int64_t up_to_focus = 0;  // lengths of all rows up to the focused one
  int selected = 0;
};

Sums AddUp(const RowStore& rows) {
  Sums sums;
  for (int i = 1; i <= rows.Count(); ++i) {
    const Row& row = rows.At(i);
    const std::int64_t length = WholePart(row.cells[kHiddenLen]);
    const std::int64_t size = WholePart(row.cells[kHiddenSize]);
    sums.length += length;
    sums.size += size;
    if (i <= rows.FocusedRow()) sums.up_to_focus = sums.length;
    if (!row.selected) continue;
    ++sums.selected;
    sums.selected_length += length;
    sums.selected_size += size;
  }
  return sums;
}

std::array<std::string, 3> OneSelected(const RowStore& rows, const Sums& sums, const FileSystem& files,
                                       const std::string& separator) {
  const int index = rows.FocusedRow();
  const std::string track = "Track: " + std::to_string(index) + "/" + std::to_string(rows.Count());
  if (index == 0 || !FileExists(files, rows.At(index).FullPath())) return {track, "-", "-"};
  const std::string start = FormatTime(sums.up_to_focus - sums.selected_length);
  return {track, FormatTime(sums.selected_length) + "[" + start + "]", FormatSize(sums.selected_size, separator)};
}

}  // namespace

ListStatus WorkOutStatus(const RowStore& rows, const FileSystem& files, const std::string& separator) {
  const Sums sums = AddUp(rows);
  ListStatus status{{}, sums.selected, sums.length, sums.size};
  if (sums.selected == 0) {
    status.panels = {"Total: " + std::to_string(rows.Count()), FormatTime(sums.length),
                     FormatSize(sums.size, separator)};
  } else if (sums.selected == 1) {
    status.panels = OneSelected(rows, sums, files, separator);
  } else {
    status.panels = {std::to_string(sums.selected) + " Items", FormatTime(sums.selected_length),
                     FormatSize(sums.selected_size, separator)};
  }
  return status;
}

}  // namespace qublet
