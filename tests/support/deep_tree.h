#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace qublet {

// Folders of one name, one in the other, deeper than any path reaches that the system takes; they go with this.
class DeepTree {
 public:
  DeepTree(const std::filesystem::path& place, std::string name, int depth) : name_(std::move(name)) {
    Enter(open(place.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    while (depth_ < depth) {
      if (mkdirat(folder_, name_.c_str(), 0755) != 0) throw std::runtime_error("mkdirat");
      Enter(openat(folder_, name_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
      ++depth_;
    }
  }
  ~DeepTree() {
    for (const std::string& file : files_) unlinkat(folder_, file.c_str(), 0);
    for (; depth_ > 0; --depth_) {
      Enter(openat(folder_, "..", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
      unlinkat(folder_, name_.c_str(), AT_REMOVEDIR);
    }
    close(folder_);
  }
  DeepTree(const DeepTree&) = delete;
  DeepTree& operator=(const DeepTree&) = delete;

  // Writes a file into the deepest folder.
  void Write(const std::string& name, const std::string& content) {
    const int file = openat(folder_, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
    if (file < 0 || write(file, content.data(), content.size()) != static_cast<ssize_t>(content.size()))
      throw std::runtime_error("write");
    close(file);
    files_.push_back(name);
  }

  // Of the deepest folder, in drive form below `top`, without a "\" at the end.
  std::string PathBelow(const std::string& top) const {
    std::string path = top;
    for (int i = 0; i < depth_; ++i) path += "\\" + name_;
    return path;
  }

 private:
  void Enter(int folder) {
    if (folder < 0) throw std::runtime_error("open");
    if (folder_ >= 0) close(folder_);
    folder_ = folder;
  }

  const std::string name_;
  int folder_ = -1;
  int depth_ = 0;
  std::vector<std::string> files_;
};

}  // namespace qublet
