#include "playlist/row_filling.h"

#include <utility>

#include "platform/server.h"
#include "playlist/paths/formats.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"

namespace qublet {

void ReadFacts(const FileSystem& files, const std::string& path, MediaInfo& info) {
  info = {};
  GetMediaInfo(files, path, info);
  if (!info.Valid) NameFacts(files, path, info);
}

void NameFacts(const FileSystem& files, const std::string& path, MediaInfo& info) {
  NameFile(path, info);
  if (!Contains(path, ":")) Attempt([&] { CompleteFolder(files, info); }).MindMemory();
}

Outcome WriteRow(MediaInfo info, int original_order, const std::string& thousands_separator, Row& row) {
  row.cells[kFileName] = std::move(info.FileName);
  const Outcome written = Attempt([&] {
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
  written.MindMemory();
  return written;
}

void NoteRealFile(const std::string& file, Row& row) {
  std::string path = row.FullPath();
  if (path != file) row.real = std::make_shared<const Row::RealFile>(Row::RealFile{std::move(path), file});
}

void NameExactly(const std::string& path, MediaInfo& info) {
  info.FileName = GetFileName(path);
  info.Path = FolderAsItStands(path);
}

RowReader::RowReader(const FileSystem& files, std::string thousands_separator)
    : files_(files), thousands_separator_(std::move(thousands_separator)), names_(files.FindRealNames()) {}

Outcome RowReader::Read(const std::string& path, int original_order, Row& row) const {
  return Write(FactsOf(path), original_order, row);
}

bool RowReader::ReadAgain(const std::string& path, int original_order, Row& row) const {
  Facts facts;
  if (!ServerIn(path).empty()) {
    NameExactly(path, facts.info);
  } else {
    facts = FactsOf(path);
  }
  const bool found = facts.info.Found;
  // A folder may bear the file's name.
  if (found && facts.path != path && !files_.Exists(facts.path)) NameExactly(path, facts.info);
  Write(std::move(facts), original_order, row);
  return found;
}

RowReader::Facts RowReader::FactsOf(const std::string& path) const {
  Facts facts;
  ReadFacts(files_, path, facts.info);
  facts.path = facts.info.Path + facts.info.FileName;
  facts.real = facts.info.Found ? std::nullopt : names_->Of(facts.path);
  if (facts.real) {
    ReadFacts(files_, *facts.real, facts.info);
    NameExactly(facts.path, facts.info);
  }
  return facts;
}

Outcome RowReader::Write(Facts facts, int original_order, Row& row) const {
  const Outcome written = WriteRow(std::move(facts.info), original_order, thousands_separator_, row);
  if (facts.real) NoteRealFile(*facts.real, row);
  return written;
}

}  // namespace qublet
