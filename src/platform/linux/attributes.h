#pragma once

#include <sys/stat.h>

#include <string>

namespace qublet {

// The attribute bits of the described system on this one. Read-only is a file without an owner write bit. Hidden,
// system and archive stand in the extended attribute "user.DOSATTRIB" as a hexadecimal number ("0x22"), where file
// servers and compatibility layers keep them too. Without it a file has the archive bit and a folder has none.

// `status` is that of the file, links followed.
unsigned AttributesOf(const std::string& native, const struct stat& status);

// Read-only takes write from all; its end gives it back to the owner and, where they may read, to group and others as
// the umask allows. The mode changes only where read-only does. Throws Failure when the user may not change the file,
// or when a bit can't be kept here.
void SetAttributesOf(const std::string& native, unsigned attributes);

}  // namespace qublet
