#include "floors.h"

#include <dirent.h>
#include <fcntl.h>
#include <taglib/fileref.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <stdexcept>

namespace qublet::measures {
namespace {

bool ReadHead(int folder, const char* name) {
  std::array<char, 4096> head;
  const int file = openat(folder, name, O_RDONLY | O_CLOEXEC);
  if (file < 0) return false;
  const bool read_something = read(file, head.data(), head.size()) > 0;
  close(file);
  return read_something;
}

// Takes the descriptor over.
int ReadHeadsBelow(int folder) {
  DIR* listing = folder < 0 ? nullptr : fdopendir(folder);
  if (listing == nullptr) throw std::runtime_error("can't read a folder");
  int count = 0;
  while (const dirent* entry = readdir(listing)) {
    if (entry->d_type == DT_REG) {
      count += ReadHead(folder, entry->d_name) ? 1 : 0;
    } else if (entry->d_type == DT_DIR && std::strcmp(entry->d_name, ".") != 0 &&
               std::strcmp(entry->d_name, "..") != 0) {
      count += ReadHeadsBelow(openat(folder, entry->d_name, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    }
  }
  closedir(listing);
  return count;
}

}  // namespace

int ReadHeads(const std::filesystem::path& folder) {
  return ReadHeadsBelow(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

int ReadByTagLib(const std::filesystem::path& folder) {
  int count = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    const TagLib::FileRef file(entry.path().c_str());
    const auto* properties = file.audioProperties();
    if (properties != nullptr && properties->bitrate() > 0 && properties->sampleRate() > 0 &&
        properties->lengthInMilliseconds() > 0) {
      ++count;
    }
  }
  return count;
}

}  // namespace qublet::measures
