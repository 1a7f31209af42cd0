#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>

#include "platform/file_system.h"
#include "playlist/paths/collections.h"

namespace qublet {

// Whether not all files lie in the folder of the first.
bool InSeveralFolders(const Collection& paths);

// The number that each file of a run gets, and the one whose length all numbers get.
class Numbering {
 public:
  struct Number {
    std::int16_t Index;
    std::int16_t Total;
  };

  // `entries` files are to come. By folder the count goes on where a folder comes back, and the length is that of the
  // count of audio files on the disk, looked up each time the folder changes.
  Numbering(const FileSystem& files, std::size_t entries, bool ResetPerFolder)
      : files_(files), entries_(entries), by_folder_(ResetPerFolder) {}

  // Never throws Failure.
  Number Next(const std::string& path);

 private:
  std::size_t CountAudioFiles(const std::string& folder) const;

  const FileSystem& files_;
  std::size_t entries_;
  bool by_folder_;
  std::size_t total_ = 0;
  std::size_t index_ = 0;  // over all folders
  std::string folder_;     // of the last file
  std::unordered_map<std::string, std::size_t> indexes_;
};

}  // namespace qublet
