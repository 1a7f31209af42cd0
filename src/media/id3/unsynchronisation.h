#pragma once

#include "media/id3/bytes.h"

namespace qublet {

// The scheme that keeps tag bytes from looking like the start of an audio frame: a zero byte is put in behind every
// byte 0xFF that a zero or a byte from 0xE0 on follows, or that is the last.

// False for bytes that this scheme can't have made; some programs claim it and don't apply it.
bool IsUnsynchronised(BytesView bytes);
Bytes Unsynchronise(BytesView bytes);
Bytes Resynchronise(BytesView bytes);

}  // namespace qublet
