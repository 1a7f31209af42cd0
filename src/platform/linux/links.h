#pragma once

#include <sys/stat.h>

#include <string>

#include "platform/linux/descriptor.h"

namespace qublet {

// Whose a file has to be, and with it which symbolic links lead to it.
enum class Whose {
  // A link of anybody's counts, but in a folder where all may make names and only owners remove them (as /tmp) one of
  // this user's or of the folder's owner alone. Kernels that are told to have the same rule.
  kAnybodys,
  // The program's own files. They belong to this user, and so does each link on the way; a link counts only in a
  // folder that nobody else can write. The folder is this user's or the superuser's, and not for all to write.
  kOwn,
};

// A file by its folder, which is held open, and its name there. The name is no link; the file itself may be missing.
struct HeldPlace {
  Descriptor folder;
  std::string name;  // "" for a path that ends in "/"
};

// Where a path leads. Throws Failure for a link or a folder that doesn't count, and where there is no such folder.
HeldPlace PlaceOf(const std::string& native, Whose whose);
// The same without a look at links.
HeldPlace PlaceAsNamed(const std::string& native);

bool IsThisUsers(const struct stat& status);
// Whether anybody but this user and the superuser can put files there. A group counts, and so does an access list,
// which shows as one.
bool OthersMayWrite(const struct stat& folder);

}  // namespace qublet
