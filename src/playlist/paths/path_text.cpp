#include "playlist/paths/path_text.h"

#include "playlist/paths/text.h"

namespace qublet {

std::string GetExtension(std::string_view name) {
  const std::size_t dot = name.rfind('.');
  return dot == name.npos ? std::string() : std::string(name.substr(dot));
}

std::string GetFileName(std::string_view path) {
  return std::string(path.substr(path.rfind('\\') + 1));  // npos + 1 is 0
}

std::string FolderAsItStands(std::string_view path) {
  return std::string(path.substr(0, path.rfind('\\') + 1));
}

std::string GetFolderPath(std::string_view path) {
  return ReplaceAll(path, GetFileName(path), "");
}

const std::string& NormalizePath(std::string& path) {
  if (!Contains(path, ":\\")) path = ReplaceAll(path, ":", ":\\");
  if (Contains(path, ":")) {
    const std::string drive = FirstCharacters(path, 2);
    path = ReplaceAll(path, drive, LowerCase(drive));
  }
  if (path.ends_with('\\')) path.pop_back();
  return path;
}

std::string NormalizedPath(std::string path) {
  NormalizePath(path);
  return path;
}

}  // namespace qublet
