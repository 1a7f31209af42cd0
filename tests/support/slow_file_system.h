#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <thread>

#include "platform/forwarding_file_system.h"

namespace qublet {

// The file system of this machine on a slow disk: each opening of a file takes a while.
class SlowFileSystem : public ForwardingFileSystem {
 public:
  explicit SlowFileSystem(std::chrono::milliseconds delay) : SlowFileSystem(delay, OpenFileSystem()) {}

  std::unique_ptr<InputFile> OpenForReading(const std::string& path) const override {
    std::this_thread::sleep_for(delay_);
    return ForwardingFileSystem::OpenForReading(path);
  }

 private:
  SlowFileSystem(std::chrono::milliseconds delay, std::unique_ptr<FileSystem> real)
      : ForwardingFileSystem(*real), delay_(delay), real_(std::move(real)) {}

  std::chrono::milliseconds delay_;
  std::unique_ptr<FileSystem> real_;
};

}  // namespace qublet
