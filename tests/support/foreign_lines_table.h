#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "playlist/paths/text.h"
#include "support/foreign_paths_table.h"
#include "support/foreign_texts_table.h"
#include "support/temporary_drives.h"

namespace qublet {

inline std::vector<ForeignLine> ForeignLinesTable() {
  std::vector<ForeignLine> lines(std::begin(kForeignPaths), std::end(kForeignPaths));
  lines.insert(lines.end(), std::begin(kForeignTexts), std::end(kForeignTexts));
  return lines;
}

// Runs `check` on every line in a list of each of its types.
template <typename Check>
void ForEachForeignLine(const Check& check) {
  for (const ForeignLine& line : ForeignLinesTable()) {
    if (line.type != ListType::kM3u8) check(line, "list.m3u");
    if (line.type != ListType::kM3u) check(line, "list.m3u8");
  }
}

// A text of the table for drives in that folder.
inline std::string FilledIn(const char* text, const FileSystem& files, const std::filesystem::path& root) {
  return ReplaceAll(ReplaceAll(text, "@", root.string()), "$", files.FromNative(root.string()));
}

inline void PutOnDisk(const ForeignLine& line, const std::filesystem::path& root) {
  std::istringstream names(line.disk);
  for (std::string name; std::getline(names, name, ';');)
    TemporaryDrives::WriteAt(root / TemporaryDrives::PathOf(name), "abc");
}

}  // namespace qublet
