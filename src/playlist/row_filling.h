#pragma once

#include <memory>
#include <optional>
#include <string>

#include "media/media_info.h"
#include "platform/file_system.h"
#include "playlist/row_store.h"

namespace qublet {

// What is known of the file at `path`. The folder of a relative path is complete even when the file is missing or
// damaged, so that the item can be saved as what it was. Safe to call from several threads.
void ReadFacts(const FileSystem& files, const std::string& path, MediaInfo& info);
// Name and folder alone, as ReadFacts gives them.
void NameFacts(const FileSystem& files, const std::string& path, MediaInfo& info);
// The cells of a new row. `original_order` is the number for "Original Order". Given up when a step failed (the
// length of a VBR file from 256 MiB on, or with a rate of 0); the row then holds what was written before it, and no
// more.
Outcome WriteRow(MediaInfo info, int original_order, const std::string& thousands_separator, Row& row);

// Has the row know the file that it stands for.
void NoteRealFile(const std::string& file, Row& row);
// Gives `info` the name and folder of a full path, just as they stand there.
void NameExactly(const std::string& path, MediaInfo& info);

// Makes the rows of many paths. A file that isn't there exactly is the one that the path means all the same (see
// RealNames); the row keeps its text. Safe to use from several threads.
class RowReader {
 public:
  RowReader(const FileSystem& files, std::string thousands_separator);
  Outcome Read(const std::string& path, int original_order, Row& row) const;
  // The same for the full path of a row. One on another computer isn't looked at. False when no file is there.
  bool ReadAgain(const std::string& path, int original_order, Row& row) const;

 private:
  struct Facts {
    MediaInfo info;
    std::string path;                 // full, of the row
    std::optional<std::string> real;  // where the disk has the file under another name
  };
  Facts FactsOf(const std::string& path) const;
  Outcome Write(Facts facts, int original_order, Row& row) const;

  const FileSystem& files_;
  const std::string thousands_separator_;
  const std::unique_ptr<RealNames> names_;
};

}  // namespace qublet
