#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/file_system.h"

namespace qublet {

// The piece of a file that was read last. A reader that looks at a few bytes here and there costs one read for each
// piece; one that goes on and on gets pieces that grow.
class FileWindow {
 public:
  explicit FileWindow(InputFile& file) : file_(file) {}

  std::int64_t Size() const { return file_.Size(); }

  // All that is at hand from `offset` on: at least `length` bytes, fewer only at the end of the file. Valid until the
  // next call. Throws Failure on an input error.
  std::span<const std::uint8_t> From(std::int64_t offset, std::size_t length);

 private:
  void Read(std::int64_t offset, std::size_t length);

  InputFile& file_;
  std::int64_t start_ = -1;
  std::vector<std::uint8_t> bytes_;
  std::size_t piece_ = 0;
};

}  // namespace qublet
