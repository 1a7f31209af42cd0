#pragma once

#include <vector>

#include "platform/file_system.h"

namespace qublet {

// A replacement that gathers small pieces into larger ones.
class BufferedReplacement : public FileReplacement {
 public:
  void Write(std::span<const std::uint8_t> bytes) final;

 protected:
  static constexpr std::size_t kBufferSize = 64 * 1024;  // bytes; a larger piece goes out by itself

  BufferedReplacement() { buffer_.reserve(kBufferSize); }
  // Writes out what has been gathered. Throws Failure.
  void FlushBuffer();

 private:
  // Appends bytes to the file. Throws Failure.
  virtual void WriteOut(std::span<const std::uint8_t> bytes) = 0;

  std::vector<std::uint8_t> buffer_;
};

}  // namespace qublet
