#pragma once

#include <string>

#include "platform/file_system.h"

namespace qublet {

// What a path leads to, and the plain operations on files. Paths are in drive form. Nothing here throws.

struct FileDetails {
  bool Exists = false;
  std::string Path;  // normalised
  bool IsFolder = false;
  bool IsFile = false;
  std::string Extension;  // of a file, dot included, in lower case; "" when the name has none
};

// Normalises `path` in place and fills `details`; for a folder `Extension` stays as the caller left it.
void GetFileDetails(const FileSystem& files, std::string& path, FileDetails& details);

// ExistingFiles of one path; who asks for many makes one of these.
bool FileExists(const FileSystem& files, const std::string& path);

// Renaming never replaces a file, copying does.
Outcome RenameFileSafe(const FileSystem& files, const std::string& from, const std::string& to);
Outcome DeleteFileSafe(const FileSystem& files, const std::string& path);
Outcome CopyFileSafe(const FileSystem& files, const std::string& source, const std::string& target);

}  // namespace qublet
