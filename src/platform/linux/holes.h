#pragma once

#include <cstdint>

#include "platform/linux/descriptor.h"

namespace qublet {

// Files hold ranges that were never written, which take no room on the disk and read as zeros.

bool HasHoles(const struct stat& status);

// Where from `offset` on the first bytes stand that were written, and where the first hole; `end` at the latest. A
// file system that doesn't know gives `offset` and `end`. Throws Failure when the file has become shorter than `end`.
std::int64_t NextData(const Descriptor& file, std::int64_t offset, std::int64_t end);
std::int64_t NextHole(const Descriptor& file, std::int64_t offset, std::int64_t end);

// Throws Failure when the disk of `target` has no room for `length` bytes of `source`, as far as that can be known.
void ExpectRoom(const Descriptor& source, std::int64_t length, const Descriptor& target);

}  // namespace qublet
