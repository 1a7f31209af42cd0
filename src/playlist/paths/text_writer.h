#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/file_system.h"

namespace qublet {

// A text file replaced by a text that comes piece by piece. A long one is on its way to the disk while its end is
// still being made. Nothing here throws; on a failure the present file stays as it is.
class TextWriter {
 public:
  enum class Encoding {
    kUtf8,
    kText,  // what EncodeText makes of the whole
  };

  static constexpr std::size_t kPiece = 512 * 1024;  // bytes written at a time

  TextWriter(const FileSystem& files, std::string path, Encoding encoding);

  // Appends UTF-8.
  void Append(std::string_view text) {
    text_.append(text);
    if (text_.size() >= next_) WriteAhead();
  }
  // Replaces the file by all that was appended; to be called once. Given up on any error on the way.
  Outcome Commit();

 private:
  void WriteAhead();
  void Write(std::string_view bytes);

  const FileSystem& files_;
  const std::string path_;
  const Encoding encoding_;
  std::unique_ptr<FileReplacement> file_;  // once something was written
  std::string text_;                       // what wasn't yet
  std::size_t next_ = kPiece;              // its size in bytes at which some of it may be
  Outcome so_far_;
};

}  // namespace qublet
