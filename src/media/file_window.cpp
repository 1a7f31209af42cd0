#include "media/file_window.h"

#include <algorithm>

namespace qublet {
namespace {

constexpr std::size_t kSmallestPiece = 4096;
constexpr std::size_t kLargestPiece = 65536;

}  // namespace

std::span<const std::uint8_t> FileWindow::From(std::int64_t offset, std::size_t length) {
  const std::int64_t available = std::max<std::int64_t>(0, Size() - offset);
  length = static_cast<std::size_t>(std::min<std::int64_t>(available, static_cast<std::int64_t>(length)));
  const std::int64_t end = start_ + static_cast<std::int64_t>(bytes_.size());
  if (start_ < 0 || offset < start_ || offset + static_cast<std::int64_t>(length) > end) Read(offset, length);
  return std::span<const std::uint8_t>(bytes_).subspan(static_cast<std::size_t>(offset - start_));
}

void FileWindow::Read(std::int64_t offset, std::size_t length) {
  const bool goes_on = start_ >= 0 && offset >= start_ && offset <= start_ + static_cast<std::int64_t>(bytes_.size());
  piece_ = goes_on ? std::min(piece_ * 2, kLargestPiece) : kSmallestPiece;
  const std::int64_t available = std::max<std::int64_t>(0, Size() - offset);
  const auto wanted = static_cast<std::int64_t>(std::max(piece_, length));
  start_ = -1;
  bytes_.resize(static_cast<std::size_t>(std::min(available, wanted)));
  bytes_.resize(file_.ReadAt(offset, bytes_));
  start_ = offset;
}

}  // namespace qublet
