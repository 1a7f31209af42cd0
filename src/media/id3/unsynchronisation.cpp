#include "media/id3/unsynchronisation.h"

namespace qublet {

bool IsUnsynchronised(BytesView bytes) {
  for (std::size_t i = 0; i + 1 < bytes.size(); ++i) {
    if (bytes[i] == 0xFF && bytes[i + 1] >= 0xE0) return false;
  }
  return bytes.empty() || bytes.back() != 0xFF;
}

Bytes Unsynchronise(BytesView bytes) {
  Bytes out;
  out.reserve(bytes.size());
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    out.push_back(bytes[i]);
    if (bytes[i] != 0xFF) continue;
    if (i + 1 == bytes.size() || bytes[i + 1] == 0 || bytes[i + 1] >= 0xE0) out.push_back(0);
  }
  return out;
}

Bytes Resynchronise(BytesView bytes) {
  Bytes out;
  out.reserve(bytes.size());
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    out.push_back(bytes[i]);
    if (bytes[i] == 0xFF && i + 1 < bytes.size() && bytes[i + 1] == 0) ++i;
  }
  return out;
}

}  // namespace qublet
