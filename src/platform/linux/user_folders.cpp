#include "platform/linux/user_folders.h"

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "platform/failure.h"

namespace qublet {

namespace {

std::string UserFolder(const char* variable, const char* in_home) {
  const char* folder = std::getenv(variable);
  if (folder != nullptr && *folder == '/') return folder;
  const char* home = std::getenv("HOME");
  return home != nullptr && *home == '/' ? std::string(home) + in_home : "";
}

}  // namespace

std::string ConfigFolder() {
  return UserFolder("XDG_CONFIG_HOME", "/.config");
}

std::string DataFolder() {
  return UserFolder("XDG_DATA_HOME", "/.local/share");
}

void MakeFolders(const std::string& native) {
  std::error_code error;
  std::filesystem::create_directories(native, error);
  if (error) throw Failure("\"" + native + "\" can't be made: " + error.message());
}

}  // namespace qublet
