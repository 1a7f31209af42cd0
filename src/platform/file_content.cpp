#include "platform/file_content.h"

#include <algorithm>
#include <vector>

namespace qublet {
namespace {

constexpr std::int64_t kChunk = 64 * 1024;

}  // namespace

bool SameContent(InputFile& a, InputFile& b) {
  if (a.Size() != b.Size()) return false;
  std::vector<std::uint8_t> left(kChunk);
  std::vector<std::uint8_t> right(kChunk);
  for (std::int64_t offset = 0; offset < a.Size(); offset += kChunk) {
    const std::size_t count = a.ReadAt(offset, left);
    if (b.ReadAt(offset, right) != count) return false;
    if (!std::equal(left.begin(), left.begin() + static_cast<std::ptrdiff_t>(count), right.begin())) return false;
  }
  return true;
}

void AppendContent(InputFile& source, std::int64_t offset, std::int64_t length, FileReplacement& target) {
  std::vector<std::uint8_t> chunk(static_cast<std::size_t>(std::clamp<std::int64_t>(length, 0, kChunk)));
  while (length > 0) {
    const auto wanted = static_cast<std::size_t>(std::min(length, kChunk));
    if (source.ReadAt(offset, std::span(chunk).first(wanted)) != wanted) throw Failure("the source ends early");
    target.Write(std::span(chunk).first(wanted));
    offset += static_cast<std::int64_t>(wanted);
    length -= static_cast<std::int64_t>(wanted);
  }
}

}  // namespace qublet
