#include "media/id3/inflate.h"

#include <zlib.h>

#include <algorithm>

namespace qublet {

std::optional<Bytes> Inflated(BytesView bytes, std::size_t most) {
  constexpr std::size_t kFirstRoom = 4096;
  z_stream stream{};
  if (inflateInit(&stream) != Z_OK) return std::nullopt;
  stream.next_in = const_cast<Bytef*>(bytes.data());
  stream.avail_in = static_cast<uInt>(bytes.size());
  Bytes out;
  int state = Z_OK;
  while (state == Z_OK && out.size() <= most) {
    const std::size_t done = out.size();
    // One byte more than allowed shows that there is more.
    out.resize(std::min(std::max(kFirstRoom, done * 2), most + 1));
    stream.next_out = out.data() + done;
    stream.avail_out = static_cast<uInt>(out.size() - done);
    state = inflate(&stream, Z_NO_FLUSH);
    out.resize(out.size() - stream.avail_out);
  }
  inflateEnd(&stream);
  if (state != Z_STREAM_END || out.size() > most) return std::nullopt;
  return out;
}

}  // namespace qublet
