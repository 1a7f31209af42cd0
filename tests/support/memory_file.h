#pragma once

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/file_system.h"

namespace qublet {

using Bytes = std::vector<std::uint8_t>;

inline Bytes BytesOf(std::string_view text) {
  return {text.begin(), text.end()};
}

inline std::string TextOf(const Bytes& bytes) {
  return {bytes.begin(), bytes.end()};
}

// One after another.
inline Bytes Joined(std::initializer_list<Bytes> parts) {
  Bytes all;
  for (const Bytes& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

// A file over bytes in memory, which counts what is read of it.
class MemoryFile : public InputFile {
 public:
  explicit MemoryFile(Bytes content) : content_(std::move(content)) {}
  explicit MemoryFile(std::string_view content) : content_(content.begin(), content.end()) {}

  // The content of a file of this machine.
  static MemoryFile Load(const std::string& native_path) {
    std::ifstream in(native_path, std::ios::binary);
    return MemoryFile(Bytes{std::istreambuf_iterator<char>(in), {}});
  }

  std::int64_t Size() const override { return static_cast<std::int64_t>(content_.size()); }

  std::size_t ReadAt(std::int64_t offset, std::span<std::uint8_t> buffer) override {
    ++reads_;
    if (fails_) throw Failure("input error");
    if (offset < 0) throw Failure("negative offset");
    const auto start = std::min(static_cast<std::uint64_t>(offset), static_cast<std::uint64_t>(content_.size()));
    const auto length = std::min<std::uint64_t>(buffer.size(), content_.size() - start);
    std::copy_n(content_.begin() + static_cast<std::ptrdiff_t>(start), length, buffer.begin());
    bytes_read_ += length;
    return length;
  }

  const Bytes& Content() const { return content_; }
  // Calls of ReadAt so far, and the bytes that they gave.
  int Reads() const { return reads_; }
  std::uint64_t BytesRead() const { return bytes_read_; }
  // From now on every read is an input error.
  void Fail() { fails_ = true; }

 private:
  Bytes content_;
  int reads_ = 0;
  std::uint64_t bytes_read_ = 0;
  bool fails_ = false;
};

}  // namespace qublet
