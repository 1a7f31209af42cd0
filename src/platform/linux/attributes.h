#pragma once

#include <sys/stat.h>

#include <string>

namespace qublet {

// The attribute bits of the described system on this one. Read-only is a file without an owner write bit. Hidden,
// system and archive stand in the extended attribute "user.DOSATTRIB" as a hexadecimal number ("0x22"), where file
// servers and compatibility layers keep them too. Without it a file has the archive bit and a folder has none.

// `status` is that of the file, links followed.
unsigned AttributesOf(const std::string& native, const struct stat& status);

// Bits that the file system can't keep are left out. Throws Failure when the user may not change the file.
void SetAttributesOf(const std::string& native, unsigned attributes);

}  // namespace qublet
