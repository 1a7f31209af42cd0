#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/file_system.h"
#include "platform/language_code_page.h"

namespace qublet {

// The line of a playlist that named a file which wasn't there, so that it can be written back as it came.
struct KeptLine {
  // The playlist that it stood in.
  struct Source {
    std::string folder;   // that it was read against: drive form, no trailing "\"
    bool native = false;  // ".m3u8"
  };

  std::string bytes;  // without its end
  std::shared_ptr<const Source> source;
  // The full path of the file that it names, where the row's text isn't one: a ":" beyond the drive keeps a line from
  // being completed. "" elsewhere.
  std::string whole;
};

// Gives the line that the item in that place of a batch came from, counted from 0; nothing when it came from none.
// Called from several threads at once.
using KeptLines = std::function<std::shared_ptr<const KeptLine>(std::size_t place)>;

// Whether the line names the same file in a playlist in that folder: it is absolute, or it was read against the
// folder.
bool StandsIn(const KeptLine& line, const std::string& folder);

// Whether a path in drive form has letters that stand in for others and that the line hadn't.
bool HasOtherLetters(const std::string& path, const KeptLine& line);

// The line as text of a playlist of the other type: a relative one with that type's separators, an absolute one in
// its form. Nothing where the line stays as it is: an address, and what would need a drive that isn't there or
// letters that stand in for others.
std::optional<std::string> InOtherType(const FileSystem& files, const KeptLine& line, const LanguageCodePage& page);

}  // namespace qublet
