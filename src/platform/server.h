#pragma once

#include <string>
#include <string_view>

#include "platform/file_system.h"

namespace qublet {

// The server that a path names in front, in small letters ("nas" of "\\NAS\music\a.mp3"); "?" or "." where that is a
// device instead, "" where it is neither. Nothing is looked at.
std::string ServerIn(std::string_view path);

// The server that a folder lies on, which its drive may lead to; "" when that isn't known. Never throws.
std::string ServerOf(const FileSystem& files, const std::string& folder);

}  // namespace qublet
