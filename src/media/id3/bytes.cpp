#include "media/id3/bytes.h"

namespace qublet {

void AppendNumber(Bytes& out, std::uint32_t value, unsigned count, unsigned bits_per_byte) {
  for (unsigned i = count; i-- > 0;) {
    out.push_back(static_cast<std::uint8_t>(value >> i * bits_per_byte & ((1u << bits_per_byte) - 1)));
  }
}

void Append(Bytes& out, BytesView bytes) {
  out.insert(out.end(), bytes.begin(), bytes.end());
}

void Append(Bytes& out, std::string_view text) {
  Append(out, AsBytes(text));
}

}  // namespace qublet
