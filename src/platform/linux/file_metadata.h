#pragma once

#include "platform/linux/descriptor.h"

namespace qublet {

// Gives a file the owner and group of `model` as far as this user may. A group that can't be kept gets no more
// rights from `mode` than others have. Throws Failure on an input/output error.
void CopyOwner(const struct stat& model, const Descriptor& file, mode_t& mode);
// Gives a file exactly the access list and the extended attributes of `model`; those that this file system doesn't
// know or this user may not set are left out, and so is what makes a file more powerful than its bytes ("security.",
// "trusted."). Throws Failure when there is no room for them.
void CopyExtendedAttributes(const Descriptor& model, const Descriptor& file);
// Never the bits that lend a program its owner's or group's rights.
void CopyMode(mode_t mode, const Descriptor& file);
void CopyTimes(const struct stat& model, const Descriptor& file);

}  // namespace qublet
