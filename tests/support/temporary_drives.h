#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>

#include "support/environment.h"

namespace qublet {

// A temporary folder with two drives, c: and d:, that stands as the drives of this process for as long as it lives.
// The current folder is the root of c: meanwhile.
class TemporaryDrives {
 public:
  TemporaryDrives() : before_(std::filesystem::current_path()), root_(MakeFolder()) {
    std::filesystem::create_directories(root_ / "c");
    std::filesystem::create_directories(root_ / "d");
    setenv("QUBLET_DOSDEVICES", MakeDrives().string().c_str(), 1);
    setenv("XDG_CONFIG_HOME", (root_ / "config").string().c_str(), 1);
    setenv("XDG_DATA_HOME", (root_ / "data").string().c_str(), 1);
#ifdef _WIN32
    setenv("LOCALAPPDATA", (root_ / "d").string().c_str(), 1);
#endif
    std::filesystem::current_path(root_ / "c");
    setenv("PWD", (root_ / "c").string().c_str(), 1);
  }

  ~TemporaryDrives() {
    std::error_code ignored;
    std::filesystem::current_path(before_, ignored);
    std::filesystem::remove_all(root_, ignored);
  }

  TemporaryDrives(const TemporaryDrives&) = delete;
  TemporaryDrives& operator=(const TemporaryDrives&) = delete;

  // Native places of the temporary folder and its two drives.
  const std::filesystem::path& Root() const {
    return root_;
  }
  std::filesystem::path C() const {
    return root_ / "c";
  }
  std::filesystem::path D() const {
    return root_ / "d";
  }

  // Another drive, empty. It is known to file systems that are opened from now on.
  void AddDrive(char letter) const {
    std::filesystem::create_directories(root_ / std::string(1, letter));
#ifndef _WIN32
    LinkDrive(letter, root_ / std::string(1, letter));
#endif
  }
  // A drive that leads to this folder.
  void LinkDrive(char letter, const std::filesystem::path& place) const {
    std::filesystem::create_directory_symlink(place, root_ / "dosdevices" / (std::string(1, letter) + ":"));
  }

  // A native path given in UTF-8, whatever this system's own code page is.
  static std::filesystem::path PathOf(const std::string& utf8) {
    return std::u8string(utf8.begin(), utf8.end());
  }

  // Writes a file below C() ("music/a.mp3"), with its folders.
  void Write(const std::string& name, const std::string& content) const {
    WriteAt(C() / PathOf(name), content);
  }

  static void WriteAt(const std::filesystem::path& place, const std::string& content) {
    std::filesystem::create_directories(place.parent_path());
    std::ofstream(place, std::ios::binary) << content;
  }

  // A file below C() of this length that takes no room on the disk.
  void WriteSparse(const std::string& name, const std::string& start, std::uintmax_t size) const {
    Write(name, start);
    std::filesystem::resize_file(C() / PathOf(name), size);
  }

  // Content of a file below C(), "" when there is none.
  std::string Read(const std::string& name) const {
    return ReadAt(C() / PathOf(name));
  }

  static std::string ReadAt(const std::filesystem::path& place) {
    std::ifstream in(place, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

 private:
  static std::filesystem::path MakeFolder() {
    std::random_device chance;
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("qublet-test-" + std::to_string(chance()));
    std::filesystem::create_directory(folder);
    return folder;
  }

  // The folder that says what c: and d: are: folders on Windows, where no name holds a ":", links elsewhere.
  std::filesystem::path MakeDrives() const {
#ifdef _WIN32
    return root_;
#else
    std::filesystem::create_directories(root_ / "dosdevices");
    std::filesystem::create_directory_symlink(root_ / "c", root_ / "dosdevices" / "c:");
    std::filesystem::create_directory_symlink(root_ / "d", root_ / "dosdevices" / "d:");
    return root_ / "dosdevices";
#endif
  }

  std::filesystem::path before_;
  std::filesystem::path root_;
};

// The drives c:, d: and z:, which else leads to all of this machine.
struct ClosedDrives : TemporaryDrives {
  ClosedDrives() { AddDrive('z'); }
};

}  // namespace qublet
