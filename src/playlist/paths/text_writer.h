#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/file_system.h"

namespace qublet {

// A text file replaced by a text that comes piece by piece. A long one is on its way to the disk while its end is
// still being made. Nothing here throws; on a failure the present file stays as it is.
class TextWriter {
 public:
  enum class Encoding {
    kUtf8,
    // This system's code page when every line alone reads back as the same text, by whoever takes a line for UTF-8
    // where it is valid and else for the user's code page. Else UTF-8.
    kByLine,
  };

  static constexpr std::size_t kPiece = 512 * 1024;  // bytes written at a time

  // A text that would be taken for one with a byte-order mark begins with one, and so does any where `mark` says so.
  TextWriter(const FileSystem& files, std::string path, Encoding encoding, bool mark = false);

  // Appends UTF-8.
  void Append(std::string_view text) {
    text_.append(text);
    if (text_.size() >= next_) WriteAhead();
  }
  // Appends bytes that go into the file as they are, whatever its encoding: a line, or several.
  void AppendBytes(std::string_view bytes);
  // Replaces the file by all that was appended; to be called once. Given up on any error on the way.
  Outcome Commit();

 private:
  void WriteAhead();
  void Write(std::string_view bytes);
  std::optional<std::string> InCodePage() const;

  const FileSystem& files_;
  const std::string path_;
  const Encoding encoding_;
  const bool mark_;
  std::unique_ptr<FileReplacement> file_;                         // once something was written
  std::string text_;                                              // what wasn't yet
  std::vector<std::pair<std::size_t, std::size_t>> as_they_are_;  // begin and end in it, ascending
  std::size_t next_ = kPiece;                                     // its size in bytes at which some of it may be
  Outcome so_far_;
};

}  // namespace qublet
