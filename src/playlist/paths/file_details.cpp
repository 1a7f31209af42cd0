#include "playlist/paths/file_details.h"

#include "playlist/paths/existing_files.h"
#include "playlist/paths/path_text.h"
#include "playlist/paths/text.h"

namespace qublet {

void GetFileDetails(const FileSystem& files, std::string& path, FileDetails& details) {
  details.Path = NormalizePath(path);
  const std::optional<unsigned> attributes = files.Attributes(path);
  details.Exists = attributes.has_value();
  details.IsFolder = details.Exists && (*attributes & (kFolder | kVolumeLabel)) != 0;
  details.IsFile = details.Exists && !details.IsFolder;
  if (!details.IsFolder) details.Extension = details.IsFile ? LowerCase(GetExtension(GetFileName(path))) : "";
}

bool FileExists(const FileSystem& files, const std::string& path) {
  return ExistingFiles(files).Has(path);
}

Outcome RenameFileSafe(const FileSystem& files, const std::string& from, const std::string& to) {
  return Attempt([&] { files.Rename(from, to); });
}

Outcome DeleteFileSafe(const FileSystem& files, const std::string& path) {
  return Attempt([&] { files.DeleteFile(path); });
}

Outcome CopyFileSafe(const FileSystem& files, const std::string& source, const std::string& target) {
  return Attempt([&] { files.CopyFile(source, target); });
}

}  // namespace qublet
