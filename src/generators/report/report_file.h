#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/file_system.h"

namespace qublet {

// A report on its way to the disk, line by line. It takes the old file's place at the end; on a failure that one
// stays as it is. Nothing here throws.
class ReportFile {
 public:
  enum class Encoding { kCodePage, kUtf8 };

  ReportFile(const FileSystem& files, const std::string& path, Encoding encoding);

  // How UTF-8 text stands in the file. In the code page, a character without a place there becomes "?". On any
  // thread.
  std::string Bytes(std::string text) const;
  void Write(std::string_view bytes);
  void WriteLine(std::string text);
  // Given up on any error on the way.
  Outcome Close();

 private:
  void WriteOut();

  const Encoding encoding_;
  std::unique_ptr<FileReplacement> file_;
  std::string waiting_;  // bytes
  Outcome so_far_;
};

}  // namespace qublet
