#pragma once

#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace qublet {

// A temporary folder with two drives, c: and d:, that stands as the drives of this process for as long as it lives.
// The current folder is the root of c: meanwhile.
class TemporaryDrives {
 public:
  TemporaryDrives() : before_(std::filesystem::current_path()) {
    std::string pattern = (std::filesystem::temp_directory_path() / "qublet-test-XXXXXX").string();
    root_ = mkdtemp(pattern.data());
    std::filesystem::create_directories(root_ / "c");
    std::filesystem::create_directories(root_ / "d");
    std::filesystem::create_directories(root_ / "dosdevices");
    std::filesystem::create_directory_symlink(root_ / "c", root_ / "dosdevices" / "c:");
    std::filesystem::create_directory_symlink(root_ / "d", root_ / "dosdevices" / "d:");
    setenv("QUBLET_DOSDEVICES", (root_ / "dosdevices").c_str(), 1);
    setenv("XDG_CONFIG_HOME", (root_ / "config").c_str(), 1);
    setenv("XDG_DATA_HOME", (root_ / "data").c_str(), 1);
    std::filesystem::current_path(root_ / "c");
    setenv("PWD", (root_ / "c").c_str(), 1);
  }

  ~TemporaryDrives() {
    std::error_code ignored;
    std::filesystem::current_path(before_, ignored);
    std::filesystem::remove_all(root_, ignored);
  }

  TemporaryDrives(const TemporaryDrives&) = delete;
  TemporaryDrives& operator=(const TemporaryDrives&) = delete;

  // Native places of the temporary folder and its two drives.
  const std::filesystem::path& Root() const { return root_; }
  std::filesystem::path C() const { return root_ / "c"; }
  std::filesystem::path D() const { return root_ / "d"; }

  // Writes a file below C() ("music/a.mp3"), with its folders.
  void Write(const std::string& name, const std::string& content) const { WriteAt(C() / name, content); }

  static void WriteAt(const std::filesystem::path& place, const std::string& content) {
    std::filesystem::create_directories(place.parent_path());
    std::ofstream(place, std::ios::binary) << content;
  }

  // A file below C() of this length that takes no room on the disk.
  void WriteSparse(const std::string& name, const std::string& start, std::uintmax_t size) const {
    Write(name, start);
    std::filesystem::resize_file(C() / name, size);
  }

  // Content of a file below C(), "" when there is none.
  std::string Read(const std::string& name) const { return ReadAt(C() / name); }

  static std::string ReadAt(const std::filesystem::path& place) {
    std::ifstream in(place, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

 private:
  std::filesystem::path before_;
  std::filesystem::path root_;
};

}  // namespace qublet
