#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "support/temporary_drives.h"

namespace qublet {

inline std::span<const std::uint8_t> BytesOf(const std::string& text) {
  return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

// Two temporary drives and the file system of this machine opened on them.
class FileSystemTestBase : public ::testing::Test {
 protected:
  // The names of a folder in order, folders with a "\" behind.
  std::vector<std::string> NamesIn(const std::string& folder) const {
    std::vector<std::string> names;
    for (const FolderEntry& entry : files_->ReadFolder(folder))
      names.push_back(entry.name + (entry.is_folder ? "\\" : ""));
    std::sort(names.begin(), names.end());
    return names;
  }

  void Replace(const std::string& path, const std::string& content) const {
    const auto next = files_->BeginReplacement(path);
    next->Write(BytesOf(content));
    next->Commit();
  }

  // A content that takes several buffers and repeats nowhere.
  static std::string LongContent(std::size_t size = 300000) {
    std::string content;
    while (content.size() < size) content += std::to_string(content.size()) + ",";
    content.resize(size);
    return content;
  }

  using Names = std::vector<std::string>;

  TemporaryDrives drives_;
  std::unique_ptr<FileSystem> files_ = OpenFileSystem();
};

}  // namespace qublet
