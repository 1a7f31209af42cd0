#include "floors.h"

#include <dirent.h>
#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
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

int ReadHeads(const std::vector<std::string>& files) {
  int count = 0;
  for (const std::string& file : files) count += ReadHead(AT_FDCWD, file.c_str()) ? 1 : 0;
  return count;
}

int CountMissing(const std::vector<std::string>& files) {
  int missing = 0;
  struct stat status {};
  for (const std::string& file : files) missing += stat(file.c_str(), &status) != 0 ? 1 : 0;
  return missing;
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

void ReplaceFile(const std::string& path, const std::string& bytes) {
  const std::string temporary = path + ".new";
  const int file = open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  const bool written = write(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
  const bool flushed = written && fsync(file) == 0;
  close(file);
  if (!flushed || rename(temporary.c_str(), path.c_str()) != 0) throw std::runtime_error("can't replace " + path);
}

std::string ReadWholeFile(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  struct stat status {};
  std::string bytes(fstat(file, &status) == 0 ? static_cast<std::size_t>(status.st_size) : 0, '\0');
  const bool whole = read(file, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size());
  close(file);
  if (!whole || bytes.empty()) throw std::runtime_error("can't read " + path);
  return bytes;
}

}  // namespace qublet::measures
