#include "playlist/row_filling.h"

#include <utility>

#include "playlist/paths/formats.h"
#include "playlist/paths/text.h"

namespace qublet {

void ReadFacts(const FileSystem& files, const std::string& path, MediaInfo& info) {
  info = {};
  GetMediaInfo(files, path, info);
  if (!info.Valid && !Contains(path, ":")) ResumeNext([&] { CompleteFolder(files, info); });
}

Outcome ReadRow(const FileSystem& files, const std::string& path, int original_order,
                const std::string& thousands_separator, Row& row) {
  MediaInfo info;
  ReadFacts(files, path, info);
  return WriteRow(std::move(info), original_order, thousands_separator, row);
}

Outcome WriteRow(MediaInfo info, int original_order, const std::string& thousands_separator, Row& row) {
  row.cells[kFileName] = std::move(info.FileName);
  return Attempt([&] {
    if (Contains(info.Bitrate, "VBR")) info.Length = VbrLength(info.Size, info.Bitrate);
    row.cells[kTime] = FormatTime(info.Length);
    row.cells[kSize] = FormatSize(info.Size, thousands_separator);
    row.cells[kPath] = std::move(info.Path);
    if (info.Size == 0) {
      row.icon = RowIcon::kMissing;
      row.ghosted = true;
      return;
    }
    row.cells[kId] = info.ID;
    row.cells[kLayer] = info.Layer;
    row.cells[kBitrate] = info.Bitrate;
    row.cells[kSamplerate] = info.Samplerate;
    row.cells[kMode] = info.Mode;
    row.cells[kHiddenLen] = std::to_string(info.Length);
    row.cells[kHiddenSize] = std::to_string(info.Size);
    row.cells[kOriginalOrder] = std::to_string(original_order);
  });
}

}  // namespace qublet
