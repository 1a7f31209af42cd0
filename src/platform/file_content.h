#pragma once

#include "platform/file_system.h"

namespace qublet {

// Whether two files hold the same bytes. Throws Failure.
bool SameContent(InputFile& a, InputFile& b);

// Appends `length` bytes of `source` from `offset` by reading and writing them. Throws Failure, also when the source
// ends early.
void AppendContent(InputFile& source, std::int64_t offset, std::int64_t length, FileReplacement& target);

}  // namespace qublet
