#include "platform/buffered_replacement.h"

namespace qublet {

void BufferedReplacement::Write(std::span<const std::uint8_t> bytes) {
  if (buffer_.size() + bytes.size() > kBufferSize) FlushBuffer();
  if (bytes.size() > kBufferSize) {
    WriteOut(bytes);
  } else {
    buffer_.insert(buffer_.end(), bytes.begin(), bytes.end());
  }
}

void BufferedReplacement::FlushBuffer() {
  WriteOut(buffer_);
  buffer_.clear();
}

}  // namespace qublet
