#pragma once

#include <cstddef>
#include <optional>

#include "media/id3/bytes.h"

namespace qublet {

// What zlib has compressed; nothing when the bytes are broken or hold more than `most`.
std::optional<Bytes> Inflated(BytesView bytes, std::size_t most);

}  // namespace qublet
